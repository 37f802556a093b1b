// The invoice window's line editor and totals, driven through its presenter
// over a real planning's catalogues, with scripted answers.
#include "invoicing/invoice_presenter.h"

#include <gtest/gtest.h>

#include "invoicing/line_arithmetic.h"
#include "support/test_planning.h"

using namespace ksv;
using test::ScriptedMessages;

namespace {

struct RecordingView final : InvoiceView {
  void showFields() override {}
  void showGrid() override {}
  void showZones() override {}
  void focusField(InvField f, bool) override { focused = f; }
  void highlightRow(int row, bool on) override { highlights.push_back(on ? row : -1); }
  void selectLine(int) override {}
  std::optional<QDate> pickDate(QDate) override { return picked; }
  std::optional<InvField> focused;
  std::vector<int> highlights;
  std::optional<QDate> picked;
};

class InvoiceLinesTest : public ::testing::Test {
 protected:
  InvoiceLinesTest() {
    plan.addService("Room", 85);
    plan.addService("Breakfast", 7.5);
    plan.addModifier("VAT", 0, 25, true, true);
    plan.addModifier("Service", 0, 20, false, true);
    plan.addModifier("Discount", -5, 0, false, false);
    plan.addPayment("Cash");
    p = std::make_unique<InvoicePresenter>(view, messages, texts, regional, plan.clock(),
                                           InvoiceCatalogue::read(plan.db(), plan.clock()));
    p->Form_Load(AmountDisplay{2, true}, 10);
  }
  InvoiceGrid& grid() { return p->grid(); }
  void service(const char* item, const char* quantity = nullptr) {
    p->fieldEntered(InvField::Designation);
    p->Designation_Click(item);
    if (quantity) p->fieldChanged(InvField::Quantity, quantity);
    p->CdAdd();
  }
  void modifier(const char* item) {
    p->fieldEntered(InvField::Modification);
    p->Modification_Click(item);
    p->CdAdd();
  }
  void payment(const char* paid) {
    p->fieldEntered(InvField::Paid);
    p->Payment_Click("Cash");
    p->fieldChanged(InvField::Paid, paid);
    p->CdAdd();
  }
  QStringList cells(int row, std::initializer_list<int> which) {
    QStringList out;
    for (int c : which) out << grid().line(row)[c];
    return out;
  }

