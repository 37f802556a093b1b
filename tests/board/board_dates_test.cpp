#include <gtest/gtest.h>

#include "board/board_dates.h"
#include "board/board_origin.h"
#include "config/ini_file.h"
#include "support/test_planning.h"

using namespace ksv;

TEST(BoardOrigin, KeptValueOrToday) {
  const QDate today(2025, 3, 14);
  EXPECT_EQ(boardOrigin("250102", today), QDate(2025, 1, 2));
  EXPECT_EQ(boardOrigin("991231", today), QDate(1999, 12, 31));
  EXPECT_EQ(boardOrigin("", today), today);
  EXPECT_EQ(boardOrigin("2501", today), today);
  EXPECT_EQ(boardOrigin("abcdef", today), today);
}

TEST(BoardOrigin, SearchFirstDateMovesBackOnly) {
  const QDate origin(2025, 1, 10);
  EXPECT_EQ(SearchFirstDate(origin, QDate(2024, 12, 31)), QDate(2024, 12, 31));
  EXPECT_FALSE(SearchFirstDate(origin, origin).has_value());
  EXPECT_FALSE(SearchFirstDate(origin, QDate(2025, 1, 11)).has_value());
  EXPECT_FALSE(SearchFirstDate(origin, std::nullopt).has_value());  // empty planning
  EXPECT_FALSE(SearchFirstDate(origin, QDate()).has_value());
}

TEST(BoardLastDate, ThirtyMonthsOnThenTheEndOfTheMonthBefore) {
  EXPECT_EQ(boardLastDate(QDate(2025, 1, 15)), QDate(2027, 6, 30));
  EXPECT_EQ(boardLastDate(QDate(2024, 8, 31)), QDate(2027, 1, 31));
  EXPECT_EQ(boardLastDate(QDate(2025, 11, 30)), QDate(2028, 4, 30));
  EXPECT_EQ(boardLastDate(QDate(2025, 9, 1)), QDate(2028, 2, 29));  // leap year
  EXPECT_EQ(boardLastDate(QDate(2026, 9, 1)), QDate(2029, 2, 28));
}

TEST(BoardDateRange, DaysOffsetsAndScrollRange) {
  const QDate today(2025, 1, 15);
  const BoardDates d = boardDates(QDate(2024, 12, 1), today);
  EXPECT_EQ(d.FirstDate, QDate(2024, 12, 1));
  EXPECT_EQ(d.LastDate, QDate(2027, 6, 30));
  EXPECT_EQ(d.TotalDays, QDate(2024, 12, 1).daysTo(QDate(2027, 6, 30)));
  EXPECT_EQ(d.TodayOffset, 45);
  EXPECT_EQ(d.hScrollMax(52), d.TotalDays - 51);
  // The last position shows LastDate in the last column.
  EXPECT_EQ(d.ViewLast(d.hScrollMax(52), 52), d.LastDate);
  EXPECT_EQ(d.ViewFirst(d.TodayOffset), today);
  EXPECT_EQ(d.ViewFirst(0), d.FirstDate);
  EXPECT_EQ(d.hPosOf(QDate(2025, 2, 1)), 62);
  // A board wider than the whole range cannot scroll.
  EXPECT_EQ(d.hScrollMax(5000), 0);
}

TEST(BoardDateRange, FreshIniStartsToday) {
  const QDate today(2025, 6, 1);
  const BoardDates d = boardDates(boardOrigin("", today), today);
  EXPECT_EQ(d.TodayOffset, 0);
  EXPECT_EQ(d.FirstDate, today);
}

TEST(BoardDateRange, VerticalRangeIsWhatLiesBeyondTheRows) {
  EXPECT_EQ(vScrollMax(50, 40), 10);
  EXPECT_EQ(vScrollMax(40, 40), 0);
  EXPECT_EQ(vScrollMax(3, 40), 0);
  EXPECT_EQ(vScrollMax(0, 40), 0);
}

TEST(BoardOrigin, AnOpenedPlanningBringsItsPastOnTheBoard) {
  test::TestPlanning planning(QDate(2025, 3, 10));
  IniFile ini(planning.paths().iniFile());
  const QDate origin(2025, 3, 10), today(2025, 3, 10);
  // No booking: the origin stays and nothing is written.
  BoardDates d = datesForOpenedPlanning(planning.db(), ini, origin, today);
  EXPECT_EQ(d.FirstDate, origin);
  EXPECT_EQ(ini.GetValue("Remember", "BoardOrigin"), "");

  planning.addResource("101", 0, 1);
  planning.addBooking("101", QDate(2025, 4, 1), QDate(2025, 4, 3), "Later");
  planning.addBooking("101", QDate(2025, 1, 5), QDate(2025, 1, 9), "Past stay");
  d = datesForOpenedPlanning(planning.db(), ini, origin, today);
  EXPECT_EQ(d.FirstDate, QDate(2025, 1, 5));
  EXPECT_EQ(d.TodayOffset, 64);
  EXPECT_EQ(d.TotalDays, boardDates(QDate(2025, 1, 5), today).TotalDays);
  EXPECT_EQ(ini.GetValue("Remember", "BoardOrigin"), "250105");

  // An origin already further back stays there.
  d = datesForOpenedPlanning(planning.db(), ini, QDate(2024, 12, 1), today);
  EXPECT_EQ(d.FirstDate, QDate(2024, 12, 1));
  EXPECT_EQ(ini.GetValue("Remember", "BoardOrigin"), "250105");
}
