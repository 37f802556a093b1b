#pragma once
// Colour values of the options and themes are blue-green-red integers.

#include <QColor>

namespace ksv {

inline QColor bgrColor(int value) { return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF); }

}  // namespace ksv
