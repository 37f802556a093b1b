#include "start_checks.h"

#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

namespace ksv {

SingleInstance::SingleInstance(const QString& lockPath) : lock_(std::make_unique<QLockFile>(lockPath)) {
  lock_->setStaleLockTime(0);  // only a dead owner makes it stale
  first_ = lock_->tryLock(0);
}

SingleInstance::~SingleInstance() = default;

QString SingleInstance::defaultLockPath() {
  QString dir = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (dir.isEmpty()) dir = QDir::tempPath();
  return dir + QStringLiteral("/kestrovane-") + qEnvironmentVariable("USER") + QStringLiteral(".lock");
}

bool systemDateUsable(QDate today) { return today.year() >= 1930 && today.year() <= 2500; }

}  // namespace ksv
