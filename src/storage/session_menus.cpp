#include "session_menus.h"

#include <cstddef>

namespace ksv {
namespace {

const char* const kNormalMenus[] = {"M_File", "M_View", "M_Booking", "M_Invoicing", "M_Customers", "M_Tools", "M_Aide"};
const char* const kConsultMenus[] = {"M_Consulting", "M_View", "M_Tools_C", "M_Aide"};
// What Empty_Board takes away in normal mode, and an open planning gives back.
const char* const kNeedPlanning[] = {"M_Close",  "M_Save",    "M_Extract", "M_Orlimbrook", "M_Zellatide", "M_Print",
                                     "M_View",   "M_Booking", "M_Invoicing", "M_Customers", "M_Purge",   "M_Trous"};

template <std::size_t N>
void showOnly(MenuModel& menus, const char* const (&visible)[N]) {
  for (const QString& m : menus.menus()) {
    bool shown = false;
    for (const char* v : visible) shown = shown || m == QLatin1String(v);
    menus.setVisible(m, shown);
  }
}

void principalEntries(MenuModel& menus, const PrincipalState& s, const char* openEntry, const char* rememberEntry) {
  const bool usable = !s.myPlanning.isEmpty() && s.myPlanningExists && s.myPlanning != s.currentFile;
  menus.setEnabled(QString::fromLatin1(openEntry), usable);
  menus.setEnabled(QString::fromLatin1(rememberEntry), s.myPlanning != s.currentFile);
}

}  // namespace

void Menus_Normal(MenuModel& menus, const PrincipalState& state) {
  showOnly(menus, kNormalMenus);
  const bool open = !state.currentFile.isEmpty();
  for (const char* e : kNeedPlanning) menus.setEnabled(QString::fromLatin1(e), open);
  menus.setEnabled(QStringLiteral("M_Example"), true);
  principalEntries(menus, state, "M_OPen_Main", "M_Remember_Main");
}

void Menus_Consult(MenuModel& menus, const PrincipalState& state) {
  showOnly(menus, kConsultMenus);
  const bool open = !state.currentFile.isEmpty();
  menus.setEnabled(QStringLiteral("M_View"), open);
  menus.setEnabled(QStringLiteral("M_CloseConsult"), open);
  menus.setEnabled(QStringLiteral("M_Example"), false);
  principalEntries(menus, state, "M_Consult_Open_Main", "M_Consult_Remember_Main");
}

void emptyBoardMenus(MenuModel& menus, bool normalMode, const PrincipalState& state) {
  if (normalMode) {
    for (const char* e : kNeedPlanning) menus.setEnabled(QString::fromLatin1(e), false);
    menus.setEnabled(QStringLiteral("M_Taxes"), true);
    menus.setEnabled(QStringLiteral("M_CompactRepair"), true);
  } else {
    menus.setEnabled(QStringLiteral("M_CloseConsult"), false);
    menus.setEnabled(QStringLiteral("M_View"), false);
  }
  const bool principal = !state.myPlanning.isEmpty() && state.myPlanningExists;
  menus.setEnabled(QString::fromLatin1(normalMode ? "M_OPen_Main" : "M_Consult_Open_Main"), principal);
  menus.setEnabled(QString::fromLatin1(normalMode ? "M_Remember_Main" : "M_Consult_Remember_Main"), false);
}

}  // namespace ksv