  test::TestPlanning plan;
  ScriptedMessages messages;
  Texts texts{0};
  Regional regional = Regional::englishUS();
  RecordingView view;
  std::unique_ptr<InvoicePresenter> p;
};

TEST(LineArithmetic, ModifierAmountsIncludedAndOnTop) {
  struct Case {
    double fixed, amount, rate, included, notIncluded;
  } cases[] = {
      {10, 120, 20, 30, 34},    // 10 + 20 extracted, 10 + 24 on top
      {5, 0, 0, 5, 5},          // no rate: the fixed part alone
      {0, 110, 10, 10, 11},
      {0, 100, 5.5, 5.2133, 5.5},  // quotient rounded to four decimals
  };
  for (const Case& c : cases) {
    const ModifierAmounts m = modifierAmounts(Currency::fromDouble(c.fixed), c.amount, c.rate);
    EXPECT_EQ(m.included, Currency::fromDouble(c.included)) << c.rate;
    EXPECT_EQ(m.notIncluded, Currency::fromDouble(c.notIncluded)) << c.rate;
  }
  EXPECT_THROW(modifierAmounts(Currency(), 50, -100), LineArithmeticFault);
}

TEST_F(InvoiceLinesTest, AStayATaxAndPaymentsMakeTheBalance) {
  p->fieldEntered(InvField::Designation);
  p->Designation_Click("Room [85]");
  EXPECT_EQ(view.focused, InvField::Quantity);
  p->fieldChanged(InvField::Quantity, "3");
  EXPECT_EQ(p->field(InvField::Price), "255");
  p->CdAdd();
  // The tax applies to the line just typed and is inside the price: no move of the balance.
  p->fieldEntered(InvField::Modification);
  p->Modification_Click("vat [0\\25\\Y\\Y\\Y]");
  EXPECT_EQ(p->field(InvField::Amount), "255");
  EXPECT_EQ(view.focused, InvField::Amount);
  p->CdAdd();
  EXPECT_EQ(cells(1, {0, 1, 2, 3, 4, 5, 6, 7, 8}),
            QStringList({"  # vat", "0", "25", "255", "51", "0", "Y", "2", "Y"}));
  EXPECT_EQ(grid().txtTotal, "255");
  // A charge on top moves it.
  modifier("Service [0\\20\\N\\Y\\Y]");
  EXPECT_EQ(grid().txtTotal, "306");
  payment("100");
  payment("-50");
  EXPECT_EQ(cells(3, {5}), QStringList({"- 100"}));
  EXPECT_EQ(cells(4, {5}), QStringList({"-50"}));  // as typed: it lowers the balance too
  EXPECT_EQ(grid().txtTotal, "156");
  EXPECT_EQ(grid().LineCount, 5);
  EXPECT_TRUE(grid().Modified);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(InvoiceLinesTest, ANegativeHundredRateStopsTheArithmeticAndLeavesTheAmounts) {
  p->fieldEntered(InvField::Modification);
  p->Modification_Click("Service [0\\20\\N\\Y\\Y]");
  p->fieldChanged(InvField::Amount, "50");
  EXPECT_EQ(p->field(InvField::NotIncluded), "10");
  p->fieldChanged(InvField::Rate, "-100");
  EXPECT_EQ(messages.texts(), QStringList({"Division by zero"}));
  EXPECT_EQ(p->field(InvField::NotIncluded), "10");
}

TEST_F(InvoiceLinesTest, FieldsKeepTheirLastGoodText) {
  p->fieldEntered(InvField::Quantity);
  p->fieldChanged(InvField::Quantity, "12");
  p->fieldChanged(InvField::Quantity, "12a");
  EXPECT_EQ(p->field(InvField::Quantity), "12");
  p->fieldChanged(InvField::Quantity, "");
  EXPECT_EQ(p->field(InvField::Quantity), "");

  p->fieldEntered(InvField::Debut);
  p->fieldChanged(InvField::Debut, "3/10/2025");
  p->fieldLeft(InvField::Debut);
  p->fieldEntered(InvField::Debut);
  p->fieldChanged(InvField::Debut, "3/1x");
  p->fieldLeft(InvField::Debut);
  EXPECT_EQ(p->field(InvField::Debut), "3/10/2025");

  // An empty Paid ends CdAdd silently.
  p->fieldEntered(InvField::DtPaid);
  EXPECT_EQ(p->field(InvField::DtPaid), "3/10/2025");  // today, the zone being empty
  p->fieldChanged(InvField::Paid, "");
  p->CdAdd();
  EXPECT_EQ(grid().LineCount, 0);

  p->chooserTyped(InvField::Payment);
  EXPECT_EQ(messages.texts(), QStringList({"You cannot modify an account"}));

  EXPECT_FALSE(grid().Modified);
  p->CdClearInput();
  EXPECT_EQ(p->field(InvField::Debut), "");
  EXPECT_TRUE(grid().Modified);  // though the grid is untouched
}

TEST_F(InvoiceLinesTest, VoidingAPaymentRestoresTheBalanceAndTotalsCannotBeVoided) {
  service("Room [85]", "2");
  payment("100");
  EXPECT_EQ(grid().txtTotal, "70");
  messages.answer(MsgAnswer::Yes);
  p->cdVoid();
  EXPECT_EQ(messages.last().text, "Do you really want to void this line ?");
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
  EXPECT_EQ(view.highlights, std::vector<int>({1, -1}));
  EXPECT_EQ(cells(1, {0, 5, 7}), QStringList({"[ *VOID* Cash = - 100]", "", "9"}));
  EXPECT_EQ(grid().txtTotal, "170");

  p->CdAddTotal();
  EXPECT_EQ(cells(2, {0, 7}), QStringList({"Total = [170]", "5"}));
  p->cdVoid();
  EXPECT_EQ(messages.last().text, "You cannot Void this type of line");
  EXPECT_EQ(grid().line(2)[cell::Kind], "5");
}

TEST_F(InvoiceLinesTest, DecimalsComeAndGoWithTheLinesThatHaveThem) {
  service("Room [85]");
  service("Breakfast [7.5]");
  EXPECT_EQ(cells(0, {4, 5}), QStringList({"85.00", "85.00"}));  // the grid shows decimals
  EXPECT_EQ(grid().txtTotal, "92.50");
  messages.answer(MsgAnswer::Yes);
  p->CdDelete();  // the only decimal line
  EXPECT_EQ(cells(0, {4, 5}), QStringList({"85", "85"}));
  EXPECT_FALSE(grid().ShowDecimals);
  EXPECT_EQ(grid().txtTotal, "85");
  // No to a question changes nothing.
  messages.answer(MsgAnswer::No);
  p->CdDelete();
  EXPECT_EQ(grid().LineCount, 1);
  messages.answer(MsgAnswer::Yes);
  p->CdDelete();
  EXPECT_EQ(grid().LineCount, 0);
  EXPECT_EQ(grid().rowCount(), 1);
}

TEST_F(InvoiceLinesTest, TotalsFollowTheDecimalOptions) {
  struct Case {
    short decimals;
    bool onlyIfDec;
    const char* paid;
    const char* total;
  } cases[] = {
      {2, false, "5", "5.00"}, {2, true, "5", "5"},       {3, true, "5.1234", "5"},
      {1, true, "5.25", "5.2"}, {0, true, "1234.5", "1,234"}, {2, true, "0", "0"},
  };
  for (const Case& c : cases) {
    InvoiceGrid g(regional, texts);
    g.display = {c.decimals, c.onlyIfDec};
    InvoiceLine line;
    line[5] = c.paid;
    line[cell::Kind] = kind::Service;
    g.addLine(line);
    EXPECT_EQ(g.txtTotal, c.total) << c.paid << " " << c.decimals;
  }
}

TEST_F(InvoiceLinesTest, SubtotalsModifierTotalsAndTheirDeletion) {
  service("Room [85]", "2");
  modifier("Service [0\\20\\N\\Y\\Y]");
  p->cdAddSubTotal();
  p->cdAddSubTotal();  // nothing since the last one
  service("Breakfast [7.5]");
  modifier("service [0\\20\\N\\Y\\Y]");  // another name to the letter
  modifier("Service [0\\20\\N\\Y\\Y]");
  modifier("Discount [-5\\0\\N\\N\\Y]");    // not added up
  p->CdAddTotalsM();
  QStringList labels;
  for (int r = 0; r < grid().rowCount(); ++r) labels << grid().line(r)[0];
  EXPECT_EQ(labels.mid(2, 2), QStringList({"Subtotal = [204]", "Subtotal = [0]"}));
  EXPECT_EQ(labels.mid(8), QStringList({"Total Service = [35.50]", "Total service = [1.50]"}));
  EXPECT_EQ(grid().Row, grid().rowCount() - 1);
  EXPECT_EQ(grid().txtTotal, "209.50");  // label lines and included parts don't count

  messages.answer(MsgAnswer::No);
  p->cdDeleteTotal();  // on a modifier total: its own question
  EXPECT_EQ(messages.last().text, "Do you really want to delete this line ?");
  messages.answer(MsgAnswer::Yes);
  p->cdDeleteSubtotals();
  EXPECT_EQ(messages.last().text, "Do you really want to delete these totals ?");
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
  EXPECT_EQ(grid().LineCount, 8);
  p->setCurrentRow(0);
  p->cdDeleteTotal();
  EXPECT_EQ(messages.last().text, "This line is not a total");
}

TEST_F(InvoiceLinesTest, InsertAndModifyReplaceTheCurrentLineAndPagesFlip) {
  for (int i = 0; i < 12; ++i) service("Room [85]");
  EXPECT_EQ(grid().TopRow, 10);
  EXPECT_TRUE(grid().scrollBarShown);
  p->setCurrentRow(3);
  p->fieldEntered(InvField::Paid);
  p->Payment_Click("Cash");
  EXPECT_EQ(view.focused, InvField::Paid);
  p->fieldChanged(InvField::Paid, "40");
  messages.answer(MsgAnswer::Yes);
  p->CdInsert();
  EXPECT_EQ(messages.last().text, "Do you really want to insert the line before this one ?");
  EXPECT_EQ(grid().LineCount, 13);
  EXPECT_EQ(cells(3, {0, 5, 7}), QStringList({"Cash", "-40", "3"}));  // whole amounts reformatted
  EXPECT_EQ(grid().TopRow, 0);
  messages.answer(MsgAnswer::Yes);
  p->setCurrentRow(4);
  p->fieldChanged(InvField::Paid, "40.5");
  p->CdModify();  // the service becomes a payment
  // The new line alone takes decimals: modifying doesn't reformat the others.
  EXPECT_EQ(cells(4, {0, 5, 7}), QStringList({"Cash", "-40.50", "3"}));
  EXPECT_EQ(cells(5, {5}), QStringList({"85"}));
  EXPECT_EQ(grid().txtTotal, "854.50");
  EXPECT_TRUE(messages.allAnswersUsed());
}

TEST_F(InvoiceLinesTest, DoubleClicksCopyTheBookingIntoTheLine) {
  p->DtFrom = "3/10/2025";
  p->DtTo = "3/13/2025";
  p->Resource = "Room 4";
  p->fieldEntered(InvField::Designation);
  p->Designation_Click("Room [85]");
  p->doubleClick(InvDoubleClick::DtFrom);
  p->doubleClick(InvDoubleClick::DtTo);
  p->doubleClick(InvDoubleClick::Quantity);
  p->doubleClick(InvDoubleClick::Resource);
  p->Resource = "Room 5";
  p->doubleClick(InvDoubleClick::Resource);
  EXPECT_EQ(p->field(InvField::Designation), "Room [Room 5]");
  EXPECT_EQ(p->field(InvField::Quantity), "3");
  EXPECT_EQ(p->field(InvField::Price), "255");
  p->CdAdd();
  p->doubleClick(InvDoubleClick::Paid);
  EXPECT_EQ(p->field(InvField::Paid), "255");
  p->doubleClick(InvDoubleClick::Included);
  EXPECT_EQ(p->CurrentZone, 2);
  view.picked = QDate(2025, 4, 1);
  p->doubleClick(InvDoubleClick::DtPaid);
  EXPECT_EQ(p->field(InvField::DtPaid), "4/1/2025");
}

}  // namespace
