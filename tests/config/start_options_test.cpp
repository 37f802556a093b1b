#include <gtest/gtest.h>

#include "config/ini_file.h"
#include "config/start_options.h"
#include "core/clock.h"
#include "config/access_code.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;

namespace {

class StartOptionsTest : public ::testing::Test {
 protected:
  StartOptionsResult start(std::optional<Language> installer) {
    StartOptionsHooks hooks{"5.20", QString(), [installer] { return installer; },
                            [this] { ++asked; return Language::Fr; },
                            [this](const QString& code) { codes << code; return code == typed; }};
    return startOptions(folders.paths(), clock, messages, texts, hooks);
  }
  test::TempFolders folders;
  FixedClock clock{QDate(2024, 3, 15)};
  test::ScriptedMessages messages;
  Texts texts{0};
  IniFile ini{folders.paths().iniFile()};
  int asked = 0;
  QStringList codes;
  QString typed;
};

}  // namespace

TEST_F(StartOptionsTest, AFirstRunTakesTheInstallersLanguageOrAsks) {
  StartOptionsResult r = start(Language::En);
  EXPECT_TRUE(r.firstRun && r.proceed);
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(ini.GetValue("Remember", "Language"), "En");
  EXPECT_TRUE(codes.isEmpty()) << "a new file sets no code";

  QFile::remove(ini.path());
  r = start(std::nullopt);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(r.textOffset, 1000);
  EXPECT_EQ(texts.offset(), 1000);
  EXPECT_EQ(ini.GetValue("Remember", "Language"), "Fr");

  // A later run reads the language and asks nothing.
  r = start(Language::En);
  EXPECT_FALSE(r.firstRun);
  EXPECT_EQ(r.textOffset, 1000);
  EXPECT_EQ(asked, 1);
}

TEST_F(StartOptionsTest, TheCodeOfThePlanningIsAskedOnce) {
  start(Language::En);
  ini.SetValue("Security", "AccesPlanning", Scramble(kKeyAccesPlanning, "Desk"));
  typed = "desk";
  EXPECT_FALSE(start(Language::En).proceed);
  typed = "Desk";
  EXPECT_TRUE(start(Language::En).proceed);
  EXPECT_EQ(codes, (QStringList{"Desk", "Desk"}));

  // Damaged: reset with its message, then no code.
  ini.SetValue("Security", "AccesPlanning", "garbage");
  EXPECT_TRUE(start(Language::En).proceed);
  EXPECT_EQ(messages.texts(), QStringList{texts.get(txt::OptionsDamaged)});
  EXPECT_EQ(ini.GetValue("Remember", "Language"), "En");
}
