#include "account_update_dialog.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "compute_tax_dialog.h"
#include "core/texts.h"
#include "invoicing/accounts_compute_tax.h"

namespace ksv {

AccountUpdateDialog::AccountUpdateDialog(AccountUpdate& presenter, const Texts& texts, const Regional& regional,
                                         int NbDecimal, QWidget* parent)
    : QDialog(parent), presenter_(presenter), regional_(regional) {
  const AccountCatalogue c = presenter_.catalogue;
  static const char* const kNames[] = {"AccountsD", "AccountsM", "AccountsP"};
  static const int kCaptions[] = {txt::AccService, txt::AccModifier, txt::AccPayment};
  setObjectName(QLatin1String(kNames[static_cast<int>(c)]));
  setWindowTitle(texts.get(kCaptions[static_cast<int>(c)]));
  const bool readOnly = presenter_.readOnly();

  Name = new QLineEdit(presenter_.name, this);
  Name->setObjectName(catalogueTable(c));
  Name->setMaxLength(50);
  Name->setMinimumWidth(320);
  auto* form = new QFormLayout;
  form->addRow(texts.get(kCaptions[static_cast<int>(c)]), Name);
  if (c == AccountCatalogue::Designation) {
    UnitPrice = numeric(presenter_.UnitPrice);
    cdCompute = new QPushButton(texts.get(txt::AccCompute), this);
    cdCompute->setEnabled(!readOnly);
    auto* row = new QHBoxLayout;
    row->addWidget(UnitPrice);
    row->addWidget(cdCompute);
    form->addRow(texts.get(txt::AccUnitPrice), row);
    connect(cdCompute, &QPushButton::clicked, this, [this, &texts, NbDecimal] {
      ComputeTax tax(regional_, NbDecimal);
      ComputeTaxDialog(tax, texts, this).exec();
    });
  } else if (c == AccountCatalogue::Modification) {
    Fixed = numeric(presenter_.Fixed);
    Rate = numeric(presenter_.Rate);
    form->addRow(texts.get(txt::AccFixed), Fixed);
    form->addRow(texts.get(txt::AccRate), Rate);
    CkIncluded = new QCheckBox(texts.get(txt::AccIncluded), this);
    CkAddUp = new QCheckBox(texts.get(txt::AccAddUp), this);
    CkPrinted = new QCheckBox(texts.get(txt::AccPrinted), this);
    CkIncluded->setChecked(presenter_.CkIncluded);
    CkAddUp->setChecked(presenter_.CkAddUp);
    CkPrinted->setChecked(presenter_.CkPrinted);
    for (QCheckBox* b : {CkIncluded, CkAddUp, CkPrinted}) {
      b->setEnabled(!readOnly);
      form->addRow(QString(), b);
    }
  }
  // A row about to be deleted is shown, not edited.
  Name->setEnabled(!readOnly);
  for (const auto& [edit, field] : numerics_) edit->setEnabled(!readOnly);

  OK = new QPushButton(presenter_.okCaption(), this);
  OK->setDefault(true);
  Cancel = new QPushButton(texts.get(txt::ButtonCancel), this);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(OK);
  buttons->addWidget(Cancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addLayout(buttons);

  connect(OK, &QPushButton::clicked, this, [this] {
    presenter_.name = Name->text();
    for (const auto& [edit, field] : numerics_) field->leave();
    if (CkIncluded) {
      presenter_.CkIncluded = CkIncluded->isChecked();
      presenter_.CkAddUp = CkAddUp->isChecked();
      presenter_.CkPrinted = CkPrinted->isChecked();
    }
    presenter_.OK_Click();
    Name->setText(presenter_.name);
    for (const auto& [edit, field] : numerics_) edit->setText(field->text);
    if (presenter_.closed) accept();
  });
  connect(Cancel, &QPushButton::clicked, this, [this] {
    presenter_.Cancel_Click();
    reject();
  });
}

QLineEdit* AccountUpdateDialog::numeric(NumericField& field) {
  auto* edit = new QLineEdit(field.text, this);
  edit->setAlignment(Qt::AlignRight);
  edit->setMaximumWidth(140);
  edit->installEventFilter(this);
  numerics_ << std::pair{edit, &field};
  connect(edit, &QLineEdit::textEdited, this, [edit, &field, this](const QString& typed) {
    if (!field.change(typed, regional_)) edit->setText(field.text);
  });
  return edit;
}

bool AccountUpdateDialog::eventFilter(QObject* watched, QEvent* event) {
  for (const auto& [edit, field] : numerics_) {
    if (watched != edit) continue;
    if (event->type() == QEvent::FocusIn) field->enter();
    if (event->type() == QEvent::FocusOut) {
      field->leave();
      edit->setText(field->text);
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace ksv
