#include "main_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QPalette>

namespace ksv {

MainWindow::MainWindow(const Texts& texts, QWidget* parent)
    : QMainWindow(parent), texts_(texts), menus_(MenuModel::standard()) {
  setObjectName(QStringLiteral("Planning"));
  setWindowTitle(texts_.get(txt::Product));
  // The board area stays empty until a planning is open.
  auto* board = new QWidget(this);
  board->setObjectName(QStringLiteral("Board"));
  board->setAutoFillBackground(true);
  QPalette pal = board->palette();
  pal.setColor(QPalette::Window, QColor(0xC0, 0xC0, 0xC0));
  board->setPalette(pal);
  setCentralWidget(board);
  buildMenus();
  setHandler(QStringLiteral("M_Exit"), [this] { close(); });
  setHandler(QStringLiteral("M_ExitConsult"), [this] { close(); });
  resize(1024, 700);
}

void MainWindow::buildMenus() {
  for (const QString& name : menus_.menus()) {
    const MenuEntry* m = menus_.find(name);
    QMenu* menu = menuBar()->addMenu(texts_.get(m->text));
    menu->setObjectName(name);
    menuWidgets_[name] = menu;
    for (const QString& child : menus_.children(name)) {
      const MenuEntry* e = menus_.find(child);
      if (e->separatorBefore) menu->addSeparator();
      QAction* a = menu->addAction(texts_.get(e->text));
      a->setObjectName(child);
      a->setCheckable(e->checkable);
      connect(a, &QAction::triggered, this, [this, child] {
        const auto it = handlers_.find(child);
        if (it != handlers_.end()) it->second();
      });
      actions_[child] = a;
    }
  }
  applyMenus();
}

void MainWindow::applyMenus() {
  for (const auto& [name, menu] : menuWidgets_) {
    const MenuEntry* m = menus_.find(name);
    menu->menuAction()->setVisible(m->visible);
    menu->menuAction()->setEnabled(m->enabled);
  }
  for (const auto& [name, a] : actions_) {
    const MenuEntry* e = menus_.find(name);
    a->setShortcut(QKeySequence(e->shortcut, QKeySequence::PortableText));
    a->setVisible(e->visible);
    a->setEnabled(e->enabled && handlers_.count(name) > 0);
    a->setChecked(e->checked);
  }
}

void MainWindow::setHandler(const QString& entry, std::function<void()> handler) {
  handlers_[entry] = std::move(handler);
  applyMenus();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (onClose) onClose();
  event->accept();
}

QAction* MainWindow::action(const QString& entry) const {
  const auto it = actions_.find(entry);
  return it == actions_.end() ? nullptr : it->second;
}

QMenu* MainWindow::menu(const QString& name) const {
  const auto it = menuWidgets_.find(name);
  return it == menuWidgets_.end() ? nullptr : it->second;
}

}  // namespace ksv
