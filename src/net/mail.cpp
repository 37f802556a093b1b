#include "mail.h"

namespace ksv {

QUrl mailUrl(const QString& address) { return QUrl(QStringLiteral("mailto:") + address); }

}  // namespace ksv
