#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "storage/lock_file.h"
#include "storage/roster.h"
#include "support/other_process.h"

using namespace ksv;

namespace {

class LockFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    planning = dir.path() + "/Hotel.ksv";
    QFile f(planning);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  }
  QByteArray lockBytes() const {
    QFile f(lockPathOf(planning));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
  }
  QTemporaryDir dir;
  QString planning;
};

}  // namespace

TEST_F(LockFileTest, PathsReplaceTheLastThreeCharacters) {
  EXPECT_EQ(lockPathOf("/a/Hotel.ksv"), "/a/Hotel.lck");
  EXPECT_EQ(rosterPathOf("/a/Hotel.ksv"), "/a/Hotel.ldb");
}

TEST_F(LockFileTest, RecordIsSixLittleEndianBytes) {
  ASSERT_TRUE(RequestConnectMode(planning, 'C'));
  ASSERT_TRUE(RequestConnectMode(planning, 'C'));
  ASSERT_TRUE(RequestConnectMode(planning, 'U'));
  EXPECT_EQ(lockBytes(), QByteArray::fromHex("0200ffff0000"));
  const auto r = readLockFile(lockPathOf(planning));
  ASSERT_TRUE(r);
  EXPECT_EQ(r->consultations, 2);
  EXPECT_EQ(r->normalMode, -1);
  EXPECT_EQ(r->exclusive, 0);
}

TEST_F(LockFileTest, ConsultationsAreCountedWhileTheirHoldersLive) {
  ASSERT_TRUE(RequestConnectMode(planning, 'C'));
  ASSERT_TRUE(RequestConnectMode(planning, 'C'));
  EXPECT_EQ(readLockFile(lockPathOf(planning))->consultations, 2);
  // A workstation that took a consultation and died counts no more.
  EXPECT_EQ(test::runChild([&] { return RequestConnectMode(planning, 'C') ? 0 : 1; }).exitCode, 0);
  ASSERT_TRUE(RequestConnectMode(planning, 'C'));
  EXPECT_EQ(readLockFile(lockPathOf(planning))->consultations, 3);
  for (int i = 0; i < 2; ++i) ReleaseConnectMode(planning, 'C');
  EXPECT_EQ(readLockFile(lockPathOf(planning))->consultations, 1);
  ReleaseConnectMode(planning, 'C');
  EXPECT_FALSE(QFile::exists(lockPathOf(planning)));
}

TEST_F(LockFileTest, NormalModeIsForOneWorkstationAndShowsTheUsers) {
  ASSERT_TRUE(RequestConnectMode(planning, 'U'));
  int shown = 0;
  const int code = test::runChild([&] { return RequestConnectMode(planning, 'U', [&](int e) { shown = e; }) ? 1 : (shown == 714 ? 0 : 2); }).exitCode;
  EXPECT_EQ(code, 0) << "the second normal-mode request must be refused with the roster message";
  EXPECT_TRUE(RequestConnectMode(planning, 'C'));  // consulting is still allowed
  ReleaseConnectMode(planning, 'U');
  EXPECT_TRUE(RequestConnectMode(planning, 'U', [&](int e) { shown = e; }));
  EXPECT_EQ(shown, 0);
}

TEST_F(LockFileTest, ExclusiveNeedsEveryNumberFreeAndNeverBlocksConsultation) {
  ASSERT_TRUE(RequestConnectMode(planning, 'C'));
  EXPECT_FALSE(RequestConnectMode(planning, 'E'));
  ReleaseConnectMode(planning, 'C');
  ASSERT_TRUE(RequestConnectMode(planning, 'U'));
  EXPECT_FALSE(RequestConnectMode(planning, 'E'));
  ReleaseConnectMode(planning, 'U');
  EXPECT_FALSE(QFile::exists(lockPathOf(planning)));

  ASSERT_TRUE(RequestConnectMode(planning, 'E'));
  EXPECT_FALSE(RequestConnectMode(planning, 'E'));
  EXPECT_TRUE(RequestConnectMode(planning, 'C'));
  EXPECT_EQ(lockBytes(), QByteArray::fromHex("01000000ffff"));
  ReleaseConnectMode(planning, 'E');
  ReleaseConnectMode(planning, 'C');
  EXPECT_FALSE(QFile::exists(lockPathOf(planning)));
}

TEST_F(LockFileTest, NothingToLockForAMissingPlanning) {
  const QString missing = dir.path() + "/Gone.ksv";
  EXPECT_TRUE(RequestConnectMode(missing, 'E'));
  EXPECT_TRUE(RequestConnectMode("", 'U'));
  EXPECT_FALSE(QFile::exists(lockPathOf(missing)));
}

TEST_F(LockFileTest, ReleasingWithoutALockFileLeavesNoNegativeCount) {
  ReleaseConnectMode(planning, 'C');
  EXPECT_FALSE(QFile::exists(lockPathOf(planning)));
  ASSERT_TRUE(RequestConnectMode(planning, 'U'));
  ReleaseConnectMode(planning, 'C');  // a count already at zero stays there
  EXPECT_EQ(readLockFile(lockPathOf(planning))->consultations, 0);
}

TEST_F(LockFileTest, StaleLockWithoutLiveRosterIsDeleted) {
  {  // normal mode taken by a workstation that died
    QFile lock(lockPathOf(planning));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write(QByteArray("\0\0\xff\xff\0\0", 6));
  }
  {
    auto entry = RosterEntry::join(planning);
    ASSERT_TRUE(entry);
    deleteStaleLock(planning);
    EXPECT_TRUE(QFile::exists(lockPathOf(planning))) << "somebody is connected: the lock holds";
  }
  deleteStaleLock(planning);
  EXPECT_FALSE(QFile::exists(lockPathOf(planning)));
}
