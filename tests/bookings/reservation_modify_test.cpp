// The dialog of a whole booking: what it shows, what Modify, Split and
// Delete leave in the file, the group's dates, leaving with or without
// saving, and what the invoice and the holes search are given.
#include "bookings/reservation_modify.h"

#include "bookings/check_group_date.h"
#include "bookings/trous_search.h"
#include "customers/customer_list.h"
#include "invoicing/invoice_accounts.h"
#include "support/booking_session.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class ReservationTest : public MarchBoard {
 protected:
  // Opens the dialog on a stored booking.
  ReservationPresenter& open(qint64 rowid) {
    click(rowid);
    presenter_ = std::make_unique<ReservationPresenter>(ctx());
    presenter_->close = [this] { ++closes_; };
    presenter_->Form_Load();
    return *presenter_;
  }
  std::unique_ptr<ReservationPresenter> presenter_;
  int closes_ = 0;
};

// What the dialog loads is what Modify writes back: a field lost on the way
// would change the booking without anyone touching it.
TEST_F(ReservationTest, ModifyWithoutEditsWritesTheBookingBackUnchanged) {
  const qint64 id = plan.addBooking("Room 2*", march(10), march(13), "Durand",
                                    {{"Email", "d@example.org"}, {"HowMany", 3}, {"Remarque", "Cot"}, {"InvNb", -4},
                                     {"Blocage", true}, {"Couleur", 1}});
  const QStringList before = plan.rows("Nom/Resource/Date_Deb/Date_Fin/Email/HowMany/Remarque/InvNb/Blocage/Couleur");
  ReservationPresenter& p = open(id);
  EXPECT_EQ(p.NB_Jour, 3);
  EXPECT_EQ(p.CalF.lowest, march(1));
  EXPECT_EQ(p.CalT.highest, march(31));
  EXPECT_EQ(p.choice.resources, (QStringList{"Room 1", "Room 2*"}));
  EXPECT_EQ(p.choice.resourceIndex(), 1);
  EXPECT_FALSE(p.changed);
  EXPECT_TRUE(p.Modify_Click());
  EXPECT_EQ(plan.rows("Nom/Resource/Date_Deb/Date_Fin/Email/HowMany/Remarque/InvNb/Blocage/Couleur"), before);
}

TEST_F(ReservationTest, ABookingOlderThanTheBoardAndAGroupMemberLoad) {
  plan.addGroupHeader(7, march(1), march(5), "Club");
  const qint64 id = plan.addBooking("Suite", QDate(2025, 2, 25), march(3), "Club_1", {{"GroupNb", 7}});
  ReservationPresenter& p = open(id);
  EXPECT_EQ(p.cmdGroupCaption, "Open the &group");
  EXPECT_EQ(p.FirstDate, QDate(2025, 2, 25));
  EXPECT_EQ(p.CalF.lowest, QDate(2025, 2, 25));
  EXPECT_EQ(p.CalT.lowest, QDate(2025, 2, 26));
  EXPECT_EQ(p.NB_Jour, 6);
  EXPECT_EQ(p.choice.Category, 1);
  EXPECT_EQ(p.choice.resources, QStringList{"Suite"});
}

