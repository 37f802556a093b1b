#pragma once
// Lists and flags kept in one string, as the ini file and the catalogue store them.

#include <QString>
#include <QStringList>

namespace ksv {

// "a\b\c\": each item followed by one backslash. Reading fills exactly `size`
// items: missing ones stay empty, items past the end are dropped.
QStringList splitList(const QString& value, int size);
QString joinList(const QStringList& items);

// Flag strings hold one letter per position, 0-based here ("OONNO").
// A position past the end reads as an empty letter, which is never set.
QString flagAt(const QString& flags, int index);
bool flagIs(const QString& flags, int index, QChar letter = QLatin1Char('O'));
// Puts a letter at a position, padding with `filler` when the string is short.
QString withFlag(const QString& flags, int index, QChar letter, QChar filler = QLatin1Char('N'));

}  // namespace ksv
