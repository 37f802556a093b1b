#pragma once
// The menu bars of the Planning window as plain data: which entries exist,
// under which menu, with which caption, and whether each is visible, enabled
// or checked. The window draws it; the session's rules change it.

#include <vector>

#include <QString>
#include <QStringList>

#include "texts.h"

namespace ksv {

struct MenuEntry {
  QString name;    // M_...
  int text = 0;    // caption entry of the text table
  QString parent;  // empty for a menu of the bar
  QString shortcut;  // key sequence in portable text, as "Ctrl+O"; empty for none
  bool separatorBefore = false;
  bool checkable = false;
  bool visible = true;
  bool enabled = true;
  bool checked = false;
};

class MenuModel {
 public:
  // The normal-mode bar (M_File ... M_Aide) and the consultation bar
  // (M_Consulting, M_Tools_C), all entries enabled and the consultation
  // menus hidden.
  static MenuModel standard();

  const std::vector<MenuEntry>& entries() const { return entries_; }
  const MenuEntry* find(const QString& name) const;
  QStringList menus() const;                             // top-level names, in order
  QStringList children(const QString& menu) const;       // entry names, in order

  void setVisible(const QString& name, bool visible);
  void setEnabled(const QString& name, bool enabled);
  void setChecked(const QString& name, bool checked);

 private:
  MenuEntry* findMutable(const QString& name);
  std::vector<MenuEntry> entries_;
};

}  // namespace ksv
