#include "test_planning.h"

#include <stdexcept>

#include <QRegularExpression>

#include <gtest/gtest.h>

#include "storage/creation.h"
#include "storage/schema.h"

namespace ksv::test {

TestPlanning::TestPlanning(QDate today) : clock_(today), texts_(0) {
  file_ = folders_.document(QStringLiteral("Board.ksv"));
  if (!Creation(file_, CreationContext{creationMessages_, texts_, folders_.paths()})) {
    throw std::runtime_error("the test planning could not be made");
  }
  db_.open(file_, Database::OpenMode::ReadWrite);
  // Rows added one by one need not wait for the disk: nothing here outlives the test.
  db_.exec(QStringLiteral("PRAGMA synchronous = OFF"));
  const QueryCatalogue catalogue(db_, clock_);
  objects_.RQ_Reservation = catalogue.command(QStringLiteral("RQ_Reservation"));
  objects_.RQ_Free = catalogue.command(QStringLiteral("RQ_Free"));
  objects_.Reservation = Recordset::openTable(db_, QStringLiteral("Reservation"));
  objects_.RQ_Resource = catalogue.command(QStringLiteral("RQ_Resource")).openRecordset();
  objects_.RQ_DayColor = catalogue.command(QStringLiteral("RQ_DayColor"));
  objects_.RQ_DayColor->setParameters({today.addYears(-1), today.addYears(1)});
  objects_.DayColor = objects_.RQ_DayColor->openRecordset();
}

void TestPlanning::addResource(const QString& name, int color, int order) {
  insertRow(db_, QStringLiteral("Resource"), {{"Resource", name}, {"Color", color}, {"Order", order}});
  objects_.RQ_Resource.requery();
}

qint64 TestPlanning::addBooking(const QString& resource, QDate first, QDate last, const QString& nom,
                                QVariantMap more) {
  more.insert({{"Resource", resource}, {"Date_Deb", first}, {"Date_Fin", last}, {"Nom", nom}});
  for (const auto& [column, value] :
       {std::pair<QString, QVariant>{"GroupId", "C"}, {"Split", "0"}, {"Couleur", 0}, {"GroupNb", 0}})
    if (!more.contains(column)) more.insert(column, value);
  const qint64 id = insertRow(db_, QStringLiteral("Reservation"), more);
  objects_.Reservation.requery();
  return id;
}

qint64 TestPlanning::addGroupHeader(int groupNb, QDate first, QDate last, const QString& nom, QVariantMap more) {
  more.insert({{"Split", "3"}, {"GroupNb", groupNb}});
  if (!more.contains("GroupId")) more.insert("GroupId", "L");
  return addBooking(QStringLiteral(" "), first, last, nom, more);
}

void TestPlanning::addDayColor(QDate day, int color) {
  insertRow(db_, QStringLiteral("DayColor"), {{"IdDay", day}, {"Color", color}});
}

void TestPlanning::addBlackList(const QString& nom, const QString& remark) {
  insertRow(db_, QStringLiteral("T_BlackList"), {{"Nom", nom}, {"Remark", remark}});
}

qint64 TestPlanning::addRow(const QString& table, const QVariantMap& values) { return insertRow(db_, table, values); }

qint64 TestPlanning::addAccount(const QString& table, const QString& name, QVariantMap more) {
  more.insert(table, name);
  return insertRow(db_, table, more);
}

void TestPlanning::addService(const QString& name, double unitPrice) {
  addAccount(QStringLiteral("Designation"), name, {{"UnitPrice", unitPrice}});
}

void TestPlanning::addModifier(const QString& name, double fixed, double rate, bool included, bool addUp,
                               bool printed) {
  addAccount(QStringLiteral("Modification"), name,
             {{"Fixed", fixed}, {"Rate", rate}, {"Included", included}, {"AddUp", addUp}, {"Printed", printed}});
}

void TestPlanning::addPayment(const QString& name) { addAccount(QStringLiteral("Payment"), name); }

void TestPlanning::addPostedInvoice(qint64 number, QDate from, const QString& lib) {
  insertRow(db_, QStringLiteral("Invoice"),
            {{"InvoiceNb", number}, {"Typ", "0"}, {"Lib", lib}, {"From", from}, {"AddUp", "Y"}, {"Printed", "N"}});
}

QString TestPlanning::stored(qint64 rowid, const QString& column) {
  Statement st = db_.prepare(QStringLiteral("SELECT \"%1\" FROM Reservation WHERE rowid = ?").arg(column));
  st.bind(0, rowid);
  if (!st.step()) return QStringLiteral("<gone>");
  return st.isNull(0) ? QStringLiteral("<null>") : st.column(0).toString();
}

QStringList TestPlanning::rows(const QString& columns, const QString& where, const QString& table) {
  const QStringList names = columns.split(QLatin1Char('/'));
  QStringList quoted;
  static const QRegularExpression plainName(QStringLiteral("^\\w+$"));
  for (const QString& n : names) quoted << (plainName.match(n).hasMatch() ? QLatin1Char('"') + n + QLatin1Char('"') : n);
  Statement st = db_.prepare(QStringLiteral("SELECT %1 FROM \"%2\" %3 ORDER BY rowid")
                                 .arg(quoted.join(QLatin1Char(',')), table,
                                      where.isEmpty() ? QString() : QStringLiteral("WHERE ") + where));
  QStringList out;
  while (st.step()) {
    QStringList parts;
    for (int i = 0; i < names.size(); ++i)
      parts << (st.isNull(i) ? QStringLiteral("<null>") : st.column(i).toString());
    out << parts.join(QLatin1Char('/'));
  }
  return out;
}

qlonglong TestPlanning::count(const QString& table, const QString& where) {
  return db_.scalar(QStringLiteral("SELECT count(*) FROM \"%1\" %2")
                        .arg(table, where.isEmpty() ? QString() : QStringLiteral("WHERE ") + where))
      .toLongLong();
}

QStringList TestPlanning::queryRows(const QString& query, const QStringList& names, const QVariantList& params) {
  QueryCommand command = catalogue().command(query);
  command.setParameters(params);
  Statement& st = command.open();
  QStringList values;
  while (st.step()) {
    QStringList parts;
    for (const QString& name : names) {
      const int index = st.columnIndex(name);
      EXPECT_GE(index, 0) << name.toStdString() << " not in " << query.toStdString();
      parts << (index < 0 ? QStringLiteral("<no column>") : st.isNull(index) ? QStringLiteral("<null>")
                                                                             : st.column(index).toString());
    }
    values << parts.join(QLatin1Char('/'));
  }
  return values;
}

QStringList TestPlanning::queryColumn(const QString& query, const QString& name, const QVariantList& params) {
  return queryRows(query, {name}, params);
}

int TestPlanning::runQuery(const QString& query, const QVariantList& params) {
  QueryCommand command = catalogue().command(query);
  command.setParameters(params);
  return command.execute();
}

}  // namespace ksv::test
