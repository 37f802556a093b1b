// The Invoice window used from the keyboard alone: a stay, a tourist tax and
// the payment that settles them, each line added by Enter.
#include "invoicing/ui/invoice_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>

#include "support/test_planning.h"

using namespace ksv;

namespace {

class InvoiceDialogTest : public ::testing::Test {
 protected:
  InvoiceDialogTest() {
    plan.addService("Breakfast", 9);
    plan.addService("Room", 85);
    plan.addModifier("Tourist tax", 6, 0, false, true);
    plan.addPayment("Card");
    plan.addPayment("Cash");
    dialog = std::make_unique<InvoiceDialog>(messages, texts, regional, plan.clock(),
                                             InvoiceCatalogue::read(plan.db(), plan.clock()));
    dialog->presenter().prepareCashSale();
    dialog->showHandOver();
    dialog->presenter().Form_Load(AmountDisplay{2, true}, 10);
    dialog->show();
    QApplication::setActiveWindow(dialog.get());
  }
  QWidget* field(InvField f) { return dialog->fieldWidget(f); }
  // The chooser in focus opens on Alt+Down; arrows and Enter choose as a click would.
  void choose(int downs) {
    auto* combo = qobject_cast<QComboBox*>(QApplication::focusWidget());
    ASSERT_TRUE(combo);
    QTest::keyClick(combo, Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(combo->view()->isVisible());
    for (int i = 0; i < downs; ++i) QTest::keyClick(combo->view(), Qt::Key_Down);
    QTest::keyClick(combo->view(), Qt::Key_Return);
  }
  void enter() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }
  QString cell(int row, int column) { return dialog->TbInvoice->item(row, column)->text(); }

  test::TestPlanning plan;
  test::ScriptedMessages messages;
  Texts texts{0};
  Regional regional = Regional::englishUS();
  std::unique_ptr<InvoiceDialog> dialog;
};

TEST_F(InvoiceDialogTest, AStayATaxAndAPaymentWithoutTheMouse) {
  EXPECT_FALSE(dialog->frBooking->isVisible());
  field(InvField::Designation)->setFocus();
  choose(1);  // Breakfast, then Room
  ASSERT_EQ(QApplication::focusWidget(), field(InvField::Quantity));
  QTest::keyClicks(QApplication::focusWidget(), "3");
  enter();
  field(InvField::Modification)->setFocus();
  choose(0);
  ASSERT_EQ(QApplication::focusWidget(), field(InvField::NotIncluded));
  enter();
  field(InvField::DtPaid)->setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  ASSERT_EQ(QApplication::focusWidget(), field(InvField::Payment));
  choose(1);
  QTest::keyClicks(QApplication::focusWidget(), "261");
  enter();

  ASSERT_EQ(dialog->TbInvoice->rowCount(), 3);
  EXPECT_EQ(QStringList({cell(0, 0), cell(0, 3), cell(0, 5)}), QStringList({"Room", "3", "255"}));
  EXPECT_EQ(QStringList({cell(1, 0), cell(1, 5)}), QStringList({"  # Tourist tax", "6"}));
  EXPECT_EQ(QStringList({cell(2, 0), cell(2, 1), cell(2, 5)}), QStringList({"Cash", "3/10/2025", "- 261"}));
  EXPECT_EQ(dialog->txtTotal->text(), "0");
  EXPECT_TRUE(messages.shown().empty());
}

}  // namespace
