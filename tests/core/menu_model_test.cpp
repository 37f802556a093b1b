#include <gtest/gtest.h>

#include <set>

#include "core/menu_model.h"

using namespace ksv;

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
