#include "availability_board.h"

#include <QPainter>

#include "board/board_frame.h"
#include "board/ui/board_colors.h"
#include "board/ui/board_widget.h"
#include "board/ui/twip_pixels.h"
#include "bookings/availability.h"
#include "config/loaded_options.h"
#include "core/menu_model.h"

namespace ksv {

namespace {
const QString kViewName = QStringLiteral("AvailabilityBoard");
const QString kMenuEntry = QStringLiteral("M_Availability");
}  // namespace

AvailabilityBoard::AvailabilityBoard(const BoardFrame& frame, int twipsPerPixel, bool border, QWidget* parent)
    : QWidget(parent), frame_(frame), tpp_(twipsPerPixel > 0 ? twipsPerPixel : 15), border_(border) {
  setObjectName(kViewName);
  setAttribute(Qt::WA_OpaquePaintEvent);
  // Presses go through to the board: its gestures stay as they are.
  setAttribute(Qt::WA_TransparentForMouseEvents);
  placeOverGrid();
}

void AvailabilityBoard::placeOverGrid() {
  const int left = frame_.BoardLeft();
  const TwipRect area{left, frame_.GridTop(), frame_.GridRight() - left, frame_.GridBottom() - frame_.GridTop()};
  setGeometry(toPixels(area, tpp_));
}

void AvailabilityBoard::setLines(std::vector<AvailabilityLine> lines) {
  lines_ = std::move(lines);
  update();
}

QRect AvailabilityBoard::headingRect(int line) const {
  const TwipRect r{frame_.BoardLeft(), frame_.GridTop() + line * frame_.PasV(), frame_.ResW(), frame_.PasV()};
  return toPixels(r, tpp_).translated(-pos());
}

QRect AvailabilityBoard::cellRect(int line, int day) const {
  const TwipRect r{frame_.GridLeft() + day * frame_.PasH(), frame_.GridTop() + line * frame_.PasV(), frame_.PasH(),
                   frame_.PasV()};
  return toPixels(r, tpp_).translated(-pos());
}

void AvailabilityBoard::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  const QPen frame(border_ ? QColor(Qt::gray) : QColor(Qt::transparent));
  const auto cell = [&](const QRect& r, const CellColours& c, const QString& text, int align) {
    painter.fillRect(r, bgrColor(int(c.back)));
    painter.setPen(frame);
    painter.drawRect(r.adjusted(0, 0, -1, -1));
    painter.setPen(bgrColor(int(c.fore)));
    painter.drawText(r.adjusted(2, 0, -2, 0), align | Qt::AlignVCenter, text);
  };
  // One line per category, as many as the board has rows.
  const int rows = std::min(int(lines_.size()), frame_.ResNb());
  for (int i = 0; i < rows; ++i) {
    const AvailabilityLine& line = lines_[size_t(i)];
    cell(headingRect(i), line.heading, line.name, Qt::AlignLeft);
    const int days = std::min(int(line.cells.size()), frame_.DayNb());
    for (int d = 0; d < days; ++d)
      cell(cellRect(i, d), line.cells[size_t(d)].colours, QString::number(line.cells[size_t(d)].free),
           Qt::AlignHCenter);
  }
}

AvailabilityBoard* availabilityBoardOf(BoardWidget& board, const LoadedOptions& options) {
  auto* view = board.findChild<AvailabilityBoard*>(kViewName, Qt::FindDirectChildrenOnly);
  if (!view) view = new AvailabilityBoard(board.drawing().frame(), board.twipsPerPixel(), options.AvailableBorder, &board);
  return view;
}

void Draw_Available(BoardWidget& board, Availability& availability, const LoadedOptions& options) {
  AvailabilityBoard* view = availabilityBoardOf(board, options);
  view->placeOverGrid();
  // The counts stand under the days the board shows, wherever it is scrolled.
  const BoardDrawing& drawing = board.drawing();
  const AvailabilityTables tables = availability.SetAvailabilityTables(drawing.ViewFirst(), drawing.frame().DayNb());
  view->setLines(tables.Flg_OkCl ? ksv::Draw_Available(tables, options) : std::vector<AvailabilityLine>{});
  view->show();
  view->raise();
}

bool M_Availability_Click(MenuModel& menus, BoardWidget& board, std::function<void(BoardWidget&)> drawAvailable) {
  const MenuEntry* entry = menus.find(kMenuEntry);
  const bool checked = !(entry && entry->checked);
  menus.setChecked(kMenuEntry, checked);
  BoardDrawing& drawing = board.drawing();
  drawing.availabilityChecked = checked;
  if (checked) {
    drawing.Draw_Available = [&board, drawAvailable] { drawAvailable(board); };
    board.EraseReservation();
    drawAvailable(board);
  } else {
    if (auto* view = board.findChild<AvailabilityBoard*>(kViewName, Qt::FindDirectChildrenOnly)) view->hide();
    board.Dessiner_Ecran();
  }
  board.update();
  return checked;
}

}  // namespace ksv
