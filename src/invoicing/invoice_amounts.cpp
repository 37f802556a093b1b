#include "invoice_amounts.h"

#include <cmath>

#include "core/number_text.h"

namespace ksv {

std::optional<Currency> cellAmount(const QString& text, const Regional& regional) {
  if (text.isEmpty()) return std::nullopt;
  return parseCurrency(text, regional);
}

Currency cellAmountOrZero(const QString& text, const Regional& regional) {
  return cellAmount(text, regional).value_or(Currency());
}

QString decimalText(Currency value, short nbDecimal, const Regional& regional) {
  return formatNumber(value.rounded(nbDecimal), amountFormat(nbDecimal), regional);
}

QString totalText(float value, const AmountDisplay& display, const Regional& regional, bool& showDecimals,
                  float* rounded) {
  if (rounded) *rounded = value;
  const QString whole = formatNumber(static_cast<double>(value), amountFormat(0), regional);
  if (value == 0.0f) return whole;
  const double v = static_cast<double>(value);
  if (display.OnlyIfDecExist && v == roundHalfEven(v, 0)) return whole;
  showDecimals = true;
  const Currency r = Currency::fromSingle(value).rounded(display.NbDecimal < 0 ? 0 : display.NbDecimal);
  if (rounded) *rounded = r.toSingle();
  return formatNumber(r, amountFormat(display.NbDecimal), regional);
}

QString plainNumber(double value, int digits, const Regional& regional) {
  QString s = QString::number(value, 'g', digits);
  if (s.contains(QLatin1Char('e'))) {
    s = QString::number(value, 'f', digits);
    if (s.contains(QLatin1Char('.'))) {
      while (s.endsWith(QLatin1Char('0'))) s.chop(1);
      if (s.endsWith(QLatin1Char('.'))) s.chop(1);
    }
  }
  if (s == QLatin1String("-0")) s = QStringLiteral("0");
  s.replace(QLatin1Char('.'), regional.decimalSymbol);
  return s;
}

QString plainCurrency(Currency value, const Regional& regional) {
  return formatNumber(value, QStringLiteral("0.####"), regional);
}

}  // namespace ksv
