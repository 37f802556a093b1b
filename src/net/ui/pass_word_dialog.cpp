#include "pass_word_dialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProxyStyle>
#include <QPushButton>
#include <QVBoxLayout>

namespace ksv {
namespace {

// Masked characters show as "$", whatever the desktop's style would use.
class DollarMaskStyle final : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returnData) const override {
    if (hint == SH_LineEdit_PasswordCharacter) return '$';
    if (hint == SH_LineEdit_PasswordMaskDelay) return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
  }
};

}  // namespace

PassWordDialog::PassWordDialog(PassWordPresenter& presenter, const Texts& texts, QWidget* parent)
    : QDialog(parent), presenter_(presenter) {
  setWindowTitle(texts.get(txt::PassWordTitle));
  Code = new QLineEdit(this);
  auto* style = new DollarMaskStyle;
  style->setParent(Code);
  Code->setStyle(style);
  MP = new QCheckBox(texts.get(txt::MaskPasswords), this);
  OK = new QPushButton(texts.get(txt::ButtonOk), this);
  Cancel = new QPushButton(texts.get(txt::ButtonCancel), this);
  OK->setDefault(true);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(texts.get(txt::PassWordPrompt), this));
  layout->addWidget(Code);
  layout->addWidget(MP);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(OK);
  buttons->addWidget(Cancel);
  layout->addLayout(buttons);

  connect(Code, &QLineEdit::textChanged, this, [this](const QString& text) { presenter_.Code = text; });
  connect(MP, &QCheckBox::toggled, this, [this](bool on) {
    presenter_.MP = on;
    Code->setEchoMode(on ? QLineEdit::Password : QLineEdit::Normal);
    Code->setFocus();
  });
  connect(OK, &QPushButton::clicked, this, [this] {
    presenter_.OK_Click();
    presenter_.Result ? accept() : reject();
  });
  // Enter in Code reaches OK, the default button.
  connect(Cancel, &QPushButton::clicked, this, [this] {
    presenter_.Cancel_Click();
    reject();
  });
}

bool PassWordDialog::ask(const QString& expected, const Texts& texts, QWidget* parent) {
  PassWordPresenter presenter(expected);
  PassWordDialog dialog(presenter, texts, parent);
  dialog.exec();
  return presenter.Result;
}

}  // namespace ksv
