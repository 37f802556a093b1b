#include "invoice_presenter.h"

#include <algorithm>

#include "core/clock.h"
#include "core/day_date.h"
#include "core/messages.h"
#include "core/number_text.h"
#include "line_arithmetic.h"

namespace ksv {
namespace {

bool isNumericField(InvField f) {
  switch (f) {
    case InvField::Quantity: case InvField::UnitPrice: case InvField::Price: case InvField::Fixed:
    case InvField::Amount: case InvField::Rate: case InvField::Included: case InvField::NotIncluded:
    case InvField::Paid:
      return true;
    default:
      return false;
  }
}

bool isDateField(InvField f) { return f == InvField::Debut || f == InvField::Fin || f == InvField::DtPaid; }

short zoneOf(InvField f) {
  if (f <= InvField::Price) return 1;
  if (f <= InvField::Printed) return 2;
  return 3;
}

QString yesNoFlag(bool yes) { return yes ? QStringLiteral("Y") : QStringLiteral("N"); }

}  // namespace

InvoicePresenter::InvoicePresenter(InvoiceView& view, Messages& messages, const Texts& texts, const Regional& regional,
                                   const Clock& clock, InvoiceCatalogue catalogue)
    : view_(view),
      messages_(messages),
      texts_(texts),
      regional_(regional),
      clock_(clock),
      catalogue_(std::move(catalogue)),
      grid_(regional, texts) {}

void InvoicePresenter::prepareCashSale() {
  Nom = texts_.get(txt::InvCashSaleName);
  frBooking = false;
  InvNb.clear();
}

void InvoicePresenter::Form_Load(const AmountDisplay& display, int visibleRows) {
  grid_.display = display;
  grid_.VisibleRows = visibleRows;
  PostDate = clock_.today();
  grid_.InitInvoiceGrid();
  grid_.ComputeTotal();
  grid_.Modified = false;
  setZone(1);
  view_.showGrid();
  view_.showFields();
}

bool InvoicePresenter::numeric(const QString& text) const { return isNumeric(text, regional_); }

void InvoicePresenter::fieldEntered(InvField f) {
  kept_[static_cast<size_t>(f)] = field(f);
  switch (zoneOf(f)) {
    case 1: ActivateServices(); break;
    case 2: ActivateModifiers(); break;
    default: ActivatePayments(); break;
  }
}

void InvoicePresenter::fieldChanged(InvField f, const QString& text) {
  if (guard_) {
    set(f, text);
    return;
  }
  // A sign alone is a number being typed, not a wrong one.
  if (isNumericField(f) && !text.isEmpty() && text != QLatin1String("-") && !numeric(text)) {
    view_.showFields();  // the last good text comes back
    return;
  }
  set(f, text);
  if (f == InvField::Quantity || f == InvField::UnitPrice) runArithmetic(&InvoicePresenter::computeService);
  else if (f == InvField::Fixed || f == InvField::Rate || f == InvField::Amount)
    runArithmetic(&InvoicePresenter::computeModifier);
  view_.showFields();
}

void InvoicePresenter::fieldLeft(InvField f) {
  if (!isDateField(f)) return;
  const QString text = field(f);
  if (!text.isEmpty() && !isDate(text, regional_)) {
    set(f, kept_[static_cast<size_t>(f)]);
    view_.showFields();
  } else {
    kept_[static_cast<size_t>(f)] = text;
  }
}

void InvoicePresenter::chooserTyped(InvField chooser) {
  // A line's name must match its account.
  messages_.exclamation(texts_.get(txt::InvCannotModifyAccount));
  set(chooser, QString());
  view_.showFields();
}

void InvoicePresenter::Designation_Click(const QString& item) {
  if (item.isEmpty()) return;
  guard_ = true;
  set(InvField::Designation, itemName(item));
  for (InvField f : {InvField::Debut, InvField::Fin, InvField::Quantity, InvField::UnitPrice, InvField::Price})
    set(f, QString());
  if (const ServiceAccount* s = catalogue_.service(field(InvField::Designation))) {
    set(InvField::UnitPrice, plainNumber(s->UnitPrice, 7, regional_));
    set(InvField::Quantity, QStringLiteral("1"));
    set(InvField::Price, field(InvField::UnitPrice));
  }
  const bool priced = cellAmountOrZero(field(InvField::UnitPrice), regional_) != Currency();
  guard_ = false;
  ActivateServices();
  view_.showFields();
  view_.focusField(priced ? InvField::Quantity : InvField::Price, true);
}

void InvoicePresenter::Modification_Click(const QString& item) {
  if (item.isEmpty()) return;
  guard_ = true;
  set(InvField::Modification, itemName(item));
  if (const ModifierAccount* m = catalogue_.modifier(field(InvField::Modification))) {
    set(InvField::Fixed, plainNumber(m->Fixed, 7, regional_));
    set(InvField::Rate, plainNumber(m->Rate, 7, regional_));
    // A rate applies by default to the line just typed.
    const bool onPrice = m->Rate != 0 && !field(InvField::Price).isEmpty();
    set(InvField::Amount, onPrice ? field(InvField::Price) : QStringLiteral("0"));
    modifierIncluded_ = m->Included;
    set(InvField::AddUp, yesNoFlag(m->AddUp));
    set(InvField::Printed, yesNoFlag(m->Printed));
    runArithmetic(&InvoicePresenter::computeModifier);
  }
  const bool rated = parseNumber(field(InvField::Rate), regional_).value_or(0) != 0;
  guard_ = false;
  ActivateModifiers();
  view_.showFields();
  view_.focusField(rated ? InvField::Amount : InvField::NotIncluded, true);
}

void InvoicePresenter::Payment_Click(const QString& item) {
  if (item.isEmpty()) return;
  guard_ = true;
  set(InvField::Payment, itemName(item));
  if (field(InvField::Paid).isEmpty()) set(InvField::Paid, QStringLiteral("0"));
  guard_ = false;
  ActivatePayments();
  view_.showFields();
  view_.focusField(InvField::Paid, true);
}

void InvoicePresenter::computeService() {
  const auto quantity = parseNumber(field(InvField::Quantity), regional_);
  const auto unitPrice = cellAmount(field(InvField::UnitPrice), regional_);
  if (quantity && unitPrice)
    set(InvField::Price, plainNumber(servicePrice(static_cast<float>(*quantity), *unitPrice), 15, regional_));
  else
    set(InvField::Price, QStringLiteral("0"));
}

void InvoicePresenter::computeModifier() {
  const auto fixed = cellAmount(field(InvField::Fixed), regional_);
  const auto amount = parseNumber(field(InvField::Amount), regional_);
  const auto rate = parseNumber(field(InvField::Rate), regional_);
  ModifierAmounts m;
  if (fixed && amount && rate) m = modifierAmounts(*fixed, *amount, *rate);
  const QString zero = QStringLiteral("0");
  set(InvField::Included, modifierIncluded_ ? plainCurrency(m.included, regional_) : zero);
  set(InvField::NotIncluded, modifierIncluded_ ? zero : plainCurrency(m.notIncluded, regional_));
}

void InvoicePresenter::runArithmetic(void (InvoicePresenter::*step)()) {
  // A run-time error ends the handler; the amounts stay as they were.
  try {
    (this->*step)();
  } catch (const LineArithmeticFault& fault) {
    messages_.critical(texts_.get(fault.text));
  } catch (const CurrencyOverflow&) {
    messages_.critical(texts_.get(txt::InvOverflow));
  }
}

void InvoicePresenter::doubleClick(InvDoubleClick source) {
  using D = InvDoubleClick;
  const auto calendar = [this](InvField f) {
    const QDate start = parseDate(field(f), regional_).value_or(clock_.today());
    if (const auto chosen = view_.pickDate(start)) {
      set(f, shortDateText(*chosen, regional_));
      kept_[static_cast<size_t>(f)] = field(f);
      view_.showFields();
    }
  };
  switch (source) {
    case D::DtFrom: case D::DtFromS:
      set(InvField::Debut, source == D::DtFrom ? DtFrom : DtFromS);
      ActivateServices();
      break;
    case D::DtTo: case D::DtToS:
      set(InvField::Fin, source == D::DtTo ? DtTo : DtToS);
      ActivateServices();
      break;
    case D::Days: case D::DaysS:
      fieldChanged(InvField::Quantity, source == D::Days ? Days : DaysS);
      ActivateServices();
      break;
    case D::Resource: case D::ResourceS: {
      const QString resource = source == D::Resource ? Resource : ResourceS;
      QString& d = ref(InvField::Designation);
      const int open = d.indexOf(QLatin1Char('['));
      const int close = open < 0 ? -1 : d.indexOf(QLatin1Char(']'), open + 1);
      if (close > open) d.replace(open + 1, close - open - 1, resource);
      else d += QStringLiteral(" [") + resource + QLatin1Char(']');
      ActivateServices();
      break;
    }
    case D::Debut: calendar(InvField::Debut); return;
    case D::Fin: calendar(InvField::Fin); return;
    case D::DtPaid: calendar(InvField::DtPaid); return;
    case D::Quantity: {
      const QString from = field(InvField::Debut), to = field(InvField::Fin);
      if (numeric(from) && numeric(to)) {
        fieldChanged(InvField::Quantity,
                     plainNumber(*parseNumber(to, regional_) - *parseNumber(from, regional_), 15, regional_));
      } else {
        const auto a = parseDate(from, regional_), b = parseDate(to, regional_);
        if (a && b) fieldChanged(InvField::Quantity, QString::number(daysBetween(*a, *b)));
      }
      break;
    }
    case D::Amount: fieldChanged(InvField::Amount, grid_.txtTotal); break;
    case D::Paid: fieldChanged(InvField::Paid, grid_.txtTotal); break;
    case D::Included: case D::NotIncluded:
      std::swap(ref(InvField::Included), ref(InvField::NotIncluded));
      ActivateModifiers();
      break;
  }
  view_.showFields();
}

void InvoicePresenter::setCurrentRow(int row) { grid_.Row = std::clamp(row, 0, grid_.rowCount() - 1); }

void InvoicePresenter::setZone(short zone) {
  CurrentZone = zone;
  view_.showZones();
}

void InvoicePresenter::ActivateServices() { setZone(1); }
void InvoicePresenter::ActivateModifiers() { setZone(2); }

void InvoicePresenter::ActivatePayments() {
  if (field(InvField::DtPaid).isEmpty() && field(InvField::Payment).isEmpty() && field(InvField::Paid).isEmpty()) {
    set(InvField::DtPaid, shortDateText(clock_.today(), regional_));
    view_.showFields();
  }
  setZone(3);
}

std::optional<InvoiceLine> InvoicePresenter::buildLine() const {
  InvoiceLine line;
  switch (CurrentZone) {
    case 1:
      line = {field(InvField::Designation), field(InvField::Debut), field(InvField::Fin), field(InvField::Quantity),
              field(InvField::UnitPrice),   field(InvField::Price), QString(), kind::Service, QString()};
      break;
    case 2:
      line = {QStringLiteral("  # ") + field(InvField::Modification), field(InvField::Fixed), field(InvField::Rate),
              field(InvField::Amount), field(InvField::Included), field(InvField::NotIncluded), field(InvField::AddUp),
              kind::Modifier, field(InvField::Printed)};
      break;
    default: {
      const QString paid = field(InvField::Paid);
      const auto value = parseNumber(paid, regional_);
      if (!value) return std::nullopt;
      // Both signs lower the balance: a negative payment gives no money back.
      const QString amount = *value < 0 ? paid : QStringLiteral("- ") + paid;
      line = {field(InvField::Payment), field(InvField::DtPaid), QString(), QString(), QString(), amount, QString(),
              kind::Payment, QString()};
    }
  }
  return line;
}

void InvoicePresenter::afterGridChange() {
  view_.showGrid();
  view_.showFields();
}

void InvoicePresenter::CdAdd() {
  auto line = buildLine();
  if (!line) return;
  grid_.normalise(*line);
  grid_.addLine(*line);
  afterGridChange();
  view_.selectLine(grid_.Row);
}

bool InvoicePresenter::askOnCurrentRow(int question) {
  const int row = grid_.Row;
  view_.highlightRow(row, true);
  const bool yes = messages_.askYesNo(texts_.get(question), MsgAnswer::No);
  view_.highlightRow(row, false);
  return yes;
}

void InvoicePresenter::CdInsert() {
  if (!askOnCurrentRow(txt::InvQuestionInsert)) return;
  if (!buildLine()) return;  // no blank line left behind
  grid_.insertBlankLine();
  doModify(false);
}

void InvoicePresenter::CdModify() {
  if (grid_.LineCount == 0) return;
  doModify(true);
}

void InvoicePresenter::doModify(bool ask) {
  if (ask && !askOnCurrentRow(txt::InvQuestionModify)) return;
  auto line = buildLine();
  if (!line) return;
  grid_.normalise(*line);
  grid_.modifyLine(*line);
  afterGridChange();
}

void InvoicePresenter::cdVoid() {
  const QString k = grid_.line(grid_.Row)[cell::Kind];
  if (k != kind::Service && k != kind::Modifier && k != kind::Payment) {
    messages_.exclamation(texts_.get(txt::InvCannotVoid));
    return;
  }
  if (!askOnCurrentRow(txt::InvQuestionVoid)) return;
  grid_.voidLine();
  afterGridChange();
}

void InvoicePresenter::CdDelete() {
  if (grid_.LineCount == 0) return;
  if (!askOnCurrentRow(txt::InvQuestionDelete)) return;
  grid_.deleteLine();
  afterGridChange();
}

void InvoicePresenter::CdClearInput() {
  guard_ = true;
  grid_.Modified = true;  // the invoice counts as changed though the grid is not
  for (QString& f : fields_) f.clear();
  guard_ = false;
  view_.showFields();
}

void InvoicePresenter::CdAddTotal() {
  grid_.CdAddTotal();
  afterGridChange();
}

void InvoicePresenter::cdAddSubTotal() {
  grid_.cdAddSubTotal();
  afterGridChange();
}

void InvoicePresenter::CdAddTotalsM() {
  grid_.CdAddTotalsM();
  afterGridChange();
}

void InvoicePresenter::deleteTotals(const QString& k) {
  if (grid_.LineCount == 0) return;
  if (!messages_.askYesNo(texts_.get(txt::InvQuestionDeleteTotals), MsgAnswer::No)) return;
  grid_.deleteLinesOfKind(k);
  afterGridChange();
}

void InvoicePresenter::CdDeleteTotals() { deleteTotals(kind::Total); }
void InvoicePresenter::cdDeleteSubtotals() { deleteTotals(kind::Subtotal); }
void InvoicePresenter::CdDeleteTotalsM() { deleteTotals(kind::ModifierTotal); }

void InvoicePresenter::cdDeleteTotal() {
  const QString k = grid_.line(grid_.Row)[cell::Kind];
  if (k != kind::ModifierTotal && k != kind::Total && k != kind::Subtotal) {
    messages_.exclamation(texts_.get(txt::InvNotATotal));
    return;
  }
  CdDelete();
}

}  // namespace ksv
