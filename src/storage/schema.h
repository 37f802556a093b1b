#pragma once
// The fourteen tables of a planning, every column with its type, size,
// nullability, zero-length rule and default, in the order they are made. The
// description drives the table statements, the typing of values read back,
// and the checks of values written.
//
// In the file: STRICT tables, no keys, no indexes. Each column with a rule
// carries one CHECK named "Table.Column", so a refused value names its column.
// Texts compare without regard to case (NOCASE), as names are typed by hand.
// Dates are "YYYY-MM-DD" or "YYYY-MM-DD HH:MM:SS"; Booleans 0/1.

#include <QList>
#include <QString>
#include <QVariant>

namespace ksv {

class Database;

enum class ColumnType { Text, Memo, Long, Short, Single, Double, Date, Boolean };

struct ColumnDef {
  QString name;
  ColumnType type;
  int size = 0;             // characters, Text only
  bool nullable = false;
  bool zeroLength = false;  // accepts the empty string (Text and Memo)
  QVariant defaultValue;    // invalid: no default
  bool hasDefault() const { return defaultValue.isValid(); }
};

struct TableDef {
  QString name;
  QList<ColumnDef> columns;
  // Case-insensitive; nullptr when absent.
  const ColumnDef* column(const QString& name) const;
  int columnIndex(const QString& name) const;  // -1 when absent
};

// The version text written into a new planning.
inline constexpr const char* kSchemaVersion = "5.20";

// The tables in their order of creation.
const QList<TableDef>& planningTables();
// Case-insensitive; nullptr when the name is not one of the fourteen.
const TableDef* findTable(const QString& name);

// The CREATE TABLE statement of one table.
QString createTableSql(const TableDef& table);
// Makes the fourteen tables, in order, in one transaction.
void createPlanningTables(Database& db);

// A value as the store keeps it for this column: a Date becomes its text, a
// Boolean 0/1, a Single is rounded to 32-bit precision, a Short/Long an
// integer (half to even). A null or invalid QVariant stays NULL. A value that
// can't be converted throws StorageError naming table and column.
QVariant toStoreValue(const QString& table, const ColumnDef& column, const QVariant& value);
// A stored value typed for the program: QDate/QDateTime, bool, int, float,
// double, QString; NULL gives a null QVariant.
QVariant fromStoreValue(const ColumnDef& column, const QVariant& raw);

// A Single as the store keeps it.
inline double toSingle(double value) { return double(float(value)); }

// Adds one row to a table of the planning: the named values are converted
// with toStoreValue, unnamed columns take their defaults. Returns the rowid.
qint64 insertRow(Database& db, const QString& table, const QVariantMap& values);

}  // namespace ksv
