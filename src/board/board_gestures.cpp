#include "board_gestures.h"

#include <algorithm>

#include "board_drawing.h"
#include "config/loaded_options.h"
#include "core/messages.h"
#include "core/texts.h"
#include "storage/sqlite_db.h"

namespace ksv {
namespace {

// What the gap search starts from: no neighbour found on that side yet.
constexpr int kNoNeighbour = 999;

QString textOrEmpty(const Recordset& r, const char* name) {
  const QVariant v = r.field(QString::fromLatin1(name));
  return v.isNull() ? QString() : v.toString();
}

}  // namespace

BoardGestures::BoardGestures(BoardDrawing& drawing, const LoadedOptions& options, Messages& messages,
                             const Texts& texts, GestureHooks hooks)
    : drawing_(drawing), options_(options), messages_(messages), texts_(texts), hooks_(std::move(hooks)) {}

BoardGestures::~BoardGestures() = default;

bool BoardGestures::idle() const {
  return drawing_.drawing || !hooks_.normalMode || !hooks_.normalMode();
}

void BoardGestures::stopRefresh() {
  if (hooks_.stopRefreshTimer) hooks_.stopRefreshTimer();
}

void BoardGestures::startRefresh() {
  if (hooks_.startRefreshTimer) hooks_.startRefreshTimer();
}

// ------------------------------------------------------------------ labels

void BoardGestures::readLabel(int index) {
  GestureRecords& r = *records_;
  r.I_L = qint16(index);
  r.readClickedBooking();
  SelResource = r.Res_L;
  SelName = r.Nom_L;
  SelHowMany = r.HowMany_L;
  SelSplit = r.Split_L;
  SelEmail = r.Email_L;
  SelInvNb = r.InvNb_L;
  SelRemark = r.Rem_L;
  SelColor = r.Color_L;
  SelGroupId = r.GroupId_L;
  SelGroupNb = r.GroupNb_L;
  SelLocked = r.Bloc_L;
  SelFirst = r.DD_L;
  SelLast = r.DF_L;
  OrigResource = SelResource;
  OrigFirst = SelFirst;
  OrigLast = SelLast;
}

void BoardGestures::Lab_MouseDown(int index, Qt::MouseButton button, int x, int y) {
  if (idle() || dragging_) return;
  if (index < 0 || index >= drawing_.LabCount || !drawing_.view.isOpen()) return;
  stopRefresh();
  LabIndex = index;
  LabButton = button;
  LabX = x;
  LabY = y;
  records_ = hooks_.newRecords ? hooks_.newRecords() : nullptr;
  if (!records_) {
    startRefresh();
    return;
  }
  try {
    readLabel(index);
  } catch (const StorageError& e) {
    messages_.critical(QString::fromUtf8(e.what()));
    records_.reset();
    startRefresh();
    return;
  }

  if (button == Qt::LeftButton) {
    // A locked booking can't be picked up: the press ends here.
    if (SelLocked) {
      startRefresh();
      return;
    }
    const TwipRect& lab = drawing_.Lab[std::size_t(index)].rect;
    DragX = lab.left + x;
    DragY = lab.top + y;
    LabDragDrop = lab;
    dragging_ = true;
    return;
  }
  openClicked();
}

void BoardGestures::openClicked() {
  if (!records_->Dessiner_Ecran) records_->Dessiner_Ecran = hooks_.Dessiner_Ecran;
  BookingDialogOpeners open = hooks_.openers ? hooks_.openers(*records_) : BookingDialogOpeners{};
  // A window that isn't there opens nothing and gives no group.
  if (!open.Reservation) open.Reservation = [] { return false; };
  if (!open.ReservationSplit) open.ReservationSplit = [] { return false; };
  if (!open.ReservationGrp) open.ReservationGrp = [] {};
  bool opened = false;
  try {
    opened = records_->openBooking(open);
  } catch (const StorageError& e) {
    messages_.critical(QString::fromUtf8(e.what()));
    opened = true;
  }
  records_.reset();
  // A lost split part was made whole and redrawn; the press ends there.
  if (opened) startRefresh();
}

// ------------------------------------------------------------------ drag

bool BoardGestures::vScrollAtMin() const { return drawing_.VPos <= 0; }
bool BoardGestures::vScrollAtMax() const { return drawing_.VPos >= drawing_.vScrollMax; }

void BoardGestures::Form_DragOver(int x, int y) {
  if (!dragging_) return;
  const BoardFrame& f = drawing_.frame();
  dragMove(x, y);
  if (y < f.Mois(1).top) TimerVMoins = true;
  if (y > f.HScroll().top) TimerVPlus = true;
}

void BoardGestures::dragMove(int x, int y) {
  if (!dragging_) return;
  // The rectangle keeps the pointer where it took the label.
  LabDragDrop.left = x - LabX;
  LabDragDrop.top = y - LabY;
}

void BoardGestures::Jour_DragOver(int state) {
  if (!dragging_) return;
  TimerVMoins = state == 0 && !vScrollAtMin();
}

void BoardGestures::Mois_DragOver(int state) { Jour_DragOver(state); }

void BoardGestures::HScroll_DragOver(int state) {
  if (!dragging_) return;
  TimerVPlus = state == 0 && !vScrollAtMax();
}

void BoardGestures::TimerVPlus_Timer() {
  if (drawing_.drawing) return;
  if (vScrollAtMax()) {
    TimerVPlus = false;
    return;
  }
  if (hooks_.setVScroll) hooks_.setVScroll(drawing_.VPos + 1);
}

void BoardGestures::TimerVMoins_Timer() {
  if (drawing_.drawing) return;
  if (vScrollAtMin()) {
    TimerVMoins = false;
    return;
  }
  if (hooks_.setVScroll) hooks_.setVScroll(drawing_.VPos - 1);
}

// ------------------------------------------------------------------ drops

void BoardGestures::Form_DragDrop(int x, int y) {
  DropX = x;
  DropY = y;
  drop();
}

void BoardGestures::Lab_DragDrop(int index, int x, int y) {
  if (!hooks_.normalMode || !hooks_.normalMode()) return;
  if (index < 0 || index >= int(drawing_.Lab.size())) return;
  const TwipRect& lab = drawing_.Lab[std::size_t(index)].rect;
  DropX = lab.left + x;
  DropY = lab.top + y;
  drop();
}

void BoardGestures::HScroll_DragDrop(int x, int y) {
  (void)y;
  const BoardFrame& f = drawing_.frame();
  DropX = f.HScroll().left + x;
  DropY = f.GridTop() + (f.ResNb() - 1) * f.PasV();
  drop();
}

void BoardGestures::Jour_DragDrop(int index, int x, int y) {
  (void)y;
  const BoardFrame& f = drawing_.frame();
  DropX = f.Jour(index).left + x;
  DropY = f.GridTop();
  drop();
}

void BoardGestures::Mois_DragDrop(int index, int x, int y) {
  (void)y;
  const BoardFrame& f = drawing_.frame();
  DropX = f.Mois(index).left + x;
  DropY = f.GridTop();
  drop();
}

void BoardGestures::cancelDrag() {
  TimerVPlus = TimerVMoins = false;
  if (!dragging_) return;
  dragging_ = false;
  records_.reset();
  startRefresh();
}

void BoardGestures::drop() {
  TimerVPlus = TimerVMoins = false;
  if (!dragging_ || !records_) return;
  dragging_ = false;
  const BoardFrame& f = drawing_.frame();

  int row = f.PasV() > 0 ? (DropY - f.GridTop()) / f.PasV() : 0;
  if (row < 0) row = 0;
  if (row > drawing_.ResCount - drawing_.VPos - 1) row = drawing_.ResCount - drawing_.VPos - 1;
  if (row > f.ResNb() - 1) row = f.ResNb() - 1;
  if (row < 0 || row >= int(drawing_.Res_Lib.size()) || drawing_.Res_Lib[std::size_t(row)].text.isEmpty()) {
    records_.reset();
    startRefresh();
    return;
  }
  SelResource = drawing_.Res_Lib[std::size_t(row)].text;
  SelFirst = OrigFirst;
  SelLast = OrigLast;
  const bool splitPart = SelSplit == QLatin1String("1") || SelSplit == QLatin1String("2");
  if (!options_.LockDate && !splitPart && f.PasH() > 0) {
    // C++ division truncates toward zero, as the shift must.
    const int shift = (DropX - DragX) / f.PasH();
    SelFirst = OrigFirst.addDays(shift);
    SelLast = SelFirst.addDays(OrigFirst.daysTo(OrigLast));
  }

  GestureRecords& r = *records_;
  r.Res_L = SelResource;
  r.DD_L = SelFirst;
  r.DF_L = SelLast;
  r.Res_S = OrigResource;
  r.DD_S = OrigFirst;
  r.DF_S = OrigLast;
  try {
    r.MAJ_Recherche();
  } catch (const StorageError& e) {
    messages_.critical(QString::fromUtf8(e.what()));
  }
  records_.reset();
  if (hooks_.Dessiner_Ecran) hooks_.Dessiner_Ecran();
  startRefresh();
}

// ------------------------------------------------------------------ empty cells

void BoardGestures::Form_MouseDown(Qt::MouseButton button, int x, int y) {
  if (drawing_.drawing || dragging_) return;
  stopRefresh();
  Trou.visible = false;
  const BoardFrame& f = drawing_.frame();
  if (!hooks_.normalMode || !hooks_.normalMode() || !f.strictlyInsideGrid(x, y)) {
    startRefresh();
    return;
  }
  LabIndex = -1;
  const int row = f.rowAt(y);
  if (row < 0 || row >= int(drawing_.Res_Lib.size())) {
    startRefresh();
    return;
  }
  SelResource = drawing_.Res_Lib[std::size_t(row)].text;
  Trou.rect = TwipRect{0, f.labelTop(row), 0, f.LabE()};
  // A blank row is dead.
  if (SelResource.isEmpty()) {
    startRefresh();
    return;
  }
  const int column = f.columnAt(x);
  SelFirst = drawing_.ViewFirst().addDays(column);
  Trou.rect.left = f.GridLeft() + column * f.PasH() + 105;

  if (button == Qt::RightButton) {
    records_ = hooks_.newRecords ? hooks_.newRecords() : nullptr;
    if (records_ && hooks_.ReservationCreer) {
      records_->Res_L = SelResource;
      records_->DD_L = SelFirst;
      if (!records_->Dessiner_Ecran) records_->Dessiner_Ecran = hooks_.Dessiner_Ecran;
      hooks_.ReservationCreer(*records_);
    }
    records_.reset();
  } else if (button == Qt::LeftButton) {
    showGap();
  }
  startRefresh();
}

void BoardGestures::showGap() {
  int before = kNoNeighbour;
  int after = kNoNeighbour;
  Recordset& view = drawing_.view;
  if (view.isOpen()) {
    for (view.moveFirst(); !view.isEOF(); view.moveNext()) {
      if (textOrEmpty(view, "Resource") != SelResource) continue;
      const QDate first = dayOf(view.field("Date_Deb"));
      const QDate last = dayOf(view.field("Date_Fin"));
      if (last <= SelFirst) before = std::min(before, int(last.daysTo(SelFirst)));
      if (first >= SelFirst) after = std::min(after, int(SelFirst.daysTo(first)));
    }
  }
  if (before == kNoNeighbour) before = int(drawing_.ViewFirst().daysTo(SelFirst));
  if (after == kNoNeighbour) after = int(SelFirst.daysTo(drawing_.ViewLast()));
  Trou.text = QString::number(before + after) + texts_.get(txt::GapDays);
  Trou.visible = true;
}

void BoardGestures::Form_MouseUp() { Trou.visible = false; }

// ------------------------------------------------------------------ keyboard

int BoardGestures::labelAt(int x, int y) const {
  const std::vector<int> order = drawing_.labelPaintOrder();
  for (auto it = order.rbegin(); it != order.rend(); ++it) {
    if (drawing_.Lab[std::size_t(*it)].rect.contains(x, y)) return *it;
  }
  return -1;
}

int BoardGestures::labelOnCell(int row, int column) const {
  const BoardFrame& f = drawing_.frame();
  // A label runs from the middle of its arrival cell to the middle of its
  // leaving cell: the middle of a cell lies on it for each night it covers.
  return labelAt(f.GridLeft() + column * f.PasH() + f.PasH() / 2, f.labelTop(row) + f.LabE() / 2);
}

void BoardGestures::Enter_Cell(int row, int column) {
  const BoardFrame& f = drawing_.frame();
  const int label = labelOnCell(row, column);
  if (label >= 0) {
    const TwipRect& lab = drawing_.Lab[std::size_t(label)].rect;
    const int x = f.GridLeft() + column * f.PasH() + f.PasH() / 2;
    Lab_MouseDown(label, Qt::RightButton, x - lab.left, lab.height / 2);
    return;
  }
  Form_MouseDown(Qt::RightButton, f.GridLeft() + column * f.PasH() + f.PasH() / 2,
                 f.GridTop() + row * f.PasV() + f.PasV() / 2);
}

}  // namespace ksv
