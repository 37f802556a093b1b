// The resource popup where it runs: a right press on a resource cell of the
// board widget, the entries it enables, and the row its commands reach once
// the board has scrolled down.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "board/ui/board_widget.h"
#include "board_popups.h"
#include "support/test_board.h"

using namespace ksv;

namespace {

class ResourcePopup : public test::TestBoard {
 protected:
  ResourcePopup() : TestBoard(300) {}

  void show(int rooms) {
    this->rooms(rooms);
    board_.setSession(&planning_.objects());
    widget_ = std::make_unique<BoardWidget>(board_, options_, texts_);
    widget_->resize(1024, 600);
    widget_->setDayRange(300, 9);
    widget_->scrollTo(0, 0);
    widget_->Dessiner_Ecran();
    wireResourcePopup(
        *widget_, [this] { return ResourcePlanning{true, &planning_.db(), &planning_.objects(), &planning_.clock()}; },
        options_, messages_, texts_);
  }

  // Right press on resource row `row`; the popup's entries as "Caption" or
  // "(Caption)" when disabled, and the entry `choose` taken when not empty.
  QStringList press(int row, const QString& choose = QString()) {
    QStringList entries;
    QTimer::singleShot(0, [&] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      QAction* chosen = nullptr;
      for (QAction* a : menu->actions()) {
        entries << (a->isEnabled() ? a->text() : "(" + a->text() + ")");
        if (a->text() == choose) chosen = a;
      }
      if (chosen) menu->setActiveAction(chosen);
      QTest::keyClick(menu, chosen ? Qt::Key_Return : Qt::Key_Escape);
    });
    const QPoint at = widget_->pixels(frame_.Res_Lib(row)).center();
    QTest::mousePress(widget_.get(), Qt::RightButton, {}, at);
    QTest::mouseRelease(widget_.get(), Qt::RightButton, {}, at);
    return entries;
  }

  QStringList order() {
    QStringList names;
    Statement st = planning_.db().prepare("SELECT Resource FROM Resource ORDER BY \"Order\"");
    while (st.step()) names << st.column(0).toString();
    return names;
  }

  std::unique_ptr<BoardWidget> widget_;
};

TEST_F(ResourcePopup, OnABlankRowAddingIsTheOnlyEntry) {
  show(3);
  const QString add = texts_.get(txt::PopupAdd), modify = texts_.get(txt::PopupModify),
                del = texts_.get(txt::PopupDelete), up = texts_.get(txt::PopupUp), down = texts_.get(txt::PopupDown);
  EXPECT_EQ(press(3), (QStringList{add, "(" + modify + ")", "(" + del + ")", "(" + up + ")", "(" + down + ")"}));
  EXPECT_EQ(press(2), (QStringList{add, modify, del, up, down}));
}

TEST_F(ResourcePopup, AfterAVerticalScrollACommandReachesTheRowPressed) {
  show(7);
  widget_->VScroll()->setValue(2);
  ASSERT_EQ(board_.Res_Lib[0].text, "Room 3");
  press(0, texts_.get(txt::PopupDown));
  EXPECT_EQ(order(), (QStringList{"Room 1", "Room 2", "Room 4", "Room 3", "Room 5", "Room 6", "Room 7"}));
  // The board follows, and the next press reaches the row now shown there.
  EXPECT_EQ(board_.Res_Lib[0].text, "Room 4");
  press(3, texts_.get(txt::PopupUp));
  EXPECT_EQ(order(), (QStringList{"Room 1", "Room 2", "Room 4", "Room 3", "Room 6", "Room 5", "Room 7"}));
}

}  // namespace
