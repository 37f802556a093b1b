// The queries kept in a planning: all of them, in order, verbatim, readable by
// a stock SQLite tool, and every one of them runs.
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include "query_test_planning.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class StoredQueryCatalogue : public QueryPlanning {};

TEST_F(StoredQueryCatalogue, FileHoldsEveryQueryVerbatimInCreationOrder) {
  const QStringList names = catalogue().names();
  ASSERT_EQ(names.size(), 69);
  const auto defined = storedQueries();
  for (int i = 0; i < names.size(); ++i) {
    EXPECT_EQ(names[i], QString::fromUtf8(defined[i].name));
    EXPECT_EQ(catalogue().text(names[i]), QString::fromUtf8(defined[i].text)) << defined[i].name;
  }
}

TEST_F(StoredQueryCatalogue, CreatingAgainKeepsOneCopy) {
  createStoredQueries(db_);
  EXPECT_EQ(catalogue().names().size(), 69);
}

TEST_F(StoredQueryCatalogue, NamesAreFoundWithoutRegardToCase) {
  // Written RQ_InvoicePtCS once and RQ_InvoicePtCs elsewhere: one query.
  ASSERT_NE(findStoredQuery("RQ_InvoicePtCs"), nullptr);
  EXPECT_STREQ(findStoredQuery("rq_invoiceptcs")->name, "RQ_InvoicePtCS");
  EXPECT_EQ(catalogue().text("RQ_INVOICEPTCS"), catalogue().text("RQ_InvoicePtCS"));
  EXPECT_EQ(findStoredQuery("RQ_NoSuchQuery"), nullptr);
  EXPECT_FALSE(catalogue().text("RQ_NoSuchQuery").has_value());
  EXPECT_THROW(catalogue().command("RQ_NoSuchQuery"), StorageError);

  QSet<QString> seen;
  for (const StoredQuery& q : storedQueries()) {
    EXPECT_FALSE(seen.contains(QString(q.name).toLower())) << q.name;
    seen.insert(QString(q.name).toLower());
  }
}

TEST_F(StoredQueryCatalogue, QueriesAreMadeAfterTheQueriesTheySelectFrom) {
  const auto all = storedQueries();
  static const QRegularExpression fromName(QStringLiteral("\\bFROM\\s+([A-Za-z_]+)"));
  for (int i = 0; i < int(all.size()); ++i) {
    auto it = fromName.globalMatch(QString::fromUtf8(all[i].text));
    while (it.hasNext()) {
      const QString source = it.next().captured(1);
      const StoredQuery* other = findStoredQuery(source);
      if (!other) continue;
      EXPECT_LT(other - all.data(), i) << all[i].name << " selects from " << source.toStdString();
    }
  }
}

TEST_F(StoredQueryCatalogue, StockSqliteToolListsTheQueries) {
  const QString tool = QStandardPaths::findExecutable("sqlite3");
  if (tool.isEmpty()) GTEST_SKIP() << "sqlite3 tool not installed";
  db_.close();
  QProcess p;
  p.start(tool, {path_, QStringLiteral("SELECT Name FROM %1 ORDER BY rowid;").arg(kStoredQueryTable)});
  ASSERT_TRUE(p.waitForFinished(10000));
  ASSERT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
  const QStringList listed = QString::fromUtf8(p.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
  QStringList expected;
  for (const StoredQuery& q : storedQueries()) expected.append(q.name);
  EXPECT_EQ(listed, expected);

  QProcess text;
  text.start(tool, {path_, QStringLiteral("SELECT Text FROM %1 WHERE Name = 'RQ_PossibleUsers';").arg(kStoredQueryTable)});
  ASSERT_TRUE(text.waitForFinished(10000));
  EXPECT_EQ(QString::fromUtf8(text.readAllStandardOutput()).trimmed(),
            QString::fromUtf8(findStoredQuery("RQ_PossibleUsers")->text));
}

// Every query prepares and runs on a planning with a few rows, each parameter
// set by its declared type.
TEST_F(StoredQueryCatalogue, EveryQueryRuns) {
  booking("101", day(2024, 6, 10), day(2024, 6, 12), "Martin", {{"InvNb", -1}, {"GroupNb", 0}});
  row("Invoice", {{"InvoiceNb", -1}, {"Typ", "0"}, {"Lib", "Martin"}});
  row("AccountGroup", {{"Group", "Rooms"}, {"Account", "Night"}, {"Sign", " "}});
  for (const StoredQuery& q : storedQueries()) {
    SCOPED_TRACE(q.name);
    QueryCommand command = catalogue().command(q.name);
    for (int i = 0; i < command.parameterCount(); ++i) {
      switch (command.parameter(i).type) {
        case ParameterType::Date: command.setParameter(i, day(2024, 6, 1)); break;
        case ParameterType::Integer: command.setParameter(i, -1); break;
        default: command.setParameter(i, QStringLiteral("101")); break;
      }
    }
    if (command.returnsRows()) {
      Statement& st = command.open();
      while (st.step()) {
      }
    } else {
      EXPECT_NO_THROW(command.execute());
    }
  }
}

}  // namespace
