// Occupancy and alarm reads, and the sorted catalogues.
#include "storage/schema.h"
#include "support/test_planning.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class ResultAndCatalogueQueries : public PlanningTest {
 protected:
  ResultAndCatalogueQueries() : PlanningTest(QDate(2024, 6, 15)) {}
};

TEST_F(ResultAndCatalogueQueries, ResultTakesEveryRowTouchingThePeriod) {
  const QDate dd = QDate(2024, 3, 1), df = QDate(2024, 3, 31);
  plan.addBooking("101", QDate(2024, 3, 5), QDate(2024, 3, 8), "Inside", {{"HowMany", 2}});
  plan.addBooking("102", QDate(2024, 2, 20), dd, "EndsFirst");
  plan.addBooking("103", df, QDate(2024, 4, 2), "StartsLast", {{"GroupId", "L"}});
  plan.addBooking("104", QDate(2024, 2, 1), QDate(2024, 4, 30), "Spans", {{"GroupId", "A"}});
  plan.addBooking("105", QDate(2024, 2, 1), QDate(2024, 2, 29), "Before");
  plan.addBooking("106", QDate(2024, 4, 1), QDate(2024, 4, 3), "After");
  QueryCommand command = plan.catalogue().command("RQ_Result");
  command.setParameters({dd, df});
  Statement& st = command.open();
  EXPECT_EQ(st.columnNames(), (QStringList{"Resource", "Date_Deb", "Date_Fin", "HowMany"}));
  QStringList rows;
  while (st.step()) rows << st.column(0).toString() + "/" + st.column(3).toString();
  rows.sort();
  EXPECT_EQ(rows, (QStringList{"101/2", "102/1", "103/1", "104/1"}));
}

TEST_F(ResultAndCatalogueQueries, AlarmShowsDeparturesArrivalsAndTheTwoChosenDays) {
  const QDate today = QDate(2024, 6, 15);
  // P_Date today; departures up to DA0, arrivals up to DA1, arrivals on DA2 and DA3.
  const QVariantList params{today, QDate(2024, 6, 16), QDate(2024, 6, 17), QDate(2024, 6, 20), QDate(2024, 6, 25)};
  plan.addBooking("102", QDate(2024, 6, 10), today, "LeavesToday");
  plan.addBooking("101", QDate(2024, 6, 10), QDate(2024, 6, 16), "LeavesTomorrow");  // same arrival: by resource
  plan.addBooking("103", QDate(2024, 6, 1), QDate(2024, 6, 14), "LeftYesterday");
  plan.addBooking("104", QDate(2024, 6, 10), QDate(2024, 6, 18), "LeavesLater");
  plan.addBooking("105", QDate(2024, 6, 17), QDate(2024, 6, 19), "ArrivesDA1");
  plan.addBooking("106", QDate(2024, 6, 18), QDate(2024, 6, 19), "ArrivesAfterDA1");
  plan.addBooking("107", QDate(2024, 6, 20), QDate(2024, 6, 22), "ArrivesDA2");
  plan.addBooking("108", QDate(2024, 6, 25), QDate(2024, 6, 27), "ArrivesDA3");
  plan.addBooking("109", QDate(2024, 6, 24), QDate(2024, 6, 27), "ArrivesBeforeDA3");
  // Arrives on DA2 at a stated hour: still that day.
  insertRow(plan.db(), "Reservation",
            {{"Resource", "100"}, {"Date_Deb", QDateTime(QDate(2024, 6, 20), QTime(15, 0))},
             {"Date_Fin", QDate(2024, 6, 21)}, {"Nom", "ArrivesDA2Timed"}, {"GroupId", "C"}});
  EXPECT_EQ(plan.queryColumn("RQ_Alarm", "Nom", params),
            (QStringList{"LeavesTomorrow", "LeavesToday", "ArrivesDA1", "ArrivesDA2", "ArrivesDA2Timed",
                         "ArrivesDA3"}));
}

TEST_F(ResultAndCatalogueQueries, CatalogueTablesSortByName) {
  for (const char* n : {"Petit", "durand", "Abel"}) plan.addRow("T_BlackList", {{"Nom", n}});
  for (const char* n : {"Room", "breakfast", "Taxi"}) plan.addRow("Designation", {{"Designation", n}});
  for (const char* n : {"VAT", "discount", "City tax"}) plan.addRow("Modification", {{"Modification", n}});
  for (const char* n : {"Visa", "cash", "Cheque"}) plan.addRow("Payment", {{"Payment", n}});
  EXPECT_EQ(plan.queryColumn("BlackList", "Nom"), (QStringList{"Abel", "durand", "Petit"}));
  EXPECT_EQ(plan.queryColumn("DesignationSort", "Designation"), (QStringList{"breakfast", "Room", "Taxi"}));
  EXPECT_EQ(plan.queryColumn("ModificationSort", "Modification"), (QStringList{"City tax", "discount", "VAT"}));
  EXPECT_EQ(plan.queryColumn("PaymentSort", "Payment"), (QStringList{"cash", "Cheque", "Visa"}));
}

TEST_F(ResultAndCatalogueQueries, GroupsOfInvoicingHaveABlankSignGroupsOfResultAnother) {
  plan.addRow("AccountGroup", {{"Group", "Rooms"}, {"Account", "Single"}, {"Sign", " "}});
  plan.addRow("AccountGroup", {{"Group", "Rooms"}, {"Account", "Double"}, {"Sign", " "}});
  plan.addRow("AccountGroup", {{"Group", "Extras"}, {"Account", "Bar"}, {"Sign", " "}});
  plan.addRow("AccountGroup", {{"Group", "Margin"}, {"Account", "Single"}, {"Sign", "+"}});
  plan.addRow("AccountGroup", {{"Group", "Margin"}, {"Account", "Commission"}, {"Sign", "-"}});
  plan.addRow("AccountGroup", {{"Group", "Balance"}, {"Account", "Cash"}, {"Sign", "+"}});
  plan.addRow("AccountGroup", {{"Group", "Rooms"}, {"Account", "Suite"}, {"Sign", "+"}});

  EXPECT_EQ(plan.queryColumn("InvoiceGroupSort", "Group"), (QStringList{"Extras", "Rooms"}));
  EXPECT_EQ(plan.queryColumn("ResultGroupSort", "Group"), (QStringList{"Balance", "Margin", "Rooms"}));
  EXPECT_EQ(plan.queryRows("InvoiceAccountSort", {"Account", "Sign"}, {"Rooms"}), (QStringList{"Double/ ", "Single/ "}));
  EXPECT_EQ(plan.queryRows("ResultAccountSort", {"Account", "Sign"}, {"Margin"}), (QStringList{"Commission/-", "Single/+"}));
  EXPECT_EQ(plan.queryRows("ResultAccountSort", {"Account", "Sign"}, {"Rooms"}), (QStringList{"Suite/+"}));
  EXPECT_TRUE(plan.queryColumn("InvoiceAccountSort", "Account", {"Nothing"}).isEmpty());
}

}  // namespace
