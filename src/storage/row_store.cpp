#include "row_store.h"

#include <algorithm>
#include <cstring>

#include <QDate>
#include <QDateTime>

#include "schema.h"
#include "sqlite_db.h"

namespace ksv {

namespace {

enum Kind : char { kInteger = 1, kFloat = 2, kText = 3, kBlob = 4, kNull = 5 };

template <typename T>
T readAt(const char* p) {
  T v;
  std::memcpy(&v, p, sizeof v);
  return v;
}

// Length in the buffer of the value starting at p.
qsizetype packedSize(const char* p) {
  switch (p[0]) {
    case kInteger:
    case kFloat: return 1 + 8;
    case kText:
    case kBlob: return 1 + 4 + readAt<qint32>(p + 1);
    default: return 1;
  }
}

int digits(const char* p, int n) {
  int v = 0;
  for (int i = 0; i < n; ++i) {
    if (p[i] < '0' || p[i] > '9') return -1;
    v = v * 10 + (p[i] - '0');
  }
  return v;
}

// "YYYY-MM-DD" or "YYYY-MM-DD HH:MM:SS"; invalid otherwise.
QVariant dateOf(const char* p, int n) {
  if ((n != 10 && n != 19) || p[4] != '-' || p[7] != '-') return {};
  const int year = digits(p, 4), month = digits(p + 5, 2), day = digits(p + 8, 2);
  if (year < 0 || month < 0 || day < 0) return {};
  const QDate d(year, month, day);
  if (!d.isValid() || n == 10) return d.isValid() ? QVariant(d) : QVariant();
  if (p[10] != ' ' || p[13] != ':' || p[16] != ':') return {};
  const int h = digits(p + 11, 2), m = digits(p + 14, 2), s = digits(p + 17, 2);
  if (h < 0 || m < 0 || s < 0 || !QTime::isValid(h, m, s)) return {};
  return QDateTime(d, QTime(h, m, s));
}

QVariant rawValue(const char* p) {
  switch (p[0]) {
    case kInteger: return qlonglong(readAt<qint64>(p + 1));
    case kFloat: return readAt<double>(p + 1);
    case kText: return QString::fromUtf8(p + 5, readAt<qint32>(p + 1));
    case kBlob: return QByteArray(p + 5, readAt<qint32>(p + 1));
    default: return {};
  }
}

}  // namespace

void RowStore::clear() {
  chunks_.clear();
  usedInLast_ = 0;
  rows_.clear();
}

RowStore::Row RowStore::pack(const Statement& st, int skipColumn) {
  Row r;
  scratch_.clear();
  r.rowid = st.appendPacked(skipColumn, scratch_);
  const qsizetype n = qsizetype(scratch_.size());
  if (chunks_.isEmpty() || usedInLast_ + n > chunks_.back().size()) {
    chunks_.push_back(QByteArray(std::max(kChunkSize, n), Qt::Uninitialized));
    usedInLast_ = 0;
  }
  char* at = chunks_.back().data() + usedInLast_;
  std::memcpy(at, scratch_.data(), size_t(n));
  usedInLast_ += n;
  r.data = at;
  return r;
}

void RowStore::append(const Statement& st, int skipColumn) { rows_.push_back(pack(st, skipColumn)); }

void RowStore::replace(int row, const Statement& st, int skipColumn) {
  // The old bytes stay unused in their chunk until the next load.
  rows_[row] = pack(st, skipColumn);
}

QVariant RowStore::value(int row, int field, const ColumnDef* column) const {
  const char* p = rows_[row].data;
  for (int i = 0; i < field; ++i) p += packedSize(p);
  if (p[0] == kNull) return {};
  if (!column) return rawValue(p);
  switch (column->type) {
    case ColumnType::Long:
    case ColumnType::Short:
      if (p[0] == kInteger) return int(readAt<qint64>(p + 1));
      break;
    case ColumnType::Boolean:
      if (p[0] == kInteger) return readAt<qint64>(p + 1) != 0;
      break;
    case ColumnType::Single:
      if (p[0] == kFloat) return float(readAt<double>(p + 1));
      if (p[0] == kInteger) return float(readAt<qint64>(p + 1));
      break;
    case ColumnType::Double:
      if (p[0] == kFloat) return readAt<double>(p + 1);
      if (p[0] == kInteger) return double(readAt<qint64>(p + 1));
      break;
    case ColumnType::Date:
      if (p[0] == kText) {
        const QVariant d = dateOf(p + 5, readAt<qint32>(p + 1));
        if (d.isValid()) return d;
      }
      break;
    case ColumnType::Text:
    case ColumnType::Memo:
      if (p[0] == kText) return QString::fromUtf8(p + 5, readAt<qint32>(p + 1));
      break;
  }
  return rawValue(p);  // a value the column's rules would not let in: as stored
}

}  // namespace ksv
