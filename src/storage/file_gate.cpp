#include "file_gate.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

namespace ksv {
namespace {

QByteArray native(const QString& path) { return QFile::encodeName(path); }

bool sameFile(int fd, const QByteArray& path) {
  struct stat held, named;
  return fstat(fd, &held) == 0 && ::stat(path.constData(), &named) == 0 && held.st_ino == named.st_ino &&
         held.st_dev == named.st_dev;
}

// The byte a temporary's maker holds: far beyond the bytes SQLite locks
// (from 1 GiB on) so that neither disturbs the other.
constexpr off_t kTemporaryHeldByte = 0x60000000;

QString temporaryPrefix(const QString& target) { return QFileInfo(target).fileName() + QLatin1Char('~'); }
const QLatin1String kTemporarySuffix(".tmp");

}  // namespace

namespace {

struct flock rangeOf(short type, off_t start, off_t len) {
  struct flock fl;
  std::memset(&fl, 0, sizeof fl);
  fl.l_type = type;
  fl.l_whence = SEEK_SET;
  fl.l_start = start;
  fl.l_len = len;
  return fl;
}

}  // namespace

bool lockRange(int fd, short type, off_t start, off_t len, bool wait) {
  struct flock fl = rangeOf(type, start, len);
  for (;;) {
    if (fcntl(fd, wait ? F_OFD_SETLKW : F_OFD_SETLK, &fl) == 0) return true;
    if (errno != EINTR) return false;
  }
}

void unlockRange(int fd, off_t start, off_t len) { lockRange(fd, F_UNLCK, start, len, false); }

bool isLockedByOther(int fd, off_t start, off_t len) {
  struct flock fl = rangeOf(F_WRLCK, start, len);
  if (fcntl(fd, F_OFD_GETLK, &fl) != 0) return false;
  return fl.l_type != F_UNLCK;
}

std::unique_ptr<FileGate> FileGate::open(const QString& path, bool create) {
  const QByteArray name = native(path);
  for (int attempt = 0; attempt < 50; ++attempt) {
    const int fd = ::open(name.constData(), O_RDWR | O_CLOEXEC | (create ? O_CREAT : 0), 0666);
    if (fd < 0) return nullptr;
    if (!lockRange(fd, F_WRLCK, 0, 1, true)) {
      ::close(fd);
      return nullptr;
    }
    if (sameFile(fd, name)) return std::unique_ptr<FileGate>(new FileGate(path, fd));
    ::close(fd);  // removed under us by its last user: start again on the new file
    if (!create && !QFileInfo::exists(path)) return nullptr;
  }
  return nullptr;
}

FileGate::~FileGate() {
  if (fd_ < 0) return;
  unlockRange(fd_, 0, 1);
  ::close(fd_);
}

void FileGate::removeFile() { ::unlink(native(path_).constData()); }

int FileGate::releaseKeepingFile() {
  unlockRange(fd_, 0, 1);
  const int fd = fd_;
  fd_ = -1;
  return fd;
}

std::unique_ptr<HeldTemporary> HeldTemporary::create(const QString& target) {
  const QString dir = QFileInfo(target).absolutePath() + QLatin1Char('/');
  static const char kLetters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
  for (int attempt = 0; attempt < 20; ++attempt) {
    QString tag;
    for (int i = 0; i < 6; ++i) tag += QLatin1Char(kLetters[QRandomGenerator::global()->bounded(36)]);
    const QString path = dir + temporaryPrefix(target) + tag + kTemporarySuffix;
    const QByteArray name = native(path);
    const int fd = ::open(name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (fd < 0) {
      if (errno == EEXIST) continue;
      return nullptr;
    }
    // A sweeper may have taken it for a dead one before the lock was on.
    if (lockRange(fd, F_WRLCK, kTemporaryHeldByte, 1, false) && sameFile(fd, name))
      return std::unique_ptr<HeldTemporary>(new HeldTemporary(path, fd));
    ::close(fd);
  }
  return nullptr;
}

HeldTemporary::~HeldTemporary() {
  if (!taken_) {
    ::unlink(native(path_).constData());
    ::unlink(native(path_ + QStringLiteral("-journal")).constData());
  }
  ::close(fd_);
}

void sweepDeadTemporaries(const QString& target) {
  const QFileInfo info(target);
  QDir dir(info.absolutePath());
  const QString prefix = temporaryPrefix(target);
  const QStringList found =
      dir.entryList({prefix + QStringLiteral("??????") + kTemporarySuffix + QLatin1Char('*')}, QDir::Files | QDir::Hidden);
  for (const QString& entry : found) {
    QString temp = dir.filePath(entry);
    if (temp.endsWith(QLatin1String("-journal"))) temp.chop(8);
    const QByteArray name = native(temp);
    const int fd = ::open(name.constData(), O_RDWR | O_CLOEXEC);
    if (fd < 0) {  // a journal whose temporary is gone
      if (!QFileInfo::exists(temp)) ::unlink(native(temp + QStringLiteral("-journal")).constData());
      continue;
    }
    if (lockRange(fd, F_WRLCK, kTemporaryHeldByte, 1, false)) {
      ::unlink(name.constData());
      ::unlink(native(temp + QStringLiteral("-journal")).constData());
    }
    ::close(fd);
  }
}

bool syncPath(const QString& path) {
  const int fd = ::open(native(path).constData(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  const bool ok = ::fsync(fd) == 0;
  ::close(fd);
  return ok;
}

}  // namespace ksv
