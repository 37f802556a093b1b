// The catalogue's dialogs and printed lists as the user meets them.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>

#include "core/regional.h"
#include "customers/ui/list_printer.h"
#include "invoicing/ui/account_update_dialog.h"
#include "invoicing/ui/accounts_window.h"
#include "support/test_planning.h"

using namespace ksv;

namespace {

class AccountsWindowTest : public test::PlanningTest {
 protected:
  AccountsContext ctx() { return {plan.db(), plan.clock(), messages, texts, regional}; }
  void type(QLineEdit* edit, const QString& keys) {
    edit->setFocus();
    for (QChar k : keys) {
      QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, k);
      QApplication::sendEvent(edit, &press);
    }
  }
  Regional regional = Regional::englishUS();
};

TEST_F(AccountsWindowTest, TheModifierDialogRefusesLettersAndAsksBeforeAnUnprintedCharge) {
  AccountUpdate update(ctx(), AccountCatalogue::Modification, AccountUpdate::Mode::Add);
  AccountUpdateDialog dialog(update, texts, regional, 2);
  dialog.show();
  dialog.Name->setText("Service charge");
  dialog.Rate->clear();
  type(dialog.Rate, "12x.5");
  EXPECT_EQ(dialog.Rate->text(), "12.5");
  dialog.CkIncluded->setChecked(false);
  dialog.CkPrinted->setChecked(false);

  messages.answer(MsgAnswer::No);
  dialog.OK->click();
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(plan.count("Modification"), 0);
  messages.answer(MsgAnswer::Yes);
  dialog.OK->click();
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(plan.rows("Modification/Fixed/Rate/Included/AddUp/Printed", "", "Modification"),
            QStringList{"Service charge/0/12.5/0/0/0"});
}

TEST_F(AccountsWindowTest, TheThreeCataloguesPrintOneAfterTheOther) {
  const QString pdftotext = QStandardPaths::findExecutable("pdftotext");
  if (pdftotext.isEmpty()) GTEST_SKIP() << "pdftotext is not installed";
  plan.addAccount("Designation", "Double room", {{"UnitPrice", 59.5}});
  plan.addAccount("Modification", "Tourist tax", {{"Fixed", 0.8}, {"Included", false}});
  plan.addAccount("Payment", "Cheque");
  AccountsPresenter accounts(ctx());
  accounts.Form_Load();
  const QString pdf = plan.folders().root() + "/accounts.pdf";
  ASSERT_TRUE(printListsToPdf(accounts.printedCatalogues(), pdf));
  QProcess run;
  run.start(pdftotext, {"-layout", pdf, "-"});
  ASSERT_TRUE(run.waitForFinished(20000));
  // The title font joins "fi" into one glyph.
  const QString text = QString::fromUtf8(run.readAllStandardOutput()).replace(QChar(0xFB01), "fi").simplified();
  EXPECT_TRUE(text.contains("Services Unit Price Double room 59.5 Modifiers Fixed Rate Included Add up Printed "
                            "Tourist tax 0.8 0 N N Y Payments Cheque"))
      << text.toStdString();
}

}  // namespace
