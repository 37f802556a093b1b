#include "planning_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "connecting.h"
#include "core/messages.h"
#include "core/texts.h"
#include "fault_point.h"
#include "file_gate.h"
#include "schema.h"
#include "stored_queries.h"

namespace ksv {
namespace {

constexpr int kNotADatabase = 26;  // SQLITE_NOTADB

QString sqlQuote(const QString& text) {
  QString q = text;
  q.replace(QLatin1Char('\''), QLatin1String("''"));
  return QLatin1Char('\'') + q + QLatin1Char('\'');
}

QString quoted(const QString& name) { return QLatin1Char('"') + name + QLatin1Char('"'); }

// A rollback journal beside the file is rolled back by the first read of a
// connection that may write; a read-only one would refuse the file instead.
void recoverJournal(const QString& path) {
  if (!QFileInfo::exists(path + QStringLiteral("-journal"))) return;
  Database db(path, Database::OpenMode::ReadWrite);
  db.scalar(QStringLiteral("SELECT count(*) FROM sqlite_master"));
}

// Versions are "major.minor" texts; compared as numbers.
std::optional<double> versionNumber(const QString& version) {
  bool ok = false;
  const double v = version.trimmed().toDouble(&ok);
  return ok ? std::optional<double>(v) : std::nullopt;
}

// The trees the integrity check names, by their root page.
QList<int> damagedRoots(const QString& integrity) {
  QList<int> roots;
  static const QRegularExpression tree(QStringLiteral("Tree (\\d+)"));
  for (auto it = tree.globalMatch(integrity); it.hasNext();) roots << it.next().captured(1).toInt();
  return roots;
}

}  // namespace

QString integrityCheck(Database& db) {
  QStringList faults;
  try {
    Statement st = db.prepare(QStringLiteral("PRAGMA integrity_check(100)"));
    while (st.step()) faults << st.column(0).toString();
  } catch (const StorageError& e) {
    faults << e.message();
  }
  return faults.join(QLatin1Char('\n'));
}

namespace {

// Copies the rows of one table; each row goes through the column rules of a
// fresh planning, so a row that damage turned into nonsense is refused.
TableReading readTable(Database& source, Database& target, const TableDef& table) {
  TableReading r{table.name};
  const int columns = static_cast<int>(table.columns.size());
  QStringList marks;
  for (int i = 0; i < columns; ++i) marks << QStringLiteral("?");
  Statement insert =
      target.prepare(QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(quoted(table.name), marks.join(QLatin1Char(','))));
  auto keep = [&](Statement& from) {
    try {
      for (int i = 0; i < columns; ++i) insert.bind(i, from.column(i));
      insert.run();
      insert.reset();
      ++r.kept;
    } catch (const StorageError&) {
      insert.reset();
      ++r.lost;
    }
  };
  // The whole table at once when it reads.
  bool begun = false;
  try {
    Statement all = source.prepare(QStringLiteral("SELECT * FROM %1").arg(quoted(table.name)));
    if (all.columnCount() != columns) throw StorageError(0, QStringLiteral("columns differ"));
    target.exec(QStringLiteral("SAVEPOINT whole"));
    begun = true;
    while (all.step()) keep(all);
    target.exec(QStringLiteral("RELEASE whole"));
    return r;
  } catch (const StorageError&) {
    if (begun) target.exec(QStringLiteral("ROLLBACK TO whole; RELEASE whole"));
    r.kept = r.lost = 0;
  }
  // Otherwise row by row, by rowid: what reads is kept, what fails is lost.
  // The last rowid may sit on a lost page, so the walk goes on until a long
  // run of rowids that are simply absent.
  Statement one = source.prepare(QStringLiteral("SELECT * FROM %1 WHERE rowid = ?").arg(quoted(table.name)));
  constexpr int kAbsentRun = 2000;
  qint64 known = 0;
  try {
    known = source.scalar(QStringLiteral("SELECT max(rowid) FROM %1").arg(quoted(table.name))).toLongLong();
  } catch (const StorageError&) {
  }
  int absent = 0;
  for (qint64 id = 1; id <= known || absent < kAbsentRun; ++id) {
    try {
      one.reset();
      one.bind(0, id);
      if (one.step()) {
        keep(one);
        absent = 0;
      } else if (id > known) {
        ++absent;
      }
    } catch (const StorageError&) {
      ++r.lost;
      absent = 0;
    }
  }
  return r;
}

}  // namespace

OpenedPlanning openPlanning(const QString& path, Database::OpenMode mode) {
  OpenedPlanning o;
  if (!QFileInfo(path).isFile()) {
    o.check = PlanningCheck::Missing;
    return o;
  }
  if (!hasPlanningExtension(path)) {
    o.check = PlanningCheck::NotAPlanning;
    return o;
  }
  return openPlanningContent(path, mode);
}

OpenedPlanning openPlanningContent(const QString& path, Database::OpenMode mode) {
  OpenedPlanning o;
  try {
    recoverJournal(path);
    o.db = Database(path, mode);
    if (!hasPlanningTables(o.db)) {
      o.check = PlanningCheck::NotAPlanning;
      o.db.close();
      return o;
    }
  } catch (const StorageError& e) {
    o.check = e.primaryCode() == kNotADatabase ? PlanningCheck::NotAPlanning : PlanningCheck::ConnectError;
    o.detail = e.message();
    o.db.close();
    return o;
  }
  try {
    const QVariant version = o.db.scalar(QStringLiteral("SELECT Version FROM DataBaseInfo"));
    // A planning being made has its tables before its first row.
    if (version.isNull()) return o;
    o.version = version.toString();
  } catch (const StorageError& e) {
    o.check = PlanningCheck::Damaged;
    o.detail = e.message();
    return o;
  }
  const std::optional<double> mine = versionNumber(QLatin1String(kSchemaVersion));
  const std::optional<double> its = versionNumber(o.version);
  if (!its)
    o.check = PlanningCheck::Damaged;
  else if (*its > *mine)
    o.check = PlanningCheck::Newer;
  else if (*its < *mine)
    o.check = PlanningCheck::Older;
  return o;
}

void reportPlanningCheck(const OpenedPlanning& opened, const QString& path, Messages& messages, const Texts& texts) {
  switch (opened.check) {
    case PlanningCheck::Ok: break;
    case PlanningCheck::Missing: messages.critical(texts.withName(txt::PlanningMissing, path)); break;
    case PlanningCheck::NotAPlanning: messages.critical(texts.withName(txt::NotAPlanning, path)); break;
    case PlanningCheck::ConnectError:
    case PlanningCheck::Damaged: messages.critical(texts.get(txt::ConnectError)); break;
    case PlanningCheck::Older: messages.critical(texts.withName(txt::OlderVersion, opened.version)); break;
    case PlanningCheck::Newer: messages.critical(texts.get(txt::MustUpgrade)); break;
  }
}

int PlanningReading::lost() const {
  int n = 0;
  for (const TableReading& t : tables) n += t.lost;
  return n;
}

bool PlanningReading::sound() const {
  if (!readable || integrity != QLatin1String("ok")) return false;
  for (const TableReading& t : tables)
    if (t.lost > 0 || t.damaged) return false;
  return true;
}

PlanningReading readWholePlanning(Database& source, Database& target) {
  PlanningReading reading;
  reading.integrity = integrityCheck(source);
  const QList<int> roots = damagedRoots(reading.integrity);
  createPlanningTables(target);
  createStoredQueries(target);
  Transaction t(target);
  for (const TableDef& table : planningTables()) {
    bool present = false;
    int root = 0;
    try {
      present = source.tableExists(table.name);
      root = source.scalar(QStringLiteral("SELECT rootpage FROM sqlite_master WHERE type = 'table' AND name = ?"),
                           {table.name})
                 .toInt();
    } catch (const StorageError&) {
      reading.readable = false;
      break;
    }
    if (!present) continue;
    TableReading r = readTable(source, target, table);
    r.damaged = roots.contains(root);
    reading.tables << r;
  }
  // A planning needs its one DataBaseInfo row: when damage took it, the
  // counters are taken back from the rows kept.
  if (reading.readable && target.scalar(QStringLiteral("SELECT count(*) FROM DataBaseInfo")).toInt() == 0) {
    target.execute(
        QStringLiteral("INSERT INTO DataBaseInfo VALUES (?, "
                       "(SELECT coalesce(max(InvoiceNb), 0) FROM Invoice WHERE InvoiceNb > 0), "
                       "(SELECT coalesce(-min(InvoiceNb), 0) FROM Invoice WHERE InvoiceNb < 0), "
                       "(SELECT coalesce(max(GroupNb), 0) FROM Reservation))"),
        {QString::fromLatin1(kSchemaVersion)});
  }
  t.commit();
  return reading;
}

QStringList readingReport(const PlanningReading& reading, const Texts& texts) {
  QStringList lines;
  for (const TableReading& t : reading.tables) {
    if (t.lost == 0 && !t.damaged) continue;
    lines << texts.withName(txt::RepairTable, t.table) + texts.withName(txt::RepairKept, QString::number(t.kept)) +
                 QStringLiteral(", ") + texts.withName(txt::RepairLost, QString::number(t.lost));
    if (t.damaged) lines << texts.withName(txt::RepairMayHaveChanged, t.table);
  }
  return lines;
}

bool verifiedPlanning(const QString& path, QString* detail) {
  // A temporary has no planning's extension yet: the checks after it apply.
  OpenedPlanning o = openPlanningContent(path, Database::OpenMode::ReadOnly);
  if (!o) {
    if (detail) *detail = o.detail.isEmpty() ? QStringLiteral("not a planning") : o.detail;
    return false;
  }
  const QString integrity = integrityCheck(o.db);
  if (integrity != QLatin1String("ok")) {
    if (detail) *detail = integrity;
    return false;
  }
  return true;
}

bool replacePlanningFile(const QString& fresh, const QString& target) {
  const QByteArray freshName = QFile::encodeName(fresh), targetName = QFile::encodeName(target);
  struct stat old;
  if (::stat(targetName.constData(), &old) == 0) {
    // Staff keep their access and strangers stay out: the new file is the old
    // one's in all but content.
    if (::chmod(freshName.constData(), old.st_mode & 07777) != 0) return false;
    if (::chown(freshName.constData(), old.st_uid, old.st_gid) != 0)
      (void)!::chown(freshName.constData(), static_cast<uid_t>(-1), old.st_gid);
  } else {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    if (::chmod(freshName.constData(), 0666 & ~mask) != 0) return false;
  }
  if (!syncPath(fresh)) return false;
  faultPoint("replace:before-rename");
  if (::rename(freshName.constData(), targetName.constData()) != 0) return false;
  faultPoint("replace:renamed");
  syncPath(QFileInfo(target).absolutePath());
  return true;
}

bool copyPlanning(const QString& source, const QString& target, QString* detail) {
  sweepDeadTemporaries(target);
  auto temp = HeldTemporary::create(target);
  if (!temp) {
    if (detail) *detail = QStringLiteral("no temporary file beside the target");
    return false;
  }
  faultPoint("copy:temporary");
  try {
    OpenedPlanning from = openPlanning(source, Database::OpenMode::ReadOnly);
    if (!from) {
      if (detail) *detail = from.detail;
      return false;
    }
    // A consistent, compacted copy: it never catches a write half made.
    from.db.exec(QStringLiteral("VACUUM INTO ") + sqlQuote(temp->path()));
  } catch (const StorageError& e) {
    if (detail) *detail = e.message();
    return false;
  }
  faultPoint("copy:written");
  if (!verifiedPlanning(temp->path(), detail)) return false;
  faultPoint("copy:verified");
  if (!replacePlanningFile(temp->path(), target)) return false;
  temp->taken();
  return true;
}

}  // namespace ksv
