#pragma once
// The Planning window's side of the session: what the session asks of the
// window (caption, menus, pointer, board, file dialogs, the users list and the
// code dialog) done with Qt.

#include <QTimer>

#include "storage/planning_session.h"

namespace ksv {

class IniFile;
class BoardWidget;
class MainWindow;
class Messages;
class Texts;

class QtSessionView final : public SessionView {
 public:
  QtSessionView(MainWindow& window, Messages& messages, const Texts& texts);
  void attach(PlanningSession* session) { session_ = session; }
  // The board that draws the open planning.
  void setBoard(BoardWidget* board) { board_ = board; }

  void setCaption(const QString& caption) override;
  void applyMenus() override;
  void setHourglass(bool on) override;
  void Dessiner_Ecran() override;
  void eraseBoard() override;
  void RestoreDayColor() override;
  void scrollTo(int vertical, int horizontal) override;
  int todayOffset() const override;
  QString askOpenFileName(const QString& initialDir) override;
  QString askSaveFileName(const QString& initialDir, const QString& suggested) override;
  void showUsers(int rosterMessage) override;
  bool passWord(const QString& expected) override;
  void stopRefreshTimer() override;
  void startRefreshTimer(int milliseconds) override;
  void closeWindow() override;

 private:
  QString filter() const;
  MainWindow& window_;
  Messages& messages_;
  const Texts& texts_;
  PlanningSession* session_ = nullptr;
  BoardWidget* board_ = nullptr;
  QTimer refresh_;
  int hourglassDepth_ = 0;
};

// Caps Lock as the keyboard's LED tells it; off when no LED can be read.
bool capsLockOn();

}  // namespace ksv
