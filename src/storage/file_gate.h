#pragma once
// OS locks on the small files that stand beside a planning. They are
// open-file-description locks: a process that dies, even killed outright,
// lets go of them at once, which is what makes a lock left by the dead
// recognisable as stale.

#include <sys/types.h>

#include <memory>

#include <QString>

namespace ksv {

// Open-file-description range locks.
bool lockRange(int fd, short type, off_t start, off_t len, bool wait);
void unlockRange(int fd, off_t start, off_t len);
// True when another open description (in this process or another) holds a
// lock that would conflict with a write lock on the range.
bool isLockedByOther(int fd, off_t start, off_t len);

// A file held with its first byte locked for writing: one holder at a time.
// Files that their last user removes (the lock file, the roster) are opened
// through it, so that a holder is sure the file it holds is still the one
// under the name.
class FileGate {
 public:
  // Waits for the gate; nothing when the file cannot be opened (missing and
  // `create` false, or a folder that refuses writing).
  static std::unique_ptr<FileGate> open(const QString& path, bool create);
  ~FileGate();
  FileGate(const FileGate&) = delete;
  FileGate& operator=(const FileGate&) = delete;

  int fd() const { return fd_; }
  const QString& path() const { return path_; }
  // Removes the file while the gate is held: who waits for it starts again on
  // a new one.
  void removeFile();
  // Lets the gate go but keeps the file open (the roster keeps its slot).
  int releaseKeepingFile();

 private:
  FileGate(QString path, int fd) : path_(std::move(path)), fd_(fd) {}
  QString path_;
  int fd_;
};

// A temporary file beside `target`, named after it: "<target>~XXXXXX.tmp".
// Its maker holds an OS lock on it while it lives, so that a temporary left
// by a process that died is told from one being written now; the next
// operation on the same target removes the dead ones (sweepDeadTemporaries).
class HeldTemporary {
 public:
  static std::unique_ptr<HeldTemporary> create(const QString& target);
  ~HeldTemporary();  // removes the file (and a journal beside it) unless taken
  HeldTemporary(const HeldTemporary&) = delete;
  HeldTemporary& operator=(const HeldTemporary&) = delete;

  const QString& path() const { return path_; }
  // The file now lives under another name: nothing to remove.
  void taken() { taken_ = true; }

 private:
  HeldTemporary(QString path, int fd) : path_(std::move(path)), fd_(fd) {}
  QString path_;
  int fd_;
  bool taken_ = false;
};

// Removes the temporaries of `target` (and their journals) that no living
// process holds.
void sweepDeadTemporaries(const QString& target);

// Flushes a file, or a folder's entries, to the disk.
bool syncPath(const QString& path);

}  // namespace ksv
