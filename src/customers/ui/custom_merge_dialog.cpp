#include "custom_merge_dialog.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/texts.h"

namespace ksv {

CustomMergeDialog::CustomMergeDialog(const Texts& texts, QWidget* parent) : QDialog(parent) {
  setWindowTitle(texts.get(txt::CustomerUnify).remove(QLatin1Char('&')));
  auto* group = new QGroupBox(texts.get(txt::MergeTooLong), this);
  Leave = new QRadioButton(texts.get(txt::MergeLeave), group);
  Stopper = new QRadioButton(texts.get(txt::MergeStop), group);
  Cut = new QRadioButton(texts.get(txt::MergeCut), group);
  Leave->setChecked(true);
  auto* choices = new QVBoxLayout(group);
  choices->addWidget(Leave);
  choices->addWidget(Stopper);
  choices->addWidget(Cut);
  OK = new QPushButton(texts.get(txt::ButtonOk), this);
  Cancel = new QPushButton(texts.get(txt::ButtonCancel), this);
  OK->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(OK);
  buttons->addWidget(Cancel);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(texts.get(txt::MergeQuestion), this));
  layout->addWidget(group);
  layout->addLayout(buttons);
  connect(OK, &QPushButton::clicked, this, &QDialog::accept);
  connect(Cancel, &QPushButton::clicked, this, &QDialog::reject);
}

MergeChoice CustomMergeDialog::choice() const {
  if (Stopper->isChecked()) return MergeChoice::Stopper;
  if (Cut->isChecked()) return MergeChoice::Cut;
  return MergeChoice::Leave;
}

std::optional<MergeChoice> CustomMergeDialog::ask(const Texts& texts, QWidget* parent) {
  CustomMergeDialog dialog(texts, parent);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.choice();
}

}  // namespace ksv
