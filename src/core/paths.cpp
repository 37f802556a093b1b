#include "paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace ksv {

Paths::Paths(QString programDir, QString documentsDir)
    : programDir_(std::move(programDir)), documentsDir_(std::move(documentsDir)) {}

QString Paths::programDirFor(const QString& executableDir) {
  const QString shipped = shippedDirFor(executableDir);
  QString dir = qEnvironmentVariable("KESTROVANE_HOME");
  if (dir.isEmpty()) {
    // An installed program, even run by root, keeps the user's files out of bin.
    const QFileInfo exe(executableDir);
    const bool installed = shipped != QDir::cleanPath(QDir(executableDir).absolutePath());
    dir = exe.isDir() && exe.isWritable() && !installed
              ? executableDir
              : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/kestrovane");
  }
  const bool fresh = !QFileInfo::exists(QDir(dir).filePath(QStringLiteral("Kestrovane.ini")));
  QDir().mkpath(dir);
  dir = QDir::cleanPath(QDir(dir).absolutePath());
  // A program folder away from the shipped files gets its own copy of the
  // example once, or the example menu would not find it. The remark template
  // comes only with a new folder: one the user deleted stays deleted.
  const auto copyShipped = [&](const char* name) {
    const QString own = QDir(dir).filePath(QLatin1String(name));
    const QString source = QDir(shipped).filePath(QLatin1String(name));
    if (QFileInfo::exists(own) || !QFileInfo::exists(source)) return;
    // Installed files are read-only; the user's copy takes writes.
    if (QFile::copy(source, own)) QFile::setPermissions(own, QFile::permissions(own) | QFileDevice::WriteOwner);
  };
  copyShipped(kExampleFileName);
  if (fresh) copyShipped(kRemarksFileName);
  return dir;
}

QString Paths::shippedDirFor(const QString& executableDir) {
  const QString installed = QDir::cleanPath(QDir(executableDir).absoluteFilePath(QStringLiteral("../share/kestrovane")));
  if (QFileInfo(installed).isDir()) return installed;
  return QDir::cleanPath(QDir(executableDir).absolutePath());
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
