#pragma once
// Numbers as texts in the workstation's locale: the display formats of amounts,
// reading a formatted amount back, and the lenient readings the system relies on.

#include <optional>

#include <QString>

#include "currency.h"
#include "regional.h"

namespace ksv {

// The amount formats by number of decimals; any other count gives the
// whole-number form, as the invoice grid expects.
QString amountFormat(int decimals);        // "#,###,##0", "#,###,##0.0", "#,###,##0.00"
QString plainAmountFormat(int decimals);   // "######0", "######0.0", "######0.00"; other counts: ""

// Formats with a pattern of '#', '0', ',' and '.': a ',' in the whole part asks
// for grouping by thousands, the '0's give the minimum count of digits, the
// places after '.' the decimals. Rounding is half away from zero on the value
// read to fifteen significant digits, as the system's Format does.
QString formatNumber(double value, const QString& pattern, const Regional& regional);
QString formatNumber(Currency value, const QString& pattern, const Regional& regional);

// A formatted amount read back as currency: thousand symbols, the decimal
// symbol, a sign before ("-12", "- 12") or after ("12-"), or parentheses.
// Rounds half to even at four decimals. Empty or foreign text gives nothing.
std::optional<Currency> parseCurrency(const QString& text, const Regional& regional);
// The same reading with an exponent allowed, as a double.
std::optional<double> parseNumber(const QString& text, const Regional& regional);

// True when the text reads as a number in the locale.
bool isNumeric(const QString& text, const Regional& regional);

// The leading number of a text, locale-free: blanks are skipped anywhere,
// '.' is the decimal point, "&H"/"&O" prefixes read hex and octal; "12abc" is 12
// and "abc" is 0.
double val(const QString& text);

// Round(v, n): half to even on the scaled value.
double roundHalfEven(double value, int decimals);

}  // namespace ksv
