// What the booking, split and group windows share with the creation window:
// remarks stored with CR LF and cut at 250, the column lengths of Nom and
// Email, and the Send e-mail button that hands the text of the e-mail zone to
// Mail.
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "support/booking_session.h"
#include "support/widget_input.h"
#include "bookings/ui/reservation_dialog.h"
#include "bookings/ui/reservation_grp_dialog.h"
#include "bookings/ui/reservation_split_dialog.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class BookingFieldsTest : public MarchBoard {};

TEST_F(BookingFieldsTest, TheBookingWindowStoresItsRemarkWithCrLf) {
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Durand", {{"Remarque", "Late\r\nCot"}});
  click(id);
  ReservationPresenter p(ctx());
  p.Form_Load();
  ReservationDialog dialog(p, ctx());
  auto* remark = child<QPlainTextEdit>(dialog, "Remarque");
  EXPECT_EQ(remark->toPlainText(), "Late\nCot");
  EXPECT_FALSE(p.changed);
  EXPECT_EQ(child<QLineEdit>(dialog, "Nom")->maxLength(), 25);
  EXPECT_EQ(child<QLineEdit>(dialog, "Email")->maxLength(), 40);

  remark->setPlainText("Late\nCot\nDog");
  EXPECT_EQ(p.Remarque, "Late\r\nCot\r\nDog");
  EXPECT_TRUE(p.changed);
  child<QPushButton>(dialog, "Modify")->click();
  EXPECT_EQ(plan.stored(id, "Remarque"), "Late\r\nCot\r\nDog");
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(BookingFieldsTest, TheSplitWindowCutsItsRemarkAt250) {
  const qint64 part1 = plan.addBooking("Room 1", march(10), march(12), "Durand", {{"Split", "1"}});
  const qint64 part2 = plan.addBooking("Suite", march(12), march(15), "Durand", {{"Split", "2"}});
  click(part1);
  ReservationSplitPresenter p(ctx());
  p.Form_Load();
  ReservationSplitDialog dialog(p, ctx());
  const QString line(150, QLatin1Char('x'));
  child<QPlainTextEdit>(dialog, "Remarque")->setPlainText(line + "\n" + line);
  const QString expected = (line + "\r\n" + line).left(250);
  EXPECT_EQ(p.Remarque, expected);
  child<QPushButton>(dialog, "Modify")->click();
  EXPECT_EQ(plan.stored(part1, "Remarque"), expected);
  EXPECT_EQ(plan.stored(part2, "Remarque"), expected);
}

TEST_F(BookingFieldsTest, SendEmailHandsTheTypedAddressToMail) {
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Durand", {{"Email", "d@example.org"}});
  click(id);
  QStringList mailed;
  ctx().windows.sendEmail = [&](const QString& email) { mailed << email; };
  ReservationPresenter p(ctx());
  p.Form_Load();
  ReservationDialog dialog(p, ctx());
  auto* send = child<QPushButton>(dialog, "cmdSendEmail");
  ASSERT_TRUE(send->isEnabled());
  send->click();
  auto* email = child<QLineEdit>(dialog, "Email");
  email->setText("durand@example.org");
  emit email->textEdited(email->text());
  send->click();
  EXPECT_EQ(mailed, (QStringList{"d@example.org", "durand@example.org"}));
  EXPECT_FALSE(p.isClosed());
}

TEST_F(BookingFieldsTest, SendEmailOfTheSplitWindowAndWithoutAMailHook) {
  const qint64 part1 = plan.addBooking("Room 1", march(10), march(12), "Durand", {{"Split", "1"}, {"Email", "a@b.c"}});
  plan.addBooking("Suite", march(12), march(15), "Durand", {{"Split", "2"}, {"Email", "a@b.c"}});
  click(part1);
  {
    // No mail handler wired: the button is there but off.
    ReservationSplitPresenter p(ctx());
    p.Form_Load();
    ReservationSplitDialog dialog(p, ctx());
    EXPECT_FALSE(child<QPushButton>(dialog, "cmdSendEmail")->isEnabled());
  }
  QStringList mailed;
  ctx().windows.sendEmail = [&](const QString& email) { mailed << email; };
  ReservationSplitPresenter p(ctx());
  p.Form_Load();
  ReservationSplitDialog dialog(p, ctx());
  child<QPushButton>(dialog, "cmdSendEmail")->click();
  EXPECT_EQ(mailed, QStringList{"a@b.c"});
}

class GroupMailTest : public GroupDialogTest {};

TEST_F(GroupMailTest, SendEmailOfTheGroupWindowSendsItsEmailZone) {
  plan.addGroupHeader(5, jul(3), jul(12), "Agence Sud", {{"Email", "sud@example.org"}});
  const qint64 whole = plan.addBooking("101", jul(3), jul(12), "Bernard", {{"GroupNb", 5}});
  ReservationGrpPresenter& g = open(whole);
  QStringList mailed;
  ctx().windows.sendEmail = [&](const QString& email) { mailed << email; };
  ReservationGrpDialog dialog(g, ctx());
  dialog.refresh();
  ASSERT_NE(dialog.cmdSendEmail, nullptr);
  ASSERT_TRUE(dialog.cmdSendEmail->isEnabled());
  dialog.cmdSendEmail->click();
  dialog.Email->setText("ouest@example.org");
  dialog.cmdSendEmail->click();
  EXPECT_EQ(mailed, (QStringList{"sud@example.org", "ouest@example.org"}));
  EXPECT_EQ(closes, 0);
}

}  // namespace
