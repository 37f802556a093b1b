#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "storage/lock_file.h"
#include "storage/roster.h"
#include "support/other_process.h"

using namespace ksv;

namespace {

class RosterTest : public ::testing::Test {
 protected:
  void SetUp() override { planning = dir.path() + "/Hotel.ksv"; }
  QTemporaryDir dir;
  QString planning;
};

// Another process joined to the roster as RECEPTION, until stopped.
test::OtherProcess receptionJoined(const QString& planning) {
  return test::OtherProcess([planning] {
    static std::unique_ptr<RosterEntry> entry;  // lives in the child until it is killed
    entry = RosterEntry::join(planning, "RECEPTION", "front-desk");
    return entry != nullptr;
  });
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
  test::OtherProcess child = receptionJoined(planning);
  ASSERT_TRUE(child.ready());
  auto mine = RosterEntry::join(planning, "OFFICE", "bruno");
  EXPECT_EQ(liveConnections(planning).size(), 2);

  child.stop();
  EXPECT_EQ(liveConnections(planning), (QList<RosterMember>{{"OFFICE", "bruno"}}));
  mine.reset();
  EXPECT_FALSE(QFile::exists(rosterPathOf(planning)));
}

TEST_F(RosterTest, ARosterLeftByTheDeadDoesNotKeepTheFileAlive) {
  QFile(planning).open(QIODevice::WriteOnly);
  {  // normal mode, as the dead workstation left it
    QFile lock(lockPathOf(planning));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write(QByteArray("\0\0\xff\xff\0\0", 6));
  }
  test::OtherProcess child = receptionJoined(planning);
  ASSERT_TRUE(child.ready());
  EXPECT_TRUE(rosterIsLive(planning));
  child.stop();
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
