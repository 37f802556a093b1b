#include "invoice_numbers.h"

#include "config/ini_file.h"
#include "config/option_reader.h"
#include "core/clock.h"
#include "core/day_date.h"
#include "storage/query_command.h"
#include "storage/recordset.h"
#include "storage/sqlite_db.h"

namespace ksv {

qint64 NextWaitNb(Database& db) {
  const qint64 n = db.scalar(QStringLiteral("SELECT MaxWaitNb FROM DataBaseInfo")).toLongLong() - 1;
  db.execute(QStringLiteral("UPDATE DataBaseInfo SET MaxWaitNb = ?"), {n});
  return n;
}

qint64 NextInvNb(Database& db, const Clock& clock, IniFile& ini) {
  const QString stopgap = readOption(ini, "Company", "Stopgap", QStringLiteral("N"));
  if (!stopgap.isEmpty() && stopgap != QLatin1String("N")) {
    const QDate today = clock.today();
    const QDate begin = fromYymmdd(readOption(ini, "Company", "BeginPeriod", toYymmdd(today))).value_or(today);
    QueryCommand rq = QueryCatalogue(db, clock).command(QStringLiteral("RQ_InvoicePtNb"));
    rq.setParameter(0, begin);
    Recordset rows = Recordset::openQuery(db, rq.sql(), rq.boundValues());
    rows.moveFirst();
    if (!rows.isEOF()) {
      // Only from the period's first number up to its last: a hole below or
      // above them is never taken.
      qint64 expected = rows.field(QStringLiteral("InvoiceNb")).toLongLong();
      for (; !rows.isEOF(); rows.moveNext()) {
        if (rows.field(QStringLiteral("InvoiceNb")).toLongLong() > expected) return expected;
        ++expected;
      }
    }
  }
  const qint64 n = db.scalar(QStringLiteral("SELECT MaxInvNb FROM DataBaseInfo")).toLongLong() + 1;
  db.execute(QStringLiteral("UPDATE DataBaseInfo SET MaxInvNb = ?"), {n});
  return n;
}

void ChangeWaitNbToInvNb(Database& db, const Clock& clock, IniFile& ini, QString& InvNb, QString& OldInvNb) {
  OldInvNb = InvNb;
  InvNb = QString::number(NextInvNb(db, clock, ini));
}

}  // namespace ksv
