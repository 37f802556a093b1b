#pragma once
// `BlackList`: the grid `ListBlack` with its search box and buttons.

#include <QDialog>

#include "customers/black_list.h"

class QLineEdit;
class QPushButton;
class QTableWidget;

namespace ksv {

class BlackListWindow final : public QDialog {
  Q_OBJECT
 public:
  BlackListWindow(BlackListPresenter& presenter, Messages& messages, const Texts& texts, QWidget* parent = nullptr);
  void refresh();

  QLineEdit* search = nullptr;
  QTableWidget* ListBlack = nullptr;
  QPushButton *Add = nullptr, *Modify = nullptr, *Delete = nullptr, *Print = nullptr, *Close = nullptr;

 private:
  BlackListPresenter& presenter_;
};

}  // namespace ksv
