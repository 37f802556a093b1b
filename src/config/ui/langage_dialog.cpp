#include "langage_dialog.h"

#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace ksv {

LangageDialog::LangageDialog(LangagePresenter& presenter, QWidget* parent) : QDialog(parent), presenter_(presenter) {
  English = new QRadioButton(presenter_.englishCaption(), this);
  Francais = new QRadioButton(presenter_.francaisCaption(), this);
  OK = new QPushButton(this);
  OK->setDefault(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(English);
  layout->addWidget(Francais);
  layout->addWidget(OK);
  (presenter_.chosen() == Language::Fr ? Francais : English)->setChecked(true);

  connect(English, &QRadioButton::toggled, this, [this](bool on) {
    if (on) presenter_.English_Click();
    refreshCaptions();
  });
  connect(Francais, &QRadioButton::toggled, this, [this](bool on) {
    if (on) presenter_.Francais_Click();
    refreshCaptions();
  });
  connect(OK, &QPushButton::clicked, this, [this] {
    offset_ = presenter_.OK_Click();
    accept();
  });
  // Without a choice the start cannot go on: closing is not a way out.
  setWindowFlag(Qt::WindowCloseButtonHint, false);
  refreshCaptions();
}

void LangageDialog::refreshCaptions() {
  setWindowTitle(presenter_.caption());
  OK->setText(presenter_.okCaption());
}

int LangageDialog::ask(IniFile& ini, QWidget* parent) {
  LangagePresenter presenter(ini);
  LangageDialog dialog(presenter, parent);
  while (dialog.exec() != QDialog::Accepted) {
  }
  return dialog.offset();
}

}  // namespace ksv
