#include "reg_settings_dialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace ksv {

RegSettingsDialog::RegSettingsDialog(RegSettingsPresenter& presenter, QWidget* parent)
    : QDialog(parent), presenter_(presenter) {
  setWindowTitle(presenter_.title());
  auto* layout = new QVBoxLayout(this);
  auto* heading = new QLabel(presenter_.heading(), this);
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  layout->addWidget(heading);

  auto* grid = new QGridLayout;
  for (int i = 0; i < 3; ++i) {
    const RegSettingsPresenter::Row& row = presenter_.rows()[i];
    auto* value = new QLineEdit(row.value, this);
    value->setReadOnly(true);
    marks_[i] = new QLabel(row.fault ? QStringLiteral("\u2716") : QString(), this);
    marks_[i]->setStyleSheet(QStringLiteral("color: red;"));
    remarks_[i] = new QLabel(row.remark, this);
    grid->addWidget(new QLabel(row.label, this), i, 0);
    grid->addWidget(value, i, 1);
    grid->addWidget(marks_[i], i, 2);
    grid->addWidget(remarks_[i], i, 3);
  }
  layout->addLayout(grid);

  OK = new QPushButton(presenter_.okCaption(), this);
  CtlPanel = new QPushButton(presenter_.ctlPanelCaption(), this);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(CtlPanel);
  buttons->addWidget(OK);
  layout->addLayout(buttons);

  connect(OK, &QPushButton::clicked, this, [this] {
    presenter_.OK_Click();
    reject();
  });
  connect(CtlPanel, &QPushButton::clicked, this, [this] {
    presenter_.CtlPanel_Click();
    if (presenter_.outcome() == RegSettingsPresenter::Outcome::VerifyAgain)
      accept();
    else
      CtlPanel->setText(presenter_.ctlPanelCaption());
  });
}

void RegSettingsDialog::show(RegSettingsPresenter& presenter, QWidget* parent) {
  RegSettingsDialog dialog(presenter, parent);
  dialog.exec();
  // Closing the window counts as the exit button.
  if (presenter.outcome() == RegSettingsPresenter::Outcome::Open) presenter.OK_Click();
}

}  // namespace ksv
