#include "qt_session_view.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>

#include "board/ui/board_widget.h"
#include "core/messages.h"
#include "core/texts.h"
#include "main_window.h"
#include "net/ui/pass_word_dialog.h"
#include "net/ui/users_list_dialog.h"
#include "net/users_list.h"

namespace ksv {

QtSessionView::QtSessionView(MainWindow& window, Messages& messages, const Texts& texts)
    : window_(window), messages_(messages), texts_(texts) {
  QObject::connect(&refresh_, &QTimer::timeout, &window_, [this] {
    if (session_) session_->refreshTick(QApplication::activeWindow() == &window_);
  });
}

void QtSessionView::setBoard(BoardWidget* board) {
  board_ = board;
  if (board_) board_->setRefreshHold([this] { holdRefresh(); }, [this] { releaseRefresh(); });
}

void QtSessionView::setCaption(const QString& caption) { window_.setWindowTitle(caption); }
void QtSessionView::applyMenus() { window_.applyMenus(); }

void QtSessionView::setHourglass(bool on) {
  // Balanced, so that nested steps never leave the pointer stuck.
  if (on) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ++hourglassDepth_;
  } else if (hourglassDepth_ > 0) {
    QApplication::restoreOverrideCursor();
    --hourglassDepth_;
  }
}

void QtSessionView::Dessiner_Ecran() {
  refresh_.stop();
  if (board_ && session_ && session_->IsOpen) {
    board_->drawing().setSession(&session_->objects());
    session_->drawing = true;
    // With the availability view on, the counts are drawn again, not the bookings.
    if (board_->drawing().availabilityChecked)
      board_->Redraw(QString());
    else
      board_->Dessiner_Ecran();
    session_->drawing = false;
  } else {
    window_.centralWidget()->update();
  }
  if (refreshHolds_ == 0 && session_ && session_->refreshWanted()) refresh_.start(session_->refreshInterval());
}

void QtSessionView::eraseBoard() {
  if (!board_) return;
  board_->drawing().setSession(nullptr);
  board_->drawing().view.close();
  board_->eraseBoard();
}

void QtSessionView::RestoreDayColor() {
  if (board_) board_->RestoreDayColor();
}

void QtSessionView::scrollTo(int vertical, int horizontal) {
  if (board_) board_->scrollTo(vertical, horizontal);
}

int QtSessionView::todayOffset() const { return board_ ? board_->TodayOffset() : 0; }

QString QtSessionView::filter() const {
  // The table keeps the "label|pattern" form; the dialog wants "label (pattern)".
  return texts_.get(txt::PlanningFilter).section(QLatin1Char('|'), 0, 0);
}

QString QtSessionView::askOpenFileName(const QString& initialDir) {
  return QFileDialog::getOpenFileName(&window_, QString(), initialDir, filter());
}

QString QtSessionView::askSaveFileName(const QString& initialDir, const QString& suggested) {
  QFileDialog dialog(&window_, QString(), initialDir, filter());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(QStringLiteral("ksv"));
  // The dialog itself never overwrites: every command asks its own question.
  dialog.setOption(QFileDialog::DontConfirmOverwrite, true);
  if (!suggested.isEmpty()) dialog.selectFile(suggested);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return QString();
  return dialog.selectedFiles().front();
}

void QtSessionView::showUsers(int rosterMessage) {
  int message = rosterMessage;
  UsersContext context;
  context.openPlanning = session_ ? session_->openFile : QString();
  context.currentFile = session_ ? session_->current.full() : QString();
  context.askFile = [this] { return askOpenFileName(QDir::homePath()); };
  context.show = [this](const UsersListPresenter& p) { UsersListDialog::show(p, &window_); };
  M_Users(message, context, messages_, texts_);
}

bool QtSessionView::passWord(const QString& expected) { return PassWordDialog::ask(expected, texts_, &window_); }

void QtSessionView::stopRefreshTimer() { refresh_.stop(); }
void QtSessionView::startRefreshTimer(int milliseconds) {
  if (refreshHolds_ == 0) refresh_.start(milliseconds);
}

void QtSessionView::holdRefresh() {
  if (refreshHolds_++ == 0) refresh_.stop();
}

void QtSessionView::releaseRefresh() {
  if (refreshHolds_ > 0 && --refreshHolds_ == 0 && session_ && session_->refreshWanted())
    refresh_.start(session_->refreshInterval());
}
void QtSessionView::closeWindow() { window_.close(); }

bool capsLockOn() {
  const QDir leds(QStringLiteral("/sys/class/leds"));
  for (const QString& led : leds.entryList({QStringLiteral("*capslock*")}, QDir::Dirs | QDir::NoDotAndDotDot)) {
    QFile f(leds.filePath(led) + QStringLiteral("/brightness"));
    if (f.open(QIODevice::ReadOnly) && f.readAll().trimmed() != "0") return true;
  }
  return false;
}

}  // namespace ksv
