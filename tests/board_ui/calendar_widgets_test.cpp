#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>

#include "board/ui/calendar_view.h"
#include "board/ui/calendrier_dialog.h"
#include "board/ui/ecran_dialog.h"
#include "board/ui/twip_pixels.h"
#include "support/scripted_messages.h"

using namespace ksv;

namespace {

ScreenDescription screen1024() {
  ScreenDescription s;
  readScreen(ScreenFacts{1024, 768, 32, 60, 96}, s);
  return s;
}

void press(QWidget* w, QPoint at) {
  QMouseEvent down(QEvent::MouseButtonPress, QPointF(at), w->mapToGlobal(QPointF(at)), Qt::LeftButton,
                   Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(w, &down);
  QMouseEvent up(QEvent::MouseButtonRelease, QPointF(at), w->mapToGlobal(QPointF(at)), Qt::LeftButton,
                 Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(w, &up);
}

}  // namespace

TEST(CalendarView, SizedByTheCalendarAndPaintsTheMark) {
  const Texts texts(0);
  clsCalendar cal(screen1024(), texts);
  cal.SetDate(QDate(2025, 3, 14));
  CalendarView view(cal);
  EXPECT_EQ(view.size(), QSize(cal.surfaceWidth() / 15, cal.surfaceHeight() / 15));
  EXPECT_EQ(cal.PictureBox(), &view);

  const QImage image = view.grab().toImage();
  const int n = cal.positionOf(QDate(2025, 3, 14));
  const QRect cell = toPixels(cal.dayCell(n / 7, n % 7), 15);
  // Inside the inset, away from the number: the mark colour (255 is red).
  EXPECT_EQ(image.pixelColor(cell.topLeft() + QPoint(3, 3)), QColor(255, 0, 0));
  // The outer ring of a cell is white, its frame the theme's (10485760, dark blue).
  EXPECT_EQ(image.pixelColor(cell.topLeft() + QPoint(1, 1)), QColor(255, 255, 255));
  EXPECT_EQ(image.pixelColor(cell.topLeft()), QColor(0, 0, 160));
}

TEST(CalendarView, APressOnADayPicksIt) {
  const Texts texts(0);
  clsCalendar cal(screen1024(), texts);
  cal.SetDate(QDate(2025, 3, 14));
  int clicks = 0;
  QObject::connect(&cal, &clsCalendar::Click, [&] { ++clicks; });
  CalendarView view(cal);
  view.show();
  press(&view, view.dayCentre(QDate(2025, 3, 27)));
  EXPECT_EQ(cal.GetDate(), QDate(2025, 3, 27));
  EXPECT_EQ(clicks, 1);
  // The "<" button shows the month before.
  press(&view, toPixels(cal.barCell(1), 15).center());
  EXPECT_EQ(cal.shownMonth(), QDate(2025, 2, 1));
}

TEST(CalendrierDialog, ClickADayThenOk) {
  const FixedClock clock(QDate(2025, 3, 14));
  const Texts texts(0);
  CalendrierPresenter presenter(clock, screen1024(), texts);
  presenter.calendar().SetDateFrom(QDate(2025, 1, 1));
  presenter.calendar().SetDateTo(QDate(2027, 6, 30));
  CalendrierDialog dialog(presenter, texts);
  dialog.show();
  press(dialog.view(), dialog.view()->dayCentre(QDate(2025, 3, 3)));
  dialog.okButton()->click();
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_TRUE(presenter.Result);
  EXPECT_EQ(presenter.GetDate(), QDate(2025, 3, 3));
}

TEST(CalendriersDialog, StaysOpenUntilFromIsBeforeTo) {
  const FixedClock clock(QDate(2025, 3, 14));
  const Texts texts(0);
  test::ScriptedMessages messages;
  CalendriersPresenter presenter(clock, screen1024(), texts, messages);
  CalendriersDialog dialog(presenter, texts);
  dialog.show();
  dialog.okButton()->click();
  EXPECT_TRUE(dialog.isVisible());
  ASSERT_EQ(messages.shown().size(), 1u);

  press(dialog.viewTo(), dialog.viewTo()->dayCentre(QDate(2025, 3, 18)));
  dialog.okButton()->click();
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(presenter.dateFrom(), QDate(2025, 3, 14));
  EXPECT_EQ(presenter.dateTo(), QDate(2025, 3, 18));
}

TEST(EcranDialog, ReadsTheDisplay) {
  const Texts texts(0);
  ScreenDescription screen;
  EcranDialog dialog(screen, texts);
  const QScreen* display = QGuiApplication::primaryScreen();
  ASSERT_NE(display, nullptr);
  EXPECT_EQ(screen.ScreenW, static_cast<int>(display->geometry().width() * display->devicePixelRatio()));
  EXPECT_EQ(screen.ScreenH, static_cast<int>(display->geometry().height() * display->devicePixelRatio()));
  const int dpi = static_cast<int>(std::lround(display->logicalDotsPerInch()));
  EXPECT_EQ(screen.Echelle, dpi == 96 ? QLatin1Char('S') : QLatin1Char('L'));
  EXPECT_EQ(dialog.resolutionText(), QString("Resolution : %1 x %2 pixels").arg(screen.ScreenW).arg(screen.ScreenH));
}
