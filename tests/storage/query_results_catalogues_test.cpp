// Occupancy and alarm reads, and the sorted catalogues.
#include "query_test_planning.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class ResultAndCatalogueQueries : public QueryPlanning {};

TEST_F(ResultAndCatalogueQueries, ResultTakesEveryRowTouchingThePeriod) {
  const QDate dd = day(2024, 3, 1), df = day(2024, 3, 31);
  booking("101", day(2024, 3, 5), day(2024, 3, 8), "Inside", {{"HowMany", 2}});
  booking("102", day(2024, 2, 20), dd, "EndsFirst");
  booking("103", df, day(2024, 4, 2), "StartsLast", {{"GroupId", "L"}});
  booking("104", day(2024, 2, 1), day(2024, 4, 30), "Spans", {{"GroupId", "A"}});
  booking("105", day(2024, 2, 1), day(2024, 2, 29), "Before");
  booking("106", day(2024, 4, 1), day(2024, 4, 3), "After");
  QueryCommand command = catalogue().command("RQ_Result");
  command.setParameters({dd, df});
  Statement& st = command.open();
  EXPECT_EQ(st.columnNames(), (QStringList{"Resource", "Date_Deb", "Date_Fin", "HowMany"}));
  QStringList rows;
  while (st.step()) rows << st.column(0).toString() + "/" + st.column(3).toString();
  rows.sort();
  EXPECT_EQ(rows, (QStringList{"101/2", "102/1", "103/1", "104/1"}));
}

TEST_F(ResultAndCatalogueQueries, AlarmShowsDeparturesArrivalsAndTheTwoChosenDays) {
  const QDate today = day(2024, 6, 15);
  // P_Date today; departures up to DA0, arrivals up to DA1, arrivals on DA2 and DA3.
  const QVariantList params{today, day(2024, 6, 16), day(2024, 6, 17), day(2024, 6, 20), day(2024, 6, 25)};
  booking("102", day(2024, 6, 10), today, "LeavesToday");
  booking("101", day(2024, 6, 10), day(2024, 6, 16), "LeavesTomorrow");  // same arrival: by resource
  booking("103", day(2024, 6, 1), day(2024, 6, 14), "LeftYesterday");
  booking("104", day(2024, 6, 10), day(2024, 6, 18), "LeavesLater");
  booking("105", day(2024, 6, 17), day(2024, 6, 19), "ArrivesDA1");
  booking("106", day(2024, 6, 18), day(2024, 6, 19), "ArrivesAfterDA1");
  booking("107", day(2024, 6, 20), day(2024, 6, 22), "ArrivesDA2");
  booking("108", day(2024, 6, 25), day(2024, 6, 27), "ArrivesDA3");
  booking("109", day(2024, 6, 24), day(2024, 6, 27), "ArrivesBeforeDA3");
  // Arrives on DA2 at a stated hour: still that day.
  insertRow(db_, "Reservation",
            {{"Resource", "100"}, {"Date_Deb", QDateTime(day(2024, 6, 20), QTime(15, 0))},
             {"Date_Fin", day(2024, 6, 21)}, {"Nom", "ArrivesDA2Timed"}, {"GroupId", "C"}});
  EXPECT_EQ(column("RQ_Alarm", "Nom", params),
            (QStringList{"LeavesTomorrow", "LeavesToday", "ArrivesDA1", "ArrivesDA2", "ArrivesDA2Timed",
                         "ArrivesDA3"}));
}

TEST_F(ResultAndCatalogueQueries, CatalogueTablesSortByName) {
  for (const char* n : {"Petit", "durand", "Abel"}) row("T_BlackList", {{"Nom", n}});
  for (const char* n : {"Room", "breakfast", "Taxi"}) row("Designation", {{"Designation", n}});
  for (const char* n : {"VAT", "discount", "City tax"}) row("Modification", {{"Modification", n}});
  for (const char* n : {"Visa", "cash", "Cheque"}) row("Payment", {{"Payment", n}});
  EXPECT_EQ(column("BlackList", "Nom"), (QStringList{"Abel", "durand", "Petit"}));
  EXPECT_EQ(column("DesignationSort", "Designation"), (QStringList{"breakfast", "Room", "Taxi"}));
  EXPECT_EQ(column("ModificationSort", "Modification"), (QStringList{"City tax", "discount", "VAT"}));
  EXPECT_EQ(column("PaymentSort", "Payment"), (QStringList{"cash", "Cheque", "Visa"}));
}

TEST_F(ResultAndCatalogueQueries, GroupsOfInvoicingHaveABlankSignGroupsOfResultAnother) {
  row("AccountGroup", {{"Group", "Rooms"}, {"Account", "Single"}, {"Sign", " "}});
  row("AccountGroup", {{"Group", "Rooms"}, {"Account", "Double"}, {"Sign", " "}});
  row("AccountGroup", {{"Group", "Extras"}, {"Account", "Bar"}, {"Sign", " "}});
  row("AccountGroup", {{"Group", "Margin"}, {"Account", "Single"}, {"Sign", "+"}});
  row("AccountGroup", {{"Group", "Margin"}, {"Account", "Commission"}, {"Sign", "-"}});
  row("AccountGroup", {{"Group", "Balance"}, {"Account", "Cash"}, {"Sign", "+"}});
  row("AccountGroup", {{"Group", "Rooms"}, {"Account", "Suite"}, {"Sign", "+"}});

  EXPECT_EQ(column("InvoiceGroupSort", "Group"), (QStringList{"Extras", "Rooms"}));
  EXPECT_EQ(column("ResultGroupSort", "Group"), (QStringList{"Balance", "Margin", "Rooms"}));
  EXPECT_EQ(columns("InvoiceAccountSort", {"Account", "Sign"}, {"Rooms"}), (QStringList{"Double/ ", "Single/ "}));
  EXPECT_EQ(columns("ResultAccountSort", {"Account", "Sign"}, {"Margin"}), (QStringList{"Commission/-", "Single/+"}));
  EXPECT_EQ(columns("ResultAccountSort", {"Account", "Sign"}, {"Rooms"}), (QStringList{"Suite/+"}));
  EXPECT_TRUE(column("InvoiceAccountSort", "Account", {"Nothing"}).isEmpty());
}

}  // namespace
