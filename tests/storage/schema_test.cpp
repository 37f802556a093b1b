#include <gtest/gtest.h>

#include <QDate>
#include <QProcess>
#include <QTemporaryDir>

#include "storage/schema.h"
#include "storage/sqlite_db.h"

using namespace ksv;

namespace {

class SchemaTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db_.open(dir_.path() + "/p.ksv", Database::OpenMode::Create);
    createPlanningTables(db_);
  }
  // A booking with every NOT NULL column that has no default.
  QVariantMap booking() const {
    return {{"Resource", "R1"}, {"Date_Deb", QDate(2024, 5, 1)}, {"Date_Fin", QDate(2024, 5, 3)}, {"Nom", "Martin"}};
  }
  // Inserts a row and expects the store to refuse it naming table.column;
  // nothing of the row may remain.
  void expectRefused(const QString& table, QVariantMap values, const QString& column) {
    const int before = count(table);
    try {
      insertRow(db_, table, values);
      ADD_FAILURE() << "accepted a bad " << table.toStdString() << "." << column.toStdString();
    } catch (const StorageError& e) {
      EXPECT_EQ(e.table(), table) << e.what();
      EXPECT_EQ(e.column(), column) << e.what();
    }
    EXPECT_EQ(count(table), before);
  }
  // Raw SQL bypassing the layer's conversion: the file itself must refuse.
  void expectSqlRefused(const QString& sql, const QString& table, const QString& column) {
    try {
      db_.exec(sql);
      ADD_FAILURE() << "accepted: " << sql.toStdString();
    } catch (const StorageError& e) {
      EXPECT_TRUE(e.isConstraint()) << e.what();
      EXPECT_EQ(e.table(), table) << e.what();
      EXPECT_EQ(e.column(), column) << e.what();
    }
  }
  int count(const QString& table) { return db_.scalar("SELECT count(*) FROM \"" + table + "\"").toInt(); }
  QVariant one(const QString& sql) { return db_.scalar(sql); }

  QTemporaryDir dir_;
  Database db_;
};



TEST_F(SchemaTest, ZeroLengthOnlyWhereAllowed) {
  QVariantMap b = booking();
  b["Remarque"] = QString("");
  b["Email"] = QString("");
  insertRow(db_, "Reservation", b);
  EXPECT_EQ(count("Reservation"), 1);

  QVariantMap emptySplit = booking();
  emptySplit["Split"] = QString("");
  expectRefused("Reservation", emptySplit, "Split");
  QVariantMap emptyName = booking();
  emptyName["Nom"] = QString("");
  expectRefused("Reservation", emptyName, "Nom");
  expectRefused("Invoice", {{"InvoiceNb", 1}, {"Typ", "1"}, {"Lib", QString("")}}, "Lib");
  // Null is the way to write nothing to such a column.
  insertRow(db_, "Invoice", {{"InvoiceNb", 1}, {"Typ", "1"}, {"Lib", QVariant()}});
  insertRow(db_, "AccountGroup", {{"Group", "G"}, {"Account", ""}, {"Sign", ""}});
  insertRow(db_, "Option", {{"Option", ""}});
  EXPECT_EQ(count("Invoice") + count("AccountGroup") + count("Option"), 3);
}

TEST_F(SchemaTest, MissingRequiredValuesAreRefused) {
  QVariantMap noName = booking();
  noName.remove("Nom");
  expectRefused("Reservation", noName, "Nom");
  QVariantMap nullDate = booking();
  nullDate["Date_Fin"] = QVariant();
  expectRefused("Reservation", nullDate, "Date_Fin");
  expectRefused("Header", {}, "Border");  // a Boolean without default must be given
  expectRefused("DataBaseInfo", {{"Version", "5.20"}, {"MaxInvNb", 0}, {"MaxWaitNb", 0}}, "MaxGroupNb");
}

TEST_F(SchemaTest, TextLengthCountsCharacters) {
  QVariantMap b = booking();
  b["Nom"] = QString(25, QChar(u'é'));  // 25 characters, 50 bytes
  b["Resource"] = QString(12, 'R');
  insertRow(db_, "Reservation", b);
  b["Nom"] = QString(26, 'x');
  expectRefused("Reservation", b, "Nom");
  b["Nom"] = "ok";
  b["Resource"] = QString(13, 'R');
  expectRefused("Reservation", b, "Resource");
  expectRefused("Invoice", {{"InvoiceNb", 1}, {"Typ", "10"}}, "Typ");
  expectRefused("Report", {{"Group", 1}, {"FromFixed", "12345678901"}}, "FromFixed");
  insertRow(db_, "Report", {{"Group", 1}, {"QuantityAmount", QString(20, '9')}});  // Text(20), not a number
}

