#pragma once
// The menu bars of the two modes and of the window with no planning:
// Menus_Normal, Menus_Consult and the menu part of Empty_Board. Consultation
// has no booking, invoicing or customer menu; that, with the gestures' own test
// of the mode, is what keeps a consultation workstation read-only.

#include <QString>

#include "core/menu_model.h"

namespace ksv {

struct PrincipalState {
  QString myPlanning;   // MyPlanning of the ini file
  QString currentFile;  // the planning chosen, empty when none
  bool myPlanningExists = false;
};

void Menus_Normal(MenuModel& menus, const PrincipalState& state);
void Menus_Consult(MenuModel& menus, const PrincipalState& state);

// Entries that need an open planning are disabled; the principal planning can
// still be opened when it exists.
void emptyBoardMenus(MenuModel& menus, bool normalMode, const PrincipalState& state);

}  // namespace ksv
