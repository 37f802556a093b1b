// The creation dialog: what it proposes, what it refuses, what it asks, and
// the rows a single booking or a group leaves in the plan.
#include <gtest/gtest.h>

#include <QFile>

#include "bookings/reservation_creer.h"
#include "core/paths.h"
#include "customers/customer_list.h"
#include "support/booking_session.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class CreerTest : public SpringBoard {
 protected:
  // Three rooms of category 0, a suite of category 1.
  void SetUp() override {
    plan.addResource("101", 0, 1);
    plan.addResource("102", 0, 2);
    plan.addResource("103", 0, 3);
    plan.addResource("Suite", 1, 4);
  }

  // The dialog opened on `resource` at `first`, over a view of the board.
  ReservationCreerPresenter& open(const QString& resource, QDate first) {
    openView();
    records.Res_L = resource;
    records.DD_L = first;
    p_ = std::make_unique<ReservationCreerPresenter>(ctx());
    p_->unload = [this] { ++unloads; };
    p_->focusNom = [this] { ++nomFocus; };
    p_->Form_Load();
    return *p_;
  }

  QStringList rows() { return plan.rows("Nom/Resource/Date_Deb/Date_Fin/Split/GroupId/GroupNb"); }
  QString last(const QString& column) { return plan.stored(plan.lastRowId(), column); }

  std::unique_ptr<ReservationCreerPresenter> p_;
  int unloads = 0;
  int nomFocus = 0;
};

TEST_F(CreerTest, FormLoadProposesAWeekOnThePressedResource) {
  plan.addBooking("102", march(12), march(14), "Taken");
  options.BookingFore[0] = kWhite;
  ReservationCreerPresenter& p = open("103", march(11));

  EXPECT_EQ(p.NomBack, 65280u);
  EXPECT_EQ(p.NomFore, kWhite);
  EXPECT_EQ(p.CalF, march(11));
  EXPECT_EQ(p.CalT, march(18));
  EXPECT_EQ(p.NB_Jour, 7);
  EXPECT_EQ(p.CalFHighest, QDate(2025, 6, 29));
  EXPECT_EQ(p.CalTLowest, march(2));
  EXPECT_EQ(p.categoryIndex, 1);
  EXPECT_EQ(p.resources, (QStringList{"101", "102", "103"}));
  EXPECT_EQ(p.resource(), "103");
  EXPECT_EQ(p.NbAvailable, "2");
  EXPECT_EQ(p.GroupId_L(), "C");
  EXPECT_FALSE(p.changed);

  // Another category keeps the resource only when it is listed there.
  p.Category_Click(0);
  EXPECT_EQ(p.resource(), "103");
  EXPECT_EQ(p.NbAvailable, "3");
  EXPECT_EQ(p.listBack, kWhite);
  p.Category_Click(2);
  EXPECT_EQ(p.resources, QStringList{"Suite"});
  EXPECT_EQ(p.resource(), "Suite");
  EXPECT_EQ(p.NbAvailable, "1");
  // Picking a resource in "All categories" shows its category's colours.
  p.Category_Click(0);
  p.Resource_Click(3);
  EXPECT_EQ(p.listBack, options.CategoryBack[1]);
  EXPECT_EQ(p.listFore, options.CategoryFore[1]);
  EXPECT_TRUE(p.changed);
}

