// The dialect forms the translator must read, each checked by what the
// statement does on a planning.
#include <QFile>

#include "storage/schema.h"
#include "storage/stored_queries.h"
#include "support/test_planning.h"

using namespace ksv;
using namespace ksv::test;

namespace {

class QueryTranslator : public PlanningTest {
 protected:
  QueryTranslator() : PlanningTest(QDate(2024, 6, 15)) {}
  QStringList names(const QString& text, const QVariantList& params = {}) {
    QueryCommand command = plan.catalogue().statement(text);
    command.setParameters(params);
    Statement& st = command.open();
    QStringList values;
    while (st.step()) values.append(st.column(st.columnIndex("Nom")).toString());
    return values;
  }
};

TEST_F(QueryTranslator, DeclaredThenUndeclaredParametersInOrder) {
  const TranslatedQuery q = translateQuery(QString(findStoredQuery("RQ_Reservation")->text));
  ASSERT_EQ(q.positionalCount, 42);
  EXPECT_EQ(q.parameters[0].name, "P_DD");
  EXPECT_EQ(q.parameters[0].type, ParameterType::Date);
  EXPECT_EQ(q.parameters[2].name, "R1");
  EXPECT_EQ(q.parameters[2].size, 12);
  EXPECT_TRUE(q.parameters[31].declared);
  EXPECT_EQ(q.parameters[32].name, "R31");
  EXPECT_FALSE(q.parameters[32].declared);
  EXPECT_EQ(q.parameters[41].name, "R40");
  EXPECT_TRUE(q.returnsRows);
  // An alias is no parameter, in the column list or in the order.
  EXPECT_EQ(translateQuery("SELECT Nom AS Who FROM Reservation ORDER BY Who").positionalCount, 0);
}

TEST_F(QueryTranslator, UnknownNamesInAConditionAreParameters) {
  plan.addBooking("101", QDate(2024, 1, 1), QDate(2024, 1, 2), "Dupont");
  plan.addBooking("102", QDate(2024, 1, 1), QDate(2024, 1, 2), "Martin");
  // Bracketed or bare, a name that is no column is set by position.
  EXPECT_EQ(names("SELECT Reservation.* FROM Reservation WHERE Reservation.Resource = [Room] Or Nom = Other",
                  {"102", "Dupont"}),
            (QStringList{"Dupont", "Martin"}));
}

TEST_F(QueryTranslator, KeywordsInAnyCaseAndGluedClauses) {
  plan.addBooking("101", QDate(2024, 1, 1), QDate(2024, 1, 2), "A", {{"GroupNb", 0}});
  plan.addBooking("102", QDate(2024, 1, 1), QDate(2024, 1, 2), "B", {{"GroupNb", 10}});
  plan.addBooking("103", QDate(2024, 1, 1), QDate(2024, 1, 2), "C", {{"GroupNb", 0}, {"GroupId", "L"}});
  EXPECT_EQ(names("select Reservation.* from Reservation where (Reservation.GroupNb =0AND "
                  "Reservation.GroupId<>'L')oR Reservation.GroupNb =10aNd Reservation.Nom Is Not Null;"),
            (QStringList{"A", "B"}));
}

TEST_F(QueryTranslator, TextComparedWithAParameterIgnoresCase) {
  plan.addRow("T_BlackList", {{"Nom", "Dupont"}});
  plan.addRow("T_BlackList", {{"Nom", "O'Brien"}});
  EXPECT_EQ(names("PARAMETERS N Text(25);SELECT T_BlackList.* FROM T_BlackList WHERE T_BlackList.Nom = [N];",
                  {"DUPONT"}),
            (QStringList{"Dupont"}));
  // Double-quoted texts are texts in this dialect, not names.
  EXPECT_EQ(names("SELECT T_BlackList.* FROM T_BlackList WHERE T_BlackList.Nom = \"O'Brien\";"),
            (QStringList{"O'Brien"}));
}

TEST_F(QueryTranslator, LikeUsesTheEngineWildcards) {
  plan.addRow("T_BlackList", {{"Nom", "Dupont"}});
  plan.addRow("T_BlackList", {{"Nom", "Dupond"}});
  plan.addRow("T_BlackList", {{"Nom", "Du_ont"}});
  plan.addRow("T_BlackList", {{"Nom", "Durand"}});
  const QString base = "SELECT T_BlackList.* FROM T_BlackList WHERE T_BlackList.Nom Like '%1';";
  EXPECT_EQ(names(base.arg("dup*")), (QStringList{"Dupont", "Dupond"}));
  // % and _ are plain characters in these patterns.
  EXPECT_EQ(names(base.arg("Du_*")), (QStringList{"Du_ont"}));
  EXPECT_TRUE(names(base.arg("Du%")).isEmpty());
}

TEST_F(QueryTranslator, DatesCompareAsCalendarDays) {
  insertRow(plan.db(), "Reservation",
            {{"Resource", "101"}, {"Date_Deb", QDateTime(QDate(2024, 6, 15), QTime(14, 0))},
             {"Date_Fin", QDate(2024, 6, 16)}, {"Nom", "Timed"}, {"GroupId", "C"}});
  plan.addBooking("102", QDate(2024, 6, 15), QDate(2024, 6, 16), "Plain");
  plan.addBooking("103", QDate(2024, 6, 14), QDate(2024, 6, 16), "DayBefore");
  plan.addBooking("104", QDate(2024, 6, 16), QDate(2024, 6, 16), "DayAfter");
  const QString base = "PARAMETERS D Date;SELECT Reservation.* FROM Reservation WHERE Reservation.Date_Deb %1 [D] "
                       "ORDER BY Reservation.Resource;";
  const QDate d = QDate(2024, 6, 15);
  EXPECT_EQ(names(base.arg("="), {d}), (QStringList{"Timed", "Plain"}));
  EXPECT_EQ(names(base.arg("<>"), {d}), (QStringList{"DayBefore", "DayAfter"}));
  EXPECT_EQ(names(base.arg("<"), {d}), (QStringList{"DayBefore"}));
  EXPECT_EQ(names(base.arg(">="), {d}), (QStringList{"Timed", "Plain", "DayAfter"}));
  // A parameter given with a time is the day it falls on; ISO text works too.
  EXPECT_EQ(names(base.arg("="), {QDateTime(d, QTime(8, 0))}), (QStringList{"Timed", "Plain"}));
  EXPECT_EQ(names(base.arg("="), {"2024-06-15"}), (QStringList{"Timed", "Plain"}));
  // A date written in the text itself.
  EXPECT_EQ(names("SELECT Reservation.* FROM Reservation WHERE Reservation.Date_Deb < #06/15/2024#;"),
            (QStringList{"DayBefore"}));
}

TEST_F(QueryTranslator, ParametersAreCheckedAndCanBeSetAgain) {
  plan.addBooking("101", QDate(2024, 6, 1), QDate(2024, 6, 3), "A", {{"GroupNb", 4}});
  plan.addBooking("102", QDate(2024, 6, 1), QDate(2024, 6, 3), "B", {{"GroupNb", 5}});
  QueryCommand command = plan.catalogue().command("RQ_GroupUsers");
  EXPECT_THROW(command.setParameter(1, 4), StorageError);
  EXPECT_THROW(command.setParameter(0, "four"), StorageError);
  QueryCommand dates = plan.catalogue().command("RQ_DayColor");
  EXPECT_THROW(dates.setParameter(0, "15/06/2024"), StorageError);

  for (int group : {4, 5, 4}) {
    command.setParameter(0, group);
    Statement& st = command.open();
    ASSERT_TRUE(st.step());
    EXPECT_EQ(st.column("Nom").toString(), group == 4 ? "A" : "B");
    EXPECT_FALSE(st.step());
  }
}

TEST_F(QueryTranslator, QueryFromAnotherQueryCarriesItsParameters) {
  plan.addRow("Invoice", {{"InvoiceNb", 1}, {"Typ", "0"}, {"AddUp", "Y"}, {"Lib", "Bar"}, {"From", QDate(2024, 6, 2)}});
  plan.addRow("Invoice", {{"InvoiceNb", 2}, {"Typ", "0"}, {"AddUp", "Y"}, {"Lib", "Kiosk"}, {"From", QDate(2024, 6, 3)}});
  plan.addRow("Invoice", {{"InvoiceNb", 3}, {"Typ", "0"}, {"AddUp", "Y"}, {"Lib", "Bar"}, {"From", QDate(2024, 5, 1)}});
  // The outer query's own parameter first, then the inner one's; the inner
  // name written in another case.
  QueryCommand command = plan.catalogue().statement(
      "PARAMETERS Who Text(50);SELECT q.* FROM rq_invoiceptcs AS q WHERE q.Lib = [Who] ORDER BY q.InvoiceNb;");
  ASSERT_EQ(command.parameterCount(), 2);
  EXPECT_EQ(command.parameter(0).name, "Who");
  EXPECT_EQ(command.parameter(1).name, "DP");
  command.setParameters({"bar", QDate(2024, 6, 1)});
  Statement& st = command.open();
  QStringList found;
  while (st.step()) found << st.column("InvoiceNb").toString();
  EXPECT_EQ(found, (QStringList{"1"}));
}

TEST_F(QueryTranslator, UnreadableTextsAreRefused) {
  EXPECT_THROW(translateQuery("SELECT [Nom FROM Reservation"), QueryTranslationError);
  EXPECT_THROW(translateQuery("PARAMETERS A Date SELECT Reservation.* FROM Reservation"), QueryTranslationError);
  EXPECT_THROW(translateQuery("SELECT Reservation.* FROM Reservation WHERE Nom = 'open"), QueryTranslationError);
  const QueryTextLookup loop = [](const QString& name) -> std::optional<QString> {
    if (name.compare("QLoop", Qt::CaseInsensitive) == 0) return QString("SELECT qloop.* FROM QLOOP;");
    return std::nullopt;
  };
  EXPECT_THROW(translateQuery("SELECT QLoop.* FROM QLoop;", loop), QueryTranslationError);
  // Through the catalogue the refusal is a storage error.
  EXPECT_THROW(plan.catalogue().statement("SELECT [Nom FROM Reservation"), StorageError);
}

TEST_F(QueryTranslator, DeleteNamesNoColumns) {
  plan.addBooking("101", QDate(2024, 6, 1), QDate(2024, 6, 3), "Keep");
  plan.addBooking("102", QDate(2024, 6, 1), QDate(2024, 6, 3), "Drop");
  QueryCommand del =
      plan.catalogue().statement("PARAMETERS N Text(25);DELETE Reservation.* FROM Reservation WHERE Reservation.Nom = [N];");
  EXPECT_FALSE(del.returnsRows());
  del.setParameter(0, "drop");
  EXPECT_EQ(del.execute(), 1);
  EXPECT_EQ(names("SELECT Reservation.* FROM Reservation;"), (QStringList{"Keep"}));
}

TEST_F(QueryTranslator, InsertIntoAnotherFileAttachesItForTheRunOnly) {
  plan.addRow("T_BlackList", {{"Nom", "Dupont"}, {"Remark", "Left without paying"}});
  plan.addRow("T_BlackList", {{"Nom", "Durand"}});
  const QString other = plan.paths().documentsDir() + "/other's copy.ksv";
  {
    Database target(other, Database::OpenMode::Create);
    createPlanningTables(target);
  }
  QueryCommand copy = plan.catalogue().statement("INSERT INTO T_BlackList IN '" + QString(other).replace("'", "''") +
                                            "' SELECT T_BlackList.* FROM T_BlackList;");
  EXPECT_EQ(copy.execute(), 2);
  EXPECT_EQ(plan.db().scalar("SELECT count(*) FROM pragma_database_list").toInt(), 1);
  EXPECT_EQ(plan.count("T_BlackList"), 2);

  Database target(other, Database::OpenMode::ReadOnly);
  EXPECT_EQ(target.scalar("SELECT group_concat(Nom || ':' || Remark, ',') FROM T_BlackList").toString(),
            "Dupont:Left without paying,Durand:");
}

TEST_F(QueryTranslator, InsertIntoAMissingFileFailsAndLeavesNothingAttached) {
  const QString missing = plan.paths().documentsDir() + "/missing.ksv";
  QueryCommand copy =
      plan.catalogue().statement("INSERT INTO T_BlackList IN '" + missing + "' SELECT T_BlackList.* FROM T_BlackList;");
  EXPECT_THROW(copy.execute(), StorageError);
  EXPECT_FALSE(QFile::exists(missing));
  EXPECT_EQ(plan.db().scalar("SELECT count(*) FROM pragma_database_list").toInt(), 1);
}

}  // namespace

