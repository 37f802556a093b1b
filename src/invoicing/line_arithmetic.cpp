#include "line_arithmetic.h"

#include "core/texts.h"

namespace ksv {

double servicePrice(float quantity, Currency unitPrice) {
  return static_cast<double>(quantity) * unitPrice.toDouble();
}

ModifierAmounts modifierAmounts(Currency fixed, double amount, double rate) {
  const double product = amount * rate;
  const double divisor = rate + 100.0;
  // A zero divisor is a run-time error, 0/0 an overflow, as the system's
  // floating point reports them.
  if (divisor == 0.0) throw LineArithmeticFault{product == 0.0 ? txt::InvOverflow : txt::InvDivisionByZero};
  ModifierAmounts m;
  m.included = fixed + Currency::fromDouble(product / divisor);
  m.notIncluded = fixed + Currency::fromDouble(product / 100.0);
  return m;
}

}  // namespace ksv
