#include "recordset.h"

#include <QMap>
#include <QRegularExpression>
#include <QVector>

#include "schema.h"
#include "sqlite_db.h"

namespace ksv {

namespace {

// The name under which a query hands the row identity to the recordset; a
// query may select it itself, otherwise it is added when the rows all come
// from one table.
const QString kRowIdColumn = QStringLiteral("ksv_rowid");

[[noreturn]] void fail(const QString& message, const QString& table = {}) {
  throw StorageError(0, message, table);
}

QString quoted(const QString& name) { return QLatin1Char('"') + name + QLatin1Char('"'); }

}  // namespace

struct Recordset::Impl {
  struct Row {
    qint64 rowid = 0;
    QVector<QVariant> values;
  };
  enum class Edit { None, Changing, Adding };

  Database* db = nullptr;
  QString sql;
  QVariantList params;
  const TableDef* table = nullptr;  // the updatable source, or null
  QStringList names;                 // field names as the query gives them
  QStringList origins;               // the table columns they read, when updatable
  QVector<const ColumnDef*> defs;    // the column of each field, when known
  int rowidIndex = -1;               // the statement column of the identity
  QVector<Row> rows;
  int pos = 0;                       // -1 BOF, rows.size() EOF
  bool onDeleted = false;            // the row at pos was deleted; pos is the next one
  Edit edit = Edit::None;
  QMap<int, QVariant> pending;

  int indexOf(const QString& name) const {
    for (int i = 0; i < names.size(); ++i)
      if (names[i].compare(name, Qt::CaseInsensitive) == 0) return i;
    return -1;
  }
  int requireIndex(const QString& name) const {
    const int i = indexOf(name);
    if (i < 0) fail(QStringLiteral("Item cannot be found: ") + name, table ? table->name : QString());
    return i;
  }
  bool atRow() const { return !onDeleted && pos >= 0 && pos < rows.size(); }
  void requireRow() const {
    if (!atRow()) fail(QStringLiteral("Either BOF or EOF is True, or the current record has been deleted."));
  }
  void requireUpdatable() const {
    if (!table) fail(QStringLiteral("The record set cannot be updated: ") + sql);
  }

  Row readRow(const Statement& st) const {
    Row r;
    r.values.resize(names.size());
    int f = 0;
    for (int c = 0, n = st.columnCount(); c < n; ++c) {
      if (c == rowidIndex) {
        r.rowid = st.column(c).toLongLong();
        continue;
      }
      const QVariant raw = st.column(c);
      r.values[f] = defs[f] ? fromStoreValue(*defs[f], raw) : raw;
      ++f;
    }
    return r;
  }

  // Runs the query and takes the snapshot; the first time, also learns the
  // fields and whether the rows can be written back.
  void load() {
    Statement st = prepareWithIdentity();
    st.bindAll(params);
    rows.clear();
    while (st.step()) rows.push_back(readRow(st));
    pos = 0;
    onDeleted = false;
    edit = Edit::None;
    pending.clear();
  }

