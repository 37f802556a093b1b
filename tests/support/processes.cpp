#include "processes.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>

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

}  // namespace ksv::test
