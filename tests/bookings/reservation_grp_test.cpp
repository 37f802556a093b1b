// The group dialog over a real planning: making and leaving a group, its
// members and candidates, writing, dissolving and deleting it.
#include "support/booking_session.h"
#include "invoicing/invoice_accounts.h"

using namespace ksv;
using namespace ksv::test;

namespace {

TEST_F(GroupDialogTest, ANewGroupIsMadeAroundTheClickedBookingWithTheNextNumber) {
  setMaxGroupNb(6);
  const qint64 id = plan.addBooking("101", jul(5), jul(9), "Durand", {{"Couleur", 2}, {"InvNb", 41}, {"HowMany", 3}});
  ReservationGrpPresenter& g = open(id);

  EXPECT_EQ(maxGroupNb(), 7);
  EXPECT_EQ(plan.stored(id, "GroupNb"), "7");
  EXPECT_TRUE(g.groupNew());
  // The member's invoice stays its own.
  EXPECT_EQ(plan.rows("Resource/Nom/Date_Deb/Date_Fin/Split/Couleur/GroupNb/InvNb/HowMany", "GroupId = 'L'"),
            QStringList{" /Durand/2024-07-05/2024-07-09/3/2/7/<null>/3"});
  EXPECT_EQ(plan.stored(id, "InvNb"), "41");
  EXPECT_EQ(records.Res_L, "101");  // the buffer still holds the clicked booking
  EXPECT_EQ(records.GroupNb_L, 7);
  EXPECT_EQ(g.Customer, QStringList{"Durand"});
  EXPECT_EQ(g.NB_Jour, 4);
  EXPECT_EQ(g.resourceBack, 11u);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(GroupDialogTest, LeavingANewGroupAtOnceAsksAndNoTakesItAway) {
  const qint64 id = plan.addBooking("101", jul(5), jul(9), "Durand", {{"InvNb", 41}});
  ReservationGrpPresenter& g = open(id);
  ASSERT_EQ(headers(), 1);

  messages.answer(MsgAnswer::Cancel);
  EXPECT_FALSE(g.CmdExit_Click());
  EXPECT_EQ(messages.texts(), QStringList{"A group has been created,\r\n\r\nDo you want to keep it ?"});
  EXPECT_EQ(messages.last().buttons, MsgButtons::YesNoCancel);
  EXPECT_EQ(messages.last().preselected, MsgAnswer::Cancel);
  EXPECT_EQ(closes, 0);
  EXPECT_EQ(headers(), 1);

  messages.answer(MsgAnswer::No);
  EXPECT_TRUE(g.CmdExit_Click());
  EXPECT_EQ(headers(), 0);
  EXPECT_EQ(plan.stored(id, "GroupNb"), "0");
  EXPECT_TRUE(invoice.deleted.isEmpty()) << "the booking's invoice is not the group's";
  EXPECT_EQ(plan.stored(id, "InvNb"), "41");
  EXPECT_EQ(closes, 1);

  // The number given away is not given again.
  grp.reset();
  open(id);
  EXPECT_EQ(maxGroupNb(), 2);
  EXPECT_EQ(plan.stored(id, "GroupNb"), "2");
}

// A first activation the store refuses makes no group, and leaving asks nothing about one.
TEST_F(GroupDialogTest, ARefusedFirstActivationMakesNoNewGroup) {
  const qint64 id = plan.addBooking("101", jul(5), jul(9), "Durand");
  plan.db().execute("CREATE TEMP TRIGGER refuse BEFORE UPDATE ON Reservation BEGIN SELECT RAISE(ABORT, 'no'); END");
  ReservationGrpPresenter& g = open(id);
  EXPECT_EQ(messages.shown().size(), 1u);
  EXPECT_FALSE(g.groupNew());
  EXPECT_EQ(headers(), 0);
}

TEST_F(GroupDialogTest, AfterAddingACandidateTheNewGroupStaysWithoutQuestion) {
  const qint64 id = plan.addBooking("101", jul(5), jul(9), "Durand");
  const qint64 other = plan.addBooking("102", jul(6), jul(8), "Petit");
  ReservationGrpPresenter& g = open(id);
  ASSERT_EQ(g.cboPossible.size(), 1);
  g.cmdAdd_Click();
  EXPECT_EQ(plan.stored(other, "GroupNb"), "1");
  EXPECT_EQ(g.Customer, (QStringList{"Durand", "Petit"}));
  EXPECT_TRUE(g.cboPossible.isEmpty());

  EXPECT_TRUE(g.CmdExit_Click());
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(headers(), 1);
  EXPECT_EQ(plan.stored(id, "GroupNb"), "1");
}

TEST_F(GroupDialogTest, CandidatesLieWhollyWithinThePeriodAndLineUp) {
  const qint64 id = plan.addBooking("101", jul(5), jul(9), "Durand");
  plan.addBooking("102", jul(4), jul(7), "Early");         // one day before the group
  plan.addBooking("103", jul(7), jul(10), "Late");         // leaves after it
  plan.addBooking("102", jul(7), jul(9), "Moreau-Lefebvre"); // within
  plan.addBooking("103", jul(5), jul(6), "Abel");          // within, first by name
  plan.addBooking("103", jul(6), jul(7), "Grouped", {{"GroupNb", 9}});
  ReservationGrpPresenter& g = open(id);
  ASSERT_EQ(g.cboPossible.size(), 2);
  EXPECT_EQ(g.cboPossible[0], "Abel                     103         7/5/2024 - 7/6/2024");
  EXPECT_EQ(g.cboPossible[1], "Moreau-Lefebvre          102         7/7/2024 - 7/9/2024");
  EXPECT_EQ(g.possibleIndex, 0);

  // Moving the period's start one day back brings the early one in.
  g.CalF_DateClicked(jul(4));
  EXPECT_TRUE(g.changed());
  EXPECT_EQ(g.NB_Jour, 5);
  EXPECT_EQ(g.cboPossible.size(), 3);
  EXPECT_TRUE(g.cboPossible[1].startsWith("Early"));
}

TEST_F(GroupDialogTest, AHeaderThatIsGoneIsWrittenAgainFromTheClickedMember) {
  setMaxGroupNb(4);
  const qint64 id = plan.addBooking("101", jul(5), jul(9), "Durand", {{"GroupNb", 3}, {"Couleur", 4}});
  ReservationGrpPresenter& g = open(id);
  EXPECT_FALSE(g.groupNew());
  EXPECT_EQ(maxGroupNb(), 4);
  EXPECT_EQ(plan.rows("Nom/Couleur/GroupNb", "GroupId = 'L'"), QStringList{"Durand/4/3"});

  // Lost again behind the open dialog: the next activation writes it again,
  // and the period the user chose stays.
  plan.db().execute("DELETE FROM Reservation WHERE GroupId = 'L'");
  g.CalF_DateClicked(jul(6));
  EXPECT_EQ(plan.rows("GroupNb", "GroupId = 'L'"), QStringList{"3"});
  EXPECT_EQ(g.CalF, jul(6));
  EXPECT_EQ(g.CalT, jul(9));
  // Not new: leaving asks only about the changed period, and keeps the group.
  messages.answer(MsgAnswer::No);
  EXPECT_TRUE(g.CmdExit_Click());
  EXPECT_EQ(messages.texts(), QStringList{"Do you want to modify the group before leaving  ?"});
  EXPECT_EQ(headers(), 1);
}

TEST_F(GroupDialogTest, AnExistingGroupOpensOnItsHeaderWithSplitMembersOnOneLine) {
  plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud", {{"GroupId", "A"}, {"Email", "sud@example.org"}, {"InvNb", -3}});
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}});
  const qint64 part1 = plan.addBooking("102", jul(3), jul(6), "Colin", {{"GroupNb", 5}, {"Split", "1"}});
  plan.addBooking("103", jul(6), jul(12), "Colin", {{"GroupNb", 5}, {"Split", "2"}});
  ReservationGrpPresenter& g = open(part1);
  EXPECT_EQ(g.Nom, "Agence Sud");
  EXPECT_TRUE(g.optAgent);
  EXPECT_EQ(g.CalF, jul(3));
  EXPECT_EQ(g.Customer, (QStringList{"Bernard", "Colin"}));
  EXPECT_FALSE(g.hasPart2);

  g.Customer_Click(1);
  EXPECT_EQ(g.Resource, "102");
  EXPECT_EQ(g.DtTo, jul(6));
  ASSERT_TRUE(g.hasPart2);
  EXPECT_EQ(g.ResourceS, "103");
  EXPECT_EQ(g.DtFromS, jul(6));
  EXPECT_EQ(g.resourceSBack, 10u);

  // The choice of kind is written at once.
  g.optCustomer_Click();
  EXPECT_EQ(plan.db().scalar("SELECT GroupId FROM Reservation WHERE Split = '3'").toString(), "L");
  EXPECT_FALSE(g.changed());
  (void)whole;
}

