#pragma once
// `Accounts`: the services, modifiers and payments side by side, with the
// commands on the current list; and the menu entry that opens it.

#include <QDialog>

#include "invoicing/accounts_presenter.h"

class QPushButton;
class QTableWidget;

namespace ksv {

class IniFile;
class PlanningSession;

class AccountsWindow final : public QDialog {
  Q_OBJECT
 public:
  // `NbDecimal`: the decimals of the tax calculator.
  AccountsWindow(AccountsPresenter& presenter, Messages& messages, const Texts& texts, const Regional& regional,
                 int NbDecimal, QWidget* parent = nullptr);
  void refresh();

  QTableWidget *GridD = nullptr, *GridM = nullptr, *GridP = nullptr;
  QPushButton *CdAdd = nullptr, *CdModify = nullptr, *CdDelete = nullptr, *cdPrint = nullptr, *CdExit = nullptr;
  QPushButton *cdInvoicingGroups = nullptr, *cdAccountingGroups = nullptr;

 private:
  QTableWidget* grid(AccountCatalogue catalogue) const;
  void enableCommands();

  AccountsPresenter& presenter_;
};

struct AccountsWindowContext {
  PlanningSession& session;
  IniFile& ini;  // the decimals of section Company
  Messages& messages;
  const Texts& texts;
  const Clock& clock;
  const Regional& regional;
};

// M_Taxes: the window over the open planning.
void showAccounts(const AccountsWindowContext& ctx, QWidget* parent);

}  // namespace ksv
