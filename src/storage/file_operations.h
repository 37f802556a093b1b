#pragma once
// The file operations behind the file menu: compacting (and repairing), the
// back-up copy, purging old bookings, extraction, the example's date shift and
// the repair of Null remarks. Each works on a path and takes the lock mode its
// caller is told to hold; messages go through Messages.

#include <QDate>
#include <QString>

namespace ksv {

class Clock;
class Database;
class Messages;
class Paths;
class Texts;

// Compacts `file` in place through a held temporary beside it, checked and
// then renamed over the file (replacePlanningFile); the caller holds mode E.
// A damaged planning is rebuilt from every row it can still read, and the
// user is told, table by table, what was kept and lost. Unless `silent`,
// success is announced.
bool Compact_Planning(const QString& file, bool silent, Messages& messages, const Texts& texts);

// The back-up: a compacted copy of `source` put at `saveTarget` by
// copyPlanning, while the session stays open. Unless `silent`, success is
// announced, and only once the copy stands checked under its name.
bool Copy_Planning(const QString& source, const QString& saveTarget, bool silent, const Paths& paths,
                   Messages& messages, const Texts& texts);

// The safety copy before a conversion: "~Before <version> conversion.ksv"
// beside the planning, made once.
bool SilentSave(const QString& planning, const QString& version, const Paths& paths, Messages& messages,
                const Texts& texts);

// Deletes every row of one invoice; `number` is read as a value, so a text
// that is not a number purges invoice 0.
int PurgeInvoiceIv(Database& db, const Clock& clock, const QVariant& number);

// M_Purge steps 3 and 4 in one transaction: bookings that left before `limit`
// with their invoices, and cash sales posted before it. Returns the bookings
// deleted.
int purgeBefore(Database& db, const Clock& clock, QDate limit);

// M_EliminerNull: every Null remark becomes an empty one; returns the count.
int eliminateNullRemarks(Database& db);

// The rows of the example move by the days from 2006-10-21 to `today`, under
// the lock U.
bool ShiftExampleDate(const QString& file, QDate today);

// M_Extract's work on the copy: bookings that left before today are deleted
// (under U), then the copy is compacted (under E).
bool extractCurrent(const QString& copy, QDate today, Messages& messages, const Texts& texts);

}  // namespace ksv