TEST_F(CreerTest, APressOnTheBoardsLastDaysStaysWithinTheCalendars) {
  ReservationCreerPresenter& p = open("101", QDate(2025, 6, 27));
  EXPECT_EQ(p.CalF, QDate(2025, 6, 27));
  EXPECT_EQ(p.CalT, QDate(2025, 6, 30));
  EXPECT_EQ(p.NB_Jour, 3);

  ReservationCreerPresenter& last = open("101", QDate(2025, 6, 30));
  EXPECT_EQ(last.CalF, QDate(2025, 6, 29));
  EXPECT_EQ(last.CalT, QDate(2025, 6, 30));
  EXPECT_EQ(last.NbAvailable, "3");
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(CreerTest, RemarkTemplateIsReadOnlyWithTheFrameOption) {
  QFile file(plan.paths().remarksTemplate());
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("Arrival time:\r\nCar:");
  file.close();

  EXPECT_EQ(open("101", march(11)).Remarque, "");
  options.WithFrame = true;
  EXPECT_EQ(open("101", march(11)).Remarque, "Arrival time:\r\nCar:");
  EXPECT_FALSE(p_->changed);

  ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
  file.close();
  EXPECT_EQ(open("101", march(11)).Remarque, "");
}

TEST_F(CreerTest, ASingleBookingCarriesThePlainNameAndTheDialogsValues) {
  ReservationCreerPresenter& p = open("102", march(11));
  p.Nom_Change("Martin");
  p.Def_Cl_Click(3);
  EXPECT_EQ(nomFocus, 1);
  EXPECT_EQ(p.NomBack, 16711680u);
  p.CalT_DateClicked(march(13));
  EXPECT_EQ(p.NB_Jour, 2);
  p.Email_Change("martin@example.org");
  p.HowMany_Change("3");
  p.Remarque_Change("Late arrival");
  p.Bloc_Click(true);
  p.Create_Click();

  EXPECT_EQ(plan.rows("Nom/Resource/Date_Deb/Date_Fin/Split/GroupId/GroupNb/Couleur/Email/HowMany/Remarque/Blocage/InvNb"),
            QStringList{"Martin/102/2025-03-11/2025-03-13/0/C/0/3/martin@example.org/3/Late arrival/1/<null>"});
  EXPECT_EQ(maxGroupNb(), 0);
  EXPECT_EQ(unloads, 1);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(CreerTest, MoreRequestedThanFreePilesTheExtraBookingsOnTheNextEntry) {
  plan.addBooking("101", march(10), march(12), "Taken");
  ReservationCreerPresenter& p = open("102", march(11));
  ASSERT_EQ(p.NbAvailable, "2");
  p.Nom_Change("Choir");
  p.NbRequested_Change("3");
  EXPECT_EQ(p.GroupId_L(), "L");
  messages.answer(MsgAnswer::Yes);
  p.Create_Click();

  EXPECT_EQ(messages.texts(), QStringList{texts.get(txt::RequestedExceedAvailable)});
  EXPECT_EQ(messages.last().buttons, MsgButtons::YesNo);
  EXPECT_EQ(rows(), (QStringList{"Taken/101/2025-03-10/2025-03-12/0/C/0", "Choir/ /2025-03-11/2025-03-18/3/L/1",
                                 "Choir_1/102/2025-03-11/2025-03-18/0/C/1", "Choir_2/103/2025-03-11/2025-03-18/0/C/1",
                                 "Choir_3/103/2025-03-11/2025-03-18/0/C/1"}));
  EXPECT_EQ(maxGroupNb(), 1);
  EXPECT_EQ(p.Nom, "Choir");
  EXPECT_EQ(records.Nom_L, "Choir");
  EXPECT_EQ(unloads, 1);

  // Answered No, the dialog stays open and nothing more is written.
  ReservationCreerPresenter& again = open("102", march(11));
  again.Nom_Change("Band");
  again.NbRequested_Change("3");
  messages.answer(MsgAnswer::No);
  again.Create_Click();
  EXPECT_EQ(rows().size(), 5);
  EXPECT_EQ(unloads, 1);
  EXPECT_FALSE(again.closed);
}

TEST_F(CreerTest, ExtraBookingsNeverLandOnABlankResource) {
  // All three rooms free: nothing stands past them in the free list.
  ReservationCreerPresenter& p = open("101", march(11));
  ASSERT_EQ(p.NbAvailable, "3");
  p.Nom_Change("Choir");
  p.NbRequested_Change("4");
  messages.answer(MsgAnswer::Yes);
  p.Create_Click();
  EXPECT_EQ(rows(), (QStringList{"Choir/ /2025-03-11/2025-03-18/3/L/1", "Choir_1/101/2025-03-11/2025-03-18/0/C/1",
                                 "Choir_2/102/2025-03-11/2025-03-18/0/C/1", "Choir_3/103/2025-03-11/2025-03-18/0/C/1",
                                 "Choir_4/103/2025-03-11/2025-03-18/0/C/1"}));
}

TEST_F(CreerTest, AnAgentWithOneResourceStillMakesAGroup) {
  plan.db().exec("UPDATE DataBaseInfo SET MaxGroupNb = 6");
  ReservationCreerPresenter& p = open("101", march(20));
  p.Nom_Change("Voyages Sud");
  p.optAgent_Click();
  EXPECT_EQ(p.GroupId_L(), "A");
  p.Create_Click();

  EXPECT_EQ(rows(), (QStringList{"Voyages Sud/ /2025-03-20/2025-03-27/3/A/7",
                                 "Voyages Sud_1/101/2025-03-20/2025-03-27/0/C/7"}));
  EXPECT_EQ(maxGroupNb(), 7);

  // Back to a customer, one resource is one booking again.
  p.optCustomer_Click();
  EXPECT_EQ(p.GroupId_L(), "C");
  p.NbRequested_Change("2");
  EXPECT_EQ(p.GroupId_L(), "L");
}

TEST_F(CreerTest, RequestedAndAvailableAreComparedAsTexts) {
  // Ten rooms in category 2, the first taken: nine free.
  for (int i = 1; i <= 10; ++i) plan.addResource(QString("R%1").arg(i, 2, 10, QChar('0')), 2, 10 + i);
  plan.addBooking("R01", march(11), march(12), "Taken");

  ReservationCreerPresenter& p = open("R05", march(11));
  ASSERT_EQ(p.NbAvailable, "9");
  p.Nom_Change("Congress");
  p.NbRequested_Change("10");
  p.Create_Click();
  // "10" does not exceed "9": no question, nine on the free rooms, the tenth on the entry after.
  EXPECT_TRUE(messages.shown().empty());
  const QStringList written = rows();
  ASSERT_EQ(written.size(), 12);
  EXPECT_EQ(written[2], "Congress_1/R02/2025-03-11/2025-03-18/0/C/1");
  EXPECT_EQ(written[10], "Congress_9/R10/2025-03-11/2025-03-18/0/C/1");
  EXPECT_EQ(written[11], "Congress_10/R10/2025-03-11/2025-03-18/0/C/1");

  // "2" exceeds "14" as a text, though fourteen are free.
  p.Category_Click(0);
  p.CalT_DateClicked(march(26));
  p.CalF_DateClicked(march(25));
  ASSERT_EQ(p.NbAvailable, "14");
  p.NbRequested_Change("2");
  messages.answer(MsgAnswer::No);
  p.Create_Click();
  EXPECT_EQ(messages.texts(), QStringList{texts.get(txt::RequestedExceedAvailable)});
  EXPECT_EQ(rows().size(), 12);
}

TEST_F(CreerTest, BlackListAnsweredNoClosesAndLosesTheData) {
  plan.addBlackList("Bad Payer", "Left without paying");
  ReservationCreerPresenter& p = open("101", march(11));
  p.Nom_Change("bad payer");
  messages.answer(MsgAnswer::No);
  p.Create_Click();

  EXPECT_EQ(messages.texts(), QStringList{"This customer is in the black list with the remark : \r\n\r\nLeft without "
                                          "paying\r\n\r\nDo you want, nevertheless, to create this booking ?"});
  EXPECT_EQ(messages.last().buttons, MsgButtons::YesNo);
  EXPECT_EQ(p.BL_Remark, "Left without paying");
  EXPECT_TRUE(rows().isEmpty());
  EXPECT_TRUE(p.closed);
  EXPECT_EQ(unloads, 1);

  // Yes creates the booking as typed.
  ReservationCreerPresenter& q = open("101", march(11));
  q.Nom_Change("Bad Payer");
  messages.answer(MsgAnswer::Yes);
  q.Create_Click();
  EXPECT_EQ(rows(), QStringList{"Bad Payer/101/2025-03-11/2025-03-18/0/C/0"});
}

TEST_F(CreerTest, ABlankAroundTheNameDoesNotSlipPastTheBlackList) {
  plan.addBlackList("Mme Hélène Dupré", "Left without paying");
  ReservationCreerPresenter& p = open("101", march(11));
  p.Nom_Change(" Mme Hélène Dupré ");
  // Enter takes the preselected button: it must be No.
  messages.answer(MsgAnswer::No);
  p.Create_Click();
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
  EXPECT_TRUE(rows().isEmpty());

  ReservationCreerPresenter& q = open("101", march(11));
  q.Nom_Change("Mme Hélène Dupré\t");
  messages.answer(MsgAnswer::Yes);
  q.Create_Click();
  EXPECT_EQ(rows(), QStringList{"Mme Hélène Dupré/101/2025-03-11/2025-03-18/0/C/0"});
}

TEST_F(CreerTest, AKnownNameAsksUnlessItCameFromTheList) {
  plan.addBooking("103", march(1), march(3), "Dupont");
  QString listedFor;
  bool agentList = true;
  ctx().windows.Customer_From_Reservation = [&](const QString& name, CustomerCopyTarget& target, bool agents) {
    listedFor = name;
    agentList = agents;
    target.Nom = "Dupont";
    target.Email = "dupont@example.org";
    target.Remarque = "Regular";
    target.Flg_Search = true;
  };
  ReservationCreerPresenter& p = open("101", march(11));
  p.Nom_Change("DUPONT");
  messages.answer(MsgAnswer::Yes);
  p.Create_Click();

  EXPECT_EQ(messages.texts(),
            QStringList{"You already have a customer with the same name\r\nDo you want to consult the customers list ?"});
  EXPECT_EQ(listedFor, "DUPONT");
  EXPECT_FALSE(agentList);
  EXPECT_EQ(p.Nom, "Dupont");
  EXPECT_EQ(p.Email, "dupont@example.org");
  EXPECT_TRUE(p.Flg_Search);
  EXPECT_FALSE(p.closed);
  EXPECT_EQ(rows().size(), 1);

  // Taken from the list, the name is not questioned again.
  messages.clear();
  p.Create_Click();
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(rows().value(1), "Dupont/101/2025-03-11/2025-03-18/0/C/0");
  EXPECT_EQ(last("Remarque"), "Regular");

  // Answered No, the typed name goes on.
  ReservationCreerPresenter& q = open("102", march(11));
  q.Nom_Change("dupont");
  messages.answer(MsgAnswer::No);
  q.Create_Click();
  EXPECT_EQ(rows().value(2), "dupont/102/2025-03-11/2025-03-18/0/C/0");
}

TEST_F(CreerTest, ANameIsLookedForAmongAllBookingsAndTheQuestionFollowsTheKind) {
  // A customer of that name: an agent group named so is asked about too,
  // with the agents' question.
  plan.addBooking("103", march(1), march(3), "Alpha Tours");
  ReservationCreerPresenter& p = open("101", march(11));
  p.Nom_Change("Alpha Tours");
  p.optAgent_Click();
  messages.answer(MsgAnswer::No);
  p.Create_Click();
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().text,
            "You already have an agent with the same name\r\nDo you want to consult the agents list ?");
  ASSERT_EQ(rows().size(), 3);
  messages.clear();

  // An agent's name typed for a customer: the customers' question.
  plan.addBooking("103", march(5), march(6), "Beta Voyages");
  plan.db().execute("UPDATE Reservation SET GroupId = 'A' WHERE Nom = 'Beta Voyages'");
  ReservationCreerPresenter& q = open("102", march(11));
  q.Nom_Change("beta voyages");
  messages.answer(MsgAnswer::No);
  q.Create_Click();
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().text,
            "You already have a customer with the same name\r\nDo you want to consult the customers list ?");
  EXPECT_EQ(rows().size(), 5);
}

