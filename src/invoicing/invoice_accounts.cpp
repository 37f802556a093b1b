#include "invoice_accounts.h"

#include <exception>

#include <QVariant>

#include "core/number_text.h"
#include "storage/query_command.h"
#include "storage/recordset.h"
#include "storage/sqlite_db.h"

namespace ksv {
namespace {

struct Catalogue {
  const char* table;
  const char* nameColumn;
};

bool catalogueOf(const QString& kind, Catalogue& out) {
  if (kind == QLatin1String("1")) out = {"Designation", "Designation"};
  else if (kind == QLatin1String("2")) out = {"Modification", "Modification"};
  else if (kind == QLatin1String("3")) out = {"Payment", "Payment"};
  else return false;
  return true;
}

Currency sumOf(const QVariant& v) { return v.isNull() ? Currency() : Currency::fromDouble(v.toDouble()); }

}  // namespace

void AddInAccount(Database& db, const QString& kind, QString name, Currency amount, const QString& operation,
                  const QString& mode) {
  if (amount < Currency()) amount = -amount;
  const int bracket = name.indexOf(QLatin1String(" ["));
  if (bracket >= 0) name.truncate(bracket);
  if (kind == QLatin1String("2")) name.remove(0, 4);
  Catalogue c;
  if (!catalogueOf(kind, c)) return;

  const bool posted = mode == QLatin1String("O");
  const QString day = QLatin1String(posted ? "Day" : "Day_NC");
  const QString month = QLatin1String(posted ? "Month" : "Month_NC");
  const QString year = QLatin1String(posted ? "Year" : "Year_NC");
  // The first account of that name, compared exactly: the store's own
  // comparison would ignore case.
  Statement walk = db.prepare(QStringLiteral("SELECT rowid, %1, %2, %3, %4 FROM %5 ORDER BY rowid")
                                  .arg(QLatin1String(c.nameColumn), day, month, year, QLatin1String(c.table)));
  while (walk.step()) {
    if (walk.column(1).toString() != name) continue;
    const bool add = operation == QLatin1String("A");
    const auto moved = [&](int column) {
      const Currency sum = sumOf(walk.column(column));
      return (add ? sum + amount : sum - amount).toDouble();
    };
    db.execute(QStringLiteral("UPDATE %1 SET %2 = ?, %3 = ?, %4 = ? WHERE rowid = ?")
                   .arg(QLatin1String(c.table), day, month, year),
               {moved(2), moved(3), moved(4), walk.column(0)});
    return;
  }
}

int DeleteInvoice(Database& db, const Clock& clock, const QString& number) {
  if (number.trimmed().isEmpty()) return 0;
  const qint64 n = static_cast<qint64>(val(number));
  const QString mode = QLatin1String(n < 0 ? "N" : "O");
  QueryCommand rq = QueryCatalogue(db, clock).command(QStringLiteral("RQ_Invoice"));
  rq.setParameter(0, n);
  Recordset rows = Recordset::openQuery(db, rq.sql(), rq.boundValues());
  int deleted = 0;
  for (rows.moveFirst(); !rows.isEOF(); rows.moveNext()) {
    // Each row on its own: one that fails leaves the others to go.
    try {
      const QString typ = rows.field(QStringLiteral("Typ")).toString();
      if (typ == QLatin1String("1") || typ == QLatin1String("2") || typ == QLatin1String("3")) {
        const Currency notIncluded = sumOf(rows.field(QStringLiteral("PriceNotIncluded")));
        const Currency amount =
            notIncluded.isZero() ? sumOf(rows.field(QStringLiteral("UPriceIncluded"))) : notIncluded;
        AddInAccount(db, typ, rows.field(QStringLiteral("Lib")).toString(), amount, QStringLiteral("S"), mode);
      }
      rows.deleteRecord();
      ++deleted;
    } catch (const std::exception&) {
    }
  }
  return deleted;
}

}  // namespace ksv
