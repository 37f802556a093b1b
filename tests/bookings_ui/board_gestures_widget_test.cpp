// The board widget carrying a booking with real mouse events, the gap
// caption under a held button, and the keyboard's cell cursor.
#include <gtest/gtest.h>

#include <memory>

#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "board/board_drawing.h"
#include "board/board_gestures.h"
#include "board/screen_description.h"
#include "board/ui/board_widget.h"
#include "bookings/booking_records.h"
#include "config/charger_param.h"
#include "config/ini_file.h"
#include "core/regional.h"
#include "core/texts.h"
#include "storage/sqlite_db.h"
#include "support/scripted_messages.h"
#include "support/test_planning.h"

using namespace ksv;

namespace {

class BoardGesturesWidgetTest : public ::testing::Test {
 protected:
  BoardGesturesWidgetTest()
      : ini_(planning_.paths().iniFile()),
        options_(Charger_Param(ini_, planning_.clock())),
        frame_(makeFrame()),
        regional_(Regional::englishUS()),
        drawing_(BoardContext{frame_, options_, messages_, texts_, planning_.paths(), regional_,
                              [] { return QDate(2025, 3, 10); }}) {
    drawing_.setFirstDate(QDate(2025, 3, 1));
  }
  // 10 days and 4 rows of 300 twips: 20 pixels a cell at 96 dots per inch.
  static BoardFrame makeFrame() {
    ScreenDescription screen;
    readScreen(ScreenFacts{1024, 768, 32, 60, 96}, screen);
    BoardFrame frame;
    frame.Draw_Planning_Frame(screen, ScreenDrawing{"10", "300", "4", "300", "1200", "200"});
    return frame;
  }

  // The board over the planning, its view from 1 March 2025, with gestures.
  void showBoard(int rooms) {
    for (int i = 1; i <= rooms; ++i) planning_.addResource(QString("Room %1").arg(i), 0, i);
    drawing_.setSession(&planning_.objects());
    board_ = std::make_unique<BoardWidget>(drawing_, options_, texts_);
    board_->resize(1024, 600);
    board_->setDayRange(300, 9);
    board_->scrollTo(0, 0);
    board_->Dessiner_Ecran();

    GestureHooks hooks;
    hooks.normalMode = [] { return true; };
    hooks.Dessiner_Ecran = [this] { board_->Dessiner_Ecran(); };
    hooks.setVScroll = [this](int v) { board_->VScroll()->setValue(v); };
    hooks.newRecords = [this] {
      auto r = std::make_unique<BookingRecords>(planning_.db(), planning_.clock(), messages_, texts_);
      r->setRecordsets(&drawing_.view, &planning_.objects().Reservation);
      return r;
    };
    hooks.openers = [this](GestureRecords& r) {
      BookingDialogOpeners o;
      o.Reservation = [this, &r] {
        opened_ << "Reservation " + r.Nom_L;
        return false;
      };
      return o;
    };
    hooks.ReservationCreer = [this](GestureRecords& r) {
      opened_ << "ReservationCreer " + r.Res_L + " " + r.DD_L.toString(Qt::ISODate);
    };
    gestures_ = std::make_unique<BoardGestures>(drawing_, options_, messages_, texts_, std::move(hooks));
    board_->setGestures(gestures_.get());
    board_->show();
  }

  QRect labelPixels(int index) const { return board_->pixels(drawing_.Lab[std::size_t(index)].rect); }
  int cell() const { return board_->pixels(TwipRect{0, 0, 300, 0}).width(); }
  QString stored(const QString& nom) {
    Statement st = planning_.db().prepare("SELECT Resource, Date_Deb, Date_Fin FROM Reservation WHERE Nom = ?");
    st.bind(0, nom);
    if (!st.step()) return "<none>";
    return st.column(0).toString() + " " + st.column(1).toString().left(10) + " " + st.column(2).toString().left(10);
  }

