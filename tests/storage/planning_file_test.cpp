// What a file must be to be opened, what a damaged one gives back, who may
// hold a planning, and the command line's own answers.

#include <gtest/gtest.h>

#include <csignal>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTextStream>

#include "config/option_reader.h"
#include "core/clock.h"
#include "core/texts.h"
#include "storage/command_line.h"
#include "storage/creation.h"
#include "storage/lock_file.h"
#include "storage/planning_file.h"
#include "storage/roster.h"
#include "storage/schema.h"
#include "support/file_bytes.h"
#include "support/other_process.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;

namespace {

class PlanningFile : public ::testing::Test {
 protected:
  QString planning(const QString& name, int bookings = 0) {
    const QString file = folders.document(name);
    test::ScriptedMessages quiet;
    EXPECT_TRUE(Creation(file, {quiet, texts, folders.paths()}));
    Database db(file, Database::OpenMode::ReadWrite);
    Transaction t(db);
    for (int i = 0; i < bookings; ++i) {
      insertRow(db, "Reservation", {{"Resource", "101"}, {"Date_Deb", QDate(2026, 1, 1)}, {"Date_Fin", QDate(2026, 1, 3)},
                                    {"Nom", QString("Guest %1 with a long name").arg(i).left(25)}, {"GroupId", "C"},
                                    {"InvNb", -i - 1}});
      insertRow(db, "Invoice", {{"InvoiceNb", -i - 1}, {"Typ", "0"}, {"Lib", QString("Guest %1").arg(i)}});
    }
    t.commit();
    return file;
  }
  int run(const QStringList& args) {
    out.clear();
    messages.clear();
    QTextStream o(&out), e(&out);
    return runCommandLine(args, o, e, messages, texts, folders.paths(), clock);
  }
  QStringList outLines() const { return out.split('\n', Qt::SkipEmptyParts); }

