// A planning survives what runs beside an operation and what dies in it:
// real processes race each other, and a kill at each named step of compact,
// copy and purge leaves the planning whole under its name, with its rows,
// its permissions and nothing else beside it.

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <sys/stat.h>

#include <QFile>
#include <QTextStream>

#include "core/clock.h"
#include "core/printing_messages.h"
#include "core/texts.h"
#include "storage/command_line.h"
#include "storage/connecting.h"
#include "storage/creation.h"
#include "storage/fault_point.h"
#include "storage/lock_file.h"
#include "storage/planning_file.h"
#include "storage/schema.h"
#include "support/other_process.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;

namespace {

constexpr int kOld = 400;  // bookings that left before the purge limit, each with an invoice
constexpr int kNew = 800;  // bookings still to come

class PlanningSafety : public ::testing::Test {
 protected:
  void SetUp() override { fresh(); }

  // A planning of committed rows, as a hotel's would be.
  void fresh() {
    for (const QString& name : test::debrisIn(folders.paths().documentsDir(), {}))
      QFile::remove(folders.document(name));
    test::ScriptedMessages quiet;
    ASSERT_TRUE(Creation(path, {quiet, texts, folders.paths()}));
    Database db(path, Database::OpenMode::ReadWrite);
    Transaction t(db);
    for (int i = 0; i < kOld + kNew; ++i) {
      const bool old = i < kOld;
      const QDate first = old ? QDate(2020, 1, 1).addDays(i % 300) : QDate(2026, 12, 1).addDays(i % 300);
      insertRow(db, "Reservation", {{"Resource", QString::number(100 + i % 30)}, {"Date_Deb", first},
                                    {"Date_Fin", first.addDays(3)}, {"Nom", name(i)}, {"GroupId", "C"},
                                    {"InvNb", old ? QVariant(-i - 1) : QVariant()}});
      if (old) insertRow(db, "Invoice", {{"InvoiceNb", -i - 1}, {"Typ", "0"}, {"Lib", name(i)}});
    }
    t.commit();
    ::chmod(QFile::encodeName(path).constData(), 0640);
  }
  static QString name(int i) { return QString(i < kOld ? "Old %1" : "New %1").arg(i, 4, 10, QLatin1Char('0')); }
  static QStringList names(bool withOld) {
    QStringList out;
    for (int i = withOld ? 0 : kOld; i < kOld + kNew; ++i) out << name(i);
    return out;
  }

  // The command line as a script runs it, in the calling (child) process.
  int cli(const QStringList& args) {
    QString out, err;
    QTextStream o(&out), e(&err);
    PrintingMessages printing(e, texts);
    return runCommandLine(args, o, e, printing, texts, folders.paths(), clock);
  }

  // The planning under its name opens, passes its integrity check and holds
  // exactly `expected` with its mode.
  void expectWhole(const QString& file, QStringList expected, mode_t mode = 0640) {
    expected.sort();
    OpenedPlanning o = openPlanning(file, Database::OpenMode::ReadOnly);
    ASSERT_TRUE(o) << file.toStdString() << " " << o.detail.toStdString();
    EXPECT_EQ(integrityCheck(o.db), "ok");
    QStringList got;
    Statement st = o.db.prepare("SELECT Nom FROM Reservation ORDER BY Nom");
    while (st.step()) got << st.column(0).toString();
    EXPECT_EQ(got.size(), expected.size());
    EXPECT_TRUE(got == expected) << "rows differ in " << file.toStdString();
    struct stat st_;
    ASSERT_EQ(::stat(QFile::encodeName(file).constData(), &st_), 0);
    EXPECT_EQ(st_.st_mode & 07777, mode) << file.toStdString();
  }
  QStringList debris(const QStringList& expected = {"Hotel.ksv"}) {
    return test::debrisIn(folders.paths().documentsDir(), expected);
  }

