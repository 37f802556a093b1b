// Availability: the free resources of a period with their room around it,
// the daily counts per category and the colours of the availability view.
#include "bookings/availability.h"
#include "bookings/availability_view.h"
#include "config/loaded_options.h"

#include "support/test_planning.h"

using namespace ksv;
using namespace ksv::test;

namespace {

QDate day(int d, int m = 7) { return QDate(2024, m, d); }

class AvailabilityTest : public PlanningTest {
 protected:
  AvailabilityTest() : PlanningTest(QDate(2024, 6, 15)) {}
  void SetUp() override {
    // Category 0: 101, 102, 103; category 2: 201 and the pseudo-room "Extra*".
    plan.addResource("103", 0, 3);
    plan.addResource("101", 0, 1);
    plan.addResource("102", 0, 2);
    plan.addResource("201", 2, 4);
    plan.addResource("Extra*", 2, 5);
  }
  Availability availability_{plan.db(), plan.clock()};
};

TEST_F(AvailabilityTest, CategoryIsTheResourceColour) {
  EXPECT_EQ(availability_.GetCategory("201"), 2);
  EXPECT_EQ(availability_.GetCategory("102"), 0);
  EXPECT_EQ(availability_.GetCategory("999"), -1);
  plan.db().execute("DELETE FROM Resource");
  EXPECT_EQ(availability_.GetCategory("201"), -1);
}

TEST_F(AvailabilityTest, ReversedOrEmptyPeriodGivesMinusOne) {
  EXPECT_EQ(availability_.Available_Nb(day(10), day(10), -1), -1);
  EXPECT_EQ(availability_.Available_Nb(day(11), day(10), 0), -1);
}

TEST_F(AvailabilityTest, TouchingStaysLeaveTheResourceFreeWithTheirDistance) {
  // Period 10 to 14 July.
  plan.addBooking("101", day(6), day(10), "LeavesOnFirstDay");
  plan.addBooking("101", day(14), day(16), "ArrivesOnLastDay");
  plan.addBooking("102", day(1), day(7), "LeftEarlier");
  plan.addBooking("102", day(20), day(25), "ComesLater");
  plan.addBooking("102", day(2), day(5), "FurtherBefore");
  plan.addBooking("103", day(13), day(15), "Overlaps");
  plan.addBooking("103", day(15), day(20), "AfterTheOverlap");  // does not reopen it

  EXPECT_EQ(availability_.Available_Nb(day(10), day(14), 0), 2);
  EXPECT_EQ(availability_.Res_Free.mid(0, 2), (QStringList{"101", "102"}));
  EXPECT_EQ(availability_.Before_Free[0], 0);
  EXPECT_EQ(availability_.After_Free[0], 0);
  EXPECT_EQ(availability_.Before_Free[1], 3);
  EXPECT_EQ(availability_.After_Free[1], 6);
}

TEST_F(AvailabilityTest, NothingWithinThirtyDaysReadsAsThirtyOne) {
  plan.addBooking("201", day(1, 6), day(5, 6), "FarBefore");
  plan.addBooking("201", day(20, 8), day(25, 8), "FarAfter");
  ASSERT_EQ(availability_.Available_Nb(day(10), day(14), 2), 2);
  EXPECT_EQ(availability_.Res_Free.mid(0, 2), (QStringList{"201", "Extra*"}));
  EXPECT_EQ(availability_.Before_Free[0], kFarAway);
  EXPECT_EQ(availability_.After_Free[0], kFarAway);
}

TEST_F(AvailabilityTest, AllCategoriesCountTheStarredResourceAndIgnoreLostResources) {
  plan.addBooking("201", day(10), day(12), "Busy");
  // A booking on a resource that is gone is ignored.
  plan.addBooking("Old", day(10), day(14), "Ghost");
  EXPECT_EQ(availability_.Available_Nb(day(10), day(14), -1), 4);
  EXPECT_EQ(availability_.Res_Free.mid(0, 4), (QStringList{"101", "102", "103", "Extra*"}));
}

TEST_F(AvailabilityTest, CompactionKeepsWhatLiesPastTheFreeEntries) {
  plan.addBooking("101", day(10), day(12), "Busy");
  plan.addBooking("102", day(10), day(12), "Busy");
  ASSERT_EQ(availability_.Available_Nb(day(10), day(14), 0), 1);
  // The lists are as long as the planning has resources.
  ASSERT_EQ(availability_.Res_Free.size(), 5);
  EXPECT_EQ(availability_.Res_Free[0], "103");
  // Entries 1 and 2 still hold the busy resources read in order.
  EXPECT_EQ(availability_.Res_Free[1], "102");
  EXPECT_EQ(availability_.Res_Free[2], "103");
}

TEST_F(AvailabilityTest, DailyTablesCountFreeNightsPerCategory) {
  const QDate first = day(10);
  plan.addBooking("101", day(8), day(12), "ClippedAtStart");  // nights of the 10th and 11th
  plan.addBooking("102", day(11), day(12), "OneNight");
  plan.addBooking("201", day(13), day(30), "ClippedAtEnd");
  plan.addBooking("Extra*", day(10), day(14), "NotCounted");

  const AvailabilityTables t = availability_.SetAvailabilityTables(first, 5);
  ASSERT_TRUE(t.Flg_OkCl);
  EXPECT_EQ(t.count[0], 3);
  EXPECT_EQ(t.count[2], 1);  // the starred one is left out
  EXPECT_EQ(t.resources, (QStringList{"101", "102", "103", "201"}));
  ASSERT_EQ(t.free.size(), 5u);
  std::vector<int> cat0, cat2;
  for (const auto& d : t.free) {
    cat0.push_back(d[0]);
    cat2.push_back(d[2]);
  }
  EXPECT_EQ(cat0, (std::vector<int>{2, 1, 3, 3, 3}));
  EXPECT_EQ(cat2, (std::vector<int>{1, 1, 1, 0, 0}));
  EXPECT_EQ(t.busy[0], (std::vector<bool>{true, true, false, false, false}));
  EXPECT_EQ(t.busy[3], (std::vector<bool>{false, false, false, true, true}));
}

TEST_F(AvailabilityTest, TablesStartOnTheDayGivenNotToday) {
  // The view of a scrolled board starts on its first day shown, here a
  // month after today: the stay counts under its own nights only.
  ASSERT_NE(day(20), plan.clock().today());
  plan.addBooking("201", day(22), day(24), "TwoNights");
  const AvailabilityTables t = availability_.SetAvailabilityTables(day(20), 6);
  EXPECT_EQ(t.first, day(20));
  std::vector<int> cat2;
  for (const auto& d : t.free) cat2.push_back(d[2]);
  EXPECT_EQ(cat2, (std::vector<int>{1, 1, 0, 0, 1, 1}));
  EXPECT_EQ(t.busy[3], (std::vector<bool>{false, false, true, true, false, false}));

  // From today, the same stay stands 37 and 38 days on.
  const AvailabilityTables fromToday = availability_.SetAvailabilityTables(plan.clock().today(), 40);
  EXPECT_EQ(fromToday.free[36][2], 1);
  EXPECT_EQ(fromToday.free[37][2], 0);
  EXPECT_EQ(fromToday.free[38][2], 0);
  EXPECT_EQ(fromToday.free[39][2], 1);
}

TEST_F(AvailabilityTest, NoResourcesDrawNothing) {
  plan.db().execute("DELETE FROM Resource");
  const AvailabilityTables t = availability_.SetAvailabilityTables(day(10), 5);
  EXPECT_FALSE(t.Flg_OkCl);
  EXPECT_TRUE(Draw_Available(t, LoadedOptions{}).empty());
}

TEST(AvailableColours, CategoryOfThreeGoesBlackOrangeYellowWhite) {
  // Q is 0.75: 0 free black, 1 orange, 2 yellow, 3 white.
  EXPECT_EQ(availableCellColours(0, 3, true), (CellColours{0, kWhite}));
  EXPECT_EQ(availableCellColours(1, 3, true), (CellColours{33023, kWhite}));
  EXPECT_EQ(availableCellColours(2, 3, true), (CellColours{65535, kBlack}));
  EXPECT_EQ(availableCellColours(3, 3, true), (CellColours{kWhite, kBlack}));
  // Pale colours keep black text.
  EXPECT_EQ(availableCellColours(0, 3, false), (CellColours{0, kWhite}));
  EXPECT_EQ(availableCellColours(1, 3, false), (CellColours{0xC0E0FF, kBlack}));
  EXPECT_EQ(availableCellColours(2, 3, false), (CellColours{0xC0FFFF, kBlack}));
}

TEST(AvailableColours, QuartersOfALargerCategory) {
  // Eight rooms: Q = 2.
  EXPECT_EQ(availableCellColours(7, 8, true), (CellColours{65280, kBlack}));
  EXPECT_EQ(availableCellColours(7, 8, false), (CellColours{0xC0FFC0, kBlack}));
  EXPECT_EQ(availableCellColours(6, 8, true).back, 65535u);
  EXPECT_EQ(availableCellColours(4, 8, true).back, 33023u);
  EXPECT_EQ(availableCellColours(2, 8, true), (CellColours{255, kWhite}));
  EXPECT_EQ(availableCellColours(2, 8, false), (CellColours{0xC0C0FF, kBlack}));
  // Overbooked: fewer than none free is still the lowest quarter, not black.
  EXPECT_EQ(availableCellColours(-1, 8, true).back, 255u);
}

TEST_F(AvailabilityTest, ViewHasALinePerCategoryWithRooms) {
  plan.addBooking("101", day(10), day(11), "OneNight");
  LoadedOptions options;
  options.Categorie = QStringList{"Double", "Single", "Suite", "D", "E", "F"};
  options.CategoryBack = {1, 2, 3, 4, 5, 6};
  options.CategoryFore = {kBlack, kWhite, kWhite, kBlack, kBlack, kBlack};
  options.AvailableColor = true;

  const auto lines = Draw_Available(availability_.SetAvailabilityTables(day(10), 2), options);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].name, "Double");
  EXPECT_EQ(lines[0].heading, (CellColours{1, kBlack}));
  ASSERT_EQ(lines[0].cells.size(), 2u);
  EXPECT_EQ(lines[0].cells[0].free, 2);
  EXPECT_EQ(lines[0].cells[0].colours.back, 65535u);
  EXPECT_EQ(lines[0].cells[1].free, 3);
  EXPECT_EQ(lines[0].cells[1].colours.back, kWhite);
  EXPECT_EQ(lines[1].name, "Suite");
  EXPECT_EQ(lines[1].heading, (CellColours{3, kWhite}));
}

}  // namespace
