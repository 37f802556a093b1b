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

enum class LockAnswer {
  Granted,
  InUse,       // another workstation holds what the mode needs
  Unwritable,  // the lock file cannot be made or written (a read-only folder)
};

// Asks the lock file for mode 'C', 'U' or 'E'. 'C' is never refused; 'U' is
// refused while another works in normal mode (and `showUsers` is called with
// the roster message); 'E' is refused, silently, while any number is set. A
// missing planning needs no lock: granted.
//
// One discipline for every mode: the lock file is read and rewritten under
// an OS lock of its own, and a granted mode holds a slot of the roster until
// it is given back, so the roster says who is alive. A number the lock file
// holds without a live slot of its mode is stale (its holder died) and is
// cleared on the way.
LockAnswer requestLock(const QString& planningPath, char mode, const ShowUsers& showUsers = {});
// The step's Result: true when granted.
bool RequestConnectMode(const QString& planningPath, char mode, const ShowUsers& showUsers = {});

// Gives a mode back; the lock file goes once all three numbers are zero.
void ReleaseConnectMode(const QString& planningPath, char mode);

// A lock file is stale when nobody is connected any more (no live roster):
// it is deleted. A delete that fails (read-only folder) is no error.
void deleteStaleLock(const QString& planningPath);

// Waits while another process holds the planning exclusively (a compaction
// replacing the file), at most `timeoutMs`; false when it still does.
bool waitForExclusiveEnd(const QString& planningPath, int timeoutMs);

}  // namespace ksv