TEST_F(ReservationTest, ModifyWritesTheDialogAndKeepsKindGroupAndInvoice) {
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Durand", {{"InvNb", 12}, {"GroupNb", 3}});
  ReservationPresenter& p = open(id);
  p.setNom("Durand-Roy");
  p.Def_Cl_Click(4);
  EXPECT_EQ(p.NomBack, 65535u);
  EXPECT_EQ(p.NomFore, kBlack);
  p.setRemarque("Late");
  p.setHowMany(2);
  p.setBloc(true);
  p.Category_Click(1);
  EXPECT_EQ(p.choice.Resource, "Suite");
  p.CalT_DateClicked(march(15));
  EXPECT_EQ(p.NB_Jour, 5);
  EXPECT_TRUE(p.changed);

  options.CheckGroupDate = false;  // no header for group 3 in this file anyway
  EXPECT_TRUE(p.Modify_Click());
  EXPECT_EQ(row(id), "Durand-Roy/Suite/2025-03-10/2025-03-15/0/12/1/4/3");
  EXPECT_EQ(plan.db().scalar("SELECT Remarque FROM Reservation").toString(), "Late");
  EXPECT_EQ(plan.db().scalar("SELECT HowMany FROM Reservation").toInt(), 2);
  EXPECT_EQ(closes_, 1);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(ReservationTest, ModifyRefusesReversedDatesAndAnEmptyName) {
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Durand");
  const QString before = row(id);
  ReservationPresenter& p = open(id);
  int focus = 0;
  p.focusNom = [&] { ++focus; };

  p.CalT_DateClicked(march(10));
  EXPECT_FALSE(p.Modify_Click());
  p.CalT_DateClicked(march(11));
  p.setNom("");
  EXPECT_FALSE(p.Modify_Click());
  p.setNom("   ");  // blanks are no name either
  EXPECT_FALSE(p.Modify_Click());
  EXPECT_EQ(messages.texts(), (QStringList{texts.get(txt::CalendarFromBeforeTo), texts.get(txt::CustomerNameEmpty),
                                           texts.get(txt::CustomerNameEmpty)}));
  EXPECT_EQ(focus, 2);
  EXPECT_EQ(row(id), before);
  EXPECT_EQ(closes_, 0);
}

TEST_F(ReservationTest, SplitMakesTwoPartsThatShareEverythingButTheirDays) {
  plan.addGroupHeader(5, march(10), march(12), "Club");
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Club_1",
                            {{"InvNb", -9}, {"GroupNb", 5}, {"Couleur", 2}, {"Email", "c@example.org"}});
  ReservationPresenter& p = open(id);
  EXPECT_TRUE(p.Split_Click());
  EXPECT_EQ(stays(), (QStringList{"Club_1/Room 1/2025-03-10/2025-03-11/1/-9/0/2/5",
                                  "Club_1/Room 1/2025-03-11/2025-03-12/2/-9/0/2/5"}));
  EXPECT_EQ(plan.db().scalar("SELECT count(*) FROM Reservation WHERE GroupId = 'C' AND Email = "
                                  "'c@example.org'").toInt(), 2);
  EXPECT_EQ(closes_, 1);
  EXPECT_TRUE(messages.shown().empty());

  // The parts find each other again from either side.
  click(plan.lastRowId());
  EXPECT_EQ(plan.objects().Reservation.rowId(), id);
}

TEST_F(ReservationTest, SplitOfALongerStayCutsAfterTheFirstDayAndKeepsTheEdits) {
  const qint64 id = plan.addBooking("Room 1", march(10), march(14), "Durand");
  ReservationPresenter& p = open(id);
  p.Resource_Click(1);
  EXPECT_TRUE(p.Split_Click());
  EXPECT_EQ(stays(), (QStringList{"Durand/Room 2*/2025-03-10/2025-03-11/1/<null>/0/0/0",
                                  "Durand/Room 2*/2025-03-11/2025-03-14/2/<null>/0/0/0"}));
}

TEST_F(ReservationTest, AOneDayBookingIsNotSplit) {
  const qint64 id = plan.addBooking("Room 1", march(10), march(11), "Durand");
  ReservationPresenter& p = open(id);
  EXPECT_FALSE(p.Split_Click());
  EXPECT_EQ(messages.texts(), QStringList{texts.get(txt::ModifSplitOneDay)});
  EXPECT_EQ(stays(), QStringList{"Durand/Room 1/2025-03-10/2025-03-11/0/<null>/0/0/0"});
  EXPECT_EQ(closes_, 0);
}

TEST_F(ReservationTest, DeleteAsksOnceAndTakesTheInvoiceFirst) {
  const qint64 keep = plan.addBooking("Room 1", march(1), march(3), "Other");
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Durand", {{"InvNb", 31}});
  ctx().invoice = &invoice;
  ReservationPresenter& p = open(id);
  EXPECT_TRUE(p.invoiceEnabled());

  messages.answer(MsgAnswer::No);
  EXPECT_FALSE(p.Supprimer_Click());
  EXPECT_EQ(messages.last().text, texts.get(txt::ModifDeleteQuestion));
  EXPECT_EQ(messages.last().buttons, MsgButtons::YesNo);
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
  EXPECT_TRUE(invoice.deleted.isEmpty());
  EXPECT_NE(row(id), "<gone>");

  messages.clear();
  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(p.Supprimer_Click());
  EXPECT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(invoice.deleted, QStringList{"31"});
  EXPECT_EQ(invoice.rowsAtDelete, QList<int>{2});  // the booking was still there
  EXPECT_EQ(row(id), "<gone>");
  EXPECT_NE(row(keep), "<gone>");
  EXPECT_EQ(closes_, 1);
}

TEST_F(ReservationTest, DeleteWithoutInvoiceRemovesNoInvoice) {
  const qint64 plain = plan.addBooking("Room 1", march(10), march(12), "Plain");
  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(open(plain).Supprimer_Click());
  EXPECT_EQ(row(plain), "<gone>");
  EXPECT_TRUE(invoice.deleted.isEmpty());
}

