#include <gtest/gtest.h>

#include <limits>

#include "core/currency.h"

using ksv::Currency;

TEST(Currency, SumsAreExactWhereDoublesDrift) {
  Currency sum;
  double dsum = 0;
  for (int i = 0; i < 1000; ++i) {
    sum += Currency::fromDouble(0.1);
    dsum += 0.1;
  }
  EXPECT_EQ(sum, Currency::fromWhole(100));
  EXPECT_NE(dsum, 100.0);  // the reason for the type
}

TEST(Currency, FromDoubleRoundsHalfToEvenAtFourDecimals) {
  EXPECT_EQ(Currency::fromDouble(1.00005).raw(), 10001);   // binary 1.00005 lies just above half
  EXPECT_EQ(Currency::fromDouble(0.00025).raw(), 2);       // exact half -> even
  EXPECT_EQ(Currency::fromDouble(0.00035).raw(), 4);       // exact half -> even (up)
  EXPECT_EQ(Currency::fromDouble(-0.00025).raw(), -2);
  EXPECT_EQ(Currency::fromDouble(2.5).raw(), 25000);
  EXPECT_EQ(Currency::fromDouble(-12.34567).raw(), -123457);
}

TEST(Currency, SingleWidensThroughDoubleAndNarrowsBack) {
  // 0.1f is 0.100000001490116...; the widening keeps that, then rounds to 0.1000.
  EXPECT_EQ(Currency::fromSingle(0.1f).raw(), 1000);
  // 16777217 is not a single: the float already lost the last unit.
  EXPECT_EQ(Currency::fromSingle(16777217.0f), Currency::fromWhole(16777216));
  EXPECT_FLOAT_EQ(Currency::fromRaw(123456).toSingle(), 12.3456f);
  EXPECT_DOUBLE_EQ(Currency::fromRaw(-5).toDouble(), -0.0005);
}

TEST(Currency, RoundedIsHalfToEvenOnTheExactValue) {
  EXPECT_EQ(Currency::fromRaw(12500).rounded(0), Currency::fromWhole(1));   // 1.25 -> 1
  EXPECT_EQ(Currency::fromRaw(25000).rounded(0), Currency::fromWhole(2));   // 2.5 -> 2
  EXPECT_EQ(Currency::fromRaw(35000).rounded(0), Currency::fromWhole(4));   // 3.5 -> 4
  EXPECT_EQ(Currency::fromRaw(-25000).rounded(0), Currency::fromWhole(-2));
  EXPECT_EQ(Currency::fromRaw(12350).rounded(2), Currency::fromRaw(12400));  // 1.235 -> 1.24
  EXPECT_EQ(Currency::fromRaw(12250).rounded(2), Currency::fromRaw(12200));  // 1.225 -> 1.22
  EXPECT_EQ(Currency::fromRaw(12251).rounded(2), Currency::fromRaw(12300));  // past half goes up
  EXPECT_EQ(Currency::fromRaw(-12251).rounded(1), Currency::fromRaw(-12000));
  EXPECT_EQ(Currency::fromRaw(12345).rounded(4), Currency::fromRaw(12345));
}

TEST(Currency, ProductAndQuotientRoundHalfToEven) {
  // 0.0005 * 0.5 = 0.00025 -> 0.0002
  EXPECT_EQ(Currency::fromRaw(5) * Currency::fromRaw(5000), Currency::fromRaw(2));
  EXPECT_EQ(Currency::fromDouble(19.99) * Currency::fromWhole(3), Currency::fromDouble(59.97));
  EXPECT_EQ(Currency::fromWhole(10) / Currency::fromWhole(3), Currency::fromRaw(33333));
  EXPECT_EQ(Currency::fromWhole(-2) / Currency::fromWhole(3), Currency::fromRaw(-6667));
  EXPECT_EQ(Currency::fromRaw(1) / Currency::fromWhole(2), Currency::fromRaw(0));  // 0.00005 -> 0
  EXPECT_EQ(Currency::fromRaw(3) / Currency::fromWhole(2), Currency::fromRaw(2));  // 0.00015 -> 0.0002
  EXPECT_THROW(Currency::fromWhole(1) / Currency(), std::domain_error);
}

TEST(Currency, OverflowIsAnErrorNotAWrap) {
  const Currency max = Currency::fromRaw(std::numeric_limits<std::int64_t>::max());
  EXPECT_THROW(max + Currency::fromRaw(1), ksv::CurrencyOverflow);
  EXPECT_THROW(Currency::fromDouble(1e15), ksv::CurrencyOverflow);
  EXPECT_THROW(Currency::fromDouble(std::numeric_limits<double>::quiet_NaN()), ksv::CurrencyOverflow);
  EXPECT_THROW(max * Currency::fromWhole(2), ksv::CurrencyOverflow);
  EXPECT_NO_THROW(Currency::fromDouble(922337203685477.0));
}
