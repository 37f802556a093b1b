#pragma once
// Real processes for the tests: another workstation on the same machine (the
// locks and the roster are per process, so it is a forked child), and children
// that run beside an operation or die in it.

#include <functional>
#include <vector>

#include <QString>
#include <QStringList>

#include <sys/types.h>

namespace ksv::test {

// How a child ended: its exit status, or the signal that killed it.
struct ChildEnd {
  int exitCode = -1;
  int signal = 0;
  bool killedBy(int s) const { return signal == s; }
};

// Starts each body in its own process, all released at the same instant,
// and waits for them all.
std::vector<ChildEnd> runTogether(const std::vector<std::function<int()>>& bodies);
// One child.
ChildEnd runChild(const std::function<int()>& body);

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

// Rounds of a race test: KSV_RACE_ROUNDS, else `byDefault`.
int raceRounds(int byDefault);
// The mode a new file gets from this process's umask.
unsigned freshFileMode();
// The files of `folder` whose names are not in `expected`: what an operation left behind.
QStringList debrisIn(const QString& folder, const QStringList& expected);

}  // namespace ksv::test
