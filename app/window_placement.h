#pragma once
// M_Memorize and M_Restore: the window's place kept in WindowSize as height,
// width, top and left in twips, each followed by a backslash; empty when the
// window is maximised.

#include <optional>

#include <QRect>
#include <QString>

class QMainWindow;

namespace ksv {

QString windowSizeValue(const QRect& geometry, bool maximised);
// The rectangle kept in a WindowSize value, in pixels; nothing when empty or unreadable.
std::optional<QRect> windowSizeRect(const QString& value);

void M_Memorize(QMainWindow& window, class IniFile& ini);
void M_Restore(QMainWindow& window, class IniFile& ini);

}  // namespace ksv
