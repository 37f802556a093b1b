#include "menu_model.h"

#include <utility>

namespace ksv {

MenuModel MenuModel::standard() {
  MenuModel m;
  auto menu = [&](const char* name, int text, bool visible = true) {
    MenuEntry e;
    e.name = QString::fromLatin1(name);
    e.text = text;
    e.visible = visible;
    m.entries_.push_back(e);
  };
  auto item = [&](const char* parent, const char* name, int text, bool separatorBefore = false, bool checkable = false) {
    MenuEntry e;
    e.name = QString::fromLatin1(name);
    e.text = text;
    e.parent = QString::fromLatin1(parent);
    e.separatorBefore = separatorBefore;
    e.checkable = checkable;
    m.entries_.push_back(e);
  };

  menu("M_Consulting", txt::M_Consulting, false);
  item("M_Consulting", "M_OpenConsult", txt::M_OpenConsult);
  item("M_Consulting", "M_Consult_Open_Main", txt::M_Consult_Open_Main);
  item("M_Consulting", "M_Consult_Remember_Main", txt::M_Consult_Remember_Main);
  item("M_Consulting", "M_CloseConsult", txt::M_CloseConsult);
  item("M_Consulting", "M_ConsultToUpdate", txt::M_ConsultToUpdate, true);
  item("M_Consulting", "M_ExitConsult", txt::M_ExitConsult, true);

  menu("M_File", txt::M_File);
  item("M_File", "M_New", txt::M_New);
  item("M_File", "M_OPen", txt::M_OPen);
  item("M_File", "M_OPen_Main", txt::M_OPen_Main);
  item("M_File", "M_Remember_Main", txt::M_Remember_Main);
  item("M_File", "M_Close", txt::M_Close);
  item("M_File", "M_Save", txt::M_Save, true);
  item("M_File", "M_Extract", txt::M_Extract);
  item("M_File", "M_CompactRepair", txt::M_CompactRepair);
  item("M_File", "M_Purge", txt::M_Purge);
  item("M_File", "M_Print", txt::M_Print, true);
  item("M_File", "M_UpdateToConsult", txt::M_UpdateToConsult, true);
  item("M_File", "M_Exit", txt::M_Exit, true);

  menu("M_View", txt::M_View);
  item("M_View", "M_Availability", txt::M_Availability, false, true);
  item("M_View", "M_ChangeLib", txt::M_ChangeLib, true);
  item("M_View", "M_Couleur_Lib", txt::M_Couleur_Lib);
  item("M_View", "M_Couleur_Fond", txt::M_Couleur_Fond);
  item("M_View", "M_BackColor", txt::M_BackColor);
  item("M_View", "M_ForeColor", txt::M_ForeColor);

  menu("M_Booking", txt::M_Booking);
  item("M_Booking", "M_Trous", txt::M_Trous);
  item("M_Booking", "M_Alarm", txt::M_Alarm);
  item("M_Booking", "M_BookingHistory", txt::M_BookingHistory);
  item("M_Booking", "M_MnlResource", txt::M_MnlResource, true);
  item("M_Booking", "M_MnlBooking", txt::M_MnlBooking);

  menu("M_Invoicing", txt::M_Invoicing);
  item("M_Invoicing", "M_CashSale", txt::M_CashSale);
  item("M_Invoicing", "M_Unpaid", txt::M_Unpaid, true);
  item("M_Invoicing", "M_Paid", txt::M_Paid);
  item("M_Invoicing", "M_InvoicePeriod", txt::M_InvoicePeriod);
  item("M_Invoicing", "M_InvoiceResult", txt::M_InvoiceResult, true);
  item("M_Invoicing", "M_BookingResult", txt::M_BookingResult);
  item("M_Invoicing", "M_Taxes", txt::M_Taxes, true);

  menu("M_Customers", txt::M_Customers);
  item("M_Customers", "M_CustomerList", txt::M_CustomerList);
  item("M_Customers", "M_AgentList", txt::M_AgentList);
  item("M_Customers", "M_BlackList", txt::M_BlackList);
  item("M_Customers", "M_SendEmail", txt::M_SendEmail, true);
  item("M_Customers", "M_CreditCard", txt::M_CreditCard);

  menu("M_Tools", txt::M_Tools);
  item("M_Tools", "M_DefineOption", txt::M_DefineOption);
  item("M_Tools", "M_SaveOption", txt::M_SaveOption);
  item("M_Tools", "M_RestoreOption", txt::M_RestoreOption);
  item("M_Tools", "M_Users", txt::M_Users, true);
  item("M_Tools", "M_Memorize", txt::M_Memorize, true);
  item("M_Tools", "M_Restore", txt::M_Restore);
  item("M_Tools", "M_Orlimbrook", txt::M_Orlimbrook, true);
  item("M_Tools", "M_Zellatide", txt::M_Zellatide);
  item("M_Tools", "M_EliminerNull", txt::M_EliminerNull, true);

  menu("M_Tools_C", txt::M_Tools_C, false);
  item("M_Tools_C", "M_DefineOption_C", txt::M_DefineOption_C);

  menu("M_Aide", txt::M_Aide);
  item("M_Aide", "M_Example", txt::M_Example);
  item("M_Aide", "M_WebSite", txt::M_WebSite);
  item("M_Aide", "M_About", txt::M_About, true);

  // The keys people expect; each twin of the other bar has the same key.
  const std::pair<const char*, const char*> keys[] = {{"M_OPen", "Ctrl+O"}, {"M_OpenConsult", "Ctrl+O"},
                                                       {"M_Print", "Ctrl+P"}, {"M_Exit", "Ctrl+Q"},
                                                       {"M_ExitConsult", "Ctrl+Q"}};
  for (const auto& [name, key] : keys) m.findMutable(QString::fromLatin1(name))->shortcut = QString::fromLatin1(key);
  return m;
}

const MenuEntry* MenuModel::find(const QString& name) const {
  for (const MenuEntry& e : entries_)
    if (e.name == name) return &e;
  return nullptr;
}

MenuEntry* MenuModel::findMutable(const QString& name) {
  for (MenuEntry& e : entries_)
    if (e.name == name) return &e;
  return nullptr;
}

QStringList MenuModel::menus() const {
  QStringList out;
  for (const MenuEntry& e : entries_)
    if (e.parent.isEmpty()) out << e.name;
  return out;
}

QStringList MenuModel::children(const QString& menu) const {
  QStringList out;
  for (const MenuEntry& e : entries_)
    if (e.parent == menu) out << e.name;
  return out;
}

void MenuModel::setVisible(const QString& name, bool visible) {
  if (MenuEntry* e = findMutable(name)) e->visible = visible;
}

void MenuModel::setEnabled(const QString& name, bool enabled) {
  if (MenuEntry* e = findMutable(name)) e->enabled = enabled;
}

void MenuModel::setChecked(const QString& name, bool checked) {
  if (MenuEntry* e = findMutable(name)) e->checked = checked;
}

}  // namespace ksv