TEST_F(GroupDialogTest, RenamingAMemberRenamesBothPartsAndRemovingTakesBothOut) {
  plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud");
  const qint64 part1 = plan.addBooking("102", jul(3), jul(6), "Colin", {{"GroupNb", 5}, {"Split", "1"}});
  const qint64 part2 = plan.addBooking("103", jul(6), jul(12), "Colin", {{"GroupNb", 5}, {"Split", "2"}});
  ReservationGrpPresenter& g = open(part1);
  g.Customer_Click(0);
  g.Customer_Change("Colin-Maillard");
  g.Customer_LostFocus();
  EXPECT_EQ(plan.stored(part1, "Nom"), "Colin-Maillard");
  EXPECT_EQ(plan.stored(part2, "Nom"), "Colin-Maillard");
  EXPECT_EQ(g.Customer, QStringList{"Colin-Maillard"});

  g.Remark = "Cot\r\nLate";
  g.Remark_LostFocus();
  EXPECT_EQ(plan.stored(part1, "Remarque"), "Cot\r\nLate");
  EXPECT_EQ(plan.stored(part2, "Remarque"), "Cot\r\nLate");

  g.cmdRemove_Click();
  EXPECT_EQ(plan.stored(part1, "GroupNb"), "0");
  EXPECT_EQ(plan.stored(part2, "GroupNb"), "0");
  EXPECT_TRUE(g.Customer.isEmpty());
  EXPECT_EQ(g.NbRequested, 0);
  // Both parts are candidates again.
  EXPECT_EQ(g.cboPossible.size(), 2);
}

