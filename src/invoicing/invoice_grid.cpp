#include "invoice_grid.h"

#include <algorithm>

#include "core/number_text.h"

namespace ksv {
namespace {

constexpr int kAmountCells[] = {4, 5};

bool isWhole(Currency v) { return v.raw() % Currency::kScale == 0; }

}  // namespace

void InvoiceGrid::InitInvoiceGrid() {
  clearLines();
}

void InvoiceGrid::clearLines() {
  rows_.assign(1, InvoiceLine{});
  LineCount = 0;
  Row = 0;
  TopRow = 0;
  scrollBarShown = false;
}

void InvoiceGrid::normalise(InvoiceLine& line) {
  for (int c : kAmountCells) {
    const auto v = cellAmount(line[c], regional_);
    if (!v) continue;
    // The test is on the single the amount narrows to.
    const float f = v->toSingle();
    if (display.OnlyIfDecExist && static_cast<double>(f) == roundHalfEven(static_cast<double>(f), 0)) continue;
    ShowDecimals = true;
    line[c] = decimalText(*v, display.NbDecimal, regional_);
  }
}

void InvoiceGrid::appendRow(const InvoiceLine& line) {
  if (LineCount == 0) rows_.front() = line;
  else rows_.push_back(line);
  ++LineCount;
  Row = LineCount - 1;
}

void InvoiceGrid::removeRow(int row) {
  if (rowCount() > 1) {
    rows_.erase(rows_.begin() + row);
    Row = std::min(row, rowCount() - 1);
  } else {
    rows_.front() = InvoiceLine{};
    Row = 0;
  }
  if (LineCount > 0) --LineCount;
}

void InvoiceGrid::addLine(const InvoiceLine& line) {
  appendRow(line);
  Modified = true;
  if (ShowDecimals) PutDecimale();
  adjustView();
  ComputeTotal();
}

void InvoiceGrid::insertBlankLine() {
  Modified = true;
  if (LineCount == 0) {
    // The blank first row is the line to fill.
    LineCount = 1;
    Row = 0;
  } else {
    rows_.insert(rows_.begin() + Row, InvoiceLine{});
    ++LineCount;
  }
  adjustView();
}

void InvoiceGrid::modifyLine(const InvoiceLine& line) {
  rows_.at(static_cast<size_t>(Row)) = line;
  Modified = true;
  RemoveDecimale();
  ComputeTotal();
}

void InvoiceGrid::voidLine() {
  InvoiceLine& l = rows_.at(static_cast<size_t>(Row));
  l[cell::Name] = QStringLiteral("[ ") + texts_.get(txt::InvVoidMark) + l[cell::Name] + QStringLiteral(" = ") + l[5] +
                  QStringLiteral("]");
  for (int c = 1; c <= 5; ++c) l[c].clear();
  l[cell::Kind] = kind::Voided;
  Modified = true;
  ComputeTotal();
}

void InvoiceGrid::deleteLine() {
  removeRow(Row);
  Modified = true;
  RemoveDecimale();
  adjustView();
  ComputeTotal();
}

void InvoiceGrid::PutDecimale() {
  for (InvoiceLine& l : rows_) {
    for (int c : kAmountCells) {
      if (l[c].isEmpty()) continue;
      if (const auto v = cellAmount(l[c], regional_)) l[c] = decimalText(*v, display.NbDecimal, regional_);
    }
  }
}

void InvoiceGrid::RemoveDecimale() {
  if (display.NbDecimal == 0 || !display.OnlyIfDecExist) return;
  for (const InvoiceLine& l : rows_) {
    for (int c : kAmountCells) {
      const auto v = cellAmount(l[c], regional_);
      if (v && !isWhole(*v)) {
        ShowDecimals = true;
        return;
      }
    }
  }
  ShowDecimals = false;
  for (InvoiceLine& l : rows_) {
    for (int c : kAmountCells) {
      if (const auto v = cellAmount(l[c], regional_)) l[c] = formatNumber(*v, amountFormat(0), regional_);
    }
  }
}

void InvoiceGrid::adjustView() {
  scrollBarShown = rowCount() > VisibleRows;
  TopRow = scrollBarShown && VisibleRows > 0 ? VisibleRows * (Row / VisibleRows) : 0;
}

QString InvoiceGrid::amountText(float value) { return totalText(value, display, regional_, ShowDecimals); }

void InvoiceGrid::ComputeTotal() {
  TotalOnly = true;
  CdAddTotal();
  TotalOnly = false;
}

void InvoiceGrid::CdAddTotal() {
  if (!TotalOnly && !SumOnly) Modified = true;
  float total = 0;
  for (const InvoiceLine& l : rows_) {
    if (!isAmountLine(l) || l[5].isEmpty()) continue;
    if (const auto v = cellAmount(l[5], regional_)) total = toTotalAmount(Currency::fromSingle(total) + *v);
  }
  float rounded = total;
  TotalText = totalText(total, display, regional_, ShowDecimals, &rounded);
  TotalAmount = rounded;
  if (SumOnly) return;
  if (TotalOnly) {
    txtTotal = TotalText;
    return;
  }
  InvoiceLine line;
  line[cell::Name] = texts_.get(txt::InvTotalLabel) + QStringLiteral(" = [") + TotalText + QStringLiteral("]");
  line[cell::Kind] = kind::Total;
  appendRow(line);
  adjustView();
}

void InvoiceGrid::cdAddSubTotal() {
  Modified = true;
  float sum = 0;
  for (const InvoiceLine& l : rows_) {
    if (l[cell::Kind] == kind::Subtotal) sum = 0;
    else if (isAmountLine(l) && !l[5].isEmpty())
      if (const auto v = cellAmount(l[5], regional_)) sum = toTotalAmount(Currency::fromSingle(sum) + *v);
  }
  InvoiceLine line;
  line[cell::Name] = texts_.get(txt::InvSubtotalLabel) + QStringLiteral(" = [") + amountText(sum) + QStringLiteral("]");
  line[cell::Kind] = kind::Subtotal;
  appendRow(line);
  adjustView();
}

void InvoiceGrid::CdAddTotalsM() {
  Modified = true;
  struct Sums {
    QString name;
    float included = 0;
    float notIncluded = 0;
  };
  std::vector<Sums> names;
  const auto find = [&names](const QString& name) {
    return std::find_if(names.begin(), names.end(), [&name](const Sums& s) { return s.name == name; });
  };
  for (const InvoiceLine& l : rows_)
    if (l[cell::AddUp] == QLatin1String("Y") && find(l[cell::Name]) == names.end()) names.push_back({l[cell::Name]});
  if (names.empty()) return;
  for (const InvoiceLine& l : rows_) {
    if (l[cell::AddUp] != QLatin1String("Y")) continue;
    Sums& s = *find(l[cell::Name]);
    s.included = (Currency::fromSingle(s.included) + cellAmountOrZero(l[4], regional_)).toSingle();
    s.notIncluded = (Currency::fromSingle(s.notIncluded) + cellAmountOrZero(l[5], regional_)).toSingle();
  }
  for (const Sums& s : names) {
    const QString first = amountText(s.included);
    const QString second = amountText(s.notIncluded);
    // "  # Tax" gives "Total Tax": the prefix's blank stays between the words.
    QString label = texts_.get(txt::InvTotalLabel) + s.name.mid(3) + QStringLiteral(" = [");
    if (s.included != 0 && s.notIncluded == 0) label += first + QLatin1Char(']');
    else if (s.included == 0 && s.notIncluded != 0) label += second + QLatin1Char(']');
    else if (s.included != 0 && s.notIncluded != 0) label += first + QStringLiteral("][") + second + QLatin1Char(']');
    else continue;
    InvoiceLine line;
    line[cell::Name] = label;
    line[cell::Kind] = kind::ModifierTotal;
    appendRow(line);
  }
  Row = rowCount() - 1;
  adjustView();
}

void InvoiceGrid::deleteLinesOfKind(const QString& kind) {
  for (;;) {
    const auto it = std::find_if(rows_.begin(), rows_.end(), [&kind](const InvoiceLine& l) { return l[cell::Kind] == kind; });
    if (it == rows_.end()) break;
    removeRow(static_cast<int>(it - rows_.begin()));
  }
  Modified = true;
  Row = rowCount() - 1;
  adjustView();
  ComputeTotal();
}

}  // namespace ksv
