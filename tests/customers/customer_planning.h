#pragma once
// A planning in a temporary folder with bookings written row by row, and the
// context the customer operations take.

#include <gtest/gtest.h>

#include <QDate>
#include <QTemporaryDir>

#include "core/clock.h"
#include "core/paths.h"
#include "core/texts.h"
#include "customers/customer_context.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"
#include "storage/stored_queries.h"
#include "support/scripted_messages.h"

inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }

namespace ksv::test {

class CustomerPlanning : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(dir_.isValid());
    db.open(dir_.path() + "/Hotel.ksv", Database::OpenMode::Create);
    createPlanningTables(db);
    createStoredQueries(db);
    paths.setPlanningDir(dir_.path());
  }

  // One booking row; GroupId "C" unless told. A null email or remark stays Null.
  void booking(const QString& nom, const QVariant& email = {}, const QVariant& remark = {},
               const QString& groupId = "C") {
    QVariantMap v{{"Resource", "Room 1"},
                  {"Date_Deb", QDate(2024, 6, 1).addDays(day_)},
                  {"Date_Fin", QDate(2024, 6, 2).addDays(day_)},
                  {"Nom", nom},
                  {"GroupId", groupId}};
    ++day_;
    if (!email.isNull()) v.insert("Email", email);
    if (!remark.isNull()) v.insert("Remarque", remark);
    if (groupId != "C") v.insert("Split", "3");
    insertRow(db, "Reservation", v);
  }

  // Every booking row as "Nom|Email|Remarque" in stored order, Null as "".
  QStringList bookings() {
    QStringList out;
    Statement st = db.prepare("SELECT Nom, Email, Remarque FROM Reservation ORDER BY rowid");
    while (st.step())
      out << st.column(0).toString() + "|" + st.column(1).toString() + "|" + st.column(2).toString();
    return out;
  }

  CustomerContext context() { return CustomerContext{db, clock, messages, texts, paths}; }
  QString folder() const { return dir_.path(); }

  QTemporaryDir dir_;
  Database db;
  FixedClock clock{QDate(2024, 6, 15)};
  ScriptedMessages messages;
  Texts texts{0};
  Paths paths{QString(), QString()};
  int day_ = 0;
};

}  // namespace ksv::test
