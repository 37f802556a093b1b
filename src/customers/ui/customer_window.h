#pragma once
// `Customer`: the grid `ListClient` of customers or agents with its search
// box and buttons; everything it does is the presenter's.

#include <QDialog>

#include "customers/customer_list.h"

class QLineEdit;
class QPushButton;
class QTableWidget;

namespace ksv {

class CustomerWindow final : public QDialog {
  Q_OBJECT
 public:
  // Fills the presenter's dialog hooks; `addToBlackList` is left to the caller.
  CustomerWindow(CustomerListPresenter& presenter, Messages& messages, const Texts& texts, QWidget* parent = nullptr);

  // Fills the grid from the presenter and selects its row.
  void refresh();

  QLineEdit* search = nullptr;
  QTableWidget* ListClient = nullptr;
  QPushButton *Modify = nullptr, *Unify = nullptr, *Add_BL = nullptr, *Printer = nullptr, *Export = nullptr,
              *Copy = nullptr, *Close = nullptr;

 private:
  CustomerListPresenter& presenter_;
};

}  // namespace ksv
