#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include "core/texts.h"
#include "storage/connecting.h"
#include "storage/creation.h"
#include "storage/lock_file.h"
#include "storage/recordset.h"
#include "storage/roster.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"
#include "storage/stored_queries.h"
#include "support/file_bytes.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;
using ksv::test::ScriptedMessages;
using ksv::test::TempFolders;

namespace {

const char* kIni = "[Reservation]\r\nUpdating=O\r\n[Remember]\r\nLastFile=é.ksv\r\n";

class CreationTest : public ::testing::Test {
 protected:
  void SetUp() override { test::writeBytes(folders_.paths().iniFile(), kIni); }
  CreationContext context(Database* open = nullptr, bool fromConvert = false) {
    return CreationContext{messages_, texts_, folders_.paths(), open, fromConvert};
  }
  int count(Database& db, const QString& table) { return db.scalar("SELECT count(*) FROM \"" + table + "\"").toInt(); }
  // An open planning with a black list and an invoicing catalogue.
  Database makeOpenPlanning(char mode) {
    const QString old = folders_.document("old.ksv");
    EXPECT_TRUE(Creation(old, context()));
    {
      Database w(old, Database::OpenMode::ReadWrite);
      insertRow(w, "T_BlackList", {{"Nom", "Bad Payer"}, {"Remark", "twice"}});
      insertRow(w, "T_BlackList", {{"Nom", "Noisy"}});
      insertRow(w, "AccountGroup", {{"Group", "Rooms"}, {"Account", "Double"}, {"Sign", " "}});
      insertRow(w, "Designation", {{"Designation", "Double"}, {"UnitPrice", 80.5}, {"Year", 1234.0}});
      insertRow(w, "Modification", {{"Modification", "VAT"}, {"Rate", 20}});
      insertRow(w, "Payment", {{"Payment", "Cash"}});
      w.execute("UPDATE Header SET IdTop = 333, Border = 1, LgPath = 'logo.bmp'");
      insertRow(w, "Resource", {{"Resource", "Room 1"}});
    }
    return Database(old, mode == 'C' ? Database::OpenMode::ReadOnly : Database::OpenMode::ReadWrite);
  }

