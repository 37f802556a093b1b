#pragma once
// The `PassWord` dialog: the code typed once, masked with "$" on request.

#include <QDialog>

#include "core/texts.h"
#include "net/pass_word.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace ksv {

class PassWordDialog final : public QDialog {
  Q_OBJECT
 public:
  PassWordDialog(PassWordPresenter& presenter, const Texts& texts, QWidget* parent = nullptr);
  QLineEdit* Code = nullptr;
  QCheckBox* MP = nullptr;
  QPushButton* OK = nullptr;
  QPushButton* Cancel = nullptr;

  // The ShowPassWord of the program: true when the right code was typed.
  static bool ask(const QString& expected, const Texts& texts, QWidget* parent = nullptr);

 private:
  PassWordPresenter& presenter_;
};

}  // namespace ksv
