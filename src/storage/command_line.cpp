#include "command_line.h"

#include <QFile>
#include <QFileInfo>

#include "config/ini_file.h"
#include "connecting.h"
#include "core/clock.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/texts.h"
#include "creation.h"
#include "file_operations.h"
#include "lock_file.h"
#include "planning_name.h"
#include "roster.h"
#include "schema.h"
#include "sqlite_db.h"

namespace ksv {
namespace {

const QStringList kCommands = {QStringLiteral("new"),   QStringLiteral("compact"), QStringLiteral("backup"),
                               QStringLiteral("extract"), QStringLiteral("purge"), QStringLiteral("check")};

bool isHelp(const QString& arg) { return arg == QLatin1String("--help") || arg == QLatin1String("-h"); }

// Every name a command takes; the same rule as the file dialogs: a planning
// ends in ksv.
int namesNeeded(const QString& command) {
  return command == QLatin1String("backup") || command == QLatin1String("extract") ? 2 : 1;
}

class CommandRun {
 public:
  CommandRun(QTextStream& out, Messages& messages, const Texts& texts, const Paths& paths, const Clock& clock)
      : out_(out), messages_(messages), texts_(texts), paths_(paths), clock_(clock) {}

  int run(const QString& command, const QStringList& names) {
    if (command == QLatin1String("new")) return newPlanning(names[0]);
    if (command == QLatin1String("compact")) return compact(names[0]);
    if (command == QLatin1String("backup")) return backup(names[0], names[1]);
    if (command == QLatin1String("extract")) return extract(names[0], names[1]);
    if (command == QLatin1String("purge")) return purge(names[0]);
    return check(names[0]);
  }

 private:
  void say(int entry, const QString& name) { out_ << texts_.withName(entry, name) << Qt::endl; }
  void say(int entry) { out_ << texts_.get(entry) << Qt::endl; }

  // The checks of Demander_NomFichier: a planning ends in ksv and exists.
  bool existingPlanning(const QString& file) {
    if (!hasPlanningExtension(file)) {
      messages_.critical(texts_.withName(txt::NotAPlanning, file));
      return false;
    }
    if (!QFileInfo(file).isFile()) {
      messages_.critical(texts_.withName(txt::PlanningMissing, file));
      return false;
    }
    return true;
  }

  // A copy's name: not the planning itself, and an existing file is replaced
  // only on a Yes, which the command line never gives.
  bool copyTarget(const QString& file, const QString& target, int onItself, int replace) {
    if (!hasPlanningExtension(target)) {
      messages_.critical(texts_.withName(txt::NotAPlanning, target));
      return false;
    }
    if (QFileInfo(target).absoluteFilePath() == QFileInfo(file).absoluteFilePath()) {
      messages_.critical(texts_.get(onItself));
      return false;
    }
    if (QFileInfo::exists(target)) {
      if (!messages_.askYesNo(texts_.get(replace), MsgAnswer::No)) return false;
      if (!QFile::remove(target)) {
        messages_.critical(texts_.get(txt::CopyError));
        return false;
      }
    }
    return true;
  }

  // A planning of another version is converted by the program first; the
  // command line works on current files only.
  bool currentVersion(const QString& file) {
    QString version;
    try {
      Database db(file, Database::OpenMode::ReadOnly);
      if (!hasPlanningTables(db)) {
        messages_.critical(texts_.withName(txt::NotAPlanning, file));
        return false;
      }
      version = db.scalar(QStringLiteral("SELECT Version FROM DataBaseInfo")).toString();
    } catch (const StorageError&) {
      messages_.critical(texts_.get(txt::ConnectError));
      return false;
    }
    if (version == QLatin1String(kSchemaVersion)) return true;
    messages_.critical(texts_.withName(txt::CliNeedsConversion, version));
    return false;
  }

  // Who holds the planning, as the users list would show them.
  int refuseInUse(const QString& file, int entry) {
    messages_.critical(texts_.get(entry));
    for (const RosterMember& m : liveConnections(file))
      messages_.information(texts_.withName(txt::CliConnected, m.computer + QLatin1String(" / ") + m.login));
    return kExitInUse;
  }