  Statement prepareWithIdentity() {
    if (!names.isEmpty() || rowidIndex >= 0) return db->prepare(sql);
    Statement st = db->prepare(sql);
    rowidIndex = st.columnIndex(kRowIdColumn);
    QString source;
    bool oneTable = true;
    for (int c = 0; c < st.columnCount(); ++c) {
      if (c == rowidIndex) continue;
      const QString t = st.columnTable(c);
      if (t.isEmpty() || (!source.isEmpty() && t.compare(source, Qt::CaseInsensitive) != 0)) oneTable = false;
      if (source.isEmpty()) source = t;
    }
    static const QRegularExpression plainSelect(QStringLiteral("^\\s*SELECT\\s+(?!DISTINCT\\b)"),
                                                QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression grouping(QStringLiteral("\\b(GROUP\\s+BY|UNION|INTERSECT|EXCEPT)\\b"),
                                             QRegularExpression::CaseInsensitiveOption);
    const TableDef* def = oneTable ? findTable(source) : nullptr;
    if (def && rowidIndex < 0 && plainSelect.match(sql).hasMatch() && !grouping.match(sql).hasMatch()) {
      const auto m = plainSelect.match(sql);
      const QString withId = sql.left(m.capturedEnd()) + quoted(def->name) + QStringLiteral(".rowid AS ") + kRowIdColumn +
                             QStringLiteral(", ") + sql.mid(m.capturedEnd());
      try {
        Statement idSt = db->prepare(withId);
        sql = withId;
        st = std::move(idSt);
        rowidIndex = 0;
      } catch (const StorageError&) {
        // The table goes by another name in this query: read-only then.
      }
    }
    table = (def && rowidIndex >= 0) ? def : nullptr;
    for (int c = 0; c < st.columnCount(); ++c) {
      if (c == rowidIndex) continue;
      names << st.columnName(c);
      const TableDef* src = findTable(st.columnTable(c));
      const ColumnDef* col = src ? src->column(st.columnOrigin(c)) : nullptr;
      defs << col;
      origins << (col ? col->name : QString());
    }
    return st;
  }

  QVariant currentValue(int i) const {
    if (edit != Edit::None && pending.contains(i)) return pending.value(i);
    if (edit == Edit::Adding) {
      const ColumnDef* c = defs[i];
      return c && c->hasDefault() ? fromStoreValue(*c, toStoreValue(table->name, *c, c->defaultValue)) : QVariant();
    }
    requireRow();
    return rows[pos].values[i];
  }

  // Reads one row of the table again, as the snapshot holds it.
  Row reread(qint64 rowid) {
    QStringList cols;
    for (const QString& o : origins) cols << quoted(o);
    Statement st = db->prepare(QStringLiteral("SELECT rowid, %1 FROM %2 WHERE rowid = ?")
                                   .arg(cols.join(QStringLiteral(", ")), quoted(table->name)));
    st.bind(0, rowid);
    if (!st.step()) fail(QStringLiteral("The row was deleted by another user."), table->name);
    const int saved = rowidIndex;
    rowidIndex = 0;
    Row r = readRow(st);
    rowidIndex = saved;
    return r;
  }

  void writePending() {
    if (edit == Edit::None) return;
    QStringList cols, marks;
    QVariantList values;
    for (auto it = pending.begin(); it != pending.end(); ++it) {
      const ColumnDef* c = defs[it.key()];
      cols << quoted(c->name);
      marks << QStringLiteral("?");
      values << toStoreValue(table->name, *c, it.value());
    }
    if (edit == Edit::Adding) {
      const QString insert = cols.isEmpty()
                                 ? QStringLiteral("INSERT INTO %1 DEFAULT VALUES").arg(quoted(table->name))
                                 : QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                       .arg(quoted(table->name), cols.join(QStringLiteral(", ")), marks.join(QStringLiteral(", ")));
      db->execute(insert, values);
      rows.push_back(reread(db->lastInsertRowId()));
      pos = int(rows.size()) - 1;
      onDeleted = false;
    } else if (!cols.isEmpty()) {
      QStringList sets;
      for (const QString& c : cols) sets << c + QStringLiteral(" = ?");
      values << rows[pos].rowid;
      db->execute(QStringLiteral("UPDATE %1 SET %2 WHERE rowid = ?").arg(quoted(table->name), sets.join(QStringLiteral(", "))),
                  values);
      rows[pos] = reread(rows[pos].rowid);
    }
    edit = Edit::None;
    pending.clear();
  }

  void beforeMove() {
    writePending();
    onDeleted = false;
  }
};

Recordset::Recordset() = default;
Recordset::Recordset(std::unique_ptr<Impl> d) : d_(std::move(d)) {}
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

Recordset Recordset::openTable(Database& db, const QString& table) {
  const TableDef* def = findTable(table);
  if (!def) fail(QStringLiteral("No table named ") + table, table);
  QStringList cols;
  for (const ColumnDef& c : def->columns) cols << quoted(c.name);
  return openQuery(db, QStringLiteral("SELECT rowid AS %1, %2 FROM %3")
                           .arg(kRowIdColumn, cols.join(QStringLiteral(", ")), quoted(def->name)));
}

Recordset Recordset::openQuery(Database& db, const QString& sql, const QVariantList& params) {
  auto d = std::make_unique<Impl>();
  d->db = &db;
  d->sql = sql;
  d->params = params;
  d->load();
  return Recordset(std::move(d));
}

bool Recordset::isOpen() const { return d_ != nullptr; }
void Recordset::close() noexcept { d_.reset(); }

Recordset::Impl& Recordset::self() const {
  if (!d_) fail(QStringLiteral("The record set is closed."));
  return *d_;
}

bool Recordset::isBOF() const {
  const Impl& d = self();
  return d.rows.isEmpty() || d.pos < 0;
}
bool Recordset::isEOF() const {
  const Impl& d = self();
  return d.rows.isEmpty() || d.pos >= d.rows.size();
}
int Recordset::recordCount() const { return int(self().rows.size()); }

int Recordset::absolutePosition() const {
  const Impl& d = self();
  return d.atRow() ? d.pos + 1 : 0;
}

void Recordset::setAbsolutePosition(int position) {
  Impl& d = self();
  if (position < 1 || position > d.rows.size()) fail(QStringLiteral("Position out of range: ") + QString::number(position));
  d.beforeMove();
  d.pos = position - 1;
}

void Recordset::moveFirst() {
  Impl& d = self();
  d.beforeMove();
  d.pos = 0;
}

void Recordset::moveLast() {
  Impl& d = self();
  d.beforeMove();
  d.pos = d.rows.isEmpty() ? 0 : int(d.rows.size()) - 1;
}

void Recordset::moveNext() {
  Impl& d = self();
  if ((d.rows.isEmpty() && !d.onDeleted) || (!d.onDeleted && d.pos >= d.rows.size())) fail(QStringLiteral("Either BOF or EOF is True."));
  const bool wasDeleted = d.onDeleted;
  d.beforeMove();
  if (!wasDeleted) ++d.pos;  // after a delete, pos already holds the next row
}

void Recordset::movePrevious() {
  Impl& d = self();
  if (d.rows.isEmpty() || d.pos < 0) fail(QStringLiteral("Either BOF or EOF is True."));
  d.beforeMove();
  --d.pos;
}

int Recordset::fieldCount() const { return int(self().names.size()); }
QStringList Recordset::fieldNames() const { return self().names; }
bool Recordset::hasField(const QString& name) const { return self().indexOf(name) >= 0; }

QVariant Recordset::field(const QString& name) const {
  const Impl& d = self();
  return d.currentValue(d.requireIndex(name));
}

QVariant Recordset::field(int index) const {
  const Impl& d = self();
  if (index < 0 || index >= d.names.size()) fail(QStringLiteral("Item cannot be found: ") + QString::number(index));
  return d.currentValue(index);
}

bool Recordset::isUpdatable() const { return self().table != nullptr; }
QString Recordset::tableName() const {
  const Impl& d = self();
  return d.table ? d.table->name : QString();
}

qint64 Recordset::rowId() const {
  const Impl& d = self();
  d.requireRow();
  return d.rows[d.pos].rowid;
}

void Recordset::addNew() {
  Impl& d = self();
  d.requireUpdatable();
  d.writePending();
  d.edit = Impl::Edit::Adding;
}

void Recordset::setField(const QString& name, const QVariant& value) {
  Impl& d = self();
  d.requireUpdatable();
  const int i = d.requireIndex(name);
  if (!d.defs[i]) fail(QStringLiteral("The field cannot be updated: ") + name, d.table->name);
  if (d.edit == Impl::Edit::None) {
    d.requireRow();
    d.edit = Impl::Edit::Changing;
  }
  // Checked now so that a wrong type is reported where it is set.
  toStoreValue(d.table->name, *d.defs[i], value);
  d.pending[i] = value;
}

void Recordset::update() {
  Impl& d = self();
  d.requireUpdatable();
  d.writePending();
}

void Recordset::cancelUpdate() {
  Impl& d = self();
  d.edit = Impl::Edit::None;
  d.pending.clear();
}

bool Recordset::isEditing() const { return self().edit != Impl::Edit::None; }

void Recordset::deleteRecord() {
  Impl& d = self();
  d.requireUpdatable();
  if (d.edit == Impl::Edit::Adding) {
    cancelUpdate();
    return;
  }
  d.requireRow();
  d.db->execute(QStringLiteral("DELETE FROM %1 WHERE rowid = ?").arg(quoted(d.table->name)), {d.rows[d.pos].rowid});
  d.edit = Impl::Edit::None;
  d.pending.clear();
  d.rows.removeAt(d.pos);
  d.onDeleted = true;
}

void Recordset::requery() {
  Impl& d = self();
  d.writePending();
  d.load();
}

void Recordset::requery(const QVariantList& params) {
  Impl& d = self();
  d.writePending();
  d.params = params;
  d.load();
}

}  // namespace ksv
