// The accounts catalogue: the checks of its dialogs, the rename that follows
// into waiting invoices, the look-ups by name, and the tax calculator.
#include <gtest/gtest.h>

#include "core/regional.h"
#include "invoicing/accounts_compute_tax.h"
#include "invoicing/accounts_presenter.h"
#include "invoicing/accounts_update.h"
#include "support/test_planning.h"

using namespace ksv;
using Mode = AccountUpdate::Mode;

namespace {

class AccountsTest : public test::PlanningTest {
 protected:
  AccountsContext ctx() { return {plan.db(), plan.clock(), messages, texts, regional}; }
  QStringList names(const QString& table) { return plan.rows(table, "", table); }
  void line(qint64 nb, const char* typ, const QString& lib) {
    plan.addRow("Invoice", {{"InvoiceNb", nb}, {"Typ", typ}, {"Lib", lib}});
  }
  // OK in the dialog of `table`'s row named `name` (empty: a new row), after `edit`.
  AccountUpdate ok(AccountCatalogue c, Mode mode, const QString& name, const std::function<void(AccountUpdate&)>& edit) {
    const QString table = catalogueTable(c);
    const qint64 rowid =
        name.isEmpty() ? 0 : plan.db().scalar(QString("SELECT rowid FROM %1 WHERE %1 = ? COLLATE BINARY").arg(table), {name}).toLongLong();
    AccountUpdate u(ctx(), c, mode, rowid);
    edit(u);
    u.OK_Click();
    return u;
  }
  Regional regional = Regional::englishUS();
};

TEST_F(AccountsTest, ANameThatBreaksTheChoosersOrExistsInAnyCaseKeepsTheDialog) {
  plan.addAccount("Designation", "Room");
  plan.addAccount("Designation", "Bar");
  plan.addAccount("Payment", "Cash");
  struct Case {
    AccountCatalogue catalogue;
    Mode mode;
    QString row, name;
    int refusal;
  } cases[] = {
      {AccountCatalogue::Designation, Mode::Add, "", "ROOM", txt::AccExists},
      {AccountCatalogue::Designation, Mode::Modify, "Bar", "room ", txt::AccExists},
      {AccountCatalogue::Designation, Mode::Add, "", "Suite [sea]", txt::AccBrackets},
      {AccountCatalogue::Payment, Mode::Modify, "Cash", "Cash]", txt::AccBrackets},
      {AccountCatalogue::Payment, Mode::Add, "", "  ", txt::AccNameEmpty},
  };
  for (const Case& c : cases) {
    messages.clear();
    const AccountUpdate u = ok(c.catalogue, c.mode, c.row, [&](AccountUpdate& u) { u.name = c.name; });
    EXPECT_FALSE(u.closed) << c.name.toStdString();
    EXPECT_EQ(messages.texts(), QStringList{texts.get(c.refusal)}) << c.name.toStdString();
  }
  EXPECT_EQ(names("Designation"), (QStringList{"Room", "Bar"}));
  EXPECT_EQ(names("Payment"), QStringList{"Cash"});

  // Another catalogue may hold the name, and a row keeps its own.
  EXPECT_TRUE(ok(AccountCatalogue::Payment, Mode::Add, "", [](AccountUpdate& u) { u.name = "room"; }).done);
  EXPECT_TRUE(ok(AccountCatalogue::Designation, Mode::Modify, "Room", [](AccountUpdate& u) { u.UnitPrice.text = "80.5"; }).done);
  EXPECT_EQ(plan.rows("Designation || '=' || UnitPrice", "", "Designation"), (QStringList{"Room=80.5", "Bar=0.0"}));
}

TEST_F(AccountsTest, ARenameReachesOnlyTheWaitingLinesOfItsKind) {
  // Each catalogue holds "Room"; every kind of line names it in a waiting and a posted invoice.
  const QStringList before{"Room [101]", "  # Room [5\\0]", "Room", "Roomy [1]"};
  for (qint64 nb : {-3, 7}) {
    line(nb, "0", "Room");
    line(nb, "1", before[0]);
    line(nb, "2", before[1]);
    line(nb, "3", before[2]);
    line(nb, "1", before[3]);
  }
  const AccountCatalogue catalogues[] = {AccountCatalogue::Designation, AccountCatalogue::Modification,
                                         AccountCatalogue::Payment};
  for (AccountCatalogue c : catalogues) plan.addAccount(catalogueTable(c), "Room");
  const QStringList after{"Suite [101]", "  # Suite [5\\0]", "Suite", "Roomy [1]"};
  QStringList expected = QStringList{"Room"} + before;
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(ok(catalogues[i], Mode::Modify, "Room", [](AccountUpdate& u) { u.name = "Suite"; }).done);
    expected[i + 1] = after[i];
    EXPECT_EQ(plan.rows("Lib", "InvoiceNb = -3", "Invoice"), expected);
  }
  EXPECT_EQ(plan.rows("Lib", "InvoiceNb = 7", "Invoice"), QStringList{"Room"} + before);
  EXPECT_EQ(names("Modification"), QStringList{"Suite"});
}