  TempFolders folders_;
  ScriptedMessages messages_;
  Texts texts_;
};

TEST_F(CreationTest, ANewPlanningHoldsItsTablesQueriesAndFirstRowsOnly) {
  const QString path = folders_.document("new.ksv");
  ASSERT_TRUE(Creation(path, context()));
  EXPECT_TRUE(messages_.shown().empty());  // no planning open: no question

  Database db(path, Database::OpenMode::ReadOnly);
  for (const TableDef& t : planningTables()) EXPECT_TRUE(db.tableExists(t.name)) << t.name.toStdString();
  EXPECT_EQ(db.scalar(QStringLiteral("SELECT count(*) FROM %1").arg(kStoredQueryTable)).toInt(), 69);

  EXPECT_EQ(db.scalar("SELECT Option FROM Option").toString(), QString::fromUtf8(kIni));  // the whole ini text
  for (const TableDef& t : planningTables())
    EXPECT_EQ(count(db, t.name), t.name == "Header" || t.name == "DataBaseInfo" || t.name == "Option") << t.name.toStdString();

  // Nobody is left connected and no lock file stays behind.
  EXPECT_TRUE(liveConnections(path).isEmpty());
  EXPECT_FALSE(QFile::exists(lockPathOf(path)));
  // It opens as a planning.
  EXPECT_TRUE(Connecting(path, 'U'));
}

TEST_F(CreationTest, ForAConversionTheFileHasNoRowsAtAll) {
  const QString path = folders_.document("conv.ksv");
  Database open = makeOpenPlanning('U');
  ASSERT_TRUE(Creation(path, context(&open, true)));
  EXPECT_TRUE(messages_.shown().empty());  // no recopy question either
  Database db(path, Database::OpenMode::ReadOnly);
  for (const TableDef& t : planningTables()) EXPECT_EQ(count(db, t.name), 0) << t.name.toStdString();
  EXPECT_EQ(db.scalar(QStringLiteral("SELECT count(*) FROM %1").arg(kStoredQueryTable)).toInt(), 69);
}

TEST_F(CreationTest, RecopyBothAnsweredYes) {
  Database open = makeOpenPlanning('U');
  const QString path = folders_.document("both.ksv");
  messages_.answer(MsgAnswer::Yes);
  messages_.answer(MsgAnswer::Yes);
  ASSERT_TRUE(Creation(path, context(&open)));
  ASSERT_EQ(messages_.texts(), (QStringList{"Do you want to recopy the Black list ?",
                                            "Do you want to recopy the Information of invoicings  ?"}));
  EXPECT_EQ(messages_.shown()[0].buttons, MsgButtons::YesNo);
  EXPECT_TRUE(messages_.allAnswersUsed());

  Database db(path, Database::OpenMode::ReadOnly);
  EXPECT_EQ(count(db, "T_BlackList"), 2);
  EXPECT_EQ(db.scalar("SELECT Remark FROM T_BlackList WHERE Nom = 'Bad Payer'").toString(), "twice");
  EXPECT_EQ(count(db, "AccountGroup"), 1);
  EXPECT_EQ(db.scalar("SELECT UnitPrice FROM Designation").toDouble(), double(80.5f));
  EXPECT_EQ(db.scalar("SELECT Year FROM Designation").toDouble(), 1234.0);  // sums come along
  EXPECT_EQ(count(db, "Modification") + count(db, "Payment"), 2);
  // The heading is the open planning's, and there is still only one.
  EXPECT_EQ(count(db, "Header"), 1);
  EXPECT_EQ(db.scalar("SELECT IdTop || Border || LgPath FROM Header").toString(), "3331logo.bmp");
  EXPECT_EQ(count(db, "Resource"), 0);  // only what the questions name
  EXPECT_EQ(count(db, "DataBaseInfo"), 1);
  // The open planning is untouched and still usable.
  EXPECT_EQ(count(open, "T_BlackList"), 2);
  insertRow(open, "Resource", {{"Resource", "Room 2"}});
}

TEST_F(CreationTest, RecopyBlackListOnlyOrNothing) {
  Database open = makeOpenPlanning('U');
  const QString first = folders_.document("bl.ksv");
  messages_.answer(MsgAnswer::Yes);
  messages_.answer(MsgAnswer::No);
  ASSERT_TRUE(Creation(first, context(&open)));
  {
    Database db(first, Database::OpenMode::ReadOnly);
    EXPECT_EQ(count(db, "T_BlackList"), 2);
    EXPECT_EQ(count(db, "Designation") + count(db, "AccountGroup"), 0);
    EXPECT_EQ(db.scalar("SELECT IdTop FROM Header").toInt(), 200);
  }
  const QString second = folders_.document("none.ksv");
  messages_.answer(MsgAnswer::No);
  messages_.answer(MsgAnswer::No);
  ASSERT_TRUE(Creation(second, context(&open)));
  Database db(second, Database::OpenMode::ReadOnly);
  EXPECT_EQ(count(db, "T_BlackList") + count(db, "Designation") + count(db, "Payment"), 0);
  EXPECT_EQ(count(db, "Header"), 1);
}

TEST_F(CreationTest, RecopyFromAPlanningOpenInConsultation) {
  Database open = makeOpenPlanning('C');
  ASSERT_TRUE(open.isReadOnly());
  const QString path = folders_.document("fromc.ksv");
  messages_.answer(MsgAnswer::Yes);
  messages_.answer(MsgAnswer::Yes);
  ASSERT_TRUE(Creation(path, context(&open)));
  Database db(path, Database::OpenMode::ReadOnly);
  EXPECT_EQ(count(db, "T_BlackList"), 2);
  EXPECT_EQ(count(db, "Payment"), 1);
  EXPECT_EQ(db.scalar("SELECT IdTop FROM Header").toInt(), 333);
}

TEST_F(CreationTest, FailsOverAnExistingFileOrInAMissingFolder) {
  const QString path = folders_.document("taken.ksv");
  test::writeBytes(path, "keep me");
  EXPECT_FALSE(Creation(path, context()));
  EXPECT_EQ(test::readBytes(path), QByteArray("keep me"));
  EXPECT_FALSE(Creation(folders_.document("no/such/folder/p.ksv"), context()));
}

}  // namespace
