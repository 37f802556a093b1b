#include <gtest/gtest.h>

#include "config/ini_file.h"
#include "config/langage.h"
#include "support/temp_folders.h"

using namespace ksv;

TEST(Langage, TheSessionLocaleNamesTheLanguage) {
  EXPECT_EQ(languageFromLocaleName("fr_FR.UTF-8"), Language::Fr);
  EXPECT_EQ(languageFromLocaleName("fr_CA"), Language::Fr);
  EXPECT_EQ(languageFromLocaleName("en_GB.UTF-8"), Language::En);
  EXPECT_EQ(languageFromLocaleName("de_DE.UTF-8"), std::nullopt);
  EXPECT_EQ(languageFromLocaleName("C.UTF-8"), std::nullopt);
  EXPECT_EQ(languageFromLocaleName(""), std::nullopt);
}

TEST(Langage, EachChoiceSpeaksItsOwnLanguageAndOkWritesIt) {
  test::TempFolders folders;
  IniFile ini(folders.paths().iniFile());
  LangagePresenter dialog(ini);
  EXPECT_EQ(dialog.caption(), "Language");
  EXPECT_EQ(dialog.okCaption(), "&Yes");
  dialog.Francais_Click();
  EXPECT_EQ(dialog.caption(), "Langue");
  EXPECT_EQ(dialog.okCaption(), "&Oui");
  EXPECT_EQ(dialog.OK_Click(), 1000);
  EXPECT_EQ(ini.GetValue("Remember", "Language"), "Fr");
  dialog.English_Click();
  EXPECT_EQ(dialog.OK_Click(), 0);
  EXPECT_EQ(ini.GetValue("Remember", "Language"), "En");
}
