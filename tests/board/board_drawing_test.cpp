#include <gtest/gtest.h>

#include <QFile>

#include "core/texts.h"
#include "support/test_board.h"

using namespace ksv;

namespace {

class BoardDrawingTest : public test::TestBoard {
 protected:
  BoardDrawingTest() { board_.HPos = 5; }  // the view runs from 6 to 15 March 2025

  void open() { board_.setSession(&planning_.objects()); }
  void threeRooms() {
    planning_.addResource("Room 1", 0, 1);
    planning_.addResource("Room 2", 1, 3);
    planning_.addResource("Room 3", 2, 5);
  }
  const BoardLabel& label(const QString& text) {
    for (int i = 0; i < board_.LabCount; ++i)
      if (board_.Lab[i].toolTip == text) return board_.Lab[i];
    throw std::runtime_error("no label");
  }
  int gridLeft() const { return frame_.GridLeft(); }
  int gridTop() const { return frame_.GridTop(); }
};

TEST_F(BoardDrawingTest, ALabelRunsFromTheMiddleOfItsArrivalCellToTheMiddleOfItsDepartureCell) {
  threeRooms();
  planning_.addBooking("Room 2", QDate(2025, 3, 7), QDate(2025, 3, 10), "Martin", {{"Couleur", 2}});
  open();
  board_.Dessiner_Ecran();

  ASSERT_EQ(board_.LabCount, 1);
  const BoardLabel& l = board_.Lab[0];
  EXPECT_EQ(l.rect, (TwipRect{gridLeft() + 200 + 100, gridTop() + 300 + 100, 600, 200}));
  EXPECT_EQ(l.back, options_.BookingBack[2]);
  EXPECT_EQ(l.fore, kWhite);  // "NOOONO": place 2 is white
  EXPECT_EQ(l.text, "Martin");
  EXPECT_EQ(l.toolTip, "Martin");
  EXPECT_EQ(l.Tag, "3/7/2025*3/10/2025*");
  EXPECT_TRUE(messages_.shown().empty());
  // The view recordset stays on the rows behind the labels.
  EXPECT_EQ(board_.view.recordCount(), 1);
}

TEST_F(BoardDrawingTest, SplitPartsAndGroupMembersAreMarkedAndStatesPickTheirColours) {
  threeRooms();
  planning_.addBooking("Room 1", QDate(2025, 3, 6), QDate(2025, 3, 8), "Split", {{"Split", "1"}});
  planning_.addBooking("Room 2", QDate(2025, 3, 6), QDate(2025, 3, 8), "Grouped", {{"Couleur", 4}, {"Split", "2"}, {"GroupNb", 7}});
  planning_.addBooking("Room 3", QDate(2025, 3, 6), QDate(2025, 3, 8), "Header", {{"Couleur", 1}, {"Split", "3"}});
  open();
  board_.Dessiner_Ecran();
  ASSERT_EQ(board_.LabCount, 3);
  EXPECT_EQ(label("Split#").fore, kBlack);
  EXPECT_EQ(label(QString::fromUtf8("Grouped#¤")).back, options_.BookingBack[4]);
  EXPECT_EQ(label(QString::fromUtf8("Grouped#¤")).fore, kBlack);  // place 4 is "N"
  EXPECT_EQ(label("Header").fore, kWhite);
}

TEST_F(BoardDrawingTest, ClippedLabelsRunOutPastTheEdgesAndKeepTheirRealDates) {
  threeRooms();
  planning_.addBooking("Room 1", QDate(2025, 2, 20), QDate(2025, 4, 2), "Long");
  planning_.addBooking("Room 2", QDate(2025, 3, 1), QDate(2025, 3, 8), "Left");
  planning_.addBooking("Room 3", QDate(2025, 3, 13), QDate(2025, 3, 30), "Right");
  planning_.addBooking("Room 3", QDate(2025, 3, 16), QDate(2025, 3, 20), "Beyond");
  open();
  board_.Dessiner_Ecran();
  ASSERT_EQ(board_.LabCount, 3);  // "Beyond" starts after the view

  const BoardLabel& whole = label("Long");
  EXPECT_EQ(whole.rect.left, gridLeft() - 100);
  EXPECT_EQ(whole.rect.width, 9 * 200 + 200 + 200);
  EXPECT_EQ(whole.Tag, "2/20/2025*4/2/2025*");

  const BoardLabel& left = label("Left");
  EXPECT_EQ(left.rect.left, gridLeft() - 100);
  EXPECT_EQ(left.rect.right(), gridLeft() + 2 * 200 + 100);  // middle of 8 March

  const BoardLabel& right = label("Right");
  EXPECT_EQ(right.rect.left, gridLeft() + 7 * 200 + 100);
  EXPECT_EQ(right.rect.right(), gridLeft() + 10 * 200 + 100);
}

TEST_F(BoardDrawingTest, OverlapStrikesTheShorterBookingAndTouchingBookingsKeepTheirNames) {
  threeRooms();
  planning_.addBooking("Room 1", QDate(2025, 3, 6), QDate(2025, 3, 9), "First");
  planning_.addBooking("Room 1", QDate(2025, 3, 9), QDate(2025, 3, 12), "Touching");
  planning_.addBooking("Room 2", QDate(2025, 3, 6), QDate(2025, 3, 12), "Long");
  planning_.addBooking("Room 2", QDate(2025, 3, 8), QDate(2025, 3, 10), "Short");
  planning_.addBooking("Room 3", QDate(2025, 3, 7), QDate(2025, 3, 10), "Earlier");
  planning_.addBooking("Room 3", QDate(2025, 3, 8), QDate(2025, 3, 11), "Later");
  open();
  board_.Dessiner_Ecran();
  ASSERT_EQ(board_.LabCount, 6);
  const QString slashes(50, '/');

  EXPECT_EQ(label("First").text, "First");
  EXPECT_EQ(label("Touching").text, "Touching");
  EXPECT_EQ(label("Long").text, "Long");
  EXPECT_EQ(label("Short").text, slashes);
  EXPECT_GT(label("Short").z, label("Long").z);
  // Equal lengths: the earlier label is struck and brought forward.
  EXPECT_EQ(label("Earlier").text, slashes);
  EXPECT_EQ(label("Later").text, "Later");
  EXPECT_GT(label("Earlier").z, label("Later").z);

  // Painted in that order: the struck label over the one it hides.
  const std::vector<int> order = board_.labelPaintOrder();
  const auto at = [&](const QString& name) {
    return std::find_if(order.begin(), order.end(), [&](int i) { return board_.Lab[i].toolTip == name; }) - order.begin();
  };
  EXPECT_GT(at("Short"), at("Long"));
  EXPECT_GT(at("Earlier"), at("Later"));
}

TEST_F(BoardDrawingTest, OverlapCountsOnlyTheDaysInView) {
  threeRooms();
  // Longer in reality, but only two days of it show: it is the one struck.
  planning_.addBooking("Room 1", QDate(2025, 1, 1), QDate(2025, 3, 8), "Old");
  planning_.addBooking("Room 1", QDate(2025, 3, 7), QDate(2025, 3, 11), "New");
  open();
  board_.Dessiner_Ecran();
  EXPECT_EQ(label("Old").text, QString(50, '/'));
  EXPECT_EQ(label("New").text, "New");
}

TEST_F(BoardDrawingTest, AResourceTheBoardDoesNotKnowGoesOnTheFirstRowAndIsReported) {
  threeRooms();
  // The store finds names without regard to case; the board's rows don't.
  planning_.addBooking("ROOM 3", QDate(2025, 3, 7), QDate(2025, 3, 9), "Orphan");
  open();
  board_.Dessiner_Ecran();
  ASSERT_EQ(board_.LabCount, 1);
  EXPECT_EQ(board_.Lab[0].rect.top, frame_.labelTop(0));
  ASSERT_EQ(messages_.shown().size(), 1u);
  EXPECT_EQ(messages_.last().text,
            "In the following booking :\r\nResource : ROOM 3 - From : 3/7/2025 - To : 3/9/2025 - Customer : Orphan\r\n"
            "the resource (that didn't exist) has been replaced by : Room 1\r\n\r\n"
            "[This error has been writen in the Notes]");
  EXPECT_TRUE(QFile::exists(planning_.paths().notesFile()));
  EXPECT_EQ(planning_.db().scalar("SELECT Resource FROM Reservation").toString(), "ROOM 3");
}

TEST_F(BoardDrawingTest, ReversedDatesAreDrawnAWeekLongReportedOnEveryDrawingAndTheRowIsKept) {
  threeRooms();
  planning_.addBooking("Room 2", QDate(2025, 3, 8), QDate(2025, 3, 7), "Backwards");
  open();
  board_.Dessiner_Ecran();

  ASSERT_EQ(board_.LabCount, 1);
  EXPECT_EQ(board_.Lab[0].Tag, "3/8/2025*3/15/2025*");
  EXPECT_EQ(board_.Lab[0].rect.width, 7 * 200);
  ASSERT_EQ(messages_.shown().size(), 1u);
  const QString expected =
      "In the following booking :\r\nResource : Room 2 - From : 3/8/2025 - To : 3/7/2025 - Customer : Backwards\r\n"
      "the \"From\" date (smaller than the \"To\" date) has been replaced by : 3/15/2025"
      "\r\n\r\n[This error has been writen in the Notes]";
  EXPECT_EQ(messages_.last().text, expected);
  EXPECT_EQ(messages_.last().icon, MsgIcon::Critical);

  QFile notes(planning_.paths().notesFile());
  ASSERT_TRUE(notes.open(QIODevice::ReadOnly | QIODevice::Text));
  const QStringList lines = QString::fromUtf8(notes.readAll()).split('\n');
  EXPECT_EQ(lines.at(0), "2025-03-10 " + QString(40, '-'));
  EXPECT_EQ(lines.at(1), "In the following booking :");
  EXPECT_EQ(lines.at(5), "[This error has been writen in the Notes]");
  EXPECT_EQ(lines.at(6), QString(40, '-'));
  notes.close();

  // Nothing written back, and the fault is told again on the next drawing.
  EXPECT_EQ(planning_.db().scalar("SELECT Date_Fin FROM Reservation").toString(), "2025-03-07");
  board_.Dessiner_Ecran();
  EXPECT_EQ(messages_.shown().size(), 2u);
}

TEST_F(BoardDrawingTest, ResourceCellsTakeCategoryColoursAndBlankRowsTheEmptyColour) {
  threeRooms();
  open();
  board_.Dessiner_Ecran();
  EXPECT_EQ(board_.ResCount, 3);
  EXPECT_EQ(board_.Res_Lib[1].text, "Room 2");
  EXPECT_EQ(board_.Res_Lib[1].back, options_.CategoryBack[1]);
  EXPECT_EQ(board_.Res_Lib[3].text, "");
  EXPECT_EQ(board_.Res_Lib[3].back, kEmptyResourceColour);
  EXPECT_EQ(board_.vScrollMax, 0);

  planning_.addResource("Room 4", 0, 7);
  planning_.addResource("Room 5", 0, 9);
  planning_.addResource("Room 6", 0, 11);
  board_.VPos = 1;
  board_.Dessiner_Ecran();
  EXPECT_EQ(board_.Res_Lib[0].text, "Room 2");
  EXPECT_EQ(board_.Res_Lib[3].text, "Room 5");
  EXPECT_EQ(board_.vScrollMax, 2);
}

TEST_F(BoardDrawingTest, NoResourcesLeaveABlankBoard) {
  open();
  board_.Dessiner_Ecran();
  EXPECT_EQ(board_.ResCount, 0);
  EXPECT_EQ(board_.vScrollMax, 0);
  for (const BoardCell& c : board_.Res_Lib) EXPECT_EQ(c.back, kEmptyResourceColour);
  EXPECT_EQ(board_.LabCount, 0);
}


TEST_F(BoardDrawingTest, WithTheAvailabilityViewOnAScrollDrawsTheDaysBeforeTheCounts) {
  threeRooms();
  open();
  board_.Dessiner_Ecran();
  QList<QDate> firstDays;  // ViewFirst as each drawing of the counts found it, with the strip's first day
  QStringList strips;
  board_.availabilityChecked = true;
  board_.Draw_Available = [&] {
    firstDays << board_.ViewFirst();
    strips << board_.Jour.front().text.section(QLatin1Char('\n'), 1);
  };
  board_.HPos = 8;
  board_.Redraw("D");
  const int days = board_.daysVersion;
  board_.Redraw(QString());  // a refresh: the days stay as they are
  EXPECT_EQ(board_.daysVersion, days);
  EXPECT_EQ(firstDays, (QList<QDate>{QDate(2025, 3, 9), QDate(2025, 3, 9)}));
  EXPECT_EQ(strips, (QStringList{"9", "9"}));
  EXPECT_EQ(board_.LastHPos, 8);
}

TEST_F(BoardDrawingTest, MonthLettersAreCentredAndFollowedByTheYear) {
  // MARCH: n = 5, s = 12: letters on the 12th to 16th, blank on the 17th,
  // year on the 18th to 21st.
  board_.HPos = 10;  // 11 to 20 March
  board_.Dessin_JourMoisGrid();
  QString strip;
  for (const BoardCell& c : board_.Mois) strip += c.text.isEmpty() ? QString("_") : c.text;
  EXPECT_EQ(strip, "_MARCH_202");
  EXPECT_EQ(board_.Jour[0].text, "T\n11");  // a Tuesday
  EXPECT_EQ(board_.Jour[4].text, "S\n15");

  // A short month seen after its letters shows none of them.
  board_.setFirstDate(QDate(2025, 2, 20));
  board_.HPos = 0;  // 20 Feb to 1 March
  board_.Dessin_JourMoisGrid();
  strip.clear();
  for (const BoardCell& c : board_.Mois) strip += c.text.isEmpty() ? QString("_") : c.text;
  EXPECT_EQ(strip, "2025______");
}

TEST_F(BoardDrawingTest, MonthColoursSwitchOnEachFirstAnchoredOnTheLeftEdge) {
  board_.setFirstDate(QDate(2025, 2, 25));
  board_.HPos = 0;  // 25 Feb to 6 March
  board_.Dessin_JourMoisGrid();
  EXPECT_EQ(board_.Mois[0].back, options_.DayBack[0]);
  EXPECT_EQ(board_.Mois[3].back, options_.DayBack[0]);
  EXPECT_EQ(board_.Mois[4].back, options_.DayBack[1]);  // 1 March
  board_.HPos = 4;  // now 1 March is on the left edge
  board_.Dessin_JourMoisGrid();
  EXPECT_EQ(board_.Mois[0].back, options_.DayBack[1]);
  // Day cells keep the parity of their column.
  EXPECT_EQ(board_.Jour[0].back, options_.DayBack[0]);
  EXPECT_EQ(board_.Jour[1].back, options_.DayBack[1]);
}

TEST_F(BoardDrawingTest, StoredDayColoursAreLaidOnTheParityPairs) {
  planning_.addDayColor(QDate(2025, 3, 7), 1);
  planning_.addDayColor(QDate(2025, 3, 9), 3);
  planning_.addDayColor(QDate(2025, 3, 30), 2);  // out of view
  open();
  board_.Dessin_JourMoisGrid();
  EXPECT_EQ(board_.Jour[1].back, 255u);
  EXPECT_EQ(board_.Jour[1].fore, kWhite);
  EXPECT_EQ(board_.Jour[3].back, 65280u);
  EXPECT_EQ(board_.Jour[3].fore, kBlack);
  EXPECT_EQ(board_.Jour[2].back, options_.DayBack[0]);
  board_.RestoreDayColor();
  EXPECT_EQ(board_.Jour[1].back, options_.DayBack[1]);
}

TEST_F(BoardDrawingTest, WeekendBandsFollowTheDayLetters) {
  board_.Dessin_JourMoisGrid();  // 6 to 15 March: Sat 8, Sun 9, Sat 15
  ASSERT_EQ(board_.WkEnd.size(), 3u);
  EXPECT_EQ(board_.WkEnd[0].rect, frame_.dayBand(2));
  EXPECT_EQ(board_.WkEnd[0].back, options_.DayBack[0]);
  EXPECT_EQ(board_.WkEnd[2].rect, frame_.dayBand(9));
  options_.WkEnd = false;
  board_.Dessin_JourMoisGrid();
  EXPECT_TRUE(board_.WkEnd.empty());
}

TEST_F(BoardDrawingTest, ThePastIsHatchedUpToFortyDays) {
  board_.Dessin_JourMoisGrid();  // today 10 March is column 4
  ASSERT_TRUE(board_.HachPast.visible);
  EXPECT_EQ(board_.HachPast.rect, (TwipRect{gridLeft(), gridTop(), 4 * 200, 4 * 300}));
  board_.HPos = 9;  // the view starts on today
  board_.Dessin_JourMoisGrid();
  EXPECT_FALSE(board_.HachPast.visible);
  board_.setFirstDate(QDate(2024, 1, 1));
  board_.HPos = 0;
  board_.Dessin_JourMoisGrid();
  EXPECT_EQ(board_.HachPast.rect.width, 40 * 200);
  options_.RayePast = false;
  board_.Dessin_JourMoisGrid();
  EXPECT_FALSE(board_.HachPast.visible);
}

TEST_F(BoardDrawingTest, EventBandsStandOnTheirDayWhenInView) {
  options_.NbDays = {1, 1, 3, 30};
  board_.Dessin_JourMoisGrid();
  ASSERT_TRUE(board_.Event1.visible);
  EXPECT_EQ(board_.Event1.rect, frame_.dayBand(7));  // 13 March
  EXPECT_FALSE(board_.Event2.visible);
}

TEST_F(BoardDrawingTest, PeriodsAreClippedAndRecurEveryYear) {
  // Season 1: 1 to 8 March 2023, seen in 2025; season 2 one-sided; season 3 not a date.
  options_.SchedulePeriod = {"230301", "230308", "", "250312", "25xx01", "250301"};
  board_.Dessin_JourMoisGrid();
  ASSERT_TRUE(board_.Period[0].visible);
  EXPECT_EQ(board_.Period[0].rect, frame_.dayBand(0, 3));  // 6 to 8 March
  EXPECT_EQ(board_.Period[0].back, options_.DayBack[2]);
  ASSERT_TRUE(board_.Period[1].visible);
  EXPECT_EQ(board_.Period[1].rect, frame_.dayBand(6, 1));
  EXPECT_FALSE(board_.Period[2].visible);

  options_.SchedulePeriod = {"250401", "250410", "", "", "", ""};
  board_.Dessin_JourMoisGrid();
  EXPECT_FALSE(board_.Period[0].visible);
}

}  // namespace
