#pragma once
// `CustomerUpdate`: name, e-mail and remark of one line of the customer list.

#include <QDialog>

#include "customers/customer_update.h"

class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace ksv {

class CustomerUpdateDialog final : public QDialog {
  Q_OBJECT
 public:
  CustomerUpdateDialog(CustomerUpdatePresenter& presenter, const Texts& texts, QWidget* parent = nullptr);
  // Shows the dialog modally; true once OK closed it.
  static bool run(CustomerUpdatePresenter& presenter, const Texts& texts, QWidget* parent);

  QLineEdit* Nom = nullptr;
  QLineEdit* Email = nullptr;
  QPlainTextEdit* Remark = nullptr;
  QPushButton* OK = nullptr;
  QPushButton* Cancel = nullptr;

 private:
  CustomerUpdatePresenter& presenter_;
};

}  // namespace ksv
