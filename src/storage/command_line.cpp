#include "command_line.h"

#include <QFile>
#include <QFileInfo>

#include "config/ini_file.h"
#include "config/option_reader.h"
#include "connecting.h"
#include "core/clock.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/texts.h"
#include "creation.h"
#include "file_operations.h"
#include "lock_file.h"
#include "planning_file.h"
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

  // The checks of the one open routine, in order; a journal left by a crash
  // is rolled back on the way. `damagedToo` lets a damaged planning through,
  // for the repair.
  bool checkedPlanning(const QString& file, bool damagedToo = false) {
    const OpenedPlanning opened = openPlanning(file, Database::OpenMode::ReadOnly);
    if (opened || (damagedToo && opened.check == PlanningCheck::Damaged)) return true;
    reportPlanningCheck(opened, file, messages_, texts_);
    return false;
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

  // Who holds the planning, as the users list would show them.
  int refuseInUse(const QString& file, int entry) {
    messages_.critical(texts_.get(entry));
    for (const RosterMember& m : liveConnections(file))
      messages_.information(texts_.withName(txt::CliConnected, m.computer + QLatin1String(" / ") + m.login));
    return kExitInUse;
  }

  // A lock the command cannot have: in use (exit 3), or a lock file that
  // cannot be written, which no waiting will change (exit 1).
  int refuseLock(LockAnswer answer, const QString& file, int inUseEntry) {
    if (answer == LockAnswer::InUse) return refuseInUse(file, inUseEntry);
    messages_.critical(texts_.withName(txt::LockUnwritable, lockPathOf(file)));
    return kExitFailed;
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
    if (!checkedPlanning(file, true)) return kExitFailed;
    const LockAnswer lock = requestLock(file, 'E');
    if (lock != LockAnswer::Granted) return refuseLock(lock, file, txt::RosterCompact);
    const bool ok = Compact_Planning(file, true, messages_, texts_);
    ReleaseConnectMode(file, 'E');
    if (!ok) return kExitFailed;
    say(txt::CliPlanning, file);
    say(txt::CompactSuccessful);
    return kExitDone;
  }

  // The copy goes through a consistent SQLite copy, so others may go on working.
  int backup(const QString& file, const QString& target) {
    if (!checkedPlanning(file) || !copyTarget(file, target, txt::SaveOnItself, txt::ReplacePlanning))
      return kExitFailed;
    if (!Copy_Planning(file, target, true, paths_, messages_, texts_)) return kExitFailed;
    say(txt::CliCopy, target);
    say(txt::SaveSuccessful);
    return kExitDone;
  }

  int extract(const QString& file, const QString& target) {
    if (!checkedPlanning(file) || !copyTarget(file, target, txt::ExtractOnItself, txt::ReplaceFile))
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
    if (!checkedPlanning(file)) return kExitFailed;
    const QString yearKeep = yearKeepText(paths_);
    const std::optional<int> kept = yearKeepYears(yearKeep);
    if (!kept) {
      messages_.critical(texts_.withName(txt::YearKeepRefused, yearKeep));
      return kExitFailed;
    }
    const int years = *kept;
    // A compaction under way is waited for by the connection, which then
    // opens the compacted file.
    const LockAnswer lock = requestLock(file, 'U');
    if (lock != LockAnswer::Granted) return refuseLock(lock, file, txt::RosterNormalMode);
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
  // the roster, so the list of connected users is the others'. The planning
  // is read exactly as a repair would read it, into memory, so what it calls
  // repairable is what a compaction repairs.
  int check(const QString& file) {
    OpenedPlanning opened = openPlanning(file, Database::OpenMode::ReadOnly);
    if (!opened && opened.check != PlanningCheck::Damaged) {
      reportPlanningCheck(opened, file, messages_, texts_);
      return kExitFailed;
    }
    PlanningReading reading;
    qint64 bookings = 0;
    try {
      Database scratch(QStringLiteral(":memory:"), Database::OpenMode::Create);
      reading = readWholePlanning(opened.db, scratch);
      bookings = scratch.scalar(QStringLiteral("SELECT count(*) FROM Reservation WHERE GroupId = 'C'")).toLongLong();
    } catch (const StorageError& e) {
      reading.readable = false;
      reading.integrity = e.message();
    }
    say(txt::CliPlanning, file);
    say(txt::CliVersion, opened.version);
    const QString firstFault = reading.integrity.section(QLatin1Char('\n'), 0, 0);
    const bool sound = reading.sound();
    if (sound) {
      say(txt::CliIntegrityOk);
      say(txt::CliBookings, QString::number(bookings));
    } else if (!reading.readable) {
      say(txt::CliNotRepairable, firstFault);
    } else {
      say(txt::CliIntegrityBad, firstFault);
      const QStringList report = readingReport(reading, texts_);
      if (!report.isEmpty()) say(txt::CliRepairWouldKeep);
      for (const QString& line : report) out_ << line << Qt::endl;
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

bool isCommand(const QString& firstArgument) {
  // The window takes options and a planning to open; any other word is meant
  // as a command, and a mistyped one is answered here rather than by opening
  // a window.
  if (isHelp(firstArgument) || kCommands.contains(firstArgument)) return true;
  return !firstArgument.isEmpty() && !firstArgument.startsWith(QLatin1Char('-')) &&
         !hasPlanningExtension(firstArgument);
}

int commandLineTextOffset(const Paths& paths) {
  const QString language = IniFile(paths.iniFile()).GetValue("Remember", "Language").trimmed();
  return language.compare(QLatin1String("Fr"), Qt::CaseInsensitive) == 0 ? kFrenchOffset : 0;
}

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

QString yearKeepText(const Paths& paths) {
  // Read only: a script never rewrites the workstation's options.
  const QString text = IniFile(paths.iniFile()).GetValue("Reservation", "YearKeep");
  return text.trimmed().isEmpty() ? QStringLiteral("3") : text;
}

}  // namespace ksv
