#include "roster.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include <QByteArray>
#include <QFile>
#include <QSysInfo>

#include "lock_file.h"

namespace ksv {
namespace {

// Layout: a 64-byte head whose first byte is the gate, then slots of 64 bytes,
// 32 for the computer and 32 for the login, NUL-padded UTF-8.
constexpr off_t kHead = 64;
constexpr off_t kSlotSize = 64;
constexpr int kFieldSize = 32;
constexpr int kMaxSlots = 255;

off_t slotOffset(int slot) { return kHead + slot * kSlotSize; }

// Open-file-description locks: owned by the open file, not the process, so two
// connections of one process exclude each other, and all go when the process dies.
bool lockRange(int fd, short type, off_t start, off_t len, bool wait) {
  struct flock fl;
  std::memset(&fl, 0, sizeof fl);
  fl.l_type = type;
  fl.l_whence = SEEK_SET;
  fl.l_start = start;
  fl.l_len = len;
  for (;;) {
    if (fcntl(fd, wait ? F_OFD_SETLKW : F_OFD_SETLK, &fl) == 0) return true;
    if (errno != EINTR) return false;
  }
}

bool isLockedByOther(int fd, off_t start, off_t len) {
  struct flock fl;
  std::memset(&fl, 0, sizeof fl);
  fl.l_type = F_WRLCK;
  fl.l_whence = SEEK_SET;
  fl.l_start = start;
  fl.l_len = len;
  if (fcntl(fd, F_OFD_GETLK, &fl) != 0) return false;
  return fl.l_type != F_UNLCK;
}

void unlockRange(int fd, off_t start, off_t len) { lockRange(fd, F_UNLCK, start, len, false); }

// Opens the roster with its gate held, making sure the file we hold is still
// the one at the path (the last closer may have removed it meanwhile).
int openGated(const QString& rosterPath, bool create) {
  const QByteArray path = QFile::encodeName(rosterPath);
  for (int attempt = 0; attempt < 50; ++attempt) {
    const int fd = ::open(path.constData(), O_RDWR | O_CLOEXEC | (create ? O_CREAT : 0), 0666);
    if (fd < 0) return -1;
    if (!lockRange(fd, F_WRLCK, 0, 1, true)) {
      ::close(fd);
      return -1;
    }
    struct stat held, named;
    if (fstat(fd, &held) == 0 && ::stat(path.constData(), &named) == 0 && held.st_ino == named.st_ino &&
        held.st_dev == named.st_dev)
      return fd;
    ::close(fd);  // removed under us: start again on the new file
  }
  return -1;
}

void closeGated(int fd) {
  unlockRange(fd, 0, 1);
  ::close(fd);
}

QByteArray field(const QString& text) {
  QByteArray b = text.toUtf8().left(kFieldSize);
  b.append(QByteArray(kFieldSize - b.size(), '\0'));
  return b;
}

QString unfield(const char* data) { return QString::fromUtf8(data, static_cast<qsizetype>(strnlen(data, kFieldSize))); }

int slotCount(int fd) {
  struct stat st;
  if (fstat(fd, &st) != 0 || st.st_size <= kHead) return 0;
  return static_cast<int>((st.st_size - kHead + kSlotSize - 1) / kSlotSize);
}

// Reads the live members; the caller holds the gate.
QList<RosterMember> readLive(int fd) {
  QList<RosterMember> out;
  const int n = slotCount(fd);
  for (int i = 0; i < n; ++i) {
    if (!isLockedByOther(fd, slotOffset(i), kSlotSize)) continue;
    char buf[kSlotSize] = {};
    if (pread(fd, buf, kSlotSize, slotOffset(i)) <= 0) continue;
    out.append({unfield(buf), unfield(buf + kFieldSize)});
  }
  return out;
}

}  // namespace

QString computerName() { return QSysInfo::machineHostName(); }

QString loginName() {
  QString login = qEnvironmentVariable("USER");
  if (login.isEmpty()) login = qEnvironmentVariable("LOGNAME");
  return login;
}

std::unique_ptr<RosterEntry> RosterEntry::join(const QString& planningPath) {
  return join(planningPath, computerName(), loginName());
}

std::unique_ptr<RosterEntry> RosterEntry::join(const QString& planningPath, const QString& computer,
                                               const QString& login) {
  const QString path = rosterPathOf(planningPath);
  const int fd = openGated(path, true);
  if (fd < 0) return nullptr;
  for (int slot = 0; slot < kMaxSlots; ++slot) {
    if (!lockRange(fd, F_WRLCK, slotOffset(slot), kSlotSize, false)) continue;  // taken by a live connection
    const QByteArray record = field(computer) + field(login);
    if (pwrite(fd, record.constData(), kSlotSize, slotOffset(slot)) != kSlotSize) {
      unlockRange(fd, slotOffset(slot), kSlotSize);
      break;
    }
    unlockRange(fd, 0, 1);  // release the gate, keep the slot
    return std::unique_ptr<RosterEntry>(new RosterEntry(path, fd, slot));
  }
  closeGated(fd);
  return nullptr;
}

RosterEntry::~RosterEntry() {
  // Take the gate so that nobody joins between our last look and the removal.
  lockRange(fd_, F_WRLCK, 0, 1, true);
  const char zeros[kSlotSize] = {};
  (void)!pwrite(fd_, zeros, kSlotSize, slotOffset(slot_));
  unlockRange(fd_, slotOffset(slot_), kSlotSize);
  if (readLive(fd_).isEmpty()) ::unlink(QFile::encodeName(path_).constData());
  closeGated(fd_);
}

QList<RosterMember> liveConnections(const QString& planningPath) {
  const QString path = rosterPathOf(planningPath);
  if (!QFile::exists(path)) return {};
  const int fd = openGated(path, false);
  if (fd < 0) return {};
  QList<RosterMember> live = readLive(fd);
  closeGated(fd);
  return live;
}

bool rosterIsLive(const QString& planningPath) {
  const QString path = rosterPathOf(planningPath);
  if (!QFile::exists(path)) return false;
  const int fd = openGated(path, false);
  if (fd < 0) return QFile::exists(path);  // cannot look inside: trust its presence
  const bool live = !readLive(fd).isEmpty();
  if (!live) ::unlink(QFile::encodeName(path).constData());
  closeGated(fd);
  return live;
}

}  // namespace ksv
