#pragma once
// The workstation's regional settings as the program reads them: the short and
// long date formats, the decimal and thousand symbols, and the month and day
// names of the locale. Injected everywhere, so tests fix them.

#include <QLocale>
#include <QString>

namespace ksv {

struct Regional {
  QString shortDateFormat;  // e.g. "dd/MM/yyyy"
  QString longDateFormat;   // e.g. "dddd d MMMM yyyy"
  QString decimalSymbol;
  QString thousandSymbol;
  QLocale locale;           // month and day names of long dates

  // Read from the system locale. A narrow no-break space, which recent locale
  // data gives for French grouping, reads as the ordinary no-break space.
  static Regional fromSystem();
  static Regional fromLocale(const QLocale& locale);
  // Fixed settings for tests and for the command line.
  static Regional englishUS();  // M/d/yyyy, ".", ","
  static Regional french();     // dd/MM/yyyy, ",", no-break space
};

}  // namespace ksv
