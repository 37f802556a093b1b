#pragma once
// The `Langage` dialog: English or French, asked at the first start when the
// session's locale names neither.

#include <QDialog>

#include "config/langage.h"

class QPushButton;
class QRadioButton;

namespace ksv {

class LangageDialog final : public QDialog {
  Q_OBJECT
 public:
  LangageDialog(LangagePresenter& presenter, QWidget* parent = nullptr);
  QRadioButton* English = nullptr;
  QRadioButton* Francais = nullptr;
  QPushButton* OK = nullptr;
  int offset() const { return offset_; }

  // Shows the dialog modally; the text offset chosen (OK is the only way out).
  static int ask(IniFile& ini, QWidget* parent = nullptr);

 private:
  void refreshCaptions();
  LangagePresenter& presenter_;
  int offset_ = 0;
};

}  // namespace ksv
