#include "lock_file.h"

#include <QFile>
#include <QFileInfo>

#include "core/texts.h"
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

bool writeRecord(QFile& f, const LockRecord& r) {
  return f.seek(0) && f.write(encode(r)) == 6 && f.flush();
}

}  // namespace

QString lockPathOf(const QString& planningPath) { return withExtension(planningPath, "lck"); }
QString rosterPathOf(const QString& planningPath) { return withExtension(planningPath, "ldb"); }

std::optional<LockRecord> readLockFile(const QString& lockPath) {
  QFile f(lockPath);
  if (!f.open(QIODevice::ReadOnly)) return std::nullopt;
  return decode(f.read(6));
}

bool RequestConnectMode(const QString& planningPath, char mode, const ShowUsers& showUsers) {
  if (planningPath.isEmpty() || !QFileInfo::exists(planningPath)) return true;

  QFile f(lockPathOf(planningPath));
  // ReadWrite creates a missing file, which then reads as three zeros.
  if (!f.open(QIODevice::ReadWrite)) return false;
  LockRecord r = decode(f.read(6));

  switch (mode) {
    case 'C':
      r.consultations = static_cast<std::int16_t>(r.consultations + 1);
      break;
    case 'U':
      if (r.normalMode != 0) {
        f.close();
        if (showUsers) showUsers(txt::RosterNormalMode);
        return false;
      }
      r.normalMode = -1;
      break;
    case 'E':
      if (!r.isFree()) return false;
      r.exclusive = -1;
      break;
    default:
      return false;
  }
  return writeRecord(f, r);
}

void ReleaseConnectMode(const QString& planningPath, char mode) {
  const QString lockPath = lockPathOf(planningPath);
  // Nothing to give back when the lock file went meanwhile; a count never goes
  // below zero, so a lost file cannot block exclusive use later.
  if (!QFileInfo::exists(lockPath)) return;
  QFile f(lockPath);
  if (!f.open(QIODevice::ReadWrite)) return;
  LockRecord r = decode(f.read(6));
  switch (mode) {
    case 'C':
      if (r.consultations > 0) r.consultations = static_cast<std::int16_t>(r.consultations - 1);
      break;
    case 'U': r.normalMode = 0; break;
    case 'E': r.exclusive = 0; break;
    default: return;
  }
  if (!writeRecord(f, r)) return;
  f.close();
  if (r.isFree()) QFile::remove(lockPath);
}

void deleteStaleLock(const QString& planningPath) {
  if (!rosterIsLive(planningPath)) QFile::remove(lockPathOf(planningPath));
}

}  // namespace ksv