TEST_F(ReservationTest, ADeleteTheStoreRefusesKeepsTheInvoiceToo) {
  Database& db = plan.db();
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Durand", {{"InvNb", 31}});
  plan.addRow("Invoice", {{"InvoiceNb", 31}, {"Typ", "0"}, {"Lib", "Durand"}});
  db.execute("CREATE TEMP TRIGGER kept BEFORE DELETE ON Reservation BEGIN SELECT RAISE(ABORT, 'kept'); END");
  ctx().DeleteInvoice = [this, &db](const QString& n) { DeleteInvoice(db, plan.clock(), n); };
  ReservationPresenter& p = open(id);

  messages.answer(MsgAnswer::Yes);
  EXPECT_FALSE(p.Supprimer_Click());
  EXPECT_NE(row(id), "<gone>");
  EXPECT_EQ(db.scalar("SELECT count(*) FROM Invoice").toInt(), 1);
  EXPECT_EQ(closes_, 0);  // the dialog stays, after telling why
  EXPECT_EQ(messages.shown().size(), 2u);
}

TEST_F(ReservationTest, OpeningTheGroupDropsTheEditsWithoutAQuestion) {
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Durand", {{"GroupNb", 2}});
  const QString before = row(id);
  ReservationPresenter& p = open(id);
  p.setNom("Someone else");
  p.CalF_DateClicked(march(11));
  p.cmdGroup_Click();
  EXPECT_TRUE(p.OpenGroup);
  EXPECT_TRUE(p.isClosed());
  EXPECT_EQ(closes_, 1);
  EXPECT_EQ(row(id), before);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(ReservationTest, GroupDatesAreOfferedUnlessTheOptionIsOff) {
  plan.addGroupHeader(4, march(10), march(15), "Club");
  const qint64 id = plan.addBooking("Room 1", march(11), march(13), "Club_1", {{"GroupNb", 4}});

  options.CheckGroupDate = false;
  open(id).CalT_DateClicked(march(14));
  EXPECT_TRUE(presenter_->Modify_Click());
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(row(id), "Club_1/Room 1/2025-03-11/2025-03-14/0/<null>/0/0/4");

  options.CheckGroupDate = true;
  messages.answer(MsgAnswer::No);
  EXPECT_TRUE(open(id).Modify_Click());
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().text, texts.get(txt::ModifGroupDates));
  EXPECT_EQ(messages.last().buttons, MsgButtons::YesNo);
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
  EXPECT_EQ(row(id), "Club_1/Room 1/2025-03-11/2025-03-14/0/<null>/0/0/4");

  messages.answer(MsgAnswer::Yes);
  ReservationPresenter& p = open(id);
  int refreshed = 0;
  p.refresh = [&] { ++refreshed; };
  EXPECT_TRUE(p.Modify_Click());
  EXPECT_EQ(p.CalF.value, march(10));
  EXPECT_EQ(p.NB_Jour, 5);
  EXPECT_EQ(refreshed, 1);
  EXPECT_EQ(row(id), "Club_1/Room 1/2025-03-10/2025-03-15/0/<null>/0/0/4");

  // Dates equal to the group's ask nothing.
  messages.clear();
  EXPECT_TRUE(open(id).Modify_Click());
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(ReservationTest, CheckGroupDateLeavesANonMemberAlone) {
  plan.addGroupHeader(4, march(10), march(15), "Club");
  QDate from = march(1), to = march(2);
  EXPECT_FALSE(CheckGroupDate(ctx(), 0, from, to));
  EXPECT_FALSE(CheckGroupDate(ctx(), 9, from, to));  // no such header
  EXPECT_EQ(from, march(1));
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(ReservationTest, LeavingAsksOnlyAfterAChangeAndFollowsTheAnswer) {
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Durand");
  const QString before = row(id);

  EXPECT_TRUE(open(id).Annuler_Click());
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(closes_, 1);

  ReservationPresenter& p = open(id);
  p.setEmail("new@example.org");
  messages.answer(MsgAnswer::Cancel);
  EXPECT_FALSE(p.Annuler_Click());
  EXPECT_EQ(messages.last().text, texts.get(txt::ModifBeforeLeaving));
  EXPECT_EQ(messages.last().buttons, MsgButtons::YesNoCancel);
  EXPECT_EQ(messages.last().preselected, MsgAnswer::Cancel);
  EXPECT_FALSE(p.isClosed());

  messages.answer(MsgAnswer::No);
  EXPECT_TRUE(p.Annuler_Click());
  EXPECT_EQ(closes_, 2);
  EXPECT_EQ(row(id), before);

  ReservationPresenter& q = open(id);
  q.setEmail("new@example.org");
  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(q.Annuler_Click());
  EXPECT_EQ(plan.db().scalar("SELECT Email FROM Reservation").toString(), "new@example.org");
  EXPECT_EQ(closes_, 3);

  // Yes on a booking that cannot be saved stays in the dialog.
  ReservationPresenter& r = open(id);
  r.setNom("");
  messages.answer(MsgAnswer::Yes);
  EXPECT_FALSE(r.Annuler_Click());
  EXPECT_FALSE(r.isClosed());
  EXPECT_TRUE(messages.allAnswersUsed());
}

TEST_F(ReservationTest, TheInvoiceGetsTheStayWithoutTheResourceMark) {
  const qint64 id = plan.addBooking("Room 2*", march(10), march(13), "Durand", {{"Couleur", 3}, {"Remarque", "VIP"}});
  ctx().invoice = &invoice;
  ReservationPresenter& p = open(id);
  p.Def_Cl_Click(0);  // unsaved: the invoice shows the stored state
  p.CdInvoice_Click();
  ASSERT_EQ(invoice.shown.size(), 1u);
  const InvoiceHandOver& h = invoice.shown.front();
  EXPECT_EQ(h.Nom, "Durand");
  EXPECT_EQ(h.back, 16711680u);
  EXPECT_EQ(h.fore, kWhite);
  EXPECT_EQ(h.Remark, "VIP");
  EXPECT_EQ(h.InvNb, "");
  EXPECT_EQ(h.DtFrom, march(10));
  EXPECT_EQ(h.DtTo, march(13));
  EXPECT_EQ(h.Days, 3);
  EXPECT_EQ(h.Resource, "Room 2");
  EXPECT_FALSE(h.DtFromS.isValid());
}

TEST_F(ReservationTest, HolesSearchSkipsTheBookingItselfAndGivesBackTheChosenResource) {
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Durand");
  plan.addBooking("Room 2*", march(11), march(12), "Busy");
  std::vector<QStringList> grids;
  int mode = -1;
  bool allCategories = false;
  ctx().windows.Trous = [&](TrousSearch& t) {
    t.Form_Load();
    if (allCategories) {
      t.setCategory(-1);
      messages.answer(MsgAnswer::Yes);
    }
    mode = t.Mode;
    grids.push_back(t.gridLines());
    return t.Trous_OK_Click(0);
  };
  ReservationPresenter& p = open(id);
  ASSERT_TRUE(p.holesEnabled());
  p.Holes_Click();
  EXPECT_EQ(mode, 2);
  // Room 2* is taken; the booking does not take its own room.
  EXPECT_EQ(grids.back(), QStringList{"Room 1\t30 +\t30 +"});
  EXPECT_EQ(p.choice.Resource, "Room 1");  // its own line: nothing to ask, nothing chosen
  EXPECT_FALSE(p.changed);
  EXPECT_TRUE(messages.shown().empty());

  p.Category_Click(1);
  EXPECT_EQ(p.choice.Resource, "Suite");
  p.changed = false;
  allCategories = true;
  p.Holes_Click();
  EXPECT_EQ(grids.back(), (QStringList{"Room 1\t30 +\t30 +", "Suite\t30 +\t30 +"}));
  EXPECT_EQ(messages.last().text, "Do you want the resource Room 1 to become the booking resource ?");
  EXPECT_EQ(p.choice.Category, 0);
  EXPECT_EQ(p.choice.Resource, "Room 1");
  EXPECT_EQ(p.choice.resources, (QStringList{"Room 1", "Room 2*"}));
  EXPECT_TRUE(p.changed);
  EXPECT_TRUE(messages.allAnswersUsed());
}

TEST_F(ReservationTest, CustomerListFillsTheCustomerFieldsOnCopy) {
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Dur");
  QString asked;
  ctx().windows.Customer_From_Reservation = [&](const QString& name, CustomerCopyTarget& target, bool agents) {
    asked = name;
    EXPECT_FALSE(agents);
    target = {"Durand", "d@example.org", "Regular", true};
  };
  std::pair<QString, QString> blackListed;
  ctx().windows.BlackList_Add_Commun = [&](const QString& n, const QString& r) { blackListed = {n, r}; };
  ReservationPresenter& p = open(id);
  p.Search_Click();
  EXPECT_EQ(asked, "Dur");
  EXPECT_EQ(p.Nom, "Durand");
  EXPECT_EQ(p.Email, "d@example.org");
  EXPECT_EQ(p.Remarque, "Regular");
  EXPECT_TRUE(p.changed);
  p.PutBlackList_Click();
  EXPECT_EQ(blackListed, (std::pair<QString, QString>{"Durand", "Regular"}));
  EXPECT_FALSE(p.blackListEnabled());
}

}  // namespace