  test::TestPlanning planning_;
  test::ScriptedMessages messages_;
  Texts texts_{0};
  IniFile ini_;
  LoadedOptions options_;
  BoardFrame frame_;
  Regional regional_;
  BoardDrawing drawing_;
  std::unique_ptr<BoardWidget> board_;
  std::unique_ptr<BoardGestures> gestures_;
  QStringList opened_;
};

}  // namespace

TEST_F(BoardGesturesWidgetTest, DraggingALabelMovesItsRowToTheResourceAndDaysUnderThePointer) {
  options_.LockDate = false;
  planning_.addBooking("Room 1", QDate(2025, 3, 3), QDate(2025, 3, 5), "Martin", 1);
  showBoard(3);
  ASSERT_EQ(drawing_.LabCount, 1);
  const QRect label = labelPixels(0);
  const QPoint start(label.left() + 4, label.center().y());

  QTest::mousePress(board_.get(), Qt::LeftButton, {}, start);
  ASSERT_TRUE(gestures_->dragging());
  const QPoint end = start + QPoint(2 * cell() + cell() / 2, 2 * cell());
  QTest::mouseMove(board_.get(), start + QPoint(cell(), cell()));
  QTest::mouseMove(board_.get(), end);
  // The carried rectangle is the label's size and follows the pointer.
  const QRect carried = board_->pixels(gestures_->LabDragDrop);
  EXPECT_EQ(carried.size(), label.size());
  EXPECT_EQ(carried.topLeft(), label.topLeft() + (end - start));
  QTest::mouseRelease(board_.get(), Qt::LeftButton, {}, end);

  EXPECT_FALSE(gestures_->dragging());
  EXPECT_EQ(stored("Martin"), "Room 3 2025-03-05 2025-03-07");
  EXPECT_TRUE(messages_.shown().empty());
  // Redrawn where it now stands.
  EXPECT_EQ(labelPixels(0).top(), label.top() + 2 * cell());
}

TEST_F(BoardGesturesWidgetTest, ALeftPressOnAnEmptyCellShowsTheGapUntilRelease) {
  planning_.addBooking("Room 2", QDate(2025, 3, 6), QDate(2025, 3, 8), "Later");
  showBoard(3);
  const QPoint p = board_->pixels(TwipRect{frame_.GridLeft() + 2 * 300, frame_.GridTop() + 300, 300, 300}).center();
  QTest::mousePress(board_.get(), Qt::LeftButton, {}, p);
  auto* trou = board_->findChild<QLabel*>("Trou");
  ASSERT_NE(trou, nullptr);
  EXPECT_TRUE(trou->isVisible());
  EXPECT_EQ(trou->text(), "5 days");  // 2 since 1 March, 3 until the 6th
  QTest::mouseRelease(board_.get(), Qt::LeftButton, {}, p);
  EXPECT_FALSE(trou->isVisible());
}

