#include "board_dates.h"

#include "core/day_date.h"

namespace ksv {

QDate boardOrigin(const QString& boardOriginYymmdd, QDate today) {
  const std::optional<QDate> kept = fromYymmdd(boardOriginYymmdd);
  return kept ? *kept : today;
}

std::optional<QDate> SearchFirstDate(QDate FirstDate, std::optional<QDate> earliestDateDeb) {
  if (earliestDateDeb && earliestDateDeb->isValid() && *earliestDateDeb < FirstDate) return earliestDateDeb;
  return std::nullopt;
}

QDate boardLastDate(QDate today) {
  // Day 0 of a month is the last day of the month before it.
  return dateSerial(today.year(), today.month() + 30, 0);
}

int BoardDates::hScrollMax(int DayNb) const {
  const int max = TotalDays - (DayNb - 1);
  return max > 0 ? max : 0;
}

int BoardDates::hPosOf(QDate date) const { return daysBetween(FirstDate, date); }

BoardDates boardDates(QDate FirstDate, QDate today) {
  BoardDates d;
  d.FirstDate = FirstDate;
  d.LastDate = boardLastDate(today);
  d.TotalDays = daysBetween(FirstDate, d.LastDate);
  d.TodayOffset = daysBetween(FirstDate, today);
  return d;
}

int vScrollMax(int ResCount, int ResNb) { return ResCount > ResNb ? ResCount - ResNb : 0; }

}  // namespace ksv
