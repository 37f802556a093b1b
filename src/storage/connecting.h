#pragma once
// Opening an existing planning in one of the three modes:
//   'C' consultation: read-only, any write fails;
//   'U' update, shared with other workstations;
//   'E' exclusive (the lock file keeps the others away).
// Every committed write is on disk when its statement or transaction ends
// (rollback journal, full sync), so another workstation sees it at its next
// read. While a connection lives, this process is listed in the planning's
// roster.

#include <memory>

#include <QString>

#include "sqlite_db.h"

namespace ksv {

class Messages;
class RosterEntry;
class Texts;

// The session's connection to one planning; owns the database connection.
class PlanningConnection {
 public:
  PlanningConnection(Database db, char mode, std::unique_ptr<RosterEntry> roster);
  ~PlanningConnection();
  PlanningConnection(const PlanningConnection&) = delete;
  PlanningConnection& operator=(const PlanningConnection&) = delete;

  Database& db() { return db_; }
  const QString& path() const { return db_.path(); }
  // 'C', 'U' or 'E'; the mode to give back to the lock file on closing.
  char mode() const { return mode_; }
  bool isReadOnly() const { return mode_ == 'C'; }

 private:
  Database db_;
  char mode_;
  std::unique_ptr<RosterEntry> roster_;  // released after the database is closed
};

enum class ConnectFailure { None, NotAPlanning, ConnectError, Version };

struct ConnectResult {
  std::unique_ptr<PlanningConnection> connection;
  ConnectFailure failure = ConnectFailure::None;
  QString detail;  // the store's own words, for a log or a test
  explicit operator bool() const { return connection != nullptr; }
};

// A planning: extension "ksv" and the tables DataBaseInfo, Reservation and
// Resource.
bool hasPlanningExtension(const QString& path);
bool hasPlanningTables(Database& db);

// Opens `path` in `mode` through openPlanning, after any compaction under way
// has put its file in place. Shows nothing: callers decide (the session asks
// to repair, others show reportConnectFailure). A file that is not a planning
// fails with NotAPlanning, one of another version with Version; anything else
// that goes wrong with ConnectError.
ConnectResult Connecting(const QString& path, char mode);
// The same, showing "The file - | - is not a Planning" or "Error while
// connecting to the data base." on failure.
ConnectResult Connecting(const QString& path, char mode, Messages& messages, const Texts& texts);
void reportConnectFailure(const ConnectResult& result, const QString& path, Messages& messages, const Texts& texts);

}  // namespace ksv
