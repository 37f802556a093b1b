#include "cls_calendar.h"

#include <algorithm>

namespace ksv {
namespace {

// The range a calendar accepts until its caller narrows it: the years the
// system accepts as today's date.
const QDate kDefaultFrom(1930, 1, 1);
const QDate kDefaultTo(2500, 12, 31);

QDate firstOfMonth(QDate d) { return QDate(d.year(), d.month(), 1); }

TwipRect inset(const TwipRect& r, int by) {
  return {r.left + by, r.top + by, std::max(0, r.width - 2 * by), std::max(0, r.height - 2 * by)};
}

}  // namespace

clsCalendar::clsCalendar(const ScreenDescription& screen, const Texts& texts, QObject* parent)
    : QObject(parent), dateFrom_(kDefaultFrom), dateTo_(kDefaultTo), shown_(kDefaultFrom) {
  tpp_ = ksv::twipsPerPixel(screen.logicalDpi);
  // Pixel counts of a cell and a gap, by screen and font scale.
  struct Pixels {
    int w, h, g;
  };
  Pixels px{22, 16, 5};
  if (screen.ScreenW == 800)
    px = screen.largeFonts() ? Pixels{25, 19, 7} : Pixels{21, 16, 5};
  else if (screen.largeFonts())
    px = Pixels{27, 20, 6};
  const int w = px.w, h = px.h, g = px.g;
  cellW_ = w * tpp_;
  cellH_ = h * tpp_;
  gap_ = g * tpp_;
  theme_ = themeOf(1);
  dayLetters_ = texts.get(txt::DayLetters);
  monthNames_ = texts.list(txt::MonthNames, 12);
  buttonTexts_ = QStringList{texts.get(txt::CalendarYearBack), texts.get(txt::CalendarMonthBack),
                             texts.get(txt::CalendarMonthForward), texts.get(txt::CalendarYearForward)};
}

void clsCalendar::setPictureBox(CalendarSurface* surface) {
  surface_ = surface;
  if (surface_) {
    surface_->setSurfaceSize(surfaceWidth(), surfaceHeight());
    surface_->redrawSurface();
  }
}

CalendarTheme clsCalendar::themeOf(int type) {
  switch (type) {
    case 2: return {12640511, 228013, 6250335, 16711680};
    case 3: return {16766975, 193, 6250335, 255};
    default: return {16767180, 10485760, 6250335, 255};
  }
}

void clsCalendar::SetType(int type) {
  if (type < 1 || type > 3) return;
  type_ = type;
  theme_ = themeOf(type);
  redraw();
}

void clsCalendar::SetDateFrom(QDate date) {
  if (!date.isValid()) return;
  dateFrom_ = date;
  showMonth(shown_);
}

void clsCalendar::SetDateTo(QDate date) {
  if (!date.isValid()) return;
  dateTo_ = date;
  showMonth(shown_);
}

void clsCalendar::SetDate(QDate date) {
  if (!date.isValid()) return;
  current_ = date;
  showMonth(date);
}

void clsCalendar::showMonth(QDate anyDayOfMonth) {
  QDate month = firstOfMonth(anyDayOfMonth);
  // The shown month stays within the range's months.
  const QDate last = firstOfMonth(dateTo_);
  const QDate first = firstOfMonth(dateFrom_);
  if (month > last) month = last;
  if (month < first) month = first;
  shown_ = month;
  redraw();
}

void clsCalendar::moveMonths(int months) { showMonth(shown_.addMonths(months)); }

void clsCalendar::redraw() {
  if (surface_) surface_->redrawSurface();
}

TwipRect clsCalendar::barCell(int column) const {
  return {margin() + column * (cellW_ + gap_), gap_, cellW_, cellH_};
}

TwipRect clsCalendar::titleRect() const {
  const TwipRect left = barCell(2);
  return {left.left, left.top, 3 * cellW_ + 2 * gap_, cellH_};
}

TwipRect clsCalendar::weekdayCell(int column) const {
  return {margin() + column * (cellW_ + gap_), 2 * gap_ + cellH_, cellW_, cellH_};
}

TwipRect clsCalendar::dayCell(int row, int column) const {
  return {margin() + column * (cellW_ + gap_), gridTop() + row * (cellH_ + gap_), cellW_, cellH_};
}

int clsCalendar::positionOf(QDate date) const {
  const int startColumn = shown_.dayOfWeek() % 7;  // Sunday first
  return startColumn + date.day() - 1;
}

QDate clsCalendar::dateAt(int position) const {
  const int startColumn = shown_.dayOfWeek() % 7;
  const int day = position - startColumn + 1;
  if (position < 0 || position > 41 || day < 1 || day > shown_.daysInMonth()) return {};
  return QDate(shown_.year(), shown_.month(), day);
}

QString clsCalendar::titleText() const {
  return monthNames_.value(shown_.month() - 1) + QLatin1Char(' ') + QString::number(shown_.year());
}

clsCalendar::Press clsCalendar::MouseDown(int x, int y) {
  const int pitchX = cellW_ + gap_, pitchY = cellH_ + gap_;
  const int rx = x - margin();
  if (rx < 0 || pitchX <= 0 || pitchY <= 0) return Press::Nothing;
  const int column = rx / pitchX;
  if (column > 6 || x >= surfaceWidth()) return Press::Nothing;

  if (y >= gap_ && y < 2 * gap_ + cellH_) {
    const QDate before = shown_;
    switch (column) {
      case 0: moveMonths(-12); break;
      case 1: moveMonths(-1); break;
      case 5: moveMonths(1); break;
      case 6: moveMonths(12); break;
      default: return Press::Nothing;
    }
    return shown_ != before ? Press::MonthShown : Press::Nothing;
  }

  const int ry = y - gridTop();
  if (ry < 0) return Press::Nothing;
  const int row = ry / pitchY;
  if (row > 5) return Press::Nothing;
  const QDate picked = dateAt(row * 7 + column);
  if (!picked.isValid()) return Press::Nothing;
  if (picked < dateFrom_ || picked > dateTo_) return Press::Refused;
  current_ = picked;
  redraw();
  emit Click();
  return Press::DatePicked;
}

void clsCalendar::addCell(std::vector<CalendarShape>& out, const TwipRect& r, int insetColor, int frameColor) const {
  out.push_back({CalendarShape::Kind::Fill, r, kWhite, {}, false});
  out.push_back({CalendarShape::Kind::Fill, inset(r, kInset), insetColor, {}, false});
  out.push_back({CalendarShape::Kind::Frame, r, frameColor, {}, false});
}

std::vector<CalendarShape> clsCalendar::Draw() const {
  std::vector<CalendarShape> out;
  out.reserve(42 * 4 + 40);
  out.push_back({CalendarShape::Kind::Fill, {0, 0, surfaceWidth(), surfaceHeight()}, theme_.surface, {}, false});

  // Top bar: the four buttons and the title between them. The title's text is
  // white on its dark face; the arrows take the frame colour so that they
  // stand out on the light surface.
  const int buttonColumns[4] = {0, 1, 5, 6};
  for (int b = 0; b < 4; ++b) {
    const TwipRect r = barCell(buttonColumns[b]);
    addCell(out, r, theme_.surface, theme_.frames);
    out.push_back({CalendarShape::Kind::Text, r, theme_.frames, buttonTexts_.value(b), true});
  }
  addCell(out, titleRect(), theme_.titleFace, theme_.frames);
  out.push_back({CalendarShape::Kind::Text, titleRect(), kWhite, titleText(), true});

  for (int c = 0; c < 7; ++c)
    out.push_back({CalendarShape::Kind::Text, weekdayCell(c), theme_.frames, dayLetters_.mid(c, 1), true});

  for (int n = 0; n < 42; ++n) {
    const TwipRect r = dayCell(n / 7, n - 7 * (n / 7));
    const QDate d = dateAt(n);
    if (!d.isValid()) {
      addCell(out, r, theme_.surface, theme_.frames);
      continue;
    }
    int back = theme_.surface, fore = 0, frame = theme_.frames;
    bool bold = false;
    const clsDayInfo* info = dayInfos_.Item(d);
    if (info) {
      back = info->BackColor;
      fore = info->ForeColor;
      frame = info->RectColor;
      bold = info->Bold;
    }
    if (d == current_ || (info && info->Selected)) {
      back = theme_.mark;
      fore = kWhite;
    }
    addCell(out, r, back, frame);
    out.push_back({CalendarShape::Kind::Text, r, fore, QString::number(d.day()), bold});
  }
  return out;
}

}  // namespace ksv