namespace {

class StoredQueryRecordset : public PlanningTest {
 protected:
  StoredQueryRecordset() : PlanningTest(QDate(2024, 6, 15)) {}
};

TEST_F(StoredQueryRecordset, OpensOnAStoredQueryAndEditsItsTableInPlace) {
  plan.addRow("Resource", {{"Resource", "Ten"}, {"Order", 10}, {"Color", 1}});
  plan.addRow("Resource", {{"Resource", "Two"}, {"Order", 2}, {"Color", 1}});
  QueryCommand command = plan.catalogue().command("RQ_Resource");
  Recordset rs = command.openRecordset();
  ASSERT_EQ(rs.recordCount(), 2);
  ASSERT_TRUE(rs.isUpdatable());
  rs.moveLast();
  EXPECT_EQ(rs.field("Resource").toString(), "Ten");
  rs.setField("Color", 4);
  rs.update();

  Recordset again = command.openRecordset();
  again.setAbsolutePosition(2);
  EXPECT_EQ(again.field("Color").toInt(), 4);
}

TEST_F(StoredQueryRecordset, ParametersSetByPositionBeforeOpening) {
  plan.addRow("Invoice", {{"InvoiceNb", 2}, {"Typ", "0"}, {"AddUp", "Y"}, {"From", QDate(2024, 6, 3)}});
  plan.addRow("Invoice", {{"InvoiceNb", 1}, {"Typ", "0"}, {"AddUp", "Y"}, {"From", QDate(2024, 6, 2)}});
  plan.addRow("Invoice", {{"InvoiceNb", 3}, {"Typ", "0"}, {"AddUp", "Y"}, {"From", QDate(2024, 5, 1)}});
  QueryCommand command = plan.catalogue().command("RQ_InvoicePtCsNb");
  command.setParameter(0, QDate(2024, 6, 1));
  Recordset rs = command.openRecordset();
  ASSERT_EQ(rs.recordCount(), 2);
  EXPECT_EQ(rs.field("InvoiceNb").toInt(), 1);
  EXPECT_EQ(rs.field("From").toDate(), QDate(2024, 6, 2));

  command.setParameter(0, QDate(2024, 4, 1));
  rs.requery(command.boundValues());
  EXPECT_EQ(rs.recordCount(), 3);

  EXPECT_THROW(plan.catalogue().command("RQ_InvoiceAllDelete").openRecordset(), StorageError);
}

}  // namespace
