#pragma once
// Real processes for tests of what runs beside or dies in an operation: a
// forked child runs a body and exits with its result; the parent starts
// several at once and reads how each ended.

#include <functional>
#include <vector>

#include <QString>
#include <QStringList>

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

// Rounds of a race test: KSV_RACE_ROUNDS, else `byDefault`.
int raceRounds(int byDefault);

// The mode a new file gets from this process's umask.
unsigned freshFileMode();

// The files of `folder` whose names are not in `expected`: what an operation
// left behind.
QStringList debrisIn(const QString& folder, const QStringList& expected);

}  // namespace ksv::test
