#include "file_operations.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/clock.h"
#include "core/messages.h"
#include "core/number_text.h"
#include "core/paths.h"
#include "core/texts.h"
#include "lock_file.h"
#include "planning_name.h"
#include "query_command.h"
#include "recordset.h"
#include "schema.h"
#include "sqlite_db.h"
#include "stored_queries.h"

namespace ksv {
namespace {

constexpr int kSqliteCorrupt = 11;

QString sqlQuote(const QString& text) {
  QString q = text;
  q.replace(QLatin1Char('\''), QLatin1String("''"));
  return QLatin1Char('\'') + q + QLatin1Char('\'');
}

// A consistent, compacted copy through SQLite: the copy never catches a write
// half made, whatever the other workstations are doing.
void vacuumInto(const QString& source, const QString& target) {
  Database db(source, Database::OpenMode::ReadOnly);
  db.exec(QStringLiteral("VACUUM INTO ") + sqlQuote(target));
}

// Rebuilds a damaged planning into `target` from whatever rows still read.
// Returns the number of rows that could not be read.
int salvage(const QString& damaged, const QString& target) {
  Database out(target, Database::OpenMode::Create);
  createPlanningTables(out);
  createStoredQueries(out);
  Database old(damaged, Database::OpenMode::ReadOnly);
  int lost = 0;
  Transaction t(out);
  for (const TableDef& table : planningTables()) {
    const QString name = QLatin1Char('"') + table.name + QLatin1Char('"');
    const int columns = static_cast<int>(table.columns.size());
    QStringList marks;
    for (int i = 0; i < columns; ++i) marks << QStringLiteral("?");
    Statement insert = out.prepare(QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(name, marks.join(QLatin1Char(','))));
    auto copyRow = [&](Statement& from) {
      for (int i = 0; i < columns; ++i) insert.bind(i, from.column(i));
      insert.run();
      insert.reset();
    };
    try {  // the whole table when it reads
      Statement all = old.prepare(QStringLiteral("SELECT * FROM %1").arg(name));
      QList<QVariantList> rows;
      while (all.step()) {
        QVariantList row;
        for (int i = 0; i < columns; ++i) row << all.column(i);
        rows << row;
      }
      for (const QVariantList& row : rows) {
        for (int i = 0; i < columns; ++i) insert.bind(i, row[i]);
        insert.run();
        insert.reset();
      }
      continue;
    } catch (const StorageError&) {
    }
    // Otherwise row by row: what reads is kept, what does not is counted.
    qint64 maxRow = 0;
    try {
      maxRow = old.scalar(QStringLiteral("SELECT max(rowid) FROM %1").arg(name)).toLongLong();
    } catch (const StorageError&) {
      maxRow = 0;
    }
    Statement one = old.prepare(QStringLiteral("SELECT * FROM %1 WHERE rowid = ?").arg(name));
    for (qint64 id = 1; id <= maxRow; ++id) {
      try {
        one.reset();
        one.bind(0, id);
        if (one.step()) copyRow(one);
      } catch (const StorageError&) {
        ++lost;
      }
    }
  }
  t.commit();
  return lost;
}

bool replaceWith(const QString& file, const QString& temp) {
  return QFile::remove(file) && QFile::rename(temp, file);
}

}  // namespace

bool Compact_Planning(const QString& file, bool silent, Messages& messages, const Texts& texts) {
  const PlanningName n = Split_Db_Name(file);
  const QString temp = n.dir + n.stem + QStringLiteral("~Compact.ksv");
  QFile::remove(temp);
  int lost = -1;
  try {
    vacuumInto(file, temp);
  } catch (const StorageError& e) {
    QFile::remove(temp);
    // Only a damaged database is rebuilt; a file that is no database at all
    // is left alone.
    if (e.primaryCode() != kSqliteCorrupt) {
      messages.critical(texts.get(txt::CopyError));
      return false;
    }
    try {
      lost = salvage(file, temp);
    } catch (const StorageError&) {
      QFile::remove(temp);
      messages.critical(texts.get(txt::CopyError));
      return false;
    }
    // The damaged original is kept beside the repaired one: nothing is thrown away.
    const QString kept = n.dir + n.stem + QStringLiteral("~BeforeRepair.ksv");
    QFile::remove(kept);
    QFile::copy(file, kept);
  }
  if (!replaceWith(file, temp)) {
    messages.critical(texts.get(txt::CopyError));
    return false;
  }
  if (lost > 0) messages.exclamation(texts.withName(txt::RowsLostInRepair, QString::number(lost)));
  if (!silent) messages.information(texts.get(txt::CompactSuccessful));
  return true;
}

bool Copy_Planning(const QString& source, const QString& saveTarget, bool silent, const Paths& paths,
                   Messages& messages, const Texts& texts) {
  const QString temp = paths.tempPlanning();
  QFile::remove(temp);
  try {
    vacuumInto(source, temp);
  } catch (const StorageError&) {
    QFile::remove(temp);
    messages.critical(texts.get(txt::CopyError));
    return false;
  }
  QFile::remove(saveTarget);
  const bool copied = QFile::copy(temp, saveTarget);
  QFile::remove(temp);
  if (!copied) {
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

  QueryCommand cash = QueryCatalogue(db, clock).command(QStringLiteral("InvoiceCsToPurge"));
  cash.setParameter(0, limit);
  QVariantList sales;
  Statement& rows = cash.open();
  while (rows.step()) sales << rows.column(QStringLiteral("InvoiceNb"));
  for (const QVariant& inv : sales) PurgeInvoiceIv(db, clock, inv);
  t.commit();
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
