#pragma once
// `Customer`: the window of the customer list or the agent list. It shows
// the lines of the query in force, filters them by the search box, and
// carries out the window's buttons through the operations of customer_ops.h.
//
// The dialogs it opens are reached through hooks the widgets side fills;
// tests fill them with lambdas.

#include <functional>
#include <optional>

#include <QList>
#include <QString>

#include "customer_context.h"
#include "customer_ops.h"

namespace ksv {

class CustomerUpdatePresenter;

// Where a name from the list goes: the booking dialog that asked for it.
struct CustomerCopyTarget {
  QString Nom, Email, Remarque;
  bool Flg_Search = false;
};

class CustomerListPresenter {
 public:
  explicit CustomerListPresenter(CustomerContext ctx) : ctx_(ctx) {}

  // The query name in force: kRQ_Customer or kRQ_Agent.
  QString queryName = kRQ_Customer;
  bool agents() const { return queryName == kRQ_Agent; }

  // From a booking dialog: Copy shown, the editing buttons hidden.
  bool fromReservation = false;
  bool buttonsVisible() const { return !fromReservation; }
  bool copyVisible() const { return fromReservation; }

  // The line worked on: old values and its row in the visible lines (-1: none).
  QString oldNom, oldEmail, oldRemarque;
  int selectedRow = -1;

  // Hooks to the dialogs.
  std::function<bool(CustomerUpdatePresenter&)> showCustomerUpdate;  // modal; true once closed by OK
  std::function<std::optional<MergeChoice>()> showCustomMerge;        // nothing when cancelled
  std::function<void(const PrintedList&)> print;
  std::function<void(const QString& nom, const QString& remark)> addToBlackList;  // BlackList_Add_Commun
  std::function<void()> redraw;   // Dessiner_Ecran after bookings changed
  std::function<void()> unload;   // closes the window

  QString caption() const;
  QStringList columnTitles() const;

  // M_CustomerList_Click / M_AgentList_Click: the list in force, filled.
  void M_CustomerList_Click();
  void M_AgentList_Click();
  // The list called from a booking dialog; selects the line of `name`.
  void Customer_From_Reservation(const QString& name, CustomerCopyTarget& target, bool agentList = false);

  // Reads the list again and keeps the search.
  void Dessin_Customer();
  const QList<CustomerRow>& allRows() const { return rows_; }
  // The lines that pass the search box.
  QList<CustomerRow> visibleRows() const;
  QString searchText() const { return search_; }
  void setSearchText(const QString& text);

  // Selects a visible line and keeps its values as the old ones.
  void selectRow(int row);
  std::optional<CustomerRow> selected() const;

  void Copy_Click();
  void Modify_Click();
  void Add_BL_Click();
  void Unify_Click();
  void Printer_Click();
  void Export_Click();

 private:
  void selectWhere(const std::function<bool(const CustomerRow&)>& test);

  CustomerContext ctx_;
  QList<CustomerRow> rows_;
  QStringList folded_;  // each line's texts folded once, for the search box
  QString search_;
  CustomerCopyTarget* target_ = nullptr;
};

}  // namespace ksv
