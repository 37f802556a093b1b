// The booking queries: the board's read, groups, availability, resources,
// customers and agents, and the history lists.
#include "query_test_planning.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class BookingQueries : public QueryPlanning {
 protected:
  // P_DD, P_DF, then R1..R40 with the given resources first and "" after.
  static QVariantList boardParams(QDate first, QDate last, QMap<int, QString> resources) {
    QVariantList params{first, last};
    for (int r = 1; r <= 40; ++r) params.append(resources.value(r, QString("")));
    return params;
  }
};

TEST_F(BookingQueries, ReservationReadsThePeriodOfTheListedResources) {
  const QDate dd = day(2024, 7, 10), df = day(2024, 7, 20);
  booking("101", day(2024, 7, 12), day(2024, 7, 14), "Inside");
  booking("101", df, day(2024, 7, 25), "StartsOnLastDay");
  booking("101", day(2024, 7, 5), dd, "EndsOnFirstDay");
  booking("101", day(2024, 7, 1), day(2024, 7, 30), "Spans");
  booking("101", day(2024, 7, 1), day(2024, 7, 9), "Before");
  booking("101", day(2024, 7, 21), day(2024, 7, 23), "After");
  booking("102", day(2024, 7, 12), day(2024, 7, 14), "OtherRoom");
  booking("101", day(2024, 7, 11), day(2024, 7, 13), "Leader", {{"GroupId", "L"}});
  booking("131", day(2024, 7, 15), day(2024, 7, 16), "ThirtyFirst");
  // A first day that holds a time still counts as the last day of the period.
  insertRow(db_, "Reservation",
            {{"Resource", "101"}, {"Date_Deb", QDateTime(df, QTime(14, 0))}, {"Date_Fin", day(2024, 7, 22)},
             {"Nom", "TimedStart"}, {"GroupId", "C"}});

  // R31 is used without being declared: it is bound after R30.
  const QStringList names =
      column("RQ_Reservation", "Nom", boardParams(dd, df, {{1, "101"}, {31, "131"}}));
  EXPECT_EQ(names, (QStringList{"Spans", "EndsOnFirstDay", "Inside", "ThirtyFirst", "StartsOnLastDay", "TimedStart"}));

  // The same resource given as R40, the last position.
  EXPECT_EQ(column("RQ_Reservation", "Nom", boardParams(dd, df, {{40, "102"}})), (QStringList{"OtherRoom"}));
  // Unused resource parameters are empty and match nothing.
  EXPECT_TRUE(column("RQ_Reservation", "Nom", boardParams(dd, df, {})).isEmpty());
}

TEST_F(BookingQueries, ReservationThirdClauseNeedsBothEndsOutside) {
  const QDate dd = day(2024, 7, 10), df = day(2024, 7, 20);
  // Starts before and ends before: "Date_Deb < P_DD" alone must not let it in.
  booking("101", day(2024, 7, 1), day(2024, 7, 8), "EarlyOnly");
  // Ends after and starts after: "Date_Fin > P_DF" alone neither.
  booking("101", day(2024, 7, 22), day(2024, 7, 28), "LateOnly");
  booking("101", day(2024, 7, 9), day(2024, 7, 21), "BothOutside");
  EXPECT_EQ(column("RQ_Reservation", "Nom", boardParams(dd, df, {{1, "101"}})), (QStringList{"BothOutside"}));
}

TEST_F(BookingQueries, PossibleUsersLieWhollyInThePeriodOutsideAnyGroup) {
  const QDate dd = day(2024, 8, 1), df = day(2024, 8, 10);
  booking("101", day(2024, 8, 2), day(2024, 8, 5), "Zeller", {{"GroupNb", 0}});
  booking("102", dd, df, "adams", {{"GroupNb", 0}});
  booking("103", day(2024, 8, 3), df, "Brun", {{"GroupNb", 0}});
  booking("104", day(2024, 7, 31), day(2024, 8, 5), "SticksOutBefore", {{"GroupNb", 0}});
  booking("105", day(2024, 8, 5), day(2024, 8, 11), "SticksOutAfter", {{"GroupNb", 0}});
  booking("106", day(2024, 8, 2), day(2024, 8, 4), "InGroup", {{"GroupNb", 3}});
  booking("107", day(2024, 8, 2), day(2024, 8, 4), "Leader", {{"GroupNb", 0}, {"GroupId", "L"}});
  booking("108", day(2024, 8, 2), day(2024, 8, 4), "NoGroupNumber");
  // Leaving on the last day at any hour is still within the period.
  insertRow(db_, "Reservation",
            {{"Resource", "109"}, {"Date_Deb", day(2024, 8, 4)}, {"Date_Fin", QDateTime(df, QTime(10, 30))},
             {"Nom", "Carter"}, {"GroupId", "C"}, {"GroupNb", 0}});
  // Names sort without regard to case.
  EXPECT_EQ(column("RQ_PossibleUsers", "Nom", {dd, df}), (QStringList{"adams", "Brun", "Carter", "Zeller"}));
}

