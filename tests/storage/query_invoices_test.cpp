// The invoice queries: one invoice, the pending and posted lists in every sort
// order, and the statements that fill the work table InvoiceAll.
#include "support/test_planning.h"

using namespace ksv;
using namespace ksv::test;

namespace {

const QDate kDP = QDate(2024, 6, 1);

class InvoiceQueries : public PlanningTest {
 protected:
  InvoiceQueries() : PlanningTest(QDate(2024, 6, 15)) {}
  void SetUp() override {
    // Posted cash sales.
    head(5, "Y", "Bar", QDate(2024, 5, 10), QDate(2024, 5, 10), 30, 25);
    head(7, "Y", "Late", QDateTime(QDate(2024, 5, 31), QTime(23, 0)), QDate(2024, 5, 31), 20, 18);
    head(9, "Y", "Mid", QDateTime(kDP, QTime(9, 30)), kDP, 50, 45);
    head(8, "Y", "Zed", QDate(2024, 6, 2), QDate(2024, 6, 2), 10, 9);
    head(3, "Y", "alpha", QDate(2024, 6, 10), QDate(2024, 6, 10), 80, 70);
    // Pending cash sales.
    head(-2, "Y", "Kiosk", {}, QDate(2024, 6, 20), 16, 15);
    head(-4, "Y", "café", {}, QDate(2024, 6, 18), 42, 40);
    // Posted invoices of bookings; invoice 4 has two booking rows.
    head(4, "N", "Martin", QDate(2024, 6, 5), QDate(2024, 6, 4), 300, 280);
    line(4, "1", "Room");
    line(4, "3", "Visa");
    head(6, "N", "Durand", QDate(2024, 5, 20), QDate(2024, 5, 19), 500, 470);
    head(10, "N", "Colin", kDP, QDate(2024, 5, 31), 150, 140);
    // Pending invoices of bookings; invoice -3 has two booking rows.
    head(-1, "N", "Bernard", {}, QDate(2024, 6, 25), 210, 200);
    head(-3, "N", "Albert", {}, QDate(2024, 6, 22), 950, 900);
    line(-3, "3", "Cash");
    line(-3, "1", "Room");
    line(-1, "1", "Room");

    stay("R3", "Martin", 4, "1");
    stay("R1", "Martin", 4, "2");
    stay("R5", "Durand", 6, "0");
    stay("R2", "Colin", 10, "0");
    stay("A1", "Bernard", -1, "0");
    stay("B1", "Albert", -3, "2");
    stay("B2", "Albert", -3, "1");
    stay("C1", "NoInvoice", QVariant(), "0");
  }

