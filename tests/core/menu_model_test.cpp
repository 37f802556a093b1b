#include <gtest/gtest.h>

#include <set>

#include "core/menu_model.h"

using namespace ksv;

TEST(MenuModel, TheNormalBarAndTheHiddenConsultationBar) {
  const MenuModel m = MenuModel::standard();
  EXPECT_EQ(m.menus(), (QStringList{"M_Consulting", "M_File", "M_View", "M_Booking", "M_Invoicing", "M_Customers",
                                    "M_Tools", "M_Tools_C", "M_Aide"}));
  for (const char* hidden : {"M_Consulting", "M_Tools_C"}) EXPECT_FALSE(m.find(hidden)->visible);
  for (const char* shown : {"M_File", "M_View", "M_Booking", "M_Invoicing", "M_Customers", "M_Tools", "M_Aide"})
    EXPECT_TRUE(m.find(shown)->visible);
}

TEST(MenuModel, NamesAreUniqueAndCaptionsExist) {
  const MenuModel m = MenuModel::standard();
  std::set<QString> names;
  for (const MenuEntry& e : m.entries()) {
    EXPECT_TRUE(names.insert(e.name).second) << e.name.toStdString();
    EXPECT_FALSE(Texts(0).get(e.text).isEmpty()) << e.name.toStdString();
    if (!e.parent.isEmpty()) {
      EXPECT_NE(m.find(e.parent), nullptr);
    }
  }
  // Every command the session names has its entry.
  for (const char* n : {"M_OPen", "M_OpenConsult", "M_OPen_Main", "M_Consult_Open_Main", "M_Remember_Main",
                        "M_Consult_Remember_Main", "M_Close", "M_CloseConsult", "M_UpdateToConsult",
                        "M_ConsultToUpdate", "M_Exit", "M_ExitConsult", "M_Memorize", "M_Restore", "M_Example"})
    EXPECT_NE(m.find(n), nullptr) << n;
}

TEST(MenuModel, StateChangesStick) {
  MenuModel m = MenuModel::standard();
  m.setEnabled("M_Close", false);
  m.setVisible("M_File", false);
  m.setChecked("M_Availability", true);
  m.setEnabled("M_NoSuchEntry", false);  // ignored
  EXPECT_FALSE(m.find("M_Close")->enabled);
  EXPECT_FALSE(m.find("M_File")->visible);
  EXPECT_TRUE(m.find("M_Availability")->checked);
}
