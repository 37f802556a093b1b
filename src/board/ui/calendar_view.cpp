#include "calendar_view.h"

#include <algorithm>

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

#include "board_colors.h"
#include "twip_pixels.h"

namespace ksv {

CalendarView::CalendarView(clsCalendar& calendar, QWidget* parent) : QWidget(parent), calendar_(&calendar) {
  // Every pixel is painted from the shapes: no background to clear first.
  setAttribute(Qt::WA_OpaquePaintEvent);
  calendar.setPictureBox(this);
}

CalendarView::~CalendarView() {
  if (calendar_ && calendar_->PictureBox() == this) calendar_->setPictureBox(nullptr);
}

void CalendarView::setSurfaceSize(int widthTwips, int heightTwips) {
  const int tpp = calendar_ ? calendar_->twipsPerPixel() : 15;
  setFixedSize(twipsToPixels(widthTwips, tpp), twipsToPixels(heightTwips, tpp));
}

QPoint CalendarView::dayCentre(QDate date) const {
  if (!calendar_) return {};
  const int n = calendar_->positionOf(date);
  return toPixels(calendar_->dayCell(n / 7, n % 7), calendar_->twipsPerPixel()).center();
}

namespace {

// A month caption in bold is wider than its box in some fonts: shrink it
// rather than cut it.
QFont fitted(QFont font, const QString& text, int width) {
  while (font.pixelSize() > 6 && QFontMetrics(font).horizontalAdvance(text) > width - 2)
    font.setPixelSize(font.pixelSize() - 1);
  return font;
}

}  // namespace

void CalendarView::paintEvent(QPaintEvent*) {
  if (!calendar_) return;
  const int tpp = calendar_->twipsPerPixel();
  QPainter painter(this);
  QFont normal = font();
  normal.setPixelSize(std::max(8, twipsToPixels(calendar_->cellHeight(), tpp) * 3 / 5));
  QFont bold = normal;
  bold.setBold(true);
  for (const CalendarShape& s : calendar_->Draw()) {
    const QRect r = toPixels(s.rect, tpp);
    switch (s.kind) {
      case CalendarShape::Kind::Fill:
        painter.fillRect(r, bgrColor(s.color));
        break;
      case CalendarShape::Kind::Frame:
        painter.setPen(bgrColor(s.color));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(r.adjusted(0, 0, -1, -1));
        break;
      case CalendarShape::Kind::Text:
        painter.setPen(bgrColor(s.color));
        painter.setFont(fitted(s.bold ? bold : normal, s.text, r.width()));
        painter.drawText(r, Qt::AlignCenter, s.text);
        break;
    }
  }
}

void CalendarView::mousePressEvent(QMouseEvent* event) {
  if (!calendar_) return;
  const int tpp = calendar_->twipsPerPixel();
  const QPoint p = event->position().toPoint();
  calendar_->MouseDown(pixelsToTwips(p.x(), tpp), pixelsToTwips(p.y(), tpp));
}

}  // namespace ksv
