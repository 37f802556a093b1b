#include "other_process.h"

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QString>

#include "storage/connecting.h"
#include "storage/lock_file.h"

namespace ksv::test {

std::vector<ChildEnd> runTogether(const std::vector<std::function<int()>>& bodies) {
  int go[2];
  if (::pipe(go) != 0) return {};
  std::vector<pid_t> pids;
  for (const auto& body : bodies) {
    const pid_t pid = ::fork();
    if (pid == 0) {
      ::close(go[1]);
      char c;
      (void)!::read(go[0], &c, 1);  // returns when the parent closes its end
      int code = 99;
      try {
        code = body();
      } catch (...) {
      }
      ::_exit(code);
    }
    pids.push_back(pid);
  }
  ::close(go[0]);
  ::close(go[1]);  // every child starts now
  std::vector<ChildEnd> ends;
  for (pid_t pid : pids) {
    int status = 0;
    ChildEnd end;
    if (pid > 0 && ::waitpid(pid, &status, 0) == pid) {
      if (WIFEXITED(status)) end.exitCode = WEXITSTATUS(status);
      if (WIFSIGNALED(status)) end.signal = WTERMSIG(status);
    }
    ends.push_back(end);
  }
  return ends;
}

ChildEnd runChild(const std::function<int()>& body) { return runTogether({body}).front(); }

int raceRounds(int byDefault) {
  bool ok = false;
  const int n = qEnvironmentVariableIntValue("KSV_RACE_ROUNDS", &ok);
  return ok && n > 0 ? n : byDefault;
}

unsigned freshFileMode() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

QStringList debrisIn(const QString& folder, const QStringList& expected) {
  QStringList left;
  for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden))
    if (!expected.contains(name)) left << name;
  return left;
}

OtherProcess::OtherProcess(const std::function<bool()>& setUp) {
  int fds[2];
  if (pipe(fds) != 0) return;
  pid_ = fork();
  if (pid_ == 0) {
    close(fds[0]);
    const char ok = setUp() ? '1' : '0';
    (void)!write(fds[1], &ok, 1);
    for (;;) pause();
  }
  close(fds[1]);
  char ok = '0';
  if (pid_ > 0) (void)!read(fds[0], &ok, 1);
  close(fds[0]);
  ready_ = ok == '1';
}

void OtherProcess::stop() {
  if (pid_ <= 0) return;
  kill(pid_, SIGKILL);
  waitpid(pid_, nullptr, 0);
  pid_ = -1;
}

OtherProcess workstation(const QString& planning, char mode) {
  return OtherProcess([planning, mode] {
    static ConnectResult held;  // lives in the child until it is killed
    if (!RequestConnectMode(planning, mode)) return false;
    held = Connecting(planning, mode == 'C' ? 'C' : 'U');
    return bool(held);
  });
}

}  // namespace ksv::test
