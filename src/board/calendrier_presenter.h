#pragma once
// The one-date picker (Calendrier) and the from-to picker (Calendriers): their
// calendars and their buttons, without widgets.

#include <memory>

#include "board_dates.h"
#include "cls_calendar.h"
#include "core/clock.h"
#include "core/messages.h"

namespace ksv {

class CalendrierPresenter {
 public:
  // Loads as the form does: theme 1, today's date. The caller then sets the
  // range and the date on calendar().
  CalendrierPresenter(const Clock& clock, const ScreenDescription& screen, const Texts& texts);

  clsCalendar& calendar() { return *calendar_; }
  QString caption() const { return texts_.get(txt::CalendarTitle); }

  void OK_Click();
  void Cancel_Click();
  QDate GetDate() const { return calendar_->GetDate(); }

  // The month strip's picker: the board's whole range, on the first day in view.
  void showBoardRange(const BoardDates& dates, int HPos);
  // The scroll position that puts the picked date in the first column, held
  // within the scroll bar's range.
  int pickedHPos(const BoardDates& dates, int DayNb) const;

  bool Result = false;
  bool hidden = false;

 private:
  const Texts& texts_;
  std::unique_ptr<clsCalendar> calendar_;
};

class CalendriersPresenter {
 public:
  CalendriersPresenter(const Clock& clock, const ScreenDescription& screen, const Texts& texts, Messages& messages);

  clsCalendar& calendarFrom() { return *from_; }
  clsCalendar& calendarTo() { return *to_; }
  QString fromTitle() const { return texts_.get(txt::CalendarFrom); }
  QString toTitle() const { return texts_.get(txt::CalendarTo); }
  QString caption() const { return texts_.get(txt::CalendarsTitle); }

  // Refuses, with a message, a first date that is not before the second; the
  // dialog then stays open.
  void OK_Click();
  void Cancel_Click();
  QDate dateFrom() const { return from_->GetDate(); }
  QDate dateTo() const { return to_->GetDate(); }

  bool Result = false;
  bool hidden = false;

 private:
  const Texts& texts_;
  Messages& messages_;
  std::unique_ptr<clsCalendar> from_;
  std::unique_ptr<clsCalendar> to_;
};

}  // namespace ksv