TEST_F(GroupDialogTest, AddingASplitPartBringsItsPartnerOrWarns) {
  const qint64 id = plan.addBooking("101", jul(5), jul(12), "Durand");
  const qint64 part1 = plan.addBooking("102", jul(5), jul(7), "Colin", {{"Split", "1"}, {"Couleur", 3}});
  const qint64 part2 = plan.addBooking("103", jul(7), jul(10), "Colin", {{"Split", "2"}, {"Couleur", 3}});
  const qint64 lost = plan.addBooking("103", jul(10), jul(12), "Zoe", {{"Split", "2"}});
  ReservationGrpPresenter& g = open(id);
  ASSERT_EQ(g.cboPossible.size(), 3);  // Colin, Colin, Zoe
  g.possibleIndex = 0;
  g.cmdAdd_Click();
  EXPECT_EQ(plan.stored(part1, "GroupNb"), "1");
  EXPECT_EQ(plan.stored(part2, "GroupNb"), "1");
  EXPECT_TRUE(messages.shown().empty());

  ASSERT_EQ(g.cboPossible.size(), 1);
  g.cmdAdd_Click();
  EXPECT_EQ(plan.stored(lost, "GroupNb"), "1");
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().text, "The other split part cannot be found\r\nWe are going to forget it");
}

