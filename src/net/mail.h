#pragma once
// Mail: what the desktop is asked to open for an address. Nothing
// is checked: an empty address gives an empty message.

#include <QString>
#include <QUrl>

namespace ksv {

// "mailto:" followed by the address, as given.
QUrl mailUrl(const QString& address);

}  // namespace ksv
