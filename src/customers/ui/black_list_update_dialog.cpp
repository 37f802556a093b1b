#include "black_list_update_dialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/texts.h"
#include "customers/ui/remark_edit.h"
#include "remark_text.h"

namespace ksv {

BlackListUpdateDialog::BlackListUpdateDialog(BlackListUpdatePresenter& presenter, const Texts& texts, QWidget* parent)
    : QDialog(parent), presenter_(presenter) {
  setWindowTitle(texts.get(txt::BlackListTitle));
  Nom = new QLineEdit(presenter_.Nom, this);
  Nom->setMaxLength(25);
  Nom->setReadOnly(presenter_.readOnly());
  Remark = new RemarkEdit(remarkForEdit(presenter_.Remark), this);
  Remark->setReadOnly(presenter_.readOnly());
  Remark->setMinimumWidth(380);
  OK = new QPushButton(presenter_.okCaption(), this);
  Cancel = new QPushButton(texts.get(txt::ButtonCancel), this);
  OK->setDefault(true);

  auto* form = new QFormLayout;
  form->addRow(texts.get(txt::CustomerColName), Nom);
  form->addRow(texts.get(txt::CustomerColRemark), Remark);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(OK);
  buttons->addWidget(Cancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addLayout(buttons);

  connect(OK, &QPushButton::clicked, this, [this] {
    presenter_.Nom = Nom->text();
    presenter_.Remark = remarkFromEdit(Remark->toPlainText());
    presenter_.OK_Click();
    if (presenter_.closed) accept();
  });
  connect(Cancel, &QPushButton::clicked, this, [this] {
    presenter_.Cancel_Click();
    reject();
  });
}

bool BlackListUpdateDialog::run(BlackListUpdatePresenter& presenter, const Texts& texts, QWidget* parent) {
  BlackListUpdateDialog dialog(presenter, texts, parent);
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace ksv
