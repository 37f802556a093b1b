#include <gtest/gtest.h>

#include <QDate>
#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>

#include <sys/wait.h>
#include <unistd.h>

#include "storage/sqlite_db.h"
#include "support/file_bytes.h"

using ksv::Database;
using ksv::StorageError;
using ksv::Transaction;

namespace {

class SqliteDbTest : public ::testing::Test {
 protected:
  QString file(const QString& name) const { return dir_.path() + QLatin1Char('/') + name; }
  QTemporaryDir dir_;
};

TEST_F(SqliteDbTest, BindsAndReadsEveryKindOfValueIncludingNull) {
  Database db(file("a.db"), Database::OpenMode::Create);
  db.exec("CREATE TABLE t (i INTEGER, r REAL, s TEXT, b BLOB, d TEXT)");
  auto ins = db.prepare("INSERT INTO t VALUES (?, ?, ?, ?, ?)");
  EXPECT_EQ(ins.parameterCount(), 5);
  ins.bindAll({QVariant(qlonglong(1) << 40), 2.5, QStringLiteral("é\"x'"), QByteArray("\0\1", 2), QDate(2024, 2, 29)});
  EXPECT_EQ(ins.run(), 1);
  ins.bindAll({true, QVariant(1.1f), QVariant(), QVariant(), QDateTime(QDate(2024, 3, 1), QTime(13, 5, 9))});
  ins.run();
  ins.bindAll({false});  // the rest stay NULL
  ins.run();

  auto sel = db.prepare("SELECT i, r, s, b, d FROM t ORDER BY rowid");
  EXPECT_EQ(sel.columnNames(), (QStringList{"i", "r", "s", "b", "d"}));
  ASSERT_TRUE(sel.step());
  EXPECT_EQ(sel.column(0).toLongLong(), qlonglong(1) << 40);
  EXPECT_EQ(sel.column("R").toDouble(), 2.5);  // names are case-insensitive
  EXPECT_EQ(sel.column(2).toString(), QStringLiteral("é\"x'"));
  EXPECT_EQ(sel.column(3).toByteArray(), QByteArray("\0\1", 2));
  EXPECT_EQ(sel.column(4).toString(), "2024-02-29");
  ASSERT_TRUE(sel.step());
  EXPECT_EQ(sel.column(0).toLongLong(), 1);  // true is 1
  EXPECT_EQ(sel.column(1).toDouble(), double(1.1f));  // a float keeps its 32-bit value
  EXPECT_TRUE(sel.isNull(2));
  EXPECT_EQ(sel.column(4).toString(), "2024-03-01 13:05:09");
  ASSERT_TRUE(sel.step());
  EXPECT_EQ(sel.column(0).toLongLong(), 0);
  EXPECT_TRUE(sel.column(4).isNull());
  EXPECT_FALSE(sel.step());
  EXPECT_THROW(sel.column("nope"), StorageError);
}

TEST_F(SqliteDbTest, DateTextsRoundTrip) {
  EXPECT_EQ(ksv::dateTimeToStoreText(QDateTime(QDate(2030, 1, 2), QTime(0, 0))), "2030-01-02");
  EXPECT_EQ(ksv::dateFromStoreText("2030-01-02").toDate(), QDate(2030, 1, 2));
  EXPECT_EQ(ksv::dateFromStoreText("2030-01-02 23:59:58").toDateTime(), QDateTime(QDate(2030, 1, 2), QTime(23, 59, 58)));
  EXPECT_FALSE(ksv::dateFromStoreText("2030-02-30").isValid());
  EXPECT_FALSE(ksv::dateFromStoreText("02/01/2030").isValid());
  EXPECT_FALSE(ksv::dateFromStoreText("2030-01-02 24:00:00").isValid());
}

TEST_F(SqliteDbTest, ErrorsCarryCodeAndRefusedColumn) {
  Database db(file("a.db"), Database::OpenMode::Create);
  db.exec("CREATE TABLE \"T\" (\"C\" TEXT NOT NULL CONSTRAINT \"T.C\" CHECK (length(\"C\") <= 2)) STRICT");
  try {
    db.execute("INSERT INTO T VALUES (?)", {QStringLiteral("abc")});
    FAIL() << "accepted";
  } catch (const StorageError& e) {
    EXPECT_TRUE(e.isConstraint());
    EXPECT_EQ(e.table(), "T");
    EXPECT_EQ(e.column(), "C");
  }
  try {
    db.execute("INSERT INTO T VALUES (NULL)");
    FAIL() << "accepted";
  } catch (const StorageError& e) {
    EXPECT_TRUE(e.isConstraint());
    EXPECT_EQ(e.column(), "C");
  }
  try {
    db.exec("SELECT * FROM missing");
    FAIL() << "accepted";
  } catch (const StorageError& e) {
    EXPECT_FALSE(e.isConstraint());
    EXPECT_EQ(e.primaryCode(), 1);
    EXPECT_TRUE(e.table().isEmpty());
  }
  EXPECT_EQ(db.scalar("SELECT count(*) FROM T").toInt(), 0);
}

TEST_F(SqliteDbTest, TransactionRollsBackUnlessCommitted) {
  Database db(file("a.db"), Database::OpenMode::Create);
  db.exec("CREATE TABLE t (x INTEGER)");
  try {
    Transaction tx(db);
    db.execute("INSERT INTO t VALUES (2)");
    EXPECT_TRUE(db.inTransaction());
    throw std::runtime_error("half-way");
  } catch (const std::runtime_error&) {
  }
  EXPECT_FALSE(db.inTransaction());
  EXPECT_EQ(db.scalar("SELECT count(*) FROM t").toInt(), 0);
  {
    Transaction tx(db);
    db.execute("INSERT INTO t VALUES (3)");
    tx.commit();
  }
  EXPECT_EQ(db.scalar("SELECT x FROM t").toInt(), 3);
}

TEST_F(SqliteDbTest, ReadOnlyRefusesWritesAndMissingFilesAreNotCreated) {
  {
    Database db(file("a.db"), Database::OpenMode::Create);
    db.exec("CREATE TABLE t (x INTEGER)");
  }
  Database ro(file("a.db"), Database::OpenMode::ReadOnly);
  EXPECT_TRUE(ro.isReadOnly());
  try {
    ro.execute("INSERT INTO t VALUES (1)");
    FAIL() << "written";
  } catch (const StorageError& e) {
    EXPECT_TRUE(e.isReadOnly());
  }
  EXPECT_THROW(Database(file("missing.db"), Database::OpenMode::ReadWrite), StorageError);
  EXPECT_FALSE(QFile::exists(file("missing.db")));
}

TEST_F(SqliteDbTest, SecondConnectionWaitsForWriterInsteadOfFailing) {
  Database a(file("a.db"), Database::OpenMode::Create);
  a.exec("CREATE TABLE t (x INTEGER)");
  Database b(file("a.db"), Database::OpenMode::ReadWrite, 50);
  {
    Transaction tx(a);
    a.execute("INSERT INTO t VALUES (1)");
    // b can't write while a holds the write lock: after its short timeout it fails busy
    try {
      b.execute("INSERT INTO t VALUES (2)");
      FAIL() << "both wrote at once";
    } catch (const StorageError& e) {
      EXPECT_TRUE(e.isBusy());
    }
    tx.commit();
  }
  b.execute("INSERT INTO t VALUES (2)");
  EXPECT_EQ(a.scalar("SELECT count(*) FROM t").toInt(), 2);
}

TEST_F(SqliteDbTest, AWriterInAnotherProcessIsWaitedFor) {
  const QString path = file("a.db");
  { Database(path, Database::OpenMode::Create).exec("CREATE TABLE t (x INTEGER)"); }
  int fds[2];
  ASSERT_EQ(::pipe(fds), 0);
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {  // holds the write lock for a while, then commits
    try {
      Database db(path, Database::OpenMode::ReadWrite);
      Transaction tx(db);
      db.execute("INSERT INTO t VALUES (1)");
      if (::write(fds[1], "l", 1) != 1) _exit(3);
      ::usleep(400 * 1000);
      tx.commit();
    } catch (...) {
      _exit(2);
    }
    _exit(0);
  }
  char c = 0;
  ASSERT_EQ(::read(fds[0], &c, 1), 1);
  Database db(path, Database::OpenMode::ReadWrite);  // the default timeout
  db.execute("INSERT INTO t VALUES (2)");           // waits for the commit instead of failing
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_EQ(db.scalar("SELECT group_concat(x) FROM (SELECT x FROM t ORDER BY x)").toString(), "1,2");
  ::close(fds[0]);
  ::close(fds[1]);
}

}  // namespace
