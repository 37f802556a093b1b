#include "booking_buffer.h"

#include <QDateTime>

namespace ksv {

QDate dayOf(const QVariant& value) {
  if (value.isNull()) return {};
  if (value.typeId() == QMetaType::QDateTime) return value.toDateTime().date();
  return value.toDate();
}

}  // namespace ksv
