// Gestures on the board: where a dragged booking lands, what a press on a
// label opens, the gap caption, the drag timers, and consultation mode.
#include <gtest/gtest.h>

#include "core/texts.h"
#include "support/test_board.h"
#include "storage/sqlite_db.h"

using namespace ksv;

namespace {

class BoardGesturesTest : public test::TestBoard {
 protected:
  BoardGesturesTest() {
    board_.HPos = 5;  // the view runs from 6 to 15 March 2025
    options_.LockDate = false;
    GestureHooks h = hooks();
    h.stopRefreshTimer = [this] { ++stops_; timerOn_ = false; };
    h.startRefreshTimer = [this] { ++starts_; timerOn_ = true; };
    makeGestures(std::move(h));
  }
  // Left press on a label, 50 twips in from its left edge; gives DragX.
  int pickUp(const QString& name) {
    const int i = label(name);
    gestures_->Lab_MouseDown(i, Qt::LeftButton, 50, 100);
    return board_.Lab[std::size_t(i)].rect.left + 50;
  }
  int rowY(int row) const { return frame_.GridTop() + row * frame_.PasV() + 10; }

  bool timerOn_ = true;
  int stops_ = 0, starts_ = 0;
};

// ------------------------------------------------------------------ drops

TEST_F(BoardGesturesTest, ADropOnTheGridMovesResourceAndDatesByWholeDays) {
  rooms(3);
  planning_.addBooking("Room 1", QDate(2025, 3, 7), QDate(2025, 3, 10), "Martin");
  open();
  const int dragX = pickUp("Martin");
  ASSERT_TRUE(gestures_->dragging());
  EXPECT_FALSE(timerOn_);  // the refresh waits while a booking is carried

  gestures_->Form_DragDrop(dragX + 2 * 200 + 150, rowY(2));
  EXPECT_EQ(where("Martin"), "Room 3 2025-03-09 2025-03-12");
  EXPECT_FALSE(gestures_->dragging());
  EXPECT_TRUE(timerOn_);
  EXPECT_EQ(stops_, starts_);
  EXPECT_TRUE(messages_.shown().empty());
  // The board shows it where it now stands.
  EXPECT_EQ(board_.Lab[std::size_t(label("Martin"))].rect.top, frame_.labelTop(2));
}

TEST_F(BoardGesturesTest, ADropLeftOfTheGridTakesTheRowAndMovesTheBookingBack) {
  rooms(3);
  planning_.addBooking("Room 1", QDate(2025, 3, 9), QDate(2025, 3, 11), "Martin");
  open();
  const int dragX = pickUp("Martin");
  // Over the resource column: (500 - dragX) / 200 days, toward zero.
  const int shift = (500 - dragX) / 200;
  ASSERT_LT(shift, 0);
  gestures_->Form_DragDrop(500, rowY(1));
  const QDate first = QDate(2025, 3, 9).addDays(shift);
  EXPECT_EQ(where("Martin"), "Room 2 " + first.toString(Qt::ISODate) + " " + first.addDays(2).toString(Qt::ISODate));
}

TEST_F(BoardGesturesTest, TheDayAndMonthStripsCountForTheFirstRowAndTheScrollBarForTheLastVisibleRow) {
  rooms(6);
  planning_.addBooking("Room 3", QDate(2025, 3, 7), QDate(2025, 3, 8), "Strip");
  open();
  // The first visible row.
  int dragX = pickUp("Strip");
  gestures_->Jour_DragDrop(3, 190, 50);
  const int shift = (frame_.Jour(3).left + 190 - dragX) / 200;
  EXPECT_EQ(shift, 2);
  EXPECT_EQ(where("Strip"), "Room 1 2025-03-09 2025-03-10");

  dragX = pickUp("Strip");
  gestures_->Mois_DragDrop(3, 190, 10);
  EXPECT_EQ(where("Strip"), "Room 1 2025-03-09 2025-03-10");

  // The scroll bar: the last of the four rows shown, whatever the height.
  dragX = pickUp("Strip");
  gestures_->HScroll_DragDrop(frame_.Jour(3).left + 190 - frame_.HScroll().left, 5);
  EXPECT_EQ(where("Strip"), "Room 4 2025-03-09 2025-03-10");

  // Scrolled down by two rows, the scroll bar still means the last row shown.
  board_.VPos = 2;
  board_.Redraw("R");
  pickUp("Strip");
  gestures_->HScroll_DragDrop(frame_.Jour(3).left + 190 - frame_.HScroll().left, 5);
  EXPECT_EQ(where("Strip"), "Room 6 2025-03-09 2025-03-10");
}

TEST_F(BoardGesturesTest, LockedDatesAndSplitPartsMoveTheResourceAlone) {
  rooms(3);
  planning_.addBooking("Room 1", QDate(2025, 3, 7), QDate(2025, 3, 9), "Whole");
  planning_.addBooking("Room 2", QDate(2025, 3, 7), QDate(2025, 3, 9), "Parted", {{"Split", "1"}});
  planning_.addBooking("Room 2", QDate(2025, 3, 9), QDate(2025, 3, 12), "Parted", {{"Split", "2"}});
  open();

  // A part of a split booking keeps its dates whatever LockDate says.
  int dragX = pickUp("Parted");
  gestures_->Form_DragDrop(dragX + 3 * 200, rowY(2));
  EXPECT_EQ(where("Parted"), "Room 3 2025-03-07 2025-03-09");

  options_.LockDate = true;  // "O", the default
  dragX = pickUp("Whole");
  gestures_->Form_DragDrop(dragX + 3 * 200, rowY(1));
  EXPECT_EQ(where("Whole"), "Room 2 2025-03-07 2025-03-09");
}

TEST_F(BoardGesturesTest, ADropOnALabelCountsFromThatLabelsCorner) {
  rooms(3);
  planning_.addBooking("Room 1", QDate(2025, 3, 7), QDate(2025, 3, 8), "Mover");
  planning_.addBooking("Room 3", QDate(2025, 3, 10), QDate(2025, 3, 14), "Target");
  open();
  const int dragX = pickUp("Mover");
  const TwipRect target = board_.Lab[std::size_t(label("Target"))].rect;
  gestures_->Lab_DragDrop(label("Target"), 20, 20);
  const int shift = (target.left + 20 - dragX) / 200;
  EXPECT_EQ(where("Mover"), "Room 3 " + QDate(2025, 3, 7).addDays(shift).toString(Qt::ISODate) + " " +
                                 QDate(2025, 3, 8).addDays(shift).toString(Qt::ISODate));
  EXPECT_EQ(where("Target"), "Room 3 2025-03-10 2025-03-14");
}

// Where a drop lands: days counted toward zero from where the label was
// taken, rows clamped to the grid and to the last resource.
struct Drop {
  int rooms;
  const char* from;  // the resource Martin (7 to 10 March) stands on
  int dx;            // twips right of where the label was taken
  int row;           // the grid row dropped on, or -1 for y
  int y;
  const char* lands;
};

class DropLands : public BoardGesturesTest, public ::testing::WithParamInterface<Drop> {};

TEST_P(DropLands, WhereTheTableSays) {
  const Drop d = GetParam();
  rooms(d.rooms);
  planning_.addBooking(d.from, QDate(2025, 3, 7), QDate(2025, 3, 10), "Martin");
  open();
  const int dragX = pickUp("Martin");
  gestures_->Form_DragDrop(dragX + d.dx, d.row >= 0 ? rowY(d.row) : d.y);
  EXPECT_EQ(where("Martin"), d.lands);
}

INSTANTIATE_TEST_SUITE_P(
    Drops, DropLands,
    ::testing::Values(Drop{3, "Room 1", 199, 1, 0, "Room 2 2025-03-07 2025-03-10"},
                      Drop{3, "Room 2", -199, 0, 0, "Room 1 2025-03-07 2025-03-10"},
                      Drop{3, "Room 1", -200, 0, 0, "Room 1 2025-03-06 2025-03-09"},
                      Drop{2, "Room 1", 0, 3, 0, "Room 2 2025-03-07 2025-03-10"},   // past the last resource
                      Drop{2, "Room 2", 0, -1, 10, "Room 1 2025-03-07 2025-03-10"},  // above the grid
                      Drop{2, "Room 1", 0, -1, 9000, "Room 2 2025-03-07 2025-03-10"},
                      Drop{6, "Room 1", 0, 3, 0, "Room 4 2025-03-07 2025-03-10"},    // the last row shown
                      Drop{6, "Room 1", 0, -1, 9000, "Room 4 2025-03-07 2025-03-10"}));

// ------------------------------------------------------------------ presses on labels

TEST_F(BoardGesturesTest, ALockedBookingDoesNotDragButOpensOnTheRightButton) {
  rooms(3);
  planning_.addBooking("Room 1", QDate(2025, 3, 7), QDate(2025, 3, 9), "Fixed", {{"Couleur", 3}});
  planning_.db().execute("UPDATE Reservation SET Blocage = 1, Email = 'f@x.org' WHERE Nom = 'Fixed'");
  open();
  gestures_->Lab_MouseDown(label("Fixed"), Qt::LeftButton, 50, 100);
  EXPECT_FALSE(gestures_->dragging());
  EXPECT_TRUE(gestures_->SelLocked);
  gestures_->Form_DragDrop(frame_.GridLeft() + 1500, rowY(2));
  EXPECT_EQ(where("Fixed"), "Room 1 2025-03-07 2025-03-09");
  EXPECT_TRUE(opened_.isEmpty());

  gestures_->Lab_MouseDown(label("Fixed"), Qt::RightButton, 50, 100);
  EXPECT_EQ(opened_, QStringList{"Reservation Fixed"});
  EXPECT_EQ(gestures_->SelName, "Fixed");
  EXPECT_EQ(gestures_->SelEmail, "f@x.org");
  EXPECT_EQ(gestures_->SelColor, 3);
  EXPECT_EQ(gestures_->OrigFirst, QDate(2025, 3, 7));
  EXPECT_EQ(gestures_->LabButton, Qt::RightButton);
  EXPECT_TRUE(timerOn_);
}

TEST_F(BoardGesturesTest, ASplitPartOpensItsDialogAndTheGroupFollowsWhenAsked) {
  rooms(3);
  planning_.addBooking("Room 1", QDate(2025, 3, 7), QDate(2025, 3, 9), "Parted", {{"Split", "1"}});
  planning_.addBooking("Room 2", QDate(2025, 3, 9), QDate(2025, 3, 12), "Parted", {{"Split", "2"}});
  open();
  openGroup_ = true;
  gestures_->Lab_MouseDown(label("Parted"), Qt::RightButton, 10, 10);
  EXPECT_EQ(opened_, (QStringList{"ReservationSplit Parted", "ReservationGrp"}));
  EXPECT_TRUE(timerOn_);
}

TEST_F(BoardGesturesTest, ASplitPartWithoutItsPartnerBecomesWholeAndOpensNothing) {
  rooms(3);
  planning_.addBooking("Room 1", QDate(2025, 3, 7), QDate(2025, 3, 9), "Alone", {{"Split", "2"}});
  open();
  gestures_->Lab_MouseDown(label("Alone"), Qt::RightButton, 10, 10);
  EXPECT_EQ(messages_.texts(), QStringList{"The other split part cannot be found\r\nWe are going to forget it"});
  EXPECT_TRUE(opened_.isEmpty());
  EXPECT_EQ(planning_.db().scalar("SELECT Split FROM Reservation").toString(), "0");
  EXPECT_EQ(board_.Lab[0].text, "Alone");  // redrawn without its "#"
}

// ------------------------------------------------------------------ empty cells

TEST_F(BoardGesturesTest, TheGapCountsTheFreeDaysAroundThePressedCellWithinTheView) {
  rooms(3);
  planning_.addBooking("Room 2", QDate(2025, 3, 7), QDate(2025, 3, 10), "Before");
  planning_.addBooking("Room 2", QDate(2025, 3, 13), QDate(2025, 3, 20), "After");
  planning_.addBooking("Room 1", QDate(2025, 3, 6), QDate(2025, 3, 8), "Early");
  open();
  const int column = 6;  // 12 March
  gestures_->Form_MouseDown(Qt::LeftButton, frame_.GridLeft() + column * 200 + 30, rowY(1));
  ASSERT_TRUE(gestures_->Trou.visible);
  EXPECT_EQ(gestures_->Trou.text, "3 days");  // 2 since the 10th, 1 until the 13th
  EXPECT_EQ(gestures_->Trou.rect.left, frame_.GridLeft() + column * 200 + 105);
  EXPECT_EQ(gestures_->Trou.rect.top, frame_.labelTop(1));
  EXPECT_EQ(gestures_->Trou.rect.height, frame_.LabE());
  EXPECT_EQ(gestures_->SelFirst, QDate(2025, 3, 12));
  gestures_->Form_MouseUp();
  EXPECT_FALSE(gestures_->Trou.visible);

  // A leaving day equal to the pressed day makes that side 0.
  gestures_->Form_MouseDown(Qt::LeftButton, frame_.GridLeft() + 4 * 200 + 30, rowY(1));
  EXPECT_EQ(gestures_->Trou.text, "3 days");

  // Nothing after the 11th on Room 1: the rest of the view counts.
  gestures_->Form_MouseDown(Qt::LeftButton, frame_.GridLeft() + 5 * 200 + 30, rowY(0));
  EXPECT_EQ(gestures_->Trou.text, "7 days");  // 3 since the 8th, 4 until the 15th
}

TEST_F(BoardGesturesTest, TheGapOnAnEmptyRowIsTheWholeViewWhateverTheCell) {
  rooms(3);
  planning_.addBooking("Room 1", QDate(2025, 3, 7), QDate(2025, 3, 10), "Elsewhere");
  open();
  for (int column : {0, 4, 9}) {
    gestures_->Form_MouseDown(Qt::LeftButton, frame_.GridLeft() + column * 200 + 30, rowY(2));
    EXPECT_EQ(gestures_->Trou.text, "9 days") << column;
  }
  Texts french(kFrenchOffset);
  GestureHooks normal;
  normal.normalMode = [] { return true; };
  BoardGestures frenchGestures(board_, options_, messages_, french, normal);
  frenchGestures.Form_MouseDown(Qt::LeftButton, frame_.GridLeft() + 30, rowY(2));
  EXPECT_EQ(frenchGestures.Trou.text, "9 jours");
}

TEST_F(BoardGesturesTest, ABlankRowAndTheOutsideOfTheGridAreDead) {
  rooms(3);
  open();
  gestures_->Form_MouseDown(Qt::LeftButton, frame_.GridLeft() + 230, rowY(3));
  EXPECT_FALSE(gestures_->Trou.visible);
  gestures_->Form_MouseDown(Qt::RightButton, frame_.GridLeft() + 230, rowY(3));
  // On the grid's edge is not inside it.
  gestures_->Form_MouseDown(Qt::RightButton, frame_.GridLeft(), rowY(1));
  gestures_->Form_MouseDown(Qt::RightButton, frame_.GridRight() + 50, rowY(1));
  EXPECT_TRUE(opened_.isEmpty());
  EXPECT_EQ(stops_, starts_);
}

TEST_F(BoardGesturesTest, TheRightButtonOnAnEmptyCellCreatesOnThatResourceAndDay) {
  rooms(3);
  open();
  gestures_->Form_MouseDown(Qt::RightButton, frame_.GridLeft() + 2 * 200 + 199, rowY(2));
  EXPECT_EQ(opened_, QStringList{"ReservationCreer Room 3 2025-03-08"});
  EXPECT_EQ(gestures_->LabIndex, -1);
  EXPECT_FALSE(gestures_->Trou.visible);
  EXPECT_TRUE(timerOn_);
}

// ------------------------------------------------------------------ modes and timers

TEST_F(BoardGesturesTest, ConsultationModeAndADrawingUnderWayLeaveEverythingAlone) {
  rooms(3);
  planning_.addBooking("Room 1", QDate(2025, 3, 7), QDate(2025, 3, 9), "Martin");
  open();
  normalMode_ = false;
  gestures_->Lab_MouseDown(label("Martin"), Qt::LeftButton, 50, 100);
  EXPECT_FALSE(gestures_->dragging());
  gestures_->Lab_MouseDown(label("Martin"), Qt::RightButton, 50, 100);
  gestures_->Form_MouseDown(Qt::RightButton, frame_.GridLeft() + 1030, rowY(1));
  gestures_->Form_MouseDown(Qt::LeftButton, frame_.GridLeft() + 1030, rowY(1));
  EXPECT_FALSE(gestures_->Trou.visible);
  EXPECT_TRUE(opened_.isEmpty());
  EXPECT_TRUE(timerOn_);

  // A drag begun in normal mode lands on no label once the mode changed.
  normalMode_ = true;
  pickUp("Martin");
  normalMode_ = false;
  gestures_->Lab_DragDrop(label("Martin"), 500, 10);
  EXPECT_EQ(where("Martin"), "Room 1 2025-03-07 2025-03-09");

  normalMode_ = true;
  gestures_->cancelDrag();
  board_.drawing = true;
  gestures_->Lab_MouseDown(label("Martin"), Qt::RightButton, 50, 100);
  gestures_->Form_MouseDown(Qt::LeftButton, frame_.GridLeft() + 1030, rowY(1));
  EXPECT_TRUE(opened_.isEmpty());
  EXPECT_FALSE(gestures_->Trou.visible);
}

TEST_F(BoardGesturesTest, TheDragTimersCarryABookingBeyondTheVisibleRows) {
  rooms(6);
  planning_.addBooking("Room 1", QDate(2025, 3, 7), QDate(2025, 3, 9), "Carried");
  open();
  ASSERT_EQ(board_.vScrollMax, 2);
  const int dragX = pickUp("Carried");

  // Entering the scroll bar starts the downward timer; it stops at the end.
  gestures_->HScroll_DragOver(0);
  EXPECT_TRUE(gestures_->TimerVPlus);
  gestures_->TimerVPlus_Timer();
  gestures_->TimerVPlus_Timer();
  EXPECT_EQ(board_.VPos, 2);
  gestures_->TimerVPlus_Timer();
  EXPECT_FALSE(gestures_->TimerVPlus);
  EXPECT_EQ(board_.VPos, 2);

  // Below the scroll bar's top also starts it; leaving the bar stops it.
  gestures_->Form_DragOver(dragX, frame_.HScroll().top + 10);
  EXPECT_TRUE(gestures_->TimerVPlus);
  gestures_->HScroll_DragOver(1);
  EXPECT_FALSE(gestures_->TimerVPlus);

  // The day strip scrolls back up, and stops at the top.
  gestures_->Jour_DragOver(0);
  EXPECT_TRUE(gestures_->TimerVMoins);
  gestures_->TimerVMoins_Timer();
  EXPECT_EQ(board_.VPos, 1);
  gestures_->Mois_DragOver(1);
  EXPECT_FALSE(gestures_->TimerVMoins);

  // The carried rectangle follows the pointer, the same size as the label.
  gestures_->Form_DragOver(2000, 1500);
  EXPECT_EQ(gestures_->LabDragDrop.left, 2000 - 50);
  EXPECT_EQ(gestures_->LabDragDrop.top, 1500 - 100);
  EXPECT_EQ(gestures_->LabDragDrop.width, 2 * 200);

  // Dropped on the third row of a board scrolled by one: Room 4.
  gestures_->TimerVPlus = true;
  gestures_->Form_DragDrop(dragX, rowY(2));
  EXPECT_FALSE(gestures_->TimerVPlus);
  EXPECT_EQ(where("Carried"), "Room 4 2025-03-07 2025-03-09");
}

TEST_F(BoardGesturesTest, EnterOnACellOpensTheBookingOverItsNightsOrCreates) {
  rooms(3);
  planning_.addBooking("Room 2", QDate(2025, 3, 7), QDate(2025, 3, 9), "Stay");
  open();
  // The leaving day is free; the nights of the 7th and 8th are the stay's.
  EXPECT_EQ(gestures_->labelOnCell(1, 0), -1);
  EXPECT_EQ(gestures_->labelOnCell(1, 1), label("Stay"));
  EXPECT_EQ(gestures_->labelOnCell(1, 2), label("Stay"));
  EXPECT_EQ(gestures_->labelOnCell(1, 3), -1);
  gestures_->Enter_Cell(1, 2);
  gestures_->Enter_Cell(1, 3);
  EXPECT_EQ(opened_, (QStringList{"Reservation Stay", "ReservationCreer Room 2 2025-03-09"}));
}

}  // namespace
