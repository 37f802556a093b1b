#pragma once
// The availability view of the board: per category a heading where the
// resource names stand, then the number free on each day, in the board's own
// grid. It lies over the board's grid as a child and hides the bookings.

#include <functional>
#include <vector>

#include <QWidget>

#include "bookings/availability_view.h"

namespace ksv {

class Availability;
class BoardFrame;
class BoardWidget;
class MenuModel;
struct LoadedOptions;

class AvailabilityBoard : public QWidget {
  Q_OBJECT
 public:
  // `border` is the AvailableBorder option: cells drawn with a frame.
  AvailabilityBoard(const BoardFrame& frame, int twipsPerPixel, bool border, QWidget* parent = nullptr);

  // Places the view over the resource column and the day grid.
  void placeOverGrid();
  void setLines(std::vector<AvailabilityLine> lines);
  const std::vector<AvailabilityLine>& lines() const { return lines_; }

  // Where a line's heading and its cell of a day are painted, in this widget's pixels.
  QRect headingRect(int line) const;
  QRect cellRect(int line, int day) const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const BoardFrame& frame_;
  int tpp_;
  bool border_;
  std::vector<AvailabilityLine> lines_;
};

// The view over `board`, made on first use.
AvailabilityBoard* availabilityBoardOf(BoardWidget& board, const LoadedOptions& options);

// Draw_Available: the tables over the days the board shows, from its first
// day on the screen (ViewFirst), painted.
void Draw_Available(BoardWidget& board, Availability& availability, const LoadedOptions& options);

// M_Availability_Click: switches the menu check; checked, the view covers the
// bookings, otherwise it goes and the bookings are drawn again.
// `drawAvailable` paints the view over the planning open at the time; the
// board's Redraw calls it too while the view is on. Returns the new check.
bool M_Availability_Click(MenuModel& menus, BoardWidget& board, std::function<void(BoardWidget&)> drawAvailable);

}  // namespace ksv
