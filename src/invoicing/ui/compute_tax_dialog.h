#pragma once
// `ComputeTax`: the tax calculator opened from the service dialog.

#include <QDialog>

#include "invoicing/accounts_compute_tax.h"

class QLabel;
class QLineEdit;
class QRadioButton;

namespace ksv {

class Texts;

class ComputeTaxDialog final : public QDialog {
  Q_OBJECT
 public:
  ComputeTaxDialog(ComputeTax& presenter, const Texts& texts, QWidget* parent = nullptr);

  QLineEdit *WithoutTax = nullptr, *Rate = nullptr, *WithTax = nullptr;
  QLabel* Taxes = nullptr;
  QRadioButton *optWithoutTax = nullptr, *optRate = nullptr, *optWithTax = nullptr;

 private:
  void refresh();
  ComputeTax& presenter_;
};

}  // namespace ksv
