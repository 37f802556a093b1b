#pragma once
// `ComputeTax`, the small calculator of the service dialog: an amount without
// tax, a rate and the amount with tax; a change of one computes another, as
// chosen by what stays fixed. It writes nothing: the figure is copied by hand.

#include <QString>

#include "core/regional.h"

namespace ksv {

class ComputeTax {
 public:
  // What stays fixed: optWithoutTax, optRate, optWithTax.
  enum class Fixed { WithoutTax, Rate, WithTax };

  // `NbDecimal`: the decimals of the amounts, in the invoice's formats.
  ComputeTax(const Regional& regional, int NbDecimal) : regional_(regional), nbDecimal_(NbDecimal) {
    Taxes = amount(0);
  }

  // The fields' texts and the label `Taxes` (WithTax - WithoutTax). Zeros at
  // first, so that the first figure typed already computes.
  QString WithoutTax = QStringLiteral("0"), Rate = QStringLiteral("0"), WithTax = QStringLiteral("0"), Taxes;
  Fixed fixed = Fixed::WithoutTax;

  void WithoutTax_Change(const QString& text);
  void Rate_Change(const QString& text);
  void WithTax_Change(const QString& text);

 private:
  enum class Field { WithoutTax, Rate, WithTax };
  void changed(Field field);
  QString amount(double value) const;

  const Regional& regional_;
  int nbDecimal_;
};

}  // namespace ksv
