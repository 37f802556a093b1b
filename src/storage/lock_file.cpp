#include "lock_file.h"

#include <unistd.h>

#include <map>
#include <vector>

#include <QFile>
#include <QFileInfo>
#include <QThread>

#include "core/texts.h"
#include "file_gate.h"
#include "roster.h"

namespace ksv {
namespace {

QString withExtension(const QString& path, const char* ext) {
  return path.left(path.size() - 3) + QLatin1String(ext);
}

LockRecord decode(const QByteArray& bytes) {
  auto at = [&](int i) {
    if (bytes.size() < i + 2) return std::int16_t(0);  // short files read as zeros
    const auto lo = static_cast<std::uint8_t>(bytes[i]);
    const auto hi = static_cast<std::uint8_t>(bytes[i + 1]);
    return static_cast<std::int16_t>(lo | (hi << 8));
  };
  return {at(0), at(2), at(4)};
}

QByteArray encode(const LockRecord& r) {
  QByteArray out(6, '\0');
  const std::int16_t v[3] = {r.consultations, r.normalMode, r.exclusive};
  for (int i = 0; i < 3; ++i) {
    const auto u = static_cast<std::uint16_t>(v[i]);
    out[2 * i] = static_cast<char>(u & 0xFF);
    out[2 * i + 1] = static_cast<char>(u >> 8);
  }
  return out;
}

LockRecord readRecord(const FileGate& gate) {
  char buf[6] = {};
  const ssize_t n = pread(gate.fd(), buf, 6, 0);
  return decode(QByteArray(buf, n > 0 ? int(n) : 0));
}

bool writeRecord(const FileGate& gate, const LockRecord& r) {
  return pwrite(gate.fd(), encode(r).constData(), 6, 0) == 6;
}

// Clears what no live process holds any more.
LockRecord withoutTheDead(LockRecord r, const QString& planningPath) {
  if (r.isFree()) return r;
  const LiveModes live = liveModes(planningPath);
  if (r.consultations > live.consultations) r.consultations = static_cast<std::int16_t>(live.consultations);
  if (r.normalMode != 0 && live.normal == 0) r.normalMode = 0;
  if (r.exclusive != 0 && live.exclusive == 0) r.exclusive = 0;
  return r;
}

RosterKind kindOf(char mode) {
  return mode == 'C' ? RosterKind::Consultation : mode == 'U' ? RosterKind::Normal : RosterKind::Exclusive;
}

// The roster slots this process holds for its granted modes, by planning and mode.
std::map<std::pair<QString, char>, std::vector<std::unique_ptr<RosterEntry>>>& heldModes() {
  static std::map<std::pair<QString, char>, std::vector<std::unique_ptr<RosterEntry>>> held;
  return held;
}

std::pair<QString, char> keyOf(const QString& planningPath, char mode) {
  return {QFileInfo(planningPath).absoluteFilePath(), mode};
}

}  // namespace

QString lockPathOf(const QString& planningPath) { return withExtension(planningPath, "lck"); }
QString rosterPathOf(const QString& planningPath) { return withExtension(planningPath, "ldb"); }

std::optional<LockRecord> readLockFile(const QString& lockPath) {
  QFile f(lockPath);
  if (!f.open(QIODevice::ReadOnly)) return std::nullopt;
  return decode(f.read(6));
}

LockAnswer requestLock(const QString& planningPath, char mode, const ShowUsers& showUsers) {
  if (planningPath.isEmpty() || !QFileInfo::exists(planningPath)) return LockAnswer::Granted;
  if (mode != 'C' && mode != 'U' && mode != 'E') return LockAnswer::InUse;
  const auto gate = FileGate::open(lockPathOf(planningPath), true);
  if (!gate) return LockAnswer::Unwritable;
  LockRecord r = withoutTheDead(readRecord(*gate), planningPath);
  switch (mode) {
    case 'C':
      r.consultations = static_cast<std::int16_t>(r.consultations + 1);
      break;
    case 'U':
      if (r.normalMode != 0) {
        if (showUsers) showUsers(txt::RosterNormalMode);
        return LockAnswer::InUse;
      }
      r.normalMode = -1;
      break;
    case 'E':
      if (!r.isFree()) return LockAnswer::InUse;
      r.exclusive = -1;
      break;
  }
  // The slot is taken before the number is written: nobody may see the
  // number without a live holder.
  auto slot = RosterEntry::join(planningPath, kindOf(mode));
  if (!slot || !writeRecord(*gate, r)) return LockAnswer::Unwritable;
  heldModes()[keyOf(planningPath, mode)].push_back(std::move(slot));
  return LockAnswer::Granted;
}

bool RequestConnectMode(const QString& planningPath, char mode, const ShowUsers& showUsers) {
  return requestLock(planningPath, mode, showUsers) == LockAnswer::Granted;
}

void ReleaseConnectMode(const QString& planningPath, char mode) {
  // The slot goes in any case: this process no longer holds the mode.
  auto& held = heldModes();
  const auto it = held.find(keyOf(planningPath, mode));
  std::unique_ptr<RosterEntry> slot;
  if (it != held.end() && !it->second.empty()) {
    slot = std::move(it->second.back());
    it->second.pop_back();
    if (it->second.empty()) held.erase(it);
  }
  const QString lockPath = lockPathOf(planningPath);
  // Nothing to give back when the lock file went meanwhile; a count never goes
  // below zero, so a lost file cannot block exclusive use later.
  if (!QFileInfo::exists(lockPath)) return;
  const auto gate = FileGate::open(lockPath, false);
  if (!gate) return;
  LockRecord r = readRecord(*gate);
  switch (mode) {
    case 'C':
      if (r.consultations > 0) r.consultations = static_cast<std::int16_t>(r.consultations - 1);
      break;
    case 'U': r.normalMode = 0; break;
    case 'E': r.exclusive = 0; break;
    default: return;
  }
  slot.reset();  // under the gate: nobody reads the number without its holder
  if (!writeRecord(*gate, r)) return;
  if (r.isFree()) gate->removeFile();
}

void deleteStaleLock(const QString& planningPath) {
  const QString lockPath = lockPathOf(planningPath);
  if (!QFileInfo::exists(lockPath)) return;
  const auto gate = FileGate::open(lockPath, false);
  if (!gate) {
    if (!rosterIsLive(planningPath)) QFile::remove(lockPath);  // fails silently in a read-only folder
    return;
  }
  if (!rosterIsLive(planningPath)) gate->removeFile();
}

bool waitForExclusiveEnd(const QString& planningPath, int timeoutMs) {
  for (int waited = 0;; waited += 20) {
    if (liveModes(planningPath).exclusiveElsewhere == 0) return true;
    if (waited >= timeoutMs) return false;
    QThread::msleep(20);
  }
}

}  // namespace ksv
