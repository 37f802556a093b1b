#pragma once
// The search box above the customer and black lists: a row matches when any of
// its texts holds the typed text, without regard to case or accents, so that
// "helene" finds "Hélène".

#include <QString>
#include <QStringList>

namespace ksv {

// Lower case without diacritics ("É" -> "e", "ç" -> "c").
QString foldForSearch(const QString& text);

// True when `term` is empty or stands in one of `fields` once both are folded.
bool matchesSearch(const QStringList& fields, const QString& term);

}  // namespace ksv
