#include "board_frame.h"

#include <algorithm>

namespace ksv {

BoardFrame::Rebuild BoardFrame::Draw_Planning_Frame(const ScreenDescription& screen, const ScreenDrawing& overrides) {
  Rebuild rebuild;
  if (!FrameChanged) {
    frame_ = ReadScreenFrame(screen);
  } else {
    rebuild.eraseOld = built_;
    rebuild.oldDayNb = frame_.DayNb;
    rebuild.oldResNb = frame_.ResNb;
  }
  applyScreenDrawing(frame_, overrides);
  computeDerived();
  built_ = true;
  FrameChanged = false;
  return rebuild;
}

void BoardFrame::computeDerived() {
  GridTop_ = frame_.BoardTop + frame_.MonthHeight + frame_.DayHeight;
  GridBottom_ = GridTop_ + frame_.PasV * frame_.ResNb;
  GridLeft_ = frame_.BoardLeft + frame_.ResW;
  GridRight_ = GridLeft_ + frame_.PasH * frame_.DayNb;
}

TwipRect BoardFrame::Mois(int i) const {
  return {GridLeft_ + i * frame_.PasH, frame_.BoardTop, frame_.PasH, frame_.MonthHeight};
}

TwipRect BoardFrame::Jour(int i) const {
  return {GridLeft_ + i * frame_.PasH, frame_.BoardTop + frame_.MonthHeight, frame_.PasH, frame_.DayHeight};
}

TwipRect BoardFrame::Res_Lib(int i) const {
  return {frame_.BoardLeft, GridTop_ + i * frame_.PasV, frame_.ResW, frame_.PasV};
}

TwipLine BoardFrame::MonthLine() const {
  const int y = frame_.BoardTop + frame_.MonthHeight;
  return {GridLeft_, y, GridLeft_ + frame_.PasH * frame_.DayNb, y};
}

TwipRect BoardFrame::Rectangle() const {
  return {GridLeft_, GridTop_, frame_.PasH * frame_.DayNb, frame_.PasV * frame_.ResNb};
}

TwipLine BoardFrame::Line_V(int i) const {
  const int x = Jour(i).left + frame_.PasH;
  return {x, GridTop_, x, GridBottom_};
}

TwipLine BoardFrame::Line_H(int i) const {
  const int y = Res_Lib(i).top + frame_.PasV;
  return {GridLeft_, y, GridRight_, y};
}

TwipRect BoardFrame::Today() const { return {frame_.BoardLeft, GridBottom_, frame_.ResW, frame_.PasV}; }

TwipRect BoardFrame::HScroll() const {
  return {GridLeft_, GridBottom_, frame_.PasH * frame_.DayNb, frame_.PasV - 20};
}

TwipRect BoardFrame::VScroll() const {
  return {GridRight_, GridTop_, frame_.PasH, frame_.PasV * frame_.ResNb};
}

TwipRect BoardFrame::dayBand(int column, int days) const {
  return {GridLeft_ + column * frame_.PasH, GridTop_, frame_.PasH * days, frame_.PasV * frame_.ResNb};
}

bool BoardFrame::strictlyInsideGrid(int x, int y) const {
  return x > GridLeft_ && x < GridRight_ && y > GridTop_ && y < GridBottom_;
}

int BoardFrame::rowAt(int y) const { return frame_.PasV > 0 ? (y - GridTop_) / frame_.PasV : -1; }

int BoardFrame::columnAt(int x) const { return frame_.PasH > 0 ? (x - GridLeft_) / frame_.PasH : -1; }

int BoardFrame::extentRight() const { return std::max(GridRight_ + frame_.PasH, VScroll().right()); }

int BoardFrame::extentBottom() const { return std::max(GridBottom_ + frame_.PasV, Today().bottom()); }

}  // namespace ksv
