#include <gtest/gtest.h>

#include <QDate>
#include <QTemporaryDir>

#include "storage/recordset.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"

using namespace ksv;

namespace {

class RecordsetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    path_ = dir_.path() + "/p.ksv";
    db_.open(path_, Database::OpenMode::Create);
    createPlanningTables(db_);
  }
  void addResources(std::initializer_list<const char*> names) {
    int order = 1;
    for (const char* n : names) insertRow(db_, "Resource", {{"Resource", n}, {"Order", order++}});
  }
  QStringList walk(Recordset& rs, const char* field) {
    QStringList seen;
    for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) seen << rs.field(field).toString();
    return seen;
  }
  int count(const QString& table) { return db_.scalar("SELECT count(*) FROM \"" + table + "\"").toInt(); }

  QTemporaryDir dir_;
  QString path_;
  Database db_;
};

TEST_F(RecordsetTest, EmptySetIsBothBofAndEof) {
  Recordset rs = Recordset::openTable(db_, "Resource");
  EXPECT_TRUE(rs.isBOF());
  EXPECT_TRUE(rs.isEOF());
  EXPECT_EQ(rs.recordCount(), 0);
  EXPECT_EQ(rs.absolutePosition(), 0);
  EXPECT_THROW(rs.field("Resource"), StorageError);
  EXPECT_THROW(rs.moveNext(), StorageError);
  EXPECT_EQ(rs.fieldNames(), (QStringList{"Resource", "Color", "Order"}));
}

TEST_F(RecordsetTest, WalksForwardBackwardAndByPosition) {
  addResources({"A", "B", "C"});
  Recordset rs = Recordset::openTable(db_, "Resource");
  EXPECT_EQ(rs.recordCount(), 3);
  EXPECT_FALSE(rs.isBOF());
  EXPECT_EQ(rs.field("resource").toString(), "A");  // on the first row, names case-insensitive
  EXPECT_EQ(rs.absolutePosition(), 1);
  rs.moveLast();
  EXPECT_EQ(rs.field("Resource").toString(), "C");
  rs.moveNext();
  EXPECT_TRUE(rs.isEOF());
  EXPECT_EQ(rs.absolutePosition(), 0);
  rs.movePrevious();
  EXPECT_EQ(rs.field("Resource").toString(), "C");
  rs.moveFirst();
  rs.movePrevious();
  EXPECT_TRUE(rs.isBOF());
  EXPECT_FALSE(rs.isEOF());
  EXPECT_THROW(rs.movePrevious(), StorageError);
  rs.moveNext();
  EXPECT_EQ(rs.field("Resource").toString(), "A");
  rs.setAbsolutePosition(2);
  EXPECT_EQ(rs.field("Resource").toString(), "B");
  EXPECT_THROW(rs.setAbsolutePosition(4), StorageError);
  EXPECT_EQ(walk(rs, "Resource"), (QStringList{"A", "B", "C"}));
}

TEST_F(RecordsetTest, ValuesComeBackTyped) {
  insertRow(db_, "Reservation", {{"Resource", "R1"},
                                 {"Date_Deb", QDate(2024, 5, 1)},
                                 {"Date_Fin", QDateTime(QDate(2024, 5, 3), QTime(11, 0))},
                                 {"Nom", "Martin"},
                                 {"Blocage", true},
                                 {"InvNb", -4}});
  insertRow(db_, "Designation", {{"Designation", "Room"}, {"UnitPrice", 99.9}, {"Day", 12.5}});
  Recordset rs = Recordset::openTable(db_, "Reservation");
  EXPECT_EQ(rs.field("Date_Deb"), QVariant(QDate(2024, 5, 1)));
  EXPECT_EQ(rs.field("Date_Fin").toDateTime(), QDateTime(QDate(2024, 5, 3), QTime(11, 0)));
  EXPECT_EQ(rs.field("Blocage").typeId(), QMetaType::Bool);  // not the stored 1
  EXPECT_EQ(rs.field("Couleur").typeId(), QMetaType::Int);
  EXPECT_EQ(rs.field("InvNb").toInt(), -4);
  EXPECT_TRUE(rs.isNull("GroupNb"));
  EXPECT_EQ(rs.field("Remarque").typeId(), QMetaType::QString);

  Recordset d = Recordset::openTable(db_, "Designation");
  EXPECT_EQ(d.field("UnitPrice").typeId(), QMetaType::Float);
  EXPECT_EQ(d.field("UnitPrice").toFloat(), 99.9f);
  EXPECT_EQ(d.field("Day"), QVariant(12.5));

  // Typed through a query too, by the column each value is read from.
  Recordset q = Recordset::openQuery(db_, "SELECT Nom, Date_Deb, Blocage, HowMany + 1 AS More FROM Reservation");
  EXPECT_EQ(q.field("Date_Deb").toDate(), QDate(2024, 5, 1));
  EXPECT_EQ(q.field("Blocage").typeId(), QMetaType::Bool);
  EXPECT_EQ(q.field("More").toInt(), 2);  // an expression: as SQLite gives it
}

