#include <gtest/gtest.h>

#include "core/number_text.h"

using namespace ksv;

namespace {
const Regional en = Regional::englishUS();
const Regional fr = Regional::french();
const QString nbsp(QChar(0xA0));
}  // namespace

TEST(NumberFormat, AmountFormatsByDecimals) {
  EXPECT_EQ(amountFormat(0), "#,###,##0");
  EXPECT_EQ(amountFormat(2), "#,###,##0.00");
  EXPECT_EQ(amountFormat(3), "#,###,##0");  // any other count: whole numbers
  EXPECT_EQ(plainAmountFormat(1), "######0.0");
  EXPECT_EQ(plainAmountFormat(5), "");
}

TEST(NumberFormat, GroupsThousandsInTheLocale) {
  EXPECT_EQ(formatNumber(1234567.891, "#,###,##0.00", en), "1,234,567.89");
  EXPECT_EQ(formatNumber(1234567.891, "#,###,##0.00", fr), "1" + nbsp + "234" + nbsp + "567,89");
  EXPECT_EQ(formatNumber(1234567.891, "######0.00", en), "1234567.89");
  EXPECT_EQ(formatNumber(999.0, "#,###,##0", en), "999");
  EXPECT_EQ(formatNumber(1000.0, "#,###,##0", en), "1,000");
  EXPECT_EQ(formatNumber(1234567890123.0, "#,###,##0", en), "1,234,567,890,123");
}

TEST(NumberFormat, RoundsHalfAwayFromZeroOnTheDecimalValue) {
  EXPECT_EQ(formatNumber(2.5, "#,###,##0", en), "3");
  EXPECT_EQ(formatNumber(-2.5, "#,###,##0", en), "-3");
  EXPECT_EQ(formatNumber(2.675, "######0.00", en), "2.68");  // binary 2.67499999... reads as 2.675
  EXPECT_EQ(formatNumber(9.96, "######0.0", en), "10.0");
  EXPECT_EQ(formatNumber(999999.5, "#,###,##0", en), "1,000,000");
  EXPECT_EQ(formatNumber(0.004, "#,###,##0.00", en), "0.00");
  EXPECT_EQ(formatNumber(-0.004, "#,###,##0.00", en), "0.00");  // no "-0.00"
  EXPECT_EQ(formatNumber(0.5, "#,###,##0.0", en), "0.5");
}

TEST(NumberFormat, CurrencyIsFormattedFromItsExactValue) {
  EXPECT_EQ(formatNumber(Currency::fromRaw(-12345678), "#,###,##0.00", en), "-1,234.57");
  EXPECT_EQ(formatNumber(Currency::fromRaw(50), "#,###,##0.00", en), "0.01");
  EXPECT_EQ(formatNumber(Currency::fromRaw(49), "#,###,##0.00", en), "0.00");
  EXPECT_EQ(formatNumber(Currency::fromWhole(0), "#,###,##0", en), "0");
  EXPECT_EQ(formatNumber(Currency::fromRaw(7), "00000000", en), "00000000");
  EXPECT_EQ(formatNumber(Currency::fromWhole(42), "00000000", en), "00000042");
}

TEST(CurrencyText, ReadsFormattedAmountsBack) {
  EXPECT_EQ(parseCurrency("1,234,567.89", en), Currency::fromRaw(12345678900));
  EXPECT_EQ(parseCurrency("1" + nbsp + "234,50", fr), Currency::fromRaw(12345000));
  EXPECT_EQ(parseCurrency("1 234,50", fr), Currency::fromRaw(12345000));  // typed with a plain blank
  EXPECT_EQ(parseCurrency("- 12.5", en), Currency::fromRaw(-125000));      // the "- " form
  EXPECT_EQ(parseCurrency("-1,000", en), Currency::fromWhole(-1000));
  EXPECT_EQ(parseCurrency("12-", en), Currency::fromWhole(-12));
  EXPECT_EQ(parseCurrency("(3.25)", en), Currency::fromRaw(-32500));
  EXPECT_EQ(parseCurrency("  7  ", en), Currency::fromWhole(7));
  EXPECT_EQ(parseCurrency(".5", en), Currency::fromRaw(5000));
}

TEST(CurrencyText, RoundsHalfToEvenAndRefusesForeignText) {
  EXPECT_EQ(parseCurrency("0.00005", en), Currency::fromRaw(0));
  EXPECT_EQ(parseCurrency("0.00015", en), Currency::fromRaw(2));
  EXPECT_EQ(parseCurrency("0.000050001", en), Currency::fromRaw(1));
  EXPECT_EQ(parseCurrency("-0.00015", en), Currency::fromRaw(-2));
  EXPECT_FALSE(parseCurrency("", en));
  EXPECT_FALSE(parseCurrency("abc", en));
  EXPECT_FALSE(parseCurrency("12abc", en));
  EXPECT_FALSE(parseCurrency("1.5", fr));     // '.' is not the French decimal
  EXPECT_FALSE(parseCurrency("--1", en));
  EXPECT_FALSE(parseCurrency("-", en));
  EXPECT_THROW(parseCurrency("99999999999999999", en), CurrencyOverflow);
}

TEST(Val, ReadsTheLeadingNumber) {
  EXPECT_EQ(val("12abc"), 12);
  EXPECT_EQ(val("abc"), 0);
  EXPECT_EQ(val(""), 0);
  EXPECT_EQ(val(" 1 2 3"), 123);   // blanks are skipped anywhere
  EXPECT_EQ(val("-3.75xyz"), -3.75);
  EXPECT_EQ(val("1,5"), 1);        // the comma ends the number, whatever the locale
  EXPECT_EQ(val("2e3"), 2000);
  EXPECT_EQ(val("&H1F"), 31);
  EXPECT_EQ(val("&O17"), 15);
  EXPECT_EQ(val(".5"), 0.5);
}

TEST(IsNumeric, FollowsTheLocale) {
  EXPECT_TRUE(isNumeric("12", en));
  EXPECT_TRUE(isNumeric(" -1,234.5 ", en));
  EXPECT_TRUE(isNumeric("1,5", fr));
  EXPECT_TRUE(isNumeric("1e3", en));
  EXPECT_FALSE(isNumeric("", en));
  EXPECT_FALSE(isNumeric("12abc", en));
  EXPECT_FALSE(isNumeric("1.5.2", en));
  EXPECT_FALSE(isNumeric("e3", en));
}

TEST(Round, HalfToEven) {
  EXPECT_EQ(roundHalfEven(2.5, 0), 2);
  EXPECT_EQ(roundHalfEven(3.5, 0), 4);
  EXPECT_EQ(roundHalfEven(-2.5, 0), -2);
  EXPECT_DOUBLE_EQ(roundHalfEven(0.125, 2), 0.12);
  EXPECT_DOUBLE_EQ(roundHalfEven(0.375, 2), 0.38);
  EXPECT_DOUBLE_EQ(roundHalfEven(1.2345678, 3), 1.235);
}
