#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <QTemporaryDir>

#include "storage/start_checks.h"

using namespace ksv;

TEST(StartChecks, OneInstanceAtATimeAcrossProcesses) {
  QTemporaryDir dir;
  const QString lock = dir.path() + "/ksv.lock";
  {
    SingleInstance first(lock);
    ASSERT_TRUE(first.isFirst());
    const pid_t pid = fork();
    if (pid == 0) _exit(SingleInstance(lock).isFirst() ? 1 : 0);
    int status = 0;
    waitpid(pid, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0) << "a second process must find the program running";
  }
  SingleInstance again(lock);  // the first has ended
  EXPECT_TRUE(again.isFirst());
}

TEST(StartChecks, AKilledInstanceDoesNotBlockTheNextStart) {
  QTemporaryDir dir;
  const QString lock = dir.path() + "/ksv.lock";
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t pid = fork();
  if (pid == 0) {
    SingleInstance held(lock);
    const char c = held.isFirst() ? '1' : '0';
    (void)!write(ready[1], &c, 1);
    for (;;) pause();
  }
  char c = 0;
  (void)!read(ready[0], &c, 1);
  ASSERT_EQ(c, '1');
  EXPECT_FALSE(SingleInstance(lock).isFirst());
  kill(pid, SIGKILL);
  waitpid(pid, nullptr, 0);
  EXPECT_TRUE(SingleInstance(lock).isFirst());
}

TEST(StartChecks, SystemDateWindow) {
  EXPECT_TRUE(systemDateUsable(QDate(1930, 1, 1)));
  EXPECT_TRUE(systemDateUsable(QDate(2500, 12, 31)));
  EXPECT_FALSE(systemDateUsable(QDate(1929, 12, 31)));
  EXPECT_FALSE(systemDateUsable(QDate(2501, 1, 1)));
}
