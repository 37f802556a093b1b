#include "test_planning.h"

#include <stdexcept>

#include "storage/creation.h"
#include "storage/query_command.h"
#include "storage/schema.h"

namespace ksv::test {

TestPlanning::TestPlanning(QDate today) : clock_(today), texts_(0) {
  file_ = folders_.document(QStringLiteral("Board.ksv"));
  if (!Creation(file_, CreationContext{creationMessages_, texts_, folders_.paths()})) {
    throw std::runtime_error("the test planning could not be made");
  }
  db_.open(file_, Database::OpenMode::ReadWrite);
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

void TestPlanning::addBooking(const QString& resource, QDate first, QDate last, const QString& name, int couleur,
                              const QString& split, int groupNb, const QVariant& invNb) {
  QVariantMap row{{"Resource", resource}, {"Date_Deb", first}, {"Date_Fin", last}, {"Nom", name},
                  {"Couleur", couleur},   {"Split", split},    {"GroupId", "C"},   {"GroupNb", groupNb}};
  if (!invNb.isNull()) row.insert(QStringLiteral("InvNb"), invNb);
  insertRow(db_, QStringLiteral("Reservation"), row);
  objects_.Reservation.requery();
}

void TestPlanning::addDayColor(QDate day, int color) {
  insertRow(db_, QStringLiteral("DayColor"), {{"IdDay", day}, {"Color", color}});
}

}  // namespace ksv::test
