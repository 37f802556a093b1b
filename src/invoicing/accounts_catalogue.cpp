#include "accounts_catalogue.h"

#include <QVariant>

#include "core/regional.h"
#include "core/texts.h"
#include "storage/query_command.h"
#include "storage/recordset.h"
#include "storage/sqlite_db.h"

namespace ksv {
namespace {

constexpr AccountCatalogue kSearchOrder[] = {AccountCatalogue::Designation, AccountCatalogue::Modification,
                                              AccountCatalogue::Payment};

QString flag(const QVariant& v, const Texts& texts) { return texts.get(v.toBool() ? txt::AccYes : txt::AccNo); }

float singleOf(const Recordset& rs, const char* column) { return rs.field(QLatin1String(column)).toFloat(); }

// The rowid of the catalogue row whose upper-cased name is `name`'s, or 0.
qint64 findAccount(Database& db, AccountCatalogue catalogue, const QString& name) {
  const QString table = catalogueTable(catalogue);
  Statement walk = db.prepare(QStringLiteral("SELECT rowid, %1 FROM %1 ORDER BY rowid").arg(table));
  const QString wanted = name.toUpper();
  while (walk.step())
    if (walk.column(1).toString().toUpper() == wanted) return walk.column(0).toLongLong();
  return 0;
}

Currency sumOf(const QVariant& v) { return v.isNull() ? Currency() : Currency::fromDouble(v.toDouble()); }

}  // namespace

QString catalogueTable(AccountCatalogue catalogue) {
  switch (catalogue) {
    case AccountCatalogue::Designation: return QStringLiteral("Designation");
    case AccountCatalogue::Modification: return QStringLiteral("Modification");
    case AccountCatalogue::Payment: return QStringLiteral("Payment");
  }
  return {};
}

QString catalogueTyp(AccountCatalogue catalogue) {
  switch (catalogue) {
    case AccountCatalogue::Designation: return QStringLiteral("1");
    case AccountCatalogue::Modification: return QStringLiteral("2");
    case AccountCatalogue::Payment: return QStringLiteral("3");
  }
  return {};
}

QStringList accountTitles(AccountCatalogue catalogue, const Texts& texts) {
  switch (catalogue) {
    case AccountCatalogue::Designation: return {texts.get(txt::AccServices), texts.get(txt::AccUnitPrice)};
    case AccountCatalogue::Modification:
      return {texts.get(txt::AccModifiers), texts.get(txt::AccFixed),   texts.get(txt::AccRate),
              texts.get(txt::AccIncluded),  texts.get(txt::AccAddUp),   texts.get(txt::AccPrinted)};
    case AccountCatalogue::Payment: return {texts.get(txt::AccPayments)};
  }
  return {};
}

QString singleText(float value, const Regional& regional) {
  QString text = QString::number(static_cast<double>(value), 'g', 7);
  if (text.contains(QLatin1Char('e'))) text = QString::number(static_cast<double>(value), 'f', 0);
  return text.replace(QLatin1Char('.'), regional.decimalSymbol);
}

QList<AccountLine> Dessin_Catalogue(const AccountsContext& ctx, AccountCatalogue catalogue) {
  const QString table = catalogueTable(catalogue);
  Recordset rs = QueryCatalogue(ctx.db, ctx.clock).command(table + QLatin1String("Sort")).openRecordset();
  QList<AccountLine> lines;
  for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) {
    AccountLine line{rs.rowId(), {rs.field(table).toString()}};
    if (catalogue == AccountCatalogue::Designation) {
      line.cells << singleText(singleOf(rs, "UnitPrice"), ctx.regional);
    } else if (catalogue == AccountCatalogue::Modification) {
      line.cells << singleText(singleOf(rs, "Fixed"), ctx.regional) << singleText(singleOf(rs, "Rate"), ctx.regional)
                 << flag(rs.field(QStringLiteral("Included")), ctx.texts)
                 << flag(rs.field(QStringLiteral("AddUp")), ctx.texts)
                 << flag(rs.field(QStringLiteral("Printed")), ctx.texts);
    }
    lines << line;
  }
  return lines;
}

QList<AccountLine> Dessin_Designation(const AccountsContext& ctx) {
  return Dessin_Catalogue(ctx, AccountCatalogue::Designation);
}
QList<AccountLine> Dessin_Modification(const AccountsContext& ctx) {
  return Dessin_Catalogue(ctx, AccountCatalogue::Modification);
}
QList<AccountLine> Dessin_Payment(const AccountsContext& ctx) { return Dessin_Catalogue(ctx, AccountCatalogue::Payment); }

bool AccountExists(Database& db, AccountCatalogue catalogue, const QString& name) {
  return findAccount(db, catalogue, name) != 0;
}

QString AccountKind(Database& db, const QString& name) {
  static const char* const kKinds[] = {"S", "M", "P"};
  for (int i = 0; i < 3; ++i)
    if (AccountExists(db, kSearchOrder[i], name)) return QLatin1String(kKinds[i]);
  return {};
}

bool AccountSums(Database& db, const QString& name, bool posted, Currency& day, Currency& month, Currency& year) {
  for (AccountCatalogue catalogue : kSearchOrder) {
    const qint64 rowid = findAccount(db, catalogue, name);
    if (rowid == 0) continue;
    const char* columns = posted ? "Day, Month, Year" : "Day_NC, Month_NC, Year_NC";
    Statement s = db.prepare(
        QStringLiteral("SELECT %1 FROM %2 WHERE rowid = ?").arg(QLatin1String(columns), catalogueTable(catalogue)));
    s.bind(0, rowid);
    if (!s.step()) return false;
    day += sumOf(s.column(0));
    month += sumOf(s.column(1));
    year += sumOf(s.column(2));
    return true;
  }
  return false;
}

}  // namespace ksv
