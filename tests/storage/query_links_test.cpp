// Booking rows of an invoice, overstays, coloured days, the report lines.
#include "support/test_planning.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class LinkQueries : public PlanningTest {
 protected:
  LinkQueries() : PlanningTest(QDate(2024, 6, 15)) {}
  void head(int nb, const QVariant& from) { plan.addRow("Invoice", {{"InvoiceNb", nb}, {"Typ", "0"}, {"From", from}}); }
};

TEST_F(LinkQueries, ReservationInvNbGivesTheBookingRowsOfOneInvoice) {
  plan.addBooking("101", QDate(2024, 6, 1), QDate(2024, 6, 3), "A", {{"InvNb", 12}});
  plan.addBooking("102", QDate(2024, 6, 1), QDate(2024, 6, 3), "B", {{"InvNb", -12}});
  plan.addBooking("103", QDate(2024, 6, 4), QDate(2024, 6, 6), "C", {{"InvNb", 12}});
  plan.addBooking("104", QDate(2024, 6, 4), QDate(2024, 6, 6), "D");
  EXPECT_EQ(plan.queryColumn("RQ_ReservationInvNb", "Nom", {12}), (QStringList{"A", "C"}));
  EXPECT_EQ(plan.queryColumn("RQ_ReservationInvNb", "Nom", {-12}), (QStringList{"B"}));
}

// Today is 15 June 2024.
TEST_F(LinkQueries, OverstaysAreEndedBookingsWithoutAPostedInvoice) {
  plan.addBooking("101", QDate(2024, 6, 1), QDate(2024, 6, 10), "NoInvoice");
  plan.addBooking("102", QDate(2024, 6, 1), QDate(2024, 6, 15), "EndsToday");
  plan.addBooking("103", QDate(2024, 6, 1), QDate(2024, 6, 12), "Waiting", {{"InvNb", -5}});
  head(-5, {});
  plan.addBooking("104", QDate(2024, 6, 1), QDate(2024, 6, 11), "Posted", {{"InvNb", 6}});
  head(6, QDate(2024, 6, 11));
  plan.addBooking("105", QDate(2024, 6, 1), QDate(2024, 6, 13), "PendingPositive", {{"InvNb", 7}});
  head(7, {});
  plan.addBooking("106", QDate(2024, 6, 20), QDate(2024, 6, 22), "Future", {{"InvNb", -8}});
  head(-8, {});
  // An invoice line with an empty From is not a head row: no overstay from it.
  plan.addBooking("107", QDate(2024, 6, 1), QDate(2024, 6, 9), "PostedWithLines", {{"InvNb", 9}});
  head(9, QDate(2024, 6, 9));
  plan.addRow("Invoice", {{"InvoiceNb", 9}, {"Typ", "1"}});

  EXPECT_EQ(plan.queryColumn("OverStayInvNbNull", "Nom"), (QStringList{"NoInvoice"}));
  QStringList fromNull = plan.queryColumn("OverStayFromNull", "Nom");
  fromNull.sort();
  EXPECT_EQ(fromNull, (QStringList{"PendingPositive", "Waiting"}));
  EXPECT_EQ(plan.queryColumn("OverStayUnion", "Nom"), (QStringList{"PendingPositive", "Waiting", "NoInvoice"}));
}

TEST_F(LinkQueries, OverstayUnionYieldsABookingOnceEvenWhenItStandsInBothLists) {
  // A head row joined twice (two head rows share the number): DISTINCT and
  // UNION keep one row.
  plan.addBooking("101", QDate(2024, 6, 1), QDate(2024, 6, 10), "Twice", {{"InvNb", -3}});
  head(-3, {});
  head(-3, {});
  plan.addBooking("102", QDate(2024, 6, 1), QDate(2024, 6, 12), "Alone");
  EXPECT_EQ(plan.queryColumn("OverStayFromNull", "Nom"), (QStringList{"Twice"}));
  EXPECT_EQ(plan.queryColumn("OverStayUnion", "Nom"), (QStringList{"Alone", "Twice"}));
  // Identical bookings are one overstay in the engine's sense as well.
  plan.addBooking("102", QDate(2024, 6, 1), QDate(2024, 6, 12), "Alone");
  EXPECT_EQ(plan.queryColumn("OverStayUnion", "Nom"), (QStringList{"Alone", "Twice"}));
}

TEST_F(LinkQueries, DayColorsOfAPeriod) {
  plan.addRow("DayColor", {{"IdDay", QDate(2024, 6, 20)}, {"Color", 3}});
  plan.addRow("DayColor", {{"IdDay", QDate(2024, 6, 10)}, {"Color", 1}});
  plan.addRow("DayColor", {{"IdDay", QDate(2024, 6, 30)}, {"Color", 2}});
  plan.addRow("DayColor", {{"IdDay", QDate(2024, 7, 1)}, {"Color", 4}});
  plan.addRow("DayColor", {{"IdDay", QDate(2024, 6, 9)}, {"Color", 4}});
  EXPECT_EQ(plan.queryRows("RQ_DayColor", {"IdDay", "Color"}, {QDate(2024, 6, 10), QDate(2024, 6, 30)}),
            (QStringList{"2024-06-10/1", "2024-06-20/3", "2024-06-30/2"}));
}

TEST_F(LinkQueries, ReportLinesInGroupOrder) {
  // Group is a number here: 10 comes after 9.
  plan.addRow("Report", {{"Group", 10}, {"Lib", "Total"}});
  plan.addRow("Report", {{"Group", 2}, {"Lib", "Room"}});
  plan.addRow("Report", {{"Group", 9}, {"Lib", "Tax"}});
  EXPECT_EQ(plan.queryColumn("RQ_Report", "Lib"), (QStringList{"Room", "Tax", "Total"}));
}

}  // namespace
