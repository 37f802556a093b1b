#include "accounts_compute_tax.h"

#include <optional>

#include "core/number_text.h"

namespace ksv {

void ComputeTax::WithoutTax_Change(const QString& text) {
  WithoutTax = text;
  changed(Field::WithoutTax);
}

void ComputeTax::Rate_Change(const QString& text) {
  Rate = text;
  changed(Field::Rate);
}

void ComputeTax::WithTax_Change(const QString& text) {
  WithTax = text;
  changed(Field::WithTax);
}

QString ComputeTax::amount(double value) const { return formatNumber(value, amountFormat(nbDecimal_), regional_); }

void ComputeTax::changed(Field field) {
  const std::optional<double> without = parseNumber(WithoutTax, regional_);
  const std::optional<double> rate = parseNumber(Rate, regional_);
  const std::optional<double> with = parseNumber(WithTax, regional_);
  if (without && rate && with) {
    const double factor = *rate / 100 + 1;
    // The rate out of the two amounts; nothing to say of a zero amount.
    const auto computeRate = [&] {
      if (*without != 0) Rate = formatNumber((*with - *without) / *without * 100, QStringLiteral("0.####"), regional_);
    };
    // The amount without tax out of the other two; a rate of -100 has none.
    const auto computeWithout = [&] {
      if (factor != 0) WithoutTax = amount(*with / factor);
    };
    switch (field) {
      case Field::WithoutTax:
        if (fixed == Fixed::WithTax) computeRate();
        else WithTax = amount(*without * factor);
        break;
      case Field::Rate:
        if (fixed == Fixed::WithTax) computeWithout();
        else WithTax = amount(*without * factor);
        break;
      case Field::WithTax:
        if (fixed == Fixed::WithoutTax) computeRate();
        else computeWithout();
        break;
    }
  }
  const std::optional<double> withNow = parseNumber(WithTax, regional_);
  const std::optional<double> withoutNow = parseNumber(WithoutTax, regional_);
  Taxes = withNow && withoutNow ? amount(*withNow - *withoutNow) : QString();
}

}  // namespace ksv
