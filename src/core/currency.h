#pragma once
// Money as the system keeps it: a signed 64-bit count of ten-thousandths.
// Sums are exact; every conversion that must drop digits rounds half to even.

#include <compare>
#include <cstdint>
#include <stdexcept>

namespace ksv {

class CurrencyOverflow : public std::overflow_error {
 public:
  CurrencyOverflow() : std::overflow_error("Overflow") {}
};

class Currency {
 public:
  static constexpr std::int64_t kScale = 10000;

  constexpr Currency() = default;
  static constexpr Currency fromRaw(std::int64_t raw) { return Currency(raw); }
  static Currency fromWhole(std::int64_t whole);
  // Rounds to four decimals, half to even; throws CurrencyOverflow out of range.
  static Currency fromDouble(double value);
  // A single goes through double first, exactly as the system widens it.
  static Currency fromSingle(float value) { return fromDouble(static_cast<double>(value)); }

  constexpr std::int64_t raw() const { return raw_; }
  double toDouble() const { return static_cast<double>(raw_) / static_cast<double>(kScale); }
  float toSingle() const { return static_cast<float>(toDouble()); }
  constexpr bool isZero() const { return raw_ == 0; }

  // Half-to-even rounding to 0..4 decimals, exact on the fixed-point value.
  Currency rounded(int decimals) const;

  Currency operator-() const;
  Currency& operator+=(Currency other);
  Currency& operator-=(Currency other);
  friend Currency operator+(Currency a, Currency b) { return a += b; }
  friend Currency operator-(Currency a, Currency b) { return a -= b; }
  // Exact product, rounded half to even to four decimals.
  friend Currency operator*(Currency a, Currency b);
  friend Currency operator*(Currency a, std::int64_t n);
  // Quotient rounded half to even to four decimals; throws on division by zero.
  friend Currency operator/(Currency a, Currency b);

  friend constexpr auto operator<=>(Currency, Currency) = default;
  friend constexpr bool operator==(Currency, Currency) = default;

 private:
  constexpr explicit Currency(std::int64_t raw) : raw_(raw) {}
  std::int64_t raw_ = 0;
};

}  // namespace ksv