TEST_F(RecordsetTest, AddNewTakesDefaultsAndBecomesCurrent) {
  addResources({"A"});
  Recordset rs = Recordset::openTable(db_, "Reservation");
  rs.addNew();
  rs.setField("Resource", "A");
  rs.setField("Date_Deb", QDate(2024, 1, 1));
  rs.setField("Date_Fin", QDate(2024, 1, 4));
  rs.setField("Nom", "Durand");
  rs.setField("GroupId", "C");
  EXPECT_EQ(rs.field("Couleur").toInt(), 5);  // the default shows while adding
  rs.update();
  EXPECT_EQ(rs.recordCount(), 1);
  EXPECT_EQ(rs.absolutePosition(), 1);
  EXPECT_EQ(rs.field("HowMany").toInt(), 1);
  EXPECT_EQ(db_.scalar("SELECT Nom || Date_Fin FROM Reservation").toString(), "Durand2024-01-04");

  Recordset res = Recordset::openTable(db_, "Resource");
  res.moveLast();
  res.addNew();
  res.setField("Resource", "B");
  res.update();
  EXPECT_EQ(res.absolutePosition(), 2);  // added at the end
  EXPECT_EQ(res.field("Order").toInt(), 1);
  EXPECT_EQ(res.field("Color").toInt(), 5);
}

TEST_F(RecordsetTest, EditsInPlaceAndMovingWritesAPendingEdit) {
  addResources({"A", "B", "C"});
  Recordset rs = Recordset::openTable(db_, "Resource");
  rs.moveNext();
  rs.setField("Color", 2);
  EXPECT_TRUE(rs.isEditing());
  EXPECT_EQ(rs.field("Color").toInt(), 2);
  EXPECT_EQ(db_.scalar("SELECT Color FROM Resource WHERE Resource = 'B'").toInt(), 5);  // not yet written
  rs.moveNext();  // moving away writes it
  EXPECT_FALSE(rs.isEditing());
  EXPECT_EQ(db_.scalar("SELECT Color FROM Resource WHERE Resource = 'B'").toInt(), 2);
  rs.setField("Resource", "C2");
  rs.cancelUpdate();
  EXPECT_EQ(rs.field("Resource").toString(), "C");
  rs.setField("Color", QVariant());
  rs.update();
  EXPECT_TRUE(rs.isNull("Color"));
  EXPECT_EQ(db_.scalar("SELECT count(*) FROM Resource WHERE Color IS NULL").toInt(), 1);
}

TEST_F(RecordsetTest, ARefusedValueWritesNothingAndNamesTheColumn) {
  addResources({"A"});
  Recordset rs = Recordset::openTable(db_, "Resource");
  rs.setField("Resource", QString(13, 'x'));
  try {
    rs.update();
    FAIL() << "accepted";
  } catch (const StorageError& e) {
    EXPECT_EQ(e.table(), "Resource");
    EXPECT_EQ(e.column(), "Resource");
  }
  EXPECT_TRUE(rs.isEditing());  // still pending: the caller may correct or cancel
  EXPECT_EQ(db_.scalar("SELECT Resource FROM Resource").toString(), "A");
  rs.cancelUpdate();

  rs.addNew();
  rs.setField("Color", 1);  // Resource left unset: refused, nothing added
  EXPECT_THROW(rs.update(), StorageError);
  EXPECT_EQ(count("Resource"), 1);
  EXPECT_THROW(rs.setField("Order", "first"), StorageError);  // a type is refused where it is set
  rs.cancelUpdate();
  EXPECT_EQ(rs.recordCount(), 1);
}

