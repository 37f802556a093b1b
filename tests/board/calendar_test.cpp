#include <gtest/gtest.h>

#include "board/cls_calendar.h"
#include "board/cls_day_info_col.h"

using namespace ksv;

namespace {

ScreenDescription screenOf(int width, int dpi) {
  ScreenDescription s;
  readScreen(ScreenFacts{width, 768, 32, 60, dpi}, s);
  return s;
}

struct FakeSurface final : CalendarSurface {
  int width = 0, height = 0, redraws = 0;
  void setSurfaceSize(int w, int h) override { width = w, height = h; }
  void redrawSurface() override { ++redraws; }
};

// The middle of a cell, where a user presses.
struct Point {
  int x, y;
};
Point middle(const TwipRect& r) { return {r.left + r.width / 2, r.top + r.height / 2}; }

class CalendarTest : public ::testing::Test {
 protected:
  Texts texts{0};
  clsCalendar cal{screenOf(1024, 96), texts};
  int clicks = 0;
  void SetUp() override {
    QObject::connect(&cal, &clsCalendar::Click, [this] { ++clicks; });
  }
  clsCalendar::Press pressDay(QDate d) {
    const int n = cal.positionOf(d);
    const Point p = middle(cal.dayCell(n / 7, n % 7));
    return cal.MouseDown(p.x, p.y);
  }
  clsCalendar::Press pressBar(int column) {
    const Point p = middle(cal.barCell(column));
    return cal.MouseDown(p.x, p.y);
  }
};

const CalendarShape* textShape(const std::vector<CalendarShape>& shapes, const TwipRect& r) {
  for (const CalendarShape& s : shapes)
    if (s.kind == CalendarShape::Kind::Text && s.rect == r) return &s;
  return nullptr;
}

// The inset fill of a cell: the second fill on the cell's rectangle.
const CalendarShape* insetShape(const std::vector<CalendarShape>& shapes, const TwipRect& r) {
  for (const CalendarShape& s : shapes)
    if (s.kind == CalendarShape::Kind::Fill && s.rect.left == r.left + clsCalendar::kInset &&
        s.rect.top == r.top + clsCalendar::kInset)
      return &s;
  return nullptr;
}

}  // namespace

TEST(CalendarSizes, PixelCountsTimesTwipsPerPixel) {
  const Texts texts(0);
  struct Case {
    int width, dpi, cw, ch, gap, tpp;
  };
  const Case cases[] = {
      {800, 120, 25, 19, 7, 12},
      {800, 96, 21, 16, 5, 15},
      {801, 96, 22, 16, 5, 15},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.width * 1000 + c.dpi);
    clsCalendar cal(screenOf(c.width, c.dpi), texts);
    EXPECT_EQ(cal.cellWidth(), c.cw * c.tpp);
    EXPECT_EQ(cal.cellHeight(), c.ch * c.tpp);
    EXPECT_EQ(cal.gap(), c.gap * c.tpp);
    FakeSurface surface;
    cal.setPictureBox(&surface);
    EXPECT_EQ(surface.width, cal.surfaceWidth());
    EXPECT_EQ(surface.height, cal.surfaceHeight());
  }
}

TEST_F(CalendarTest, ASixWeekMonthFitsTheSurface) {
  // August 2025 starts on a Friday and runs into a sixth week row.
  cal.SetDate(QDate(2025, 8, 1));
  EXPECT_EQ(cal.positionOf(QDate(2025, 8, 1)), 5);
  EXPECT_EQ(cal.positionOf(QDate(2025, 8, 31)), 35);
  const TwipRect last = cal.dayCell(5, 0);
  EXPECT_LE(last.bottom(), cal.surfaceHeight());
  EXPECT_LE(cal.dayCell(5, 6).right(), cal.surfaceWidth());
  EXPECT_EQ(pressDay(QDate(2025, 8, 31)), clsCalendar::Press::DatePicked);
  // Every shape lies on the surface.
  for (const CalendarShape& s : cal.Draw()) {
    EXPECT_GE(s.rect.left, 0);
    EXPECT_GE(s.rect.top, 0);
    EXPECT_LE(s.rect.right(), cal.surfaceWidth());
    EXPECT_LE(s.rect.bottom(), cal.surfaceHeight());
  }
}

TEST_F(CalendarTest, EveryDayOfAMonthIsFoundWhereItIsDrawn) {
  cal.SetDate(QDate(2024, 2, 10));  // leap February, starts on a Thursday
  EXPECT_EQ(cal.positionOf(QDate(2024, 2, 1)), 4);
  const auto shapes = cal.Draw();
  for (int day = 1; day <= 29; ++day) {
    const QDate d(2024, 2, day);
    const int n = cal.positionOf(d);
    const CalendarShape* number = textShape(shapes, cal.dayCell(n / 7, n % 7));
    ASSERT_NE(number, nullptr);
    EXPECT_EQ(number->text, QString::number(day));
    EXPECT_EQ(pressDay(d), clsCalendar::Press::DatePicked);
    EXPECT_EQ(cal.GetDate(), d);
  }
  EXPECT_EQ(clicks, 29);
}

