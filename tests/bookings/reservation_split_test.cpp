// The dialog of a split booking: opened from either part, the cut moved,
// both parts merged back into one row or deleted, and both periods handed to
// the invoice.
#include "bookings/reservation_split.h"

#include "bookings/trous_search.h"
#include "support/booking_session.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class ReservationSplitTest : public MarchBoard {
 protected:
  // Durand stays 10 to 12 March in Room 1, then 12 to 15 in the Suite.
  void SetUp() override {
    part1_ = plan.addBooking("Room 1", march(10), march(12), "Durand",
                     {{"Split", "1"}, {"Couleur", 2}, {"InvNb", 17}, {"Email", "d@example.org"}});
    part2_ = plan.addBooking("Suite", march(12), march(15), "Durand",
                     {{"Split", "2"}, {"Couleur", 2}, {"InvNb", 17}, {"Blocage", true}, {"Email", "d@example.org"}});
  }
  ReservationSplitPresenter& open(qint64 rowid) {
    click(rowid);
    presenter_ = std::make_unique<ReservationSplitPresenter>(ctx());
    presenter_->close = [this] { ++closes_; };
    presenter_->Form_Load();
    return *presenter_;
  }
  qint64 part1_ = 0, part2_ = 0;
  std::unique_ptr<ReservationSplitPresenter> presenter_;
  int closes_ = 0;
};

// What either part loads is what Modify writes back: a field lost on the way
// would change the stay without anyone touching it.
TEST_F(ReservationSplitTest, EitherPartOpensTheSameStayAndModifyWritesItBackUnchanged) {
  const QString columns = "Nom/Resource/Date_Deb/Date_Fin/Split/InvNb/Blocage/Couleur/Email";
  const QStringList before = plan.rows(columns);
  for (qint64 clicked : {part1_, part2_}) {
    SCOPED_TRACE(clicked);
    ReservationSplitPresenter& p = open(clicked);
    EXPECT_EQ(p.clickedPart(), clicked == part1_ ? 0 : 1);
    EXPECT_EQ(p.NB_Jour1, 2);
    EXPECT_EQ(p.NB_Jour2, 3);
    EXPECT_EQ(p.parts[0].resources, (QStringList{"Room 1", "Room 2*"}));
    EXPECT_EQ(p.CalF.highest, march(29));
    EXPECT_EQ(p.CalS.highest, march(30));
    EXPECT_EQ(p.CalT.highest, march(31));
    EXPECT_EQ(p.CalS.lowest, march(2));
    EXPECT_FALSE(p.changed);
    EXPECT_TRUE(p.Modify_Click());
    EXPECT_EQ(plan.rows(columns), before);
  }
}

TEST_F(ReservationSplitTest, ACutOnTheStartOrTheEndIsRefusedAndWritesNothing) {
  const QStringList before = stays();
  ReservationSplitPresenter& p = open(part1_);
  p.CalS_DateClicked(march(10));
  EXPECT_EQ(p.NB_Jour1, 0);
  EXPECT_FALSE(p.Modify_Click());
  p.CalS_DateClicked(march(15));
  EXPECT_FALSE(p.Modify_Click());
  EXPECT_EQ(messages.texts(), (QStringList{"Dates are incorrect", "Dates are incorrect"}));
  EXPECT_EQ(stays(), before);
  EXPECT_EQ(closes_, 0);
}

TEST_F(ReservationSplitTest, ANameOfBlanksIsRefusedByModifyAndMerge) {
  const QStringList before = stays();
  ReservationSplitPresenter& p = open(part1_);
  int focus = 0;
  p.focusNom = [&] { ++focus; };
  p.setNom("  ");
  EXPECT_FALSE(p.Modify_Click());
  messages.answer(MsgAnswer::Yes);
  EXPECT_FALSE(p.Merge_Click());
  EXPECT_EQ(messages.last().text, texts.get(txt::CustomerNameEmpty));
  EXPECT_EQ(focus, 2);
  EXPECT_EQ(stays(), before);
  EXPECT_EQ(closes_, 0);
}

TEST_F(ReservationSplitTest, ModifyFromEitherPartRewritesBothRows) {
  ReservationSplitPresenter& p = open(part2_);
  p.CalS_DateClicked(march(13));
  p.setNom("Durand-Roy");
  p.Def_Cl_Click(3);
  p.Resource_Click(0, 1);
  p.setBloc(0, true);
  p.setBloc(1, false);
  EXPECT_TRUE(p.Modify_Click());
  EXPECT_EQ(row(part1_), "Durand-Roy/Room 2*/2025-03-10/2025-03-13/1/17/1/3/0");
  EXPECT_EQ(row(part2_), "Durand-Roy/Suite/2025-03-13/2025-03-15/2/17/0/3/0");
  EXPECT_EQ(closes_, 1);

  // The parts still find each other.
  click(part1_);
  EXPECT_EQ(plan.objects().Reservation.rowId(), part2_);
}

TEST_F(ReservationSplitTest, GroupDatesMoveTheEndsAndKeepTheCut) {
  plan.addGroupHeader(6, march(9), march(16), "Club");
  plan.db().execute("UPDATE Reservation SET GroupNb = 6 WHERE GroupId = 'C'");
  ReservationSplitPresenter& p = open(part1_);
  EXPECT_EQ(p.cmdGroupCaption, "Open the &group");
  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(p.Modify_Click());
  EXPECT_EQ(row(part1_), "Durand/Room 1/2025-03-09/2025-03-12/1/17/0/2/6");
  EXPECT_EQ(row(part2_), "Durand/Suite/2025-03-12/2025-03-16/2/17/1/2/6");
}

