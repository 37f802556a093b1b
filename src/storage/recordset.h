#pragma once
// A static snapshot of rows read from the planning, with row identity, walked
// forward and backward and edited in place, as the program's operations
// expect of their record sets:
//
//   Recordset rs = Recordset::openTable(db, "Resource");
//   for (rs.moveFirst(); !rs.isEOF(); rs.moveNext()) name = rs.field("Resource").toString();
//   rs.addNew(); rs.setField("Resource", "Room 9"); rs.update();
//
// Values come back typed by the column they are read from: Date as QDate (or
// QDateTime when a time is stored), Boolean as bool, Short/Long as int, Single
// as float, Double as double, texts as QString; Null as a null QVariant.
// Values written are converted and checked by the column's rules; a refused
// value writes nothing and leaves the edit pending.
//
// A recordset on a table, or on a query whose columns all come from one
// planning table (no DISTINCT, no grouping), is updatable; others are read-only.
// The snapshot does not follow other writers: requery() reads again.

#include <memory>

#include <QString>
#include <QStringList>
#include <QVariant>

namespace ksv {

class Database;
struct ColumnDef;

class Recordset {
 public:
  // A snapshot of a whole table in stored order.
  static Recordset openTable(Database& db, const QString& table);
  // A snapshot of the rows of one SELECT, parameters by position from 0.
  static Recordset openQuery(Database& db, const QString& sql, const QVariantList& params = {});

  Recordset();  // closed
  ~Recordset();
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) noexcept;
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  bool isOpen() const;
  void close() noexcept;

  // Before the first row / after the last. Both are true on an empty set.
  bool isBOF() const;
  bool isEOF() const;
  int recordCount() const;
  // 1 for the first row; 0 at BOF or EOF.
  int absolutePosition() const;
  void setAbsolutePosition(int position);

  // A pending edit is written (update()) before any move.
  void moveFirst();
  void moveLast();
  void moveNext();
  void movePrevious();

  int fieldCount() const;
  QStringList fieldNames() const;
  bool hasField(const QString& name) const;
  // The current row's value, or the pending value while editing. Names are
  // case-insensitive. Throws StorageError at BOF/EOF or on a deleted row.
  QVariant field(const QString& name) const;
  QVariant field(int index) const;
  bool isNull(const QString& name) const { return field(name).isNull(); }

  bool isUpdatable() const;
  // The planning table the rows come from; empty when not updatable.
  QString tableName() const;
  // The identity of the current row in its table.
  qint64 rowId() const;

  // Starts a new row; unset fields take their column defaults on update().
  void addNew();
  // Sets a field of the new row, or of the current row (starting an edit).
  void setField(const QString& name, const QVariant& value);
  // Writes the pending new row or edit. The new row is added at the end of
  // the snapshot and becomes current.
  void update();
  void cancelUpdate();
  bool isEditing() const;
  // Deletes the current row from the table. The position stays on the
  // deleted row until the next move; moveNext() goes to the row after it.
  void deleteRecord();

  // Reads the rows again (with new parameters when given) and goes to the
  // first row.
  void requery();
  void requery(const QVariantList& params);

 private:
  struct Impl;
  std::unique_ptr<Impl> d_;
  Impl& self() const;  // throws when closed
  explicit Recordset(std::unique_ptr<Impl> d);
};

}  // namespace ksv