TEST_F(CalendarTest, EmptyCellsMarginsAndLabelsDoNothing) {
  cal.SetDate(QDate(2025, 8, 15));
  const QDate before = cal.GetDate();
  // Cells before the first and after the last day.
  for (const Point empty : {middle(cal.dayCell(0, 0)), middle(cal.dayCell(5, 6))})
    EXPECT_EQ(cal.MouseDown(empty.x, empty.y), clsCalendar::Press::Nothing);
  // The left margin, the weekday row, the title, below and right of the grid.
  EXPECT_EQ(cal.MouseDown(cal.margin() / 2, middle(cal.dayCell(2, 0)).y), clsCalendar::Press::Nothing);
  const Point weekday = middle(cal.weekdayCell(3));
  EXPECT_EQ(cal.MouseDown(weekday.x, weekday.y), clsCalendar::Press::Nothing);
  EXPECT_EQ(pressBar(3), clsCalendar::Press::Nothing);
  EXPECT_EQ(cal.MouseDown(cal.surfaceWidth() + 5, middle(cal.dayCell(2, 3)).y), clsCalendar::Press::Nothing);
  EXPECT_EQ(cal.GetDate(), before);
  EXPECT_EQ(cal.shownMonth(), QDate(2025, 8, 1));
  EXPECT_EQ(clicks, 0);
}

TEST_F(CalendarTest, ButtonsMoveByMonthAndYear) {
  cal.SetDate(QDate(2025, 3, 14));
  EXPECT_EQ(pressBar(1), clsCalendar::Press::MonthShown);
  EXPECT_EQ(cal.shownMonth(), QDate(2025, 2, 1));
  EXPECT_EQ(pressBar(0), clsCalendar::Press::MonthShown);
  EXPECT_EQ(cal.shownMonth(), QDate(2024, 2, 1));
  EXPECT_EQ(pressBar(6), clsCalendar::Press::MonthShown);
  EXPECT_EQ(pressBar(5), clsCalendar::Press::MonthShown);
  EXPECT_EQ(cal.shownMonth(), QDate(2025, 3, 1));
  // Browsing does not change the date; a pick builds it from the shown month.
  pressBar(5);
  EXPECT_EQ(cal.GetDate(), QDate(2025, 3, 14));
  EXPECT_EQ(pressDay(QDate(2025, 4, 30)), clsCalendar::Press::DatePicked);
  EXPECT_EQ(cal.GetDate(), QDate(2025, 4, 30));
  EXPECT_EQ(clicks, 1);
}

TEST_F(CalendarTest, MovesStopAtTheBoundsOfTheRange) {
  cal.SetDateFrom(QDate(2024, 6, 10));
  cal.SetDateTo(QDate(2026, 2, 1));
  cal.SetDate(QDate(2025, 3, 14));
  pressBar(0);
  pressBar(0);
  EXPECT_EQ(cal.shownMonth(), QDate(2024, 6, 1));
  EXPECT_EQ(pressBar(1), clsCalendar::Press::Nothing);
  EXPECT_EQ(cal.shownMonth(), QDate(2024, 6, 1));
  // Days of the bound month before DateFrom are refused; the date stays.
  EXPECT_EQ(pressDay(QDate(2024, 6, 9)), clsCalendar::Press::Refused);
  EXPECT_EQ(cal.GetDate(), QDate(2025, 3, 14));
  EXPECT_EQ(pressDay(QDate(2024, 6, 10)), clsCalendar::Press::DatePicked);
  EXPECT_EQ(cal.GetDate(), QDate(2024, 6, 10));

  pressBar(6);
  pressBar(6);
  EXPECT_EQ(cal.shownMonth(), QDate(2026, 2, 1));
  EXPECT_EQ(pressBar(5), clsCalendar::Press::Nothing);
  EXPECT_EQ(pressDay(QDate(2026, 2, 2)), clsCalendar::Press::Refused);
  EXPECT_EQ(pressDay(QDate(2026, 2, 1)), clsCalendar::Press::DatePicked);
  EXPECT_EQ(clicks, 2);
}

TEST_F(CalendarTest, ARangeOfOneMonthNeverLeavesIt) {
  cal.SetDateFrom(QDate(2025, 3, 5));
  cal.SetDateTo(QDate(2025, 3, 25));
  cal.SetDate(QDate(2025, 3, 10));
  for (int column : {0, 1, 5, 6}) {
    EXPECT_EQ(pressBar(column), clsCalendar::Press::Nothing);
    EXPECT_EQ(cal.shownMonth(), QDate(2025, 3, 1));
  }
  EXPECT_EQ(pressDay(QDate(2025, 3, 4)), clsCalendar::Press::Refused);
  EXPECT_EQ(pressDay(QDate(2025, 3, 26)), clsCalendar::Press::Refused);
  EXPECT_EQ(cal.GetDate(), QDate(2025, 3, 10));
  EXPECT_EQ(clicks, 0);
}

