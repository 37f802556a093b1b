#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>

#include "board/board_drawing.h"
#include "board/screen_description.h"
#include "board/ui/board_colors.h"
#include "board/ui/board_widget.h"
#include "config/charger_param.h"
#include "config/ini_file.h"
#include "core/regional.h"
#include "core/texts.h"
#include "support/scripted_messages.h"
#include "support/test_planning.h"

using namespace ksv;

namespace {

class BoardWidgetTest : public ::testing::Test {
 protected:
  BoardWidgetTest()
      : ini_(planning_.paths().iniFile()),
        options_(Charger_Param(ini_, planning_.clock())),
        frame_(makeFrame()),
        regional_(Regional::englishUS()),
        drawing_(BoardContext{frame_, options_, messages_, texts_, planning_.paths(), regional_,
                              [] { return QDate(2025, 3, 10); }}) {
    drawing_.setFirstDate(QDate(2025, 3, 1));
  }
  static BoardFrame makeFrame() {
    ScreenDescription screen;
    readScreen(ScreenFacts{1024, 768, 32, 60, 96}, screen);
    BoardFrame frame;
    frame.Draw_Planning_Frame(screen, ScreenDrawing{"10", "300", "4", "300", "1200", "200"});
    return frame;
  }

  test::TestPlanning planning_;
  test::ScriptedMessages messages_;
  Texts texts_{0};
  IniFile ini_;
  LoadedOptions options_;
  BoardFrame frame_;
  Regional regional_;
  BoardDrawing drawing_;
};

}  // namespace

TEST_F(BoardWidgetTest, PaintsEachBookingWhereTheLayoutPutsIt) {
  planning_.addResource("Room 1", 0, 1);
  planning_.addResource("Room 2", 1, 2);
  planning_.addBooking("Room 2", QDate(2025, 3, 3), QDate(2025, 3, 6), "Martin", 2);
  drawing_.setSession(&planning_.objects());

  BoardWidget board(drawing_, options_, texts_);
  board.resize(1024, 600);
  board.setDayRange(300, 9);
  board.scrollTo(0, 0);
  board.Dessiner_Ecran();
  ASSERT_EQ(drawing_.LabCount, 1);

  const QImage image = board.grab().toImage();
  const QRect label = board.pixels(drawing_.Lab[0].rect);
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
  planning_.addBooking("Room 1", QDate(2025, 3, 2), QDate(2025, 3, 4), "Durand", 1);
  drawing_.setSession(&planning_.objects());
  BoardWidget board(drawing_, options_, texts_);
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
  press(board.pixels(drawing_.Lab[0].rect).center());
  EXPECT_EQ(labelIndex, 0);
  EXPECT_EQ(months, 1);
}
