#include <gtest/gtest.h>

#include "config/charger_param.h"
#include "config/ini_defaults.h"
#include "config/ini_file.h"
#include "config/option_reader.h"
#include "core/clock.h"
#include "support/temp_folders.h"

using namespace ksv;

namespace {

class ChargerParamTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(writeDefaultIni(ini, clock.today()));
    ini.SetValue("Remember", "Language", "En");
  }
  test::TempFolders folders;
  FixedClock clock{QDate(2024, 3, 15)};
  IniFile ini{folders.paths().iniFile()};
};

}  // namespace

TEST_F(ChargerParamTest, AFreshFileGivesTheFirstRunOptions) {
  // One value of each kind of reading from the file a first run writes.
  const LoadedOptions o = Charger_Param(ini, clock);
  EXPECT_EQ(o.language, Language::En);
  EXPECT_EQ(o.textOffset, 0);
  EXPECT_EQ(o.boardOrigin, QDate(2024, 3, 15));
  EXPECT_EQ(o.SchedulePeriod, QStringList(6, QString()));
  EXPECT_TRUE(o.autoCompactSet);
  EXPECT_EQ(o.AutoCompact, QDate(2024, 3, 15));
  EXPECT_FALSE(o.LockMode);
  EXPECT_EQ(o.YearKeep, 3);
  EXPECT_TRUE(o.gridSolid);
  EXPECT_FALSE(o.gridInFront);
  EXPECT_EQ(o.RefreshScreen, "N") << "a station in normal mode never refreshes by itself";
  EXPECT_EQ(o.refreshInterval(), 30000);
  EXPECT_EQ(o.NbDaysDate[3], QDate(2024, 3, 15));
  EXPECT_FALSE(o.orlimbrookVisible || o.zellatideVisible);
}

TEST_F(ChargerParamTest, ALostKeyComesBackWithTheReadersDefaultNotTheFirstRunOne) {
  ini.DeleteKey("Reservation", "Libelle");
  ini.DeleteKey("Resource", "Categorie");
  ini.DeleteKey("Resource", "ColorLibelle");
  ini.SetValue("Reservation", "Grid", "");  // an empty value is a value not yet set
  ini.DeleteKey("Alarm", "Printing");
  const LoadedOptions o = Charger_Param(ini, clock);
  EXPECT_EQ(o.Libelle, QStringList(6, QString()));
  EXPECT_EQ(o.Categorie, QStringList(6, QString()));
  EXPECT_EQ(o.CategoryFore[0], kBlack) << "NOOONO: the first category now has dark text";
  // Each repair is in the file at once.
  EXPECT_EQ(ini.GetValue("Reservation", "Libelle"), "\\\\\\\\\\\\");
  EXPECT_EQ(ini.GetValue("Resource", "Categorie"), "\\\\\\\\\\\\");
  EXPECT_EQ(ini.GetValue("Resource", "ColorLibelle"), "NOOONO");
  EXPECT_EQ(ini.GetValue("Reservation", "Grid"), "LB");
  // The alarm window's own reading of a lost Printing, which is not the first-run value.
  EXPECT_EQ(ini.GetValue("Alarm", "Printing", "<absent>"), "<absent>") << "Charger_Param does not read it";
  EXPECT_EQ(readAlarmPrinting(ini), "OONNN");
  EXPECT_EQ(ini.GetValue("Alarm", "Printing"), "OONNN");
}

TEST_F(ChargerParamTest, AMissingFileIsRebuiltByTheReadsItMakes) {
  QFile::remove(ini.path());
  const LoadedOptions o = Charger_Param(ini, clock);
  EXPECT_EQ(o.Updating, "O");
  EXPECT_EQ(o.DayBack[4], 62708u);
  EXPECT_EQ(ini.GetValue("Remember", "Language"), "En");
  EXPECT_EQ(ini.GetValue("Reservation", "NbSecond"), "30");
  EXPECT_EQ(ini.GetValue("Remember", "AutoCompact", "<absent>"), "<absent>") << "an empty AutoCompact is not written";
  EXPECT_FALSE(o.autoCompactSet);
}

TEST_F(ChargerParamTest, AnEmptyAutoCompactPutsTheNextCompactionAMonthAway) {
  ini.SetValue("Remember", "AutoCompact", "");
  const LoadedOptions o = Charger_Param(ini, clock);
  EXPECT_FALSE(o.autoCompactSet);
  EXPECT_EQ(o.AutoCompact, QDate(2024, 4, 15));
  EXPECT_EQ(ini.GetValue("Remember", "AutoCompact", "<absent>"), "") << "nothing is written";
  ini.SetValue("Remember", "AutoCompact", "240301");
  EXPECT_EQ(Charger_Param(ini, clock).AutoCompact, QDate(2024, 3, 1));
}

TEST_F(ChargerParamTest, TheOldLockPlanningKeyIsConvertedOnce) {
  ini.SetValue("Security", "LockPlanning", "O");
  ini.SetValue("Security", "LockMenu", "O");
  LoadedOptions o = Charger_Param(ini, clock);
  EXPECT_EQ(o.Updating, "N");
  EXPECT_TRUE(o.LockMode);
  EXPECT_FALSE(ini.hasKey("Security", "LockPlanning"));
  EXPECT_FALSE(ini.hasKey("Security", "LockMenu"));

  ini.SetValue("Security", "LockPlanning", "x");  // anything but "O" unlocks
  o = Charger_Param(ini, clock);
  EXPECT_EQ(o.Updating, "O");
  EXPECT_FALSE(o.LockMode);
  EXPECT_EQ(ini.GetValue("Security", "LockMode"), "N");
}