TEST_F(RecordsetTest, DeleteStaysOnTheDeletedRowUntilTheNextMove) {
  addResources({"A", "B", "C", "D"});
  Recordset rs = Recordset::openTable(db_, "Resource");
  // The usual loop that deletes some rows and moves on after each.
  for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) {
    const QString n = rs.field("Resource").toString();
    if (n == "B" || n == "C") {
      rs.deleteRecord();
      EXPECT_THROW(rs.field("Resource"), StorageError);
      EXPECT_FALSE(rs.isEOF());
    }
  }
  EXPECT_EQ(rs.recordCount(), 2);
  EXPECT_EQ(walk(rs, "Resource"), (QStringList{"A", "D"}));
  EXPECT_EQ(count("Resource"), 2);
  rs.moveLast();
  rs.deleteRecord();
  rs.moveNext();
  EXPECT_TRUE(rs.isEOF());
  rs.movePrevious();
  EXPECT_EQ(rs.field("Resource").toString(), "A");
}

TEST_F(RecordsetTest, QueriesWithParametersAndRequery) {
  addResources({"A", "B", "C"});
  Recordset rs = Recordset::openQuery(db_, "SELECT Resource.* FROM Resource WHERE \"Order\" >= ? ORDER BY Resource DESC", {2});
  EXPECT_EQ(walk(rs, "Resource"), (QStringList{"C", "B"}));
  EXPECT_TRUE(rs.isUpdatable());
  EXPECT_EQ(rs.tableName(), "Resource");
  rs.moveFirst();
  rs.setField("Color", 0);  // updatable through the query
  rs.update();
  EXPECT_EQ(db_.scalar("SELECT Color FROM Resource WHERE Resource = 'C'").toInt(), 0);

  insertRow(db_, "Resource", {{"Resource", "D"}, {"Order", 9}});
  EXPECT_EQ(rs.recordCount(), 2);  // a snapshot
  rs.requery();
  EXPECT_EQ(walk(rs, "Resource"), (QStringList{"D", "C", "B"}));
  rs.requery({3});
  EXPECT_EQ(walk(rs, "Resource"), (QStringList{"D", "C"}));

  Recordset distinct = Recordset::openQuery(db_, "SELECT DISTINCT Color FROM Resource");
  EXPECT_FALSE(distinct.isUpdatable());
  EXPECT_THROW(distinct.addNew(), StorageError);
  Recordset joined = Recordset::openQuery(
      db_, "SELECT Resource.Resource, Reservation.Nom FROM Resource LEFT JOIN Reservation ON Reservation.Resource = Resource.Resource");
  EXPECT_FALSE(joined.isUpdatable());
  EXPECT_EQ(joined.recordCount(), 4);
}

TEST_F(RecordsetTest, ReadOnlyConnectionRefusesEveryWrite) {
  addResources({"A"});
  Database ro(path_, Database::OpenMode::ReadOnly);
  Recordset rs = Recordset::openTable(ro, "Resource");
  rs.setField("Color", 1);
  EXPECT_THROW(rs.update(), StorageError);
  rs.cancelUpdate();
  EXPECT_THROW(rs.deleteRecord(), StorageError);
  rs.addNew();
  rs.setField("Resource", "B");
  EXPECT_THROW(rs.update(), StorageError);
  rs.cancelUpdate();
  EXPECT_EQ(count("Resource"), 1);
  EXPECT_EQ(db_.scalar("SELECT Color FROM Resource").toInt(), 5);
}

TEST_F(RecordsetTest, LargeSnapshotsKeepEveryValueIntact) {
  {
    Transaction tx(db_);
    for (int i = 0; i < 12000; ++i)
      insertRow(db_, "T_BlackList", {{"Nom", QStringLiteral("Name %1").arg(i)}, {"Remark", QString(250, QChar('a' + i % 26))}});
    tx.commit();
  }
  const QString memo = QString(3 << 20, QChar(u'é'));  // larger than any packing chunk
  insertRow(db_, "Option", {{"Option", memo}});
  Recordset rs = Recordset::openTable(db_, "T_BlackList");
  ASSERT_EQ(rs.recordCount(), 12000);
  for (int i : {1, 4321, 12000}) {
    rs.setAbsolutePosition(i);
    EXPECT_EQ(rs.field("Nom").toString(), QStringLiteral("Name %1").arg(i - 1));
    EXPECT_EQ(rs.field("Remark").toString(), QString(250, QChar('a' + (i - 1) % 26)));
  }
  rs.setAbsolutePosition(6000);
  rs.setField("Remark", "changed");
  rs.update();
  rs.moveLast();
  rs.setAbsolutePosition(6000);
  EXPECT_EQ(rs.field("Remark").toString(), "changed");
  EXPECT_EQ(rs.field("Nom").toString(), "Name 5999");
  Recordset option = Recordset::openTable(db_, "Option");
  EXPECT_EQ(option.field("Option").toString(), memo);
}

}  // namespace
