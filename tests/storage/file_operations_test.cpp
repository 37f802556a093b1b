#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include "core/clock.h"
#include "core/texts.h"
#include "storage/file_operations.h"
#include "storage/lock_file.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"
#include "storage/stored_queries.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;

namespace {

class FileOperations : public ::testing::Test {
 protected:
  void SetUp() override {
    path = folders.document("Hotel.ksv");
    Database db(path, Database::OpenMode::Create);
    createPlanningTables(db);
    createStoredQueries(db);
  }
  Database open() { return Database(path, Database::OpenMode::ReadWrite); }
  void booking(Database& db, const QString& nom, QDate first, QDate last, QVariant invNb = {}) {
    insertRow(db, "Reservation", {{"Resource", "101"}, {"Date_Deb", first}, {"Date_Fin", last}, {"Nom", nom},
                                  {"GroupId", "C"}, {"InvNb", invNb}});
  }
  void invoiceRows(Database& db, int number, QVariant postedOn = {}, const QString& addUp = "N") {
    insertRow(db, "Invoice", {{"InvoiceNb", number}, {"Typ", "0"}, {"From", postedOn}, {"AddUp", addUp}});
    insertRow(db, "Invoice", {{"InvoiceNb", number}, {"Typ", "1"}, {"Lib", "Room"}});
  }
  QStringList names(Database& db) {
    QStringList out;
    Statement st = db.prepare("SELECT Nom FROM Reservation ORDER BY rowid");
    while (st.step()) out << st.column(0).toString();
    return out;
  }
  int count(Database& db, const QString& sql) { return db.scalar(sql).toInt(); }

  test::TempFolders folders;
  test::ScriptedMessages messages;
  const Texts texts{0};
  const FixedClock clock{QDate(2026, 11, 22)};
  QString path;
};

}  // namespace

