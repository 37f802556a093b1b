// Removing an invoice takes its lines out of the accounts it had moved.
#include "invoicing/invoice_accounts.h"

#include <gtest/gtest.h>

#include "support/test_planning.h"

using namespace ksv;

namespace {

class InvoiceAccountsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    account("Designation", "Room", 500, 120);
    account("Designation", "room", 7, 7);  // another account: names compare exactly
    account("Modification", "Discount", 30, 15);
    account("Payment", "Cash", 400, 100);
  }
  // Day, month and year sums differ by 1000 and 2000, so that each is seen to move.
  void account(const char* table, const char* name, double posted, double saved) {
    plan.db().execute(QString("INSERT INTO %1 (%1, Day, Month, Year, Day_NC, Month_NC, Year_NC) "
                              "VALUES (?, ?, ?, ?, ?, ?, ?)")
                          .arg(table),
                      {name, posted, posted + 1000, posted + 2000, saved, saved + 1000, saved + 2000});
  }
  void line(qint64 nb, const char* typ, const QString& lib, double notIncluded, double included = 0) {
    plan.db().execute("INSERT INTO Invoice (InvoiceNb, Typ, Lib, UPriceIncluded, PriceNotIncluded) "
                      "VALUES (?, ?, ?, ?, ?)",
                      {nb, typ, lib, included, notIncluded});
  }
  // Day/Month/Year/Day_NC/Month_NC/Year_NC of one account.
  QString sums(const char* table, const char* name) {
    Statement s = plan.db().prepare(
        QString("SELECT Day, Month, Year, Day_NC, Month_NC, Year_NC FROM %1 WHERE %1 = ? COLLATE BINARY").arg(table));
    s.bind(0, QString(name));
    if (!s.step()) return "<none>";
    QStringList out;
    for (int i = 0; i < 6; ++i) out << QString::number(s.column(i).toDouble());
    return out.join('/');
  }
  int rows(qint64 nb) { return plan.db().scalar("SELECT count(*) FROM Invoice WHERE InvoiceNb = ?", {nb}).toInt(); }

  test::TestPlanning plan;
};

TEST_F(InvoiceAccountsTest, AWaitingInvoiceLeavesTheSavedSumsAndAPostedOneThePostedSums) {
  // A waiting invoice: head, a service priced in its included column, a
  // discount with its prefix and a bracketed remark, a payment, a total.
  line(-4, "0", "Durand", 0);
  line(-4, "1", "Room", 0, 80.25);
  line(-4, "2", "  # Discount [10 %]", -10);
  line(-4, "3", "Cash", 70.25);
  line(-4, "5", "Total", 999);
  line(9, "1", "Room", 100);  // another invoice stays

  EXPECT_EQ(DeleteInvoice(plan.db(), plan.clock(), "-4"), 5);
  EXPECT_EQ(rows(-4), 0);
  EXPECT_EQ(rows(9), 1);
  EXPECT_EQ(sums("Designation", "Room"), "500/1500/2500/39.75/1039.75/2039.75");
  EXPECT_EQ(sums("Designation", "room"), "7/1007/2007/7/1007/2007");
  EXPECT_EQ(sums("Modification", "Discount"), "30/1030/2030/5/1005/2005");
  EXPECT_EQ(sums("Payment", "Cash"), "400/1400/2400/29.75/1029.75/2029.75");

  EXPECT_EQ(DeleteInvoice(plan.db(), plan.clock(), "9"), 1);
  EXPECT_EQ(sums("Designation", "Room"), "400/1400/2400/39.75/1039.75/2039.75");
}

TEST_F(InvoiceAccountsTest, NoNumberOrAnUnknownAccountMovesNothing) {
  EXPECT_EQ(DeleteInvoice(plan.db(), plan.clock(), ""), 0);
  line(-2, "1", "Breakfast", 12);  // not in the catalogue: the row goes all the same
  EXPECT_EQ(DeleteInvoice(plan.db(), plan.clock(), "-2"), 1);
  EXPECT_EQ(sums("Designation", "Room"), "500/1500/2500/120/1120/2120");

  AddInAccount(plan.db(), "7", "Room", Currency::fromWhole(5), "A", "N");
  EXPECT_EQ(sums("Designation", "Room"), "500/1500/2500/120/1120/2120");
  AddInAccount(plan.db(), "1", "Room", Currency::fromWhole(-5), "A", "O");  // the sign does not count
  EXPECT_EQ(sums("Designation", "Room"), "505/1505/2505/120/1120/2120");
}

}  // namespace
