#include "day_date.h"

#include <QRegularExpression>

namespace ksv {

int daysBetween(QDate from, QDate to) { return static_cast<int>(from.daysTo(to)); }

int monthsBetween(QDate from, QDate to) {
  return (to.year() - from.year()) * 12 + (to.month() - from.month());
}

int yearsBetween(QDate from, QDate to) { return to.year() - from.year(); }

int expandTwoDigitYear(int yy) { return yy < 30 ? 2000 + yy : 1900 + yy; }

QDate dateSerial(int year, int month, int day) {
  if (year >= 0 && year < 100) year = expandTwoDigitYear(year);
  // Normalise the month first, then let the day run from the first of it.
  int m0 = month - 1;
  year += m0 >= 0 ? m0 / 12 : -((11 - m0) / 12);
  m0 = ((m0 % 12) + 12) % 12;
  const QDate first(year, m0 + 1, 1);
  if (!first.isValid()) return {};
  return first.addDays(day - 1);
}

namespace {

std::optional<QDate> fromSixDigits(const QString& text, int yPos, int mPos, int dPos) {
  static const QRegularExpression six(QStringLiteral("^\\d{6}$"));
  if (!six.match(text).hasMatch()) return std::nullopt;
  const QDate d = dateSerial(text.mid(yPos, 2).toInt(), text.mid(mPos, 2).toInt(), text.mid(dPos, 2).toInt());
  if (!d.isValid()) return std::nullopt;
  return d;
}

}  // namespace

QString toYymmdd(QDate date) { return date.toString(QStringLiteral("yyMMdd")); }
std::optional<QDate> fromYymmdd(const QString& text) { return fromSixDigits(text, 0, 2, 4); }
QString toDdmmyy(QDate date) { return date.toString(QStringLiteral("ddMMyy")); }
std::optional<QDate> fromDdmmyy(const QString& text) { return fromSixDigits(text, 4, 2, 0); }

QString shortDateText(QDate date, const Regional& regional) {
  return regional.locale.toString(date, regional.shortDateFormat);
}

QString longDateText(QDate date, const Regional& regional) {
  return regional.locale.toString(date, regional.longDateFormat);
}

std::optional<QDate> parseDate(const QString& text, const Regional& regional) {
  const QString t = text.trimmed();
  static const QRegularExpression iso(QStringLiteral("^(\\d{4})-(\\d{1,2})-(\\d{1,2})$"));
  if (const auto m = iso.match(t); m.hasMatch()) {
    const QDate d(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    return d.isValid() ? std::optional<QDate>(d) : std::nullopt;
  }
  static const QRegularExpression parts(QStringLiteral("^(\\d{1,4})[/.\\- ](\\d{1,2})[/.\\- ](\\d{1,4})$"));
  const auto m = parts.match(t);
  if (!m.hasMatch()) return std::nullopt;
  const int a = m.captured(1).toInt(), b = m.captured(2).toInt(), c = m.captured(3).toInt();
  const bool aLong = m.captured(1).size() > 2, cLong = m.captured(3).size() > 2;

  // The order of the locale's short format decides which number is which.
  const QString f = regional.shortDateFormat.toLower();
  const qsizetype pd = f.indexOf(QLatin1Char('d')), pm = f.indexOf(QLatin1Char('m')), py = f.indexOf(QLatin1Char('y'));
  int y, mo, d;
  qsizetype yearDigits;
  if (aLong || (py >= 0 && py < pm && py < pd)) {
    if (cLong) return std::nullopt;
    y = a; mo = b; d = c;
    yearDigits = m.captured(1).size();
  } else {
    if (pm >= 0 && pm < pd) { mo = a; d = b; } else { d = a; mo = b; }
    y = c;
    yearDigits = m.captured(3).size();
  }
  if (yearDigits <= 2) y = expandTwoDigitYear(y);
  const QDate date(y, mo, d);
  return date.isValid() ? std::optional<QDate>(date) : std::nullopt;
}

bool isDate(const QString& text, const Regional& regional) { return parseDate(text, regional).has_value(); }

}  // namespace ksv
