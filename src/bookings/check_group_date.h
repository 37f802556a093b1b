#pragma once
// A group member's dates against its group's: when they differ, the user may
// take the group's dates. Shared by the booking, split and group dialogs.

#include <QDate>
#include <QtGlobal>

namespace ksv {

class Clock;
class Database;
class Messages;
class Texts;
struct BookingContext;
struct LoadedOptions;

// Asks only when the option is on and `GroupNb_L` names a group whose header
// has other dates than `CalF` and `CalT`. On Yes the two dates take the
// header's and the result is true: the caller sets its changed flag and
// recomputes its day counts.
bool CheckGroupDate(Database& db, const Clock& clock, const LoadedOptions& options, Messages& messages,
                    const Texts& texts, qint16 GroupNb_L, QDate& CalF, QDate& CalT);
bool CheckGroupDate(BookingContext& ctx, qint16 GroupNb_L, QDate& CalF, QDate& CalT);

}  // namespace ksv
