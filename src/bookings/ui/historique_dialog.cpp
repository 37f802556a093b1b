#include "historique_dialog.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "booking_detail_panel.h"
#include "core/texts.h"

namespace ksv {

HistoriqueDialog::HistoriqueDialog(HistoriquePresenter& presenter, const Texts& texts, const QString& dateFormat,
                                   QWidget* parent)
    : QDialog(parent), p_(presenter), dateFormat_(dateFormat) {
  setObjectName(QStringLiteral("Historique"));
  setWindowTitle(p_.caption());
  const QStringList buttons = texts.list(txt::HistoriqueButtons, 4);

  auto* options = new QHBoxLayout;
  auto* group = new QButtonGroup(this);
  const QStringList captions = p_.filterCaptions();
  const char* names[4] = {"optAll", "optPast", "optIn", "optFutur"};
  for (int i = 0; i < 4; ++i) {
    auto* option = new QRadioButton(captions[i], this);
    option->setObjectName(QString::fromLatin1(names[i]));
    option->setChecked(i == int(p_.filter));
    group->addButton(option, i);
    options->addWidget(option);
  }
  connect(group, &QButtonGroup::idClicked, this, [this](int id) {
    p_.setFilter(HistoriquePresenter::Filter(id));
    showLines();
  });

  search_ = new QLineEdit(this);
  search_->setObjectName(QStringLiteral("Search"));
  search_->setPlaceholderText(buttons[3]);
  search_->setClearButtonEnabled(true);
  connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
    p_.setSearchText(text);
    showLines();
  });

  ListHistorique_ = new QTableWidget(0, 2, this);
  ListHistorique_->setObjectName(QStringLiteral("ListHistorique"));
  ListHistorique_->setHorizontalHeaderLabels(p_.columnTitles());
  ListHistorique_->setSelectionBehavior(QAbstractItemView::SelectRows);
  ListHistorique_->setSelectionMode(QAbstractItemView::SingleSelection);
  ListHistorique_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  ListHistorique_->verticalHeader()->hide();
  ListHistorique_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  ListHistorique_->horizontalHeader()->setSectionsClickable(true);
  ListHistorique_->setMinimumWidth(340);
  connect(ListHistorique_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
    p_.sortByColumn(column);
    showLines();
  });
  // Mouse and movement keys alike move the current row.
  connect(ListHistorique_, &QTableWidget::currentCellChanged, this, [this](int row) {
    if (showing_ || row < 0) return;
    p_.selectRow(row);
    showDetail();
  });

  detail_ = new BookingDetailPanel(texts, p_.canWrite, this);
  detail_->remarkLeft = [this](const QString& remark) { p_.saveRemark(remark); };

  auto* print = new QPushButton(buttons[0], this);
  print->setObjectName(QStringLiteral("Print"));
  connect(print, &QPushButton::clicked, this, [this] { p_.Historique_Print(); });
  auto* mail = new QPushButton(buttons[1], this);
  mail->setObjectName(QStringLiteral("cmdSendEmail"));
  connect(mail, &QPushButton::clicked, this, [this] { p_.cmdSendEmail_Click(); });
  auto* close = new QPushButton(buttons[2], this);
  close->setObjectName(QStringLiteral("Close"));
  connect(close, &QPushButton::clicked, this, &QDialog::accept);

  auto* left = new QVBoxLayout;
  left->addLayout(options);
  left->addWidget(search_);
  left->addWidget(ListHistorique_, 1);
  auto* side = new QVBoxLayout;
  side->addWidget(detail_);
  side->addStretch();
  auto* top = new QHBoxLayout;
  top->addLayout(left, 1);
  top->addLayout(side, 1);
  auto* buttonRow = new QHBoxLayout;
  buttonRow->addStretch();
  buttonRow->addWidget(print);
  buttonRow->addWidget(mail);
  buttonRow->addWidget(close);
  auto* all = new QVBoxLayout(this);
  all->addLayout(top);
  all->addLayout(buttonRow);
  resize(820, 520);
  showLines();
}

void HistoriqueDialog::showLines() {
  showing_ = true;
  const auto& lines = p_.lines();
  ListHistorique_->setRowCount(int(lines.size()));
  for (int r = 0; r < lines.size(); ++r) {
    ListHistorique_->setItem(r, 0, new QTableWidgetItem(lines[r].Nom));
    ListHistorique_->setItem(r, 1, new QTableWidgetItem(lines[r].dateText));
  }
  if (p_.selectedRow >= 0) ListHistorique_->setCurrentCell(p_.selectedRow, 0);
  showing_ = false;
  showDetail();
}

void HistoriqueDialog::showDetail() { detail_->show(p_.detail, dateFormat_); }

}  // namespace ksv
