#pragma once
// The mouse and keyboard gestures on the board, headless: what a press on a
// label or an empty cell reads, how a dragged booking lands, the gap caption
// and the drag timers. The widget forwards its events here in board twips and
// paints what these fields say; it never decides where a booking goes.

#include <functional>
#include <memory>

#include <QDate>
#include <QString>
#include <QtGlobal>

#include "gesture_records.h"
#include "twips.h"

namespace ksv {

class BoardDrawing;
class Messages;
class Texts;
struct LoadedOptions;

// What a gesture needs from the window and the open planning.
struct GestureHooks {
  // True in normal mode; consultation ("N") leaves labels and cells dead.
  std::function<bool()> normalMode;
  std::function<void()> stopRefreshTimer;
  std::function<void()> startRefreshTimer;
  // The board's redraw after a change.
  std::function<void()> Dessiner_Ecran;
  // Moves the vertical scroll bar; its change redraws the rows.
  std::function<void(int value)> setVScroll;
  // A fresh buffer over the open planning, its RS and R_TB already set;
  // null when no planning is open.
  std::function<std::unique_ptr<GestureRecords>()> newRecords;
  // The dialogs of a clicked booking, for that buffer. Empty openers open nothing.
  std::function<BookingDialogOpeners(GestureRecords&)> openers;
  // ReservationCreer, modal, with Res_L and DD_L of the buffer filled.
  std::function<void(GestureRecords&)> ReservationCreer;
};

// The gap caption shown while the left button is held on an empty cell.
struct GapCaption {
  TwipRect rect;  // width 0: as wide as its text
  QString text;
  bool visible = false;
};

class BoardGestures {
 public:
  BoardGestures(BoardDrawing& drawing, const LoadedOptions& options, Messages& messages, const Texts& texts,
                GestureHooks hooks);
  ~BoardGestures();

  // The booking under the pointer, as the last label press read it.
  int LabIndex = -1;
  Qt::MouseButton LabButton = Qt::NoButton;
  int LabX = 0, LabY = 0;
  QString SelResource, OrigResource;
  QString SelName;
  int SelHowMany = 0;
  QString SelSplit, SelEmail, SelInvNb, SelRemark;
  int SelColor = 0;
  QString SelGroupId;
  int SelGroupNb = 0;
  bool SelLocked = false;
  QDate SelFirst, SelLast, OrigFirst, OrigLast;
  int DragX = 0, DragY = 0;
  int DropX = 0, DropY = 0;

  // The rectangle carried while a booking is dragged (LabDragDrop), in twips.
  TwipRect LabDragDrop;
  bool dragging() const { return dragging_; }
  GapCaption Trou;

  // The drag timers: the widget runs a QTimer while each is on.
  bool TimerVPlus = false;
  bool TimerVMoins = false;

  // A press on label `index`; (x, y) is the pointer inside the label.
  void Lab_MouseDown(int index, Qt::MouseButton button, int x, int y);
  // A press outside any label, on board coordinates; and its release.
  void Form_MouseDown(Qt::MouseButton button, int x, int y);
  void Form_MouseUp();

  // Carrying a booking over the board, the day and month strips and the
  // horizontal scroll bar. `state` 0 is entering, 1 leaving.
  void Form_DragOver(int x, int y);
  // The carried rectangle follows the pointer wherever it is.
  void dragMove(int x, int y);
  void Jour_DragOver(int state);
  void Mois_DragOver(int state);
  void HScroll_DragOver(int state);
  void TimerVPlus_Timer();
  void TimerVMoins_Timer();

  // The five drops. The pointer is on the board for the form, inside the
  // label, scroll bar or cell for the others.
  void Form_DragDrop(int x, int y);
  void Lab_DragDrop(int index, int x, int y);
  void HScroll_DragDrop(int x, int y);
  void Jour_DragDrop(int index, int x, int y);
  void Mois_DragDrop(int index, int x, int y);
  // A drag given up (the pointer left with Escape): nothing is written.
  void cancelDrag();

  // Enter on the cell cursor: the booking under the cell opens, an empty cell
  // creates one, as the right button would.
  void Enter_Cell(int row, int column);
  // The front label over the night of a cell, or -1.
  int labelOnCell(int row, int column) const;
  // The front label at a board point, or -1.
  int labelAt(int x, int y) const;

 private:
  bool idle() const;
  void readLabel(int index);
  void openClicked();
  void drop();
  void showGap();
  void stopRefresh();
  void startRefresh();
  bool vScrollAtMin() const;
  bool vScrollAtMax() const;

  BoardDrawing& drawing_;
  const LoadedOptions& options_;
  Messages& messages_;
  const Texts& texts_;
  GestureHooks hooks_;
  std::unique_ptr<GestureRecords> records_;
  bool dragging_ = false;
};

}  // namespace ksv
