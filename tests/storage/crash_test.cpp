// A workstation killed in the middle of a multi-row write: the planning must
// open afterwards with every committed row and nothing of the half-done one.

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

#include <QDate>
#include <QFile>
#include <QProcess>

#include "core/texts.h"
#include "storage/connecting.h"
#include "storage/creation.h"
#include "storage/recordset.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;

namespace {

constexpr int kCommittedOperations = 20;
constexpr int kRowsPerOperation = 3;  // a booking, its invoice head and a line

void writeOperation(Database& db, int n, const QString& tag) {
  const QDate day = QDate(2024, 1, 1).addDays(n % 300);
  insertRow(db, "Reservation", {{"Resource", "R" + QString::number(n % 40)},
                                {"Date_Deb", day},
                                {"Date_Fin", day.addDays(3)},
                                {"Nom", tag + QString::number(n)},
                                {"GroupId", "C"},
                                {"InvNb", -n - 1}});
  insertRow(db, "Invoice", {{"InvoiceNb", -n - 1}, {"Typ", "0"}, {"Lib", tag + QString::number(n)}});
  insertRow(db, "Invoice", {{"InvoiceNb", -n - 1}, {"Typ", "1"}, {"Lib", "Room"}, {"QuantityAmount", 3.0}});
}

// The child: committed operations, then one long transaction that is killed.
// Its page cache is tiny, so changed pages reach the file before the commit.
[[noreturn]] void childWrites(const QString& path, int signalFd) {
  try {
    Database db(path, Database::OpenMode::ReadWrite);
    db.exec("PRAGMA cache_size = 4");
    for (int n = 0; n < kCommittedOperations; ++n) {
      Transaction tx(db);
      writeOperation(db, n, "Committed ");
      tx.commit();
    }
    Transaction tx(db);
    for (int n = kCommittedOperations;; ++n) {
      writeOperation(db, n, "Half ");
      if (n == kCommittedOperations + 3000 && ::write(signalFd, "h", 1) != 1) _exit(3);
    }
  } catch (...) {
    _exit(2);
  }
}

TEST(CrashTest, KilledWriterLeavesCommittedRowsAndNothingHalfDone) {
  test::TempFolders folders;
  test::ScriptedMessages messages;
  Texts texts;
  const QString path = folders.document("crash.ksv");
  ASSERT_TRUE(Creation(path, CreationContext{messages, texts, folders.paths()}));

  int fds[2];
  ASSERT_EQ(::pipe(fds), 0);
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    ::close(fds[0]);
    childWrites(path, fds[1]);
  }
  ::close(fds[1]);
  char got = 0;
  ASSERT_EQ(::read(fds[0], &got, 1), 1) << "the writer died before the middle of its work";
  ::close(fds[0]);
  ASSERT_EQ(::kill(child, SIGKILL), 0);
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status));
  // The half-done write had reached the file: a journal must undo it.
  ASSERT_TRUE(QFile::exists(path + "-journal"));

  // Consultation first: the read-only workstation must cope with the journal.
  {
    ConnectResult r = Connecting(path, 'C', messages, texts);
    ASSERT_TRUE(r) << r.detail.toStdString();
    Database& db = r.connection->db();
    EXPECT_EQ(db.scalar("SELECT count(*) FROM Reservation").toInt(), kCommittedOperations);
    EXPECT_EQ(db.scalar("SELECT count(*) FROM Invoice").toInt(), kCommittedOperations * (kRowsPerOperation - 1));
    EXPECT_EQ(db.scalar("SELECT count(*) FROM Reservation WHERE Nom LIKE 'Half%'").toInt(), 0);
    EXPECT_EQ(db.scalar("SELECT count(*) FROM Invoice WHERE InvoiceNb < ?", {-kCommittedOperations}).toInt(), 0);
    Recordset rs = Recordset::openQuery(db, "SELECT * FROM Reservation ORDER BY InvNb DESC");
    EXPECT_EQ(rs.field("Nom").toString(), "Committed 0");
    rs.moveLast();
    EXPECT_EQ(rs.field("Nom").toString(), "Committed " + QString::number(kCommittedOperations - 1));
  }
  EXPECT_TRUE(messages.shown().empty());

  QProcess cli;
  cli.start("sqlite3", {path, "PRAGMA integrity_check; SELECT count(*) FROM Reservation;"});
  ASSERT_TRUE(cli.waitForFinished(10000));
  EXPECT_EQ(QString::fromUtf8(cli.readAllStandardOutput()), "ok\n" + QString::number(kCommittedOperations) + "\n");

  // And normal work goes on.
  ConnectResult u = Connecting(path, 'U');
  ASSERT_TRUE(u);
  Transaction tx(u.connection->db());
  writeOperation(u.connection->db(), 999, "After ");
  tx.commit();
  EXPECT_EQ(u.connection->db().scalar("SELECT count(*) FROM Reservation").toInt(), kCommittedOperations + 1);
}

}  // namespace
