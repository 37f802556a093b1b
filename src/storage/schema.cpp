#include "schema.h"

#include <cmath>
#include <limits>

#include <QDate>
#include <QDateTime>

#include "sqlite_db.h"

namespace ksv {

namespace {

using T = ColumnType;

// Short-hands for the table lists below.
ColumnDef text(const char* name, int size, bool nullable, bool zl = false, QVariant def = {}) {
  return {QString::fromLatin1(name), T::Text, size, nullable, zl, std::move(def)};
}
ColumnDef col(const char* name, ColumnType type, bool nullable, QVariant def = {}) {
  return {QString::fromLatin1(name), type, 0, nullable, false, std::move(def)};
}
const QVariant kEmpty = QString();

QList<ColumnDef> accountSums() {
  QList<ColumnDef> c;
  for (const char* n : {"Day", "Month", "Year", "Day_NC", "Month_NC", "Year_NC"}) c << col(n, T::Double, true, 0.0);
  return c;
}

QList<TableDef> makeTables() {
  QList<TableDef> t;
  t << TableDef{"DataBaseInfo",
                {text("Version", 6, false), col("MaxInvNb", T::Long, false), col("MaxWaitNb", T::Long, false),
                 col("MaxGroupNb", T::Long, false)}};
  t << TableDef{"Reservation",
                {text("Resource", 12, false), col("Date_Deb", T::Date, false), col("Date_Fin", T::Date, false),
                 col("Blocage", T::Boolean, false, false), col("Couleur", T::Short, false, 5), text("Nom", 25, false),
                 text("Email", 40, true, true, kEmpty), col("HowMany", T::Short, false, 1),
                 text("Remarque", 250, true, true, kEmpty), text("Split", 1, true, false, QStringLiteral("0")),
                 text("GroupId", 1, true), col("GroupNb", T::Long, true), col("InvNb", T::Long, true)}};
  t << TableDef{"Resource", {text("Resource", 12, false), col("Color", T::Short, true, 5), col("Order", T::Short, true, 1)}};
  t << TableDef{"T_BlackList", {text("Nom", 25, false), text("Remark", 250, true, true, kEmpty)}};
  TableDef designation{"Designation", {text("Designation", 50, false), col("UnitPrice", T::Single, false, 0.0)}};
  designation.columns << accountSums();
  t << designation;
  TableDef modification{"Modification",
                        {text("Modification", 50, false), col("Fixed", T::Single, false, 0.0),
                         col("Rate", T::Single, false, 0.0), col("Included", T::Boolean, false, true),
                         col("AddUp", T::Boolean, false, false), col("Printed", T::Boolean, false, true)}};
  modification.columns << accountSums();
  t << modification;
  TableDef payment{"Payment", {text("Payment", 50, false)}};
  payment.columns << accountSums();
  t << payment;
  t << TableDef{"AccountGroup", {text("Group", 50, false), text("Account", 50, true, true), text("Sign", 1, true, true)}};
  t << TableDef{"Header",
                {col("IdLeft", T::Short, false, 200), col("IdTop", T::Short, false, 200),
                 col("IdHeight", T::Short, false, 2000), col("IdWidth", T::Short, false, 8000),
                 text("LgPath", 150, true, true, kEmpty), col("LgLeft", T::Short, false, 0),
                 col("LgTop", T::Short, false, 0), col("LgHeight", T::Short, false, 0), col("LgWidth", T::Short, false, 0),
                 col("Border", T::Boolean, false)}};
  t << TableDef{"Invoice",
                {col("InvoiceNb", T::Long, false), text("Typ", 1, false), text("Lib", 50, true),
                 col("From", T::Date, true), col("To", T::Date, true), col("Fixed", T::Double, false, 0.0),
                 col("Rate", T::Double, false, 0.0), col("QuantityAmount", T::Double, false, 0.0),
                 col("UPriceIncluded", T::Double, false, 0.0), col("PriceNotIncluded", T::Double, false, 0.0),
                 text("AddUp", 1, false, false, QStringLiteral("N")), text("Printed", 1, false, false, QStringLiteral("Y"))}};
  t << TableDef{"InvoiceAll",
                {col("InvoiceNb", T::Long, false), text("Lib", 50, true), col("From", T::Date, true),
                 col("To", T::Date, true), col("UPriceIncluded", T::Double, true), col("PriceNotIncluded", T::Double, true),
                 text("AddUp", 1, false), text("Resource", 12, true), col("Date_Deb", T::Date, true),
                 col("Date_Fin", T::Date, true), text("Remarque", 250, true), text("Split", 1, true),
                 text("GroupId", 1, true, false, QStringLiteral("C")), col("GroupNb", T::Long, true, 0),
                 col("Fixed", T::Double, false, 0.0)}};
  t << TableDef{"Report",
                {col("Group", T::Short, false), text("Lib", 50, true, true, kEmpty), text("FromFixed", 10, true, true, kEmpty),
                 text("ToRate", 10, true, true, kEmpty), text("QuantityAmount", 20, true, true, kEmpty),
                 text("UPriceIncluded", 20, true, true, kEmpty), text("PriceNotIncluded", 20, true, true, kEmpty)}};
  t << TableDef{"Option", {ColumnDef{"Option", T::Memo, 0, true, true, kEmpty}}};
  t << TableDef{"DayColor", {col("IdDay", T::Date, false), col("Color", T::Short, true, 0)}};
  return t;
}

QString quoted(const QString& name) { return QLatin1Char('"') + name + QLatin1Char('"'); }

QString storeType(ColumnType type) {
  switch (type) {
    case T::Text:
    case T::Memo:
    case T::Date: return QStringLiteral("TEXT");
    case T::Long:
    case T::Short:
    case T::Boolean: return QStringLiteral("INTEGER");
    case T::Single:
    case T::Double: return QStringLiteral("REAL");
  }
  return QStringLiteral("ANY");
}

QString defaultSql(const ColumnDef& c) {
  const QVariant& v = c.defaultValue;
  switch (c.type) {
    case T::Text:
    case T::Memo: return QLatin1Char('\'') + v.toString().replace(QLatin1Char('\''), QStringLiteral("''")) + QLatin1Char('\'');
    case T::Boolean: return v.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    case T::Single:
    case T::Double: return QString::number(v.toDouble(), 'g', 17) + (v.toDouble() == std::floor(v.toDouble()) ? QStringLiteral(".0") : QString());
    default: return QString::number(v.toLongLong());
  }
}

// The rule of one column, or an empty text when it has none.
QString checkSql(const ColumnDef& c) {
  const QString x = quoted(c.name);
  QStringList parts;
  switch (c.type) {
    case T::Text:
      parts << QStringLiteral("length(%1) <= %2").arg(x).arg(c.size);
      if (!c.zeroLength) parts << QStringLiteral("length(%1) >= 1").arg(x);
      break;
    case T::Memo:
      if (!c.zeroLength) parts << QStringLiteral("length(%1) >= 1").arg(x);
      break;
    case T::Short: parts << QStringLiteral("%1 BETWEEN -32768 AND 32767").arg(x); break;
    case T::Long: parts << QStringLiteral("%1 BETWEEN -2147483648 AND 2147483647").arg(x); break;
    case T::Boolean: parts << QStringLiteral("%1 IN (0, 1)").arg(x); break;
    case T::Single: parts << QStringLiteral("abs(%1) <= 3.4028234663852886e38").arg(x); break;
    case T::Double: break;
    case T::Date:
      // With a modifier, date() and datetime() normalise their argument, so
      // they give it back only for a real day in the canonical form:
      // "2023-02-29" or "2024-2-3" are refused. IS, not =: an unreadable text
      // gives NULL, which a CHECK lets pass.
      parts << QStringLiteral("(length(%1) = 10 AND date(%1, '+0 days') IS %1) OR "
                              "(length(%1) = 19 AND datetime(%1, '+0 days') IS %1)")
                   .arg(x);
      break;
  }
  if (parts.isEmpty()) return {};
  return parts.size() == 1 ? parts.front() : QLatin1Char('(') + parts.join(QStringLiteral(") AND (")) + QLatin1Char(')');
}

[[noreturn]] void mismatch(const QString& table, const ColumnDef& c, const QVariant& value) {
  throw StorageError(20,
                     QStringLiteral("Type mismatch: %1 cannot be stored in %2.%3").arg(value.toString(), table, c.name),
                     table, c.name);
}

bool isNumber(const QVariant& v) {
  switch (v.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double: return true;
    default: return false;
  }
}

// A number from a numeric QVariant or a text in C notation.
bool numberOf(const QVariant& v, double& out) {
  if (isNumber(v)) {
    out = v.toDouble();
    return true;
  }
  if (v.typeId() == QMetaType::QString) {
    bool ok = false;
    out = v.toString().trimmed().toDouble(&ok);
    return ok;
  }
  return false;
}

}  // namespace

const ColumnDef* TableDef::column(const QString& name) const {
  const int i = columnIndex(name);
  return i < 0 ? nullptr : &columns[i];
}

int TableDef::columnIndex(const QString& name) const {
  for (int i = 0; i < columns.size(); ++i)
    if (columns[i].name.compare(name, Qt::CaseInsensitive) == 0) return i;
  return -1;
}

const QList<TableDef>& planningTables() {
  static const QList<TableDef> tables = makeTables();
  return tables;
}

const TableDef* findTable(const QString& name) {
  for (const TableDef& t : planningTables())
    if (t.name.compare(name, Qt::CaseInsensitive) == 0) return &t;
  return nullptr;
}

QString createTableSql(const TableDef& table) {
  QStringList cols;
  for (const ColumnDef& c : table.columns) {
    QString s = quoted(c.name) + QLatin1Char(' ') + storeType(c.type);
    if (!c.nullable) s += QStringLiteral(" NOT NULL");
    if (c.type == T::Text || c.type == T::Memo) s += QStringLiteral(" COLLATE NOCASE");
    if (c.hasDefault()) s += QStringLiteral(" DEFAULT ") + defaultSql(c);
    const QString check = checkSql(c);
    if (!check.isEmpty()) s += QStringLiteral(" CONSTRAINT %1 CHECK (%2)").arg(quoted(table.name + QLatin1Char('.') + c.name), check);
    cols << s;
  }
  return QStringLiteral("CREATE TABLE %1 (\n  %2\n) STRICT").arg(quoted(table.name), cols.join(QStringLiteral(",\n  ")));
}

void createPlanningTables(Database& db) {
  Transaction tx(db);
  for (const TableDef& t : planningTables()) db.exec(createTableSql(t));
  tx.commit();
}

QVariant toStoreValue(const QString& table, const ColumnDef& c, const QVariant& value) {
  if (!value.isValid() || value.isNull()) return {};
  double n = 0;
  switch (c.type) {
    case T::Text:
    case T::Memo:
      if (value.typeId() == QMetaType::QDate || value.typeId() == QMetaType::QDateTime) mismatch(table, c, value);
      return value.toString();
    case T::Long:
    case T::Short: {
      if (!numberOf(value, n) || !std::isfinite(n)) mismatch(table, c, value);
      if (value.typeId() == QMetaType::Bool) return value.toBool() ? -1 : 0;
      const double r = std::nearbyint(n);  // the default rounding mode: half to even
      if (std::abs(r) > 9.0e15) mismatch(table, c, value);
      return qlonglong(r);
    }
    case T::Single:
      if (!numberOf(value, n) || !std::isfinite(n)) mismatch(table, c, value);
      return toSingle(n);
    case T::Double:
      if (!numberOf(value, n) || !std::isfinite(n)) mismatch(table, c, value);
      return n;
    case T::Boolean:
      if (!numberOf(value, n)) mismatch(table, c, value);
      return n != 0 ? 1 : 0;
    case T::Date:
      if (value.typeId() == QMetaType::QDate) {
        if (!value.toDate().isValid()) mismatch(table, c, value);
        return dateToStoreText(value.toDate());
      }
      if (value.typeId() == QMetaType::QDateTime) {
        if (!value.toDateTime().isValid()) mismatch(table, c, value);
        return dateTimeToStoreText(value.toDateTime());
      }
      if (value.typeId() == QMetaType::QString && dateFromStoreText(value.toString()).isValid()) return value.toString();
      mismatch(table, c, value);
  }
  return value;
}

QVariant fromStoreValue(const ColumnDef& c, const QVariant& raw) {
  if (!raw.isValid() || raw.isNull()) return {};
  switch (c.type) {
    case T::Text:
    case T::Memo: return raw.toString();
    case T::Long:
    case T::Short: return raw.toInt();
    case T::Single: return raw.toFloat();
    case T::Double: return raw.toDouble();
    case T::Boolean: return raw.toLongLong() != 0;
    case T::Date: {
      const QVariant d = dateFromStoreText(raw.toString());
      return d.isValid() ? d : raw;
    }
  }
  return raw;
}

qint64 insertRow(Database& db, const QString& table, const QVariantMap& values) {
  const TableDef* def = findTable(table);
  if (!def) throw StorageError(1, QStringLiteral("No table named ") + table, table);
  QStringList names, marks;
  QVariantList params;
  for (auto it = values.begin(); it != values.end(); ++it) {
    const ColumnDef* c = def->column(it.key());
    if (!c) throw StorageError(1, QStringLiteral("No column %1.%2").arg(def->name, it.key()), def->name, it.key());
    names << quoted(c->name);
    marks << QStringLiteral("?");
    params << toStoreValue(def->name, *c, it.value());
  }
  const QString sql = names.isEmpty()
                          ? QStringLiteral("INSERT INTO %1 DEFAULT VALUES").arg(quoted(def->name))
                          : QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                .arg(quoted(def->name), names.join(QStringLiteral(", ")), marks.join(QStringLiteral(", ")));
  db.execute(sql, params);
  return db.lastInsertRowId();
}

}  // namespace ksv