TEST_F(CalendarTest, NarrowingTheRangeBringsTheShownMonthIntoIt) {
  cal.SetDate(QDate(2025, 3, 14));
  cal.SetDateFrom(QDate(2025, 5, 20));
  EXPECT_EQ(cal.shownMonth(), QDate(2025, 5, 1));
  cal.SetDateTo(QDate(2025, 4, 30));  // an inverted range shows its last month
  EXPECT_EQ(cal.shownMonth(), QDate(2025, 5, 1));
  cal.SetDateFrom(QDate(2025, 1, 1));
  cal.SetDateTo(QDate(2025, 4, 30));
  EXPECT_EQ(cal.shownMonth(), QDate(2025, 4, 1));
}


TEST_F(CalendarTest, ThemesAndMarks) {
  cal.SetDate(QDate(2025, 3, 14));
  EXPECT_EQ(cal.Type(), 1);
  cal.SetType(2);
  cal.SetType(7);  // unknown: kept
  EXPECT_EQ(cal.Type(), 2);
  cal.SetType(3);

  // A marked day takes its own colours; the current date and a selected day
  // take the mark pair.
  clsDayInfo info;
  info.DateTime = QDate(2025, 3, 20);
  info.Bold = true;
  info.BackColor = 65535;
  info.ForeColor = 128;
  info.RectColor = 32768;
  cal.dayInfos().Add(info);
  clsDayInfo selected;
  selected.DateTime = QDate(2025, 3, 21);
  selected.Selected = true;
  cal.dayInfos().Add(selected);

  const auto shapes = cal.Draw();
  auto cellOf = [&](int day) {
    const int n = cal.positionOf(QDate(2025, 3, day));
    return cal.dayCell(n / 7, n % 7);
  };
  EXPECT_EQ(insetShape(shapes, cellOf(20))->color, 65535);
  EXPECT_EQ(textShape(shapes, cellOf(20))->color, 128);
  EXPECT_TRUE(textShape(shapes, cellOf(20))->bold);
  EXPECT_EQ(insetShape(shapes, cellOf(14))->color, 255);
  EXPECT_EQ(textShape(shapes, cellOf(14))->color, clsCalendar::kWhite);
  EXPECT_EQ(insetShape(shapes, cellOf(21))->color, 255);
  EXPECT_EQ(insetShape(shapes, cellOf(15))->color, cal.theme().surface);  // plain day
  EXPECT_FALSE(textShape(shapes, cellOf(15))->bold);
  // The title sits on its face in white.
  EXPECT_EQ(insetShape(shapes, cal.titleRect())->color, cal.theme().titleFace);
  EXPECT_EQ(textShape(shapes, cal.titleRect())->color, clsCalendar::kWhite);
}

TEST(CalendarTexts, TitleAndDayLettersInTheLanguage) {
  const Texts en(0);
  ScreenDescription screen = screenOf(1024, 96);
  clsCalendar english(screen, en);
  english.SetDate(QDate(2025, 3, 14));
  EXPECT_EQ(english.titleText(), "March 2025");
  const auto shapes = english.Draw();
  QString letters;
  for (int c = 0; c < 7; ++c) letters += textShape(shapes, english.weekdayCell(c))->text;
  EXPECT_EQ(letters, "SMTWTFS");
}

TEST(DayInfoCollection, KeysAddReplaceRemove) {
  EXPECT_EQ(clsCalendar::FormatKey(QDate(2024, 12, 31)), "31 Dec 2024");

  clsDayInfoCol col;
  clsDayInfo a;
  a.DateTime = QDate(2025, 3, 5);
  a.Selected = true;
  col.Add(a, "05 Mar 2025");
  EXPECT_EQ(col.Count(), 1);

  clsDayInfo b;
  b.DateTime = QDate(2030, 1, 1);
  b.Bold = true;
  b.BackColor = 10;
  b.ForeColor = 20;
  b.RectColor = 30;
  col.Add(b, "05 Mar 2025");
  ASSERT_EQ(col.Count(), 1);
  const clsDayInfo* kept = col.Item("05 Mar 2025");
  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(kept->BackColor, 10);
  EXPECT_EQ(kept->RectColor, 30);
  EXPECT_TRUE(kept->Bold);
  EXPECT_EQ(kept->DateTime, QDate(2025, 3, 5));  // the day itself stays
  EXPECT_TRUE(kept->Selected);

  col.Add(b);  // keyed by its own date
  EXPECT_EQ(col.Count(), 2);
  EXPECT_NE(col.Item(QDate(2030, 1, 1)), nullptr);
  EXPECT_EQ(col.Item("06 Mar 2025"), nullptr);
  EXPECT_FALSE(col.Remove("06 Mar 2025"));
  EXPECT_TRUE(col.Remove("05 Mar 2025"));
  EXPECT_EQ(col.Count(), 1);
}
