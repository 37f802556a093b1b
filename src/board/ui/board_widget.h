#pragma once
// The planning board on the screen: paints what BoardDrawing computed, in its
// stacking order, converting twips to pixels here and nowhere else. The two
// scroll bars and the Today button live on it; presses on day and resource
// cells are forwarded as signals.

#include <functional>

#include <QWidget>

#include "board/board_drawing.h"

class QLabel;
class QPainter;
class QPushButton;
class QScrollBar;
class QTimer;

namespace ksv {

class BoardGestures;

class BoardWidget : public QWidget {
  Q_OBJECT
 public:
  BoardWidget(BoardDrawing& drawing, const LoadedOptions& options, const Texts& texts, QWidget* parent = nullptr);

  BoardDrawing& drawing() { return drawing_; }
  QScrollBar* HScroll() const { return hScroll_; }
  QScrollBar* VScroll() const { return vScroll_; }
  QPushButton* Today() const { return today_; }

  // TodayOffset and the horizontal range, from the board's dates.
  void setDayRange(int hScrollMax, int todayOffset);
  int TodayOffset() const { return todayOffset_; }

  // Runs Dessiner_Ecran (or Redraw) and repaints only the parts that moved.
  void Dessiner_Ecran();
  void Redraw(const QString& what);
  void eraseBoard();
  // Clears the labels only, as the availability view does.
  void EraseReservation();
  void RestoreDayColor();
  // Puts both bars at a position without drawing twice.
  void scrollTo(int vertical, int horizontal);

  // The day summary shown under a pressed day cell; empty hides it.
  void showInfoJour(int column, const QString& text);
  void hideInfoJour();

  // The gestures on labels and empty cells, the drag and the keyboard.
  // Without them a press on a label only raises labelPressed.
  void setGestures(BoardGestures* gestures);
  // The keyboard's cell cursor, in view rows and columns.
  int cursorRow() const { return cursorRow_; }
  int cursorColumn() const { return cursorColumn_; }
  void setCursorCell(int row, int column);

  // The refresh timer stays off while a handler works on the data: a tick
  // would otherwise redraw under an open popup or a half-done command.
  // Holds nest; the last one released lets the timer run again.
  void setRefreshHold(std::function<void()> hold, std::function<void()> release);
  class RefreshHold {
   public:
    explicit RefreshHold(BoardWidget& board);
    ~RefreshHold();
    RefreshHold(const RefreshHold&) = delete;
    RefreshHold& operator=(const RefreshHold&) = delete;

   private:
    BoardWidget& board_;
  };

  int twipsPerPixel() const { return tpp_; }
  QRect pixels(const TwipRect& r) const;
  // The tooltip of the label or resource heading under `p`: labels are often
  // cut short, and their split and group marks with them. Empty elsewhere.
  QString toolTipAt(QPoint p) const;

 signals:
  void dayPressed(int column, Qt::MouseButton button, QPoint globalPos);
  // A press on the month strip: Mois_Click.
  void monthPressed();
  void dayReleased();
  void resourcePressed(int row, Qt::MouseButton button, QPoint globalPos);
  void labelPressed(int index, Qt::MouseButton button, QPoint globalPos);
  void firstFocus();
  // The labels or resource cells were drawn again (or erased).
  void bookingsRedrawn();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void HScroll_Change(int value);
  void VScroll_Change(int value);
  void Today_Click();
  void placeControls();
  void repaintMoved(int days, int resources);
  int labelAt(QPoint p) const;
  // Gestures: what lies under a point during a drag, the drag's end, the
  // timers, the gap caption and the cursor.
  enum class Strip { None, Jour, Mois, HScroll };
  Strip stripAt(int x, int y, int& index) const;
  void dragOver(int x, int y);
  void dropAt(int x, int y);
  void syncDragTimers();
  void syncTrou();
  void paintGestures(QPainter& p);
  void pressOnGrid(Qt::MouseButton button, QPoint p, int label);
  // True when the release ended a drag.
  bool releaseOnGrid(Qt::MouseButton button, QPoint p);
  void moveCursorBy(int rows, int columns);

  BoardDrawing& drawing_;
  const LoadedOptions& options_;
  int tpp_ = 15;
  int todayOffset_ = 0;
  bool settingBars_ = false;
  QScrollBar* hScroll_;
  QScrollBar* vScroll_;
  QPushButton* today_;
  QLabel* infoJour_;
  int dayLineColumn_ = -1;
  int resourceLineRow_ = -1;
  BoardGestures* gestures_ = nullptr;
  QTimer* timerVPlus_ = nullptr;
  QTimer* timerVMoins_ = nullptr;
  QLabel* trou_ = nullptr;
  Strip dragStrip_ = Strip::None;
  int cursorRow_ = 0;
  int cursorColumn_ = 0;
  std::function<void()> holdRefresh_, releaseRefresh_;
};

}  // namespace ksv
