#pragma once
// The command line, for scripts and cron jobs: the file operations of the
// file menu without the window, through the same code and taking the same
// locks a workstation takes.
//
//   kestrovane new FILE | compact FILE | backup FILE TARGET
//            | extract FILE TARGET | purge FILE | check FILE | --help
//
// What was done goes to `out`; the system's messages go to `messages` (on the
// real command line a PrintingMessages on the error stream). Nothing waits for
// an answer: a question takes its preselected answer, so a target that exists
// is never replaced.

#include <QStringList>
#include <QTextStream>

namespace ksv {

class Clock;
class Messages;
class Paths;
class Texts;

// Exit statuses.
enum CommandExit : int {
  kExitDone = 0,
  kExitFailed = 1,     // the operation failed or was refused by a message
  kExitWrongUsage = 2, // unknown command or wrong number of names
  kExitInUse = 3,      // another workstation holds the lock the command needs
};

// True when `firstArgument` names one of the commands (or --help): the
// program then runs runCommandLine instead of opening its window.
bool isCommand(const QString& firstArgument);

// Runs one command; `args` are the arguments after the program's name.
// Returns the exit status.
int runCommandLine(const QStringList& args, QTextStream& out, QTextStream& err, Messages& messages,
                   const Texts& texts, const Paths& paths, const Clock& clock);

// Years of bookings the purge keeps: YearKeep of section Reservation in the
// ini file of the program's folder; 3 when the file, the key or a number is
// missing. Read only: the command line never writes the workstation's options.
int yearKeepOption(const Paths& paths);

}  // namespace ksv
