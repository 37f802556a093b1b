// The manual control panels over a real board widget.
#include "board/ui/manual_control_panel.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "board/screen_description.h"
#include "board/ui/board_widget.h"
#include "config/charger_param.h"
#include "config/ini_file.h"
#include "core/regional.h"
#include "core/texts.h"
#include "support/scripted_messages.h"
#include "support/test_planning.h"

using namespace ksv;

namespace {

class ManualPanelTest : public ::testing::Test {
 protected:
  ManualPanelTest()
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
  // Which buttons of a panel can be pressed, by caption.
  static QStringList enabled(const ManualControlPanel& p) {
    QStringList out;
    for (const QPushButton* b : p.findChildren<QPushButton*>())
      if (b->isEnabled()) out << b->text();
    out.sort();
    return out;
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

TEST_F(ManualPanelTest, OnAnEmptyScreenOnlyTheNewButtonsAndExitRemain) {
  drawing_.setSession(&planning_.objects());
  BoardWidget board(drawing_, options_, texts_);
  board.Dessiner_Ecran();
  QPointer<ManualControlPanel> r = ManualControlPanel::ResourceControl(
      board, texts_, {[] {}, [](int) {}, [](int) {}}, nullptr);
  EXPECT_EQ(r->windowTitle(), "Kestrovane [Resource control]");
  EXPECT_EQ(enabled(*r), (QStringList{"&New resource", "E&xit"}));
  QPointer<ManualControlPanel> b = ManualControlPanel::BookingControl(board, texts_, {[] {}, [](int) {}}, nullptr);
  EXPECT_EQ(b->windowTitle(), "Kestrovane [Booking control]");
  EXPECT_EQ(enabled(*b), (QStringList{"&New booking", "E&xit"}));
  EXPECT_FALSE(drawing_.Repere.visible);
  r->close();
  b->close();
}

TEST_F(ManualPanelTest, TheResourcePanelActsOnTheMarkedRowAndFollowsAScroll) {
  for (int i = 1; i <= 6; ++i) planning_.addResource(QString("Room %1").arg(i), 0, 2 * i - 1);
  drawing_.setSession(&planning_.objects());
  BoardWidget board(drawing_, options_, texts_);
  board.resize(1024, 600);
  board.Dessiner_Ecran();
  board.VScroll()->setMaximum(drawing_.vScrollMax);
  int modified = -1, added = 0;
  QPointer<ManualControlPanel> r = ManualControlPanel::ResourceControl(
      board, texts_, {[&] { ++added; }, [&](int row) { modified = row; }, nullptr}, nullptr);
  // No delete hook: that button stays off.
  EXPECT_EQ(enabled(*r), (QStringList{"&Modify", "&New resource", "&Next >>", "<< &Previous", "E&xit"}));
  EXPECT_TRUE(drawing_.Repere.visible);
  EXPECT_EQ(drawing_.Repere.caption, "Room 1");

  r->Avant->click();
  r->actions[1]->click();
  EXPECT_EQ(modified, 1);
  EXPECT_EQ(drawing_.Repere.caption, "Room 2");

  board.VScroll()->setValue(2);
  EXPECT_EQ(drawing_.Repere.caption, "Room 4");

  r->actions[0]->click();
  EXPECT_EQ(added, 1);
  EXPECT_EQ(r->walker().index(), 0);

  r->Sortir->click();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(r.isNull());
  EXPECT_FALSE(drawing_.Repere.visible);
}

TEST_F(ManualPanelTest, OpenHandsTheMarkedLabelOver) {
  planning_.addResource("Room 1", 0, 1);
  planning_.addResource("Room 2", 0, 3);
  planning_.addBooking("Room 1", QDate(2025, 3, 2), QDate(2025, 3, 4), "Martin");
  planning_.addBooking("Room 2", QDate(2025, 3, 5), QDate(2025, 3, 7), "Petit");
  drawing_.setSession(&planning_.objects());
  BoardWidget board(drawing_, options_, texts_);
  board.Dessiner_Ecran();
  ASSERT_EQ(drawing_.LabCount, 2);
  int opened = -1;
  QPointer<ManualControlPanel> b =
      ManualControlPanel::BookingControl(board, texts_, {nullptr, [&](int label) { opened = label; }}, nullptr);
  EXPECT_EQ(enabled(*b), (QStringList{"&Next >>", "&Open", "<< &Previous", "E&xit"}));
  b->Arriere->click();
  EXPECT_EQ(drawing_.Repere.rect, drawing_.Lab[1].rect);
  b->actions[1]->click();
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(b->walker().index(), 0);  // the walk starts again after opening

  // Escape closes without a close event: the marker goes all the same.
  b->show();
  QTest::keyClick(b, Qt::Key_Escape);
  EXPECT_FALSE(b->isVisible());
  EXPECT_FALSE(drawing_.Repere.visible);
  board.Dessiner_Ecran();
  EXPECT_FALSE(drawing_.Repere.visible) << "a redraw before the panel is deleted";
}

TEST_F(ManualPanelTest, AnyRedrawMovesTheMarkerOntoTheLabelNowAtItsIndex) {
  planning_.addResource("Room 1", 0, 1);
  planning_.addResource("Room 2", 0, 3);
  planning_.addBooking("Room 1", QDate(2025, 3, 5), QDate(2025, 3, 7), "Martin");
  planning_.addBooking("Room 2", QDate(2025, 3, 5), QDate(2025, 3, 7), "Petit");
  drawing_.setSession(&planning_.objects());
  BoardWidget board(drawing_, options_, texts_);
  board.Dessiner_Ecran();
  QPointer<ManualControlPanel> b = ManualControlPanel::BookingControl(board, texts_, {[] {}, [](int) {}}, nullptr);
  b->Avant->click();
  const QString marked = drawing_.Repere.caption;

  // A booking made elsewhere (a dialog, a drop, another station) and drawn.
  planning_.addBooking("Room 1", QDate(2025, 3, 2), QDate(2025, 3, 4), "Abel");
  board.Dessiner_Ecran();
  ASSERT_EQ(drawing_.LabCount, 3);
  ASSERT_NE(drawing_.Lab[1].text, marked) << "the array must have moved under the marker";
  EXPECT_EQ(b->walker().index(), 1);
  EXPECT_EQ(drawing_.Repere.caption, drawing_.Lab[1].text);
  EXPECT_EQ(drawing_.Repere.rect, drawing_.Lab[1].rect);

  board.eraseBoard();
  EXPECT_FALSE(drawing_.Repere.visible);
  EXPECT_FALSE(b->Avant->isEnabled());
  b->close();
}

}  // namespace
