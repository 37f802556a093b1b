#include "window_placement.h"

#include <QMainWindow>

#include "config/ini_file.h"
#include "core/list_value.h"

namespace ksv {
namespace {
constexpr int kTwipsPerPixel = 15;
}

QString windowSizeValue(const QRect& g, bool maximised) {
  if (maximised) return QString();
  return joinList({QString::number(g.height() * kTwipsPerPixel), QString::number(g.width() * kTwipsPerPixel),
                   QString::number(g.top() * kTwipsPerPixel), QString::number(g.left() * kTwipsPerPixel)});
}

std::optional<QRect> windowSizeRect(const QString& value) {
  if (value.isEmpty()) return std::nullopt;
  const QStringList v = splitList(value, 4);
  bool ok[4];
  int n[4];
  for (int i = 0; i < 4; ++i) n[i] = v[i].toInt(&ok[i]) / kTwipsPerPixel;
  if (!(ok[0] && ok[1] && ok[2] && ok[3]) || n[0] <= 0 || n[1] <= 0) return std::nullopt;
  return QRect(n[3], n[2], n[1], n[0]);
}

void M_Memorize(QMainWindow& window, IniFile& ini) {
  ini.SetValue("Remember", "WindowSize", windowSizeValue(window.geometry(), window.isMaximized()));
}

void M_Restore(QMainWindow& window, IniFile& ini) {
  const auto rect = windowSizeRect(ini.GetValue("Remember", "WindowSize"));
  if (!rect) {
    window.setWindowState(Qt::WindowMaximized);
    return;
  }
  window.setWindowState(Qt::WindowNoState);
  window.setGeometry(*rect);
}

}  // namespace ksv