TEST_F(GroupDialogTest, ANewGroupOnASplitPartNumbersItsPartnerToo) {
  const qint64 part1 = plan.addBooking("102", jul(5), jul(7), "Colin", {{"Split", "1"}});
  const qint64 part2 = plan.addBooking("103", jul(7), jul(10), "Colin", {{"Split", "2"}});
  open(part2);
  EXPECT_EQ(plan.stored(part1, "GroupNb"), "1");
  EXPECT_EQ(plan.stored(part2, "GroupNb"), "1");
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(GroupDialogTest, DeletingAGroupTakesEveryRowAndOneInvoicePerMember) {
  const qint64 head = plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud", {{"InvNb", -1}});
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}, {"InvNb", -2}});
  const qint64 part1 = plan.addBooking("102", jul(3), jul(6), "Colin", {{"GroupNb", 5}, {"Split", "1"}, {"InvNb", 8}});
  const qint64 part2 = plan.addBooking("103", jul(6), jul(12), "Colin", {{"GroupNb", 5}, {"Split", "2"}, {"InvNb", 8}});
  const qint64 outside = plan.addBooking("103", jul(3), jul(5), "Other");
  ReservationGrpPresenter& g = open(whole);

  messages.answer(MsgAnswer::No);
  EXPECT_FALSE(g.DeleteGroup_Click());
  EXPECT_EQ(messages.last().text, "Do you really want to delete this group of bookings ?");
  EXPECT_EQ(messages.last().icon, MsgIcon::Critical);
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
  EXPECT_TRUE(exists(head));
  EXPECT_TRUE(invoice.deleted.isEmpty());

  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(g.DeleteGroup_Click());
  for (qint64 id : {head, whole, part1, part2}) EXPECT_FALSE(exists(id)) << id;
  EXPECT_TRUE(exists(outside));
  EXPECT_EQ(invoice.deleted, (QStringList{"-1", "-2", "8"}));
  EXPECT_EQ(closes, 1);
}

TEST_F(GroupDialogTest, WithoutInvoicingNothingIsAskedOfIt) {
  withInvoice = false;
  plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud", {{"InvNb", -1}});
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}, {"InvNb", -2}});
  ReservationGrpPresenter& g = open(whole);
  EXPECT_FALSE(g.invoiceEnabled());
  g.CdInvoice_Click();  // nothing to hand over to
  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(g.DeleteGroup_Click());
  EXPECT_FALSE(exists(whole));
}

TEST_F(GroupDialogTest, SplittingAGroupDeletesTheHeadersInvoiceOnly) {
  const qint64 head = plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud", {{"InvNb", -1}});
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}, {"InvNb", -2}});
  const qint64 part1 = plan.addBooking("102", jul(3), jul(6), "Colin", {{"GroupNb", 5}, {"Split", "1"}, {"InvNb", 8}});
  ReservationGrpPresenter& g = open(whole);
  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(g.SplitGroup_Click());
  EXPECT_EQ(messages.last().text, "Do you really want to split this group of bookings ?");
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
  EXPECT_FALSE(exists(head));
  EXPECT_EQ(invoice.deleted, QStringList{"-1"});
  EXPECT_EQ(plan.rows("GroupNb/InvNb", QString("rowid IN (%1, %2)").arg(whole).arg(part1)), (QStringList{"0/-2", "0/8"}));
  EXPECT_EQ(closes, 1);
}

TEST_F(GroupDialogTest, ModifyingMovesTheMembersButNotAPartOverItsCut) {
  const qint64 head = plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud");
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}});
  plan.addBooking("102", jul(3), jul(6), "Colin", {{"GroupNb", 5}, {"Split", "1"}});
  plan.addBooking("103", jul(6), jul(12), "Colin", {{"GroupNb", 5}, {"Split", "2"}});
  plan.addBooking("101", jul(12), jul(14), "Dupont", {{"GroupNb", 5}, {"Split", "1"}});
  plan.addBooking("101", jul(14), jul(20), "Dupont", {{"GroupNb", 5}, {"Split", "2"}});
  plan.addBooking("103", jul(3), jul(5), "Ernst", {{"GroupNb", 5}, {"Split", "1"}});
  plan.addBooking("103", jul(5), jul(12), "Ernst", {{"GroupNb", 5}, {"Split", "2"}});
  ReservationGrpPresenter& g = open(whole);
  g.CalF_DateClicked(jul(7));   // past Colin's and Ernst's cuts
  g.CalT_DateClicked(jul(16));  // Dupont's second part starts before it
  g.Def_Cl_Click(3);
  g.Bloc = true;
  g.Nom = "Agence Nord";
  g.Remarque = "Coach";

  // The header is written first; each split row is told as the walk meets it.
  QStringList headerWhenTold;
  messages.onShow = [&](const ShownMessage& m) {
    if (m.icon == MsgIcon::Exclamation) headerWhenTold << plan.stored(head, "Nom");
  };
  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(g.ModifyGroup_Click());
  EXPECT_EQ(headerWhenTold, (QStringList{"Agence Nord", "Agence Nord"}));
  // The first parts of Colin and Ernst cannot follow: one message for each.
  const QString cannot = "The dates of some splited bookings cannot be changed.";
  EXPECT_EQ(messages.texts(), (QStringList{"The dates of this group don't correspond to the one of some bookings.\r\n"
                                           "Do you want to update the dates of the bookings?", cannot, cannot}));
  EXPECT_EQ(messages.shown()[0].preselected, MsgAnswer::No);
  // The header keeps the dates it was made with; parts keep their cut.
  EXPECT_EQ(plan.rows("Nom/Date_Deb/Date_Fin/Couleur/Blocage/Remarque"),
            (QStringList{"Agence Nord/2024-07-03/2024-07-12/3/0/Coach", "Bernard/2024-07-07/2024-07-16/3/1/",
                         "Colin/2024-07-03/2024-07-06/3/1/", "Colin/2024-07-06/2024-07-16/3/1/",
                         "Dupont/2024-07-07/2024-07-14/3/1/", "Dupont/2024-07-14/2024-07-16/3/1/",
                         "Ernst/2024-07-03/2024-07-05/3/1/", "Ernst/2024-07-05/2024-07-16/3/1/"}));
  EXPECT_EQ(closes, 1);
}

