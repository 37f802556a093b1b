// Makes the example planning from its readable rows, at build time:
//   make_example ROWS_FILE TARGET.ksv
// The planning is made by the program's own Creation, then filled, so the
// example always has the tables and queries of this version.

#include <cstdio>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include "core/paths.h"
#include "core/printing_messages.h"
#include "core/texts.h"
#include "storage/creation.h"
#include "storage/row_script.h"
#include "storage/sqlite_db.h"

int main(int argc, char* argv[]) {
  QCoreApplication app(argc, argv);
  QTextStream err(stderr);
  const QStringList args = app.arguments();
  if (args.size() != 3) {
    err << "usage: make_example ROWS_FILE TARGET.ksv" << Qt::endl;
    return 2;
  }
  const QString rowsFile = args[1], target = args[2];
  QFile rows(rowsFile);
  if (!rows.open(QIODevice::ReadOnly)) {
    err << "make_example: cannot read " << rowsFile << Qt::endl;
    return 1;
  }
  const QString text = QString::fromUtf8(rows.readAll());

  // No ini file in this program folder: the example's Option row stays empty,
  // so opening it never brings a build machine's options to a user.
  QTemporaryDir programDir;
  const ksv::Paths paths(programDir.path(), programDir.path());
  const ksv::Texts texts(0);
  ksv::PrintingMessages messages(err, texts);

  QFile::remove(target);
  if (!ksv::Creation(target, {messages, texts, paths})) {
    err << "make_example: cannot make " << target << Qt::endl;
    return 1;
  }
  try {
    ksv::Database db(target, ksv::Database::OpenMode::ReadWrite);
    const int added = ksv::loadRowScript(db, text);
    db.exec(QStringLiteral("VACUUM"));
    QTextStream(stdout) << "make_example: " << added << " rows written to " << target << Qt::endl;
  } catch (const ksv::StorageError& e) {
    err << "make_example: " << rowsFile << ", " << e.message() << Qt::endl;
    QFile::remove(target);
    return 1;
  }
  return 0;
}
