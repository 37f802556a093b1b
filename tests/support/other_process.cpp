#include "other_process.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QString>

#include "storage/connecting.h"
#include "storage/lock_file.h"

namespace ksv::test {

int inChild(const std::function<int()>& body) {
  const pid_t pid = fork();
  if (pid == 0) _exit(body());
  int status = 0;
  waitpid(pid, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
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
