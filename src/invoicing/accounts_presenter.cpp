#include "accounts_presenter.h"

#include "core/texts.h"

namespace ksv {

AccountsPresenter::AccountsPresenter(const AccountsContext& ctx) : ctx_(ctx) {}

void AccountsPresenter::Form_Load() {
  for (AccountCatalogue c : {AccountCatalogue::Designation, AccountCatalogue::Modification, AccountCatalogue::Payment})
    Dessin(c);
}

void AccountsPresenter::Dessin(AccountCatalogue catalogue) {
  Grid& g = grid(catalogue);
  g.lines = Dessin_Catalogue(ctx_, catalogue);
  if (g.row >= g.lines.size()) g.row = static_cast<int>(g.lines.size()) - 1;
}

void AccountsPresenter::selectRow(AccountCatalogue catalogue, int row) {
  current_ = catalogue;
  Grid& g = grid(catalogue);
  g.row = row >= 0 && row < g.lines.size() ? row : -1;
}

void AccountsPresenter::open(AccountUpdate::Mode mode) {
  Grid& g = grid(current_);
  const bool add = mode == AccountUpdate::Mode::Add;
  if (!showUpdate || (!add && !rowChosen())) return;
  AccountUpdate update(ctx_, current_, mode, add ? 0 : g.lines[g.row].rowid);
  showUpdate(update);
  if (!update.done) return;
  // After a delete the row that took its place is current: Dessin keeps the
  // position within the list. Otherwise the row written, where the sort put it.
  Dessin(current_);
  if (mode == AccountUpdate::Mode::Delete) return;
  g.row = -1;
  for (int i = 0; i < g.lines.size(); ++i)
    if (g.lines[i].rowid == update.rowid) g.row = i;
}

void AccountsPresenter::cdPrint_Click() {
  if (print) print(printedCatalogues());
}

QList<PrintedList> AccountsPresenter::printedCatalogues() const {
  static const QList<int> kWidths[] = {{4, 1}, {4, 1, 1, 1, 1, 1}, {1}};
  QList<PrintedList> out;
  for (AccountCatalogue c : {AccountCatalogue::Designation, AccountCatalogue::Modification, AccountCatalogue::Payment}) {
    PrintedList list;
    // One heading for the three lists that follow each other.
    if (out.isEmpty())
      list.heading = planningName.isEmpty() ? ctx_.texts.get(txt::AccTitle)
                                            : ctx_.texts.get(txt::AccTitle) + QLatin1String(" - ") + planningName;
    list.titles = accountTitles(c, ctx_.texts);
    list.widths = kWidths[static_cast<int>(c)];
    list.fixedPitch = true;
    for (const AccountLine& line : grid(c).lines) list.rows << line.cells;
    out << list;
  }
  return out;
}

}  // namespace ksv