TEST_F(SchemaTest, ShortAndLongRanges) {
  QVariantMap b = booking();
  b["HowMany"] = 32767;
  b["Couleur"] = -32768;
  b["InvNb"] = qlonglong(-2147483648LL);
  insertRow(db_, "Reservation", b);
  b["HowMany"] = 32768;
  expectRefused("Reservation", b, "HowMany");
  b["HowMany"] = 1;
  b["Couleur"] = -32769;
  expectRefused("Reservation", b, "Couleur");
  b["Couleur"] = 1;
  b["InvNb"] = qlonglong(2147483648LL);
  expectRefused("Reservation", b, "InvNb");
  expectSqlRefused("INSERT INTO Header (IdWidth, Border) VALUES (40000, 0)", "Header", "IdWidth");
  expectSqlRefused("INSERT INTO Resource (Resource, Color) VALUES ('R', 'red')", "Resource", "Color");
  // A Short given as a fraction is rounded half to even, as an integer field does.
  insertRow(db_, "DayColor", {{"IdDay", QDate(2024, 1, 1)}, {"Color", 2.5}});
  EXPECT_EQ(one("SELECT Color FROM DayColor").toInt(), 2);
}

TEST_F(SchemaTest, DatesOnlyInTheirTwoForms) {
  insertRow(db_, "DayColor", {{"IdDay", QDateTime(QDate(2024, 2, 29), QTime(10, 30, 0))}});
  insertRow(db_, "DayColor", {{"IdDay", "2024-03-01"}});
  EXPECT_EQ(one("SELECT group_concat(IdDay, '|') FROM DayColor").toString(), "2024-02-29 10:30:00|2024-03-01");
  for (const char* bad : {"2023-02-29", "2024-2-1", "01/02/2024", "2024-01-01T10:00:00", "2024-01-01 25:00:00"})
    expectSqlRefused(QStringLiteral("INSERT INTO DayColor (IdDay) VALUES ('%1')").arg(bad), "DayColor", "IdDay");
  expectSqlRefused("INSERT INTO DayColor (IdDay) VALUES (45000)", "DayColor", "IdDay");
  expectRefused("DayColor", {{"IdDay", "tomorrow"}}, "IdDay");
}

TEST_F(SchemaTest, BooleansAreZeroOrOne) {
  QVariantMap b = booking();
  b["Blocage"] = -1;  // the program's True
  insertRow(db_, "Reservation", b);
  EXPECT_EQ(one("SELECT Blocage FROM Reservation").toInt(), 1);
  expectSqlRefused("INSERT INTO Modification (Modification, Included) VALUES ('x', -1)", "Modification", "Included");
  expectSqlRefused("INSERT INTO Modification (Modification, Printed) VALUES ('x', 2)", "Modification", "Printed");
}

TEST_F(SchemaTest, SinglesKeepThirtyTwoBitPrecisionDoublesDoNot) {
  insertRow(db_, "Designation", {{"Designation", "Room"}, {"UnitPrice", 0.1}, {"Day", 0.1}});
  EXPECT_EQ(one("SELECT UnitPrice FROM Designation").toDouble(), double(0.1f));
  EXPECT_NE(double(0.1f), 0.1);
  EXPECT_EQ(one("SELECT Day FROM Designation").toDouble(), 0.1);
  insertRow(db_, "Modification", {{"Modification", "VAT"}, {"Rate", 19.6}, {"Fixed", 1.0 / 3}});
  EXPECT_EQ(one("SELECT Rate FROM Modification").toDouble(), double(19.6f));
  EXPECT_EQ(one("SELECT Fixed FROM Modification").toDouble(), double(float(1.0 / 3)));
  insertRow(db_, "Invoice", {{"InvoiceNb", 1}, {"Typ", "2"}, {"Rate", 19.6}});  // a Double here
  EXPECT_EQ(one("SELECT Rate FROM Invoice").toDouble(), 19.6);
  expectRefused("Designation", {{"Designation", "x"}, {"UnitPrice", "cheap"}}, "UnitPrice");
}

TEST_F(SchemaTest, DuplicatesAreNotRefused) {
  insertRow(db_, "Resource", {{"Resource", "Room 1"}});
  insertRow(db_, "Resource", {{"Resource", "Room 1"}});
  EXPECT_EQ(count("Resource"), 2);
}

TEST_F(SchemaTest, TextsCompareWithoutRegardToCase) {
  insertRow(db_, "Resource", {{"Resource", "room b"}});
  insertRow(db_, "Resource", {{"Resource", "Room A"}});
  EXPECT_EQ(one("SELECT count(*) FROM Resource WHERE Resource = 'ROOM B'").toInt(), 1);
  EXPECT_EQ(one("SELECT Resource FROM Resource ORDER BY Resource LIMIT 1").toString(), "Room A");
}

TEST_F(SchemaTest, TheStockCommandLineToolReadsAndChecksTheFile) {
  insertRow(db_, "Reservation", booking());
  db_.close();
  QProcess cli;
  cli.start("sqlite3", {dir_.path() + "/p.ksv",
                        "SELECT Nom, Couleur, Split FROM Reservation; PRAGMA integrity_check;"
                        "INSERT INTO Reservation (Resource, Date_Deb, Date_Fin, Nom, Split) "
                        "VALUES ('R', '2024-01-01', '2024-01-02', 'X', '');"});
  ASSERT_TRUE(cli.waitForFinished(10000));
  EXPECT_EQ(QString::fromUtf8(cli.readAllStandardOutput()), "Martin|5|0\nok\n");
  // The rules live in the file: the tool is refused too, naming the column.
  EXPECT_TRUE(QString::fromUtf8(cli.readAllStandardError()).contains("Reservation.Split"));
}

}  // namespace