TEST_F(BoardGesturesWidgetTest, ArrowsMoveTheCursorAndEnterCreatesOrOpensLikeTheRightButton) {
  planning_.addBooking("Room 1", QDate(2025, 3, 2), QDate(2025, 3, 4), "Stay");
  showBoard(6);
  board_->setFocus();
  QTest::keyClick(board_.get(), Qt::Key_Down);
  QTest::keyClick(board_.get(), Qt::Key_Down);
  QTest::keyClick(board_.get(), Qt::Key_Right);
  QTest::keyClick(board_.get(), Qt::Key_Right);
  QTest::keyClick(board_.get(), Qt::Key_Right);
  QTest::keyClick(board_.get(), Qt::Key_Up);
  EXPECT_EQ(board_->cursorRow(), 1);
  EXPECT_EQ(board_->cursorColumn(), 3);
  QTest::keyClick(board_.get(), Qt::Key_Return);
  EXPECT_EQ(opened_, QStringList{"ReservationCreer Room 2 2025-03-04"});

  // Back onto the stay's night of 3 March: Enter opens it.
  opened_.clear();
  QTest::keyClick(board_.get(), Qt::Key_Up);
  QTest::keyClick(board_.get(), Qt::Key_Left);
  QTest::keyClick(board_.get(), Qt::Key_Enter);
  EXPECT_EQ(opened_, QStringList{"Reservation Stay"});

  // Down past the last row scrolls the resources and keeps the cursor in view.
  for (int i = 0; i < 5; ++i) QTest::keyClick(board_.get(), Qt::Key_Down);
  EXPECT_EQ(board_->cursorRow(), 3);
  EXPECT_EQ(board_->VScroll()->value(), 2);
  opened_.clear();
  QTest::keyClick(board_.get(), Qt::Key_Return);
  EXPECT_EQ(opened_, QStringList{"ReservationCreer Room 6 2025-03-03"});

  // Pages: a screen of rows, a screen of days, and Home back to today.
  QTest::keyClick(board_.get(), Qt::Key_PageUp);
  EXPECT_EQ(board_->VScroll()->value(), 0);
  QTest::keyClick(board_.get(), Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(board_->HScroll()->value(), 10);
  EXPECT_EQ(drawing_.HPos, 10);
  QTest::keyClick(board_.get(), Qt::Key_Home);
  EXPECT_EQ(board_->HScroll()->value(), 9);
}

TEST_F(BoardGesturesWidgetTest, CarryingABookingOverTheScrollBarScrollsTheRowsUntilTheLast) {
  planning_.addBooking("Room 1", QDate(2025, 3, 3), QDate(2025, 3, 5), "Carried", 1);
  showBoard(6);
  auto* plus = board_->findChild<QTimer*>("TimerVPlus");
  ASSERT_NE(plus, nullptr);
  const QRect label = labelPixels(0);
  const QPoint start(label.left() + 4, label.center().y());
  const QPoint onBar = board_->pixels(frame_.HScroll()).center();

  QTest::mousePress(board_.get(), Qt::LeftButton, {}, start);
  QTest::mouseMove(board_.get(), onBar);
  EXPECT_TRUE(plus->isActive());
  // Two rows lie below the four shown; the timer stops at the last.
  EXPECT_TRUE(QTest::qWaitFor([&] { return !plus->isActive(); }, 3000));
  EXPECT_EQ(board_->VScroll()->value(), 2);

  // Back on the grid, the third row shown is now Room 5.
  const QPoint onGrid(start.x(), board_->pixels(TwipRect{0, frame_.GridTop() + 2 * 300 + 150, 0, 0}).top());
  QTest::mouseMove(board_.get(), onGrid);
  QTest::mouseRelease(board_.get(), Qt::LeftButton, {}, onGrid);
  EXPECT_EQ(stored("Carried"), "Room 5 2025-03-03 2025-03-05");
  EXPECT_FALSE(plus->isActive());
}

TEST_F(BoardGesturesWidgetTest, EscapeOrLettingGoOutsideTheBoardDropsNothing) {
  options_.LockDate = false;
  planning_.addBooking("Room 1", QDate(2025, 3, 3), QDate(2025, 3, 5), "Kept", 1);
  showBoard(3);
  const QRect label = labelPixels(0);
  const QPoint start(label.left() + 4, label.center().y());
  QTest::mousePress(board_.get(), Qt::LeftButton, {}, start);
  QTest::mouseMove(board_.get(), start + QPoint(3 * cell(), cell()));
  QTest::keyClick(board_.get(), Qt::Key_Escape);
  QTest::mouseRelease(board_.get(), Qt::LeftButton, {}, start + QPoint(3 * cell(), cell()));
  EXPECT_EQ(stored("Kept"), "Room 1 2025-03-03 2025-03-05");

  const QPoint outside(board_->width() + 40, start.y() + cell());
  QTest::mousePress(board_.get(), Qt::LeftButton, {}, start);
  QTest::mouseMove(board_.get(), outside);
  QTest::mouseRelease(board_.get(), Qt::LeftButton, {}, outside);
  EXPECT_FALSE(gestures_->dragging());
  EXPECT_EQ(stored("Kept"), "Room 1 2025-03-03 2025-03-05");
}
