#include <gtest/gtest.h>

#include "storage/session_menus.h"

using namespace ksv;

namespace {
QStringList visibleMenus(const MenuModel& m) {
  QStringList out;
  for (const QString& name : m.menus())
    if (m.find(name)->visible) out << name;
  return out;
}
bool enabled(const MenuModel& m, const char* name) { return m.find(name)->enabled; }
}  // namespace

TEST(SessionMenus, EachModeShowsItsOwnBar) {
  MenuModel m = MenuModel::standard();
  const PrincipalState s{"", "/p/Hotel.ksv", false};
  Menus_Consult(m, s);
  EXPECT_EQ(visibleMenus(m), (QStringList{"M_Consulting", "M_View", "M_Tools_C", "M_Aide"}));
  EXPECT_FALSE(enabled(m, "M_Example"));
  Menus_Normal(m, s);
  EXPECT_EQ(visibleMenus(m),
            (QStringList{"M_File", "M_View", "M_Booking", "M_Invoicing", "M_Customers", "M_Tools", "M_Aide"}));
  EXPECT_TRUE(enabled(m, "M_Example"));
}

TEST(SessionMenus, PrincipalEntriesFollowMyPlanning) {
  MenuModel m = MenuModel::standard();
  // The principal planning is another, existing file: it can be opened.
  Menus_Normal(m, {"/p/Main.ksv", "/p/Hotel.ksv", true});
  EXPECT_TRUE(enabled(m, "M_OPen_Main"));
  EXPECT_TRUE(enabled(m, "M_Remember_Main"));
  // It is the open one: nothing to open, nothing to remember.
  Menus_Normal(m, {"/p/Hotel.ksv", "/p/Hotel.ksv", true});
  EXPECT_FALSE(enabled(m, "M_OPen_Main"));
  EXPECT_FALSE(enabled(m, "M_Remember_Main"));
  // It no longer exists.
  Menus_Consult(m, {"/p/Main.ksv", "/p/Hotel.ksv", false});
  EXPECT_FALSE(enabled(m, "M_Consult_Open_Main"));
  EXPECT_TRUE(enabled(m, "M_Consult_Remember_Main"));
}

TEST(SessionMenus, EmptyBoardTakesAwayWhatNeedsAPlanning) {
  MenuModel m = MenuModel::standard();
  const PrincipalState none{"/p/Main.ksv", "", true};
  Menus_Normal(m, none);
  emptyBoardMenus(m, true, none);
  for (const char* e : {"M_Close", "M_Save", "M_Extract", "M_Orlimbrook", "M_Zellatide", "M_Print", "M_View",
                        "M_Booking", "M_Invoicing", "M_Customers", "M_Purge", "M_Trous"})
    EXPECT_FALSE(enabled(m, e)) << e;
  EXPECT_TRUE(enabled(m, "M_CompactRepair"));  // a file that will not open can still be repaired
  EXPECT_TRUE(enabled(m, "M_Taxes"));
  EXPECT_TRUE(enabled(m, "M_OPen_Main"));
  EXPECT_FALSE(enabled(m, "M_Remember_Main"));

  // Opening a planning gives them back.
  Menus_Normal(m, {"/p/Main.ksv", "/p/Hotel.ksv", true});
  EXPECT_TRUE(enabled(m, "M_Close"));
  EXPECT_TRUE(enabled(m, "M_Booking"));

  emptyBoardMenus(m, false, {"", "", false});
  EXPECT_FALSE(enabled(m, "M_CloseConsult"));
  EXPECT_FALSE(enabled(m, "M_Consult_Open_Main"));
}
