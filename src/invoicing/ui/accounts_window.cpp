#include "accounts_window.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "account_update_dialog.h"
#include "config/ini_file.h"
#include "core/number_text.h"
#include "core/texts.h"
#include "customers/ui/list_printer.h"
#include "storage/planning_session.h"

namespace ksv {
namespace {

constexpr AccountCatalogue kCatalogues[] = {AccountCatalogue::Designation, AccountCatalogue::Modification,
                                            AccountCatalogue::Payment};

QTableWidget* makeGrid(const QStringList& titles, const char* name, QWidget* parent) {
  auto* g = new QTableWidget(0, static_cast<int>(titles.size()), parent);
  g->setObjectName(QLatin1String(name));
  g->setHorizontalHeaderLabels(titles);
  g->setEditTriggers(QAbstractItemView::NoEditTriggers);
  g->setSelectionBehavior(QAbstractItemView::SelectRows);
  g->setSelectionMode(QAbstractItemView::SingleSelection);
  g->verticalHeader()->hide();
  g->verticalHeader()->setDefaultSectionSize(g->fontMetrics().height() + 8);
  g->horizontalHeader()->setHighlightSections(false);
  g->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  for (int c = 1; c < titles.size(); ++c) g->horizontalHeader()->setSectionResizeMode(c, QHeaderView::ResizeToContents);
  return g;
}

}  // namespace

AccountsWindow::AccountsWindow(AccountsPresenter& presenter, Messages& messages, const Texts& texts,
                               const Regional& regional, int NbDecimal, QWidget* parent)
    : QDialog(parent), presenter_(presenter) {
  setObjectName(QStringLiteral("Accounts"));
  setWindowTitle(texts.get(txt::AccTitle));
  GridD = makeGrid(accountTitles(AccountCatalogue::Designation, texts), "GridD", this);
  GridM = makeGrid(accountTitles(AccountCatalogue::Modification, texts), "GridM", this);
  GridP = makeGrid(accountTitles(AccountCatalogue::Payment, texts), "GridP", this);
  CdAdd = new QPushButton(texts.get(txt::AccAdd), this);
  CdModify = new QPushButton(texts.get(txt::AccModify), this);
  CdDelete = new QPushButton(texts.get(txt::AccDelete), this);
  cdPrint = new QPushButton(texts.get(txt::AccPrint), this);
  CdExit = new QPushButton(texts.get(txt::AccExit), this);
  cdInvoicingGroups = new QPushButton(texts.get(txt::AccInvoicingGroups), this);
  cdAccountingGroups = new QPushButton(texts.get(txt::AccAccountingGroups), this);
  // The group windows are still to come.
  cdInvoicingGroups->setEnabled(false);
  cdAccountingGroups->setEnabled(false);

  auto* grids = new QHBoxLayout;
  grids->addWidget(GridD, 3);
  grids->addWidget(GridM, 5);
  grids->addWidget(GridP, 2);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* b : {CdAdd, CdModify, CdDelete, cdPrint}) buttons->addWidget(b);
  buttons->addStretch();
  for (QPushButton* b : {cdInvoicingGroups, cdAccountingGroups}) buttons->addWidget(b);
  buttons->addSpacing(24);
  buttons->addWidget(CdExit);
  // Room for the longest captions of either language.
  for (QPushButton* b : {CdAdd, CdModify, CdDelete, cdPrint, cdInvoicingGroups, cdAccountingGroups, CdExit})
    b->setMinimumWidth(b->sizeHint().width() + 16);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grids);
  layout->addLayout(buttons);
  resize(1100, 520);

  presenter_.showUpdate = [this, &texts, &regional, NbDecimal](AccountUpdate& u) {
    AccountUpdateDialog(u, texts, regional, NbDecimal, this).exec();
  };
  presenter_.print = [this, &messages, &texts](const QList<PrintedList>& lists) {
    printLists(lists, this, messages, texts, txt::AccPrintFailed);
  };

  for (AccountCatalogue c : kCatalogues) {
    QTableWidget* g = grid(c);
    // The grid last clicked is the current list: the others let their row go.
    connect(g, &QTableWidget::cellClicked, this, [this, c](int row) {
      presenter_.selectRow(c, row);
      for (AccountCatalogue other : kCatalogues)
        if (other != c) grid(other)->clearSelection();
      enableCommands();
    });
    connect(g, &QTableWidget::currentCellChanged, this, [this, c, g](int row) {
      if (g->hasFocus()) presenter_.selectRow(c, row);
      enableCommands();
    });
    connect(g, &QTableWidget::cellDoubleClicked, this, [this, c](int row) {
      presenter_.selectRow(c, row);
      presenter_.CdModify_Click();
      refresh();
    });
  }
  auto act = [this](QPushButton* b, void (AccountsPresenter::*f)()) {
    connect(b, &QPushButton::clicked, this, [this, f] {
      (presenter_.*f)();
      refresh();
    });
  };
  act(CdAdd, &AccountsPresenter::CdAdd_Click);
  act(CdModify, &AccountsPresenter::CdModify_Click);
  act(CdDelete, &AccountsPresenter::CdDelete_Click);
  act(cdPrint, &AccountsPresenter::cdPrint_Click);
  connect(CdExit, &QPushButton::clicked, this, &QDialog::accept);
  refresh();
  // The keys act on the current list.
  grid(presenter_.current())->setFocus();
}

