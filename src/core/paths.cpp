#include "paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace ksv {

Paths::Paths(QString programDir, QString documentsDir)
    : programDir_(std::move(programDir)), documentsDir_(std::move(documentsDir)) {}

QString Paths::programDirFor(const QString& executableDir) {
  QString dir = qEnvironmentVariable("KESTROVANE_HOME");
  if (dir.isEmpty()) {
    const QFileInfo exe(executableDir);
    dir = exe.isDir() && exe.isWritable()
              ? executableDir
              : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/kestrovane");
  }
  QDir().mkpath(dir);
  dir = QDir::cleanPath(QDir(dir).absolutePath());
  // The example is shipped beside the executable; a program folder elsewhere
  // gets its own copy once, or the example menu would not find it.
  const QString shipped = QDir(executableDir).filePath(QLatin1String(kExampleFileName));
  const QString own = QDir(dir).filePath(QLatin1String(kExampleFileName));
  if (!QFileInfo::exists(own) && QFileInfo::exists(shipped)) QFile::copy(shipped, own);
  return dir;
}

QString Paths::systemDocumentsDir() {
  // A fresh account may have no documents folder yet; the example and the
  // file dialogs need one.
  const QString dir = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  if (dir.isEmpty() || !QDir().mkpath(dir)) return QString();
  return dir;
}

QString Paths::inProgramDir(const QString& fileName) const { return programDir_ + QLatin1Char('/') + fileName; }

}  // namespace ksv
