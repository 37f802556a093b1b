#pragma once
// The first checks of the start, before any option is read: one running
// instance per user, and a system date the program can count with.

#include <memory>

#include <QDate>
#include <QString>

class QLockFile;

namespace ksv {

// Held for the life of the process; a second start by the same user finds the
// lock taken. A lock left by a crashed process is taken over.
class SingleInstance {
 public:
  explicit SingleInstance(const QString& lockPath);
  ~SingleInstance();
  bool isFirst() const { return first_; }
  // The per-user lock path of the program.
  static QString defaultLockPath();

 private:
  std::unique_ptr<QLockFile> lock_;
  bool first_ = false;
};

// Years outside 1930..2500 mean a calendar the program cannot count with.
bool systemDateUsable(QDate today);

}  // namespace ksv
