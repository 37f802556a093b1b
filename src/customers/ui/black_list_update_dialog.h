#pragma once
// `BlackListUpdate`: the name and reason of one black list row, to add,
// modify or delete.

#include <QDialog>

#include "customers/black_list.h"

class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace ksv {

class BlackListUpdateDialog final : public QDialog {
  Q_OBJECT
 public:
  BlackListUpdateDialog(BlackListUpdatePresenter& presenter, const Texts& texts, QWidget* parent = nullptr);
  static bool run(BlackListUpdatePresenter& presenter, const Texts& texts, QWidget* parent);

  QLineEdit* Nom = nullptr;
  QPlainTextEdit* Remark = nullptr;
  QPushButton* OK = nullptr;
  QPushButton* Cancel = nullptr;

 private:
  BlackListUpdatePresenter& presenter_;
};

}  // namespace ksv
