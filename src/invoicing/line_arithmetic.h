#pragma once
// The arithmetic of one invoice line, free of fields and grid: a service's
// price and a modifier's two amounts.

#include "core/currency.h"

namespace ksv {

// A floating-point failure of the line arithmetic (the divisor of the included
// form is zero when the rate is -100); the handler ends and the amounts stay.
struct LineArithmeticFault {
  int text;  // the text-table entry of the run-time error
};

// Quantity x UnitPrice: the single quantity times the double of the currency price.
double servicePrice(float quantity, Currency unitPrice);

// A tax inside the prices is extracted from `amount` (rate over 100 plus rate);
// a charge on top is a plain percentage. Both add the fixed part.
struct ModifierAmounts {
  Currency included;     // Fixed + Amount x Rate / (Rate + 100)
  Currency notIncluded;  // Fixed + Amount x Rate / 100
};
// Throws LineArithmeticFault for a zero divisor and CurrencyOverflow out of range.
ModifierAmounts modifierAmounts(Currency fixed, double amount, double rate);

}  // namespace ksv
