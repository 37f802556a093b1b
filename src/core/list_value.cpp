#include "list_value.h"

namespace ksv {

QStringList splitList(const QString& value, int size) {
  QStringList items;
  items.reserve(size);
  qsizetype start = 0;
  while (items.size() < size) {
    const qsizetype end = value.indexOf(QLatin1Char('\\'), start);
    if (end < 0) break;  // an unterminated tail is not an item
    items << value.mid(start, end - start);
    start = end + 1;
  }
  while (items.size() < size) items << QString();
  return items;
}

QString joinList(const QStringList& items) {
  QString out;
  for (const QString& item : items) out += item + QLatin1Char('\\');
  return out;
}

QString flagAt(const QString& flags, int index) {
  if (index < 0 || index >= flags.size()) return QString();
  return QString(flags.at(index));
}

bool flagIs(const QString& flags, int index, QChar letter) { return flagAt(flags, index) == QString(letter); }

QString withFlag(const QString& flags, int index, QChar letter, QChar filler) {
  QString out = flags;
  while (out.size() <= index) out += filler;
  out[index] = letter;
  return out;
}

}  // namespace ksv
