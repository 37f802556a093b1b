#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTableWidget>

#include "customers/black_list.h"
#include "customers/customer_list.h"
#include "support/customer_planning.h"
#include "support/widget_input.h"
#include "customers/ui/black_list_window.h"
#include "customers/ui/customer_window.h"
#include "customers/ui/list_printer.h"
#include "storage/query_command.h"
#include "storage/recordset.h"

using namespace ksv;

namespace {

class CustomerWindows : public test::CustomerPlanning {};
using test::column;

}  // namespace

TEST_F(CustomerWindows, CustomerWindowShowsFiltersAndHidesCopyFromTheMenu) {
  booking("Hélène", "h@x.fr", "Quiet room\r\nSea view");
  booking("Martin", "m@x.fr", "Late arrival");
  CustomerListPresenter p(context());
  p.M_CustomerList_Click();
  CustomerWindow w(p, messages, texts);
  EXPECT_EQ(column(w.ListClient, 0), (QStringList{"Hélène", "Martin"}));
  EXPECT_EQ(w.ListClient->item(0, 2)->text(), "Quiet room / Sea view");
  EXPECT_FALSE(w.Copy->isVisibleTo(&w));
  EXPECT_TRUE(w.Modify->isVisibleTo(&w));
  w.search->setText("HELENE");
  EXPECT_EQ(column(w.ListClient, 0), QStringList{"Hélène"});
  w.ListClient->setCurrentCell(0, 0);
  ASSERT_TRUE(p.selected());
  EXPECT_EQ(p.selected()->Nom, "Hélène");
}

TEST_F(CustomerWindows, BlackListWindowShowsTheRowsInNameOrder) {
  plan.addBlackList("Zorro", "Broke a lamp");
  plan.addBlackList("Arnaud", "Did not pay");
  Recordset list = QueryCatalogue(db, clock).command("BlackList").openRecordset();
  BlackListPresenter p(context(), list);
  p.M_BlackList_Click();
  BlackListWindow w(p, messages, texts);
  EXPECT_EQ(column(w.ListBlack, 0), (QStringList{"Arnaud", "Zorro"}));
  EXPECT_EQ(w.ListBlack->horizontalHeaderItem(0)->text(), "Black List");
  EXPECT_FALSE(w.Modify->isEnabled());
  w.search->setText("lamp");
  EXPECT_EQ(column(w.ListBlack, 0), QStringList{"Zorro"});
}

TEST_F(CustomerWindows, PrintedListReadsBackFromThePdf) {
  const QString pdftotext = QStandardPaths::findExecutable("pdftotext");
  if (pdftotext.isEmpty()) GTEST_SKIP() << "pdftotext is not installed";
  booking("Martin", "m@x.fr", "Late arrival");
  booking("Agence Sud", "a@sud.fr", "Tours", "A");
  CustomerListPresenter p(context());
  PrintedList printed;
  p.print = [&printed](const PrintedList& list) { printed = list; };
  p.M_CustomerList_Click();
  p.Printer_Click();
  const QString pdf = folder() + "/list.pdf";
  ASSERT_TRUE(printListToPdf(printed, pdf));
  QProcess run;
  run.start(pdftotext, {"-layout", pdf, "-"});
  ASSERT_TRUE(run.waitForFinished(20000));
  const QString text = QString::fromUtf8(run.readAllStandardOutput());
  EXPECT_TRUE(text.contains("Customers"));
  EXPECT_TRUE(text.contains("Name"));
  EXPECT_TRUE(text.contains("m@x.fr"));
  EXPECT_TRUE(text.contains("Late arrival"));
  EXPECT_FALSE(text.contains("Agence Sud"));
}
