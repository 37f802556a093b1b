#pragma once
// A month calendar drawn by the program itself: a bounded range of dates,
// three colour themes and marked days. Headless: it lays out and hit-tests in
// twips and describes its drawing as shapes; a widget paints those shapes and
// forwards its mouse presses.

#include <vector>

#include <QDate>
#include <QObject>
#include <QStringList>

#include "cls_day_info_col.h"
#include "core/texts.h"
#include "screen_description.h"
#include "twips.h"

namespace ksv {

// The host surface: sized by the calendar and told when to paint again.
class CalendarSurface {
 public:
  virtual ~CalendarSurface() = default;
  virtual void setSurfaceSize(int widthTwips, int heightTwips) = 0;
  virtual void redrawSurface() = 0;
};

struct CalendarShape {
  enum class Kind { Fill, Frame, Text };
  Kind kind = Kind::Fill;
  TwipRect rect;
  int color = 0;  // blue-green-red colour value
  QString text;   // Text: centred in rect
  bool bold = false;
};

struct CalendarTheme {
  int surface = 0;
  int frames = 0;
  int titleFace = 0;
  int mark = 0;
};

class clsCalendar : public QObject {
  Q_OBJECT
 public:
  static constexpr int kWhite = 16777215;
  static constexpr int kInset = 30;

  // What a press did.
  enum class Press { Nothing, MonthShown, DatePicked, Refused };

  clsCalendar(const ScreenDescription& screen, const Texts& texts, QObject* parent = nullptr);

  // The PictureBox property: gives the surface and sizes it.
  void setPictureBox(CalendarSurface* surface);
  CalendarSurface* PictureBox() const { return surface_; }

  void SetType(int type);  // 1 to 3; other values keep the theme
  int Type() const { return type_; }
  const CalendarTheme& theme() const { return theme_; }
  static CalendarTheme themeOf(int type);

  void SetDateFrom(QDate date);
  void SetDateTo(QDate date);
  QDate DateFrom() const { return dateFrom_; }
  QDate DateTo() const { return dateTo_; }
  // The current date; the shown month follows it, within the range.
  void SetDate(QDate date);
  QDate GetDate() const { return current_; }
  // The first day of the month on show.
  QDate shownMonth() const { return shown_; }

  clsDayInfoCol& dayInfos() { return dayInfos_; }
  const clsDayInfoCol& dayInfos() const { return dayInfos_; }
  static QString FormatKey(QDate date) { return ksv::FormatKey(date); }

  // Sizes in twips.
  int cellWidth() const { return cellW_; }
  int cellHeight() const { return cellH_; }
  int gap() const { return gap_; }
  int margin() const { return gap_; }
  int gridTop() const { return 2 * cellH_ + 3 * gap_; }
  int surfaceWidth() const { return 7 * cellW_ + 8 * gap_ + margin(); }
  int surfaceHeight() const { return 6 * cellH_ + 7 * gap_ + gridTop(); }
  int twipsPerPixel() const { return tpp_; }

  // Cells: the top bar (columns 0 to 6, the title over 2 to 4), the weekday
  // row, and week rows 0 to 5.
  TwipRect barCell(int column) const;
  TwipRect titleRect() const;
  TwipRect weekdayCell(int column) const;
  TwipRect dayCell(int row, int column) const;
  // Grid position (0 .. 41) of a day of the shown month.
  int positionOf(QDate date) const;
  // The day at a grid position of the shown month; none for an empty cell.
  QDate dateAt(int position) const;
  QString titleText() const;

  // One mouse press on the surface, in twips from its top-left corner.
  Press MouseDown(int x, int y);

  // Everything to paint, back to front.
  std::vector<CalendarShape> Draw() const;

 signals:
  // A day was picked.
  void Click();

 private:
  void showMonth(QDate anyDayOfMonth);
  void moveMonths(int months);
  void redraw();
  void addCell(std::vector<CalendarShape>& out, const TwipRect& r, int inset, int frame) const;

  CalendarSurface* surface_ = nullptr;
  int type_ = 1;
  CalendarTheme theme_;
  QDate dateFrom_;
  QDate dateTo_;
  QDate shown_;
  QDate current_;
  int cellW_ = 0;
  int cellH_ = 0;
  int gap_ = 0;
  int tpp_ = 15;
  clsDayInfoCol dayInfos_;
  QString dayLetters_;
  QStringList monthNames_;
  QStringList buttonTexts_;
};

}  // namespace ksv
