// The booking queries: the board's read, groups, availability, resources,
// customers and agents, and the history lists.
#include "storage/schema.h"
#include "support/test_planning.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class BookingQueries : public PlanningTest {
 protected:
  BookingQueries() : PlanningTest(QDate(2024, 6, 15)) {}
  // P_DD, P_DF, then R1..R40 with the given resources first and "" after.
  static QVariantList boardParams(QDate first, QDate last, QMap<int, QString> resources) {
    QVariantList params{first, last};
    for (int r = 1; r <= 40; ++r) params.append(resources.value(r, QString("")));
    return params;
  }
};

TEST_F(BookingQueries, ReservationReadsThePeriodOfTheListedResources) {
  const QDate dd = QDate(2024, 7, 10), df = QDate(2024, 7, 20);
  plan.addBooking("101", QDate(2024, 7, 12), QDate(2024, 7, 14), "Inside");
  plan.addBooking("101", df, QDate(2024, 7, 25), "StartsOnLastDay");
  plan.addBooking("101", QDate(2024, 7, 5), dd, "EndsOnFirstDay");
  plan.addBooking("101", QDate(2024, 7, 1), QDate(2024, 7, 30), "Spans");
  plan.addBooking("101", QDate(2024, 7, 1), QDate(2024, 7, 9), "Before");
  plan.addBooking("101", QDate(2024, 7, 21), QDate(2024, 7, 23), "After");
  plan.addBooking("102", QDate(2024, 7, 12), QDate(2024, 7, 14), "OtherRoom");
  plan.addBooking("101", QDate(2024, 7, 11), QDate(2024, 7, 13), "Leader", {{"GroupId", "L"}});
  plan.addBooking("131", QDate(2024, 7, 15), QDate(2024, 7, 16), "ThirtyFirst");
  // A first day that holds a time still counts as the last day of the period.
  insertRow(plan.db(), "Reservation",
            {{"Resource", "101"}, {"Date_Deb", QDateTime(df, QTime(14, 0))}, {"Date_Fin", QDate(2024, 7, 22)},
             {"Nom", "TimedStart"}, {"GroupId", "C"}});

  // R31 is used without being declared: it is bound after R30.
  const QStringList names =
      plan.queryColumn("RQ_Reservation", "Nom", boardParams(dd, df, {{1, "101"}, {31, "131"}}));
  EXPECT_EQ(names, (QStringList{"Spans", "EndsOnFirstDay", "Inside", "ThirtyFirst", "StartsOnLastDay", "TimedStart"}));

  // The same resource given as R40, the last position.
  EXPECT_EQ(plan.queryColumn("RQ_Reservation", "Nom", boardParams(dd, df, {{40, "102"}})), (QStringList{"OtherRoom"}));
  // Unused resource parameters are empty and match nothing.
  EXPECT_TRUE(plan.queryColumn("RQ_Reservation", "Nom", boardParams(dd, df, {})).isEmpty());
}

TEST_F(BookingQueries, ReservationThirdClauseNeedsBothEndsOutside) {
  const QDate dd = QDate(2024, 7, 10), df = QDate(2024, 7, 20);
  // Starts before and ends before: "Date_Deb < P_DD" alone must not let it in.
  plan.addBooking("101", QDate(2024, 7, 1), QDate(2024, 7, 8), "EarlyOnly");
  // Ends after and starts after: "Date_Fin > P_DF" alone neither.
  plan.addBooking("101", QDate(2024, 7, 22), QDate(2024, 7, 28), "LateOnly");
  plan.addBooking("101", QDate(2024, 7, 9), QDate(2024, 7, 21), "BothOutside");
  EXPECT_EQ(plan.queryColumn("RQ_Reservation", "Nom", boardParams(dd, df, {{1, "101"}})), (QStringList{"BothOutside"}));
}

TEST_F(BookingQueries, PossibleUsersLieWhollyInThePeriodOutsideAnyGroup) {
  const QDate dd = QDate(2024, 8, 1), df = QDate(2024, 8, 10);
  plan.addBooking("101", QDate(2024, 8, 2), QDate(2024, 8, 5), "Zeller", {{"GroupNb", 0}});
  plan.addBooking("102", dd, df, "adams", {{"GroupNb", 0}});
  plan.addBooking("103", QDate(2024, 8, 3), df, "Brun", {{"GroupNb", 0}});
  plan.addBooking("104", QDate(2024, 7, 31), QDate(2024, 8, 5), "SticksOutBefore", {{"GroupNb", 0}});
  plan.addBooking("105", QDate(2024, 8, 5), QDate(2024, 8, 11), "SticksOutAfter", {{"GroupNb", 0}});
  plan.addBooking("106", QDate(2024, 8, 2), QDate(2024, 8, 4), "InGroup", {{"GroupNb", 3}});
  plan.addBooking("107", QDate(2024, 8, 2), QDate(2024, 8, 4), "Leader", {{"GroupNb", 0}, {"GroupId", "L"}});
  plan.addBooking("108", QDate(2024, 8, 2), QDate(2024, 8, 4), "NoGroupNumber", {{"GroupNb", QVariant()}});
  // Leaving on the last day at any hour is still within the period.
  insertRow(plan.db(), "Reservation",
            {{"Resource", "109"}, {"Date_Deb", QDate(2024, 8, 4)}, {"Date_Fin", QDateTime(df, QTime(10, 30))},
             {"Nom", "Carter"}, {"GroupId", "C"}, {"GroupNb", 0}});
  // Names sort without regard to case.
  EXPECT_EQ(plan.queryColumn("RQ_PossibleUsers", "Nom", {dd, df}), (QStringList{"adams", "Brun", "Carter", "Zeller"}));
}

