#pragma once
// The board's origin follows the planning that opens: its earliest arrival
// must be on the board, so that past stays can be seen, opened and booked.

#include <optional>

#include <QDate>

#include "board_dates.h"

namespace ksv {

class Database;
class IniFile;

// The earliest Date_Deb of the planning; nothing when it holds no booking.
std::optional<QDate> earliestArrival(Database& db);

// SearchFirstDate over the planning just opened, from the origin in force.
// When the origin moves back it is written as BoardOrigin of section Remember.
// Gives the board's dates computed again.
BoardDates datesForOpenedPlanning(Database& db, IniFile& ini, QDate FirstDate, QDate today);

}  // namespace ksv
