#pragma once
// `Mail(address)`: the desktop's mail handler opens on a message to the
// address (the `cmdSendEmail` buttons of the booking dialogs).

#include <QString>

namespace ksv {

// Asks the desktop to open mailUrl(address); false when no handler took it.
bool Mail(const QString& address);

}  // namespace ksv
