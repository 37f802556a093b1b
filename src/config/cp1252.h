#pragma once
// The 8-bit text of the ini file: Windows-1252, as files written on the
// workstations we replace are. Qt has no converter for it, so we keep our own.

#include <QByteArray>
#include <QString>

namespace ksv {

// Bytes 0x80-0x9F follow the Windows table; the five holes of that table map
// to the same code point, as Windows does, so that they survive a round trip.
QString fromCp1252(const QByteArray& bytes);
// A character the code page lacks becomes '?'.
QByteArray toCp1252(const QString& text);

// Text of an ini file: UTF-8 when the bytes carry a UTF-8 byte order mark or
// are valid UTF-8 with at least one multi-byte sequence (a file edited by
// hand on Linux), Windows-1252 otherwise.
QString decodeIniText(const QByteArray& bytes);

}  // namespace ksv
