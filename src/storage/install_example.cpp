#include "install_example.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/clock.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/texts.h"
#include "file_operations.h"
#include "lock_file.h"

namespace ksv {

QString installedExample(const Paths& paths) {
  return QDir(paths.documentsDir()).filePath(QLatin1String(kExampleFileName));
}

bool Install_Example(const Paths& paths, const Clock& clock, Messages& messages, const Texts& texts) {
  const QString source = paths.exampleFile();
  if (!QFileInfo::exists(source)) {
    messages.critical(texts.get(txt::ExampleMissing));
    return false;
  }
  const QString target = installedExample(paths);
  QFile::remove(target);
  QFile::remove(lockPathOf(target));
  // An installed program's files may be read-only; the copy must take writes.
  if (!QFile::copy(source, target) ||
      !QFile::setPermissions(target, QFile::permissions(target) | QFileDevice::WriteOwner | QFileDevice::ReadOwner)) {
    messages.critical(texts.get(txt::CopyError));
    return false;
  }
  return ShiftExampleDate(target, clock.today());
}

}  // namespace ksv
