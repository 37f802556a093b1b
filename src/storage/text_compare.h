#pragma once
// Texts compared the way the planning file compares them: its text columns are
// NOCASE, which folds A-Z and nothing else. Code that picks rows by a name the
// file already grouped (the customer list's DISTINCT lines, a black-list row)
// uses these, so that it reaches exactly the rows the list shows as one.

#include <QString>

namespace ksv {

// Equal without regard to the case of A-Z, like two NOCASE columns.
bool sameText(const QString& a, const QString& b);

// A key equal for two texts exactly when sameText holds.
QString sameTextKey(const QString& text);

}  // namespace ksv
