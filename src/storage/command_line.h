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

// True when `firstArgument` is meant for the command line: --help, a
// command, or any word that is neither an option of the window nor a planning
// (a name ending in .ksv) for it to open. The program then runs
// runCommandLine, which answers a mistyped command, and opens no window.
bool isCommand(const QString& firstArgument);

// The language of the command line's texts: Language of section Remember in
// the program's ini file, as the window speaks.
int commandLineTextOffset(const Paths& paths);

// Runs one command; `args` are the arguments after the program's name.
// Returns the exit status.
int runCommandLine(const QStringList& args, QTextStream& out, QTextStream& err, Messages& messages,
                   const Texts& texts, const Paths& paths, const Clock& clock);

// YearKeep of section Reservation in the ini file of the program's folder as
// it stands, "3" when the file or the key is missing; read by yearKeepYears.
// Read only: the command line never writes the workstation's options.
QString yearKeepText(const Paths& paths);

}  // namespace ksv