TEST_F(CreerTest, DatesOutOfOrderAndAnEmptyNameCreateNothing) {
  ReservationCreerPresenter& p = open("101", march(11));
  p.CalT_DateClicked(march(11));
  EXPECT_EQ(p.NB_Jour, 0);
  EXPECT_EQ(p.NbAvailable, "0");
  EXPECT_EQ(p.CalT, march(11));
  p.Nom_Change("Martin");
  p.Create_Click();

  p.CalF_DateClicked(march(5));
  EXPECT_EQ(p.NB_Jour, 6);
  EXPECT_EQ(p.NbAvailable, "3");
  p.Nom_Change("  ");
  p.Create_Click();
  EXPECT_EQ(nomFocus, 1);

  // A persons count that is no number stops before anything is written.
  p.Nom_Change("Martin");
  p.NbRequested_Change("2");
  p.HowMany_Change("two");
  p.Create_Click();
  EXPECT_EQ(messages.texts(), (QStringList{texts.get(txt::CalendarFromBeforeTo), texts.get(txt::CalendarFromBeforeTo),
                                           texts.get(txt::CustomerNameEmpty), "The number of persons must be a whole number"}));
  EXPECT_TRUE(rows().isEmpty());
  EXPECT_EQ(maxGroupNb(), 0);
  EXPECT_FALSE(p.closed);
}

