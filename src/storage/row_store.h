#pragma once
// The rows of a recordset snapshot, packed one after the other in one buffer
// and typed only when a field is read. A session keeps whole tables open
// (all bookings of ten years); one QVariant per value would cost several
// times the memory and most of the opening time in allocations.
//
// A packed value is its SQLite storage class in one byte (1 integer, 2 real,
// 3 text, 4 blob, 5 null) followed by 8 bytes for a number, or a 4-byte length
// and the bytes (UTF-8 for a text).

#include <string>

#include <QByteArray>
#include <QList>
#include <QVariant>
#include <QVector>

namespace ksv {

class Statement;
struct ColumnDef;

class RowStore {
 public:
  struct Row {
    qint64 rowid = 0;
    const char* data = nullptr;  // the row's first value, inside a chunk
  };

  void clear();
  int size() const { return int(rows_.size()); }
  bool isEmpty() const { return rows_.isEmpty(); }
  qint64 rowid(int row) const { return rows_[row].rowid; }

  // Packs the current row of `st`: every column except `skipColumn` (the
  // identity), whose value becomes the row's rowid.
  void append(const Statement& st, int skipColumn);
  // Replaces row `row` with the current row of `st` (after an update).
  void replace(int row, const Statement& st, int skipColumn);
  void remove(int row) { rows_.removeAt(row); }

  // Field `field` of row `row`, typed by its column when known, else as
  // SQLite gives it.
  QVariant value(int row, int field, const ColumnDef* column) const;

 private:
  Row pack(const Statement& st, int skipColumn);
  // Rows are packed in fixed chunks that never move, so that growing the
  // snapshot never copies what is already read.
  static constexpr qsizetype kChunkSize = 1 << 20;
  QVector<QByteArray> chunks_;
  qsizetype usedInLast_ = 0;
  std::string scratch_;
  QVector<Row> rows_;
};

}  // namespace ksv
