#pragma once
// The walk of the manual control panels: a marker moved item by item over
// the resource cells or the booking labels drawn on the board, so that the
// right button's actions need no precise pointing.

#include "board_drawing.h"

namespace ksv {

class ManualControl {
 public:
  enum class Kind { Resources, Bookings };

  ManualControl(BoardDrawing& board, Kind kind) : board_(board), kind_(kind) {}

  Kind kind() const { return kind_; }
  // A position in Res_Lib or Lab.
  int index() const { return index_; }
  // How many items of the array are drawn now.
  int drawnCount() const;
  // Arriere, Avant and the buttons acting on the marked item.
  bool itemButtonsEnabled() const { return drawnCount() > 0; }

  // Places the marker on the current index of the array as drawn now; after
  // a scroll the marker stays at its place in the array.
  void walk();
  // Starts again from the first item: the array has been redrawn.
  void restart();
  void Arriere_Click();
  void Avant_Click();
  // Hides the marker; the panel closes.
  void Sortir_Click();

  // The marked resource's name; empty when none.
  QString markedResource() const;
  // The marked label's position in Lab; -1 when none.
  int markedLabel() const;

 private:
  void move(int by);

  BoardDrawing& board_;
  Kind kind_;
  int index_ = 0;
};

}  // namespace ksv