TEST_F(BookingQueries, GroupResponsibleAndUsersSplitTheRowsOfOneGroup) {
  booking("100", day(2024, 8, 1), day(2024, 8, 5), "Leader", {{"GroupId", "L"}, {"GroupNb", 7}});
  booking("101", day(2024, 8, 1), day(2024, 8, 5), "Agent", {{"GroupId", "A"}, {"GroupNb", 7}});
  booking("102", day(2024, 8, 1), day(2024, 8, 5), "Member1", {{"GroupNb", 7}});
  booking("103", day(2024, 8, 1), day(2024, 8, 5), "Member2", {{"GroupNb", 7}});
  booking("104", day(2024, 8, 1), day(2024, 8, 5), "OtherGroup", {{"GroupNb", 8}});
  booking("105", day(2024, 8, 1), day(2024, 8, 5), "OtherLeader", {{"GroupId", "L"}, {"GroupNb", 8}});

  EXPECT_EQ(column("RQ_GroupResponsible", "Nom", {7}), (QStringList{"Leader", "Agent"}));
  EXPECT_EQ(column("RQ_GroupUsers", "Nom", {7}), (QStringList{"Member1", "Member2"}));
  EXPECT_TRUE(column("RQ_GroupUsers", "Nom", {9}).isEmpty());
}

TEST_F(BookingQueries, FreeReadsEveryKindOfRowTouchingThePeriod) {
  const QDate dd = day(2024, 9, 10), df = day(2024, 9, 20);
  booking("101", day(2024, 9, 15), day(2024, 9, 17), "Middle");
  booking("102", day(2024, 9, 1), day(2024, 9, 30), "Spans");
  booking("103", df, day(2024, 9, 22), "StartsLast", {{"GroupId", "L"}});
  booking("104", day(2024, 9, 5), dd, "EndsFirst", {{"GroupId", "A"}});
  booking("105", day(2024, 9, 1), day(2024, 9, 9), "Before");
  booking("106", day(2024, 9, 21), day(2024, 9, 25), "After");
  EXPECT_EQ(column("RQ_Free", "Nom", {dd, df}), (QStringList{"Spans", "EndsFirst", "Middle", "StartsLast"}));
}

TEST_F(BookingQueries, ResourcesInBoardOrder) {
  row("Resource", {{"Resource", "Ten"}, {"Order", 10}});
  row("Resource", {{"Resource", "Two"}, {"Order", 2}});
  row("Resource", {{"Resource", "One"}, {"Order", 1}});
  EXPECT_EQ(column("RQ_Resource", "Resource"), (QStringList{"One", "Two", "Ten"}));
}

