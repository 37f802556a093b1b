// The availability view laid over the board: what it paints where, and the
// menu entry that switches between it and the bookings.
#include <gtest/gtest.h>

#include <memory>

#include <QApplication>
#include <QImage>
#include <QPushButton>
#include <QScrollBar>

#include "board/board_drawing.h"
#include "board/screen_description.h"
#include "board/ui/board_colors.h"
#include "board/ui/board_widget.h"
#include "bookings/ui/availability_board.h"
#include "core/menu_model.h"
#include "core/regional.h"
#include "support/test_board.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class AvailabilityBoardTest : public test::TestBoard {
 protected:
  AvailabilityBoardTest() : TestBoard(300) {}
  // The board at 9 March 2025 with the session's bookings drawn.
  std::unique_ptr<BoardWidget> drawnBoard() {
    board_.setSession(&planning_.objects());
    auto board = std::make_unique<BoardWidget>(board_, options_, texts_);
    board->resize(1024, 600);
    board->setDayRange(300, 9);
    board->scrollTo(0, 9);
    board->Dessiner_Ecran();
    return board;
  }
  // The colour painted inside a cell, clear of its frame and its number.
  static QColor inside(const QImage& image, const QWidget& view, const QRect& cell) {
    return image.pixelColor(view.mapToParent(cell.topLeft()) + QPoint(3, 3));
  }
};

TEST_F(AvailabilityBoardTest, TheMenuSwitchesBetweenFreeCountsAndBookings) {
  // Three counted rooms (the spare one is left out of the view), and a suite.
  planning_.addResource("101", 0, 1);
  planning_.addResource("102", 0, 2);
  planning_.addResource("103", 0, 3);
  planning_.addResource("Spare*", 0, 4);
  planning_.addResource("Suite", 1, 5);
  planning_.addBooking("101", QDate(2025, 3, 10), QDate(2025, 3, 12), "Martin");
  planning_.addBooking("102", QDate(2025, 3, 10), QDate(2025, 3, 11), "Durand");
  options_.AvailableColor = true;
  const auto shown = drawnBoard();
  BoardWidget& board = *shown;
  ASSERT_EQ(board_.LabCount, 2);

  MenuModel menus = MenuModel::standard();
  const auto drawAvailable = [&](BoardWidget& b) {
    Availability rules(planning_.db(), planning_.clock());
    Draw_Available(b, rules, options_);
  };
  EXPECT_TRUE(M_Availability_Click(menus, board, drawAvailable));
  EXPECT_TRUE(menus.find("M_Availability")->checked);
  EXPECT_EQ(board_.LabCount, 0);

  auto* view = board.findChild<AvailabilityBoard*>();
  ASSERT_NE(view, nullptr);
  ASSERT_FALSE(view->isHidden());
  ASSERT_EQ(view->lines().size(), 2u);
  // From today: one of three free, then two, then all three.
  EXPECT_EQ(view->lines()[0].cells[0].free, 1);
  EXPECT_EQ(view->lines()[0].cells[1].free, 2);
  EXPECT_EQ(view->lines()[0].cells[2].free, 3);
  EXPECT_EQ(int(view->lines()[0].cells.size()), frame_.DayNb());

  const QImage image = board.grab().toImage();
  EXPECT_EQ(inside(image, *view, view->headingRect(0)), bgrColor(int(options_.CategoryBack[0])));
  EXPECT_EQ(inside(image, *view, view->headingRect(1)), bgrColor(int(options_.CategoryBack[1])));
  EXPECT_EQ(inside(image, *view, view->cellRect(0, 0)), bgrColor(33023));
  EXPECT_EQ(inside(image, *view, view->cellRect(0, 1)), bgrColor(65535));
  EXPECT_EQ(inside(image, *view, view->cellRect(0, 2)), QColor(Qt::white));
  // The heading stands where the resource names do, the days where the board's columns are.
  EXPECT_EQ(view->mapToParent(view->cellRect(0, 0).topLeft()).x(), board.pixels(frame_.Jour(0)).left());

  // While the view is on, a redraw of the board draws the counts again.
  planning_.addBooking("103", QDate(2025, 3, 10), QDate(2025, 3, 11), "Petit");
  board.Redraw("DR");
  EXPECT_EQ(view->lines()[0].cells[0].free, 0);
  EXPECT_EQ(board_.LabCount, 0);

  EXPECT_FALSE(M_Availability_Click(menus, board, drawAvailable));
  EXPECT_FALSE(menus.find("M_Availability")->checked);
  EXPECT_TRUE(view->isHidden());
  EXPECT_FALSE(board_.availabilityChecked);
  EXPECT_EQ(board_.LabCount, 3);
}

TEST_F(AvailabilityBoardTest, TheCountsFollowTheDaysTheScrolledBoardShows) {
  planning_.addResource("101", 0, 1);
  planning_.addResource("102", 0, 2);
  planning_.addBooking("101", QDate(2025, 3, 10), QDate(2025, 3, 12), "Martin");
  const auto shown = drawnBoard();
  BoardWidget& board = *shown;
  MenuModel menus = MenuModel::standard();
  ASSERT_TRUE(M_Availability_Click(menus, board, [&](BoardWidget& b) {
    Availability rules(planning_.db(), planning_.clock());
    Draw_Available(b, rules, options_);
  }));
  auto* view = board.findChild<AvailabilityBoard*>();
  ASSERT_NE(view, nullptr);
  // The free rooms of category 0 on each day shown, and the day numbers above them.
  const auto counts = [&] {
    std::vector<int> out;
    for (int d = 0; d < 4; ++d) out.push_back(view->lines().at(0).cells.at(size_t(d)).free);
    return out;
  };
  const auto dayNumbers = [&] {
    QStringList out;
    for (int d = 0; d < 4; ++d) out << board_.Jour.at(size_t(d)).text.section(QLatin1Char('\n'), 1);
    return out;
  };
  EXPECT_EQ(counts(), (std::vector<int>{1, 1, 2, 2}));
  EXPECT_EQ(dayNumbers(), (QStringList{"10", "11", "12", "13"}));

  // Scrolled two days back, the stay stands under the 10th and the 11th, where the days strip shows them.
  board.HScroll()->setValue(7);
  EXPECT_EQ(board_.ViewFirst(), QDate(2025, 3, 8));
  EXPECT_EQ(dayNumbers(), (QStringList{"8", "9", "10", "11"}));
  EXPECT_EQ(counts(), (std::vector<int>{2, 2, 1, 1}));
  EXPECT_EQ(board_.LabCount, 0);

  // Today brings both back.
  board.findChild<QPushButton*>("Today")->click();
  EXPECT_EQ(dayNumbers(), (QStringList{"10", "11", "12", "13"}));
  EXPECT_EQ(counts(), (std::vector<int>{1, 1, 2, 2}));
}

}  // namespace
