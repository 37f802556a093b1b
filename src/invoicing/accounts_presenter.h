#pragma once
// The `Accounts` window: the three catalogues side by side in GridD, GridM
// and GridP, the grid last clicked being the current list, and the commands
// that open the row dialogs and print the catalogues.

#include <array>
#include <functional>

#include <QList>
#include <QString>

#include "accounts_catalogue.h"
#include "accounts_update.h"
#include "customers/printed_list.h"

namespace ksv {

class AccountsPresenter {
 public:
  explicit AccountsPresenter(const AccountsContext& ctx);

  // Modal AccountsD, AccountsM or AccountsP over the presenter given.
  std::function<void(AccountUpdate&)> showUpdate;
  std::function<void(const QList<PrintedList>&)> print;
  QString planningName;  // printed in the heading

  // Form_Load: the three grids drawn.
  void Form_Load();
  void Dessin(AccountCatalogue catalogue);
  const QList<AccountLine>& lines(AccountCatalogue catalogue) const { return grid(catalogue).lines; }

  // A click in a grid: it becomes the current list, `row` its current row (-1: none).
  void selectRow(AccountCatalogue catalogue, int row);
  AccountCatalogue current() const { return current_; }
  int currentRow(AccountCatalogue catalogue) const { return grid(catalogue).row; }
  // Modify and Delete need a current row in the current list.
  bool rowChosen() const { return currentRow(current_) >= 0; }

  void CdAdd_Click() { open(AccountUpdate::Mode::Add); }
  void CdModify_Click() { open(AccountUpdate::Mode::Modify); }
  void CdDelete_Click() { open(AccountUpdate::Mode::Delete); }
  void cdPrint_Click();

  // The three catalogues as they go to paper, one after the other.
  QList<PrintedList> printedCatalogues() const;

 private:
  struct Grid {
    QList<AccountLine> lines;
    int row = -1;
  };
  Grid& grid(AccountCatalogue c) { return grids_[static_cast<int>(c)]; }
  const Grid& grid(AccountCatalogue c) const { return grids_[static_cast<int>(c)]; }
  void open(AccountUpdate::Mode mode);

  AccountsContext ctx_;
  std::array<Grid, 3> grids_;
  AccountCatalogue current_ = AccountCatalogue::Designation;
};

}  // namespace ksv
