#include "connecting.h"

#include <QFileInfo>

#include "core/messages.h"
#include "core/texts.h"
#include "roster.h"

namespace ksv {

namespace {

constexpr int kNotADatabase = 26;        // SQLITE_NOTADB
constexpr int kReadOnlyRollback = 776;  // SQLITE_READONLY_ROLLBACK

// A workstation that died in the middle of a write leaves a journal that the
// next connection rolls back. A read-only connection can't, so the rollback
// is done by a short read-write connection and consultation opens after it.
Database openForMode(const QString& path, char mode) {
  if (mode != 'C') return Database(path, Database::OpenMode::ReadWrite);
  try {
    return Database(path, Database::OpenMode::ReadOnly);
  } catch (const StorageError& e) {
    if (e.code() != kReadOnlyRollback) throw;
  }
  Database(path, Database::OpenMode::ReadWrite).close();
  return Database(path, Database::OpenMode::ReadOnly);
}

}  // namespace

PlanningConnection::PlanningConnection(Database db, char mode, std::unique_ptr<RosterEntry> roster)
    : db_(std::move(db)), mode_(mode), roster_(std::move(roster)) {}

PlanningConnection::~PlanningConnection() {
  // The roster must not say "connected" once the file is let go, nor before.
  db_.close();
  roster_.reset();
}

bool hasPlanningExtension(const QString& path) {
  return QFileInfo(path).suffix().compare(QStringLiteral("ksv"), Qt::CaseInsensitive) == 0;
}

bool hasPlanningTables(Database& db) {
  for (const char* t : {"DataBaseInfo", "Reservation", "Resource"})
    if (!db.tableExists(QString::fromLatin1(t))) return false;
  return true;
}

ConnectResult Connecting(const QString& path, char mode) {
  ConnectResult result;
  if (mode != 'C' && mode != 'U' && mode != 'E') {
    result.failure = ConnectFailure::ConnectError;
    result.detail = QStringLiteral("Unknown connection mode");
    return result;
  }
  if (!hasPlanningExtension(path)) {
    result.failure = ConnectFailure::NotAPlanning;
    return result;
  }
  try {
    // SQLite opens the file lazily; list ourselves first so that nobody sees
    // the file unlisted while we hold it.
    auto roster = RosterEntry::join(path);
    Database db = openForMode(path, mode);
    if (!hasPlanningTables(db)) {
      result.failure = ConnectFailure::NotAPlanning;
      return result;
    }
    if (mode != 'C') db.exec(QStringLiteral("PRAGMA synchronous = FULL"));
    result.connection = std::make_unique<PlanningConnection>(std::move(db), mode, std::move(roster));
  } catch (const StorageError& e) {
    result.failure = e.primaryCode() == kNotADatabase ? ConnectFailure::NotAPlanning : ConnectFailure::ConnectError;
    result.detail = e.message();
  }
  return result;
}

void reportConnectFailure(const ConnectResult& result, const QString& path, Messages& messages, const Texts& texts) {
  switch (result.failure) {
    case ConnectFailure::None: break;
    case ConnectFailure::NotAPlanning: messages.critical(texts.withName(txt::NotAPlanning, path)); break;
    case ConnectFailure::ConnectError: messages.critical(texts.get(txt::ConnectError)); break;
  }
}

ConnectResult Connecting(const QString& path, char mode, Messages& messages, const Texts& texts) {
  ConnectResult result = Connecting(path, mode);
  reportConnectFailure(result, path, messages, texts);
  return result;
}

}  // namespace ksv
