// Kestrovane: reservations for small hotels and guest houses.

#include <cstdio>

#include <QApplication>

#include "planning_app.h"
#include "version.h"

namespace {

void printHelp() {
  std::printf(
      "Usage: kestrovane [OPTION]\n"
      "Reservations for small hotels and guest houses.\n\n"
      "  --version   print the version and exit\n"
      "  --help      print this help and exit\n");
}

}  // namespace

int main(int argc, char* argv[]) {
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
  return ksv::runPlanningWindow(app);
}