QTableWidget* AccountsWindow::grid(AccountCatalogue catalogue) const {
  switch (catalogue) {
    case AccountCatalogue::Designation: return GridD;
    case AccountCatalogue::Modification: return GridM;
    case AccountCatalogue::Payment: return GridP;
  }
  return GridD;
}

void AccountsWindow::refresh() {
  for (AccountCatalogue c : kCatalogues) {
    QTableWidget* g = grid(c);
    const QSignalBlocker block(g);
    const QList<AccountLine>& lines = presenter_.lines(c);
    g->clearContents();
    g->setRowCount(static_cast<int>(lines.size()));
    for (int r = 0; r < lines.size(); ++r) {
      for (int col = 0; col < lines[r].cells.size(); ++col) {
        auto* item = new QTableWidgetItem(lines[r].cells[col]);
        // Figures to the right, flags in the middle.
        if (col > 0) item->setTextAlignment(Qt::AlignVCenter | (col < 3 ? Qt::AlignRight : Qt::AlignHCenter));
        g->setItem(r, col, item);
      }
    }
    const int row = presenter_.currentRow(c);
    if (c == presenter_.current() && row >= 0) {
      g->setCurrentCell(row, 0);
      g->selectRow(row);
    } else {
      g->clearSelection();
    }
  }
  enableCommands();
}

void AccountsWindow::enableCommands() {
  CdModify->setEnabled(presenter_.rowChosen());
  CdDelete->setEnabled(presenter_.rowChosen());
}

void showAccounts(const AccountsWindowContext& ctx, QWidget* parent) {
  if (!ctx.session.IsOpen || !ctx.session.connection()) return;
  // A missing option reads as two decimals.
  const int NbDecimal =
      static_cast<int>(val(ctx.ini.GetValue(QStringLiteral("Company"), QStringLiteral("NbDecimal"), QStringLiteral("2"))));
  AccountsPresenter presenter({ctx.session.connection()->db(), ctx.clock, ctx.messages, ctx.texts, ctx.regional});
  presenter.planningName = QFileInfo(ctx.session.openFile).completeBaseName();
  presenter.Form_Load();
  AccountsWindow window(presenter, ctx.messages, ctx.texts, ctx.regional, NbDecimal, parent);
  window.exec();
  // The session's catalogue lists follow what was changed.
  SessionObjects& o = ctx.session.objects();
  for (Recordset* rs : {&o.DesignationSort, &o.ModificationSort, &o.PaymentSort})
    if (rs->isOpen()) rs->requery();
}

}  // namespace ksv
