// The board widget carrying a booking with real mouse events, the gap
// caption under a held button, and the keyboard's cell cursor.
#include <gtest/gtest.h>

#include <memory>

#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "board/ui/board_widget.h"
#include "core/texts.h"
#include "support/test_board.h"

using namespace ksv;

namespace {

class BoardGesturesWidgetTest : public test::TestBoard {
 protected:
  BoardGesturesWidgetTest() : TestBoard(300) {}  // 20 pixels a day at 96 dots per inch

  // The board widget over the planning, its view from 1 March 2025, with gestures.
  void showBoard(int n) {
    rooms(n);
    board_.setSession(&planning_.objects());
    widget_ = std::make_unique<BoardWidget>(board_, options_, texts_);
    widget_->resize(1024, 600);
    widget_->setDayRange(300, 9);
    widget_->scrollTo(0, 0);
    widget_->Dessiner_Ecran();
    GestureHooks h = hooks();
    h.Dessiner_Ecran = [this] { widget_->Dessiner_Ecran(); };
    h.setVScroll = [this](int v) { widget_->VScroll()->setValue(v); };
    makeGestures(std::move(h));
    widget_->setGestures(gestures_.get());
    widget_->show();
  }

  QRect labelPixels(int index) const { return widget_->pixels(board_.Lab[std::size_t(index)].rect); }
  int cell() const { return widget_->pixels(TwipRect{0, 0, 300, 0}).width(); }

  std::unique_ptr<BoardWidget> widget_;
};

}  // namespace

TEST_F(BoardGesturesWidgetTest, DraggingALabelMovesItsRowToTheResourceAndDaysUnderThePointer) {
  options_.LockDate = false;
  planning_.addBooking("Room 1", QDate(2025, 3, 3), QDate(2025, 3, 5), "Martin", {{"Couleur", 1}});
  showBoard(3);
  ASSERT_EQ(board_.LabCount, 1);
  const QRect label = labelPixels(0);
  const QPoint start(label.left() + 4, label.center().y());

  QTest::mousePress(widget_.get(), Qt::LeftButton, {}, start);
  ASSERT_TRUE(gestures_->dragging());
  const QPoint end = start + QPoint(2 * cell() + cell() / 2, 2 * cell());
  QTest::mouseMove(widget_.get(), start + QPoint(cell(), cell()));
  QTest::mouseMove(widget_.get(), end);
  // The carried rectangle is the label's size and follows the pointer.
  const QRect carried = widget_->pixels(gestures_->LabDragDrop);
  EXPECT_EQ(carried.size(), label.size());
  EXPECT_EQ(carried.topLeft(), label.topLeft() + (end - start));
  QTest::mouseRelease(widget_.get(), Qt::LeftButton, {}, end);

  EXPECT_FALSE(gestures_->dragging());
  EXPECT_EQ(where("Martin"), "Room 3 2025-03-05 2025-03-07");
  EXPECT_TRUE(messages_.shown().empty());
  // Redrawn where it now stands.
  EXPECT_EQ(labelPixels(0).top(), label.top() + 2 * cell());
}

TEST_F(BoardGesturesWidgetTest, ALeftPressOnAnEmptyCellShowsTheGapUntilRelease) {
  planning_.addBooking("Room 2", QDate(2025, 3, 6), QDate(2025, 3, 8), "Later");
  showBoard(3);
  const QPoint p = widget_->pixels(TwipRect{frame_.GridLeft() + 2 * 300, frame_.GridTop() + 300, 300, 300}).center();
  QTest::mousePress(widget_.get(), Qt::LeftButton, {}, p);
  auto* trou = widget_->findChild<QLabel*>("Trou");
  ASSERT_NE(trou, nullptr);
  EXPECT_TRUE(trou->isVisible());
  EXPECT_EQ(trou->text(), "5 days");  // 2 since 1 March, 3 until the 6th
  QTest::mouseRelease(widget_.get(), Qt::LeftButton, {}, p);
  EXPECT_FALSE(trou->isVisible());
}

