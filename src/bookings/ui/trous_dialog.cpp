#include "trous_dialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

#include "board/ui/board_colors.h"
#include "board/ui/calendar_view.h"
#include "booking_widgets.h"
#include "core/texts.h"

namespace ksv {

namespace {
// The booking's own line stands out in this colour (blue-green-red).
constexpr int kOwnLine = 0xFFC0C0;
// One step of the bar's track: a month.
constexpr int kMonthStep = 30;
}  // namespace

TrousDialog::TrousDialog(TrousSearch& trous, const LoadedOptions& options, const Texts& texts, QWidget* parent)
    : QDialog(parent), trous_(trous) {
  setObjectName(QStringLiteral("Trous"));
  setWindowTitle(texts.get(txt::TrousCaption));
  trous_.Form_Load();
  const QStringList labels = texts.list(txt::TrousLabels, 6);

  const QDate lowest = trous_.FirstDate.isValid() ? trous_.FirstDate : trous_.from().addYears(-1);
  const QDate highest = trous_.LastDate.isValid() ? trous_.LastDate : trous_.to().addYears(1);
  const DateCalendar calF = makeCalendar(texts, this, QStringLiteral("CalF"), lowest, highest, trous_.from(),
                                         [this](QDate d) {
                                           trous_.setPeriod(d, trous_.to());
                                           showSearch();
                                         });
  const DateCalendar calT = makeCalendar(texts, this, QStringLiteral("CalT"), lowest, highest, trous_.to(),
                                         [this](QDate d) {
                                           trous_.setPeriod(trous_.from(), d);
                                           showSearch();
                                         });
  calF_ = calF.calendar;
  calT_ = calT.calendar;

  nbJour_ = new QLineEdit(this);
  nbJour_->setObjectName(QStringLiteral("NB_Jour"));
  nbJour_->setReadOnly(true);
  category_ = new QComboBox(this);
  category_->setObjectName(QStringLiteral("Category"));
  const std::vector<CategoryItem> categories = trousCategories(options, texts);
  fillCategoryList(*category_, categories);
  category_->setCurrentIndex(trous_.Category + 1);
  auto* resource = new QLineEdit(trous_.Resource, this);
  resource->setObjectName(QStringLiteral("Resource"));
  resource->setReadOnly(true);
  nbFree_ = new QLineEdit(this);
  nbFree_->setObjectName(QStringLiteral("Nb_Free"));
  nbFree_->setReadOnly(true);

  lesTrous_ = new QTableWidget(0, 3, this);
  lesTrous_->setObjectName(QStringLiteral("LesTrous"));
  lesTrous_->setHorizontalHeaderLabels(texts.list(txt::TrousColumns, 3));
  lesTrous_->setSelectionBehavior(QAbstractItemView::SelectRows);
  lesTrous_->setSelectionMode(QAbstractItemView::SingleSelection);
  lesTrous_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  lesTrous_->verticalHeader()->hide();
  lesTrous_->setMinimumHeight(200);

  hScroll_ = new QScrollBar(Qt::Horizontal, this);
  hScroll_->setObjectName(QStringLiteral("HScroll"));
  hScroll_->setRange(0, std::max(0, int(lowest.daysTo(highest))));
  hScroll_->setSingleStep(1);
  hScroll_->setPageStep(kMonthStep);

  auto* ok = new QPushButton(texts.get(txt::ButtonOk), this);
  ok->setObjectName(QStringLiteral("OK"));
  ok->setDefault(true);
  auto* cancel = new QPushButton(texts.get(txt::ButtonCancel), this);
  cancel->setObjectName(QStringLiteral("Cancel"));

  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel(labels[0], this), 0, 0, Qt::AlignHCenter);
  grid->addWidget(new QLabel(labels[1], this), 0, 1, Qt::AlignHCenter);
  grid->addWidget(calF.view, 1, 0);
  grid->addWidget(calT.view, 1, 1);
  auto* fields = new QGridLayout;
  QWidget* row[] = {nbJour_, category_, resource, nbFree_};
  for (int i = 0; i < 4; ++i) {
    fields->addWidget(new QLabel(labels[2 + i], this), i, 0);
    fields->addWidget(row[i], i, 1);
  }
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addWidget(hScroll_);
  layout->addLayout(fields);
  layout->addWidget(lesTrous_);
  layout->addLayout(buttons);

  connect(category_, &QComboBox::currentIndexChanged, this, [this, categories](int index) {
    if (showing_ || index < 0) return;
    styleClosedList(*category_, categories[size_t(index)].back, categories[size_t(index)].fore);
    trous_.setCategory(index - 1);
    showSearch();
  });
  connect(hScroll_, &QScrollBar::valueChanged, this, [this](int position) {
    if (showing_) return;
    trous_.HScroll_Change(position);
    showSearch();
  });
  connect(ok, &QPushButton::clicked, this, &TrousDialog::OK_Click);
  connect(lesTrous_, &QTableWidget::cellDoubleClicked, this, &TrousDialog::OK_Click);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

  const int c = trous_.Category + 1;
  if (c >= 0 && c < int(categories.size()))
    styleClosedList(*category_, categories[size_t(c)].back, categories[size_t(c)].fore);
  showSearch();
}

void TrousDialog::showSearch() {
  showing_ = true;
  calF_->SetDate(trous_.from());
  calT_->SetDate(trous_.to());
  nbJour_->setText(QString::number(trous_.NB_Jour()));
  hScroll_->setValue(trous_.scrollPosition());
  nbFree_->setText(QString::number(trous_.Nb_Free()));
  const QStringList lines = trous_.gridLines();
  lesTrous_->clearSelection();
  lesTrous_->setRowCount(int(lines.size()));
  for (int r = 0; r < lines.size(); ++r) {
    const QStringList cells = lines[r].split(QLatin1Char('\t'));
    for (int col = 0; col < 3; ++col) {
      auto* item = new QTableWidgetItem(cells.value(col));
      if (r == trous_.selected()) item->setBackground(bgrColor(kOwnLine));
      lesTrous_->setItem(r, col, item);
    }
  }
  if (trous_.selected() >= 0) lesTrous_->selectRow(trous_.selected());
  showing_ = false;
}

void TrousDialog::OK_Click() {
  const int line = lesTrous_->currentRow();
  choice_ = lesTrous_->selectionModel()->hasSelection() ? trous_.Trous_OK_Click(line) : std::nullopt;
  accept();
}

std::optional<HoleChoice> showTrous(TrousSearch& trous, const LoadedOptions& options, const Texts& texts,
                                    QWidget* parent) {
  TrousDialog dialog(trous, options, texts, parent);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.choice();
}

void M_Trous(Availability& availability, const Clock& clock, Messages& messages, const Texts& texts,
             const LoadedOptions& options, QDate FirstDate, QDate LastDate, QWidget* parent) {
  TrousSearch trous(availability, clock, messages, texts);
  trous.Mode = 0;
  trous.FirstDate = FirstDate;
  trous.LastDate = LastDate;
  trous.Category = -1;
  showTrous(trous, options, texts, parent);
}

}  // namespace ksv
