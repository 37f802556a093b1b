#pragma once
// A planning whose bookings carry the customer lines, and the context the
// customer operations take; the planning's folder is where lists are exported.

#include "customers/customer_context.h"
#include "storage/schema.h"
#include "support/test_planning.h"

namespace ksv::test {

class CustomerPlanning : public PlanningTest {
 protected:
  CustomerPlanning() : PlanningTest(QDate(2024, 6, 15)) { paths.setPlanningDir(folder()); }

  // One booking row a day apart; GroupId "C" unless told. A null email or remark stays Null.
  void booking(const QString& nom, const QVariant& email = {}, const QVariant& remark = {},
               const QString& groupId = "C") {
    QVariantMap more{{"GroupId", groupId}};
    if (!email.isNull()) more.insert("Email", email);
    if (!remark.isNull()) more.insert("Remarque", remark);
    if (groupId != "C") more.insert("Split", "3");
    plan.addBooking("Room 1", QDate(2024, 6, 1).addDays(day_), QDate(2024, 6, 2).addDays(day_), nom, more);
    ++day_;
  }
  // Every booking row as "Nom|Email|Remarque" in stored order, Null as "".
  QStringList bookings() { return plan.rows("Nom || '|' || ifnull(Email, '') || '|' || ifnull(Remarque, '')"); }

  CustomerContext context() { return CustomerContext{db, plan.clock(), messages, texts, paths}; }
  QString folder() const { return plan.paths().documentsDir(); }

  Database& db = plan.db();
  Paths& paths = plan.paths();
  const Clock& clock = plan.clock();
  int day_ = 0;
};

}  // namespace ksv::test
