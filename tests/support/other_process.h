#pragma once
// Another workstation on the same machine: the locks and the roster are per
// process, so a second workstation is a forked child of the test.

#include <functional>

#include <QString>

#include <sys/types.h>

namespace ksv::test {

// Runs `body` in a child process and returns its exit code (-1 if it died).
int inChild(const std::function<int()>& body);

// A child that runs `setUp`, reports whether it succeeded, and then keeps what
// it holds (locks, roster entry, open transaction) until stop() or destruction.
class OtherProcess {
 public:
  explicit OtherProcess(const std::function<bool()>& setUp);
  ~OtherProcess() { stop(); }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;

  bool ready() const { return ready_; }
  // Kills the child, as a crash would; what it held is left as a crash leaves it.
  void stop();

 private:
  pid_t pid_ = -1;
  bool ready_ = false;
};

// A second workstation holding `mode` ('C', 'U' or 'X') on the planning, connected.
OtherProcess workstation(const QString& planning, char mode);

}  // namespace ksv::test
