#pragma once
// A planning as a file: the one way to open it (checks in order, after
// rolling back what a crashed writer left), the one way to read all of it
// (what a check reports and a repair keeps), the one way to copy it and the
// one way to put a new file in its place. Every operation on whole files goes
// through these, so a kill at any moment leaves the planning whole under its
// name.

#include <QList>
#include <QString>

#include "sqlite_db.h"

namespace ksv {

class Messages;
class Texts;

enum class PlanningCheck {
  Ok,
  Missing,       // "The Planning - | - doesn't exist"
  NotAPlanning,  // wrong extension, not a database, or without the planning tables
  ConnectError,  // the file is there but cannot be opened
  Damaged,       // the planning tables are there but the version cannot be read
  Older,         // must be converted first
  Newer,         // "You must upgrade your Kestrovane program"
};

struct OpenedPlanning {
  Database db;  // open unless Missing, NotAPlanning or ConnectError
  PlanningCheck check = PlanningCheck::Ok;
  QString version;
  QString detail;  // the store's own words
  explicit operator bool() const { return check == PlanningCheck::Ok; }
};

// Opens a planning after the checks, in order: it exists, its extension is
// ksv, it connects, it holds DataBaseInfo, Reservation and Resource, and its
// version is the program's. A journal left by a writer that died is rolled
// back first (by a short read-write connection), so a read-only open sees the
// last committed state.
OpenedPlanning openPlanning(const QString& path, Database::OpenMode mode);
// The checks from "it connects" on, for a file not yet under a planning's name.
OpenedPlanning openPlanningContent(const QString& path, Database::OpenMode mode);
// Shows the message of a failed check.
void reportPlanningCheck(const OpenedPlanning& opened, const QString& path, Messages& messages, const Texts& texts);

// "ok", or the faults PRAGMA integrity_check finds, one a line.
QString integrityCheck(Database& db);

// What reading every row of one table gave.
struct TableReading {
  QString table;
  int kept = 0;
  int lost = 0;           // rows that could not be read, or that break the column rules
  bool damaged = false;   // the integrity check names its pages: kept rows may differ
};

struct PlanningReading {
  QString integrity;  // "ok", or the first fault found
  QList<TableReading> tables;
  bool readable = true;  // false when not even the planning's tables could be listed
  int lost() const;
  bool sound() const;  // integrity ok and nothing lost
};

// Reads every row of every table of `source` through the column rules into
// `target` (an empty database); the read a check reports and a repair keeps.
PlanningReading readWholePlanning(Database& source, Database& target);

// The report of a repair: per table what was kept and lost, and the tables
// whose rows may have changed.
QStringList readingReport(const PlanningReading& reading, const Texts& texts);

// The one copy: a compacted, consistent copy of `source` into a fresh
// temporary beside `target`, synced, opened and checked as a planning, then
// renamed into place. Nothing is left behind on failure; `target` is only
// ever replaced by a whole, checked planning.
bool copyPlanning(const QString& source, const QString& target, QString* detail = nullptr);

// The one replacement: `fresh` takes `target`'s name in one step, with the
// mode, owner and group of the file it replaces; file and folder are synced.
bool replacePlanningFile(const QString& fresh, const QString& target);

// Opens `path` (a temporary just written) and checks it is a whole planning.
bool verifiedPlanning(const QString& path, QString* detail = nullptr);

}  // namespace ksv
