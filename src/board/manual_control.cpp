#include "manual_control.h"

namespace ksv {

int ManualControl::drawnCount() const {
  if (kind_ == Kind::Bookings) return board_.LabCount;
  // Rows past the last resource are blank cells, not resources.
  int count = 0;
  while (count < int(board_.Res_Lib.size()) && !board_.Res_Lib[std::size_t(count)].text.isEmpty()) ++count;
  return count;
}

void ManualControl::walk() {
  const int count = drawnCount();
  BoardMarker& marker = board_.Repere;
  if (count == 0) {
    marker.visible = false;
    return;
  }
  if (index_ < 0 || index_ >= count) index_ = 0;
  if (kind_ == Kind::Bookings) {
    const BoardLabel& label = board_.Lab[std::size_t(index_)];
    marker.rect = label.rect;
    // A label that began before the first day shows from the grid's edge on;
    // the marker covers what is seen of it, not the resource cell beside it.
    const int gridLeft = board_.frame().GridLeft();
    if (marker.rect.left < gridLeft) {
      marker.rect.width -= gridLeft - marker.rect.left;
      marker.rect.left = gridLeft;
    }
    marker.caption = label.text;
  } else {
    marker.rect = board_.frame().Res_Lib(index_);
    marker.caption = board_.Res_Lib[std::size_t(index_)].text;
  }
  marker.visible = true;
}

void ManualControl::restart() {
  index_ = 0;
  walk();
}

void ManualControl::move(int by) {
  const int count = drawnCount();
  if (count > 0) index_ = ((index_ + by) % count + count) % count;
  walk();
}

void ManualControl::Arriere_Click() { move(-1); }
void ManualControl::Avant_Click() { move(1); }

void ManualControl::Sortir_Click() { board_.Repere.visible = false; }

QString ManualControl::markedResource() const {
  if (kind_ != Kind::Resources || index_ >= drawnCount()) return {};
  return board_.Res_Lib[std::size_t(index_)].text;
}

int ManualControl::markedLabel() const {
  if (kind_ != Kind::Bookings || index_ >= drawnCount()) return -1;
  return index_;
}

}  // namespace ksv
