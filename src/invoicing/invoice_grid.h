#pragma once
// TbInvoice without a widget: the ordered lines of nine text cells of the open
// invoice, the counts and flags that go with them, and the totals that are
// computed from the cells. The window only shows it.

#include <array>
#include <vector>

#include <QString>

#include "core/regional.h"
#include "core/texts.h"
#include "invoice_amounts.h"

namespace ksv {

// One line: cells 0 to 5 are seen, 6 to 8 hold the line's data.
using InvoiceLine = std::array<QString, 9>;

namespace cell {
inline constexpr int Name = 0;
inline constexpr int AddUp = 6;    // "Y"/"N" of a modifier
inline constexpr int Kind = 7;     // "1" service ... "9" voided
inline constexpr int Printed = 8;  // "Y"/"N" of a modifier
}  // namespace cell

// Kinds of line (cell 7).
namespace kind {
inline const QString Service = QStringLiteral("1");
inline const QString Modifier = QStringLiteral("2");
inline const QString Payment = QStringLiteral("3");
inline const QString ModifierTotal = QStringLiteral("4");
inline const QString Total = QStringLiteral("5");
inline const QString Subtotal = QStringLiteral("6");
inline const QString Voided = QStringLiteral("9");
}  // namespace kind

// An amount line's kind compares at most "3"; label lines above.
inline bool isAmountLine(const InvoiceLine& line) { return line[cell::Kind] <= kind::Payment; }

class InvoiceGrid {
 public:
  InvoiceGrid(const Regional& regional, const Texts& texts) : regional_(regional), texts_(texts) { InitInvoiceGrid(); }

  // Column widths of a new grid, in the window's units.
  static constexpr std::array<int, 9> kColumnWidths{3000, 1100, 1100, 1000, 1000, 1000, 0, 0, 0};

  short LineCount = 0;       // lines in the grid; 0 leaves the one row blank
  float TotalAmount = 0;     // last computed sum of the amount lines, rounded
  QString TotalText;         // the same, formatted
  QString txtTotal;          // the balance the window shows
  bool Modified = false;     // changed since last saved
  bool ShowDecimals = false; // the amounts of this grid are shown with decimals
  AmountDisplay display;     // NbDecimal and OnlyIfDecExist
  bool TotalOnly = false;    // CdAddTotal only computes the balance into txtTotal
  bool SumOnly = false;      // CdAddTotal only computes TotalAmount
  int VisibleRows = 10;      // rows that fit: 10 on a large screen, 9 on a small one

  // Empties the grid to its one blank row.
  void InitInvoiceGrid();

  int rowCount() const { return static_cast<int>(rows_.size()); }
  const InvoiceLine& line(int row) const { return rows_.at(static_cast<size_t>(row)); }
  const std::vector<InvoiceLine>& rows() const { return rows_; }
  int Row = 0;                      // the current row
  int TopRow = 0;                   // first row in view
  bool scrollBarShown = false;      // more rows than fit

  // Cells 4 and 5 of a line built from the zones, made to the display.
  void normalise(InvoiceLine& line);

  // The commands' work on the grid, without their questions.
  void addLine(const InvoiceLine& line);           // CdAdd
  void insertBlankLine();                          // CdInsert: before the current row
  void modifyLine(const InvoiceLine& line);        // CdModify: the current row
  void voidLine();                                 // cdVoid: the current row, kind 1..3
  void deleteLine();                               // CdDelete: the current row
  void clearLines();                               // back to one blank row
  void PutDecimale();
  void RemoveDecimale();
  void adjustView();

  // Totals.
  void ComputeTotal();
  void CdAddTotal();
  void cdAddSubTotal();
  void CdAddTotalsM();
  // Removes every line of `kind` (one of "4", "5", "6"); the last row becomes current.
  void deleteLinesOfKind(const QString& kind);

 private:
  QString amountText(float value);
  void appendRow(const InvoiceLine& line);
  void removeRow(int row);

  const Regional& regional_;
  const Texts& texts_;
  std::vector<InvoiceLine> rows_;
};

}  // namespace ksv
