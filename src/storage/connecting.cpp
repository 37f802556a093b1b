#include "connecting.h"

#include <QFileInfo>

#include "core/messages.h"
#include "core/texts.h"
#include "lock_file.h"
#include "planning_file.h"
#include "roster.h"

namespace ksv {

namespace {

// How long an opening waits for a compaction under way to put the new file in
// place; a compaction of a hotel's planning takes seconds.
constexpr int kExclusiveWaitMs = 60000;

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
  // A compaction replaces the file: the new one is what must be opened.
  if (!waitForExclusiveEnd(path, kExclusiveWaitMs)) {
    result.failure = ConnectFailure::ConnectError;
    result.detail = QStringLiteral("held exclusively by another workstation");
    return result;
  }
  // List ourselves first so that nobody sees the file unlisted while we hold it.
  auto roster = RosterEntry::join(path);
  OpenedPlanning opened = openPlanning(path, mode == 'C' ? Database::OpenMode::ReadOnly : Database::OpenMode::ReadWrite);
  result.detail = opened.detail;
  switch (opened.check) {
    case PlanningCheck::Ok: break;
    case PlanningCheck::NotAPlanning: result.failure = ConnectFailure::NotAPlanning; return result;
    case PlanningCheck::Older:
    case PlanningCheck::Newer: result.failure = ConnectFailure::Version; return result;
    default: result.failure = ConnectFailure::ConnectError; return result;
  }
  try {
    if (mode != 'C') opened.db.exec(QStringLiteral("PRAGMA synchronous = FULL"));
    result.connection = std::make_unique<PlanningConnection>(std::move(opened.db), mode, std::move(roster));
  } catch (const StorageError& e) {
    result.failure = ConnectFailure::ConnectError;
    result.detail = e.message();
  }
  return result;
}

void reportConnectFailure(const ConnectResult& result, const QString& path, Messages& messages, const Texts& texts) {
  switch (result.failure) {
    case ConnectFailure::None: break;
    case ConnectFailure::NotAPlanning: messages.critical(texts.withName(txt::NotAPlanning, path)); break;
    case ConnectFailure::ConnectError: messages.critical(texts.get(txt::ConnectError)); break;
    case ConnectFailure::Version: messages.critical(texts.get(txt::ConnectError)); break;
  }
}

ConnectResult Connecting(const QString& path, char mode, Messages& messages, const Texts& texts) {
  ConnectResult result = Connecting(path, mode);
  reportConnectFailure(result, path, messages, texts);
  return result;
}

}  // namespace ksv
