#pragma once
// The accounts the invoice window's choosers offer: services, modifiers and
// payments as the sorted catalogue queries give them, their chooser items
// ("name [values]") and the look-up of a chosen name.

#include <optional>
#include <vector>

#include <QString>
#include <QStringList>

#include "core/regional.h"

namespace ksv {

class Clock;
class Database;

struct ServiceAccount {
  QString name;
  float UnitPrice = 0;
};

struct ModifierAccount {
  QString name;
  float Fixed = 0;
  float Rate = 0;  // percent
  bool Included = true;
  bool AddUp = false;
  bool Printed = true;
};

struct InvoiceCatalogue {
  std::vector<ServiceAccount> services;
  std::vector<ModifierAccount> modifiers;
  QStringList payments;

  // The whole catalogues, through DesignationSort, ModificationSort, PaymentSort.
  static InvoiceCatalogue read(Database& db, const Clock& clock);

  // Chooser items: "Room [85]", "Tax [0\10\Y\N\Y]", "Cash".
  QStringList serviceItems(const Regional& regional) const;
  QStringList modifierItems(const Regional& regional) const;

  // The catalogue's row of a name, compared without regard to case as the store does.
  const ServiceAccount* service(const QString& name) const;
  const ModifierAccount* modifier(const QString& name) const;
  bool hasPayment(const QString& name) const;
};

// An item reduced to its name: everything before the first "[", less the blank before it.
QString itemName(const QString& item);

}  // namespace ksv
