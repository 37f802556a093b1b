#include "sqlite_db.h"

#include <cmath>

#include <QDate>
#include <QDateTime>
#include <QFileInfo>
#include <QRegularExpression>

#include <sqlite3.h>

namespace ksv {

namespace {

// The store names a refused column at the end of its message, as
// "Table.Column": "CHECK constraint failed: Reservation.Nom",
// "NOT NULL constraint failed: Reservation.Nom",
// "cannot store TEXT value in INTEGER column Reservation.Couleur".
void columnOfRefusal(const QString& message, QString& table, QString& column) {
  static const QRegularExpression re(QStringLiteral("([A-Za-z_][A-Za-z0-9_]*)\\.([A-Za-z_][A-Za-z0-9_]*)\\s*$"));
  const auto m = re.match(message);
  if (m.hasMatch()) {
    table = m.captured(1);
    column = m.captured(2);
  }
}

[[noreturn]] void throwFrom(sqlite3* db, int rc, const QString& context = {}) {
  const int code = db ? sqlite3_extended_errcode(db) : rc;
  QString message = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString::fromUtf8(sqlite3_errstr(rc));
  QString table, column;
  if ((code & 0xff) == SQLITE_CONSTRAINT) columnOfRefusal(message, table, column);
  if (!context.isEmpty()) message += QStringLiteral(" [") + context + QLatin1Char(']');
  throw StorageError(code ? code : rc, message, table, column);
}

}  // namespace

StorageError::StorageError(int code, const QString& message, QString table, QString column)
    : std::runtime_error(message.toStdString()),
      code_(code),
      message_(message),
      table_(std::move(table)),
      column_(std::move(column)) {}

// ---------------------------------------------------------------------------
// Dates

QString dateToStoreText(const QDate& date) { return date.toString(QStringLiteral("yyyy-MM-dd")); }

QString dateTimeToStoreText(const QDateTime& dateTime) {
  if (dateTime.time() == QTime(0, 0)) return dateToStoreText(dateTime.date());
  return dateTime.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

namespace {
// Digits of a date text read by hand: whole tables of dates are read at once.
int digits(const QChar* p, int n) {
  int v = 0;
  for (int i = 0; i < n; ++i) {
    const char16_t c = p[i].unicode();
    if (c < u'0' || c > u'9') return -1;
    v = v * 10 + (c - u'0');
  }
  return v;
}
}  // namespace

QVariant dateFromStoreText(const QString& text) {
  const int n = int(text.size());
  if (n != 10 && n != 19) return {};
  const QChar* p = text.constData();
  if (p[4] != u'-' || p[7] != u'-') return {};
  const int year = digits(p, 4), month = digits(p + 5, 2), day = digits(p + 8, 2);
  if (year < 0 || month < 0 || day < 0) return {};
  const QDate d(year, month, day);
  if (!d.isValid()) return {};
  if (n == 10) return d;
  if (p[10] != u' ' || p[13] != u':' || p[16] != u':') return {};
  const int h = digits(p + 11, 2), m = digits(p + 14, 2), sec = digits(p + 17, 2);
  if (h < 0 || m < 0 || sec < 0) return {};
  const QTime t(h, m, sec);
  if (!t.isValid()) return {};
  return QDateTime(d, t);
}

// ---------------------------------------------------------------------------
// Database

struct Database::Impl {
  sqlite3* db = nullptr;
  QString path;
  OpenMode mode = OpenMode::ReadOnly;
};

Database::Database() : d_(std::make_unique<Impl>()) {}

Database::Database(const QString& path, OpenMode mode, int busyTimeoutMs) : Database() {
  open(path, mode, busyTimeoutMs);
}

Database::~Database() { close(); }

Database::Database(Database&& other) noexcept : d_(std::move(other.d_)) { other.d_ = std::make_unique<Impl>(); }

Database& Database::operator=(Database&& other) noexcept {
  if (this != &other) {
    close();
    std::swap(d_, other.d_);
  }
  return *this;
}

void Database::open(const QString& path, OpenMode mode, int busyTimeoutMs) {
  close();
  // One thread uses a connection at a time: no locking inside SQLite.
  int flags = SQLITE_OPEN_NOMUTEX;
  switch (mode) {
    case OpenMode::ReadOnly: flags |= SQLITE_OPEN_READONLY; break;
    case OpenMode::ReadWrite: flags |= SQLITE_OPEN_READWRITE; break;
    case OpenMode::Create: flags |= SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE; break;
  }
  sqlite3* db = nullptr;
  // ":memory:" is a database of this connection only, never a file.
  const QString name = path == QLatin1String(":memory:") ? path : QFileInfo(path).absoluteFilePath();
  const int rc = sqlite3_open_v2(name.toUtf8().constData(), &db, flags, nullptr);
  if (rc != SQLITE_OK) {
    const QString message = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString::fromUtf8(sqlite3_errstr(rc));
    const int code = db ? sqlite3_extended_errcode(db) : rc;
    sqlite3_close_v2(db);
    throw StorageError(code, message + QStringLiteral(" [") + path + QLatin1Char(']'));
  }
  d_->db = db;
  d_->path = path;
  d_->mode = mode;
  sqlite3_extended_result_codes(db, 1);
  sqlite3_busy_timeout(db, busyTimeoutMs);
  // SQLite opens lazily: touch the schema now so that a file that is not a
  // database fails here and not at the first query.
  try {
    exec(QStringLiteral("SELECT count(*) FROM sqlite_schema"));
  } catch (...) {
    close();
    throw;
  }
}

void Database::close() noexcept {
  if (d_ && d_->db) {
    sqlite3_close_v2(d_->db);  // statements still alive keep it until they finish
    d_->db = nullptr;
  }
}

bool Database::isOpen() const { return d_->db != nullptr; }
bool Database::isReadOnly() const { return d_->db && sqlite3_db_readonly(d_->db, "main") == 1; }
Database::OpenMode Database::mode() const { return d_->mode; }
const QString& Database::path() const { return d_->path; }
void Database::setBusyTimeout(int ms) {
  if (d_->db) sqlite3_busy_timeout(d_->db, ms);
}
void* Database::handle() const { return d_->db; }

void Database::exec(const QString& sql) {
  if (!d_->db) throw StorageError(SQLITE_MISUSE, QStringLiteral("The database is not open"));
  char* err = nullptr;
  const int rc = sqlite3_exec(d_->db, sql.toUtf8().constData(), nullptr, nullptr, &err);
  sqlite3_free(err);
  if (rc != SQLITE_OK) throwFrom(d_->db, rc);
}

int Database::execute(const QString& sql, const QVariantList& params) {
  Statement st = prepare(sql);
  st.bindAll(params);
  return st.run();
}

QVariant Database::scalar(const QString& sql, const QVariantList& params) {
  Statement st = prepare(sql);
  st.bindAll(params);
  return st.step() ? st.column(0) : QVariant();
}

qint64 Database::lastInsertRowId() const { return d_->db ? sqlite3_last_insert_rowid(d_->db) : 0; }
int Database::changes() const { return d_->db ? sqlite3_changes(d_->db) : 0; }
bool Database::inTransaction() const { return d_->db && sqlite3_get_autocommit(d_->db) == 0; }

bool Database::tableExists(const QString& name, const QString& schemaName) {
  return scalar(QStringLiteral("SELECT count(*) FROM \"%1\".sqlite_schema WHERE type = 'table' AND name = ? COLLATE NOCASE")
                    .arg(schemaName),
                {name})
             .toLongLong() > 0;
}

QStringList Database::tableNames() {
  QStringList names;
  Statement st = prepare(QStringLiteral(
      "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid"));
  while (st.step()) names << st.column(0).toString();
  return names;
}

// ---------------------------------------------------------------------------
// Statement

struct Statement::Impl {
  sqlite3* db = nullptr;
  sqlite3_stmt* stmt = nullptr;
  QString sql;
  bool hasRow = false;
};

Statement::Statement(std::unique_ptr<Impl> d) : d_(std::move(d)) {}
Statement::Statement(Statement&& other) noexcept = default;
Statement& Statement::operator=(Statement&& other) noexcept = default;
Statement::~Statement() {
  if (d_ && d_->stmt) sqlite3_finalize(d_->stmt);
}

Statement Database::prepare(const QString& sql) {
  if (!d_->db) throw StorageError(SQLITE_MISUSE, QStringLiteral("The database is not open"));
  auto impl = std::make_unique<Statement::Impl>();
  impl->db = d_->db;
  impl->sql = sql;
  const QByteArray utf8 = sql.toUtf8();
  const int rc = sqlite3_prepare_v2(d_->db, utf8.constData(), int(utf8.size()), &impl->stmt, nullptr);
  if (rc != SQLITE_OK) throwFrom(d_->db, rc, sql);
  if (!impl->stmt) throw StorageError(SQLITE_MISUSE, QStringLiteral("Empty statement"));
  return Statement(std::move(impl));
}

int Statement::parameterCount() const { return sqlite3_bind_parameter_count(d_->stmt); }

void Statement::bind(int index, const QVariant& value) {
  sqlite3_stmt* s = d_->stmt;
  const int i = index + 1;
  int rc = SQLITE_OK;
  if (!value.isValid() || value.isNull()) {
    rc = sqlite3_bind_null(s, i);
  } else {
    switch (value.typeId()) {
      case QMetaType::Bool: rc = sqlite3_bind_int(s, i, value.toBool() ? 1 : 0); break;
      case QMetaType::Int:
      case QMetaType::Short:
      case QMetaType::UShort:
      case QMetaType::UInt:
      case QMetaType::Long:
      case QMetaType::LongLong:
      case QMetaType::ULong:
      case QMetaType::ULongLong:
      case QMetaType::Char:
      case QMetaType::SChar:
      case QMetaType::UChar: rc = sqlite3_bind_int64(s, i, value.toLongLong()); break;
      case QMetaType::Float: rc = sqlite3_bind_double(s, i, double(value.toFloat())); break;
      case QMetaType::Double: rc = sqlite3_bind_double(s, i, value.toDouble()); break;
      case QMetaType::QDate: {
        const QByteArray t = dateToStoreText(value.toDate()).toUtf8();
        rc = sqlite3_bind_text(s, i, t.constData(), int(t.size()), SQLITE_TRANSIENT);
        break;
      }
      case QMetaType::QDateTime: {
        const QByteArray t = dateTimeToStoreText(value.toDateTime()).toUtf8();
        rc = sqlite3_bind_text(s, i, t.constData(), int(t.size()), SQLITE_TRANSIENT);
        break;
      }
      case QMetaType::QByteArray: {
        const QByteArray b = value.toByteArray();
        rc = sqlite3_bind_blob(s, i, b.constData(), int(b.size()), SQLITE_TRANSIENT);
        break;
      }
      default: {
        const QByteArray t = value.toString().toUtf8();
        rc = sqlite3_bind_text(s, i, t.constData(), int(t.size()), SQLITE_TRANSIENT);
        break;
      }
    }
  }
  if (rc != SQLITE_OK) throwFrom(d_->db, rc, d_->sql);
}

void Statement::bindAll(const QVariantList& values) {
  clearBindings();
  const int n = std::min<int>(int(values.size()), parameterCount());
  for (int i = 0; i < n; ++i) bind(i, values[i]);
}

void Statement::clearBindings() {
  reset();
  sqlite3_clear_bindings(d_->stmt);
}

bool Statement::step() {
  const int rc = sqlite3_step(d_->stmt);
  if (rc == SQLITE_ROW) return d_->hasRow = true;
  d_->hasRow = false;
  if (rc == SQLITE_DONE) return false;
  // Keep the error of the step: reset() would report it again.
  const int code = sqlite3_extended_errcode(d_->db);
  QString message = QString::fromUtf8(sqlite3_errmsg(d_->db));
  sqlite3_reset(d_->stmt);
  QString table, column;
  if ((code & 0xff) == SQLITE_CONSTRAINT) columnOfRefusal(message, table, column);
  throw StorageError(code, message, table, column);
}

int Statement::run() {
  reset();
  while (step()) {
  }
  const int n = sqlite3_changes(d_->db);
  reset();
  return n;
}

void Statement::reset() {
  d_->hasRow = false;
  sqlite3_reset(d_->stmt);
}

int Statement::columnCount() const { return sqlite3_column_count(d_->stmt); }

QString Statement::columnName(int index) const {
  const char* n = sqlite3_column_name(d_->stmt, index);
  return n ? QString::fromUtf8(n) : QString();
}

QStringList Statement::columnNames() const {
  QStringList names;
  for (int i = 0, n = columnCount(); i < n; ++i) names << columnName(i);
  return names;
}

int Statement::columnIndex(const QString& name) const {
  for (int i = 0, n = columnCount(); i < n; ++i)
    if (columnName(i).compare(name, Qt::CaseInsensitive) == 0) return i;
  return -1;
}

QString Statement::columnTable(int index) const {
  const char* n = sqlite3_column_table_name(d_->stmt, index);
  return n ? QString::fromUtf8(n) : QString();
}

QString Statement::columnOrigin(int index) const {
  const char* n = sqlite3_column_origin_name(d_->stmt, index);
  return n ? QString::fromUtf8(n) : QString();
}

QVariant Statement::column(int index) const {
  sqlite3_stmt* s = d_->stmt;
  switch (sqlite3_column_type(s, index)) {
    case SQLITE_INTEGER: return QVariant(qlonglong(sqlite3_column_int64(s, index)));
    case SQLITE_FLOAT: return QVariant(sqlite3_column_double(s, index));
    case SQLITE_TEXT: {
      const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(s, index));
      return QVariant(QString::fromUtf8(t, sqlite3_column_bytes(s, index)));
    }
    case SQLITE_BLOB: {
      const auto* b = static_cast<const char*>(sqlite3_column_blob(s, index));
      return QVariant(QByteArray(b, sqlite3_column_bytes(s, index)));
    }
    default: return {};
  }
}

QVariant Statement::column(const QString& name) const {
  const int i = columnIndex(name);
  if (i < 0) throw StorageError(0, QStringLiteral("No column named ") + name + QStringLiteral(" [") + d_->sql + QLatin1Char(']'));
  return column(i);
}

qint64 Statement::appendPacked(int skipColumn, std::string& out) const {
  sqlite3_stmt* s = d_->stmt;
  qint64 skipped = 0;
  for (int c = 0, n = sqlite3_column_count(s); c < n; ++c) {
    if (c == skipColumn) {
      skipped = sqlite3_column_int64(s, c);
      continue;
    }
    const int kind = sqlite3_column_type(s, c);
    out.push_back(char(kind));
    switch (kind) {
      case SQLITE_INTEGER: {
        const qint64 v = sqlite3_column_int64(s, c);
        out.append(reinterpret_cast<const char*>(&v), sizeof v);
        break;
      }
      case SQLITE_FLOAT: {
        const double v = sqlite3_column_double(s, c);
        out.append(reinterpret_cast<const char*>(&v), sizeof v);
        break;
      }
      case SQLITE_TEXT:
      case SQLITE_BLOB: {
        const void* data = kind == SQLITE_TEXT ? static_cast<const void*>(sqlite3_column_text(s, c))
                                               : sqlite3_column_blob(s, c);
        const qint32 bytes = sqlite3_column_bytes(s, c);
        out.append(reinterpret_cast<const char*>(&bytes), sizeof bytes);
        if (bytes > 0) out.append(static_cast<const char*>(data), size_t(bytes));
        break;
      }
      default: break;  // NULL: the kind alone
    }
  }
  return skipped;
}

bool Statement::isNull(int index) const { return sqlite3_column_type(d_->stmt, index) == SQLITE_NULL; }

const QString& Statement::sql() const { return d_->sql; }

// ---------------------------------------------------------------------------
// Transaction

Transaction::Transaction(Database& db) : db_(db) { db_.exec(QStringLiteral("BEGIN IMMEDIATE")); }

Transaction::~Transaction() { rollback(); }

void Transaction::commit() {
  if (!open_) throw StorageError(SQLITE_MISUSE, QStringLiteral("The transaction is already finished"));
  db_.exec(QStringLiteral("COMMIT"));
  open_ = false;
}

void Transaction::rollback() noexcept {
  if (!open_) return;
  open_ = false;
  // A failed statement may already have rolled the transaction back.
  if (db_.isOpen() && db_.inTransaction())
    sqlite3_exec(static_cast<sqlite3*>(db_.handle()), "ROLLBACK", nullptr, nullptr, nullptr);
}

}  // namespace ksv
