#pragma once
// The board's date range: its origin, its last day, and the scroll positions
// that follow from them.

#include <optional>

#include <QDate>
#include <QString>

namespace ksv {

// FirstDate from the value BoardOrigin of section Remember ("yymmdd"); a
// missing or unreadable value gives today, as on a fresh ini file.
QDate boardOrigin(const QString& boardOriginYymmdd, QDate today);

// The origin moves back to the earliest arrival of the open planning when that
// lies before it. Gives the new origin, which the caller writes back as
// BoardOrigin before it reloads the options and redraws; nothing when it stays.
std::optional<QDate> SearchFirstDate(QDate FirstDate, std::optional<QDate> earliestDateDeb);

// Today plus 30 months, moved back to the last day of the month before.
QDate boardLastDate(QDate today);

struct BoardDates {
  QDate FirstDate;
  QDate LastDate;
  int TotalDays = 0;
  int TodayOffset = 0;

  // HScroll runs from 0 to this; a board wider than its range gives 0.
  int hScrollMax(int DayNb) const;
  // A position HPos shows FirstDate + HPos in the first column.
  QDate ViewFirst(int HPos) const { return FirstDate.addDays(HPos); }
  QDate ViewLast(int HPos, int DayNb) const { return ViewFirst(HPos).addDays(DayNb - 1); }
  // The position that puts a date in the first column (the month strip's pick).
  int hPosOf(QDate date) const;
};

BoardDates boardDates(QDate FirstDate, QDate today);

// VScroll's maximum for a count of resources: what lies beyond the rows shown.
int vScrollMax(int ResCount, int ResNb);

}  // namespace ksv
