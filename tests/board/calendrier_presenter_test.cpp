#include <gtest/gtest.h>

#include "board/calendrier_presenter.h"
#include "support/scripted_messages.h"

using namespace ksv;

namespace {

ScreenDescription screen1024() {
  ScreenDescription s;
  readScreen(ScreenFacts{1024, 768, 32, 60, 96}, s);
  return s;
}

}  // namespace

TEST(Calendrier, OpensOnTodayAndKeepsThePick) {
  const FixedClock clock(QDate(2025, 3, 14));
  const Texts texts(0);
  CalendrierPresenter p(clock, screen1024(), texts);
  EXPECT_EQ(p.calendar().Type(), 1);
  EXPECT_EQ(p.GetDate(), QDate(2025, 3, 14));
  EXPECT_EQ(p.calendar().shownMonth(), QDate(2025, 3, 1));

  p.calendar().SetDateFrom(QDate(2025, 1, 1));
  p.calendar().SetDateTo(QDate(2027, 6, 30));
  p.calendar().SetDate(QDate(2025, 5, 2));
  p.OK_Click();
  EXPECT_TRUE(p.Result);
  EXPECT_TRUE(p.hidden);
  EXPECT_EQ(p.GetDate(), QDate(2025, 5, 2));
}

TEST(Calendrier, CancelGivesNoResult) {
  const FixedClock clock(QDate(2025, 3, 14));
  const Texts texts(0);
  CalendrierPresenter p(clock, screen1024(), texts);
  p.Cancel_Click();
  EXPECT_FALSE(p.Result);
  EXPECT_TRUE(p.hidden);
}

TEST(Calendriers, FromMustBeBeforeTo) {
  const FixedClock clock(QDate(2025, 3, 14));
  const Texts texts(0);
  test::ScriptedMessages messages;
  CalendriersPresenter p(clock, screen1024(), texts, messages);
  EXPECT_EQ(p.calendarFrom().Type(), 1);
  EXPECT_EQ(p.calendarTo().Type(), 2);

  // Equal dates are refused, and so is a reversed pair; the dialog stays.
  p.OK_Click();
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().text, texts.get(txt::CalendarFromBeforeTo));
  EXPECT_FALSE(p.hidden);
  EXPECT_FALSE(p.Result);

  p.calendarFrom().SetDate(QDate(2025, 3, 20));
  p.calendarTo().SetDate(QDate(2025, 3, 19));
  p.OK_Click();
  EXPECT_EQ(messages.shown().size(), 2u);
  EXPECT_FALSE(p.hidden);

  p.calendarTo().SetDate(QDate(2025, 3, 21));
  p.OK_Click();
  EXPECT_EQ(messages.shown().size(), 2u);
  EXPECT_TRUE(p.Result);
  EXPECT_TRUE(p.hidden);
  EXPECT_EQ(p.dateFrom(), QDate(2025, 3, 20));
  EXPECT_EQ(p.dateTo(), QDate(2025, 3, 21));
}

TEST(Calendrier, MonthStripPickMovesTheBoard) {
  const QDate today(2025, 3, 14);
  const FixedClock clock(today);
  const Texts texts(0);
  const BoardDates dates = boardDates(QDate(2025, 1, 1), today);
  CalendrierPresenter p(clock, ScreenDescription{}, texts);
  p.showBoardRange(dates, 40);
  EXPECT_EQ(p.GetDate(), QDate(2025, 2, 10));
  EXPECT_EQ(p.calendar().DateFrom(), dates.FirstDate);
  EXPECT_EQ(p.calendar().DateTo(), dates.LastDate);

  p.calendar().SetDate(QDate(2025, 4, 1));
  EXPECT_EQ(p.pickedHPos(dates, 52), 90);
  // A date in the last columns scrolls only as far as the bar goes.
  p.calendar().SetDate(dates.LastDate);
  EXPECT_EQ(p.pickedHPos(dates, 52), dates.hScrollMax(52));
  EXPECT_EQ(dates.ViewLast(p.pickedHPos(dates, 52), 52), dates.LastDate);
}