  void head(int nb, const char* addUp, const QString& lib, const QVariant& from, QDate to, double total, double net) {
    plan.addRow("Invoice", {{"InvoiceNb", nb}, {"Typ", "0"}, {"Lib", lib}, {"From", from}, {"To", to},
                    {"UPriceIncluded", total}, {"PriceNotIncluded", net}, {"AddUp", addUp}});
  }
  void line(int nb, const char* typ, const QString& lib) {
    plan.addRow("Invoice", {{"InvoiceNb", nb}, {"Typ", typ}, {"Lib", lib}, {"From", QDate(2024, 6, 1)}, {"UPriceIncluded", 1}});
  }
  void stay(const QString& resource, const QString& nom, const QVariant& invNb, const char* split) {
    plan.addBooking(resource, QDate(2024, 5, 28), QDate(2024, 6, 4), nom,
            {{"InvNb", invNb}, {"Split", split}, {"GroupNb", 0}, {"Remarque", "r-" + resource}});
  }
  QStringList nbs(const QString& query, const QVariantList& params = {}) { return plan.queryColumn(query, "InvoiceNb", params); }
};

TEST_F(InvoiceQueries, OneInvoiceInStoredOrder) {
  EXPECT_EQ(plan.queryRows("RQ_Invoice", {"Typ", "Lib"}, {-3}), (QStringList{"0/Albert", "3/Cash", "1/Room"}));
  EXPECT_EQ(plan.queryRows("RQ_Invoice", {"Typ", "Lib"}, {4}), (QStringList{"0/Martin", "1/Room", "3/Visa"}));
  EXPECT_TRUE(nbs("RQ_Invoice", {99}).isEmpty());
}

TEST_F(InvoiceQueries, AllPendingRowsByNumberAndKind) {
  EXPECT_EQ(plan.queryRows("RQ_InvoiceAllPending", {"InvoiceNb", "Typ"}),
            (QStringList{"-4/0", "-3/0", "-3/1", "-3/3", "-2/0", "-1/0", "-1/1"}));
}

TEST_F(InvoiceQueries, PendingCashSales) {
  EXPECT_EQ(nbs("RQ_InvoicePdCS"), (QStringList{"-2", "-4"}));
  EXPECT_EQ(nbs("RQ_InvoicePdCsNb"), (QStringList{"-4", "-2"}));
  EXPECT_EQ(plan.queryColumn("RQ_InvoicePdCsNm", "Lib"), (QStringList{"café", "Kiosk"}));
  EXPECT_EQ(nbs("RQ_InvoicePdCsLv"), (QStringList{"-4", "-2"}));
  EXPECT_EQ(nbs("RQ_InvoicePdCsTt"), (QStringList{"-4", "-2"}));
}

TEST_F(InvoiceQueries, PendingInvoicesOfBookingsCarryTheBookingColumnsAndSortOnSplitLast) {
  EXPECT_EQ(plan.queryRows("RQ_InvoicePdIv", {"InvoiceNb", "Resource", "Remarque"}).size(), 3);
  EXPECT_EQ(plan.queryRows("RQ_InvoicePdIvNb", {"InvoiceNb", "Split", "Resource"}),
            (QStringList{"-3/1/B2", "-3/2/B1", "-1/0/A1"}));
  EXPECT_EQ(plan.queryRows("RQ_InvoicePdIvNm", {"Lib", "Split"}), (QStringList{"Albert/1", "Albert/2", "Bernard/0"}));
  EXPECT_EQ(plan.queryRows("RQ_InvoicePdIvLv", {"InvoiceNb", "Split"}), (QStringList{"-3/1", "-3/2", "-1/0"}));
  EXPECT_EQ(plan.queryRows("RQ_InvoicePdIvTt", {"PriceNotIncluded", "Split"}), (QStringList{"900/1", "900/2", "200/0"}));
  EXPECT_EQ(plan.queryColumn("RQ_InvoicePdIvRm", "Resource"), (QStringList{"A1", "B1", "B2"}));
}

TEST_F(InvoiceQueries, PostedCashSalesFromDateTakeDPFirst) {
  // Posted on DP at 09:30 counts as posted from DP.
  EXPECT_EQ(nbs("RQ_InvoicePtCS", {kDP}), (QStringList{"9", "8", "3"}));
  EXPECT_EQ(nbs("RQ_InvoicePtCsNb", {kDP}), (QStringList{"3", "8", "9"}));
  EXPECT_EQ(nbs("RQ_InvoicePtCsDt", {kDP}), (QStringList{"9", "8", "3"}));
  EXPECT_EQ(plan.queryColumn("RQ_InvoicePtCsNm", "Lib", {kDP}), (QStringList{"alpha", "Mid", "Zed"}));
  EXPECT_EQ(nbs("RQ_InvoicePtCsTt", {kDP}), (QStringList{"3", "9", "8"}));
  EXPECT_EQ(nbs("RQ_InvoicePtCsNb", {QDate(2024, 6, 3)}), (QStringList{"3"}));
  EXPECT_EQ(plan.catalogue().command("RQ_InvoicePtCsNb").parameterCount(), 1);
}

TEST_F(InvoiceQueries, PostedInvoicesOfBookingsFromDate) {
  EXPECT_EQ(nbs("RQ_InvoicePtIvNb", {kDP}), (QStringList{"4", "4", "10"}));
  EXPECT_EQ(plan.queryColumn("RQ_InvoicePtIvRm", "Resource", {kDP}), (QStringList{"R1", "R2", "R3"}));
  EXPECT_EQ(plan.queryColumn("RQ_InvoicePtIvNm", "Lib", {kDP}), (QStringList{"Colin", "Martin", "Martin"}));
  EXPECT_EQ(nbs("RQ_InvoicePtIvDt", {kDP}), (QStringList{"10", "4", "4"}));
  EXPECT_EQ(nbs("RQ_InvoicePtIvTt", {kDP}), (QStringList{"4", "4", "10"}));
  EXPECT_EQ(nbs("RQ_InvoicePtIv", {QDate(2024, 5, 1)}).size(), 4);
}

TEST_F(InvoiceQueries, AllPostedHeadsFromDateAndCashSalesToPurge) {
  EXPECT_EQ(nbs("RQ_InvoicePtDt", {kDP}), (QStringList{"10", "9", "8", "4", "3"}));
  EXPECT_EQ(nbs("RQ_InvoicePtNb", {kDP}), (QStringList{"3", "4", "8", "9", "10"}));
  // Before DP, whatever the hour; a sale posted on DP itself stays.
  EXPECT_EQ(nbs("InvoiceCsToPurge", {kDP}), (QStringList{"5", "7"}));
}

TEST_F(InvoiceQueries, WorkTableIsEmptiedAndFilledWithPostedInvoices) {
  EXPECT_EQ(plan.runQuery("RQ_InvoiceAllPtCs"), 5);
  EXPECT_EQ(plan.runQuery("RQ_InvoiceAllPtIv"), 4);  // invoice 4 once per booking row
  EXPECT_EQ(plan.count("InvoiceAll"), 9);

  // A cash sale has no booking: the columns' defaults fill the rest.
  EXPECT_EQ(plan.queryRows("InvoiceAllNb", {"InvoiceNb", "Resource", "Date_Deb", "Split", "Remarque", "GroupId", "GroupNb"})
                .first(),
            "3/<null>/<null>/<null>/<null>/C/0");
  EXPECT_EQ(nbs("InvoiceAllNb"), (QStringList{"3", "4", "4", "5", "6", "7", "8", "9", "10"}));
  EXPECT_EQ(plan.queryColumn("InvoiceAllRm", "Resource").mid(5), (QStringList{"R1", "R2", "R3", "R5"}));
  EXPECT_EQ(plan.queryColumn("InvoiceAllNm", "Lib"),
            (QStringList{"alpha", "Bar", "Colin", "Durand", "Late", "Martin", "Martin", "Mid", "Zed"}));
  EXPECT_EQ(nbs("InvoiceAllDt"), (QStringList{"5", "6", "7", "10", "9", "8", "4", "4", "3"}));
  EXPECT_EQ(nbs("InvoiceAllTt"), (QStringList{"6", "4", "4", "10", "3", "9", "5", "7", "8"}));
  const QStringList bookings = plan.queryRows("InvoiceAllNb", {"InvoiceNb", "Resource", "Split", "Remarque", "GroupId"});
  EXPECT_TRUE(bookings.contains("6/R5/0/r-R5/C"));

  EXPECT_EQ(plan.runQuery("RQ_InvoiceAllDelete"), 9);
  EXPECT_EQ(plan.count("InvoiceAll"), 0);

  EXPECT_EQ(plan.runQuery("RQ_InvoiceAllPtCsPd", {kDP}), 3);
  EXPECT_EQ(plan.runQuery("RQ_InvoiceAllPtIvPd", {kDP}), 3);
  EXPECT_EQ(nbs("InvoiceAllNb"), (QStringList{"3", "4", "4", "8", "9", "10"}));
}

}  // namespace