TEST_F(CreerTest, ASingleBookingWithoutAResourceIsRefusedAndTheDialogStays) {
  ReservationCreerPresenter& p = open("101", march(11));
  p.Nom_Change("Martin");
  // Category 4 has no resources: nothing is selected.
  p.Category_Click(5);
  ASSERT_EQ(p.resource(), "");
  p.Create_Click();
  EXPECT_EQ(messages.texts(), QStringList{"The resource must be defined"});
  EXPECT_TRUE(rows().isEmpty());
  EXPECT_FALSE(p.closed);
  EXPECT_EQ(unloads, 0);

  // Back on a category with rooms, the same dialog creates the booking.
  p.Category_Click(1);
  p.Create_Click();
  EXPECT_EQ(rows(), QStringList{"Martin/101/2025-03-11/2025-03-18/0/C/0"});
  EXPECT_TRUE(p.closed);
}

TEST_F(CreerTest, AGroupTheStoreRefusesPartlyLeavesNothingBehind) {
  // 25 characters fit the header; "_1" makes the first member too long.
  const QString name = "Association des Amis du V";
  ASSERT_EQ(name.size(), 25);
  ReservationCreerPresenter& p = open("101", march(11));
  p.Nom_Change(name);
  p.NbRequested_Change("2");
  p.Create_Click();

  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().icon, MsgIcon::Critical);
  EXPECT_TRUE(rows().isEmpty());
  EXPECT_EQ(maxGroupNb(), 0);
  EXPECT_FALSE(p.closed);
  EXPECT_EQ(p.Nom, name);

  // Shortened, the same dialog makes the group under the next number.
  p.Nom_Change("Amis du V");
  p.Create_Click();
  EXPECT_EQ(rows(), (QStringList{"Amis du V/ /2025-03-11/2025-03-18/3/L/1", "Amis du V_1/101/2025-03-11/2025-03-18/0/C/1",
                                 "Amis du V_2/102/2025-03-11/2025-03-18/0/C/1"}));
  EXPECT_EQ(maxGroupNb(), 1);
}

