#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSettings>

#include "config/ini_defaults.h"
#include "config/ini_file.h"
#include "config/update_ini.h"
#include "core/texts.h"
#include "config/access_code.h"
#include "support/file_bytes.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;

namespace {

const QDate kToday(2024, 3, 15);

class UpdateIniTest : public ::testing::Test {
 protected:
  UpdateIniResult run(const QString& legacy = QString()) {
    return UpdateIni(folders.paths(), "5.20", legacy, kToday, messages, Texts(0));
  }
  void writeFile(const QString& path, const QByteArray& bytes) { test::writeBytes(path, bytes); }
  test::TempFolders folders;
  test::ScriptedMessages messages;
  IniFile ini{folders.paths().iniFile()};
};

// A file of the oldest layout: no version, four scale colours, codes and
// lock date in their old places, invoice counter and web keys.
const QByteArray kOldFile =
    "[Remember]\r\nLanguage=Fr\r\nBackColor=1\\2\\3\\4\\\r\nForeColor=NONO\r\nAccesPlanning=0A0B\r\n"
    "AccesOptions=\r\nLastFile=C:\\Hotel\\Main.ksv\r\n"
    "[Reservation]\r\nLockDate=N\r\n"
    "[Security]\r\nLockInvoice=N\r\nLockDelete=N\r\nWebPassword=secret\r\nWebUserId=hotel\r\nNbDays=90\r\n"
    "CodeNeeded=O\r\n"
    "[Company]\r\nInvoiceNb=812\r\nMine=kept\r\n";

}  // namespace

TEST_F(UpdateIniTest, AnUnversionedFileRunsEveryStep) {
  writeFile(ini.path(), kOldFile);
  const UpdateIniResult r = run();
  EXPECT_FALSE(r.firstRun);
  EXPECT_TRUE(r.ok);
  EXPECT_EQ(ini.GetValue("Remember", "Version"), "5.20");
  EXPECT_EQ(ini.GetValue("Remember", "BackColor"), "1\\2\\3\\4\\62708\\");
  EXPECT_EQ(ini.GetValue("Remember", "ForeColor"), "NONON");
  EXPECT_EQ(ini.GetValue("Alarm", "Extension"), "N");
  EXPECT_EQ(ini.GetValue("Security", "LockDate"), "N");
  EXPECT_FALSE(ini.hasKey("Reservation", "LockDate"));
  EXPECT_EQ(ini.GetValue("Security", "LockInvoice"), "O");
  EXPECT_EQ(ini.GetValue("Security", "LockDelete"), "O");
  EXPECT_EQ(ini.GetValue("Security", "AccesPlanning"), "0A0B");
  EXPECT_EQ(Unscramble(kKeyAccesOptions, ini.GetValue("Security", "AccesOptions")), "NilPin");
  EXPECT_FALSE(ini.hasKey("Remember", "AccesPlanning"));
  EXPECT_FALSE(ini.hasKey("Remember", "AccesOptions"));
  EXPECT_FALSE(ini.hasKey("Company", "InvoiceNb"));
  EXPECT_EQ(ini.GetValue("Orlimbrook", "PasswordF"), "secret");
  EXPECT_EQ(ini.GetValue("Orlimbrook", "UserNameF"), "hotel");
  EXPECT_EQ(ini.GetValue("Orlimbrook", "NbDays"), "90");
  EXPECT_TRUE(ini.keys("Security").filter("Web").isEmpty());
  EXPECT_FALSE(ini.hasKey("Security", "CodeNeeded"));
  EXPECT_FALSE(ini.hasKey("Security", "NbDays"));
  EXPECT_EQ(ini.GetValue("Company", "Mine"), "kept");
  EXPECT_EQ(ini.GetValue("Remember", "LastFile"), "C:\\Hotel\\Main.ksv");

  // Up to date now: a second start changes nothing.
  const QString before = ini.readText();
  run();
  EXPECT_EQ(ini.readText(), before);
}

TEST_F(UpdateIniTest, Version35SkipsTheColourStep) {
  writeFile(ini.path(), "[Remember]\r\nLanguage=En\r\nVersion=3.5\r\nBackColor=1\\2\\3\\4\\\r\n"
                        "AccesPlanning=1234\r\n[Company]\r\nInvoiceNb=5\r\n");
  run();
  EXPECT_EQ(ini.GetValue("Remember", "BackColor"), "1\\2\\3\\4\\");
  EXPECT_EQ(ini.GetValue("Security", "AccesPlanning"), "1234");
  EXPECT_EQ(ini.GetValue("Alarm", "Extension"), "N");
  EXPECT_FALSE(ini.hasKey("Company", "InvoiceNb"));
  EXPECT_EQ(ini.GetValue("Remember", "Version"), "5.20");
}

TEST_F(UpdateIniTest, Version40OnlyDropsTheCounterAndMovesTheWebKeys) {
  writeFile(ini.path(), "[Remember]\r\nLanguage=En\r\nVersion=4.0\r\nAccesPlanning=1234\r\n"
                        "[Security]\r\nLockInvoice=N\r\nWebUserId=me\r\n[Company]\r\nInvoiceNb=5\r\n");
  run();
  EXPECT_FALSE(ini.hasKey("Company", "InvoiceNb"));
  EXPECT_EQ(ini.GetValue("Security", "LockInvoice"), "N");
  EXPECT_FALSE(ini.hasKey("Alarm", "Extension"));
  EXPECT_EQ(ini.GetValue("Remember", "AccesPlanning"), "1234") << "step 6 is not run";
  EXPECT_EQ(ini.GetValue("Orlimbrook", "UserNameF"), "me");
}

