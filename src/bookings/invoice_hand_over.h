#pragma once
// What the booking dialogs hand to the invoice window. The invoicing
// subsystem implements InvoiceWindow; until a planning has one, the dialogs
// disable their invoice button.

#include <QDate>
#include <QString>

#include "config/option_reader.h"

namespace ksv {

struct InvoiceHandOver {
  QString Nom;                 // the customer, in the colours of its state
  Colour back = 0, fore = 0;
  QString Remark;
  QString InvNb;               // blank: no invoice yet
  QDate DtFrom, DtTo;          // the stay, or part 1 of a split one
  int Days = 0;
  QString Resource;            // without a final "*"
  QDate DtFromS, DtToS;        // part 2 of a split booking; null otherwise
  int DaysS = 0;
  QString ResourceS;
  QDate GrpDtFrom, GrpDtTo;    // a group's period; null otherwise
  qint16 GroupNb = 0;          // the group handed over; 0 otherwise
};

class InvoiceWindow {
 public:
  virtual ~InvoiceWindow() = default;
  // Shows the invoice window modally on what the dialog handed over.
  virtual void show(const InvoiceHandOver& handOver) = 0;
};

// A resource name as an invoice shows it: a final "*" (kept out of results) cut.
inline QString invoiceResource(const QString& resource) {
  return resource.endsWith(QLatin1Char('*')) ? resource.chopped(1) : resource;
}

}  // namespace ksv
