#pragma once
// The `Invoice` window: the booking frame, the three input zones, the grid
// TbInvoice and the totals, bound to the presenter that holds their logic.

#include <array>

#include <QDialog>

#include "invoicing/invoice_presenter.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace ksv {

class Clock;

class InvoiceDialog final : public QDialog, public InvoiceView {
  Q_OBJECT
 public:
  InvoiceDialog(Messages& messages, const Texts& texts, const Regional& regional, const Clock& clock,
                InvoiceCatalogue catalogue, QWidget* parent = nullptr);

  InvoicePresenter& presenter() { return presenter_; }
  // Shows the caller's fields (number, name, booking frame) once they are filled.
  void showHandOver();

  // InvoiceView.
  void showFields() override;
  void showGrid() override;
  void showZones() override;
  void focusField(InvField field, bool selectText) override;
  void highlightRow(int row, bool on) override;
  void selectLine(int row) override;
  std::optional<QDate> pickDate(QDate start) override;

  QWidget* fieldWidget(InvField f) const { return widgets_[static_cast<size_t>(f)]; }
  QTableWidget* TbInvoice = nullptr;
  QLineEdit* txtTotal = nullptr;
  QGroupBox* frBooking = nullptr;
  QPushButton *CdAdd = nullptr, *CdSaveInv = nullptr, *CdPost = nullptr, *CdExit = nullptr;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* lineOf(InvField f) const;
  QComboBox* chooserOf(InvField f) const;
  int fieldIndex(QObject* watched) const;

  const Texts& texts_;
  const Clock& clock_;
  InvoicePresenter presenter_;
  std::array<QWidget*, kInvFieldCount> widgets_{};
  std::array<QGroupBox*, 3> zones_{};
  QLineEdit *InvNb_ = nullptr, *Nom_ = nullptr;
  QLineEdit *DtFrom_ = nullptr, *DtTo_ = nullptr, *Days_ = nullptr, *Resource_ = nullptr, *Remark_ = nullptr;
  // The second part of a split booking, shown only for one.
  QLineEdit *DtFromS_ = nullptr, *DtToS_ = nullptr, *DaysS_ = nullptr, *ResourceS_ = nullptr;
  bool filling_ = false;  // the grid is being filled: its selection changes are not the user's
};

}  // namespace ksv
