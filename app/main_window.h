#pragma once
// The Planning window: the board area and the menu bars drawn from the menu
// model. It shows and forwards; the rules live in the headless libraries.

#include <functional>
#include <map>

#include <QMainWindow>

#include "core/menu_model.h"
#include "core/texts.h"

class QAction;
class QMenu;

namespace ksv {

class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(const Texts& texts, QWidget* parent = nullptr);

  MenuModel& menuModel() { return menus_; }
  // Redraws the bars from the model after a rule changed it.
  void applyMenus();
  // Entries without a handler stay disabled whatever the model says.
  void setHandler(const QString& entry, std::function<void()> handler);
  QAction* action(const QString& entry) const;
  QMenu* menu(const QString& name) const;
  // Runs when the window closes (Form_Unload).
  std::function<void()> onClose;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildMenus();

  const Texts& texts_;
  MenuModel menus_;
  std::map<QString, QAction*> actions_;
  std::map<QString, QMenu*> menuWidgets_;
  std::map<QString, std::function<void()>> handlers_;
};

}  // namespace ksv
