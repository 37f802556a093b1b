#include "alarm_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "booking_detail_panel.h"
#include "core/texts.h"

namespace ksv {

AlarmDialog::AlarmDialog(AlarmPresenter& presenter, const Texts& texts, const QString& dateFormat, QWidget* parent)
    : QDialog(parent), p_(presenter), dateFormat_(dateFormat) {
  setObjectName(QStringLiteral("Alarm"));
  setWindowTitle(p_.caption);
  const QStringList checks = texts.list(txt::AlarmChecks, 2);
  const QStringList buttons = texts.list(txt::AlarmButtons, 3);

  auto* grid = new QGridLayout;
  // Where each list stands: the day's lists on the left, the overstays
  // beside them, and the stays to look at across the foot, for their reasons.
  // Row, column, rows and columns taken.
  const int places[AlarmPresenter::kLists][4] = {{0, 0, 1, 1}, {0, 1, 1, 1}, {1, 0, 1, 1},
                                                {1, 1, 1, 1}, {0, 2, 2, 1}, {2, 0, 1, 3}};
  for (int i = 0; i < AlarmPresenter::kLists; ++i) {
    auto* box = new QGroupBox(p_.titles[std::size_t(i)], this);
    auto* layout = new QVBoxLayout(box);
    auto* countText = new QLabel(p_.countTexts[std::size_t(i)], box);
    auto* check = new QCheckBox(checks[0], box);
    check->setObjectName(QStringLiteral("Ck_Alarm_%1").arg(i));
    check->setChecked(p_.Ck_Alarm[std::size_t(i)]);
    connect(check, &QCheckBox::toggled, this, [this, i](bool on) { p_.Ck_Alarm[std::size_t(i)] = on; });
    auto* head = new QHBoxLayout;
    head->addWidget(countText, 1);
    head->addWidget(check);
    auto* list = new QListWidget(box);
    list->setObjectName(QStringLiteral("List_Alarm_%1").arg(i));
    list->setMinimumWidth(150);
    connect(list, &QListWidget::currentRowChanged, this, [this, i](int row) {
      if (showing_ || row < 0) return;
      p_.List_Alarm_Click(i, row);
      showSelection();
    });
    connect(list, &QListWidget::itemDoubleClicked, this, [this, i, list](QListWidgetItem* item) {
      p_.List_Alarm_DblClick(i, list->row(item));
      showLists();
    });
    layout->addLayout(head);
    layout->addWidget(list);
    frames_[std::size_t(i)] = box;
    countTexts_[std::size_t(i)] = countText;
    checks_[std::size_t(i)] = check;
    lists_[std::size_t(i)] = list;
    grid->addWidget(box, places[i][0], places[i][1], places[i][2], places[i][3]);
  }

  detail_ = new BookingDetailPanel(texts, p_.canWrite, this);
  detail_->remarkLeft = [this](const QString& remark) { p_.Alarm_Save_Customer(remark); };

  auto* print = new QPushButton(buttons[0], this);
  print->setObjectName(QStringLiteral("Print"));
  connect(print, &QPushButton::clicked, this, [this] { p_.Alarm_Print(); });
  auto* mail = new QPushButton(buttons[1], this);
  mail->setObjectName(QStringLiteral("cmdSendEmail"));
  connect(mail, &QPushButton::clicked, this, [this] { p_.cmdSendEmail_Click(); });
  auto* ok = new QPushButton(buttons[2], this);
  ok->setObjectName(QStringLiteral("OK"));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &AlarmDialog::OK_Click);
  openAtStart_ = new QCheckBox(checks[1], this);
  openAtStart_->setObjectName(QStringLiteral("OpenAtStart"));
  openAtStart_->setChecked(p_.openAtStart);
  connect(openAtStart_, &QCheckBox::toggled, this, [this](bool on) { p_.openAtStart = on; });

  auto* side = new QVBoxLayout;
  side->addWidget(detail_);
  side->addStretch();
  auto* buttonRow = new QHBoxLayout;
  buttonRow->addWidget(openAtStart_);
  buttonRow->addStretch();
  buttonRow->addWidget(print);
  buttonRow->addWidget(mail);
  buttonRow->addWidget(ok);
  auto* top = new QHBoxLayout;
  top->addLayout(grid, 3);
  top->addLayout(side, 2);
  auto* all = new QVBoxLayout(this);
  all->addLayout(top);
  all->addLayout(buttonRow);
  showLists();
}

void AlarmDialog::showLists() {
  showing_ = true;
  for (int i = 0; i < AlarmPresenter::kLists; ++i) {
    QListWidget* list = lists_[std::size_t(i)];
    list->clear();
    list->addItems(p_.List_Alarm[std::size_t(i)]);
    for (int row = 0; row < list->count(); ++row) list->item(row)->setToolTip(list->item(row)->text());
  }
  // Extension ? only when the option asks for it; To look at only when it holds something.
  frames_[AlarmPresenter::OverStay]->setVisible(p_.overStayShown);
  frames_[AlarmPresenter::ToLookAt]->setVisible(p_.exceptionsShown());
  showing_ = false;
  showSelection();
}

void AlarmDialog::showSelection() {
  showing_ = true;
  for (int i = 0; i < AlarmPresenter::kLists; ++i) {
    QListWidget* list = lists_[std::size_t(i)];
    if (i == p_.selList)
      list->setCurrentRow(p_.selRow);
    else {
      list->clearSelection();
      list->setCurrentRow(-1);
    }
  }
  showing_ = false;
  detail_->show(p_.detail, dateFormat_);
}

void AlarmDialog::OK_Click() {
  p_.OK_Click();
  accept();
}

}  // namespace ksv
