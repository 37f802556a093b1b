#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QToolTip>

#include "board/ui/board_colors.h"
#include "board/ui/board_widget.h"
#include "core/texts.h"
#include "support/test_board.h"

using namespace ksv;

namespace {

class BoardWidgetTest : public test::TestBoard {
 protected:
  BoardWidgetTest() : TestBoard(300) {}};

}  // namespace

TEST_F(BoardWidgetTest, PaintsEachBookingWhereTheLayoutPutsIt) {
  planning_.addResource("Room 1", 0, 1);
  planning_.addResource("Room 2", 1, 2);
  planning_.addBooking("Room 2", QDate(2025, 3, 3), QDate(2025, 3, 6), "Martin", {{"Couleur", 2}});
  board_.setSession(&planning_.objects());

  BoardWidget board(board_, options_, texts_);
  board.resize(1024, 600);
  board.setDayRange(300, 9);
  board.scrollTo(0, 0);
  board.Dessiner_Ecran();
  ASSERT_EQ(board_.LabCount, 1);

  const QImage image = board.grab().toImage();
  const QRect label = board.pixels(board_.Lab[0].rect);
  ASSERT_TRUE(image.rect().contains(label));
  // The label's own colour inside it (right of its text), not outside it on the same row.
  EXPECT_EQ(image.pixelColor(label.right() - 3, label.center().y()), bgrColor(static_cast<int>(options_.BookingBack[2])));
  EXPECT_NE(image.pixelColor(label.right() + 30, label.center().y()), bgrColor(static_cast<int>(options_.BookingBack[2])));
  // The row above, Room 1, has no booking at that place.
  EXPECT_NE(image.pixelColor(label.center().x(), label.top() - board.pixels(TwipRect{0, 0, 0, 300}).height()),
            bgrColor(static_cast<int>(options_.BookingBack[2])));
}

TEST_F(BoardWidgetTest, TheMonthStripAndTheLabelsAnswerPresses) {
  planning_.addResource("Room 1", 0, 1);
  planning_.addBooking("Room 1", QDate(2025, 3, 2), QDate(2025, 3, 4), "Durand", {{"Couleur", 1}});
  board_.setSession(&planning_.objects());
  BoardWidget board(board_, options_, texts_);
  board.resize(1024, 600);
  board.setDayRange(300, 9);
  board.scrollTo(0, 0);
  board.Dessiner_Ecran();

  int months = 0, labelIndex = -1;
  QObject::connect(&board, &BoardWidget::monthPressed, [&] { ++months; });
  QObject::connect(&board, &BoardWidget::labelPressed, [&](int i, Qt::MouseButton, QPoint) { labelIndex = i; });
  auto press = [&board](QPoint p) {
    QMouseEvent e(QEvent::MouseButtonPress, QPointF(p), board.mapToGlobal(QPointF(p)), Qt::LeftButton,
                  Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&board, &e);
  };
  press(board.pixels(frame_.Mois(3)).center());
  EXPECT_EQ(months, 1);
  press(board.pixels(board_.Lab[0].rect).center());
  EXPECT_EQ(labelIndex, 0);
  EXPECT_EQ(months, 1);
}

TEST_F(BoardWidgetTest, UnderTheAvailabilityViewThePressesReachNothingHidden) {
  planning_.addResource("Room 1", 0, 1);
  planning_.addBooking("Room 1", QDate(2025, 3, 2), QDate(2025, 3, 4), "Durand", {{"Couleur", 1}});
  board_.setSession(&planning_.objects());
  BoardWidget board(board_, options_, texts_);
  board.resize(1024, 600);
  board.setDayRange(300, 9);
  board.scrollTo(0, 0);
  board.Dessiner_Ecran();
  ASSERT_EQ(board_.LabCount, 1);
  board_.availabilityChecked = true;

  int resources = 0, labels = 0, days = 0;
  QObject::connect(&board, &BoardWidget::resourcePressed, [&](int, Qt::MouseButton, QPoint) { ++resources; });
  QObject::connect(&board, &BoardWidget::labelPressed, [&](int, Qt::MouseButton, QPoint) { ++labels; });
  QObject::connect(&board, &BoardWidget::dayPressed, [&](int, Qt::MouseButton, QPoint) { ++days; });
  auto press = [&board](QPoint p) {
    QMouseEvent down(QEvent::MouseButtonPress, QPointF(p), board.mapToGlobal(QPointF(p)), Qt::RightButton,
                     Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(&board, &down);
    QMouseEvent up(QEvent::MouseButtonRelease, QPointF(p), board.mapToGlobal(QPointF(p)), Qt::RightButton,
                   Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&board, &up);
  };
  press(board.pixels(frame_.Res_Lib(0)).center());
  press(board.pixels(board_.Lab[0].rect).center());
  EXPECT_EQ(resources, 0) << "a category line opened the menu of the room under it";
  EXPECT_EQ(labels, 0) << "a count opened the booking under it";
  // The day headings stay in sight and keep answering.
  press(board.pixels(frame_.Jour(2)).center());
  EXPECT_EQ(days, 1);

  board_.availabilityChecked = false;
  press(board.pixels(frame_.Res_Lib(0)).center());
  EXPECT_EQ(resources, 1);
}

TEST_F(BoardWidgetTest, HoveringALabelOrAResourceShowsItsWholeText) {
  planning_.addResource("Room 1", 0, 1);
  // One night in a narrow column: the label cannot hold the name.
  planning_.addBooking("Room 1", QDate(2025, 3, 2), QDate(2025, 3, 3), "Mr Arnaud-Delacroix",
                        {{"Couleur", 1}, {"Split", "1"}, {"GroupNb", 4}});
  board_.setSession(&planning_.objects());
  BoardWidget board(board_, options_, texts_);
  board.resize(1024, 600);
  board.setDayRange(300, 9);
  board.scrollTo(0, 0);
  board.Dessiner_Ecran();
  board.show();
  ASSERT_EQ(board_.LabCount, 1);

  auto hover = [&board](QPoint p) {
    QHelpEvent help(QEvent::ToolTip, p, board.mapToGlobal(p));
    QApplication::sendEvent(&board, &help);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
  };
  EXPECT_EQ(hover(board.pixels(board_.Lab[0].rect).center()), "Mr Arnaud-Delacroix#\u00A4");
  EXPECT_EQ(hover(board.pixels(frame_.Res_Lib(0)).center()), "Room 1");
  EXPECT_EQ(board.toolTipAt(board.pixels(frame_.Mois(5)).center()), "");
}
