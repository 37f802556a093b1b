#include "currency.h"

#include <cfenv>
#include <cmath>
#include <limits>

namespace ksv {
namespace {

using Int128 = __int128;

std::int64_t checked(Int128 v) {
  if (v > std::numeric_limits<std::int64_t>::max() || v < std::numeric_limits<std::int64_t>::min())
    throw CurrencyOverflow();
  return static_cast<std::int64_t>(v);
}

// n / d rounded half to even, for d > 0.
Int128 divideHalfEven(Int128 n, Int128 d) {
  Int128 q = n / d;
  Int128 r = n % d;
  if (r == 0) return q;
  if (r < 0) {  // bring the remainder to [0, d)
    r += d;
    q -= 1;
  }
  const Int128 twice = r * 2;
  if (twice > d || (twice == d && (q % 2 != 0))) q += 1;
  return q;
}

}  // namespace

Currency Currency::fromWhole(std::int64_t whole) {
  return Currency(checked(static_cast<Int128>(whole) * kScale));
}

Currency Currency::fromDouble(double value) {
  if (!std::isfinite(value)) throw CurrencyOverflow();
  const double scaled = value * static_cast<double>(kScale);
  // 2^63 is exactly representable; anything at or past it cannot fit.
  if (scaled >= 9223372036854775808.0 || scaled < -9223372036854775808.0) throw CurrencyOverflow();
  const int saved = std::fegetround();
  std::fesetround(FE_TONEAREST);
  const double r = std::nearbyint(scaled);
  std::fesetround(saved);
  return Currency(static_cast<std::int64_t>(r));
}

Currency Currency::rounded(int decimals) const {
  if (decimals >= 4) return *this;
  if (decimals < 0) decimals = 0;
  Int128 unit = 1;
  for (int i = decimals; i < 4; ++i) unit *= 10;
  return Currency(checked(divideHalfEven(raw_, unit) * unit));
}

Currency Currency::operator-() const { return Currency(checked(-static_cast<Int128>(raw_))); }

Currency& Currency::operator+=(Currency other) {
  raw_ = checked(static_cast<Int128>(raw_) + other.raw_);
  return *this;
}

Currency& Currency::operator-=(Currency other) {
  raw_ = checked(static_cast<Int128>(raw_) - other.raw_);
  return *this;
}

Currency operator*(Currency a, Currency b) {
  return Currency(checked(divideHalfEven(static_cast<Int128>(a.raw_) * b.raw_, Currency::kScale)));
}

Currency operator*(Currency a, std::int64_t n) { return Currency(checked(static_cast<Int128>(a.raw_) * n)); }

Currency operator/(Currency a, Currency b) {
  if (b.raw_ == 0) throw std::domain_error("Division by zero");
  Int128 n = static_cast<Int128>(a.raw_) * Currency::kScale;
  Int128 d = b.raw_;
  if (d < 0) {
    n = -n;
    d = -d;
  }
  return Currency(checked(divideHalfEven(n, d)));
}

}  // namespace ksv
