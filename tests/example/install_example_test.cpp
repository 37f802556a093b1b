#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/clock.h"
#include "example_fixture.h"
#include "storage/install_example.h"
#include "storage/lock_file.h"

using namespace ksv;

namespace {

// Every stored date of the two tables the example shift moves, row by row.
QStringList datesOf(const QString& file) {
  Database db(file, Database::OpenMode::ReadOnly);
  QStringList out;
  Statement st = db.prepare(
      "SELECT Date_Deb, Date_Fin FROM Reservation UNION ALL SELECT \"From\", \"To\" FROM Invoice ORDER BY 1, 2");
  while (st.step()) out << st.column(0).toString() + "|" + st.column(1).toString();
  return out;
}

QString shifted(const QString& pair, int days) {
  QStringList parts = pair.split('|');
  for (QString& p : parts)
    if (!p.isEmpty()) p = QDate::fromString(p, Qt::ISODate).addDays(days).toString(Qt::ISODate);
  return parts.join('|');
}

class InstallExample : public test::ExampleFixture {};

TEST_F(InstallExample, CopiesTheExampleAndMovesItAroundToday) {
  const FixedClock clock(QDate(2026, 11, 22));
  // 2006-10-21 to 2026-11-22, counted by hand: 20 years with 5 leap days, and a month and a day.
  constexpr int kDays = 7337;
  ASSERT_TRUE(Install_Example(folders.paths(), clock, messages, texts));
  EXPECT_TRUE(messages.shown().empty());
  const QString installed = folders.document("KestrovaneTry.ksv");
  EXPECT_EQ(installedExample(folders.paths()), QFileInfo(installed).filePath());

  QStringList expected;
  for (const QString& pair : datesOf(example())) expected << shifted(pair, kDays);
  EXPECT_EQ(datesOf(installed), expected);
  // The day the example was made for is today: guests are in the house.
  Database db(installed, Database::OpenMode::ReadOnly);
  EXPECT_GT(db.scalar("SELECT count(*) FROM Reservation WHERE GroupId = 'C' AND Date_Deb <= '2026-11-22' "
                      "AND Date_Fin > '2026-11-22'").toInt(), 5);
  // The program's copy is left as it was made, and the lock was given back.
  EXPECT_EQ(datesOf(example()), datesOf(QStringLiteral(KSV_EXAMPLE_FILE)));
  EXPECT_FALSE(QFile::exists(lockPathOf(installed)));
}

TEST_F(InstallExample, ReplacesAnOldExampleAndItsLockFile) {
  const QString installed = folders.document("KestrovaneTry.ksv");
  {
    QFile old(installed);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("an example played with for months");
    QFile lock(lockPathOf(installed));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write(QByteArray("\0\0\xff\xff\0\0", 6));  // a normal mode left by a crash
  }
  const FixedClock clock(QDate(2006, 10, 21));  // no shift at all on that day
  ASSERT_TRUE(Install_Example(folders.paths(), clock, messages, texts));
  EXPECT_EQ(datesOf(installed), datesOf(example()));
  EXPECT_FALSE(QFile::exists(lockPathOf(installed)));
}

TEST_F(InstallExample, AMissingExampleIsSaidAndNothingIsTouched) {
  ASSERT_TRUE(QFile::remove(example()));
  const QString installed = folders.document("KestrovaneTry.ksv");
  {
    QFile kept(installed);
    ASSERT_TRUE(kept.open(QIODevice::WriteOnly));
    kept.write("the user's own example");
  }
  const FixedClock clock(QDate(2026, 11, 22));
  EXPECT_FALSE(Install_Example(folders.paths(), clock, messages, texts));
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().text, "The example cannot be found");
  EXPECT_EQ(messages.last().icon, MsgIcon::Critical);
  QFile kept(installed);
  ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
  EXPECT_EQ(kept.readAll(), "the user's own example");
}

TEST_F(InstallExample, ACopyThatFailsIsSaid) {
  // A documents folder that is not there cannot take the copy.
  folders.paths() = Paths(folders.paths().programDir(), folders.root() + "/no such folder");
  const FixedClock clock(QDate(2026, 11, 22));
  EXPECT_FALSE(Install_Example(folders.paths(), clock, messages, texts));
  EXPECT_EQ(messages.texts(), QStringList{"Error while copying the data base"});
}

}  // namespace
