#include "row_script.h"

#include <QDate>
#include <QStringList>
#include <QVariantMap>

#include "schema.h"
#include "sqlite_db.h"

namespace ksv {
namespace {

[[noreturn]] void fail(int line, const QString& what) {
  throw StorageError(0, QStringLiteral("line %1: %2").arg(line).arg(what));
}

// The text of a field as the value its column expects, so that the store's
// own conversion and checks apply to it.
QVariant typedValue(const ColumnDef& column, const QString& field, int line) {
  if (field == QLatin1String("\\N")) return QVariant();
  bool ok = true;
  QVariant v;
  switch (column.type) {
    case ColumnType::Text:
    case ColumnType::Memo: return field;
    case ColumnType::Long:
    case ColumnType::Short: v = field.toInt(&ok); break;
    case ColumnType::Single:
    case ColumnType::Double: v = field.toDouble(&ok); break;
    case ColumnType::Boolean:
      ok = field == QLatin1String("0") || field == QLatin1String("1");
      v = field == QLatin1String("1");
      break;
    case ColumnType::Date: {
      const QDate d = QDate::fromString(field, Qt::ISODate);
      ok = d.isValid();
      v = d;
      break;
    }
  }
  if (!ok) fail(line, QStringLiteral("\"%1\" is not a value for %2").arg(field, column.name));
  return v;
}

}  // namespace

int loadRowScript(Database& db, const QString& text) {
  const QStringList lines = text.split(QLatin1Char('\n'));
  const TableDef* table = nullptr;
  QList<const ColumnDef*> columns;  // empty until the column line is read
  int added = 0;
  Transaction t(db);
  for (int i = 0; i < lines.size(); ++i) {
    const int lineNo = i + 1;
    QString line = lines[i];
    if (line.endsWith(QLatin1Char('\r'))) line.chop(1);
    if (line.trimmed().isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
    if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
      table = findTable(line.mid(1, line.size() - 2));
      if (!table) fail(lineNo, QStringLiteral("no table %1").arg(line));
      db.exec(QStringLiteral("DELETE FROM \"%1\"").arg(table->name));
      columns.clear();
      continue;
    }
    if (!table) fail(lineNo, QStringLiteral("a row before any [Table] line"));
    const QStringList fields = line.split(QLatin1Char('\t'));
    if (columns.isEmpty()) {
      for (const QString& name : fields) {
        const ColumnDef* c = table->column(name);
        if (!c) fail(lineNo, QStringLiteral("no column %1 in %2").arg(name, table->name));
        columns << c;
      }
      continue;
    }
    if (fields.size() != columns.size())
      fail(lineNo, QStringLiteral("%1 fields for %2 columns").arg(fields.size()).arg(columns.size()));
    QVariantMap values;
    for (int f = 0; f < fields.size(); ++f) {
      if (fields[f].isEmpty()) continue;  // the column's default
      values.insert(columns[f]->name, typedValue(*columns[f], fields[f], lineNo));
    }
    try {
      insertRow(db, table->name, values);
    } catch (const StorageError& e) {
      fail(lineNo, e.message());
    }
    ++added;
  }
  t.commit();
  return added;
}

}  // namespace ksv
