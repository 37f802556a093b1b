#include "invoice_catalogue.h"

#include "invoice_amounts.h"
#include "storage/query_command.h"
#include "storage/recordset.h"

namespace ksv {
namespace {

Recordset sorted(Database& db, const Clock& clock, const QString& name) {
  QueryCommand rq = QueryCatalogue(db, clock).command(name);
  return Recordset::openQuery(db, rq.sql(), rq.boundValues());
}

QString flag(bool yes) { return yes ? QStringLiteral("Y") : QStringLiteral("N"); }

}  // namespace

InvoiceCatalogue InvoiceCatalogue::read(Database& db, const Clock& clock) {
  InvoiceCatalogue c;
  Recordset d = sorted(db, clock, QStringLiteral("DesignationSort"));
  for (d.moveFirst(); !d.isEOF(); d.moveNext())
    c.services.push_back({d.field(QStringLiteral("Designation")).toString(), d.field(QStringLiteral("UnitPrice")).toFloat()});
  Recordset m = sorted(db, clock, QStringLiteral("ModificationSort"));
  for (m.moveFirst(); !m.isEOF(); m.moveNext())
    c.modifiers.push_back({m.field(QStringLiteral("Modification")).toString(), m.field(QStringLiteral("Fixed")).toFloat(),
                           m.field(QStringLiteral("Rate")).toFloat(), m.field(QStringLiteral("Included")).toBool(),
                           m.field(QStringLiteral("AddUp")).toBool(), m.field(QStringLiteral("Printed")).toBool()});
  Recordset p = sorted(db, clock, QStringLiteral("PaymentSort"));
  for (p.moveFirst(); !p.isEOF(); p.moveNext()) c.payments << p.field(QStringLiteral("Payment")).toString();
  return c;
}

QStringList InvoiceCatalogue::serviceItems(const Regional& regional) const {
  QStringList items;
  for (const ServiceAccount& s : services)
    items << s.name + QStringLiteral(" [") + plainNumber(s.UnitPrice, 7, regional) + QLatin1Char(']');
  return items;
}

QStringList InvoiceCatalogue::modifierItems(const Regional& regional) const {
  QStringList items;
  const QChar sep = QLatin1Char('\\');
  for (const ModifierAccount& m : modifiers)
    items << m.name + QStringLiteral(" [") + plainNumber(m.Fixed, 7, regional) + sep + plainNumber(m.Rate, 7, regional) +
                 sep + flag(m.Included) + sep + flag(m.AddUp) + sep + flag(m.Printed) + QLatin1Char(']');
  return items;
}

const ServiceAccount* InvoiceCatalogue::service(const QString& name) const {
  for (const ServiceAccount& s : services)
    if (s.name.compare(name, Qt::CaseInsensitive) == 0) return &s;
  return nullptr;
}

const ModifierAccount* InvoiceCatalogue::modifier(const QString& name) const {
  for (const ModifierAccount& m : modifiers)
    if (m.name.compare(name, Qt::CaseInsensitive) == 0) return &m;
  return nullptr;
}

bool InvoiceCatalogue::hasPayment(const QString& name) const { return payments.contains(name, Qt::CaseInsensitive); }

QString itemName(const QString& item) {
  const int bracket = item.indexOf(QLatin1Char('['));
  if (bracket < 0) return item;
  QString name = item.left(bracket);
  if (name.endsWith(QLatin1Char(' '))) name.chop(1);
  return name;
}

}  // namespace ksv
