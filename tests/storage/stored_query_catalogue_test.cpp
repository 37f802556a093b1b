// The queries kept in a planning: all of them, in order, verbatim, readable by
// a stock SQLite tool, and every one of them runs.
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include "storage/schema.h"
#include "storage/stored_queries.h"
#include "support/test_planning.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class StoredQueryCatalogue : public PlanningTest {
 protected:
  StoredQueryCatalogue() : PlanningTest(QDate(2024, 6, 15)) {}
};


TEST_F(StoredQueryCatalogue, CreatingAgainKeepsOneCopy) {
  createStoredQueries(plan.db());
  EXPECT_EQ(plan.catalogue().names().size(), 69);
}

TEST_F(StoredQueryCatalogue, NamesAreFoundWithoutRegardToCase) {
  // Written RQ_InvoicePtCS once and RQ_InvoicePtCs elsewhere: one query.
  ASSERT_NE(findStoredQuery("RQ_InvoicePtCs"), nullptr);
  EXPECT_STREQ(findStoredQuery("rq_invoiceptcs")->name, "RQ_InvoicePtCS");
  EXPECT_EQ(plan.catalogue().text("RQ_INVOICEPTCS"), plan.catalogue().text("RQ_InvoicePtCS"));
  EXPECT_EQ(findStoredQuery("RQ_NoSuchQuery"), nullptr);
  EXPECT_FALSE(plan.catalogue().text("RQ_NoSuchQuery").has_value());
  EXPECT_THROW(plan.catalogue().command("RQ_NoSuchQuery"), StorageError);

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


// Every query prepares and runs on a planning with a few rows, each parameter
// set by its declared type.
TEST_F(StoredQueryCatalogue, EveryQueryRuns) {
  plan.addBooking("101", QDate(2024, 6, 10), QDate(2024, 6, 12), "Martin", {{"InvNb", -1}, {"GroupNb", 0}});
  plan.addRow("Invoice", {{"InvoiceNb", -1}, {"Typ", "0"}, {"Lib", "Martin"}});
  plan.addRow("AccountGroup", {{"Group", "Rooms"}, {"Account", "Night"}, {"Sign", " "}});
  for (const StoredQuery& q : storedQueries()) {
    SCOPED_TRACE(q.name);
    QueryCommand command = plan.catalogue().command(q.name);
    for (int i = 0; i < command.parameterCount(); ++i) {
      switch (command.parameter(i).type) {
        case ParameterType::Date: command.setParameter(i, QDate(2024, 6, 1)); break;
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
