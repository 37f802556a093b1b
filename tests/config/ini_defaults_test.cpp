#include <gtest/gtest.h>

#include <map>

#include <QRegularExpression>

#include "config/ini_file.h"
#include "config/update_ini.h"
#include "core/texts.h"
#include "config/access_code.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;

namespace {
const QDate kToday(2024, 3, 15);
}

// The first-run file holds exactly the keys of the option tables with their
// first-run values: written out here from the tables, not from the code.
TEST(NewInstallation, WritesExactlyTheFirstRunOptions) {
  test::TempFolders folders;
  test::ScriptedMessages messages;
  const UpdateIniResult r = UpdateIni(folders.paths(), "5.20", QString(), kToday, messages, Texts(0));
  EXPECT_TRUE(r.firstRun);
  EXPECT_TRUE(r.ok);
  EXPECT_TRUE(messages.shown().empty());

  const QString planPin = Scramble(kKeyAccesPlanning, "NilPin");
  const QString optPin = Scramble(kKeyAccesOptions, "NilPin");
  const QString webPin = Scramble(kKeyWebPassword, "NilPin");
  std::map<QString, std::map<QString, QString>> expected = {
      {"Remember",
       {{"Version", "5.20"}, {"LastFile", ""}, {"BoardOrigin", "240315"}, {"RegionalSetting", "O"},
        {"BackColor", "16761087\\16744703\\13434879\\8454143\\62708\\"}, {"ForeColor", "NNNNN"},
        {"SchedulePeriod", "\\\\\\\\\\\\"}, {"Border", "O"}, {"BookingBorder", "O"}, {"AvailableBorder", "O"},
        {"AvailableColor", "O"}, {"Manual", "N"}, {"AutoCompact", "240315"}, {"Reset", "31150324"},
        {"CheckGroupDate", "O"}}},
      {"Security",
       {{"AccesPlanning", planPin}, {"AccesOptions", optPin}, {"LockMode", "N"}, {"LockDate", "O"},
        {"LockInvoice", "O"}, {"LockDelete", "O"}, {"TimeoutFTP", "3"}}},
      {"Reservation",
       {{"WithFrame", "N"}, {"YearKeep", "3"},
        {"Libelle", "Information\\Reservation\\Confirmation\\VIP\\In reserve\\In Use\\"},
        {"BackColor", "65280\\16576\\16711935\\16711680\\65535\\255\\"}, {"ForeColor", "NOOONO"}, {"Grid", "LB"},
        {"Updating", "O"}, {"RefreshScreen", "O"}, {"NbSecond", "30"}}},
      {"Alarm",
       {{"WkEnd", "O"}, {"RayePast", "O"}, {"NbDays", "0\\0\\0\\0\\"}, {"Printing", "OONNO"}, {"Extension", "N"}}},
      {"Resource",
       {{"Categorie", "Suite\\Mini suite\\Studio luxe\\Studio\\Standard\\Simple\\"},
        {"ColorCategorie", "32768\\128\\10420383\\10485760\\65535\\202\\"}, {"ColorLibelle", "OOOONO"}}},
      {"Company",
       {{"HeaderType", "I"}, {"PrintedHeight", "1"}, {"Id1", "Kestrovane"}, {"Id2", ""},
        {"Id3", QString::fromUtf8("Reservation software      Logiciel de réservation")}, {"Id4", ""}, {"Id5", ""},
        {"Id6", ""}, {"IdBold", "ONONNNN"}, {"IdAlign", "C"}, {"IdBord", "O"}, {"VrfA4", "O"},
        {"Symbol", "B"}, {"SymbolBefore", "N"}, {"NbDecimal", "0"}, {"OnlyIfDecExist", "N"},
        {"BeginPeriod", "240315"}, {"Stopgap", "N"}, {"UseGroups", "O"}, {"LockGroups", "N"}, {"PrintGroups", "O"}}},
  };
  for (const char* service : {"Orlimbrook", "Zellatide"})
    expected[service] = {{"UserNameF", ""}, {"PasswordF", webPin}, {"NbDays", ""},    {"Server", ""},
                         {"UserNameC", ""}, {"PasswordC", webPin}, {"Verify", "N"}, {"Directory", ""}};

  IniFile ini(folders.paths().iniFile());
  for (const auto& [section, keys] : expected) {
    QStringList inFile = ini.keys(section);
    // Free values: a contact line and a place, the place ending in ", ".
    if (section == "Company") {
      EXPECT_FALSE(ini.GetValue(section, "Id7").isEmpty());
      EXPECT_TRUE(ini.readText().contains(QRegularExpression("\\r\\nPlace=[^\\r]+, \\r\\n")));
      inFile.removeAll("Id7");
      inFile.removeAll("Place");
    }
    QStringList wanted;
    for (const auto& [key, value] : keys) {
      wanted << key;
      EXPECT_EQ(ini.GetValue(section, key, "<absent>"), value) << section.toStdString() << "/" << key.toStdString();
    }
    inFile.sort();
    wanted.sort();
    EXPECT_EQ(inFile, wanted) << section.toStdString();
  }
  EXPECT_TRUE(ini.keys("ScreenDrawing").isEmpty()) << "the frame is the options dialog's to write";
  EXPECT_EQ(ini.GetValue("Remember", "Language", "<absent>"), "<absent>") << "the language is asked later";
  // The marker decodes under its own key.
  EXPECT_EQ(Unscramble(kKeyAccesPlanning, ini.GetValue("Security", "AccesPlanning")), "NilPin");
  EXPECT_EQ(Unscramble(kKeyAccesOptions, ini.GetValue("Security", "AccesOptions")), "NilPin");
}
