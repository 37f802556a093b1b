#pragma once
// The one planning builder of the tests: a real planning file made by Creation
// in a temporary folder, opened read-write with the session's board commands
// and recordsets, short ways to add rows, and read-back helpers.

#include <gtest/gtest.h>

#include <QDate>
#include <QStringList>
#include <QVariantMap>

#include "core/clock.h"
#include "core/texts.h"
#include "scripted_messages.h"
#include "storage/planning_session.h"
#include "storage/query_command.h"
#include "storage/sqlite_db.h"
#include "temp_folders.h"

// Readable failures for texts.
inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QStringList& texts, std::ostream* os) {
  *os << '{';
  for (const QString& t : texts) *os << " \"" << t.toStdString() << '"';
  *os << " }";
}

namespace ksv::test {

class TestPlanning {
 public:
  explicit TestPlanning(QDate today = QDate(2025, 3, 10));

  Database& db() { return db_; }
  SessionObjects& objects() { return objects_; }
  const Paths& paths() const { return folders_.paths(); }
  Paths& paths() { return folders_.paths(); }
  const TempFolders& folders() const { return folders_; }
  const Clock& clock() const { return clock_; }
  FixedClock& clock() { return clock_; }
  QString file() const { return file_; }

  void addResource(const QString& name, int color, int order);
  // A stay: GroupId "C", Split "0", Couleur 0, GroupNb 0 unless `more` says otherwise.
  qint64 addBooking(const QString& resource, QDate first, QDate last, const QString& nom, QVariantMap more = {});
  // The header row of group `groupNb` (resource " ", Split "3", GroupId "L").
  qint64 addGroupHeader(int groupNb, QDate first, QDate last, const QString& nom, QVariantMap more = {});
  void addDayColor(QDate day, int color);
  void addBlackList(const QString& nom, const QString& remark);
  qint64 addRow(const QString& table, const QVariantMap& values);
  // A row of the catalogue `table` (Designation, Modification or Payment) named `name`.
  qint64 addAccount(const QString& table, const QString& name, QVariantMap more = {});
  // Accounts of the invoice catalogues, their sums left at 0.
  void addService(const QString& name, double unitPrice);
  void addModifier(const QString& name, double fixed, double rate, bool included, bool addUp, bool printed = true);
  void addPayment(const QString& name);
  // The head row of a posted invoice dated `from`.
  void addPostedInvoice(qint64 number, QDate from, const QString& lib = QStringLiteral("Cash sale"));

  // One column of a booking row, "<null>" for Null, "<gone>" for no row.
  QString stored(qint64 rowid, const QString& column);
  // Columns (or expressions) of the rows of `table` joined by '/', in stored order, Null as "<null>".
  QStringList rows(const QString& columns, const QString& where = QString(), const QString& table = "Reservation");
  qlonglong count(const QString& table, const QString& where = QString());
  // One column of every row a stored query yields, in order, "<null>" for Null.
  QStringList queryColumn(const QString& query, const QString& name, const QVariantList& params = {});
  // Several columns of a stored query's rows joined by '/'.
  QStringList queryRows(const QString& query, const QStringList& names, const QVariantList& params = {});
  int runQuery(const QString& query, const QVariantList& params = {});
  QueryCatalogue catalogue() { return QueryCatalogue(db_, clock_); }
  qint64 lastRowId() { return db_.scalar(QStringLiteral("SELECT max(rowid) FROM Reservation")).toLongLong(); }

 private:
  TempFolders folders_;
  FixedClock clock_;
  ScriptedMessages creationMessages_;
  Texts texts_;
  QString file_;
  Database db_;
  SessionObjects objects_;
};

// A test over one planning, with the messages and texts the code under test takes.
class PlanningTest : public ::testing::Test {
 protected:
  explicit PlanningTest(QDate today = QDate(2025, 3, 10)) : plan(today) {}
  TestPlanning plan;
  ScriptedMessages messages;
  Texts texts{0};
};

}  // namespace ksv::test
