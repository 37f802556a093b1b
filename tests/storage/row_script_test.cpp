#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "storage/row_script.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"

using namespace ksv;

namespace {

class RowScript : public ::testing::Test {
 protected:
  void SetUp() override {
    db.open(dir.path() + "/Rows.ksv", Database::OpenMode::Create);
    createPlanningTables(db);
    insertRow(db, "DataBaseInfo", {{"Version", "5.20"}, {"MaxInvNb", 0}, {"MaxWaitNb", 0}, {"MaxGroupNb", 0}});
  }
  QString row(const QString& sql) {
    Statement st = db.prepare(sql);
    QStringList out;
    if (st.step())
      for (int i = 0; i < st.columnCount(); ++i) out << (st.isNull(i) ? "NULL" : st.column(i).toString());
    return out.join('|');
  }
  QTemporaryDir dir;
  Database db;
};

TEST_F(RowScript, SectionsFillTheirTablesWithDefaultsAndNulls) {
  const QString text =
      "# The front desk's rooms\n"
      "[DataBaseInfo]\n"
      "Version\tMaxInvNb\tMaxWaitNb\tMaxGroupNb\n"
      "5.20\t8\t-6\t2\n"
      "\n"
      "[Reservation]\r\n"
      "Resource\tDate_Deb\tDate_Fin\tNom\tCouleur\tBlocage\tGroupId\tGroupNb\tInvNb\tRemarque\r\n"
      "101\t2006-10-20\t2006-10-22\tMr Brennan\t\t1\tC\t0\t-2\t\\N\r\n"
      "[AccountGroup]\n"
      "Group\tAccount\tSign\n"
      "Rooms\tBreakfast\t \n";
  EXPECT_EQ(loadRowScript(db, text), 3);
  EXPECT_EQ(row("SELECT count(*), MaxInvNb, MaxWaitNb, MaxGroupNb FROM DataBaseInfo"), "1|8|-6|2")
      << "a section replaces the table's rows";
  EXPECT_EQ(row("SELECT Date_Deb, Date_Fin, Couleur, HowMany, Split, Blocage, InvNb, Remarque, Email FROM Reservation").toStdString(),
            "2006-10-20|2006-10-22|5|1|0|1|-2|NULL|");
  EXPECT_EQ(row("SELECT '[' || Sign || ']' FROM AccountGroup"), "[ ]") << "a blank is a value";
}

TEST_F(RowScript, ABadLineIsNamedAndNothingIsWritten) {
  const auto failure = [&](const QString& text) {
    try {
      loadRowScript(db, text);
    } catch (const StorageError& e) {
      return e.message();
    }
    return QString("no error");
  };
  const QString head = "[T_BlackList]\nNom\tRemark\nMr Grelier\tLeft without paying\n";
  EXPECT_TRUE(failure(head + "[Resource]\nResource\tColor\n101\tblue\n").startsWith("line 6: \"blue\" is not a value for Color"));
  EXPECT_TRUE(failure(head + "Mr Ostrowski\n").startsWith("line 4: 1 fields for 2 columns"));
  EXPECT_TRUE(failure(head + "[Guests]\n").startsWith("line 4: no table [Guests]"));
  EXPECT_TRUE(failure("[Resource]\nResource\tColour\n").startsWith("line 2: no column Colour in Resource"));
  EXPECT_TRUE(failure("Mr Grelier\n").startsWith("line 1: a row before any [Table] line"));
  // The store's own rules: a resource name of thirteen characters.
  EXPECT_TRUE(failure(head + "[Resource]\nResource\nSuite Lavande\n").startsWith("line 6: "));
  EXPECT_EQ(row("SELECT count(*) FROM T_BlackList"), "0");
  EXPECT_EQ(row("SELECT count(*) FROM DataBaseInfo"), "1");
}

}  // namespace