TEST_F(ChargerParamTest, GroupDatesAreCheckedUnlessTheOptionIsN) {
  EXPECT_TRUE(Charger_Param(ini, clock).CheckGroupDate);
  ini.SetValue("Remember", "CheckGroupDate", "Y");  // not "O", still not "N"
  EXPECT_TRUE(Charger_Param(ini, clock).CheckGroupDate);
  ini.SetValue("Remember", "CheckGroupDate", "");  // not yet set: the default "O" comes back
  EXPECT_TRUE(Charger_Param(ini, clock).CheckGroupDate);
  EXPECT_EQ(ini.GetValue("Remember", "CheckGroupDate"), "O");
  ini.SetValue("Remember", "CheckGroupDate", "N");
  EXPECT_FALSE(Charger_Param(ini, clock).CheckGroupDate);
}

TEST_F(ChargerParamTest, RefreshScreenCountsOnlyInConsultationMode) {
  ini.SetValue("Reservation", "Updating", "N");
  ini.SetValue("Reservation", "NbSecond", "12");
  LoadedOptions o = Charger_Param(ini, clock);
  EXPECT_EQ(o.RefreshScreen, "O");
  EXPECT_EQ(o.refreshInterval(), 12000);
  ini.SetValue("Reservation", "Updating", "O");
  o = Charger_Param(ini, clock);
  EXPECT_EQ(o.RefreshScreen, "N");
  EXPECT_EQ(ini.GetValue("Reservation", "RefreshScreen"), "O") << "only the copy in memory is forced";
}

TEST_F(ChargerParamTest, ListsWithTooFewOrTooManyItems) {
  ini.SetValue("Remember", "BackColor", "1\\2\\3\\");                   // two colours short
  ini.SetValue("Reservation", "Libelle", "A\\B\\C\\D\\E\\F\\G\\H\\");    // two names too many
  ini.SetValue("Alarm", "NbDays", "2\\-1\\5\\");                         // no fourth count
  ini.SetValue("Reservation", "ForeColor", "NN");                         // short flag string
  ini.SetValue("Resource", "ColorCategorie", "abc\\16711680\\");          // not a number reads 0
  const LoadedOptions o = Charger_Param(ini, clock);
  EXPECT_EQ(o.DayBack, (std::array<Colour, 5>{1, 2, 3, 0, 0}));
  EXPECT_EQ(o.Libelle, (QStringList{"A", "B", "C", "D", "E", "F"}));
  EXPECT_EQ(o.NbDays, (std::array<int, 4>{2, -1, 5, 0}));
  EXPECT_EQ(o.NbDaysDate[0], QDate(2024, 3, 17));
  EXPECT_EQ(o.NbDaysDate[1], QDate(2024, 3, 14));
  EXPECT_EQ(o.BookingFore[1], kBlack);
  EXPECT_EQ(o.BookingFore[2], kWhite) << "a missing letter is not N";
  EXPECT_EQ(o.CategoryBack[0], 0u);
  EXPECT_EQ(o.CategoryBack[1], 16711680u);
  // The reading went on past the long list.
  EXPECT_EQ(o.Categorie.at(0), "Suite");
  EXPECT_TRUE(o.PrintGroups);
}

TEST_F(ChargerParamTest, LanguageGridAndWebEntries) {
  ini.SetValue("Remember", "Language", "Fr");
  ini.SetValue("Reservation", "Grid", "PF");
  ini.SetValue("Zellatide", "UserNameF", "hotel42");
  ini.SetValue("Alarm", "WkEnd", "N");
  const LoadedOptions o = Charger_Param(ini, clock);
  EXPECT_EQ(o.textOffset, 1000);
  EXPECT_EQ(o.monthNamesUpper.at(1), QString::fromUtf8("FÉVRIER"));
  EXPECT_EQ(o.dayLetters, "DLMMJVS");
  EXPECT_FALSE(o.gridSolid);
  EXPECT_TRUE(o.gridInFront);
  EXPECT_TRUE(o.zellatideVisible);
  EXPECT_FALSE(o.orlimbrookVisible);
  EXPECT_FALSE(o.WkEnd);
  EXPECT_TRUE(o.RayePast);
}

// Every yes/no option the user sets reaches the program, whichever way it is set.
TEST_F(ChargerParamTest, EachYesNoOptionIsReadFromItsKey) {
  struct Flag {
    const char* section;
    const char* key;
    bool LoadedOptions::*member;
  };
  const Flag flags[] = {{"Remember", "RegionalSetting", &LoadedOptions::regionalSetting},
                        {"Remember", "Border", &LoadedOptions::Border},
                        {"Remember", "BookingBorder", &LoadedOptions::BookingBorder},
                        {"Remember", "AvailableBorder", &LoadedOptions::AvailableBorder},
                        {"Remember", "AvailableColor", &LoadedOptions::AvailableColor},
                        {"Remember", "Manual", &LoadedOptions::Manual},
                        {"Security", "LockMode", &LoadedOptions::LockMode},
                        {"Security", "LockDate", &LoadedOptions::LockDate},
                        {"Security", "LockInvoice", &LoadedOptions::LockInvoice},
                        {"Security", "LockDelete", &LoadedOptions::LockDelete},
                        {"Reservation", "WithFrame", &LoadedOptions::WithFrame},
                        {"Company", "UseGroups", &LoadedOptions::UseGroups},
                        {"Company", "LockGroups", &LoadedOptions::LockGroups},
                        {"Company", "PrintGroups", &LoadedOptions::PrintGroups}};
  for (const Flag& f : flags) {
    SCOPED_TRACE(f.key);
    for (const bool on : {true, false}) {
      ini.SetValue(f.section, f.key, on ? "O" : "N");
      EXPECT_EQ(Charger_Param(ini, clock).*f.member, on);
    }
  }
}
