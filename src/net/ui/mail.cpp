#include "mail.h"

#include <QDesktopServices>

#include "net/mail.h"

namespace ksv {

bool Mail(const QString& address) { return QDesktopServices::openUrl(mailUrl(address)); }

}  // namespace ksv
