// The worklist window shows only the lists it should, forwards clicks and the
// remark, and its paper reads back from a PDF with headings and remarks.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProcess>
#include <QStandardPaths>

#include "bookings/ui/alarm_dialog.h"
#include "customers/ui/list_printer.h"
#include "support/worklist_session.h"

namespace ksv {
namespace {

class AlarmWindow : public ::testing::Test, protected test::WorklistSession {
 protected:
  AlarmWindow() { ini.SetValue("Alarm", "Exceptions", "O"); }
};

TEST_F(AlarmWindow, HidesTheListsItHasNoCallForAndWritesTheRemarkWhenItsZoneIsLeft) {
  planning.addBooking("101", day(0), day(3), "Arriving");
  planning.addBooking("102", day(-2), day(0), "Leaving", {{"InvNb", 5}});
  addInvoiceHead(5, day(0));  // invoiced and posted: nothing to look at
  AlarmPresenter p(context());
  p.M_Alarm_Click();
  AlarmDialog dialog(p, texts, regional.shortDateFormat);
  dialog.show();
  EXPECT_FALSE(dialog.frame(AlarmPresenter::OverStay)->isVisible()) << "Extension is N";
  EXPECT_FALSE(dialog.frame(AlarmPresenter::ToLookAt)->isVisible()) << "nothing to look at";
  EXPECT_EQ(dialog.findChild<QLineEdit*>("Nom")->text(), "Leaving");

  dialog.list(AlarmPresenter::Arrival)->setCurrentRow(0);
  EXPECT_EQ(dialog.findChild<QLineEdit*>("Nom")->text(), "Arriving");
  EXPECT_EQ(dialog.findChild<QLineEdit*>("NB_Jour")->text(), "3");
  EXPECT_EQ(dialog.list(AlarmPresenter::Leaving)->currentRow(), -1) << "the other lists lose their selection";

  auto* remark = dialog.findChild<QPlainTextEdit*>("Remarque");
  remark->setPlainText("Twin beds\nQuiet room");
  QFocusEvent left(QEvent::FocusOut);
  QApplication::sendEvent(remark, &left);
  EXPECT_EQ(planning.db().scalar("SELECT Remarque FROM Reservation WHERE Nom = 'Arriving'").toString(),
            "Twin beds\r\nQuiet room");
}

TEST_F(AlarmWindow, ThePaperReadsBackFromThePdf) {
  const QString pdftotext = QStandardPaths::findExecutable("pdftotext");
  if (pdftotext.isEmpty()) GTEST_SKIP() << "pdftotext is not installed";
  planning.addBooking("101", day(-3), day(0), "Mr Leaving");
  planning.db().execute("UPDATE Reservation SET Remarque = 'Taxi at noon', Email = 'l@x.fr'");
  planning.addBooking("Gone", day(2), day(4), "Mrs Lost");
  AlarmPresenter p(context());
  p.M_Alarm_Click();
  const auto paper = p.printedAlarm();
  ASSERT_TRUE(paper);
  const QString pdf = planning.paths().programDir() + "/alarm.pdf";
  ASSERT_TRUE(printListToPdf(*paper, pdf));
  QProcess run;
  run.start(pdftotext, {"-layout", pdf, "-"});
  ASSERT_TRUE(run.waitForFinished(20000));
  const QString text = QString::fromUtf8(run.readAllStandardOutput());
  EXPECT_TRUE(text.contains("ALARMS : 10/03/2025"));
  EXPECT_TRUE(text.contains("To look at"));
  EXPECT_TRUE(text.contains("> Its resource no longer exists"));
  EXPECT_TRUE(text.contains("LEAVING : the very day"));
  EXPECT_TRUE(text.contains("> Taxi at noon"));
  EXPECT_TRUE(text.contains("l@x.fr"));
  EXPECT_LT(text.indexOf("To look at"), text.indexOf("LEAVING"));
}

}  // namespace
}  // namespace ksv