TEST_F(CreerTest, LeavingAsksOnlyAfterAChange) {
  ReservationCreerPresenter& p = open("101", march(11));
  p.CdExit_Click();
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_TRUE(p.closed);

  ReservationCreerPresenter& q = open("101", march(11));
  q.Nom_Change("Martin");
  messages.answer(MsgAnswer::Cancel);
  q.CdExit_Click();
  EXPECT_EQ(messages.texts(), QStringList{texts.get(txt::CreateBeforeLeaving)});
  EXPECT_EQ(messages.last().buttons, MsgButtons::YesNoCancel);
  EXPECT_EQ(messages.last().preselected, MsgAnswer::Cancel);
  EXPECT_FALSE(q.closed);

  messages.answer(MsgAnswer::No);
  q.CdExit_Click();
  EXPECT_TRUE(q.closed);
  EXPECT_TRUE(rows().isEmpty());

  ReservationCreerPresenter& r = open("101", march(11));
  r.Nom_Change("Martin");
  messages.answer(MsgAnswer::Yes);
  r.CdExit_Click();
  EXPECT_EQ(rows(), QStringList{"Martin/101/2025-03-11/2025-03-18/0/C/0"});
  EXPECT_TRUE(r.closed);
}

TEST_F(CreerTest, HolesHandsBackTheCategoryAndResource) {
  ReservationCreerPresenter& p = open("101", march(11));
  EXPECT_FALSE(p.holesEnabled());
  EXPECT_FALSE(p.sendEmailEnabled());

  int mode = -1;
  QString shownFor;
  ctx().windows.Trous = [&](TrousSearch& trous) -> std::optional<HoleChoice> {
    mode = trous.Mode;
    shownFor = trous.Resource;
    trous.Form_Load();
    EXPECT_EQ(trous.from(), march(11));
    EXPECT_EQ(trous.to(), march(18));
    trous.setCategory(-1);
    messages.answer(MsgAnswer::Yes);
    return trous.Trous_OK_Click(3);  // the suite
  };
  EXPECT_TRUE(p.holesEnabled());
  p.Holes_Click();
  EXPECT_EQ(mode, 1);
  EXPECT_EQ(shownFor, "101");
  EXPECT_EQ(p.categoryIndex, 2);
  EXPECT_EQ(p.resource(), "Suite");
  EXPECT_EQ(p.NbAvailable, "1");
  // A room that is not the first of its category is the one taken.
  ctx().windows.Trous = [&](TrousSearch& trous) -> std::optional<HoleChoice> {
    trous.Form_Load();
    trous.setCategory(-1);
    messages.answer(MsgAnswer::Yes);
    return trous.Trous_OK_Click(1);
  };
  p.Holes_Click();
  EXPECT_EQ(p.resource(), "102");

  QStringList mailedTo;
  ctx().windows.sendEmail = [&](const QString& email) { mailedTo << email; };
  // An empty address is no reason to refuse: Mail opens an empty message.
  ASSERT_TRUE(p.sendEmailEnabled());
  p.cmdSendEmail_Click();
  p.Email_Change("guest@example.org");
  p.cmdSendEmail_Click();
  EXPECT_EQ(mailedTo, (QStringList{"", "guest@example.org"}));
}

}  // namespace
