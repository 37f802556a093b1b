#include "regional.h"

namespace ksv {

Regional Regional::fromLocale(const QLocale& locale) {
  Regional r;
  r.locale = locale;
  r.shortDateFormat = locale.dateFormat(QLocale::ShortFormat);
  r.longDateFormat = locale.dateFormat(QLocale::LongFormat);
  r.decimalSymbol = locale.decimalPoint();
  r.thousandSymbol = locale.groupSeparator();
  if (r.thousandSymbol == QString(QChar(0x202F))) r.thousandSymbol = QString(QChar(0xA0));
  return r;
}

Regional Regional::fromSystem() { return fromLocale(QLocale::system()); }

Regional Regional::englishUS() {
  Regional r;
  r.locale = QLocale(QLocale::English, QLocale::UnitedStates);
  r.shortDateFormat = QStringLiteral("M/d/yyyy");
  r.longDateFormat = QStringLiteral("dddd, MMMM d, yyyy");
  r.decimalSymbol = QStringLiteral(".");
  r.thousandSymbol = QStringLiteral(",");
  return r;
}

Regional Regional::french() {
  Regional r;
  r.locale = QLocale(QLocale::French, QLocale::France);
  r.shortDateFormat = QStringLiteral("dd/MM/yyyy");
  r.longDateFormat = QStringLiteral("dddd d MMMM yyyy");
  r.decimalSymbol = QStringLiteral(",");
  r.thousandSymbol = QString(QChar(0xA0));
  return r;
}

}  // namespace ksv