TEST_F(GroupDialogTest, NoKeepsTheMembersDatesButStillTheirStateAndLock) {
  plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud");
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}});
  ReservationGrpPresenter& g = open(whole);
  g.CalT_DateClicked(jul(10));
  g.Def_Cl_Click(5);
  messages.answer(MsgAnswer::No);
  EXPECT_TRUE(g.ModifyGroup_Click());
  EXPECT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(plan.stored(whole, "Date_Fin"), "2024-07-12");
  EXPECT_EQ(plan.stored(whole, "Couleur"), "5");
}

TEST_F(GroupDialogTest, ModifyRefusesAnEmptyPeriodOrName) {
  plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud");
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}});
  ReservationGrpPresenter& g = open(whole);
  int focused = 0;
  g.focusNom = [&] { ++focused; };
  g.Nom = "   ";
  EXPECT_FALSE(g.ModifyGroup_Click());
  EXPECT_EQ(focused, 1);
  g.Nom = "Sud";
  g.CalT_DateClicked(jul(3));
  EXPECT_FALSE(g.ModifyGroup_Click());
  EXPECT_EQ(messages.texts(), (QStringList{texts.get(txt::CustomerNameEmpty), texts.get(txt::CalendarFromBeforeTo)}));
  EXPECT_EQ(plan.stored(whole, "Date_Fin"), "2024-07-12");
  EXPECT_EQ(closes, 0);
}

TEST_F(GroupDialogTest, AWriteTheStoreRefusesIsToldAndLeavesNothingHalfWritten) {
  const qint64 head = plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud");
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}});
  const qint64 colin = plan.addBooking("102", jul(3), jul(12), "Colin", {{"GroupNb", 5}});
  ReservationGrpPresenter& g = open(whole);

  // A name longer than the column.
  g.Customer_Change(QString(26, QLatin1Char('x')));
  EXPECT_NO_THROW(g.Customer_LostFocus());
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().icon, MsgIcon::Critical);
  EXPECT_EQ(plan.stored(whole, "Nom"), "Bernard");
  EXPECT_EQ(g.Customer, (QStringList{"Bernard", "Colin"}));

  // One member refused after the header was written: nothing stays.
  plan.db().execute("CREATE TEMP TRIGGER refuse BEFORE UPDATE ON Reservation WHEN OLD.Nom = 'Colin' "
                    "BEGIN SELECT RAISE(ABORT, 'refused'); END");
  const QString colour = plan.stored(whole, "Couleur");
  ASSERT_NE(colour, "3");
  g.Nom = "Agence Nord";
  g.Def_Cl_Click(3);
  bool written = true;
  EXPECT_NO_THROW(written = g.ModifyGroup_Click());
  EXPECT_FALSE(written);
  EXPECT_EQ(messages.shown().size(), 2u);
  EXPECT_EQ(plan.stored(head, "Nom"), "Agence Sud");
  EXPECT_EQ(plan.stored(whole, "Couleur"), colour);
  EXPECT_EQ(closes, 0);

  // Nothing is left pending: once the store accepts, the same command goes through.
  plan.db().execute("DROP TRIGGER refuse");
  EXPECT_TRUE(g.ModifyGroup_Click());
  EXPECT_EQ(plan.stored(head, "Nom"), "Agence Nord");
  EXPECT_EQ(plan.stored(colin, "Couleur"), "3");
}