  int newPlanning(const QString& file) {
    if (!hasPlanningExtension(file)) {
      messages_.critical(texts_.withName(txt::NotAPlanning, file));
      return kExitFailed;
    }
    if (QFileInfo::exists(file)) {
      messages_.critical(texts_.withName(txt::PlanningExists, file));
      return kExitFailed;
    }
    if (!Creation(file, {messages_, texts_, paths_})) {
      messages_.critical(texts_.get(txt::ConnectError));
      return kExitFailed;
    }
    say(txt::CliCreated, file);
    return kExitDone;
  }

  int compact(const QString& file) {
    if (!existingPlanning(file)) return kExitFailed;
    deleteStaleLock(file);  // a workstation that crashed holds nothing
    if (!RequestConnectMode(file, 'E')) return refuseInUse(file, txt::RosterCompact);
    const bool ok = Compact_Planning(file, true, messages_, texts_);
    ReleaseConnectMode(file, 'E');
    if (!ok) return kExitFailed;
    say(txt::CliPlanning, file);
    say(txt::CompactSuccessful);
    return kExitDone;
  }

  // The copy goes through a consistent SQLite copy, so others may go on working.
  int backup(const QString& file, const QString& target) {
    if (!existingPlanning(file) || !copyTarget(file, target, txt::SaveOnItself, txt::ReplacePlanning))
      return kExitFailed;
    if (!Copy_Planning(file, target, true, paths_, messages_, texts_)) return kExitFailed;
    say(txt::CliCopy, target);
    say(txt::SaveSuccessful);
    return kExitDone;
  }

  int extract(const QString& file, const QString& target) {
    if (!existingPlanning(file) || !currentVersion(file) ||
        !copyTarget(file, target, txt::ExtractOnItself, txt::ReplaceFile))
      return kExitFailed;
    if (!Copy_Planning(file, target, true, paths_, messages_, texts_) ||
        !extractCurrent(target, clock_.today(), messages_, texts_)) {
      messages_.critical(texts_.get(txt::ExtractFailed));
      return kExitFailed;
    }
    say(txt::CliCopy, target);
    say(txt::ExtractSuccessful);
    return kExitDone;
  }

  // As M_Purge from a session in normal mode, without its question: the lock U
  // is what a session would hold.
  int purge(const QString& file) {
    if (!existingPlanning(file) || !currentVersion(file)) return kExitFailed;
    deleteStaleLock(file);
    // A compaction under way replaces the file: nothing may write meanwhile.
    const std::optional<LockRecord> lock = readLockFile(lockPathOf(file));
    if (lock && lock->exclusive != 0) return refuseInUse(file, txt::RosterNormalMode);
    if (!RequestConnectMode(file, 'U')) return refuseInUse(file, txt::RosterNormalMode);
    const int years = yearKeepOption(paths_);
    const QDate limit = purgeLimit(clock_.today(), years);
    int deleted = -1;
    {
      ConnectResult c = Connecting(file, 'U', messages_, texts_);
      if (c) {
        try {
          deleted = purgeBefore(c.connection->db(), clock_, limit);
        } catch (const StorageError&) {
          messages_.critical(texts_.get(txt::ConnectError));
        }
      }
    }
    ReleaseConnectMode(file, 'U');
    if (deleted < 0) return kExitFailed;
    say(txt::CliPlanning, file);
    say(txt::CliYearKeep, QString::number(years));
    say(txt::CliPurgeLimit, limit.toString(Qt::ISODate));
    say(txt::CliPurgeCount, QString::number(deleted));
    say(txt::PurgeSuccessful);
    return kExitDone;
  }

