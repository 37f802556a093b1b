#pragma once
// Remarks are stored with CR LF line ends and at most 250 characters; a text
// box edits them with plain line feeds.

#include <QString>

namespace ksv {

inline QString remarkForEdit(const QString& stored) {
  return QString(stored).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

inline QString remarkFromEdit(const QString& edited) {
  return QString(edited).replace(QLatin1Char('\n'), QLatin1String("\r\n")).left(250);
}

}  // namespace ksv