TEST_F(BookingQueries, CustomersAndAgentsAreDistinctNamesOfTheBookings) {
  const QDate a = day(2024, 5, 1), b = day(2024, 5, 3);
  booking("101", a, b, "Martin", {{"Email", "m@x.fr"}, {"Remarque", ""}});
  booking("102", a, b, "Martin", {{"Email", "m@x.fr"}, {"Remarque", ""}});  // same customer: once
  booking("103", a, b, "Martin", {{"Email", "other@x.fr"}, {"Remarque", ""}});
  booking("104", a, b, "Martin", {{"Email", "m@x.fr"}, {"Remarque", "VIP"}});
  booking("105", a, b, "Leroy", {{"GroupId", "L"}, {"Email", ""}, {"Remarque", ""}});
  booking("106", a, b, "Voyages Sud", {{"GroupId", "A"}, {"Email", ""}, {"Remarque", ""}});
  booking("107", a, b, "Voyages Sud", {{"GroupId", "A"}, {"Email", ""}, {"Remarque", ""}});
  booking("108", a, b, "Agence Nord", {{"GroupId", "A"}, {"Email", "n@x.fr"}, {"Remarque", ""}});

  const QStringList customers = columns("RQ_Customer", {"Nom", "Email", "Remarque", "GroupId"});
  ASSERT_EQ(customers.size(), 4);
  EXPECT_EQ(customers[0], "Leroy///L");
  EXPECT_EQ(customers.mid(1).size(), 3);
  for (const QString& c : customers.mid(1)) EXPECT_TRUE(c.startsWith("Martin/")) << c.toStdString();
  EXPECT_TRUE(customers.contains("Martin/other@x.fr//C"));
  EXPECT_TRUE(customers.contains("Martin/m@x.fr/VIP/C"));

  EXPECT_EQ(columns("RQ_Agent", {"Nom", "Email"}), (QStringList{"Agence Nord/n@x.fr", "Voyages Sud/"}));
}

// Today is 15 June 2024.
TEST_F(BookingQueries, HistoryListsSelectOnTodayAndSortByNameOrDate) {
  booking("101", day(2024, 6, 1), day(2024, 6, 10), "Bernard");       // past
  booking("102", day(2024, 6, 5), day(2024, 6, 14), "Aubert");        // past, ended yesterday
  booking("103", day(2024, 6, 10), day(2024, 6, 15), "Durand");       // leaves today: present
  booking("104", day(2024, 6, 15), day(2024, 6, 18), "Colin");        // arrives today: present
  booking("105", day(2024, 6, 16), day(2024, 6, 20), "Albert");       // future
  booking("106", day(2024, 7, 1), day(2024, 7, 5), "Albert");         // future
  booking("107", day(2024, 6, 1), day(2024, 6, 30), "Group", {{"GroupId", "L"}});
  // Arrives today at a stated hour: present, not future.
  insertRow(db_, "Reservation",
            {{"Resource", "108"}, {"Date_Deb", QDateTime(today(), QTime(16, 0))}, {"Date_Fin", day(2024, 6, 17)},
             {"Nom", "Evrard"}, {"GroupId", "C"}});

  auto nomDeb = [this](const QString& q) { return columns(q, {"Nom", "Date_Deb"}); };
  EXPECT_EQ(nomDeb("RQ_Review_N_All"),
            (QStringList{"Albert/2024-06-16", "Albert/2024-07-01", "Aubert/2024-06-05", "Bernard/2024-06-01",
                         "Colin/2024-06-15", "Durand/2024-06-10", "Evrard/2024-06-15 16:00:00"}));
  EXPECT_EQ(nomDeb("RQ_Review_D_All"),
            (QStringList{"Bernard/2024-06-01", "Aubert/2024-06-05", "Durand/2024-06-10", "Colin/2024-06-15",
                         "Evrard/2024-06-15 16:00:00", "Albert/2024-06-16", "Albert/2024-07-01"}));
  EXPECT_EQ(column("RQ_Review_N_Past", "Nom"), (QStringList{"Aubert", "Bernard"}));
  EXPECT_EQ(column("RQ_Review_D_Past", "Nom"), (QStringList{"Bernard", "Aubert"}));
  EXPECT_EQ(column("RQ_Review_N_Present", "Nom"), (QStringList{"Colin", "Durand", "Evrard"}));
  EXPECT_EQ(column("RQ_Review_D_Present", "Nom"), (QStringList{"Durand", "Colin", "Evrard"}));
  EXPECT_EQ(nomDeb("RQ_Review_N_Futur"), (QStringList{"Albert/2024-06-16", "Albert/2024-07-01"}));
  EXPECT_EQ(column("RQ_Review_D_Futur", "Nom"), (QStringList{"Albert", "Albert"}));

  // The lists follow the clock.
  clock_.advanceDays(1);
  EXPECT_EQ(column("RQ_Review_D_Futur", "Nom"), (QStringList{"Albert"}));
  EXPECT_EQ(column("RQ_Review_N_Past", "Nom"), (QStringList{"Aubert", "Bernard", "Durand"}));
}

}  // namespace