TEST_F(AccountsTest, NotIncludedWithNotPrintedIsAskedAndNoKeepsTheDialog) {
  auto notShown = [](AccountUpdate& u) {
    u.name = "Service charge";
    u.CkIncluded = u.CkPrinted = false;
    u.CkAddUp = true;
    u.Rate.text = "12.5";
  };
  messages.answer(MsgAnswer::No);
  EXPECT_FALSE(ok(AccountCatalogue::Modification, Mode::Add, "", notShown).closed);
  EXPECT_EQ(plan.count("Modification"), 0);
  messages.answer(MsgAnswer::Yes);
  EXPECT_TRUE(ok(AccountCatalogue::Modification, Mode::Add, "", notShown).closed);
  EXPECT_EQ(messages.texts(), QStringList(2, texts.get(txt::AccNotIncludedNotPrinted)));
  EXPECT_EQ(plan.rows("Modification/Fixed/Rate/Included/AddUp/Printed/Day", "", "Modification"),
            QStringList{"Service charge/0/12.5/0/1/0/0"});

  // The grid shows the flags from the message table.
  AccountsPresenter accounts(ctx());
  accounts.Form_Load();
  EXPECT_EQ(accounts.lines(AccountCatalogue::Modification).value(0).cells,
            (QStringList{"Service charge", "0", "12.5", "N", "Y", "N"}));
}

TEST_F(AccountsTest, DeletingAnAccountLeavesTheInvoicesAndTheNextRowIsCurrent) {
  for (const char* name : {"Bar", "Parking", "Room"}) plan.addAccount("Designation", name);
  line(-2, "1", "Parking [B4]");
  AccountsPresenter accounts(ctx());
  accounts.showUpdate = [](AccountUpdate& u) { u.OK_Click(); };
  accounts.Form_Load();
  accounts.selectRow(AccountCatalogue::Designation, 1);
  accounts.CdDelete_Click();
  EXPECT_EQ(names("Designation"), (QStringList{"Bar", "Room"}));
  EXPECT_EQ(plan.rows("Lib", "", "Invoice"), QStringList{"Parking [B4]"});
  EXPECT_EQ(accounts.currentRow(AccountCatalogue::Designation), 1);

  // A renamed row stays current where the sort puts it.
  accounts.showUpdate = [](AccountUpdate& u) {
    u.name = "Annex";
    u.OK_Click();
  };
  accounts.CdModify_Click();
  EXPECT_EQ(accounts.lines(AccountCatalogue::Designation).value(0).cells.value(0), "Annex");
  EXPECT_EQ(accounts.currentRow(AccountCatalogue::Designation), 0);

  // Deleting the last row makes the one above it current.
  accounts.showUpdate = [](AccountUpdate& u) { u.OK_Click(); };
  accounts.selectRow(AccountCatalogue::Designation, 1);
  accounts.CdDelete_Click();
  EXPECT_EQ(names("Designation"), QStringList{"Annex"});
  EXPECT_EQ(accounts.currentRow(AccountCatalogue::Designation), 0);
}