TEST_F(FileOperations, CompactKeepsEveryRowAndSaysSo) {
  {
    Database db = open();
    Transaction t(db);
    for (int i = 0; i < 500; ++i) booking(db, QString("Guest %1").arg(i), QDate(2026, 1, 1), QDate(2026, 1, 3));
    t.commit();
    db.exec("DELETE FROM Reservation WHERE Nom <> 'Guest 7'");
  }
  const qint64 before = QFileInfo(path).size();
  ASSERT_TRUE(Compact_Planning(path, false, messages, texts));
  EXPECT_LT(QFileInfo(path).size(), before);
  EXPECT_FALSE(QFile::exists(folders.document("Hotel~Compact.ksv")));
  Database db = open();
  EXPECT_EQ(names(db), QStringList{"Guest 7"});
  EXPECT_EQ(count(db, "SELECT count(*) FROM KsvQueries"), 69);
  EXPECT_EQ(messages.texts(), QStringList{"The file is repaired and compacted successfully"});

  messages.clear();
  ASSERT_TRUE(Compact_Planning(path, true, messages, texts));
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(FileOperations, ADamagedPlanningIsRebuiltFromWhatStillReads) {
  {
    Database db = open();
    Transaction t(db);
    for (int i = 0; i < 3000; ++i)
      booking(db, QString("Guest %1 with a long name").arg(i).left(25), QDate(2026, 1, 1), QDate(2026, 1, 3));
    t.commit();
  }
  // Scribble over one page in the middle of the bookings.
  const qint64 size = QFileInfo(path).size();
  {
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    f.seek((size / 2 / 4096) * 4096);
    f.write(QByteArray(4096, '\x5a'));
  }
  ASSERT_TRUE(Compact_Planning(path, false, messages, texts));
  ASSERT_EQ(messages.shown().size(), 2u);
  EXPECT_TRUE(messages.shown()[0].text.startsWith("The planning was damaged: "));
  EXPECT_EQ(messages.shown()[1].text, "The file is repaired and compacted successfully");
  EXPECT_TRUE(QFile::exists(folders.document("Hotel~BeforeRepair.ksv")));
  Database db = open();
  const int kept = count(db, "SELECT count(*) FROM Reservation");
  EXPECT_GT(kept, 2000);
  EXPECT_LT(kept, 3000);
  EXPECT_EQ(db.scalar("PRAGMA integrity_check").toString(), "ok");
}

TEST_F(FileOperations, BackUpHoldsOnlyCommittedRowsWhileAnotherWorks) {
  Database other = open();
  booking(other, "Committed", QDate(2026, 1, 1), QDate(2026, 1, 2));
  other.exec("BEGIN IMMEDIATE");
  booking(other, "Half done", QDate(2026, 1, 1), QDate(2026, 1, 2));

  const QString target = folders.document("Hotel_BackUp.ksv");
  ASSERT_TRUE(Copy_Planning(path, target, false, folders.paths(), messages, texts));
  other.exec("COMMIT");
  EXPECT_EQ(messages.texts(), QStringList{"Save  successful"});
  EXPECT_FALSE(QFile::exists(folders.paths().tempPlanning()));
  Database copy(target, Database::OpenMode::ReadOnly);
  EXPECT_EQ(names(copy), QStringList{"Committed"});

  // The safety copy before a conversion is made once, silently.
  messages.clear();
  ASSERT_TRUE(SilentSave(path, "4.0", folders.paths(), messages, texts));
  EXPECT_TRUE(QFile::exists(folders.document("Hotel~Before 4.0 conversion.ksv")));
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(FileOperations, PurgeKeepsTheLimitDayAndTakesInvoicesAlong) {
  const QDate limit(2023, 11, 1);
  {
    Database db = open();
    booking(db, "Old", QDate(2023, 10, 20), QDate(2023, 10, 31), 12);
    booking(db, "On the limit", QDate(2023, 10, 25), limit, 13);
    booking(db, "Zero", QDate(2023, 9, 1), QDate(2023, 9, 2), 0);
    booking(db, "Recent", QDate(2026, 11, 20), QDate(2026, 11, 25));
    invoiceRows(db, 12, QDate(2023, 10, 31));
    invoiceRows(db, 13, QDate(2023, 11, 1));
    invoiceRows(db, 0, QDate(2023, 9, 2));
    invoiceRows(db, 40, QDate(2023, 6, 1), "Y");   // an old cash sale
    invoiceRows(db, 41, QDate(2024, 6, 1), "Y");   // a recent one
    invoiceRows(db, -3, QVariant(), "Y");         // a pending one has no date: kept
  }
  Database db = open();
  EXPECT_EQ(purgeBefore(db, clock, limit), 2);
  EXPECT_EQ(names(db), (QStringList{"On the limit", "Recent"}));
  QStringList left;
  Statement st = db.prepare("SELECT DISTINCT InvoiceNb FROM Invoice ORDER BY InvoiceNb");
  while (st.step()) left << st.column(0).toString();
  EXPECT_EQ(left, (QStringList{"-3", "13", "41"}));
}

TEST_F(FileOperations, NullRemarksBecomeEmpty) {
  Database db = open();
  booking(db, "A", QDate(2026, 1, 1), QDate(2026, 1, 2));
  insertRow(db, "Reservation", {{"Resource", "1"}, {"Date_Deb", QDate(2026, 1, 1)}, {"Date_Fin", QDate(2026, 1, 2)},
                                {"Nom", "B"}, {"Remarque", QVariant()}});
  insertRow(db, "Reservation", {{"Resource", "1"}, {"Date_Deb", QDate(2026, 1, 1)}, {"Date_Fin", QDate(2026, 1, 2)},
                                {"Nom", "C"}, {"Remarque", "keep"}});
  EXPECT_EQ(eliminateNullRemarks(db), 1);
  EXPECT_EQ(count(db, "SELECT count(*) FROM Reservation WHERE Remarque IS NULL"), 0);
  EXPECT_EQ(db.scalar("SELECT Remarque FROM Reservation WHERE Nom = 'C'").toString(), "keep");
}

TEST_F(FileOperations, TheExampleMovesToToday) {
  {
    Database db = open();
    booking(db, "Arrives on the day", QDate(2006, 10, 21), QDate(2006, 10, 24));
    insertRow(db, "Invoice", {{"InvoiceNb", 1}, {"Typ", "0"}, {"From", QDateTime(QDate(2006, 10, 20), QTime(9, 30))},
                              {"To", QDate(2006, 10, 24)}});
    insertRow(db, "Invoice", {{"InvoiceNb", -1}, {"Typ", "0"}});
  }
  ASSERT_TRUE(ShiftExampleDate(path, QDate(2026, 11, 22)));
  EXPECT_FALSE(QFile::exists(lockPathOf(path)));
  Database db = open();
  EXPECT_EQ(db.scalar("SELECT Date_Deb || ' ' || Date_Fin FROM Reservation").toString(), "2026-11-22 2026-11-25");
  EXPECT_EQ(db.scalar("SELECT \"From\" FROM Invoice WHERE InvoiceNb = 1").toString(), "2026-11-21 09:30:00");
  EXPECT_TRUE(db.scalar("SELECT \"From\" FROM Invoice WHERE InvoiceNb = -1").isNull());
}

TEST_F(FileOperations, ExtractionKeepsWhatIsNotOver) {
  {
    Database db = open();
    booking(db, "Left yesterday", QDate(2026, 11, 18), QDate(2026, 11, 21));
    booking(db, "Leaves today", QDate(2026, 11, 18), QDate(2026, 11, 22));
    booking(db, "Coming", QDate(2026, 12, 1), QDate(2026, 12, 3));
  }
  ASSERT_TRUE(extractCurrent(path, QDate(2026, 11, 22), messages, texts));
  Database db = open();
  EXPECT_EQ(names(db), (QStringList{"Leaves today", "Coming"}));
  EXPECT_TRUE(messages.shown().empty());
}
