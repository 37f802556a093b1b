// The manual control panels over a real board widget.
#include "board/ui/manual_control_panel.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "board/ui/board_widget.h"
#include "core/texts.h"
#include "support/test_board.h"

using namespace ksv;

namespace {

class ManualPanelTest : public test::TestBoard {
 protected:
  ManualPanelTest() : TestBoard(300) {}
  // Which buttons of a panel can be pressed, by caption.
  static QStringList enabled(const ManualControlPanel& p) {
    QStringList out;
    for (const QPushButton* b : p.findChildren<QPushButton*>())
      if (b->isEnabled()) out << b->text();
    out.sort();
    return out;
  }
};

TEST_F(ManualPanelTest, TheResourcePanelActsOnTheMarkedRowAndFollowsAScroll) {
  for (int i = 1; i <= 6; ++i) planning_.addResource(QString("Room %1").arg(i), 0, 2 * i - 1);
  board_.setSession(&planning_.objects());
  BoardWidget board(board_, options_, texts_);
  board.resize(1024, 600);
  board.Dessiner_Ecran();
  board.VScroll()->setMaximum(board_.vScrollMax);
  int modified = -1, added = 0;
  QPointer<ManualControlPanel> r = ManualControlPanel::ResourceControl(
      board, texts_, {[&] { ++added; }, [&](int row) { modified = row; }, nullptr}, nullptr);
  // No delete hook: that button stays off.
  EXPECT_EQ(enabled(*r), (QStringList{"&Modify", "&New resource", "&Next >>", "<< &Previous", "E&xit"}));
  EXPECT_TRUE(board_.Repere.visible);
  EXPECT_EQ(board_.Repere.caption, "Room 1");

  r->Avant->click();
  r->actions[1]->click();
  EXPECT_EQ(modified, 1);
  EXPECT_EQ(board_.Repere.caption, "Room 2");

  board.VScroll()->setValue(2);
  EXPECT_EQ(board_.Repere.caption, "Room 4");

  r->actions[0]->click();
  EXPECT_EQ(added, 1);
  EXPECT_EQ(r->walker().index(), 0);

  r->Sortir->click();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(r.isNull());
  EXPECT_FALSE(board_.Repere.visible);
}

TEST_F(ManualPanelTest, OpenHandsTheMarkedLabelOver) {
  planning_.addResource("Room 1", 0, 1);
  planning_.addResource("Room 2", 0, 3);
  planning_.addBooking("Room 1", QDate(2025, 3, 2), QDate(2025, 3, 4), "Martin");
  planning_.addBooking("Room 2", QDate(2025, 3, 5), QDate(2025, 3, 7), "Petit");
  board_.setSession(&planning_.objects());
  BoardWidget board(board_, options_, texts_);
  board.Dessiner_Ecran();
  ASSERT_EQ(board_.LabCount, 2);
  int opened = -1;
  QPointer<ManualControlPanel> b =
      ManualControlPanel::BookingControl(board, texts_, {nullptr, [&](int label) { opened = label; }}, nullptr);
  EXPECT_EQ(enabled(*b), (QStringList{"&Next >>", "&Open", "<< &Previous", "E&xit"}));
  b->Arriere->click();
  EXPECT_EQ(board_.Repere.rect, board_.Lab[1].rect);
  b->actions[1]->click();
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(b->walker().index(), 0);  // the walk starts again after opening

  // Escape closes without a close event: the marker goes all the same.
  b->show();
  QTest::keyClick(b, Qt::Key_Escape);
  EXPECT_FALSE(b->isVisible());
  EXPECT_FALSE(board_.Repere.visible);
  board.Dessiner_Ecran();
  EXPECT_FALSE(board_.Repere.visible) << "a redraw before the panel is deleted";
}

TEST_F(ManualPanelTest, AnyRedrawMovesTheMarkerOntoTheLabelNowAtItsIndex) {
  planning_.addResource("Room 1", 0, 1);
  planning_.addResource("Room 2", 0, 3);
  planning_.addBooking("Room 1", QDate(2025, 3, 5), QDate(2025, 3, 7), "Martin");
  planning_.addBooking("Room 2", QDate(2025, 3, 5), QDate(2025, 3, 7), "Petit");
  board_.setSession(&planning_.objects());
  BoardWidget board(board_, options_, texts_);
  board.Dessiner_Ecran();
  QPointer<ManualControlPanel> b = ManualControlPanel::BookingControl(board, texts_, {[] {}, [](int) {}}, nullptr);
  b->Avant->click();
  const QString marked = board_.Repere.caption;

  // A booking made elsewhere (a dialog, a drop, another station) and drawn.
  planning_.addBooking("Room 1", QDate(2025, 3, 2), QDate(2025, 3, 4), "Abel");
  board.Dessiner_Ecran();
  ASSERT_EQ(board_.LabCount, 3);
  ASSERT_NE(board_.Lab[1].text, marked) << "the array must have moved under the marker";
  EXPECT_EQ(b->walker().index(), 1);
  EXPECT_EQ(board_.Repere.caption, board_.Lab[1].text);
  EXPECT_EQ(board_.Repere.rect, board_.Lab[1].rect);

  board.eraseBoard();
  EXPECT_FALSE(board_.Repere.visible);
  EXPECT_FALSE(b->Avant->isEnabled());
  b->close();
}

}  // namespace