TEST_F(AccountsTest, KindAndSumsTakeTheFirstCatalogueThatHoldsTheName) {
  plan.addAccount("Payment", "Voucher", {{"Day", 1}, {"Month", 2}, {"Year", 3}, {"Day_NC", 10}, {"Month_NC", QVariant()}});
  plan.addAccount("Modification", "VOUCHER", {{"Day", 100}, {"Month", 200}, {"Year", 300}});
  plan.addAccount("Payment", "Cash", {{"Day", 0.1}, {"Month", 0.2}, {"Year", 0.3}, {"Day_NC", 0.05}});
  EXPECT_EQ(AccountKind(plan.db(), "voucher"), "M");
  EXPECT_EQ(AccountKind(plan.db(), "CASH"), "P");
  EXPECT_EQ(AccountKind(plan.db(), "Bar"), "");

  Currency day = Currency::fromWhole(1000), month, year;
  EXPECT_TRUE(AccountSums(plan.db(), "Voucher", true, day, month, year));
  EXPECT_TRUE(AccountSums(plan.db(), "cash", true, day, month, year));
  EXPECT_TRUE(AccountSums(plan.db(), "cash", false, day, month, year));
  EXPECT_FALSE(AccountSums(plan.db(), "Bar", true, day, month, year));
  EXPECT_EQ(day, Currency::fromDouble(1100.15));
  EXPECT_EQ(month, Currency::fromDouble(200.2));
  EXPECT_EQ(year, Currency::fromDouble(300.3));
  day = month = year = Currency();
  plan.db().execute("DELETE FROM Modification");
  EXPECT_TRUE(AccountSums(plan.db(), "VOUCHER", false, day, month, year));
  EXPECT_EQ(day, Currency::fromWhole(10));
  EXPECT_EQ(month, Currency());
}

TEST(NumericFieldTest, KeepsTheLastGoodText) {
  const Regional regional = Regional::french();
  NumericField f;
  f.enter();
  EXPECT_TRUE(f.change("12,5", regional));
  EXPECT_FALSE(f.change("12,5x", regional));
  EXPECT_EQ(f.text, "12,5");
  EXPECT_TRUE(f.change("", regional));
  EXPECT_EQ(f.value(regional), 0.0f);
  f.leave();
  EXPECT_EQ(f.text, "0");
}

TEST(ComputeTaxTest, TheChangedFieldAndWhatIsFixedChooseWhatIsComputed) {
  const Regional regional = Regional::englishUS();
  using F = ComputeTax::Fixed;
  enum Changed { Without, Rate, With };
  struct Case {
    F fixed;
    Changed changed;
    QString typed;
    int decimals;
    QString without, rate, with, taxes;
  } cases[] = {
      // From 1,000 at 20 % giving 1,200.
      {F::WithoutTax, Without, "2000", 2, "2000", "20", "2,400.00", "400.00"},
      {F::Rate, Rate, "5.5", 2, "1000", "5.5", "1,055.00", "55.00"},
      {F::WithTax, Without, "960", 2, "960", "25", "1200", "240.00"},
      {F::WithTax, Rate, "-100", 2, "1000", "-100", "1200", "200.00"},  // no amount has that rate
      {F::WithTax, Rate, "50", 1, "800.0", "50", "1200", "400.0"},
      {F::WithoutTax, With, "1196", 0, "1000", "19.6", "1196", "196"},
      {F::Rate, With, "1000", 2, "833.33", "20", "1000", "166.67"},
      {F::WithTax, With, "abc", 2, "1000", "20", "abc", ""},
  };
  for (const Case& c : cases) {
    ComputeTax tax(regional, c.decimals);
    tax.WithoutTax = "1000";
    tax.Rate = "20";
    tax.WithTax = "1200";
    tax.fixed = c.fixed;
    if (c.changed == Without) tax.WithoutTax_Change(c.typed);
    if (c.changed == Rate) tax.Rate_Change(c.typed);
    if (c.changed == With) tax.WithTax_Change(c.typed);
    EXPECT_EQ((QStringList{tax.WithoutTax, tax.Rate, tax.WithTax, tax.Taxes}),
              (QStringList{c.without, c.rate, c.with, c.taxes}))
        << int(c.fixed) << ' ' << c.changed << ' ' << c.typed.toStdString();
  }
  ComputeTax zero(regional, 2);
  zero.fixed = F::WithoutTax;
  zero.WithoutTax = "0";
  zero.Rate = "7";
  zero.WithTax_Change("50");
  EXPECT_EQ(zero.Rate, "7");
}

}  // namespace
