#include <gtest/gtest.h>

#include "config/ini_defaults.h"
#include "config/ini_file.h"
#include "core/texts.h"
#include "config/access_check.h"
#include "config/access_code.h"
#include "net/pass_word.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;

TEST(Scramble, TheWorkedExampleAndRoundTrips) {
  EXPECT_EQ(Scramble("abc", "dog"), "050D04");
  EXPECT_EQ(Unscramble("abc", "050D04"), "dog");
  EXPECT_EQ(Unscramble("abc", "050d04"), "dog") << "lower-case digits read too";
  // The key word is taken cyclically from its first letter.
  EXPECT_EQ(Scramble("ab", "aaaa"), "00030003");
  for (const QString& code : {QString("NilPin"), QString("Secret 2024"), QString::fromUtf8("Hôtel€"),
                              QString(40, 'z')}) {
    const QString stored = Scramble(kKeyAccesPlanning, code);
    EXPECT_EQ(stored.size(), code.size() * 2);
    EXPECT_NE(stored, Scramble(kKeyAccesOptions, code));
    EXPECT_EQ(Unscramble(kKeyAccesPlanning, stored), code);
  }
}

TEST(Scramble, DamagedValuesReadEmptyAndAnOddDigitIsLeftOut) {
  EXPECT_EQ(Unscramble("abc", ""), "");
  EXPECT_EQ(Unscramble("abc", "05ZZ04"), "");
  EXPECT_EQ(Unscramble("abc", "NilPin"), "");
  EXPECT_EQ(Unscramble("abc", "050D0"), "do");
  EXPECT_EQ(Unscramble("abc", "5"), "");
  EXPECT_EQ(Unscramble("abc", "050D0G"), "") << "a last half that is no digit is damage";
}

TEST(AccessCode, AskedOnlyWhenACodeIsSet) {
  test::TempFolders folders;
  IniFile ini(folders.paths().iniFile());
  writeDefaultIni(ini, QDate(2024, 3, 15));
  int shown = 0;
  QString expected;
  auto show = [&](const QString& code) {
    ++shown;
    expected = code;
    return code == "Open";
  };
  EXPECT_TRUE(askAccessCode(ini, AccessCode::Options, show));
  EXPECT_EQ(shown, 0) << "the marker means no code";

  ini.SetValue("Security", "AccesOptions", Scramble(kKeyAccesOptions, "Open"));
  EXPECT_TRUE(askAccessCode(ini, AccessCode::Options, show));
  EXPECT_EQ(expected, "Open");
  EXPECT_TRUE(askAccessCode(ini, AccessCode::Planning, show)) << "each code under its own key";
  EXPECT_EQ(shown, 1);

  // A code scrambled with the other key word is not the code.
  ini.SetValue("Security", "AccesOptions", Scramble(kKeyAccesPlanning, "Open"));
  EXPECT_FALSE(askAccessCode(ini, AccessCode::Options, show));

  // The start asks for the planning's code only when one is set.
  EXPECT_TRUE(codeIsSet("Open"));
  EXPECT_FALSE(codeIsSet("NilPin"));
  EXPECT_FALSE(codeIsSet(""));
}

TEST(AccessCode, DamagedOptionsAreResetAtStartKeepingTheLanguage) {
  test::TempFolders folders;
  test::ScriptedMessages messages;
  IniFile ini(folders.paths().iniFile());
  writeDefaultIni(ini, QDate(2024, 3, 15));
  ini.SetValue("Remember", "Language", "Fr");
  ini.SetValue("Remember", "Version", "5.20");
  ini.SetValue("Remember", "LastFile", "/srv/a.ksv");
  ini.SetValue("Reservation", "Grid", "PF");

  ini.SetValue("Security", "AccesPlanning", "");  // empty is damage, not "no code"
  const QString code = accesPlanningAtStart(ini, QDate(2024, 3, 16), messages, Texts(kFrenchOffset));
  EXPECT_EQ(code, "NilPin");
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().text, Texts(kFrenchOffset).get(txt::OptionsDamaged));
  EXPECT_EQ(messages.last().icon, MsgIcon::Critical);
  EXPECT_EQ(ini.GetValue("Reservation", "Grid"), "LB");
  EXPECT_EQ(ini.GetValue("Remember", "LastFile"), "");
  EXPECT_EQ(ini.GetValue("Remember", "BoardOrigin"), "240316");
  EXPECT_EQ(ini.GetValue("Remember", "Language"), "Fr");
  EXPECT_EQ(ini.GetValue("Remember", "Version"), "5.20");

  // A sound code is handed back as it is, with no message.
  messages.clear();
  ini.SetValue("Security", "AccesPlanning", Scramble(kKeyAccesPlanning, "Front desk"));
  EXPECT_EQ(accesPlanningAtStart(ini, QDate(2024, 3, 16), messages, Texts(0)), "Front desk");
  EXPECT_TRUE(messages.shown().empty());
}

TEST(PassWord, OneCaseSensitiveTryWithoutMessage) {
  PassWordPresenter right("Secret");
  right.Code = "Secret";
  right.OK_Click();
  EXPECT_TRUE(right.Result);
  EXPECT_TRUE(right.closed());

  PassWordPresenter wrongCase("Secret");
  wrongCase.Code = "secret";
  wrongCase.Code_KeyPress(13);  // Enter acts as OK
  EXPECT_FALSE(wrongCase.Result);
  EXPECT_TRUE(wrongCase.closed()) << "no second try";

  PassWordPresenter other("Secret");
  other.Code = "Secret";
  other.Code_KeyPress('a');
  EXPECT_FALSE(other.closed());
  other.Cancel_Click();
  EXPECT_FALSE(other.Result);
  EXPECT_TRUE(other.closed());
}

TEST(PassWord, TheMaskShowsDollarsOnly) {
  PassWordPresenter p("x");
  p.Code = "abc d";
  EXPECT_EQ(p.displayedCode(), "abc d");
  p.MP = true;
  EXPECT_EQ(p.displayedCode(), "$$$$$");
  EXPECT_EQ(p.Code, "abc d");
}
