#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "core/ui/qt_messages.h"
#include "main_window.h"

using namespace ksv;

TEST(MainWindow, StartsTitledWithTheNormalBar) {
  Texts texts(0);
  MainWindow w(texts);
  w.show();
  EXPECT_EQ(w.windowTitle(), "Kestrovane");
  // Entries without a handler are disabled; exit works.
  EXPECT_FALSE(w.action("M_New")->isEnabled());
  ASSERT_TRUE(w.action("M_Exit")->isEnabled());
  w.action("M_Exit")->trigger();
  EXPECT_FALSE(w.isVisible());
}

TEST(MainWindow, CaptionsFollowTheLanguage) {
  Texts texts(kFrenchOffset);
  MainWindow w(texts);
  EXPECT_EQ(w.menu("M_File")->title(), "&Fichier");
  EXPECT_EQ(w.action("M_Exit")->text(), "&Quitter");
}

TEST(MainWindow, ModelChangesReachTheBar) {
  Texts texts(0);
  MainWindow w(texts);
  w.setHandler("M_Close", [] {});
  EXPECT_TRUE(w.action("M_Close")->isEnabled());
  w.menuModel().setEnabled("M_Close", false);
  w.menuModel().setVisible("M_Consulting", true);
  w.applyMenus();
  EXPECT_FALSE(w.action("M_Close")->isEnabled());
  EXPECT_TRUE(w.menu("M_Consulting")->menuAction()->isVisible());
}

TEST(QtMessages, TitleButtonsAndPreselectedDefault) {
  Texts texts(kFrenchOffset);
  QtMessages messages(nullptr, texts);
  QString title, defaultCaption;
  QStringList captions;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    title = box->windowTitle();
    for (QAbstractButton* b : box->buttons()) captions << b->text();
    defaultCaption = box->defaultButton()->text();
    box->defaultButton()->click();
  });
  const MsgAnswer a = messages.show("Supprimer ?", MsgButtons::YesNo, MsgIcon::Question, MsgAnswer::No);
  EXPECT_EQ(a, MsgAnswer::No);
  EXPECT_EQ(title, "Kestrovane");
  EXPECT_TRUE(captions.contains("&Oui"));
  EXPECT_TRUE(captions.contains("&Non"));
  EXPECT_EQ(defaultCaption, "&Non");
}
