#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>

#include "storage/lock_file.h"
#include "storage/roster.h"

using namespace ksv;

namespace {

class RosterTest : public ::testing::Test {
 protected:
  void SetUp() override { planning = dir.path() + "/Hotel.ksv"; }
  QTemporaryDir dir;
  QString planning;
};

// A child process that joins the roster, says so through a pipe, then waits
// to be killed.
pid_t childConnected(const QString& planning, const QString& computer) {
  int fds[2];
  if (pipe(fds) != 0) return -1;
  const pid_t pid = fork();
  if (pid == 0) {
    close(fds[0]);
    auto entry = RosterEntry::join(planning, computer, "front-desk");
    const char ok = entry ? '1' : '0';
    (void)!write(fds[1], &ok, 1);
    for (;;) pause();
  }
  close(fds[1]);
  char ok = '0';
  (void)!read(fds[0], &ok, 1);
  close(fds[0]);
  return ok == '1' ? pid : -1;
}

}  // namespace

TEST_F(RosterTest, ListsEachLiveConnectionAndGoesWithTheLast) {
  EXPECT_FALSE(rosterIsLive(planning));
  auto a = RosterEntry::join(planning, "RECEPTION", "anne");
  auto b = RosterEntry::join(planning, "OFFICE", "bruno");
  ASSERT_TRUE(a && b);
  EXPECT_TRUE(QFile::exists(rosterPathOf(planning)));
  EXPECT_EQ(liveConnections(planning),
            (QList<RosterMember>{{"RECEPTION", "anne"}, {"OFFICE", "bruno"}}));
  a.reset();
  EXPECT_EQ(liveConnections(planning), (QList<RosterMember>{{"OFFICE", "bruno"}}));
  EXPECT_TRUE(rosterIsLive(planning));
  // A freed slot is taken again by the next connection.
  auto c = RosterEntry::join(planning, "BAR", "chloe");
  EXPECT_EQ(liveConnections(planning).size(), 2);
  b.reset();
  c.reset();
  EXPECT_FALSE(QFile::exists(rosterPathOf(planning)));
  EXPECT_TRUE(liveConnections(planning).isEmpty());
}

TEST_F(RosterTest, AKilledProcessIsNoLongerListed) {
  const pid_t child = childConnected(planning, "RECEPTION");
  ASSERT_GT(child, 0);
  auto mine = RosterEntry::join(planning, "OFFICE", "bruno");
  EXPECT_EQ(liveConnections(planning).size(), 2);

  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_EQ(liveConnections(planning), (QList<RosterMember>{{"OFFICE", "bruno"}}));
  mine.reset();
  EXPECT_FALSE(QFile::exists(rosterPathOf(planning)));
}

TEST_F(RosterTest, ARosterLeftByTheDeadDoesNotKeepTheFileAlive) {
  QFile(planning).open(QIODevice::WriteOnly);
  ASSERT_TRUE(RequestConnectMode(planning, 'U'));
  const pid_t child = childConnected(planning, "RECEPTION");
  ASSERT_GT(child, 0);
  EXPECT_TRUE(rosterIsLive(planning));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  // The dead workstation's roster and lock are both cleared at the next open.
  EXPECT_TRUE(QFile::exists(rosterPathOf(planning)));
  deleteStaleLock(planning);
  EXPECT_FALSE(QFile::exists(rosterPathOf(planning)));
  EXPECT_FALSE(QFile::exists(lockPathOf(planning)));
  EXPECT_TRUE(RequestConnectMode(planning, 'E'));
}

TEST_F(RosterTest, LongNamesAreCutNotSpilled) {
  const QString longName(40, 'X');
  auto e = RosterEntry::join(planning, longName, "l");
  ASSERT_TRUE(e);
  const auto live = liveConnections(planning);
  ASSERT_EQ(live.size(), 1);
  EXPECT_EQ(live[0].computer, QString(32, 'X'));
  EXPECT_EQ(live[0].login, "l");
}
