#include "calendrier_dialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "calendar_view.h"

namespace ksv {
namespace {

QHBoxLayout* buttonRow(QPushButton* ok, QPushButton* cancel) {
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(ok);
  row->addWidget(cancel);
  ok->setDefault(true);
  return row;
}

}  // namespace

CalendrierDialog::CalendrierDialog(CalendrierPresenter& presenter, const Texts& texts, QWidget* parent)
    : QDialog(parent), presenter_(presenter) {
  setWindowTitle(presenter_.caption());
  view_ = new CalendarView(presenter_.calendar(), this);
  ok_ = new QPushButton(texts.get(txt::ButtonOk), this);
  cancel_ = new QPushButton(texts.get(txt::ButtonCancel), this);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(view_, 0, Qt::AlignHCenter);
  layout->addLayout(buttonRow(ok_, cancel_));
  layout->setSizeConstraint(QLayout::SetFixedSize);
  connect(ok_, &QPushButton::clicked, this, [this] {
    presenter_.OK_Click();
    if (presenter_.hidden) accept();
  });
  connect(cancel_, &QPushButton::clicked, this, [this] {
    presenter_.Cancel_Click();
    reject();
  });
}

CalendriersDialog::CalendriersDialog(CalendriersPresenter& presenter, const Texts& texts, QWidget* parent)
    : QDialog(parent), presenter_(presenter) {
  setWindowTitle(presenter_.caption());
  from_ = new CalendarView(presenter_.calendarFrom(), this);
  to_ = new CalendarView(presenter_.calendarTo(), this);
  ok_ = new QPushButton(texts.get(txt::ButtonOk), this);
  cancel_ = new QPushButton(texts.get(txt::ButtonCancel), this);
  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel(presenter_.fromTitle(), this), 0, 0, Qt::AlignHCenter);
  grid->addWidget(new QLabel(presenter_.toTitle(), this), 0, 1, Qt::AlignHCenter);
  grid->addWidget(from_, 1, 0);
  grid->addWidget(to_, 1, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addLayout(buttonRow(ok_, cancel_));
  layout->setSizeConstraint(QLayout::SetFixedSize);
  connect(ok_, &QPushButton::clicked, this, [this] {
    presenter_.OK_Click();
    if (presenter_.hidden) accept();
  });
  connect(cancel_, &QPushButton::clicked, this, [this] {
    presenter_.Cancel_Click();
    reject();
  });
}

}  // namespace ksv
