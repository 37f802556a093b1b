// The group dialog's widgets bound to its presenter.
#include "bookings/ui/reservation_grp_dialog.h"

#include <QPlainTextEdit>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "customers/ui/remark_edit.h"
#include "support/booking_session.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class ReservationGrpDialogTest : public GroupDialogTest {};

TEST_F(ReservationGrpDialogTest, AddTakesTheCandidateIntoTheMembers) {
  plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud", {{"InvNb", -3}});
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}});
  plan.addBooking("102", jul(4), jul(6), "Abel");
  ReservationGrpPresenter& g = open(whole);
  ReservationGrpDialog dialog(g, ctx());
  dialog.refresh();
  for (QPlainTextEdit* box : dialog.findChildren<QPlainTextEdit*>())
    EXPECT_NE(qobject_cast<RemarkEdit*>(box), nullptr) << "a remark box that lets a long remark be cut";
  ASSERT_EQ(dialog.cboPossible->count(), 1);
  EXPECT_TRUE(dialog.CdInvoice->isEnabled());

  dialog.cmdAdd->click();
  EXPECT_EQ(dialog.Customer->count(), 2);
  EXPECT_EQ(dialog.cboPossible->count(), 0);
}

TEST_F(ReservationGrpDialogTest, ClosingTheWindowLeavesThroughExit) {
  withInvoice = false;
  const qint64 id = plan.addBooking("101", jul(5), jul(9), "Durand");
  ReservationGrpPresenter& g = open(id);
  ReservationGrpDialog dialog(g, ctx());
  dialog.refresh();
  EXPECT_FALSE(dialog.CdInvoice->isEnabled());
  dialog.show();

  messages.answer(MsgAnswer::Cancel);
  dialog.close();
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(headers(), 1);

  messages.answer(MsgAnswer::No);
  dialog.close();
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(headers(), 0);
}

TEST_F(ReservationGrpDialogTest, AHeaderEditAsksBeforeLeaving) {
  plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud");
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}});
  ReservationGrpPresenter& g = open(whole);
  ReservationGrpDialog dialog(g, ctx());
  dialog.refresh();
  dialog.show();
  dialog.Nom->setText("Agence Ouest");
  emit dialog.Nom->textEdited("Agence Ouest");
  messages.answer(MsgAnswer::Yes);
  dialog.CmdExit->click();
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(messages.last().text, "Do you want to modify the group before leaving  ?");
  EXPECT_EQ(plan.db().scalar("SELECT Nom FROM Reservation WHERE Split = '3'").toString(), "Agence Ouest");
}

}  // namespace
