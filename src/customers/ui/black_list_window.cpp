#include "black_list_window.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "black_list_update_dialog.h"
#include "core/texts.h"
#include "list_printer.h"

namespace ksv {

BlackListWindow::BlackListWindow(BlackListPresenter& presenter, Messages& messages, const Texts& texts, QWidget* parent)
    : QDialog(parent), presenter_(presenter) {
  setWindowTitle(texts.get(txt::BlackListTitle));
  search = new QLineEdit(this);
  search->setPlaceholderText(texts.get(txt::CustomerSearch));
  search->setClearButtonEnabled(true);
  ListBlack = new QTableWidget(0, 2, this);
  ListBlack->setEditTriggers(QAbstractItemView::NoEditTriggers);
  ListBlack->setSelectionBehavior(QAbstractItemView::SelectRows);
  ListBlack->setSelectionMode(QAbstractItemView::SingleSelection);
  ListBlack->verticalHeader()->hide();
  ListBlack->horizontalHeader()->setStretchLastSection(true);
  Add = new QPushButton(texts.get(txt::BlackListAdd), this);
  Modify = new QPushButton(texts.get(txt::CustomerModify), this);
  Delete = new QPushButton(texts.get(txt::BlackListDelete), this);
  Print = new QPushButton(texts.get(txt::CustomerPrinter), this);
  Close = new QPushButton(texts.get(txt::CustomerClose), this);

  auto* top = new QHBoxLayout;
  top->addWidget(new QLabel(texts.get(txt::CustomerSearch), this));
  top->addWidget(search);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* b : {Add, Modify, Delete, Print}) buttons->addWidget(b);
  buttons->addStretch();
  buttons->addWidget(Close);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(ListBlack);
  layout->addLayout(buttons);
  resize(620, 460);

  presenter_.showBlackListUpdate = [this, &texts](BlackListUpdatePresenter& u) {
    return BlackListUpdateDialog::run(u, texts, this);
  };
  presenter_.print = [this, &messages, &texts](const PrintedList& list) { printList(list, this, messages, texts); };

  connect(search, &QLineEdit::textChanged, this, [this](const QString& text) {
    presenter_.setSearchText(text);
    refresh();
  });
  connect(ListBlack, &QTableWidget::currentCellChanged, this, [this](int row) {
    presenter_.selectRow(row);
    Modify->setEnabled(presenter_.selectedRow >= 0);
    Delete->setEnabled(presenter_.selectedRow >= 0);
  });
  auto act = [this](QPushButton* b, void (BlackListPresenter::*f)()) {
    connect(b, &QPushButton::clicked, this, [this, f] {
      (presenter_.*f)();
      refresh();
    });
  };
  act(Add, &BlackListPresenter::Add_Click);
  act(Modify, &BlackListPresenter::Modify_Click);
  act(Delete, &BlackListPresenter::Delete_Click);
  act(Print, &BlackListPresenter::Print_Click);
  connect(Close, &QPushButton::clicked, this, &QDialog::reject);
  refresh();
}

void BlackListWindow::refresh() {
  const QList<BlackListRow> rows = presenter_.visibleRows();
  const int keep = presenter_.selectedRow;
  const QSignalBlocker block(ListBlack);
  ListBlack->clearContents();
  ListBlack->setHorizontalHeaderLabels(presenter_.columnTitles());
  ListBlack->setRowCount(int(rows.size()));
  for (int r = 0; r < rows.size(); ++r) {
    ListBlack->setItem(r, 0, new QTableWidgetItem(rows[r].Nom));
    auto* remark = new QTableWidgetItem(QString(rows[r].Remark).replace(QLatin1String("\r\n"), QLatin1String(" / ")));
    remark->setToolTip(rows[r].Remark);
    ListBlack->setItem(r, 1, remark);
  }
  ListBlack->resizeColumnToContents(0);
  if (keep >= 0 && keep < rows.size()) ListBlack->setCurrentCell(keep, 0);
  Modify->setEnabled(presenter_.selectedRow >= 0);
  Delete->setEnabled(presenter_.selectedRow >= 0);
}

}  // namespace ksv
