#include "file_operations.h"

#include <unistd.h>

#include <optional>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/clock.h"
#include "core/messages.h"
#include "core/number_text.h"
#include "core/paths.h"
#include "core/texts.h"
#include "fault_point.h"
#include "file_gate.h"
#include "lock_file.h"
#include "planning_file.h"
#include "planning_name.h"
#include "query_command.h"
#include "recordset.h"
#include "schema.h"
#include "sqlite_db.h"
#include "stored_queries.h"

namespace ksv {
namespace {

QString sqlQuote(const QString& text) {
  QString q = text;
  q.replace(QLatin1Char('\''), QLatin1String("''"));
  return QLatin1Char('\'') + q + QLatin1Char('\'');
}

// The damaged original stays beside the repaired planning under another
// name: a second name for the same file, made in one step.
void keepDamagedOriginal(const QString& file, const PlanningName& n) {
  const QString kept = n.dir + n.stem + QStringLiteral("~BeforeRepair.ksv");
  QFile::remove(kept);
  if (::link(QFile::encodeName(file).constData(), QFile::encodeName(kept).constData()) != 0) QFile::copy(file, kept);
}

}  // namespace

bool Compact_Planning(const QString& file, bool silent, Messages& messages, const Texts& texts) {
  OpenedPlanning opened = openPlanning(file, Database::OpenMode::ReadOnly);
  if (opened.check != PlanningCheck::Ok && opened.check != PlanningCheck::Damaged) {
    if (opened.check == PlanningCheck::ConnectError)
      messages.critical(texts.get(txt::CopyError));
    else
      reportPlanningCheck(opened, file, messages, texts);
    return false;
  }
  sweepDeadTemporaries(file);
  auto temp = HeldTemporary::create(file);
  if (!temp) {
    messages.critical(texts.get(txt::CopyError));
    return false;
  }
  faultPoint("compact:temporary");
  // A sound planning is compacted by the store; a damaged one is rebuilt from
  // every row it still gives, table by table, and the user is told what was
  // kept and lost.
  std::optional<PlanningReading> repair;
  try {
    if (opened.check == PlanningCheck::Ok && integrityCheck(opened.db) == QLatin1String("ok")) {
      opened.db.exec(QStringLiteral("VACUUM INTO ") + sqlQuote(temp->path()));
    } else {
      Database out(temp->path(), Database::OpenMode::Create);
      repair = readWholePlanning(opened.db, out);
    }
  } catch (const StorageError&) {
    messages.critical(texts.get(txt::CopyError));
    return false;
  }
  opened.db.close();
  faultPoint("compact:written");
  if ((repair && !repair->readable) || !verifiedPlanning(temp->path())) {
    messages.critical(texts.get(txt::CopyError));
    return false;
  }
  faultPoint("compact:verified");
  if (repair) keepDamagedOriginal(file, Split_Db_Name(file));
  if (!replacePlanningFile(temp->path(), file)) {
    messages.critical(texts.get(txt::CopyError));
    return false;
  }
  temp->taken();
  if (repair) {
    QStringList lines{texts.withName(txt::RowsLostInRepair, QString::number(repair->lost()))};
    lines << readingReport(*repair, texts);
    messages.exclamation(lines.join(QStringLiteral("\r\n")));
  }
  if (!silent) messages.information(texts.get(txt::CompactSuccessful));
  return true;
}

bool Copy_Planning(const QString& source, const QString& saveTarget, bool silent, const Paths&, Messages& messages,
                   const Texts& texts) {
  if (!copyPlanning(source, saveTarget)) {
    messages.critical(texts.get(txt::CopyError));
    return false;
  }
  if (!silent) messages.information(texts.get(txt::SaveSuccessful));
  return true;
}

bool SilentSave(const QString& planning, const QString& version, const Paths& paths, Messages& messages,
                const Texts& texts) {
  const PlanningName n = Split_Db_Name(planning);
  const QString target = n.dir + n.stem + texts.withName(txt::BeforeConversionName, version);
  if (QFileInfo::exists(target)) return true;
  return Copy_Planning(planning, target, true, paths, messages, texts);
}

int PurgeInvoiceIv(Database& db, const Clock& clock, const QVariant& number) {
  QueryCommand rq = QueryCatalogue(db, clock).command(QStringLiteral("RQ_Invoice"));
  rq.setParameter(0, static_cast<qint64>(val(number.toString())));
  Recordset rows = Recordset::openQuery(db, rq.sql(), rq.boundValues());
  int deleted = 0;
  while (!rows.isEOF()) {  // a fresh recordset stands on its first row
    rows.deleteRecord();
    rows.moveNext();
    ++deleted;
  }
  return deleted;
}

int purgeBefore(Database& db, const Clock& clock, QDate limit) {
  Transaction t(db);
  const QString day = dateToStoreText(limit);
  QVariantList invoices;
  Statement old = db.prepare(QStringLiteral("SELECT InvNb FROM Reservation WHERE Date_Fin < ?"));
  old.bind(0, day);
  while (old.step())
    if (!old.isNull(0) && !old.column(0).toString().isEmpty()) invoices << old.column(0);
  for (const QVariant& inv : invoices) PurgeInvoiceIv(db, clock, inv);
  const int deleted = db.execute(QStringLiteral("DELETE FROM Reservation WHERE Date_Fin < ?"), {day});
  faultPoint("purge:bookings");

  QueryCommand cash = QueryCatalogue(db, clock).command(QStringLiteral("InvoiceCsToPurge"));
  cash.setParameter(0, limit);
  QVariantList sales;
  Statement& rows = cash.open();
  while (rows.step()) sales << rows.column(QStringLiteral("InvoiceNb"));
  for (const QVariant& inv : sales) PurgeInvoiceIv(db, clock, inv);
  faultPoint("purge:cash-sales");
  t.commit();
  faultPoint("purge:committed");
  return deleted;
}

int eliminateNullRemarks(Database& db) {
  return db.execute(QStringLiteral("UPDATE Reservation SET Remarque = '' WHERE Remarque IS NULL"));
}

bool ShiftExampleDate(const QString& file, QDate today) {
  const int d = exampleShiftDays(today);
  if (!RequestConnectMode(file, 'U')) return false;
  bool ok = true;
  try {
    Database db(file, Database::OpenMode::ReadWrite);
    Transaction t(db);
    // Dates are ISO texts; SQLite's date() keeps a stored time when there is one.
    const QString shift = QStringLiteral("'%1 days'").arg(d >= 0 ? QStringLiteral("+%1").arg(d) : QString::number(d));
    auto moved = [&](const QString& col) {
      return QStringLiteral("CASE WHEN length(%1) > 10 THEN datetime(%1, %2) ELSE date(%1, %2) END").arg(col, shift);
    };
    db.exec(QStringLiteral("UPDATE Reservation SET Date_Deb = %1, Date_Fin = %2")
                .arg(moved(QStringLiteral("Date_Deb")), moved(QStringLiteral("Date_Fin"))));
    db.exec(QStringLiteral("UPDATE Invoice SET \"From\" = %1 WHERE \"From\" IS NOT NULL")
                .arg(moved(QStringLiteral("\"From\""))));
    db.exec(QStringLiteral("UPDATE Invoice SET \"To\" = %1 WHERE \"To\" IS NOT NULL").arg(moved(QStringLiteral("\"To\""))));
    t.commit();
  } catch (const StorageError&) {
    ok = false;
  }
  ReleaseConnectMode(file, 'U');
  return ok;
}

bool extractCurrent(const QString& copy, QDate today, Messages& messages, const Texts& texts) {
  if (!RequestConnectMode(copy, 'U')) return false;
  bool ok = true;
  try {
    Database db(copy, Database::OpenMode::ReadWrite);
    db.execute(QStringLiteral("DELETE FROM Reservation WHERE Date_Fin < ?"), {dateToStoreText(today)});
  } catch (const StorageError&) {
    ok = false;
  }
  ReleaseConnectMode(copy, 'U');
  if (!ok || !RequestConnectMode(copy, 'E')) return false;
  ok = Compact_Planning(copy, true, messages, texts);
  ReleaseConnectMode(copy, 'E');
  return ok;
}

}  // namespace ksv
