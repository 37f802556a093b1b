#include <gtest/gtest.h>

#include "config/ini_defaults.h"
#include "config/ini_file.h"
#include "storage/option_in_planning.h"
#include "core/texts.h"
#include "storage/connecting.h"
#include "storage/creation.h"
#include "storage/sqlite_db.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;

namespace {

class OptionInPlanningTest : public ::testing::Test {
 protected:
  void SetUp() override {
    writeDefaultIni(ini, QDate(2024, 3, 15));
    ini.SetValue("Remember", "Version", "5.20");
    ini.SetValue("Remember", "LastFile", "/srv/Hotel.ksv");
    ini.SetValue("Company", "Id1", QString::fromUtf8("Hôtel du Lac"));
    const QString path = folders.document("Hotel.ksv");
    ASSERT_TRUE(Creation(path, CreationContext{messages, texts, folders.paths()}));
    connection = Connecting(path, 'U');
    ASSERT_TRUE(connection);
    messages.clear();
  }
  Database& db() { return connection.connection->db(); }
  test::TempFolders folders;
  test::ScriptedMessages messages;
  Texts texts{0};
  IniFile ini{folders.paths().iniFile()};
  ConnectResult connection;
};

}  // namespace

TEST_F(OptionInPlanningTest, SaveThenRestoreKeepsThisStationsVersionFileAndMode) {
  ini.SetValue("Reservation", "Grid", "PF");
  ASSERT_TRUE(M_SaveOption(db(), ini, messages, texts));
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(db().scalar("SELECT count(*) FROM \"Option\"").toInt(), 1) << "the row is replaced, never added to";

  // The station moves on: other options, another file, consultation mode.
  ini.SetValue("Reservation", "Grid", "LB");
  ini.SetValue("Remember", "LastFile", "/srv/Other.ksv");
  ini.SetValue("Remember", "Version", "5.21");
  ini.SetValue("Reservation", "Updating", "O");

  messages.answer(MsgAnswer::Yes);
  ASSERT_TRUE(M_RestoreOption(db(), ini, "N", messages, texts));
  EXPECT_EQ(messages.shown().front().text, "Do you really want to restore Kestrovane options from the planning ?");
  EXPECT_EQ(messages.shown().front().preselected, MsgAnswer::No);
  EXPECT_EQ(messages.last().text, "Restoration successful");
  EXPECT_EQ(ini.GetValue("Reservation", "Grid"), "PF");
  EXPECT_EQ(ini.GetValue("Company", "Id1"), QString::fromUtf8("Hôtel du Lac"));
  EXPECT_EQ(ini.GetValue("Remember", "LastFile"), "/srv/Other.ksv");
  EXPECT_EQ(ini.GetValue("Remember", "Version"), "5.21");
  EXPECT_EQ(ini.GetValue("Reservation", "Updating"), "N");
}

TEST_F(OptionInPlanningTest, RestoreStopsOnNoAndOnAnEmptySave) {
  ini.SetValue("Reservation", "Grid", "PF");
  M_SaveOption(db(), ini, messages, texts);
  ini.SetValue("Reservation", "Grid", "LB");
  messages.answer(MsgAnswer::No);
  EXPECT_FALSE(M_RestoreOption(db(), ini, "O", messages, texts));
  EXPECT_EQ(ini.GetValue("Reservation", "Grid"), "LB");

  db().execute("UPDATE \"Option\" SET \"Option\" = ''");
  messages.answer(MsgAnswer::Yes);
  EXPECT_FALSE(M_RestoreOption(db(), ini, "O", messages, texts));
  EXPECT_EQ(messages.texts().size(), 2) << "the two questions only";

  db().execute("DELETE FROM \"Option\"");
  messages.answer(MsgAnswer::Yes);
  EXPECT_FALSE(M_RestoreOption(db(), ini, "O", messages, texts));
  EXPECT_EQ(ini.GetValue("Reservation", "Grid"), "LB");
  // Saving into an empty table adds the row.
  ASSERT_TRUE(M_SaveOption(db(), ini, messages, texts));
  EXPECT_EQ(db().scalar("SELECT count(*) FROM \"Option\"").toInt(), 1);
}

TEST_F(OptionInPlanningTest, ErrorsShowTheirMessages) {
  db().exec("DROP TABLE \"Option\"");
  EXPECT_FALSE(M_SaveOption(db(), ini, messages, texts));
  EXPECT_EQ(messages.last().text, "Saving unsuccessful");
  messages.answer(MsgAnswer::Yes);
  EXPECT_FALSE(M_RestoreOption(db(), ini, "O", messages, texts));
  EXPECT_EQ(messages.last().text, "Restoration unsuccessful");
}
