#pragma once
// AccountsD, AccountsM and AccountsP: the dialog of one catalogue row, its
// fields chosen by the catalogue, its OK caption by the mode.

#include <QDialog>

#include "invoicing/accounts_update.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace ksv {

class AccountUpdateDialog final : public QDialog {
  Q_OBJECT
 public:
  // `NbDecimal`: the decimals ComputeTax shows.
  AccountUpdateDialog(AccountUpdate& presenter, const Texts& texts, const Regional& regional, int NbDecimal,
                      QWidget* parent = nullptr);

  QLineEdit* Name = nullptr;  // `Designation`, `Modification` or `Payment`
  QLineEdit *UnitPrice = nullptr, *Fixed = nullptr, *Rate = nullptr;
  QCheckBox *CkIncluded = nullptr, *CkAddUp = nullptr, *CkPrinted = nullptr;
  QPushButton *OK = nullptr, *Cancel = nullptr, *cdCompute = nullptr;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* numeric(NumericField& field);

  AccountUpdate& presenter_;
  const Regional& regional_;
  QList<std::pair<QLineEdit*, NumericField*>> numerics_;
};

}  // namespace ksv
