#include <gtest/gtest.h>

#include "core/day_date.h"

using namespace ksv;

TEST(DayDate, DifferencesCountCalendarBoundaries) {
  EXPECT_EQ(daysBetween(QDate(2024, 2, 28), QDate(2024, 3, 1)), 2);  // leap year
  EXPECT_EQ(daysBetween(QDate(2024, 3, 1), QDate(2024, 2, 28)), -2);
  EXPECT_EQ(monthsBetween(QDate(2024, 1, 31), QDate(2024, 2, 1)), 1);  // one day, one month boundary
  EXPECT_EQ(monthsBetween(QDate(2024, 1, 1), QDate(2024, 1, 31)), 0);
  EXPECT_EQ(monthsBetween(QDate(2023, 11, 15), QDate(2024, 2, 1)), 3);
  EXPECT_EQ(yearsBetween(QDate(2023, 12, 31), QDate(2024, 1, 1)), 1);
  EXPECT_EQ(yearsBetween(QDate(2024, 1, 1), QDate(2024, 12, 31)), 0);
}

TEST(DayDate, SixDigitFormsOfTheIniFile) {
  EXPECT_EQ(toYymmdd(QDate(2006, 10, 21)), "061021");
  EXPECT_EQ(fromYymmdd("061021"), QDate(2006, 10, 21));
  EXPECT_EQ(fromYymmdd("291231"), QDate(2029, 12, 31));  // window: 00-29 is 20xx
  EXPECT_EQ(fromYymmdd("300101"), QDate(1930, 1, 1));    // 30-99 is 19xx
  EXPECT_EQ(toDdmmyy(QDate(2026, 11, 22)), "221126");
  EXPECT_EQ(fromDdmmyy("221126"), QDate(2026, 11, 22));
  EXPECT_FALSE(fromYymmdd(""));
  EXPECT_FALSE(fromYymmdd("06102"));
  EXPECT_FALSE(fromYymmdd("06a021"));
  // Out-of-range parts roll over as the system's date builder does.
  EXPECT_EQ(fromYymmdd("061301"), QDate(2007, 1, 1));
  EXPECT_EQ(fromYymmdd("060231"), QDate(2006, 3, 3));
  EXPECT_EQ(fromYymmdd("061000"), QDate(2006, 9, 30));
}

TEST(DayDate, DateSerialRollsOverBothWays) {
  EXPECT_EQ(dateSerial(2024, 0, 1), QDate(2023, 12, 1));
  EXPECT_EQ(dateSerial(2024, -11, 1), QDate(2023, 1, 1));
  EXPECT_EQ(dateSerial(2024, -12, 1), QDate(2022, 12, 1));
  EXPECT_EQ(dateSerial(2024, 25, 1), QDate(2026, 1, 1));
  EXPECT_EQ(dateSerial(2024, 3, 0), QDate(2024, 2, 29));
}

TEST(DayDate, LocaleDateTexts) {
  const Regional en = Regional::englishUS();
  const Regional fr = Regional::french();
  EXPECT_EQ(shortDateText(QDate(2026, 3, 5), en), "3/5/2026");
  EXPECT_EQ(shortDateText(QDate(2026, 3, 5), fr), "05/03/2026");
  EXPECT_EQ(longDateText(QDate(2026, 3, 5), en), "Thursday, March 5, 2026");
  EXPECT_EQ(longDateText(QDate(2026, 3, 5), fr), "jeudi 5 mars 2026");
}

TEST(DayDate, ParsesInTheOrderOfTheShortFormat) {
  const Regional en = Regional::englishUS();
  const Regional fr = Regional::french();
  EXPECT_EQ(parseDate("3/5/2026", en), QDate(2026, 3, 5));
  EXPECT_EQ(parseDate("3/5/2026", fr), QDate(2026, 5, 3));
  EXPECT_EQ(parseDate("05.03.26", fr), QDate(2026, 3, 5));
  EXPECT_EQ(parseDate("2026-03-05", fr), QDate(2026, 3, 5));
  EXPECT_EQ(parseDate("2026/3/5", en), QDate(2026, 3, 5));  // a four-digit first number is the year
  EXPECT_TRUE(isDate("2/29/2024", en));
  EXPECT_FALSE(isDate("2/29/2023", en));
  EXPECT_FALSE(isDate("13/1/2024", en));
  EXPECT_FALSE(isDate("", en));
  EXPECT_FALSE(isDate("tomorrow", en));
}
