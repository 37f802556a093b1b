#pragma once
// A thin RAII layer over SQLite: one connection (Database), its prepared
// statements (Statement), transactions that roll back unless committed, and
// one error type that names the table and column a refusal is about.
// Values travel as QVariant; a null QVariant is SQL NULL both ways.

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include <QString>
#include <QStringList>
#include <QVariant>

namespace ksv {

// Every failure of the store. For a refused value (a column rule of the
// planning) table() and column() name the column; otherwise they are empty.
class StorageError : public std::runtime_error {
 public:
  StorageError(int code, const QString& message, QString table = {}, QString column = {});

  // The extended SQLite result code (e.g. 275 for a failed CHECK); 0 when the
  // error was found by this layer rather than by SQLite.
  int code() const { return code_; }
  // The primary result code (code() & 0xff).
  int primaryCode() const { return code_ & 0xff; }
  const QString& message() const { return message_; }
  const QString& table() const { return table_; }
  const QString& column() const { return column_; }
  // True when the store refused a value (NOT NULL, CHECK, type).
  bool isConstraint() const { return primaryCode() == 19; }
  bool isBusy() const { return primaryCode() == 5 || primaryCode() == 6; }
  bool isReadOnly() const { return primaryCode() == 8; }

 private:
  int code_;
  QString message_;
  QString table_;
  QString column_;
};

class Statement;

class Database {
 public:
  enum class OpenMode {
    ReadOnly,   // any write fails
    ReadWrite,  // the file must exist
    Create,     // read-write, made when missing
  };
  // How long a statement waits for another process's lock before it fails.
  static constexpr int kDefaultBusyTimeoutMs = 10000;

  Database();
  // Opens at once; throws StorageError when the file can't be opened.
  Database(const QString& path, OpenMode mode, int busyTimeoutMs = kDefaultBusyTimeoutMs);
  ~Database();
  Database(Database&& other) noexcept;
  Database& operator=(Database&& other) noexcept;
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  void open(const QString& path, OpenMode mode, int busyTimeoutMs = kDefaultBusyTimeoutMs);
  void close() noexcept;
  bool isOpen() const;
  bool isReadOnly() const;
  OpenMode mode() const;
  const QString& path() const;
  void setBusyTimeout(int ms);

  // Runs one or more statements without parameters.
  void exec(const QString& sql);
  // Runs one statement with positional parameters (from 0); returns the number
  // of rows changed.
  int execute(const QString& sql, const QVariantList& params = {});
  // The first column of the first row, or a null QVariant when there is none.
  QVariant scalar(const QString& sql, const QVariantList& params = {});
  Statement prepare(const QString& sql);

  qint64 lastInsertRowId() const;
  int changes() const;
  bool inTransaction() const;  // false in autocommit mode
  bool tableExists(const QString& name, const QString& schemaName = QStringLiteral("main"));
  QStringList tableNames();

  // The raw sqlite3* for the layer's own use (and the benchmark's bare floor).
  void* handle() const;

 private:
  friend class Statement;
  struct Impl;
  std::unique_ptr<Impl> d_;
};

class Statement {
 public:
  Statement(Statement&& other) noexcept;
  Statement& operator=(Statement&& other) noexcept;
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  int parameterCount() const;
  // Binds parameter `index` (from 0). Null QVariant binds NULL; bool binds
  // 0/1; QDate "YYYY-MM-DD"; QDateTime "YYYY-MM-DD HH:MM:SS" (date only at
  // midnight); float is bound at its 32-bit value.
  void bind(int index, const QVariant& value);
  // Binds values from index 0; fewer values than parameters leave the rest NULL.
  void bindAll(const QVariantList& values);
  void clearBindings();

  // Runs to the next row; false when the statement is done.
  bool step();
  // Runs a statement that returns no rows; returns the rows changed.
  int run();
  void reset();

  int columnCount() const;
  QString columnName(int index) const;
  QStringList columnNames() const;
  int columnIndex(const QString& name) const;  // -1 when absent; case-insensitive
  // The table and column a result column is read from; empty for expressions.
  QString columnTable(int index) const;
  QString columnOrigin(int index) const;
  // Raw values of the current row: qlonglong, double, QString, QByteArray or
  // a null QVariant.
  QVariant column(int index) const;
  QVariant column(const QString& name) const;
  bool isNull(int index) const;
  // Appends the raw values of the current row, all columns but `skipColumn`,
  // to `out` in the packed form that recordsets keep their snapshots in (see
  // row_store.h); returns the value of `skipColumn` as an integer.
  qint64 appendPacked(int skipColumn, std::string& out) const;

  const QString& sql() const;

 private:
  friend class Database;
  struct Impl;
  explicit Statement(std::unique_ptr<Impl> d);
  std::unique_ptr<Impl> d_;
};

// Begins at construction (IMMEDIATE, so a writer waits for other writers at
// the start rather than failing half-way); rolls back at destruction unless
// commit() was called. Not nestable.
class Transaction {
 public:
  explicit Transaction(Database& db);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void commit();
  void rollback() noexcept;

 private:
  Database& db_;
  bool open_ = true;
};

// The rows of one command written together: a transaction of its own, or
// none when the caller already holds one, whose commit or rollback then
// takes these rows along.
class JoinedTransaction {
 public:
  explicit JoinedTransaction(Database& db) {
    if (!db.inTransaction()) own_.emplace(db);
  }
  void commit() {
    if (own_) own_->commit();
  }

 private:
  std::optional<Transaction> own_;
};

// The text a date value is stored as: "YYYY-MM-DD", or "YYYY-MM-DD HH:MM:SS"
// when a time other than midnight is present.
QString dateToStoreText(const QDate& date);
QString dateTimeToStoreText(const QDateTime& dateTime);
// Reads a stored date text back: a QDate, a QDateTime, or a null QVariant
// when the text is not in one of the two forms.
QVariant dateFromStoreText(const QString& text);

}  // namespace ksv
