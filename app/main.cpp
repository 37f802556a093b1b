// Kestrovane: reservations for small hotels and guest houses.

#include <cstdio>

#include <QApplication>
#include <QIcon>
#include <QTextStream>

#include "core/clock.h"
#include "core/paths.h"
#include "core/printing_messages.h"
#include "core/texts.h"
#include "planning_app.h"
#include "storage/command_line.h"
#include "version.h"

namespace {

// The commands for scripts: no window, the same file operations.
int commandLine(int argc, char* argv[]) {
  QCoreApplication app(argc, argv);
  QTextStream out(stdout), err(stderr);
  const ksv::Paths paths(ksv::Paths::programDirFor(QCoreApplication::applicationDirPath()),
                         ksv::Paths::systemDocumentsDir());
  const ksv::Texts texts(ksv::commandLineTextOffset(paths));
  ksv::PrintingMessages messages(err, texts);
  const ksv::SystemClock clock;
  return ksv::runCommandLine(app.arguments().mid(1), out, err, messages, texts, paths, clock);
}

}  // namespace

int main(int argc, char* argv[]) {
  // Decided before any window system is touched: a cron job has no display.
  if (argc > 1 && ksv::isCommand(QString::fromLocal8Bit(argv[1]))) return commandLine(argc, argv);
  bool example = false;
  for (int i = 1; i < argc; ++i) {
    const QByteArray arg(argv[i]);
    if (arg == "--version") {
      std::printf("Kestrovane %s\n", KSV_VERSION_TEXT);
      return 0;
    }
    if (arg == "--example") example = true;
  }

  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Kestrovane"));
  QApplication::setApplicationVersion(QStringLiteral(KSV_VERSION_TEXT));
  // The desktop ties the window to the menu entry; the icon comes from the
  // installed icon theme (none in a build tree).
  QGuiApplication::setDesktopFileName(QStringLiteral("kestrovane"));
  QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("kestrovane")));
  // A planning named on the command line, as a double click on a .ksv file
  // passes it; Qt has taken its own options out of the arguments by now.
  QString planning;
  for (const QString& arg : QCoreApplication::arguments().mid(1)) {
    if (!arg.startsWith(QLatin1Char('-'))) {
      planning = arg;
      break;
    }
  }
  return ksv::runPlanningWindow(app, example, planning);
}
