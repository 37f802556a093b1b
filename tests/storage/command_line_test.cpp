#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include "core/clock.h"
#include "core/printing_messages.h"
#include "core/texts.h"
#include "storage/command_line.h"
#include "storage/connecting.h"
#include "storage/creation.h"
#include "storage/lock_file.h"
#include "storage/roster.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"
#include "support/file_bytes.h"
#include "support/other_process.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;

namespace {

using test::readBytes;
using test::writeBytes;

class CommandLine : public ::testing::Test {
 protected:
  void SetUp() override {
    path = folders.document("Hotel.ksv");
    ASSERT_TRUE(Creation(path, {messages, texts, folders.paths()}));
  }
  int run(const QStringList& args) {
    outText.clear();
    errText.clear();
    messages.clear();
    QTextStream out(&outText), err(&errText);
    return runCommandLine(args, out, err, messages, texts, folders.paths(), clock);
  }
  QStringList outLines() const { return outText.split('\n', Qt::SkipEmptyParts); }
  Database open(const QString& file) { return Database(file, Database::OpenMode::ReadWrite); }
  void booking(const QString& file, const QString& nom, QDate first, QDate last, QVariant invNb = {}) {
    Database db = open(file);
    insertRow(db, "Reservation", {{"Resource", "101"}, {"Date_Deb", first}, {"Date_Fin", last}, {"Nom", nom},
                                  {"GroupId", "C"}, {"GroupNb", 0}, {"InvNb", invNb}});
  }
  QStringList names(const QString& file) {
    Database db = open(file);
    QStringList out;
    Statement st = db.prepare("SELECT Nom FROM Reservation ORDER BY rowid");
    while (st.step()) out << st.column(0).toString();
    return out;
  }
  int count(const QString& file, const QString& sql) { return open(file).scalar(sql).toInt(); }

