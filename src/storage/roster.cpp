#include "roster.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#include <QByteArray>
#include <QFile>
#include <QSysInfo>

#include "file_gate.h"
#include "lock_file.h"

namespace ksv {
namespace {

// Layout: a 64-byte head whose first byte is the gate, then slots of 80
// bytes: 32 for the computer and 32 for the login (NUL-padded UTF-8), 8 for
// the process id (little-endian), 1 for the kind.
constexpr off_t kHead = 64;
constexpr off_t kSlotSize = 80;
constexpr int kFieldSize = 32;
constexpr int kPidAt = 64;
constexpr int kKindAt = 72;
constexpr int kMaxSlots = 255;

off_t slotOffset(int slot) { return kHead + slot * kSlotSize; }

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

struct LiveSlot {
  RosterMember member;
  qint64 pid = 0;
  char kind = ' ';
};

// Reads the live slots; the caller holds the gate.
QList<LiveSlot> readLive(int fd) {
  QList<LiveSlot> out;
  const int n = slotCount(fd);
  for (int i = 0; i < n; ++i) {
    if (!isLockedByOther(fd, slotOffset(i), kSlotSize)) continue;
    char buf[kSlotSize] = {};
    if (pread(fd, buf, kSlotSize, slotOffset(i)) <= 0) continue;
    qint64 pid = 0;
    for (int b = 7; b >= 0; --b) pid = (pid << 8) | static_cast<unsigned char>(buf[kPidAt + b]);
    out.append({{unfield(buf), unfield(buf + kFieldSize)}, pid, buf[kKindAt]});
  }
  return out;
}

// The live slots of a planning's roster; nothing when there is none.
QList<LiveSlot> liveSlots(const QString& planningPath) {
  const QString path = rosterPathOf(planningPath);
  if (!QFile::exists(path)) return {};
  const auto gate = FileGate::open(path, false);
  if (!gate) return {};
  return readLive(gate->fd());
}

}  // namespace

QString computerName() { return QSysInfo::machineHostName(); }

QString loginName() {
  for (const char* variable : {"USER", "LOGNAME"}) {
    const QString login = qEnvironmentVariable(variable);
    if (!login.isEmpty()) return login;
  }
  // A cron job or a service may have neither: the account itself answers.
  if (const passwd* pw = getpwuid(getuid())) return QString::fromLocal8Bit(pw->pw_name);
  return QString::number(getuid());
}

std::unique_ptr<RosterEntry> RosterEntry::join(const QString& planningPath, RosterKind kind) {
  return join(planningPath, computerName(), loginName(), kind);
}

std::unique_ptr<RosterEntry> RosterEntry::join(const QString& planningPath, const QString& computer,
                                               const QString& login, RosterKind kind) {
  const QString path = rosterPathOf(planningPath);
  auto gate = FileGate::open(path, true);
  if (!gate) return nullptr;
  const int fd = gate->fd();
  for (int slot = 0; slot < kMaxSlots; ++slot) {
    if (!lockRange(fd, F_WRLCK, slotOffset(slot), kSlotSize, false)) continue;  // taken by a live connection
    QByteArray record = field(computer) + field(login);
    quint64 pid = static_cast<quint64>(getpid());
    for (int b = 0; b < 8; ++b, pid >>= 8) record.append(static_cast<char>(pid & 0xFF));
    record.append(static_cast<char>(kind));
    record.append(QByteArray(kSlotSize - record.size(), '\0'));
    if (pwrite(fd, record.constData(), kSlotSize, slotOffset(slot)) != kSlotSize) {
      unlockRange(fd, slotOffset(slot), kSlotSize);
      break;
    }
    return std::unique_ptr<RosterEntry>(new RosterEntry(path, gate->releaseKeepingFile(), slot));
  }
  return nullptr;
}

RosterEntry::~RosterEntry() {
  // Take the gate so that nobody joins between our last look and the removal.
  lockRange(fd_, F_WRLCK, 0, 1, true);
  const char zeros[kSlotSize] = {};
  (void)!pwrite(fd_, zeros, kSlotSize, slotOffset(slot_));
  unlockRange(fd_, slotOffset(slot_), kSlotSize);
  if (readLive(fd_).isEmpty()) ::unlink(QFile::encodeName(path_).constData());
  unlockRange(fd_, 0, 1);
  ::close(fd_);
}

QList<RosterMember> liveConnections(const QString& planningPath) {
  QList<RosterMember> out;
  QList<std::pair<RosterMember, qint64>> seen;
  for (const LiveSlot& s : liveSlots(planningPath)) {
    const std::pair<RosterMember, qint64> who{s.member, s.pid};
    if (seen.contains(who)) continue;
    seen << who;
    out << s.member;
  }
  return out;
}

LiveModes liveModes(const QString& planningPath) {
  LiveModes m;
  for (const LiveSlot& s : liveSlots(planningPath)) {
    switch (static_cast<RosterKind>(s.kind)) {
      case RosterKind::Consultation: ++m.consultations; break;
      case RosterKind::Normal: ++m.normal; break;
      case RosterKind::Exclusive:
        ++m.exclusive;
        if (s.pid != getpid() || s.member.computer != computerName()) ++m.exclusiveElsewhere;
        break;
      case RosterKind::Connection: break;
    }
  }
  return m;
}

bool rosterIsLive(const QString& planningPath) {
  const QString path = rosterPathOf(planningPath);
  if (!QFile::exists(path)) return false;
  auto gate = FileGate::open(path, false);
  if (!gate) return QFile::exists(path);  // cannot look inside: trust its presence
  const bool live = !readLive(gate->fd()).isEmpty();
  if (!live) gate->removeFile();
  return live;
}

}  // namespace ksv
