#pragma once
// The Invoice window without widgets: the booking frame's fields, the three
// input zones and their choosers, the line commands and the totals over the
// headless grid. The dialog binds its widgets to these fields and forwards
// each event to the handler of the same name.

#include <array>
#include <optional>

#include <QDate>
#include <QString>
#include <QStringList>

#include "invoice_catalogue.h"
#include "invoice_grid.h"

namespace ksv {

class Clock;
class Messages;

// The fields of the three zones, in their order.
enum class InvField {
  Designation, Debut, Fin, Quantity, UnitPrice, Price,                // services
  Modification, Fixed, Amount, Rate, Included, NotIncluded, AddUp, Printed,  // modifiers
  DtPaid, Payment, Paid,                                                // payments
  Count
};
inline constexpr int kInvFieldCount = static_cast<int>(InvField::Count);

// What a double-click may land on.
enum class InvDoubleClick {
  DtFrom, DtFromS, DtTo, DtToS, Days, DaysS, Resource, ResourceS,
  Debut, Fin, DtPaid, Quantity, Amount, Paid, Included, NotIncluded
};

// What the presenter asks of the window.
class InvoiceView {
 public:
  virtual ~InvoiceView() = default;
  // The zone fields and txtTotal changed: show the presenter's texts.
  virtual void showFields() = 0;
  // The lines, the current row or the top row changed.
  virtual void showGrid() = 0;
  // CurrentZone changed: the other two zones look inactive.
  virtual void showZones() = 0;
  virtual void focusField(InvField field, bool selectText) = 0;
  // The current row in back colour 192 and white text while a question is asked.
  virtual void highlightRow(int row, bool on) = 0;
  // Selects the whole of columns 0 to 5 of a row.
  virtual void selectLine(int row) = 0;
  // The calendar on a date; nothing when it is closed without a choice.
  virtual std::optional<QDate> pickDate(QDate start) = 0;
};

class InvoicePresenter {
 public:
  InvoicePresenter(InvoiceView& view, Messages& messages, const Texts& texts, const Regional& regional,
                   const Clock& clock, InvoiceCatalogue catalogue);

  // Fields the caller fills before showing the window.
  QString InvNb;        // empty for a new invoice
  QString Nom;          // the customer's name
  bool frBooking = false;  // shown for a location, hidden for a cash sale
  QString DtFrom, DtTo, Days, Resource, Remark;
  QString DtFromS, DtToS, DaysS, ResourceS;  // the second part of a split booking
  bool splitShown = false;

  // The state of the open invoice.
  short CurrentZone = 1;   // 1 services, 2 modifiers, 3 payments
  bool Posted = false;     // locked after posting
  bool Outstanding = false;  // posted as unpaid
  QDate PostDate;          // the date posting will write
  QString OldInvNb;        // the number before the last change of number

  InvoiceGrid& grid() { return grid_; }
  const InvoiceGrid& grid() const { return grid_; }
  const InvoiceCatalogue& catalogue() const { return catalogue_; }
  QString field(InvField f) const { return fields_[static_cast<size_t>(f)]; }
  // The mode of the modifier being entered, from the catalogue's Included.
  bool modifierIncluded() const { return modifierIncluded_; }

  // M_CashSale's hand-over: "Cash sale", no booking frame, no number.
  void prepareCashSale();
  // Takes the options NbDecimal and OnlyIfDecExist and the rows that fit,
  // sets PostDate to today and opens on an empty grid.
  void Form_Load(const AmountDisplay& display, int visibleRows);

  // Field events.
  void fieldEntered(InvField f);
  void fieldChanged(InvField f, const QString& text);
  void fieldLeft(InvField f);
  // Text typed into a chooser instead of choosing an item.
  void chooserTyped(InvField chooser);
  void Designation_Click(const QString& item);
  void Modification_Click(const QString& item);
  void Payment_Click(const QString& item);
  void doubleClick(InvDoubleClick source);
  void setCurrentRow(int row);

  void ActivateServices();
  void ActivateModifiers();
  void ActivatePayments();

  // Line commands.
  void CdAdd();
  void CdInsert();
  void CdModify();
  void cdVoid();
  void CdDelete();
  void CdClearInput();

  // Totals.
  void CdAddTotal();
  void cdAddSubTotal();
  void CdAddTotalsM();
  void CdDeleteTotals();
  void cdDeleteSubtotals();
  void CdDeleteTotalsM();
  void cdDeleteTotal();

 private:
  QString& ref(InvField f) { return fields_[static_cast<size_t>(f)]; }
  void set(InvField f, const QString& text) { ref(f) = text; }
  bool numeric(const QString& text) const;
  std::optional<InvoiceLine> buildLine() const;
  bool askOnCurrentRow(int question);
  void doModify(bool ask);
  void deleteTotals(const QString& kind);
  void computeService();
  void computeModifier();
  void runArithmetic(void (InvoicePresenter::*step)());
  void afterGridChange();
  void setZone(short zone);

  InvoiceView& view_;
  Messages& messages_;
  const Texts& texts_;
  const Regional& regional_;
  const Clock& clock_;
  InvoiceCatalogue catalogue_;
  InvoiceGrid grid_;
  std::array<QString, kInvFieldCount> fields_{};
  std::array<QString, kInvFieldCount> kept_{};  // last good text of each numeric or date field
  bool guard_ = false;             // set while a handler fills fields itself
  bool modifierIncluded_ = true;
};

}  // namespace ksv
