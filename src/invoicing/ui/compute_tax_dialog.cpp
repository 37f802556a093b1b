#include "compute_tax_dialog.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/texts.h"

namespace ksv {

ComputeTaxDialog::ComputeTaxDialog(ComputeTax& presenter, const Texts& texts, QWidget* parent)
    : QDialog(parent), presenter_(presenter) {
  setObjectName(QStringLiteral("ComputeTax"));
  setWindowTitle(texts.get(txt::TaxTitle));
  WithoutTax = new QLineEdit(this);
  Rate = new QLineEdit(this);
  WithTax = new QLineEdit(this);
  for (QLineEdit* e : {WithoutTax, Rate, WithTax}) e->setAlignment(Qt::AlignRight);
  Taxes = new QLabel(this);
  Taxes->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  Taxes->setFrameShape(QFrame::StyledPanel);
  optWithoutTax = new QRadioButton(texts.get(txt::TaxWithoutTax), this);
  optRate = new QRadioButton(texts.get(txt::TaxRate), this);
  optWithTax = new QRadioButton(texts.get(txt::TaxWithTax), this);
  auto* fixedBox = new QGroupBox(texts.get(txt::TaxWhatIsFixed), this);
  auto* fixedLayout = new QVBoxLayout(fixedBox);
  for (QRadioButton* b : {optWithoutTax, optRate, optWithTax}) fixedLayout->addWidget(b);
  auto* close = new QPushButton(texts.get(txt::TaxClose), this);

  auto* form = new QFormLayout;
  form->addRow(texts.get(txt::TaxWithoutTax), WithoutTax);
  form->addRow(texts.get(txt::TaxRate), Rate);
  form->addRow(texts.get(txt::TaxWithTax), WithTax);
  form->addRow(texts.get(txt::TaxTaxes), Taxes);
  auto* top = new QHBoxLayout;
  top->addLayout(form, 1);
  top->addWidget(fixedBox);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(close);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addLayout(buttons);

  using F = ComputeTax::Fixed;
  (presenter_.fixed == F::WithoutTax ? optWithoutTax : presenter_.fixed == F::Rate ? optRate : optWithTax)->setChecked(true);
  connect(optWithoutTax, &QRadioButton::toggled, this, [this](bool on) { if (on) presenter_.fixed = F::WithoutTax; });
  connect(optRate, &QRadioButton::toggled, this, [this](bool on) { if (on) presenter_.fixed = F::Rate; });
  connect(optWithTax, &QRadioButton::toggled, this, [this](bool on) { if (on) presenter_.fixed = F::WithTax; });
  connect(WithoutTax, &QLineEdit::textEdited, this, [this](const QString& t) {
    presenter_.WithoutTax_Change(t);
    refresh();
  });
  connect(Rate, &QLineEdit::textEdited, this, [this](const QString& t) {
    presenter_.Rate_Change(t);
    refresh();
  });
  connect(WithTax, &QLineEdit::textEdited, this, [this](const QString& t) {
    presenter_.WithTax_Change(t);
    refresh();
  });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  refresh();
}

void ComputeTaxDialog::refresh() {
  // Only the fields the presenter computed change: the one being typed keeps its cursor.
  for (auto [edit, text] : {std::pair{WithoutTax, presenter_.WithoutTax}, std::pair{Rate, presenter_.Rate},
                            std::pair{WithTax, presenter_.WithTax}})
    if (edit->text() != text) edit->setText(text);
  Taxes->setText(presenter_.Taxes);
}

}  // namespace ksv
