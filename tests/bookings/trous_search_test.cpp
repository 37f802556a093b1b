// The holes search: its period by opener, the booking that must not block
// itself, the scroll bar, and handing a resource back to the opener.
#include "bookings/trous_search.h"
#include "config/loaded_options.h"

#include "support/test_planning.h"

using namespace ksv;
using namespace ksv::test;

namespace {

QDate day(int d, int m = 7) { return QDate(2024, m, d); }

class TrousTest : public PlanningTest {
 protected:
  TrousTest() : PlanningTest(QDate(2024, 6, 15)) {}
  void SetUp() override {
    plan.addResource("101", 0, 1);
    plan.addResource("102", 0, 2);
    plan.addResource("201", 1, 3);
  }
  Availability availability_{plan.db(), plan.clock()};
  TrousSearch trous_{availability_, plan.clock(), messages, texts};
};

TEST_F(TrousTest, PeriodFollowsTheOpener) {
  trous_.CalF = day(10);
  trous_.CalS = day(12);
  trous_.CalT = day(15);

  trous_.Mode = 0;
  trous_.Form_Load();
  EXPECT_EQ(trous_.from(), plan.clock().today());
  EXPECT_EQ(trous_.to(), plan.clock().today().addDays(7));
  EXPECT_EQ(trous_.NB_Jour(), 7);

  trous_.Mode = 3;
  trous_.Form_Load();
  EXPECT_EQ(trous_.from(), day(10));
  EXPECT_EQ(trous_.to(), day(12));

  trous_.Mode = 4;
  trous_.Form_Load();
  EXPECT_EQ(trous_.from(), day(12));
  EXPECT_EQ(trous_.to(), day(15));

  for (int mode : {1, 2, 5}) {
    trous_.Mode = mode;
    trous_.Form_Load();
    EXPECT_EQ(trous_.from(), day(10));
    EXPECT_EQ(trous_.to(), day(15));
  }
}

TEST_F(TrousTest, TheEditedBookingDoesNotBlockItsOwnResource) {
  plan.addBooking("101", day(10), day(15), "Edited");
  plan.addBooking("102", day(3), day(8), "Before");
  plan.addBooking("201", day(12), day(14), "Busy");
  trous_.Mode = 2;
  trous_.CalF = day(10);
  trous_.CalT = day(15);
  trous_.Resource = "101";
  trous_.editing = {{"101", "Edited", day(10), day(15)}};
  trous_.Form_Load();

  EXPECT_EQ(trous_.gridLines(), (QStringList{"101\t30 +\t30 +", "102\t2\t30 +"}));
  EXPECT_EQ(trous_.Nb_Free(), 2);
  EXPECT_EQ(trous_.selected(), 0);

  // Without the skip, the booking takes its own room.
  trous_.editing.clear();
  trous_.fill();
  EXPECT_EQ(trous_.gridLines(), QStringList{"102\t2\t30 +"});
  EXPECT_EQ(trous_.selected(), -1);

  trous_.setCategory(1);
  EXPECT_EQ(trous_.Nb_Free(), 0);
}

TEST_F(TrousTest, ScrollBarMovesByMonthsOrToAPosition) {
  trous_.Mode = 1;
  trous_.FirstDate = QDate(2024, 6, 1);
  trous_.CalF = day(10);
  trous_.CalT = day(14);
  trous_.Form_Load();
  ASSERT_EQ(trous_.scrollPosition(), 39);

  trous_.HScroll_Change(69);
  EXPECT_EQ(trous_.from(), QDate(2024, 8, 10));
  EXPECT_EQ(trous_.to(), QDate(2024, 8, 14));
  trous_.HScroll_Change(39);
  EXPECT_EQ(trous_.from(), day(10));
  trous_.HScroll_Change(5);
  EXPECT_EQ(trous_.from(), QDate(2024, 6, 6));
  EXPECT_EQ(trous_.to(), QDate(2024, 6, 10));
}

TEST_F(TrousTest, ChosenResourceGoesBackAfterTheQuestion) {
  trous_.CalF = day(10);
  trous_.CalS = day(12);
  trous_.CalT = day(15);
  trous_.Resource = "101";

  trous_.Mode = 0;
  trous_.Form_Load();
  ASSERT_EQ(trous_.Nb_Free(), 3);
  EXPECT_FALSE(trous_.Trous_OK_Click(2));  // the menu's search gives nothing back
  trous_.Mode = 1;
  trous_.Form_Load();
  EXPECT_FALSE(trous_.Trous_OK_Click(0));   // the booking's own resource
  EXPECT_FALSE(trous_.Trous_OK_Click(-1));  // nothing selected
  EXPECT_TRUE(messages.shown().empty());

  messages.answer(MsgAnswer::No);
  EXPECT_FALSE(trous_.Trous_OK_Click(2));
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().text, "Do you want the resource 201 to become the booking resource ?");
  EXPECT_EQ(messages.last().buttons, MsgButtons::YesNo);
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);

  messages.answer(MsgAnswer::Yes);
  auto choice = trous_.Trous_OK_Click(2);
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->resource, "201");
  EXPECT_EQ(choice->category, 1);
  EXPECT_TRUE(choice->toBooking);
  EXPECT_FALSE(choice->toPart1 || choice->toPart2);

  const std::pair<int, std::pair<bool, bool>> parts[] = {{3, {true, false}}, {4, {false, true}}, {5, {true, true}}};
  for (const auto& [mode, expected] : parts) {
    trous_.Mode = mode;
    trous_.Form_Load();
    messages.answer(MsgAnswer::Yes);
    choice = trous_.Trous_OK_Click(1);
    ASSERT_TRUE(choice) << mode;
    EXPECT_EQ(choice->resource, "102");
    EXPECT_EQ(choice->toPart1, expected.first) << mode;
    EXPECT_EQ(choice->toPart2, expected.second) << mode;
    EXPECT_FALSE(choice->toBooking);
  }
  EXPECT_TRUE(messages.allAnswersUsed());
}

}  // namespace

namespace {

TEST(TrousCategories, AllCategoriesComeFirstInBlackOnWhite) {
  LoadedOptions options;
  options.Categorie = QStringList{"Double", "Single", "Suite", "Flat", "Dorm", "Tent"};
  options.CategoryBack = {10, 11, 12, 13, 14, 15};
  options.CategoryFore = {kBlack, kWhite, kBlack, kWhite, kBlack, kWhite};
  const auto items = trousCategories(options, Texts(kFrenchOffset));
  ASSERT_EQ(items.size(), 7u);
  EXPECT_EQ(items[0].name, "Toutes catégories");
  EXPECT_EQ(items[0].back, kWhite);
  EXPECT_EQ(items[0].fore, kBlack);
  EXPECT_EQ(items[3].name, "Suite");
  EXPECT_EQ(items[3].back, 12u);
  EXPECT_EQ(items[4].fore, kWhite);
}

}  // namespace