  // Looks without touching: no lock is taken and this process does not join
  // the roster, so the list of connected users is the others'.
  int check(const QString& file) {
    if (!existingPlanning(file)) return kExitFailed;
    QString version, integrity;
    qint64 bookings = 0;
    try {
      Database db(file, Database::OpenMode::ReadOnly);
      if (!hasPlanningTables(db)) {
        messages_.critical(texts_.withName(txt::NotAPlanning, file));
        return kExitFailed;
      }
      version = db.scalar(QStringLiteral("SELECT Version FROM DataBaseInfo")).toString();
      integrity = db.scalar(QStringLiteral("PRAGMA integrity_check")).toString();
      bookings = db.scalar(QStringLiteral("SELECT count(*) FROM Reservation WHERE GroupId = 'C'")).toLongLong();
    } catch (const StorageError& e) {
      // A file SQLite cannot read at all is no planning; one it reads in part
      // is a damaged planning.
      constexpr int kSqliteCorrupt = 11;
      if (version.isEmpty() && e.primaryCode() != kSqliteCorrupt) {
        messages_.critical(texts_.withName(txt::NotAPlanning, file));
        return kExitFailed;
      }
      integrity = e.message();
    }
    integrity = integrity.section(QLatin1Char('\n'), 0, 0);  // the first fault says enough
    say(txt::CliPlanning, file);
    say(txt::CliVersion, version);
    const bool sound = integrity == QLatin1String("ok");
    if (sound) {
      say(txt::CliIntegrityOk);
      say(txt::CliBookings, QString::number(bookings));
    } else {
      say(txt::CliIntegrityBad, integrity);
    }
    const std::optional<LockRecord> lock = readLockFile(lockPathOf(file));
    if (lock) {
      const QString yes = texts_.get(txt::CliYes), no = texts_.get(txt::CliNo);
      say(txt::CliLockConsultations, QString::number(lock->consultations));
      say(txt::CliLockNormal, lock->normalMode ? yes : no);
      say(txt::CliLockExclusive, lock->exclusive ? yes : no);
    } else {
      say(txt::CliNoLockFile);
    }
    const QList<RosterMember> live = liveConnections(file);
    if (live.isEmpty()) say(txt::CliNobodyConnected);
    for (const RosterMember& m : live) say(txt::CliConnected, m.computer + QLatin1String(" / ") + m.login);
    return sound ? kExitDone : kExitFailed;
  }

  QTextStream& out_;
  Messages& messages_;
  const Texts& texts_;
  const Paths& paths_;
  const Clock& clock_;
};

void printHelp(QTextStream& out, const Texts& texts) {
  for (int entry : {txt::CliUsage, txt::CliHelpNew, txt::CliHelpCompact, txt::CliHelpBackup, txt::CliHelpExtract,
                    txt::CliHelpPurge, txt::CliHelpCheck, txt::CliHelpHelp, txt::CliHelpVersion, txt::CliHelpExample,
                    txt::CliHelpOpen})
    out << texts.get(entry) << Qt::endl;
  out << Qt::endl << texts.get(txt::CliHelpTarget) << Qt::endl;
}

}  // namespace

bool isCommand(const QString& firstArgument) { return isHelp(firstArgument) || kCommands.contains(firstArgument); }

int runCommandLine(const QStringList& args, QTextStream& out, QTextStream& err, Messages& messages,
                   const Texts& texts, const Paths& paths, const Clock& clock) {
  if (args.isEmpty() || isHelp(args.first())) {
    printHelp(out, texts);
    return kExitDone;
  }
  const QString command = args.first();
  if (!kCommands.contains(command)) {
    err << texts.withName(txt::CliUnknownCommand, command) << Qt::endl;
    return kExitWrongUsage;
  }
  const QStringList names = args.mid(1);
  if (names.size() != namesNeeded(command)) {
    err << texts.withName(txt::CliWrongArguments, command) << Qt::endl;
    return kExitWrongUsage;
  }
  return CommandRun(out, messages, texts, paths, clock).run(command, names);
}

int yearKeepOption(const Paths& paths) {
  // Read only: a script never rewrites the workstation's options.
  bool ok = false;
  const int years = IniFile(paths.iniFile()).GetValue("Reservation", "YearKeep").trimmed().toInt(&ok);
  return ok ? years : 3;
}

}  // namespace ksv
