#include "customer_list.h"

#include "core/messages.h"
#include "core/texts.h"
#include "customer_update.h"
#include "search_fold.h"
#include "storage/sqlite_db.h"

namespace ksv {

QString CustomerListPresenter::caption() const {
  return ctx_.texts.get(agents() ? txt::AgentsCaption : txt::CustomersCaption);
}

QStringList CustomerListPresenter::columnTitles() const {
  return {ctx_.texts.get(txt::CustomerColName), ctx_.texts.get(txt::CustomerColEmail),
          ctx_.texts.get(txt::CustomerColRemark)};
}

void CustomerListPresenter::M_CustomerList_Click() {
  queryName = kRQ_Customer;
  fromReservation = false;
  Dessin_Customer();
}

void CustomerListPresenter::M_AgentList_Click() {
  queryName = kRQ_Agent;
  fromReservation = false;
  Dessin_Customer();
}

void CustomerListPresenter::Customer_From_Reservation(const QString& name, CustomerCopyTarget& target,
                                                      bool agentList) {
  queryName = agentList ? kRQ_Agent : kRQ_Customer;
  fromReservation = true;
  target_ = &target;
  Dessin_Customer();
  const QString wanted = name.trimmed();
  selectWhere([&wanted](const CustomerRow& r) { return sameText(r.Nom, wanted); });
}

void CustomerListPresenter::Dessin_Customer() {
  rows_ = ksv::Dessin_Customer(ctx_, queryName);
  folded_.clear();
  for (const CustomerRow& r : rows_)
    folded_ << foldForSearch(r.Nom + QChar(0x1F) + r.Email + QChar(0x1F) + r.Remarque);
  selectedRow = -1;
}

QList<CustomerRow> CustomerListPresenter::visibleRows() const {
  const QString term = foldForSearch(search_.trimmed());
  if (term.isEmpty()) return rows_;
  QList<CustomerRow> out;
  for (qsizetype i = 0; i < rows_.size(); ++i)
    if (folded_[i].contains(term)) out << rows_[i];
  return out;
}

void CustomerListPresenter::setSearchText(const QString& text) {
  const std::optional<CustomerRow> keep = selected();
  search_ = text;
  selectedRow = -1;
  if (keep) selectWhere([&keep](const CustomerRow& r) { return r == *keep; });
}

void CustomerListPresenter::selectRow(int row) {
  const QList<CustomerRow> rows = visibleRows();
  if (row < 0 || row >= rows.size()) {
    selectedRow = -1;
    return;
  }
  selectedRow = row;
  oldNom = rows[row].Nom;
  oldEmail = rows[row].Email;
  oldRemarque = rows[row].Remarque;
}

std::optional<CustomerRow> CustomerListPresenter::selected() const {
  const QList<CustomerRow> rows = visibleRows();
  if (selectedRow < 0 || selectedRow >= rows.size()) return std::nullopt;
  return rows[selectedRow];
}

void CustomerListPresenter::selectWhere(const std::function<bool(const CustomerRow&)>& test) {
  const QList<CustomerRow> rows = visibleRows();
  for (int i = 0; i < rows.size(); ++i)
    if (test(rows[i])) {
      selectRow(i);
      return;
    }
}

void CustomerListPresenter::Copy_Click() {
  const auto row = selected();
  if (!row || !target_) return;
  target_->Nom = row->Nom;
  target_->Email = row->Email;
  target_->Remarque = row->Remarque;
  target_->Flg_Search = true;
  if (unload) unload();
}

void CustomerListPresenter::Modify_Click() {
  const auto row = selected();
  if (!row || !showCustomerUpdate) return;
  CustomerUpdatePresenter update(ctx_.messages, ctx_.texts);
  update.load(row->Nom, row->Email, row->Remarque);
  if (!showCustomerUpdate(update) || !update.changed) return;
  const CustomerRow now{update.Nom, update.Email, update.Remark};
  try {
    if (Customer_Modify(ctx_, *row, now) > 0 && redraw) redraw();
  } catch (const StorageError& e) {
    ctx_.messages.critical(QString::fromUtf8(e.what()));
  }
  Dessin_Customer();
  selectWhere([&now](const CustomerRow& r) { return sameCustomer(r, now); });
}

void CustomerListPresenter::Add_BL_Click() {
  const auto row = selected();
  if (row && addToBlackList) addToBlackList(row->Nom, row->Remarque);
}

void CustomerListPresenter::Unify_Click() {
  if (!showCustomMerge) return;
  const std::optional<MergeChoice> choice = showCustomMerge();
  if (!choice) return;
  const std::optional<CustomerRow> keep = selected();
  try {
    const MergeCounts counts = Customer_Merge(ctx_, queryName, *choice);
    if (counts.updated > 0 && redraw) redraw();
  } catch (const StorageError& e) {
    ctx_.messages.critical(QString::fromUtf8(e.what()));
  }
  Dessin_Customer();
  if (keep) selectWhere([&keep](const CustomerRow& r) { return sameText(r.Nom, keep->Nom); });
}

void CustomerListPresenter::Printer_Click() {
  if (print) print(customerPrintedList(ctx_.texts, queryName, rows_));
}

void CustomerListPresenter::Export_Click() { Customer_Export(ctx_, queryName); }

}  // namespace ksv
