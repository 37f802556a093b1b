// The manual control's walk over the drawn resources and bookings.
#include "board/manual_control.h"

#include <gtest/gtest.h>

#include "core/texts.h"
#include "support/test_board.h"

using namespace ksv;

namespace {

class ManualControlTest : public test::TestBoard {
 protected:
  ManualControlTest() { board_.HPos = 5; }  // 6 to 15 March 2025

  void rooms(int n) {
    for (int i = 1; i <= n; ++i) planning_.addResource(QString("Room %1").arg(i), 0, 2 * i - 1);
  }
  void draw() { open(); }
};

TEST_F(ManualControlTest, AnEmptyScreenHidesTheMarkerAndDisablesTheItemButtons) {
  draw();
  ManualControl resources(board_, ManualControl::Kind::Resources);
  ManualControl bookings(board_, ManualControl::Kind::Bookings);
  board_.Repere.visible = true;
  resources.restart();
  EXPECT_EQ(resources.drawnCount(), 0);
  EXPECT_FALSE(resources.itemButtonsEnabled());
  EXPECT_FALSE(board_.Repere.visible);
  EXPECT_EQ(resources.markedResource(), "");
  bookings.restart();
  EXPECT_FALSE(bookings.itemButtonsEnabled());
  EXPECT_EQ(bookings.markedLabel(), -1);
  // Stepping over nothing stays harmless.
  bookings.Avant_Click();
  bookings.Arriere_Click();
  EXPECT_FALSE(board_.Repere.visible);
}

TEST_F(ManualControlTest, TheResourceWalkWrapsAroundBothWaysOverTheDrawnRowsOnly) {
  rooms(3);  // the fourth row is blank
  draw();
  ManualControl walk(board_, ManualControl::Kind::Resources);
  walk.restart();
  EXPECT_EQ(walk.drawnCount(), 3);
  EXPECT_TRUE(board_.Repere.visible);
  EXPECT_EQ(board_.Repere.caption, "Room 1");
  EXPECT_EQ(board_.Repere.rect, frame_.Res_Lib(0));

  walk.Arriere_Click();  // back from the first comes the last
  EXPECT_EQ(walk.index(), 2);
  EXPECT_EQ(walk.markedResource(), "Room 3");
  EXPECT_EQ(board_.Repere.rect, frame_.Res_Lib(2));
  walk.Avant_Click();  // and on from the last, the first
  EXPECT_EQ(walk.markedResource(), "Room 1");
  walk.Avant_Click();
  EXPECT_EQ(board_.Repere.caption, "Room 2");

  walk.Sortir_Click();
  EXPECT_FALSE(board_.Repere.visible);
}

TEST_F(ManualControlTest, AfterAScrollTheMarkerKeepsItsPlaceInTheArray) {
  rooms(6);
  draw();
  ManualControl walk(board_, ManualControl::Kind::Resources);
  walk.restart();
  walk.Avant_Click();
  EXPECT_EQ(board_.Repere.caption, "Room 2");
  board_.VPos = 2;
  board_.Dessiner_Ecran();
  walk.walk();
  EXPECT_EQ(walk.index(), 1);
  EXPECT_EQ(board_.Repere.caption, "Room 4");
  EXPECT_EQ(board_.Repere.rect, frame_.Res_Lib(1));
}

TEST_F(ManualControlTest, TheBookingWalkFollowsTheLabelsAndStartsAgainAfterARedraw) {
  rooms(3);
  planning_.addBooking("Room 1", mar(6), mar(8), "Martin");
  planning_.addBooking("Room 2", mar(9), mar(12), "Petit");
  planning_.addBooking("Room 3", mar(13), mar(20), "Roux");
  draw();
  ASSERT_EQ(board_.LabCount, 3);
  ManualControl walk(board_, ManualControl::Kind::Bookings);
  walk.restart();
  EXPECT_TRUE(walk.itemButtonsEnabled());
  walk.Arriere_Click();
  EXPECT_EQ(walk.markedLabel(), 2);
  EXPECT_EQ(board_.Repere.rect, board_.Lab[2].rect);
  EXPECT_EQ(board_.Repere.caption, board_.Lab[2].text);

  walk.Avant_Click();  // wraps to the first
  walk.Avant_Click();
  ASSERT_EQ(walk.markedLabel(), 1);
  const QString before = board_.Repere.caption;

  // Three days on, the first booking leaves the screen: the marker stays on
  // the second label, whatever booking that now is.
  board_.HPos = 8;
  board_.Dessiner_Ecran();
  ASSERT_EQ(board_.LabCount, 2);
  walk.walk();
  EXPECT_EQ(walk.markedLabel(), 1);
  EXPECT_EQ(board_.Repere.rect, board_.Lab[1].rect);
  EXPECT_EQ(board_.Repere.caption, board_.Lab[1].text);
  EXPECT_NE(board_.Repere.caption, before);

  walk.Avant_Click();
  EXPECT_EQ(walk.markedLabel(), 0);
  walk.restart();
  EXPECT_EQ(walk.markedLabel(), 0);
}

TEST_F(ManualControlTest, TheMarkerOfALabelThatBeganBeforeTheScreenStartsAtTheGrid) {
  rooms(1);
  planning_.addBooking("Room 1", mar(2), mar(8), "Martin");  // from before the 6th
  draw();
  ASSERT_EQ(board_.LabCount, 1);
  ManualControl walk(board_, ManualControl::Kind::Bookings);
  walk.restart();
  const TwipRect& label = board_.Lab[0].rect;
  ASSERT_LT(label.left, frame_.GridLeft());
  EXPECT_EQ(board_.Repere.rect.left, frame_.GridLeft());
  EXPECT_EQ(board_.Repere.rect.left + board_.Repere.rect.width, label.left + label.width);
}

}  // namespace
