// The new-booking window driven through its widgets on a real plan.
#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTimer>

#include "board/ui/calendar_view.h"
#include "bookings/reservation_creer.h"
#include "bookings/ui/reservation_creer_dialog.h"
#include "bookings/ui/trous_dialog.h"
#include "customers/ui/remark_edit.h"
#include "support/booking_session.h"
#include "support/widget_input.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class CreerDialogTest : public SpringBoard {
 protected:
  void SetUp() override {
    plan.addResource("101", 0, 1);
    plan.addResource("102", 0, 2);
    plan.addResource("Suite", 1, 3);
    openView();
    records.Res_L = "102";
    records.DD_L = QDate(2025, 3, 11);
  }
  QStringList rows() { return plan.rows("Nom/Resource/Date_Deb/Date_Fin/Split/GroupId/GroupNb"); }
};

TEST_F(CreerDialogTest, FilledThroughItsWidgetsCreateWritesTheRow) {
  QStringList mailedTo;
  ctx().windows.sendEmail = [&](const QString& email) { mailedTo << email; };
  ReservationCreerPresenter p(ctx());
  p.Form_Load();
  ReservationCreerDialog dialog(p, texts);
  dialog.show();
  for (QPlainTextEdit* box : dialog.findChildren<QPlainTextEdit*>())
    EXPECT_NE(qobject_cast<RemarkEdit*>(box), nullptr) << "a remark box that lets a long remark be cut";

  EXPECT_EQ(child<QLineEdit>(dialog, "NB_Jour")->text(), "7");
  EXPECT_EQ(child<QLineEdit>(dialog, "NbAvailable")->text(), "2");
  EXPECT_EQ(child<QComboBox>(dialog, "Category")->currentIndex(), 1);
  EXPECT_EQ(child<QComboBox>(dialog, "Resource")->currentText(), "102");
  // Mail checks nothing: with no address yet it opens an empty message.
  ASSERT_TRUE(child<QPushButton>(dialog, "cmdSendEmail")->isEnabled());
  child<QPushButton>(dialog, "cmdSendEmail")->click();
  EXPECT_EQ(mailedTo, QStringList{""});

  typeInto(child<QLineEdit>(dialog, "Nom"), "Martin");
  child<QPushButton>(dialog, "Def_Cl2")->click();
  typeInto(child<QLineEdit>(dialog, "Email"), "m@example.org");
  child<QPushButton>(dialog, "cmdSendEmail")->click();
  EXPECT_EQ(mailedTo, (QStringList{"", "m@example.org"}));
  // The leaving day picked on the "To" calendar.
  auto* calT = child<CalendarView>(dialog, "CalT");
  clickAt(calT, calT->dayCentre(QDate(2025, 3, 14)));
  EXPECT_EQ(child<QLineEdit>(dialog, "NB_Jour")->text(), "3");
  // The suite, from "All categories".
  child<QComboBox>(dialog, "Category")->activated(0);
  child<QComboBox>(dialog, "Resource")->activated(2);
  child<QPushButton>(dialog, "Create")->click();

  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(plan.rows("Nom/Resource/Date_Deb/Date_Fin/Couleur/Email"),
            QStringList{"Martin/Suite/2025-03-11/2025-03-14/2/m@example.org"});
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(CreerDialogTest, TheEntryPointIsModalAndTheHolesWindowHandsBackAResource) {
  plan.addBooking("101", QDate(2025, 3, 5), QDate(2025, 3, 9), "Before");
  bool ranInside = false;
  QTimer::singleShot(0, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    ranInside = true;
    // The holes window opens over the booking, its own line highlighted and selected.
    QTimer::singleShot(0, [&] {
      auto* trous = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(trous, nullptr);
      auto* grid = child<QTableWidget>(*trous, "LesTrous");
      ASSERT_EQ(grid->rowCount(), 2);
      EXPECT_EQ(grid->currentRow(), 1);
      EXPECT_EQ(grid->item(1, 0)->background().color(), QColor(0xC0, 0xC0, 0xFF));
      grid->selectRow(0);
      messages.answer(MsgAnswer::Yes);
      child<QPushButton>(*trous, "OK")->click();
    });
    child<QPushButton>(*dialog, "Holes")->click();
    EXPECT_EQ(child<QComboBox>(*dialog, "Resource")->currentText(), "101");
    typeInto(child<QLineEdit>(*dialog, "Nom"), "Holmes");
    child<QPushButton>(*dialog, "Create")->click();
  });
  showReservationCreer(ctx(), nullptr);
  EXPECT_TRUE(ranInside);
  EXPECT_EQ(messages.texts(), QStringList{"Do you want the resource 101 to become the booking resource ?"});
  EXPECT_EQ(rows().value(1), "Holmes/101/2025-03-11/2025-03-18/0/C/0");
  EXPECT_FALSE(ctx().windows.Trous);
}

}  // namespace
