#include "customer_window.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/texts.h"
#include "custom_merge_dialog.h"
#include "customer_update_dialog.h"
#include "list_printer.h"

namespace ksv {

CustomerWindow::CustomerWindow(CustomerListPresenter& presenter, Messages& messages, const Texts& texts,
                               QWidget* parent)
    : QDialog(parent), presenter_(presenter) {
  setWindowTitle(presenter_.caption());
  search = new QLineEdit(this);
  search->setPlaceholderText(texts.get(txt::CustomerSearch));
  search->setClearButtonEnabled(true);
  ListClient = new QTableWidget(0, 3, this);
  ListClient->setEditTriggers(QAbstractItemView::NoEditTriggers);
  ListClient->setSelectionBehavior(QAbstractItemView::SelectRows);
  ListClient->setSelectionMode(QAbstractItemView::SingleSelection);
  ListClient->verticalHeader()->hide();
  ListClient->horizontalHeader()->setStretchLastSection(true);
  ListClient->setWordWrap(false);

  Modify = new QPushButton(texts.get(txt::CustomerModify), this);
  Unify = new QPushButton(texts.get(txt::CustomerUnify), this);
  Add_BL = new QPushButton(texts.get(txt::CustomerAddBL), this);
  Printer = new QPushButton(texts.get(txt::CustomerPrinter), this);
  Export = new QPushButton(texts.get(txt::CustomerExport), this);
  Copy = new QPushButton(texts.get(txt::CustomerCopy), this);
  Close = new QPushButton(texts.get(txt::CustomerClose), this);

  auto* top = new QHBoxLayout;
  top->addWidget(new QLabel(texts.get(txt::CustomerSearch), this));
  top->addWidget(search);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* b : {Modify, Unify, Add_BL, Printer, Export, Copy}) buttons->addWidget(b);
  buttons->addStretch();
  buttons->addWidget(Close);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(ListClient);
  layout->addLayout(buttons);
  resize(760, 520);

  presenter_.showCustomerUpdate = [this, &texts](CustomerUpdatePresenter& u) {
    return CustomerUpdateDialog::run(u, texts, this);
  };
  presenter_.showCustomMerge = [this, &texts] { return CustomMergeDialog::ask(texts, this); };
  presenter_.print = [this, &messages, &texts](const PrintedList& list) { printList(list, this, messages, texts); };
  presenter_.unload = [this] { accept(); };

  connect(search, &QLineEdit::textChanged, this, [this](const QString& text) {
    presenter_.setSearchText(text);
    refresh();
  });
  connect(ListClient, &QTableWidget::currentCellChanged, this, [this](int row) {
    presenter_.selectRow(row);
    const bool any = presenter_.selectedRow >= 0;
    Modify->setEnabled(any);
    Add_BL->setEnabled(any);
    Copy->setEnabled(any);
  });
  connect(ListClient, &QTableWidget::cellDoubleClicked, this, [this](int row) {
    presenter_.selectRow(row);
    if (presenter_.fromReservation) presenter_.Copy_Click();
  });
  auto act = [this](QPushButton* b, void (CustomerListPresenter::*f)()) {
    connect(b, &QPushButton::clicked, this, [this, f] {
      (presenter_.*f)();
      refresh();
    });
  };
  act(Modify, &CustomerListPresenter::Modify_Click);
  act(Unify, &CustomerListPresenter::Unify_Click);
  act(Add_BL, &CustomerListPresenter::Add_BL_Click);
  act(Printer, &CustomerListPresenter::Printer_Click);
  act(Export, &CustomerListPresenter::Export_Click);
  connect(Copy, &QPushButton::clicked, this, [this] { presenter_.Copy_Click(); });
  connect(Close, &QPushButton::clicked, this, &QDialog::reject);
  refresh();
}

void CustomerWindow::refresh() {
  setWindowTitle(presenter_.caption());
  for (QPushButton* b : {Modify, Unify, Add_BL, Printer, Export}) b->setVisible(presenter_.buttonsVisible());
  Copy->setVisible(presenter_.copyVisible());
  const QList<CustomerRow> rows = presenter_.visibleRows();
  const int keep = presenter_.selectedRow;
  const QSignalBlocker block(ListClient);
  ListClient->clearContents();
  ListClient->setHorizontalHeaderLabels(presenter_.columnTitles());
  ListClient->setRowCount(int(rows.size()));
  for (int r = 0; r < rows.size(); ++r) {
    // The grid shows the first line of a remark; the whole text is its tip.
    auto* remark = new QTableWidgetItem(QString(rows[r].Remarque).replace(QLatin1String("\r\n"), QLatin1String(" / ")));
    remark->setToolTip(rows[r].Remarque);
    ListClient->setItem(r, 0, new QTableWidgetItem(rows[r].Nom));
    ListClient->setItem(r, 1, new QTableWidgetItem(rows[r].Email));
    ListClient->setItem(r, 2, remark);
  }
  ListClient->resizeColumnToContents(0);
  ListClient->resizeColumnToContents(1);
  if (keep >= 0 && keep < rows.size()) {
    ListClient->setCurrentCell(keep, 0);
    ListClient->scrollToItem(ListClient->item(keep, 0));
  }
  const bool any = presenter_.selectedRow >= 0;
  Modify->setEnabled(any);
  Add_BL->setEnabled(any);
  Copy->setEnabled(any);
}

}  // namespace ksv
