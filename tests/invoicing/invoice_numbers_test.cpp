// Waiting numbers and the numbers posting gives, with and without stopgap.
#include "invoicing/invoice_numbers.h"

#include <gtest/gtest.h>

#include "config/ini_file.h"
#include "support/test_planning.h"

using namespace ksv;

namespace {

class InvoiceNumbersTest : public ::testing::Test {
 protected:
  InvoiceNumbersTest() : ini(plan.paths().iniFile()) {
    ini.SetValue("Company", "BeginPeriod", "250101");
    plan.db().execute("UPDATE DataBaseInfo SET MaxInvNb = 20");
  }
  qlonglong counter(const char* name) { return plan.db().scalar(QString("SELECT %1 FROM DataBaseInfo").arg(name)).toLongLong(); }
  test::TestPlanning plan;
  IniFile ini;
};

TEST_F(InvoiceNumbersTest, WaitingNumbersRunDownFromMaxWaitNb) {
  EXPECT_EQ(NextWaitNb(plan.db()), -1);
  EXPECT_EQ(NextWaitNb(plan.db()), -2);
  EXPECT_EQ(counter("MaxWaitNb"), -2);
}

TEST_F(InvoiceNumbersTest, StopgapFillsTheHoleOfThePeriodThenCounts) {
  plan.addPostedInvoice(3, QDate(2024, 12, 31));  // before the period: its hole is never seen
  for (int n : {10, 11, 13}) plan.addPostedInvoice(n, QDate(2025, 2, 1));
  ini.SetValue("Company", "Stopgap", "O");
  QString InvNb = "-7", OldInvNb;
  ChangeWaitNbToInvNb(plan.db(), plan.clock(), ini, InvNb, OldInvNb);
  EXPECT_EQ(InvNb, "12");
  EXPECT_EQ(OldInvNb, "-7");
  EXPECT_EQ(counter("MaxInvNb"), 20);
  plan.addPostedInvoice(12, QDate(2025, 3, 1));
  EXPECT_EQ(NextInvNb(plan.db(), plan.clock(), ini), 21);
  EXPECT_EQ(counter("MaxInvNb"), 21);
}

TEST_F(InvoiceNumbersTest, WithoutStopgapOrPostedInvoicesTheCounterGives) {
  for (int n : {10, 11, 13}) plan.addPostedInvoice(n, QDate(2025, 2, 1));
  ini.SetValue("Company", "Stopgap", "N");
  EXPECT_EQ(NextInvNb(plan.db(), plan.clock(), ini), 21);
  test::TestPlanning empty;
  IniFile other(empty.paths().iniFile());
  other.SetValue("Company", "Stopgap", "O");
  EXPECT_EQ(NextInvNb(empty.db(), empty.clock(), other), 1);
}

}  // namespace