TEST_F(UpdateIniTest, OtherOlderVersionsOnlyMoveTheWebKeysAndNewerOnesNothing) {
  writeFile(ini.path(), "[Remember]\r\nLanguage=En\r\nVersion=4.5\r\n[Security]\r\nWebUserId=me\r\n"
                        "[Company]\r\nInvoiceNb=5\r\n");
  run();
  EXPECT_EQ(ini.GetValue("Orlimbrook", "UserNameF"), "me");
  EXPECT_TRUE(ini.hasKey("Company", "InvoiceNb"));

  writeFile(ini.path(), "[Remember]\r\nLanguage=En\r\nVersion=5.10\r\n[Security]\r\nWebUserId=me\r\n");
  run();
  EXPECT_TRUE(ini.hasKey("Security", "WebUserId")) << "5.10 is not below 5.0";
  EXPECT_EQ(ini.GetValue("Remember", "Version"), "5.20");
}

TEST_F(UpdateIniTest, TheOldFileIsCopiedThenDeleted) {
  const QString old = folders.paths().programDir() + "/KESTROVANE_V30.INI";  // written where case did not matter
  writeFile(old, "[Remember]\r\nLanguage=Fr\r\nVersion=3.5\r\nPlace=Orl\xE9\x61ns, \r\n");
  const UpdateIniResult r = run();
  EXPECT_TRUE(r.ok);
  EXPECT_FALSE(r.firstRun);
  EXPECT_FALSE(QFile::exists(old));
  EXPECT_EQ(ini.GetValue("Remember", "Language"), "Fr");
  EXPECT_EQ(ini.GetValue("Remember", "Place"), QString::fromUtf8("Orléans,"));
  EXPECT_EQ(ini.GetValue("Alarm", "Extension"), "N") << "then upgraded from its version";
  EXPECT_EQ(ini.GetValue("Remember", "Version"), "5.20");
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(UpdateIniTest, AFailedCopyOfTheOldFileIsReportedAndStops) {
  writeFile(folders.paths().oldIniFile(), "[Remember]\r\nLanguage=Fr\r\n");
  QDir().mkpath(ini.path());  // a folder in the way of the new file
  const UpdateIniResult r = run();
  EXPECT_FALSE(r.ok);
  ASSERT_EQ(messages.texts(), QStringList{"Ini file conversion error"});
  EXPECT_EQ(messages.last().icon, MsgIcon::Critical);
  EXPECT_TRUE(QFile::exists(folders.paths().oldIniFile())) << "the old file is kept when the copy fails";
}

TEST_F(UpdateIniTest, TheLegacyStoreGivesLanguageAndValuesOverTheDefaults) {
  const QString store = folders.root() + "/config/Kestrovane/Kestrovane.conf";
  {
    QSettings legacy(store, QSettings::IniFormat);
    legacy.setValue("Remember/Language", "Fr");
    legacy.setValue("Remember/LastFile", "/srv/hotel.ksv");
    legacy.setValue("Remember/BackColor", "1\\2\\3\\4\\");
    legacy.setValue("Remember/ForeColor", "NNNN");
  }
  const UpdateIniResult r = run(store);
  EXPECT_FALSE(r.firstRun);
  EXPECT_EQ(ini.GetValue("Remember", "Language"), "Fr");
  EXPECT_EQ(ini.GetValue("Remember", "LastFile"), "/srv/hotel.ksv");
  EXPECT_EQ(ini.GetValue("Reservation", "Grid"), "LB") << "the first-run file lies underneath";
  EXPECT_EQ(ini.GetValue("Alarm", "Exceptions"), "N") << "an upgraded worklist keeps its five lists";
  // No version in the store: every upgrade step ran.
  EXPECT_EQ(ini.GetValue("Remember", "BackColor"), "1\\2\\3\\4\\62708\\");
  EXPECT_EQ(ini.GetValue("Remember", "ForeColor"), "NNNNN");
  EXPECT_EQ(ini.GetValue("Remember", "Version"), "5.20");
}

TEST_F(UpdateIniTest, AnAbsentLegacyStoreOrOneWithoutLanguageIsSkipped) {
  const QString store = folders.root() + "/other.conf";
  {
    QSettings legacy(store, QSettings::IniFormat);
    legacy.setValue("Remember/LastFile", "/srv/hotel.ksv");
  }
  EXPECT_TRUE(run(store).firstRun);
  EXPECT_EQ(ini.GetValue("Remember", "LastFile"), "");
  QFile::remove(ini.path());
  EXPECT_TRUE(run(folders.root() + "/nowhere.conf").firstRun);
}

TEST_F(UpdateIniTest, AFileWithALanguageIsNeverReplaced) {
  writeFile(ini.path(), "[Remember]\r\nLanguage=En\r\nVersion=5.20\r\nLastFile=/a.ksv\r\n");
  writeFile(folders.paths().oldIniFile(), "[Remember]\r\nLanguage=Fr\r\n");
  const UpdateIniResult r = run();
  EXPECT_FALSE(r.firstRun);
  EXPECT_EQ(ini.GetValue("Remember", "LastFile"), "/a.ksv");
  EXPECT_TRUE(QFile::exists(folders.paths().oldIniFile()));
}
