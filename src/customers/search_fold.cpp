#include "search_fold.h"

namespace ksv {

QString foldForSearch(const QString& text) {
  const QString decomposed = text.normalized(QString::NormalizationForm_KD);
  QString out;
  out.reserve(decomposed.size());
  for (const QChar c : decomposed) {
    const auto category = c.category();
    if (category == QChar::Mark_NonSpacing || category == QChar::Mark_SpacingCombining ||
        category == QChar::Mark_Enclosing)
      continue;
    out.append(c);
  }
  // Letters with no decomposition that a French keyboard user types plainly.
  out.replace(QChar(0x00DF), QLatin1String("ss"));
  out.replace(QChar(0x0153), QLatin1String("oe"));
  out.replace(QChar(0x0152), QLatin1String("oe"));
  out.replace(QChar(0x00E6), QLatin1String("ae"));
  out.replace(QChar(0x00C6), QLatin1String("ae"));
  return out.toCaseFolded();
}

bool matchesSearch(const QStringList& fields, const QString& term) {
  const QString folded = foldForSearch(term.trimmed());
  if (folded.isEmpty()) return true;
  for (const QString& field : fields)
    if (foldForSearch(field).contains(folded)) return true;
  return false;
}

}  // namespace ksv