TEST_F(ReservationSplitTest, MergeFromPartOneStaysOnItsResourceAndLosesPartTwosLock) {
  ReservationSplitPresenter& p = open(part1_);
  messages.answer(MsgAnswer::No);
  EXPECT_FALSE(p.Merge_Click());
  EXPECT_EQ(messages.last().text, "Do you really want to merge these bookings ?");
  EXPECT_EQ(messages.last().buttons, MsgButtons::YesNo);
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
  EXPECT_EQ(stays().size(), 2);

  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(p.Merge_Click());
  EXPECT_EQ(row(part1_), "Durand/Room 1/2025-03-10/2025-03-15/0/17/0/2/0");
  EXPECT_EQ(stays().size(), 1);
  EXPECT_EQ(closes_, 1);
}

TEST_F(ReservationSplitTest, MergeFromPartTwoKeepsThePartTwoRow) {
  ReservationSplitPresenter& p = open(part2_);
  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(p.Merge_Click());
  EXPECT_EQ(row(part1_), "<gone>");
  EXPECT_EQ(row(part2_), "Durand/Room 1/2025-03-10/2025-03-15/0/17/0/2/0");
}

TEST_F(ReservationSplitTest, MergeWithAWrongCutWritesNothing) {
  ReservationSplitPresenter& p = open(part2_);
  p.CalT_DateClicked(march(12));
  messages.answer(MsgAnswer::Yes);
  EXPECT_FALSE(p.Merge_Click());
  EXPECT_EQ(messages.last().text, "Dates are incorrect");
  EXPECT_EQ(stays().size(), 2);
}

TEST_F(ReservationSplitTest, DeleteRemovesBothPartsAndTheirInvoice) {
  const qint64 other = plan.addBooking("Room 1", march(1), march(3), "Other");
  ctx().invoice = &invoice;
  ReservationSplitPresenter& p = open(part2_);
  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(p.Supprimer_Click());
  EXPECT_EQ(messages.texts(), QStringList{texts.get(txt::ModifDeleteQuestion)});
  EXPECT_EQ(invoice.deleted, QStringList{"17"});
  EXPECT_EQ(invoice.rowsAtDelete, QList<int>{3});
  EXPECT_EQ(row(part1_), "<gone>");
  EXPECT_EQ(row(part2_), "<gone>");
  EXPECT_NE(row(other), "<gone>");
}

TEST_F(ReservationSplitTest, TheInvoiceGetsBothPeriods) {
  plan.db().execute("UPDATE Reservation SET Resource = 'Room 2*' WHERE Split = '2'");
  ctx().invoice = &invoice;
  open(part1_).CdInvoice_Click();
  ASSERT_EQ(invoice.shown.size(), 1u);
  const InvoiceHandOver& h = invoice.shown.front();
  EXPECT_EQ(h.Nom, "Durand");
  EXPECT_EQ(h.back, 16711935u);
  EXPECT_EQ(h.InvNb, "17");
  EXPECT_EQ(h.DtFrom, march(10));
  EXPECT_EQ(h.DtTo, march(12));
  EXPECT_EQ(h.Days, 2);
  EXPECT_EQ(h.Resource, "Room 1");
  EXPECT_EQ(h.DtFromS, march(12));
  EXPECT_EQ(h.DtToS, march(15));
  EXPECT_EQ(h.DaysS, 3);
  EXPECT_EQ(h.ResourceS, "Room 2");
}

TEST_F(ReservationSplitTest, HolesSearchesTheChosenPeriodAndGivesTheResourceToItsParts) {
  std::vector<std::pair<QDate, QDate>> periods;
  std::vector<QStringList> grids;
  int line = -1;
  ctx().windows.Trous = [&](TrousSearch& t) {
    t.Form_Load();
    t.setCategory(-1);
    periods.push_back({t.from(), t.to()});
    grids.push_back(t.gridLines());
    if (line >= 0) messages.answer(MsgAnswer::Yes);
    return t.Trous_OK_Click(line);
  };
  ReservationSplitPresenter& p = open(part1_);
  p.Holes1_Click();
  p.Holes2_Click();
  p.Holes_Click();
  ASSERT_EQ(periods.size(), 3u);
  EXPECT_EQ(periods[0], std::make_pair(march(10), march(12)));
  EXPECT_EQ(periods[1], std::make_pair(march(12), march(15)));
  EXPECT_EQ(periods[2], std::make_pair(march(10), march(15)));
  // Neither part blocks its own resource.
  EXPECT_EQ(grids[2], (QStringList{"Room 1\t30 +\t30 +", "Room 2*\t30 +\t30 +", "Suite\t30 +\t30 +"}));
  EXPECT_FALSE(p.changed);

  line = 1;  // Room 2*
  p.Holes2_Click();
  EXPECT_EQ(p.parts[0].Resource, "Room 1");
  EXPECT_EQ(p.parts[1].Resource, "Room 2*");
  EXPECT_EQ(p.parts[1].Category, 0);
  EXPECT_TRUE(p.changed);

  line = 2;  // the Suite, for the whole stay
  p.Holes_Click();
  EXPECT_EQ(p.parts[0].Resource, "Suite");
  EXPECT_EQ(p.parts[1].Resource, "Suite");
  EXPECT_EQ(p.parts[0].resources, QStringList{"Suite"});
  EXPECT_TRUE(messages.allAnswersUsed());
}

}  // namespace