  test::TempFolders folders;
  const Texts texts{0};
  const FixedClock clock{QDate(2026, 11, 22)};  // purge limit 2023-11-01
  const QString path = folders.document("Hotel.ksv");
};

void report(const char* race, int rounds, int refused) {
  std::printf("[ race ] %s: %d rounds, %d refused as in use\n", race, rounds, refused);
}

TEST_F(PlanningSafety, TwoCompactionsAtOnceNeverLoseThePlanning) {
  const int rounds = test::raceRounds(3);
  int refused = 0;
  for (int r = 0; r < rounds; ++r) {
    SCOPED_TRACE(r);
    const auto ends = test::runTogether({[&] { return cli({"compact", path}); }, [&] { return cli({"compact", path}); }});
    for (const auto& e : ends) EXPECT_TRUE(e.exitCode == kExitDone || e.exitCode == kExitInUse) << e.exitCode;
    EXPECT_TRUE(ends[0].exitCode == kExitDone || ends[1].exitCode == kExitDone);
    refused += (ends[0].exitCode == kExitInUse) + (ends[1].exitCode == kExitInUse);
    expectWhole(path, names(true));
    EXPECT_EQ(debris(), QStringList());
    if (HasFailure()) break;
  }
  report("compact/compact", rounds, refused);
}

TEST_F(PlanningSafety, APurgeBesideACompactionKeepsItsDeletions) {
  const int rounds = test::raceRounds(3);
  int refused = 0;
  for (int r = 0; r < rounds; ++r) {
    SCOPED_TRACE(r);
    fresh();
    const auto ends = test::runTogether({[&] { return cli({"compact", path}); }, [&] { return cli({"purge", path}); }});
    EXPECT_TRUE(ends[0].exitCode == kExitDone || ends[0].exitCode == kExitInUse) << ends[0].exitCode;
    EXPECT_TRUE(ends[1].exitCode == kExitDone || ends[1].exitCode == kExitInUse) << ends[1].exitCode;
    refused += (ends[0].exitCode == kExitInUse) + (ends[1].exitCode == kExitInUse);
    // A purge that says it succeeded has deleted for good.
    expectWhole(path, names(ends[1].exitCode != kExitDone));
    EXPECT_EQ(debris(), QStringList());
    if (HasFailure()) break;
  }
  report("compact/purge", rounds, refused);
}

TEST_F(PlanningSafety, AWorkstationOpeningDuringACompactionKeepsWhatItWrites) {
  const int rounds = test::raceRounds(3);
  int refused = 0;
  QStringList expected = names(true);
  for (int r = 0; r < rounds; ++r) {
    SCOPED_TRACE(r);
    const QString booking = QStringLiteral("Session %1").arg(r, 4, 10, QLatin1Char('0'));
    // The workstation opens as a session does: the lock U, then the connection.
    auto session = [&] {
      if (!RequestConnectMode(path, 'U')) return int(kExitInUse);
      int code = kExitFailed;
      {
        ConnectResult c = Connecting(path, 'U');
        if (c) {
          insertRow(c.connection->db(), "Reservation", {{"Resource", "101"}, {"Date_Deb", QDate(2027, 1, 1)},
                                                       {"Date_Fin", QDate(2027, 1, 2)}, {"Nom", booking},
                                                       {"GroupId", "C"}});
          code = kExitDone;
        }
      }
      ReleaseConnectMode(path, 'U');
      return code;
    };
    const auto ends = test::runTogether({[&] { return cli({"compact", path}); }, session});
    EXPECT_TRUE(ends[0].exitCode == kExitDone || ends[0].exitCode == kExitInUse) << ends[0].exitCode;
    EXPECT_EQ(ends[1].exitCode, kExitDone) << "the workstation opens once the compaction is done";
    refused += ends[0].exitCode == kExitInUse;
    if (ends[1].exitCode == kExitDone) expected << booking;
    expectWhole(path, expected);
    EXPECT_EQ(debris(), QStringList());
    if (HasFailure()) break;
  }
  report("compact/session open", rounds, refused);
}

// ---------------------------------------------------------------- kills

struct KillCase {
  const char* command;
  const char* step;
};

class KilledAtAStep : public PlanningSafety, public ::testing::WithParamInterface<KillCase> {};

TEST_P(KilledAtAStep, LeavesThePlanningWholeAndTheNextRunClean) {
  const KillCase c = GetParam();
  const QString target = folders.document("Hotel_BackUp.ksv");
  QStringList args{c.command, path};
  if (QString(c.command) == "backup") args << target;
  const test::ChildEnd end = test::runChild([&] {
    setFaultHook([step = QString(c.step)](const char* at) {
      if (step == QLatin1String(at)) ::raise(SIGKILL);
    });
    return cli(args);
  });
  ASSERT_TRUE(end.killedBy(SIGKILL)) << "the step was never reached; exit " << end.exitCode;

  const bool purged = QString(c.step) == "purge:committed";
  expectWhole(path, names(!purged));
  if (QFile::exists(target)) expectWhole(target, names(true), test::freshFileMode());

  // The next run works and sweeps what the dead one left.
  QFile::remove(target);
  EXPECT_EQ(cli(args), kExitDone);
  expectWhole(path, names(QString(c.command) != "purge"));
  EXPECT_EQ(debris({"Hotel.ksv", "Hotel_BackUp.ksv"}), QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    EveryStep, KilledAtAStep,
    ::testing::Values(KillCase{"compact", "compact:temporary"}, KillCase{"compact", "compact:written"},
                      KillCase{"compact", "compact:verified"}, KillCase{"compact", "replace:before-rename"},
                      KillCase{"compact", "replace:renamed"}, KillCase{"backup", "copy:temporary"},
                      KillCase{"backup", "copy:written"}, KillCase{"backup", "copy:verified"},
                      KillCase{"backup", "replace:before-rename"}, KillCase{"backup", "replace:renamed"},
                      KillCase{"purge", "purge:bookings"}, KillCase{"purge", "purge:cash-sales"},
                      KillCase{"purge", "purge:committed"}),
    [](const auto& info) {
      QString n = QString(info.param.command) + "_" + info.param.step;
      return n.replace(':', '_').replace('-', '_').toStdString();
    });

// A purge killed before its commit leaves a rollback journal: every command
// still takes the planning, which holds all its committed rows.
TEST_F(PlanningSafety, EveryCommandTakesAPlanningWithTheJournalOfACrash) {
  const QString target = folders.document("Hotel_Copy.ksv");
  const QList<QStringList> commands{
      {"check", path}, {"backup", path, target}, {"compact", path}, {"extract", path, target}, {"purge", path}};
  for (const QStringList& command : commands) {
    SCOPED_TRACE(command.first().toStdString());
    fresh();
    const test::ChildEnd end = test::runChild([&] {
      setFaultHook([](const char* at) {
        if (QLatin1String(at) == QLatin1String("purge:cash-sales")) ::raise(SIGKILL);
      });
      return cli({"purge", path});
    });
    ASSERT_TRUE(end.killedBy(SIGKILL));
    ASSERT_TRUE(QFile::exists(path + "-journal"));
    EXPECT_EQ(cli(command), kExitDone);
    expectWhole(path, names(command.first() != "purge"));
    if (command.size() == 3) {
      EXPECT_TRUE(verifiedPlanning(target));
    }
  }
}

}  // namespace