TEST_F(BookingQueries, GroupResponsibleAndUsersSplitTheRowsOfOneGroup) {
  plan.addBooking("100", QDate(2024, 8, 1), QDate(2024, 8, 5), "Leader", {{"GroupId", "L"}, {"GroupNb", 7}});
  plan.addBooking("101", QDate(2024, 8, 1), QDate(2024, 8, 5), "Agent", {{"GroupId", "A"}, {"GroupNb", 7}});
  plan.addBooking("102", QDate(2024, 8, 1), QDate(2024, 8, 5), "Member1", {{"GroupNb", 7}});
  plan.addBooking("103", QDate(2024, 8, 1), QDate(2024, 8, 5), "Member2", {{"GroupNb", 7}});
  plan.addBooking("104", QDate(2024, 8, 1), QDate(2024, 8, 5), "OtherGroup", {{"GroupNb", 8}});
  plan.addBooking("105", QDate(2024, 8, 1), QDate(2024, 8, 5), "OtherLeader", {{"GroupId", "L"}, {"GroupNb", 8}});

  EXPECT_EQ(plan.queryColumn("RQ_GroupResponsible", "Nom", {7}), (QStringList{"Leader", "Agent"}));
  EXPECT_EQ(plan.queryColumn("RQ_GroupUsers", "Nom", {7}), (QStringList{"Member1", "Member2"}));
  EXPECT_TRUE(plan.queryColumn("RQ_GroupUsers", "Nom", {9}).isEmpty());
}

TEST_F(BookingQueries, FreeReadsEveryKindOfRowTouchingThePeriod) {
  const QDate dd = QDate(2024, 9, 10), df = QDate(2024, 9, 20);
  plan.addBooking("101", QDate(2024, 9, 15), QDate(2024, 9, 17), "Middle");
  plan.addBooking("102", QDate(2024, 9, 1), QDate(2024, 9, 30), "Spans");
  plan.addBooking("103", df, QDate(2024, 9, 22), "StartsLast", {{"GroupId", "L"}});
  plan.addBooking("104", QDate(2024, 9, 5), dd, "EndsFirst", {{"GroupId", "A"}});
  plan.addBooking("105", QDate(2024, 9, 1), QDate(2024, 9, 9), "Before");
  plan.addBooking("106", QDate(2024, 9, 21), QDate(2024, 9, 25), "After");
  EXPECT_EQ(plan.queryColumn("RQ_Free", "Nom", {dd, df}), (QStringList{"Spans", "EndsFirst", "Middle", "StartsLast"}));
}

TEST_F(BookingQueries, ResourcesInBoardOrder) {
  plan.addRow("Resource", {{"Resource", "Ten"}, {"Order", 10}});
  plan.addRow("Resource", {{"Resource", "Two"}, {"Order", 2}});
  plan.addRow("Resource", {{"Resource", "One"}, {"Order", 1}});
  EXPECT_EQ(plan.queryColumn("RQ_Resource", "Resource"), (QStringList{"One", "Two", "Ten"}));
}