TEST_F(BoardGesturesWidgetTest, ArrowsMoveTheCursorAndEnterCreatesOrOpensLikeTheRightButton) {
  planning_.addBooking("Room 1", QDate(2025, 3, 2), QDate(2025, 3, 4), "Stay");
  showBoard(6);
  widget_->setFocus();
  QTest::keyClick(widget_.get(), Qt::Key_Down);
  QTest::keyClick(widget_.get(), Qt::Key_Down);
  QTest::keyClick(widget_.get(), Qt::Key_Right);
  QTest::keyClick(widget_.get(), Qt::Key_Right);
  QTest::keyClick(widget_.get(), Qt::Key_Right);
  QTest::keyClick(widget_.get(), Qt::Key_Up);
  EXPECT_EQ(widget_->cursorRow(), 1);
  EXPECT_EQ(widget_->cursorColumn(), 3);
  QTest::keyClick(widget_.get(), Qt::Key_Return);
  EXPECT_EQ(opened_, QStringList{"ReservationCreer Room 2 2025-03-04"});

  // Back onto the stay's night of 3 March: Enter opens it.
  opened_.clear();
  QTest::keyClick(widget_.get(), Qt::Key_Up);
  QTest::keyClick(widget_.get(), Qt::Key_Left);
  QTest::keyClick(widget_.get(), Qt::Key_Enter);
  EXPECT_EQ(opened_, QStringList{"Reservation Stay"});

  // Down past the last row scrolls the resources and keeps the cursor in view.
  for (int i = 0; i < 5; ++i) QTest::keyClick(widget_.get(), Qt::Key_Down);
  EXPECT_EQ(widget_->cursorRow(), 3);
  EXPECT_EQ(widget_->VScroll()->value(), 2);
  opened_.clear();
  QTest::keyClick(widget_.get(), Qt::Key_Return);
  EXPECT_EQ(opened_, QStringList{"ReservationCreer Room 6 2025-03-03"});

  // Pages: a screen of rows, a screen of days, and Home back to today.
  QTest::keyClick(widget_.get(), Qt::Key_PageUp);
  EXPECT_EQ(widget_->VScroll()->value(), 0);
  QTest::keyClick(widget_.get(), Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(widget_->HScroll()->value(), 10);
  EXPECT_EQ(board_.HPos, 10);
  QTest::keyClick(widget_.get(), Qt::Key_Home);
  EXPECT_EQ(widget_->HScroll()->value(), 9);
}

TEST_F(BoardGesturesWidgetTest, CarryingABookingOverTheScrollBarScrollsTheRowsUntilTheLast) {
  planning_.addBooking("Room 1", QDate(2025, 3, 3), QDate(2025, 3, 5), "Carried", {{"Couleur", 1}});
  showBoard(6);
  auto* plus = widget_->findChild<QTimer*>("TimerVPlus");
  ASSERT_NE(plus, nullptr);
  const QRect label = labelPixels(0);
  const QPoint start(label.left() + 4, label.center().y());
  const QPoint onBar = widget_->pixels(frame_.HScroll()).center();

  QTest::mousePress(widget_.get(), Qt::LeftButton, {}, start);
  QTest::mouseMove(widget_.get(), onBar);
  EXPECT_TRUE(plus->isActive());
  // Two rows lie below the four shown; the timer stops at the last.
  EXPECT_TRUE(QTest::qWaitFor([&] { return !plus->isActive(); }, 3000));
  EXPECT_EQ(widget_->VScroll()->value(), 2);

  // Back on the grid, the third row shown is now Room 5.
  const QPoint onGrid(start.x(), widget_->pixels(TwipRect{0, frame_.GridTop() + 2 * 300 + 150, 0, 0}).top());
  QTest::mouseMove(widget_.get(), onGrid);
  QTest::mouseRelease(widget_.get(), Qt::LeftButton, {}, onGrid);
  EXPECT_EQ(where("Carried"), "Room 5 2025-03-03 2025-03-05");
  EXPECT_FALSE(plus->isActive());
}

TEST_F(BoardGesturesWidgetTest, EscapeOrLettingGoOutsideTheBoardDropsNothing) {
  options_.LockDate = false;
  planning_.addBooking("Room 1", QDate(2025, 3, 3), QDate(2025, 3, 5), "Kept", {{"Couleur", 1}});
  showBoard(3);
  const QRect label = labelPixels(0);
  const QPoint start(label.left() + 4, label.center().y());
  QTest::mousePress(widget_.get(), Qt::LeftButton, {}, start);
  QTest::mouseMove(widget_.get(), start + QPoint(3 * cell(), cell()));
  QTest::keyClick(widget_.get(), Qt::Key_Escape);
  QTest::mouseRelease(widget_.get(), Qt::LeftButton, {}, start + QPoint(3 * cell(), cell()));
  EXPECT_EQ(where("Kept"), "Room 1 2025-03-03 2025-03-05");

  const QPoint outside(widget_->width() + 40, start.y() + cell());
  QTest::mousePress(widget_.get(), Qt::LeftButton, {}, start);
  QTest::mouseMove(widget_.get(), outside);
  QTest::mouseRelease(widget_.get(), Qt::LeftButton, {}, outside);
  EXPECT_FALSE(gestures_->dragging());
  EXPECT_EQ(where("Kept"), "Room 1 2025-03-03 2025-03-05");
}
