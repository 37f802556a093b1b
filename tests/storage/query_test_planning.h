#pragma once
// A planning on disk with its tables and stored queries, a fixed today, and
// short ways to add rows and read a stored query's rows back.

#include <gtest/gtest.h>

#include <QDate>
#include <QTemporaryDir>
#include <QVariant>

#include "core/clock.h"
#include "storage/query_command.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"
#include "storage/stored_queries.h"

// Readable failures for texts.
inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QStringList& texts, std::ostream* os) {
  *os << '{';
  for (const QString& t : texts) *os << " \"" << t.toStdString() << '"';
  *os << " }";
}

namespace ksv::test {

inline QDate day(int y, int m, int d) { return QDate(y, m, d); }

class QueryPlanning : public ::testing::Test {
 protected:
  // Today in every query test: Saturday 15 June 2024.
  static QDate today() { return QDate(2024, 6, 15); }

  void SetUp() override {
    ASSERT_TRUE(dir_.isValid());
    path_ = dir_.path() + "/test.ksv";
    db_.open(path_, Database::OpenMode::Create);
    createPlanningTables(db_);
    createStoredQueries(db_);
  }

  // A booking row; GroupId "C" unless given in `more`.
  void booking(const QString& resource, QDate first, QDate last, const QString& nom, QVariantMap more = {}) {
    more.insert("Resource", resource);
    more.insert("Date_Deb", first);
    more.insert("Date_Fin", last);
    more.insert("Nom", nom);
    if (!more.contains("GroupId")) more.insert("GroupId", "C");
    insertRow(db_, "Reservation", more);
  }
  void row(const QString& table, const QVariantMap& values) { insertRow(db_, table, values); }

  QueryCatalogue catalogue() { return QueryCatalogue(db_, clock_); }

  // One column of every row a stored query yields, as texts, in order.
  QStringList column(const QString& query, const QString& name, const QVariantList& params = {}) {
    QueryCommand command = catalogue().command(query);
    command.setParameters(params);
    Statement& st = command.open();
    const int index = st.columnIndex(name);
    EXPECT_GE(index, 0) << name.toStdString() << " not in " << query.toStdString();
    QStringList values;
    while (st.step()) values.append(st.isNull(index) ? QStringLiteral("<null>") : st.column(index).toString());
    return values;
  }
  // Two columns joined by '/', e.g. "Nom/Date_Deb".
  QStringList columns(const QString& query, const QStringList& names, const QVariantList& params = {}) {
    QueryCommand command = catalogue().command(query);
    command.setParameters(params);
    Statement& st = command.open();
    QStringList values;
    while (st.step()) {
      QStringList parts;
      for (const QString& name : names) {
        const int index = st.columnIndex(name);
        parts.append(index < 0 ? QStringLiteral("<no column>")
                               : st.isNull(index) ? QStringLiteral("<null>") : st.column(index).toString());
      }
      values.append(parts.join('/'));
    }
    return values;
  }
  int run(const QString& query, const QVariantList& params = {}) {
    QueryCommand command = catalogue().command(query);
    command.setParameters(params);
    return command.execute();
  }
  qlonglong count(const QString& table) {
    return db_.scalar(QStringLiteral("SELECT count(*) FROM \"%1\"").arg(table)).toLongLong();
  }

  QTemporaryDir dir_;
  QString path_;
  Database db_;
  FixedClock clock_{today()};
};

}  // namespace ksv::test
