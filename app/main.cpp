// Kestrovane: reservations for small hotels and guest houses.

#include <cstdio>

#include <QApplication>
#include <QDir>
#include <QTextStream>

#include "core/clock.h"
#include "core/paths.h"
#include "core/printing_messages.h"
#include "core/texts.h"
#include "core/ui/qt_messages.h"
#include "storage/command_line.h"
#include "storage/start_checks.h"
#include "main_window.h"
#include "version.h"

namespace {

void printHelp() {
  std::printf(
      "Usage: kestrovane [OPTION]\n"
      "Reservations for small hotels and guest houses.\n\n"
      "  --version   print the version and exit\n"
      "  --help      print this help and exit\n");
}

// The commands for scripts: no window, the same file operations.
int commandLine(int argc, char* argv[]) {
  QCoreApplication app(argc, argv);
  QTextStream out(stdout), err(stderr);
  const ksv::Texts texts(qEnvironmentVariable("LANG").startsWith(QLatin1String("fr")) ? ksv::kFrenchOffset : 0);
  ksv::PrintingMessages messages(err, texts);
  const ksv::Paths paths(ksv::Paths::programDirFor(QCoreApplication::applicationDirPath()),
                         ksv::Paths::systemDocumentsDir());
  const ksv::SystemClock clock;
  return ksv::runCommandLine(app.arguments().mid(1), out, err, messages, texts, paths, clock);
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc > 1 && ksv::isCommand(QString::fromLocal8Bit(argv[1]))) return commandLine(argc, argv);
  for (int i = 1; i < argc; ++i) {
    const QByteArray arg(argv[i]);
    if (arg == "--version") {
      std::printf("Kestrovane %s\n", KSV_VERSION_TEXT);
      return 0;
    }
    if (arg == "--help" || arg == "-h") {
      printHelp();
      return 0;
    }
  }

  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Kestrovane"));
  QApplication::setApplicationVersion(QStringLiteral(KSV_VERSION_TEXT));

  ksv::Texts texts(0);
  ksv::QtMessages messages(nullptr, texts);

  const ksv::SingleInstance instance(ksv::SingleInstance::defaultLockPath());
  if (!instance.isFirst()) {
    messages.critical(texts.get(ksv::txt::AlreadyRunning));
    return 1;
  }
  const ksv::SystemClock clock;
  if (!ksv::systemDateUsable(clock.today())) {
    messages.information(texts.get(ksv::txt::ChristianDate));
    return 1;
  }
  const QString documents = ksv::Paths::systemDocumentsDir();
  if (documents.isEmpty()) {
    messages.critical(texts.get(ksv::txt::SystemIncident));
    return 1;
  }
  const ksv::Paths paths(ksv::Paths::programDirFor(QCoreApplication::applicationDirPath()), documents);

  ksv::MainWindow window(texts);
  window.show();
  return app.exec();
}