  test::TempFolders folders;
  test::ScriptedMessages messages;
  const Texts texts{0};
  const FixedClock clock{QDate(2026, 11, 22)};
  QString path, outText, errText;
};

TEST_F(CommandLine, HelpListsEveryCommandAndBadCallsSaySo) {
  EXPECT_EQ(run({"--help"}), kExitDone);
  EXPECT_TRUE(outText.contains("backup FILE TARGET"));
  EXPECT_TRUE(isCommand("purge"));
  EXPECT_TRUE(isCommand("bakcup")) << "a mistyped command is answered, not taken for the window";
  EXPECT_FALSE(isCommand("--version"));
  EXPECT_FALSE(isCommand("--example"));
  EXPECT_FALSE(isCommand(path)) << "a planning given to open is no command";

  EXPECT_EQ(run({"frobnicate", path}), kExitWrongUsage);
  EXPECT_TRUE(errText.startsWith("Unknown command: frobnicate"));
  EXPECT_EQ(run({"backup", path}), kExitWrongUsage);
  EXPECT_TRUE(errText.startsWith("Wrong number of file names for the command backup"));
  EXPECT_EQ(run({"check", path, path}), kExitWrongUsage);
  EXPECT_TRUE(outText.isEmpty());
}

TEST_F(CommandLine, NewMakesAPlanningAndNeverOverwrites) {
  const QString fresh = folders.document("Annex.ksv");
  EXPECT_EQ(run({"new", fresh}), kExitDone);
  EXPECT_EQ(outLines(), QStringList{"New planning: " + fresh});
  EXPECT_TRUE(Connecting(fresh, 'C'));
  EXPECT_EQ(run({"new", fresh}), kExitFailed);
  EXPECT_EQ(run({"new", folders.document("Other.txt")}), kExitFailed);
  EXPECT_FALSE(QFile::exists(folders.document("Other.txt")));
}

TEST_F(CommandLine, CompactGivesTheLockBack) {
  booking(path, "Guest 9", QDate(2026, 1, 1), QDate(2026, 1, 2));
  EXPECT_EQ(run({"compact", path}), kExitDone);
  EXPECT_EQ(names(path), QStringList{"Guest 9"});
  EXPECT_EQ(outLines(), (QStringList{"Planning: " + path, "The file is repaired and compacted successfully"}));
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_FALSE(QFile::exists(lockPathOf(path)));

  EXPECT_EQ(run({"compact", folders.document("Gone.ksv")}), kExitFailed);
  EXPECT_EQ(messages.texts(), QStringList{"The Planning - " + folders.document("Gone.ksv") + " - doesn't exist"});
}

TEST_F(CommandLine, CompactWaitsUntilNobodyWorksWithThePlanning) {
  booking(path, "Mr Vidal", QDate(2026, 1, 1), QDate(2026, 1, 2));
  for (char mode : {'U', 'C'}) {
    SCOPED_TRACE(mode);
    test::OtherProcess other = test::workstation(path, mode);
    ASSERT_TRUE(other.ready());
    const QByteArray before = readBytes(path);
    EXPECT_EQ(run({"compact", path}), kExitInUse);
    EXPECT_EQ(messages.texts(), (QStringList{texts.get(txt::RosterCompact), "Connected: " + computerName() + " / " + loginName()}));
    EXPECT_EQ(readBytes(path), before);
    // The other workstation keeps its lock.
    const std::optional<LockRecord> lock = readLockFile(lockPathOf(path));
    ASSERT_TRUE(lock);
    EXPECT_EQ(mode == 'U' ? lock->normalMode : lock->consultations, mode == 'U' ? -1 : 1);
    EXPECT_EQ(lock->exclusive, 0);
  }
  EXPECT_EQ(run({"compact", path}), kExitDone);
}

TEST_F(CommandLine, ALockLeftByACrashBlocksNothing) {
  for (const char* command : {"compact", "purge"}) {
    writeBytes(lockPathOf(path), QByteArray("\0\0\xff\xff\0\0", 6));  // normal mode, nobody connected
    EXPECT_EQ(run({command, path}), kExitDone) << command;
  }
  EXPECT_FALSE(QFile::exists(lockPathOf(path)));
}

TEST_F(CommandLine, PurgeIsRefusedWhileAnotherProgramWorksAndGoesOnOnceItDied) {
  booking(path, "Left long ago", QDate(2020, 3, 1), QDate(2020, 3, 5));
  test::OtherProcess other = test::workstation(path, 'U');
  ASSERT_TRUE(other.ready());

  EXPECT_EQ(run({"purge", path}), kExitInUse);
  ASSERT_FALSE(messages.shown().empty());
  EXPECT_EQ(messages.shown()[0].text,
            "The data base cannot be open in normal mode because somebody is already working  in this mode.");
  EXPECT_EQ(names(path), QStringList{"Left long ago"});
  EXPECT_EQ(run({"check", path}), kExitDone);
  EXPECT_TRUE(outLines().contains("Connected: " + computerName() + " / " + loginName()));
  EXPECT_TRUE(outLines().contains("Normal mode taken: yes"));

  other.stop();
  EXPECT_EQ(run({"purge", path}), kExitDone);
  EXPECT_TRUE(names(path).isEmpty());
}

TEST_F(CommandLine, PurgeKeepsTheYearsOfTheOptionsWithoutAsking) {
  // Today 2026-11-22 and three years kept: the limit is 2023-11-01.
  booking(path, "Left before the limit", QDate(2023, 10, 20), QDate(2023, 10, 31));
  booking(path, "This year", QDate(2026, 2, 1), QDate(2026, 2, 3));
  EXPECT_EQ(run({"purge", path}), kExitDone);
  EXPECT_TRUE(messages.shown().empty()) << "no question on the command line";
  EXPECT_EQ(names(path), QStringList{"This year"});
  EXPECT_EQ(outLines(), (QStringList{"Planning: " + path, "Years kept: 3 (YearKeep)",
                                     "Bookings that left before the 2023-11-01 are deleted", "Bookings deleted: 1",
                                     "Purge successful"}));
  EXPECT_FALSE(QFile::exists(lockPathOf(path)));
}

TEST_F(CommandLine, AYearKeepThatIsNoWholeNumberOfYearsPurgesNothing) {
  booking(path, "Left long ago", QDate(2020, 3, 1), QDate(2020, 3, 5));
  booking(path, "Arrives next year", QDate(2027, 3, 1), QDate(2027, 3, 5));
  writeBytes(folders.paths().iniFile(), "[Reservation]\nYearKeep=1.5\n");
  EXPECT_EQ(run({"purge", path}), kExitFailed);
  EXPECT_EQ(messages.texts(), QStringList{"The option YearKeep must be a whole number of years, 0 or more: 1.5 is refused and nothing is purged"});
  EXPECT_EQ(names(path).size(), 2);
  writeBytes(folders.paths().iniFile(), "[Other]\nYearKeep=1\n");
  EXPECT_EQ(yearKeepText(folders.paths()), "3") << "a missing key is the default";
  writeBytes(folders.paths().iniFile(), "[Reservation]\nYearKeep=0\n");
  EXPECT_EQ(run({"purge", path}), kExitDone);
  EXPECT_EQ(names(path), QStringList{"Arrives next year"});
}

TEST_F(CommandLine, BackupIsMadeWhileOthersWorkAndNeverReplacesAFile) {
  booking(path, "Mrs Fontanel", QDate(2026, 10, 1), QDate(2026, 10, 4));
  test::OtherProcess other = test::workstation(path, 'U');
  ASSERT_TRUE(other.ready());
  const QString target = folders.document("Hotel_BackUp.ksv");
  EXPECT_EQ(run({"backup", path, target}), kExitDone);
  EXPECT_EQ(outLines(), (QStringList{"Copy: " + target, "Save  successful"}));
  EXPECT_EQ(names(target), QStringList{"Mrs Fontanel"});
  EXPECT_FALSE(QFile::exists(folders.paths().tempPlanning()));

  // An existing target: the question's preselected No is the command line's answer.
  booking(path, "Mr Brennan", QDate(2026, 10, 1), QDate(2026, 10, 4));
  messages.answer(MsgAnswer::No);
  EXPECT_EQ(run({"backup", path, target}), kExitFailed);
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
  EXPECT_EQ(names(target), QStringList{"Mrs Fontanel"});

  EXPECT_EQ(run({"backup", path, path}), kExitFailed);
}

TEST_F(CommandLine, PrintedQuestionsTakeTheirPreselectedAnswer) {
  const QString target = folders.document("Copy.ksv");
  writeBytes(target, "kept");
  QString out, err;
  QTextStream outStream(&out), errStream(&err);
  PrintingMessages printing(errStream, texts);
  EXPECT_EQ(runCommandLine({"extract", path, target}, outStream, errStream, printing, texts, folders.paths(), clock),
            kExitFailed);
  EXPECT_EQ(err, "This file exists already\nDo you want to replace it ? No\n");
  EXPECT_TRUE(out.isEmpty());
  EXPECT_EQ(readBytes(target), "kept");
}

TEST_F(CommandLine, CheckTellsWhatTheFileIs) {
  booking(path, "Mr Haddad", QDate(2026, 11, 20), QDate(2026, 11, 23));
  EXPECT_EQ(run({"check", path}), kExitDone);
  EXPECT_EQ(outLines(), (QStringList{"Planning: " + path, "Version: 5.20", "Integrity: ok", "Bookings: 1",
                                     "Lock file: none", "Connected: nobody"}));
  EXPECT_FALSE(QFile::exists(lockPathOf(path))) << "looking takes no lock";
  EXPECT_FALSE(QFile::exists(rosterPathOf(path)));
}

}  // namespace
