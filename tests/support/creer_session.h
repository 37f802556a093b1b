#pragma once
// An open planning as the creation dialog meets it: the session objects, the
// board view RS, the booking buffer, the options of a fresh ini file, and a
// context whose window hooks tests can fill.

#include <QDate>
#include <QStringList>

#include "bookings/availability.h"
#include "bookings/booking_context.h"
#include "bookings/booking_records.h"
#include "config/charger_param.h"
#include "config/ini_defaults.h"
#include "config/ini_file.h"
#include "config/loaded_options.h"
#include "storage/planning_session.h"
#include "storage/query_command.h"
#include "storage/recordset.h"
#include "storage/schema.h"
#include "storage/sqlite_db.h"
#include "support/scripted_messages.h"
#include "support/test_planning.h"

namespace ksv::test {

class CreerSession {
 public:
  // Today is Monday 10 March 2025; the board runs from 1 March to 30 June.
  CreerSession()
      : ini_(planning.paths().iniFile()),
        options(loadOptions(ini_, planning.clock())),
        records(planning.db(), planning.clock(), messages, texts),
        availability(planning.db(), planning.clock()),
        ctx{planning.db(), planning.objects(), records, availability, options, messages, texts,
            planning.clock(), planning.paths(), QDate(2025, 3, 1), QDate(2025, 6, 30),
            [this] { ++redraws; }, {}, nullptr} {
    SessionObjects& o = planning.objects();
    o.DataBaseInfo = Recordset::openTable(planning.db(), QStringLiteral("DataBaseInfo"));
    o.BlackList = QueryCatalogue(planning.db(), planning.clock()).command(QStringLiteral("BlackList")).openRecordset();
  }

  // The board view over the board's range, as the board holds it, as RS.
  void openView() {
    QVariantList params{ctx.FirstDate, ctx.LastDate};
    for (const QString& r : availability.resourcesOf(-1)) params << r;
    while (params.size() < 42) params << QString();
    planning.objects().RQ_Reservation->setParameters(params);
    view_ = planning.objects().RQ_Reservation->openRecordset();
    records.setRecordsets(&view_, &planning.objects().Reservation);
  }

  void blackList(const QString& nom, const QString& remark) {
    insertRow(planning.db(), QStringLiteral("T_BlackList"), {{"Nom", nom}, {"Remark", remark}});
  }

  // Every row as "Nom/Resource/Date_Deb/Date_Fin/Split/GroupId/GroupNb", in stored order.
  QStringList rows() {
    QStringList out;
    Statement st = planning.db().prepare(QStringLiteral(
        "SELECT Nom, Resource, Date_Deb, Date_Fin, Split, GroupId, GroupNb FROM Reservation ORDER BY rowid"));
    while (st.step()) {
      QStringList parts;
      for (int i = 0; i < 7; ++i) parts << st.column(i).toString();
      out << parts.join(QLatin1Char('/'));
    }
    return out;
  }
  // One column of the last row written, "<null>" for Null.
  QString lastRow(const QString& column) {
    const QVariant v = planning.db().scalar(
        QStringLiteral("SELECT \"%1\" FROM Reservation ORDER BY rowid DESC LIMIT 1").arg(column));
    return v.isNull() ? QStringLiteral("<null>") : v.toString();
  }
  int maxGroupNb() { return planning.db().scalar(QStringLiteral("SELECT MaxGroupNb FROM DataBaseInfo")).toInt(); }

  // The options of a first run, as the program writes them.
  static LoadedOptions loadOptions(IniFile& ini, const Clock& clock) {
    writeDefaultIni(ini, clock.today());
    return Charger_Param(ini, clock);
  }

  TestPlanning planning{QDate(2025, 3, 10)};
  ScriptedMessages messages;
  Texts texts;

 private:
  IniFile ini_;

 public:
  LoadedOptions options;
  BookingRecords records;
  Availability availability;
  int redraws = 0;
  BookingContext ctx;

 private:
  Recordset view_;
};

}  // namespace ksv::test
