#pragma once
// The amounts of the invoice grid as texts: reading a cell back as currency,
// the display of a total, and the plain number texts the line fields show.

#include <optional>

#include <QString>

#include "core/currency.h"
#include "core/regional.h"

namespace ksv {

// How the open invoice shows its amounts.
struct AmountDisplay {
  short NbDecimal = 2;          // option: 0, 1 or 2 decimals; others give whole numbers
  bool OnlyIfDecExist = true;   // option: decimals only when some amount has any
};

// A grid cell read back: thousands separators and the "- " form accepted;
// empty or foreign text gives nothing.
std::optional<Currency> cellAmount(const QString& text, const Regional& regional);
// The same, with nothing read as 0.
Currency cellAmountOrZero(const QString& text, const Regional& regional);

// `value` rounded half to even to NbDecimal places and shown in its format.
QString decimalText(Currency value, short nbDecimal, const Regional& regional);

// The one place a sum narrows to the single that TotalAmount keeps.
inline float toTotalAmount(Currency sum) { return sum.toSingle(); }

// A sum as the totals show it: whole when it is whole and OnlyIfDecExist is on
// (or zero), else rounded to NbDecimal decimals, which sets `showDecimals`.
// `rounded` receives the value the text stands for.
QString totalText(float value, const AmountDisplay& display, const Regional& regional, bool& showDecimals,
                  float* rounded = nullptr);

// A number as a plain field text, with up to `digits` significant digits and
// the locale's decimal symbol, no grouping: 15 for doubles, 7 for singles.
QString plainNumber(double value, int digits, const Regional& regional);
// A currency as a plain field text: up to four decimals, no trailing zeros.
QString plainCurrency(Currency value, const Regional& regional);

}  // namespace ksv
