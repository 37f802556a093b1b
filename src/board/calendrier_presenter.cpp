#include "calendrier_presenter.h"

#include <algorithm>

namespace ksv {

CalendrierPresenter::CalendrierPresenter(const Clock& clock, const ScreenDescription& screen, const Texts& texts)
    : texts_(texts), calendar_(std::make_unique<clsCalendar>(screen, texts)) {
  calendar_->SetType(1);
  calendar_->SetDate(clock.today());
}

void CalendrierPresenter::OK_Click() {
  Result = true;
  hidden = true;
}

void CalendrierPresenter::Cancel_Click() {
  Result = false;
  hidden = true;
}

void CalendrierPresenter::showBoardRange(const BoardDates& dates, int HPos) {
  calendar_->SetDateFrom(dates.FirstDate);
  calendar_->SetDateTo(dates.LastDate);
  calendar_->SetDate(dates.ViewFirst(HPos));
}

int CalendrierPresenter::pickedHPos(const BoardDates& dates, int DayNb) const {
  return std::clamp(dates.hPosOf(GetDate()), 0, dates.hScrollMax(DayNb));
}

CalendriersPresenter::CalendriersPresenter(const Clock& clock, const ScreenDescription& screen, const Texts& texts,
                                           Messages& messages)
    : texts_(texts),
      messages_(messages),
      from_(std::make_unique<clsCalendar>(screen, texts)),
      to_(std::make_unique<clsCalendar>(screen, texts)) {
  from_->SetType(1);
  to_->SetType(2);
  from_->SetDate(clock.today());
  to_->SetDate(clock.today());
}

void CalendriersPresenter::OK_Click() {
  if (!(dateFrom() < dateTo())) {
    messages_.information(texts_.get(txt::CalendarFromBeforeTo));
    return;
  }
  Result = true;
  hidden = true;
}

void CalendriersPresenter::Cancel_Click() {
  Result = false;
  hidden = true;
}

}  // namespace ksv