TEST_F(BookingQueries, CustomersAndAgentsAreDistinctNamesOfTheBookings) {
  const QDate a = QDate(2024, 5, 1), b = QDate(2024, 5, 3);
  plan.addBooking("101", a, b, "Martin", {{"Email", "m@x.fr"}, {"Remarque", ""}});
  plan.addBooking("102", a, b, "Martin", {{"Email", "m@x.fr"}, {"Remarque", ""}});  // same customer: once
  plan.addBooking("103", a, b, "Martin", {{"Email", "other@x.fr"}, {"Remarque", ""}});
  plan.addBooking("104", a, b, "Martin", {{"Email", "m@x.fr"}, {"Remarque", "VIP"}});
  plan.addBooking("105", a, b, "Leroy", {{"GroupId", "L"}, {"Email", ""}, {"Remarque", ""}});
  plan.addBooking("106", a, b, "Voyages Sud", {{"GroupId", "A"}, {"Email", ""}, {"Remarque", ""}});
  plan.addBooking("107", a, b, "Voyages Sud", {{"GroupId", "A"}, {"Email", ""}, {"Remarque", ""}});
  plan.addBooking("108", a, b, "Agence Nord", {{"GroupId", "A"}, {"Email", "n@x.fr"}, {"Remarque", ""}});

  const QStringList customers = plan.queryRows("RQ_Customer", {"Nom", "Email", "Remarque", "GroupId"});
  ASSERT_EQ(customers.size(), 4);
  EXPECT_EQ(customers[0], "Leroy///L");
  EXPECT_EQ(customers.mid(1).size(), 3);
  for (const QString& c : customers.mid(1)) EXPECT_TRUE(c.startsWith("Martin/")) << c.toStdString();
  EXPECT_TRUE(customers.contains("Martin/other@x.fr//C"));
  EXPECT_TRUE(customers.contains("Martin/m@x.fr/VIP/C"));

  EXPECT_EQ(plan.queryRows("RQ_Agent", {"Nom", "Email"}), (QStringList{"Agence Nord/n@x.fr", "Voyages Sud/"}));
}

// Today is 15 June 2024.
TEST_F(BookingQueries, HistoryListsSelectOnTodayAndSortByNameOrDate) {
  plan.addBooking("101", QDate(2024, 6, 1), QDate(2024, 6, 10), "Bernard");       // past
  plan.addBooking("102", QDate(2024, 6, 5), QDate(2024, 6, 14), "Aubert");        // past, ended yesterday
  plan.addBooking("103", QDate(2024, 6, 10), QDate(2024, 6, 15), "Durand");       // leaves today: present
  plan.addBooking("104", QDate(2024, 6, 15), QDate(2024, 6, 18), "Colin");        // arrives today: present
  plan.addBooking("105", QDate(2024, 6, 16), QDate(2024, 6, 20), "Albert");       // future
  plan.addBooking("106", QDate(2024, 7, 1), QDate(2024, 7, 5), "Albert");         // future
  plan.addBooking("107", QDate(2024, 6, 1), QDate(2024, 6, 30), "Group", {{"GroupId", "L"}});
  // Arrives today at a stated hour: present, not future.
  insertRow(plan.db(), "Reservation",
            {{"Resource", "108"}, {"Date_Deb", QDateTime(plan.clock().today(), QTime(16, 0))}, {"Date_Fin", QDate(2024, 6, 17)},
             {"Nom", "Evrard"}, {"GroupId", "C"}});

  auto nomDeb = [this](const QString& q) { return plan.queryRows(q, {"Nom", "Date_Deb"}); };
  EXPECT_EQ(nomDeb("RQ_Review_N_All"),
            (QStringList{"Albert/2024-06-16", "Albert/2024-07-01", "Aubert/2024-06-05", "Bernard/2024-06-01",
                         "Colin/2024-06-15", "Durand/2024-06-10", "Evrard/2024-06-15 16:00:00"}));
  EXPECT_EQ(nomDeb("RQ_Review_D_All"),
            (QStringList{"Bernard/2024-06-01", "Aubert/2024-06-05", "Durand/2024-06-10", "Colin/2024-06-15",
                         "Evrard/2024-06-15 16:00:00", "Albert/2024-06-16", "Albert/2024-07-01"}));
  EXPECT_EQ(plan.queryColumn("RQ_Review_N_Past", "Nom"), (QStringList{"Aubert", "Bernard"}));
  EXPECT_EQ(plan.queryColumn("RQ_Review_D_Past", "Nom"), (QStringList{"Bernard", "Aubert"}));
  EXPECT_EQ(plan.queryColumn("RQ_Review_N_Present", "Nom"), (QStringList{"Colin", "Durand", "Evrard"}));
  EXPECT_EQ(plan.queryColumn("RQ_Review_D_Present", "Nom"), (QStringList{"Durand", "Colin", "Evrard"}));
  EXPECT_EQ(nomDeb("RQ_Review_N_Futur"), (QStringList{"Albert/2024-06-16", "Albert/2024-07-01"}));
  EXPECT_EQ(plan.queryColumn("RQ_Review_D_Futur", "Nom"), (QStringList{"Albert", "Albert"}));

  // The lists follow the clock.
  plan.clock().advanceDays(1);
  EXPECT_EQ(plan.queryColumn("RQ_Review_D_Futur", "Nom"), (QStringList{"Albert"}));
  EXPECT_EQ(plan.queryColumn("RQ_Review_N_Past", "Nom"), (QStringList{"Aubert", "Bernard", "Durand"}));
}

}  // namespace
