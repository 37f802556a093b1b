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
  // The board that draws the open planning; its handlers hold the refresh here.
  void setBoard(BoardWidget* board);

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

  // The board's handlers hold the refresh timer while they work; holds nest,
  // and neither a redraw nor a start inside one lets the timer run.
  void holdRefresh();
  void releaseRefresh();
  bool refreshActive() const { return refresh_.isActive(); }

 private:
  QString filter() const;
  MainWindow& window_;
  Messages& messages_;
  const Texts& texts_;
  PlanningSession* session_ = nullptr;
  BoardWidget* board_ = nullptr;
  QTimer refresh_;
  int hourglassDepth_ = 0;
  int refreshHolds_ = 0;
};

// Caps Lock as the keyboard's LED tells it; off when no LED can be read.
bool capsLockOn();

}  // namespace ksv
