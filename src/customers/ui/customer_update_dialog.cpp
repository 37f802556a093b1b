#include "customer_update_dialog.h"

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

CustomerUpdateDialog::CustomerUpdateDialog(CustomerUpdatePresenter& presenter, const Texts& texts, QWidget* parent)
    : QDialog(parent), presenter_(presenter) {
  setWindowTitle(texts.get(txt::CustomerUpdateTitle));
  // The lengths the booking columns take.
  Nom = new QLineEdit(presenter_.Nom, this);
  Nom->setMaxLength(25);
  Email = new QLineEdit(presenter_.Email, this);
  Email->setMaxLength(40);
  Remark = new RemarkEdit(remarkForEdit(presenter_.Remark), this);
  Remark->setMinimumWidth(380);
  OK = new QPushButton(presenter_.okCaption(), this);
  Cancel = new QPushButton(texts.get(txt::ButtonCancel), this);
  OK->setDefault(true);

  auto* form = new QFormLayout;
  form->addRow(texts.get(txt::CustomerColName), Nom);
  form->addRow(texts.get(txt::CustomerColEmail), Email);
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
    presenter_.Email = Email->text();
    presenter_.Remark = remarkFromEdit(Remark->toPlainText());
    presenter_.OK_Click();
    if (presenter_.closed) accept();
  });
  connect(Cancel, &QPushButton::clicked, this, [this] {
    presenter_.Cancel_Click();
    reject();
  });
}

bool CustomerUpdateDialog::run(CustomerUpdatePresenter& presenter, const Texts& texts, QWidget* parent) {
  CustomerUpdateDialog dialog(presenter, texts, parent);
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace ksv
