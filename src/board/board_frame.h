#pragma once
// The board's fixed grid: the frame in force and where each of its picture
// elements stands, all in twips. Draw_Planning_Frame recomputes it; widgets
// place their cells from it and convert to pixels themselves.

#include "screen_frame.h"
#include "twips.h"

namespace ksv {

class BoardFrame {
 public:
  // What a rebuild must undo: the counts of the cells made last time.
  struct Rebuild {
    bool eraseOld = false;
    int oldDayNb = 0;
    int oldResNb = 0;
  };

  // Set by the options dialog when the frame numbers or the font scale changed.
  bool FrameChanged = false;

  // The first call of a run reads the frame for the screen; a call after the
  // options changed it keeps that frame. Both then apply the overrides and
  // compute the derived values, and FrameChanged is cleared.
  Rebuild Draw_Planning_Frame(const ScreenDescription& screen, const ScreenDrawing& overrides);

  const ScreenFrame& frame() const { return frame_; }
  bool built() const { return built_; }

  int BoardLeft() const { return frame_.BoardLeft; }
  int BoardTop() const { return frame_.BoardTop; }
  int PasH() const { return frame_.PasH; }
  int PasV() const { return frame_.PasV; }
  int ResNb() const { return frame_.ResNb; }
  int ResW() const { return frame_.ResW; }
  int DayNb() const { return frame_.DayNb; }
  int LabE() const { return frame_.LabE; }

  int GridTop() const { return GridTop_; }
  int GridBottom() const { return GridBottom_; }
  int GridLeft() const { return GridLeft_; }
  int GridRight() const { return GridRight_; }

  // The picture elements, by index.
  TwipRect Mois(int i) const;
  TwipRect Jour(int i) const;
  TwipRect Res_Lib(int i) const;
  TwipLine MonthLine() const;
  TwipRect Rectangle() const;
  TwipLine Line_V(int i) const;  // 0 .. DayNb - 2
  TwipLine Line_H(int i) const;  // 0 .. ResNb - 2
  TwipRect Today() const;
  TwipRect HScroll() const;
  TwipRect VScroll() const;
  // A full-height band on a day column (Event1, Event2, WkEnd, HachPast from 0).
  TwipRect dayBand(int column, int days = 1) const;
  // Top of a booking label on a resource row: it sits on the bottom of the row.
  int labelTop(int row) const { return GridTop_ + row * frame_.PasV + frame_.PasV - frame_.LabE; }

  // Presses on the board count only strictly inside the grid.
  bool strictlyInsideGrid(int x, int y) const;
  // Row and column under a point of the grid; -1 when the step is zero.
  int rowAt(int y) const;
  int columnAt(int x) const;

  // The whole area the elements cover, so that a window can size itself.
  int extentRight() const;
  int extentBottom() const;

 private:
  void computeDerived();

  ScreenFrame frame_;
  bool built_ = false;
  int GridTop_ = 0;
  int GridBottom_ = 0;
  int GridLeft_ = 0;
  int GridRight_ = 0;
};

}  // namespace ksv
