#pragma once
// The two classes of invoice numbers: waiting numbers (negative, from
// MaxWaitNb, given at the first save) and definitive ones (positive, given
// at posting, from MaxInvNb or from a hole of the period with Stopgap).

#include <QString>

namespace ksv {

class Clock;
class Database;
class IniFile;

// MaxWaitNb minus 1, written back to MaxWaitNb at once.
qint64 NextWaitNb(Database& db);

// The number a posting takes. With the option Stopgap of Company on, the first
// hole among the posted numbers of the period since BeginPeriod, leaving
// MaxInvNb; otherwise MaxInvNb plus 1, written back.
qint64 NextInvNb(Database& db, const Clock& clock, IniFile& ini);

// ChangeWaitNbToInvNb without the booking link: keeps the current number in
// `OldInvNb` and gives `InvNb` its definitive number.
void ChangeWaitNbToInvNb(Database& db, const Clock& clock, IniFile& ini, QString& InvNb, QString& OldInvNb);

}  // namespace ksv
