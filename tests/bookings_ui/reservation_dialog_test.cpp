// The booking window on a real planning: typing and picking through the
// widgets reach the row, and closing the window asks like Annuler.
#include "bookings/ui/reservation_dialog.h"

#include <QPlainTextEdit>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>

#include "board/ui/calendar_view.h"
#include "support/booking_session.h"
#include "support/widget_input.h"
#include "bookings/ui/reservation_split_dialog.h"
#include "customers/ui/remark_edit.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class ReservationDialogTest : public MarchBoard {
 protected:
  // Runs `act` on the dialog once it is shown modally.
  void whenShown(std::function<void(QWidget&)> act) {
    QTimer::singleShot(0, [act = std::move(act)] {
      QWidget* dialog = QApplication::activeModalWidget();
      ASSERT_NE(dialog, nullptr);
      act(*dialog);
      // Whatever the test left open goes without saving.
      if (QApplication::activeModalWidget() == dialog) dialog->hide();
    });
  }
};

TEST_F(ReservationDialogTest, EditsThroughTheWidgetsAreWrittenByModify) {
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Durand");
  click(id);
  whenShown([](QWidget& d) {
  for (QPlainTextEdit* box : d.findChildren<QPlainTextEdit*>())
    EXPECT_NE(qobject_cast<RemarkEdit*>(box), nullptr) << "a remark box that lets a long remark be cut";
    auto* nom = d.findChild<QLineEdit*>("Nom");
    ASSERT_NE(nom, nullptr);
    EXPECT_EQ(nom->text(), "Durand");
    nom->setFocus();
    nom->end(false);
    typeInto(nom, "-Roy");
    auto* calT = d.findChild<CalendarView*>("CalTView");
    ASSERT_NE(calT, nullptr);
    clickAt(calT, calT->dayCentre(march(14)));
    EXPECT_EQ(d.findChild<QLabel*>("NB_Jour")->text(), "4");
    EXPECT_FALSE(d.findChild<QPushButton*>("CdInvoice")->isEnabled());
    d.findChild<QPushButton*>("Modify")->click();
    EXPECT_FALSE(d.isVisible());
  });
  EXPECT_FALSE(showReservation(ctx(), nullptr));
  EXPECT_EQ(row(id), "Durand-Roy/Room 1/2025-03-10/2025-03-14/0/<null>/0/0/0");
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(ReservationDialogTest, ClosingTheWindowAsksBeforeLeavingAChangedBooking) {
  const qint64 id = plan.addBooking("Room 1", march(10), march(12), "Durand");
  const QString before = row(id);
  click(id);
  messages.answer(MsgAnswer::Cancel);
  messages.answer(MsgAnswer::No);
  whenShown([this](QWidget& d) {
    auto* email = d.findChild<QLineEdit*>("Email");
    email->setFocus();
    typeInto(email, "x@example.org");
    d.close();
    EXPECT_TRUE(d.isVisible());  // Cancel stays
    d.close();
    EXPECT_FALSE(d.isVisible());
  });
  EXPECT_FALSE(showReservation(ctx(), nullptr));
  EXPECT_EQ(row(id), before);
  EXPECT_TRUE(messages.allAnswersUsed());
}

TEST_F(ReservationDialogTest, TheGroupButtonOfTheSplitWindowAsksForTheGroup) {
  plan.addBooking("Room 1", march(10), march(12), "Durand", {{"Split", "1"}, {"GroupNb", 3}});
  const qint64 part2 = plan.addBooking("Suite", march(12), march(15), "Durand", {{"Split", "2"}, {"GroupNb", 3}});
  click(part2);
  whenShown([](QWidget& d) {
  for (QPlainTextEdit* box : d.findChildren<QPlainTextEdit*>())
    EXPECT_NE(qobject_cast<RemarkEdit*>(box), nullptr) << "a remark box that lets a long remark be cut";
    EXPECT_EQ(d.findChild<QLabel*>("NB_Jour1")->text(), "2");
    EXPECT_EQ(d.findChild<QLabel*>("NB_Jour2")->text(), "3");
    auto* group = d.findChild<QPushButton*>("cmdGroup");
    group->click();
  });
  EXPECT_TRUE(showReservationSplit(ctx(), nullptr));
}

}  // namespace
