#pragma once
// The lock file beside a planning: six bytes, three little-endian 16-bit
// numbers (consultation count, normal-mode flag, exclusive flag; flags are -1
// or 0). Workstations read and rewrite it to share one planning: any number may
// consult, one may work in normal mode, and exclusive use needs everyone gone.

#include <cstdint>
#include <functional>
#include <optional>

#include <QString>

namespace ksv {

struct LockRecord {
  std::int16_t consultations = 0;
  std::int16_t normalMode = 0;  // -1 while a workstation works in normal mode
  std::int16_t exclusive = 0;   // -1 while a workstation has the file alone
  bool isFree() const { return consultations == 0 && normalMode == 0 && exclusive == 0; }
};

// The planning's path with its last three characters replaced.
QString lockPathOf(const QString& planningPath);    // ...lck
QString rosterPathOf(const QString& planningPath);  // ...ldb

std::optional<LockRecord> readLockFile(const QString& lockPath);

// Called when normal mode is refused, with the text entry the users list must
// show (the session opens that list).
using ShowUsers = std::function<void(int textEntry)>;

// Asks the lock file for mode 'C', 'U' or 'E'; returns the step's Result.
// 'C' is never refused; 'U' is refused while another works in normal mode (and
// `showUsers` is called with the roster message); 'E' is refused, silently,
// while any number is set. A missing planning needs no lock: true.
bool RequestConnectMode(const QString& planningPath, char mode, const ShowUsers& showUsers = {});

// Gives a mode back; the lock file goes once all three numbers are zero.
void ReleaseConnectMode(const QString& planningPath, char mode);

// A lock file is stale when nobody is connected any more (no live roster):
// it is deleted. A delete that fails (read-only folder) is no error.
void deleteStaleLock(const QString& planningPath);

}  // namespace ksv
