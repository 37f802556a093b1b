#pragma once
// `RegSettings`: what is wrong with the regional settings, and the two ways
// out (exit, or open the system's settings and test again).

#include <QDialog>

#include "config/reg_settings.h"

class QLabel;
class QPushButton;

namespace ksv {

class RegSettingsDialog final : public QDialog {
  Q_OBJECT
 public:
  RegSettingsDialog(RegSettingsPresenter& presenter, QWidget* parent = nullptr);
  QPushButton* OK = nullptr;
  QPushButton* CtlPanel = nullptr;
  QLabel* remark(int row) const { return remarks_[row]; }
  QLabel* mark(int row) const { return marks_[row]; }

  // The ShowRegSettings of the program.
  static void show(RegSettingsPresenter& presenter, QWidget* parent = nullptr);

 private:
  RegSettingsPresenter& presenter_;
  QLabel* remarks_[3] = {};
  QLabel* marks_[3] = {};
};

}  // namespace ksv
