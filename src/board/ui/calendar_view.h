#pragma once
// The surface of a clsCalendar: paints its shapes and forwards mouse presses.

#include <QPointer>
#include <QWidget>

#include "board/cls_calendar.h"

namespace ksv {

class CalendarView : public QWidget, public CalendarSurface {
  Q_OBJECT
 public:
  explicit CalendarView(clsCalendar& calendar, QWidget* parent = nullptr);
  ~CalendarView() override;

  void setSurfaceSize(int widthTwips, int heightTwips) override;
  void redrawSurface() override { update(); }

  // The pixel point in the middle of a day of the shown month.
  QPoint dayCentre(QDate date) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QPointer<clsCalendar> calendar_;
};

}  // namespace ksv
