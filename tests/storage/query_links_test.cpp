// Booking rows of an invoice, overstays, coloured days, the report lines.
#include "query_test_planning.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class LinkQueries : public QueryPlanning {
 protected:
  void head(int nb, const QVariant& from) { row("Invoice", {{"InvoiceNb", nb}, {"Typ", "0"}, {"From", from}}); }
};

TEST_F(LinkQueries, ReservationInvNbGivesTheBookingRowsOfOneInvoice) {
  booking("101", day(2024, 6, 1), day(2024, 6, 3), "A", {{"InvNb", 12}});
  booking("102", day(2024, 6, 1), day(2024, 6, 3), "B", {{"InvNb", -12}});
  booking("103", day(2024, 6, 4), day(2024, 6, 6), "C", {{"InvNb", 12}});
  booking("104", day(2024, 6, 4), day(2024, 6, 6), "D");
  EXPECT_EQ(column("RQ_ReservationInvNb", "Nom", {12}), (QStringList{"A", "C"}));
  EXPECT_EQ(column("RQ_ReservationInvNb", "Nom", {-12}), (QStringList{"B"}));
}

// Today is 15 June 2024.
TEST_F(LinkQueries, OverstaysAreEndedBookingsWithoutAPostedInvoice) {
  booking("101", day(2024, 6, 1), day(2024, 6, 10), "NoInvoice");
  booking("102", day(2024, 6, 1), day(2024, 6, 15), "EndsToday");
  booking("103", day(2024, 6, 1), day(2024, 6, 12), "Waiting", {{"InvNb", -5}});
  head(-5, {});
  booking("104", day(2024, 6, 1), day(2024, 6, 11), "Posted", {{"InvNb", 6}});
  head(6, day(2024, 6, 11));
  booking("105", day(2024, 6, 1), day(2024, 6, 13), "PendingPositive", {{"InvNb", 7}});
  head(7, {});
  booking("106", day(2024, 6, 20), day(2024, 6, 22), "Future", {{"InvNb", -8}});
  head(-8, {});
  // An invoice line with an empty From is not a head row: no overstay from it.
  booking("107", day(2024, 6, 1), day(2024, 6, 9), "PostedWithLines", {{"InvNb", 9}});
  head(9, day(2024, 6, 9));
  row("Invoice", {{"InvoiceNb", 9}, {"Typ", "1"}});

  EXPECT_EQ(column("OverStayInvNbNull", "Nom"), (QStringList{"NoInvoice"}));
  QStringList fromNull = column("OverStayFromNull", "Nom");
  fromNull.sort();
  EXPECT_EQ(fromNull, (QStringList{"PendingPositive", "Waiting"}));
  EXPECT_EQ(column("OverStayUnion", "Nom"), (QStringList{"PendingPositive", "Waiting", "NoInvoice"}));
}

TEST_F(LinkQueries, OverstayUnionYieldsABookingOnceEvenWhenItStandsInBothLists) {
  // A head row joined twice (two head rows share the number): DISTINCT and
  // UNION keep one row.
  booking("101", day(2024, 6, 1), day(2024, 6, 10), "Twice", {{"InvNb", -3}});
  head(-3, {});
  head(-3, {});
  booking("102", day(2024, 6, 1), day(2024, 6, 12), "Alone");
  EXPECT_EQ(column("OverStayFromNull", "Nom"), (QStringList{"Twice"}));
  EXPECT_EQ(column("OverStayUnion", "Nom"), (QStringList{"Alone", "Twice"}));
  // Identical bookings are one overstay in the engine's sense as well.
  booking("102", day(2024, 6, 1), day(2024, 6, 12), "Alone");
  EXPECT_EQ(column("OverStayUnion", "Nom"), (QStringList{"Alone", "Twice"}));
}

TEST_F(LinkQueries, DayColorsOfAPeriod) {
  row("DayColor", {{"IdDay", day(2024, 6, 20)}, {"Color", 3}});
  row("DayColor", {{"IdDay", day(2024, 6, 10)}, {"Color", 1}});
  row("DayColor", {{"IdDay", day(2024, 6, 30)}, {"Color", 2}});
  row("DayColor", {{"IdDay", day(2024, 7, 1)}, {"Color", 4}});
  row("DayColor", {{"IdDay", day(2024, 6, 9)}, {"Color", 4}});
  EXPECT_EQ(columns("RQ_DayColor", {"IdDay", "Color"}, {day(2024, 6, 10), day(2024, 6, 30)}),
            (QStringList{"2024-06-10/1", "2024-06-20/3", "2024-06-30/2"}));
}

TEST_F(LinkQueries, ReportLinesInGroupOrder) {
  // Group is a number here: 10 comes after 9.
  row("Report", {{"Group", 10}, {"Lib", "Total"}});
  row("Report", {{"Group", 2}, {"Lib", "Room"}});
  row("Report", {{"Group", 9}, {"Lib", "Tax"}});
  EXPECT_EQ(column("RQ_Report", "Lib"), (QStringList{"Room", "Tax", "Total"}));
}

}  // namespace
