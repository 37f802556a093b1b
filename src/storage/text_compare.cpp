#include "text_compare.h"

namespace ksv {

QString sameTextKey(const QString& text) {
  QString key = text;
  for (QChar& c : key)
    if (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) c = QChar(c.unicode() + ('a' - 'A'));
  return key;
}

bool sameText(const QString& a, const QString& b) { return a.size() == b.size() && sameTextKey(a) == sameTextKey(b); }

}  // namespace ksv