TEST_F(GroupDialogTest, ARefusedGroupDeleteKeepsEveryInvoiceAndCanBeDoneAgain) {
  plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud", {{"InvNb", 50}});
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}, {"InvNb", 51}});
  plan.addBooking("102", jul(3), jul(12), "Colin", {{"GroupNb", 5}});
  for (int n : {50, 51}) plan.addRow("Invoice", {{"InvoiceNb", n}, {"Typ", "0"}, {"Lib", "x"}});
  const auto invoices = [this] { return plan.db().scalar("SELECT count(*) FROM Invoice").toInt(); };
  ReservationGrpPresenter& g = open(whole);
  ctx().DeleteInvoice = [this](const QString& n) { DeleteInvoice(plan.db(), plan.clock(), n); };

  plan.db().execute("CREATE TEMP TRIGGER refuse BEFORE DELETE ON Reservation WHEN OLD.Nom = 'Colin' "
                    "BEGIN SELECT RAISE(ABORT, 'refused'); END");
  messages.answer(MsgAnswer::Yes);
  EXPECT_FALSE(g.DeleteGroup_Click());
  EXPECT_EQ(invoices(), 2);
  EXPECT_TRUE(exists(whole));
  EXPECT_EQ(closes, 0);

  plan.db().execute("DROP TRIGGER refuse");
  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(g.DeleteGroup_Click());
  EXPECT_EQ(invoices(), 0);
  EXPECT_FALSE(exists(whole));
}

TEST_F(GroupDialogTest, LeavingWithChangesAsksToModifyFirst) {
  plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud");
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}});
  ReservationGrpPresenter& g = open(whole);
  g.Nom = "Agence Est";
  g.Header_Change();
  messages.answer(MsgAnswer::Cancel);
  EXPECT_FALSE(g.CmdExit_Click());
  EXPECT_EQ(messages.last().text, "Do you want to modify the group before leaving  ?");
  EXPECT_EQ(messages.last().preselected, MsgAnswer::Cancel);
  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(g.CmdExit_Click());
  EXPECT_EQ(plan.db().scalar("SELECT Nom FROM Reservation WHERE Split = '3'").toString(), "Agence Est");
  EXPECT_EQ(closes, 1);
}

TEST_F(GroupDialogTest, TheInvoiceReceivesTheGroupPeriodAndNumber) {
  options.BookingBack[2] = 77;
  plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud", {{"InvNb", -4}, {"Couleur", 2}});
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}});
  ReservationGrpPresenter& g = open(whole);
  g.CalT_DateClicked(jul(11));
  g.CdInvoice_Click();
  ASSERT_EQ(invoice.shown.size(), 1u);
  const InvoiceHandOver& h = invoice.shown[0];
  EXPECT_EQ(h.Nom, "Agence Sud");
  EXPECT_EQ(h.back, 77u);
  EXPECT_EQ(h.InvNb, "-4");
  EXPECT_EQ(h.GrpDtFrom, jul(3));
  EXPECT_EQ(h.GrpDtTo, jul(11));
  EXPECT_EQ(h.GroupNb, 5);
}

TEST_F(GroupDialogTest, CalendarsAreBoundByTheBoardAndAnOlderGroup) {
  plan.addGroupHeader(5, QDate(2024, 6, 28), jul(4), "Agence Sud");
  const qint64 whole = plan.addBooking("101", QDate(2024, 6, 28), jul(4), "Bernard", {{"GroupNb", 5}});
  ReservationGrpPresenter& g = open(whole);
  EXPECT_EQ(g.CalFLowest, QDate(2024, 6, 28));
  EXPECT_EQ(g.CalTLowest, QDate(2024, 6, 29));
  EXPECT_EQ(g.CalFHighest, jul(30));
  EXPECT_EQ(g.CalTHighest, jul(31));
}

}  // namespace
