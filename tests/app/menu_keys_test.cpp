// The keys of the main entries reach the entry of the bar in force, whichever
// mode shows it.
#include <gtest/gtest.h>

#include <QTest>

#include "main_window.h"

using namespace ksv;

TEST(MenuKeys, EachKeyRunsTheEntryOfTheBarShown) {
  Texts texts(0);
  MainWindow w(texts);
  QStringList ran;
  for (const char* entry : {"M_OPen", "M_OpenConsult", "M_Print", "M_Exit", "M_ExitConsult"})
    w.setHandler(entry, [&ran, entry] { ran << entry; });
  w.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&w));
  auto keys = [&w] {
    for (Qt::Key k : {Qt::Key_O, Qt::Key_P, Qt::Key_Q}) QTest::keyClick(&w, k, Qt::ControlModifier);
  };
  keys();
  EXPECT_EQ(ran, (QStringList{"M_OPen", "M_Print", "M_Exit"}));

  // Consultation: its own bar, and no printing there.
  ran.clear();
  w.menuModel().setVisible("M_File", false);
  w.menuModel().setVisible("M_Consulting", true);
  w.applyMenus();
  keys();
  EXPECT_EQ(ran, (QStringList{"M_OpenConsult", "M_ExitConsult"}));
}