  test::TempFolders folders;
  test::ScriptedMessages messages;
  const Texts texts{0};
  const FixedClock clock{QDate(2026, 11, 22)};
  QString out;
};

TEST_F(PlanningFile, TheOpenChecksComeInOrderAndRefuseWhatIsNoPlanningOfThisVersion) {
  const QString good = planning("Good.ksv");
  const QString newer = planning("Newer.ksv"), older = planning("Older.ksv");
  Database(newer, Database::OpenMode::ReadWrite).exec("UPDATE DataBaseInfo SET Version = '9.99'");
  Database(older, Database::OpenMode::ReadWrite).exec("UPDATE DataBaseInfo SET Version = '4.10'");
  const QString empty = folders.document("Empty.ksv"), foreign = folders.document("Foreign.ksv");
  test::writeBytes(empty, "");
  Database(foreign, Database::OpenMode::Create).exec("CREATE TABLE Guests (Nom TEXT)");
  QFile::copy(good, folders.document("Good.txt"));

  const struct {
    QString file;
    PlanningCheck check;
    QString message;
  } cases[] = {
      {good, PlanningCheck::Ok, ""},
      {folders.document("Gone.ksv"), PlanningCheck::Missing,
       "The Planning - " + folders.document("Gone.ksv") + " - doesn't exist"},
      {folders.document("Good.txt"), PlanningCheck::NotAPlanning,
       "The file - " + folders.document("Good.txt") + " - is not a Planning"},
      {empty, PlanningCheck::NotAPlanning, "The file - " + empty + " - is not a Planning"},
      {foreign, PlanningCheck::NotAPlanning, "The file - " + foreign + " - is not a Planning"},
      {newer, PlanningCheck::Newer, "You must upgrade your Kestrovane program"},
      {older, PlanningCheck::Older,
       "The planning is of the older version 4.10: it must be converted before it can be used"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.file.toStdString());
    const OpenedPlanning o = openPlanning(c.file, Database::OpenMode::ReadOnly);
    EXPECT_EQ(o.check, c.check);
    messages.clear();
    reportPlanningCheck(o, c.file, messages, texts);
    EXPECT_EQ(messages.texts(), c.message.isEmpty() ? QStringList() : QStringList{c.message});
    if (c.check == PlanningCheck::Ok) continue;
    // No command makes anything of them: no copy, no change, no success.
    const QString target = folders.document("Copy.ksv");
    const QByteArray before = test::readBytes(c.file);
    EXPECT_EQ(run({"backup", c.file, target}), kExitFailed);
    EXPECT_EQ(run({"compact", c.file}), kExitFailed);
    EXPECT_EQ(run({"purge", c.file}), kExitFailed);
    EXPECT_FALSE(QFile::exists(target));
    EXPECT_EQ(test::readBytes(c.file), before);
  }
  EXPECT_EQ(test::readBytes(empty).size(), 0);
}

TEST_F(PlanningFile, CompactionKeepsModeOwnerAndGroup) {
  const QString file = planning("Hotel.ksv", 10);
  const bool root = ::geteuid() == 0;
  for (mode_t mode : {0660, 0444, 0600}) {
    SCOPED_TRACE(mode);
    ::chmod(QFile::encodeName(file).constData(), mode);
    if (root) ASSERT_EQ(::chown(QFile::encodeName(file).constData(), 65534, 65534), 0);
    EXPECT_EQ(run({"compact", file}), kExitDone);
    struct stat st;
    ASSERT_EQ(::stat(QFile::encodeName(file).constData(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, mode);
    if (root) EXPECT_EQ(std::make_pair(st.st_uid, st.st_gid), std::make_pair(uid_t(65534), gid_t(65534)));
  }
}

// One discipline: who holds the exclusive flag is in the roster for as long
// as it holds it, and only a dead holder's flag is stale.
TEST_F(PlanningFile, TheExclusiveHolderIsListedAndItsLockIsNeverTakenForStale) {
  const QString file = planning("Hotel.ksv");
  test::OtherProcess holder([&] { return RequestConnectMode(file, 'E'); });
  ASSERT_TRUE(holder.ready());
  EXPECT_EQ(liveConnections(file).size(), 1);
  deleteStaleLock(file);
  EXPECT_TRUE(QFile::exists(lockPathOf(file)));
  EXPECT_EQ(requestLock(file, 'E'), LockAnswer::InUse);
  EXPECT_EQ(run({"compact", file}), kExitInUse);

  holder.stop();
  EXPECT_EQ(requestLock(file, 'E'), LockAnswer::Granted) << "its holder died: the flag is stale";
  ReleaseConnectMode(file, 'E');
  EXPECT_FALSE(QFile::exists(lockPathOf(file)));
  EXPECT_FALSE(QFile::exists(rosterPathOf(file)));
}

TEST_F(PlanningFile, AFolderThatRefusesTheLockFileIsNoWorkstationInTheWay) {
  const QString file = planning("Hotel.ksv", 3);
  ::chmod(QFile::encodeName(folders.root()).constData(), 0755);
  ::chmod(QFile::encodeName(file).constData(), 0644);
  ::chmod(QFile::encodeName(folders.paths().documentsDir()).constData(), 0555);
  const test::ChildEnd end = test::runChild([&] {
    if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) return 98;
    const int code = run({"compact", file});
    return code == kExitFailed &&
                   messages.texts() == QStringList{"The lock file - " + lockPathOf(file) +
                                                   " - cannot be written: the folder of the planning must allow writing"}
               ? 0
               : 10 + code;
  });
  ::chmod(QFile::encodeName(folders.paths().documentsDir()).constData(), 0755);
  EXPECT_EQ(end.exitCode, 0) << "10 + the exit status when the answer was wrong";
}

TEST_F(PlanningFile, YearKeepIsAWholeNumberOfYears) {
  const struct {
    const char* text;
    std::optional<int> years;
  } cases[] = {{"3", 3}, {" 0 ", 0}, {"10", 10}, {"-1", std::nullopt}, {"three", std::nullopt},
               {"1.5", std::nullopt}, {"", std::nullopt}, {"99999", std::nullopt}};
  for (const auto& c : cases) EXPECT_EQ(yearKeepYears(c.text), c.years) << c.text;
}

TEST_F(PlanningFile, TheCommandLineSpeaksTheWindowsLanguageAndKnowsItsUser) {
  EXPECT_EQ(commandLineTextOffset(folders.paths()), 0);
  test::writeBytes(folders.paths().iniFile(), "[Remember]\r\nLanguage=Fr\r\n");
  EXPECT_EQ(commandLineTextOffset(folders.paths()), kFrenchOffset);

  const test::ChildEnd end = test::runChild([] {
    ::unsetenv("USER");
    ::unsetenv("LOGNAME");
    return loginName().isEmpty() ? 1 : 0;
  });
  EXPECT_EQ(end.exitCode, 0) << "a cron job without USER still has a login";
}

// A cron job has no display: a mistyped command is answered before any
// window system is asked for.
TEST_F(PlanningFile, AMistypedCommandIsAnsweredWithoutADisplay) {
  const QString file = planning("Hotel.ksv");
  QProcess program;
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) env.remove(name);
  env.insert("KESTROVANE_HOME", folders.paths().programDir());
  program.setProcessEnvironment(env);
  program.start(KSV_PROGRAM, {"bakcup", file});
  ASSERT_TRUE(program.waitForFinished(20000));
  EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(program.exitCode(), kExitWrongUsage);
  EXPECT_TRUE(QString::fromUtf8(program.readAllStandardError()).startsWith("Unknown command: bakcup"));
}

}  // namespace
