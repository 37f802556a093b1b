#include "board_origin.h"

#include "config/ini_file.h"
#include "core/day_date.h"
#include "storage/sqlite_db.h"

namespace ksv {

std::optional<QDate> earliestArrival(Database& db) {
  const QVariant v = db.scalar(QStringLiteral("SELECT min(Date_Deb) FROM Reservation"));
  if (v.isNull()) return std::nullopt;
  // Dates are ISO text, with a time after the day when one was kept.
  const QDate first = QDate::fromString(v.toString().left(10), Qt::ISODate);
  return first.isValid() ? std::optional<QDate>(first) : std::nullopt;
}

BoardDates datesForOpenedPlanning(Database& db, IniFile& ini, QDate FirstDate, QDate today) {
  if (const std::optional<QDate> moved = SearchFirstDate(FirstDate, earliestArrival(db))) {
    FirstDate = *moved;
    ini.SetValue("Remember", "BoardOrigin", toYymmdd(FirstDate));
  }
  return boardDates(FirstDate, today);
}

}  // namespace ksv
