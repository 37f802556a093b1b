#pragma once
// The operations on customers and agents. There is no customer table: a
// customer is a name with the e-mail and remark its bookings carry, so every
// change here is a walk over the rows of Reservation.

#include <QList>
#include <QString>

#include "customer_context.h"
#include "printed_list.h"

namespace ksv {

class Recordset;

// The lines of RQ_Customer or RQ_Agent (`queryName`), in the query's order.
QList<CustomerRow> Dessin_Customer(const CustomerContext& ctx, const QString& queryName);

// True when a booking of any kind (R_TB) bears `name`, case aside. Behind
// the booking dialogs' warning "You already have a customer ...".
bool Customer_Search(const CustomerContext& ctx, const QString& name);
// The warning to show when Customer_Search found the name.
int customerSearchWarning(const QString& queryName);

// Writes `now` on every booking row whose Nom, Email and Remarque equal `old`
// (Null as "", case aside: the rows the list shows as that line). Returns the rows changed; none shows "The customer cannot be
// found". All rows change or none.
int Customer_Modify(const CustomerContext& ctx, const CustomerRow& old, const CustomerRow& now);

// What Unify does with a run whose grouped remark passes 250 characters.
enum class MergeChoice { Leave, Stopper, Cut };

struct MergeCounts {
  int left = 0;     // runs left as they stood
  int cut = 0;      // runs whose remark was cut
  int updated = 0;  // runs written
  bool stopped = false;
};

inline constexpr int kMaxRemark = 250;

// Unify: gathers the runs of one name over the whole list and writes each
// run's e-mail and grouped remark on its rows, then shows the two counts.
MergeCounts Customer_Merge(const CustomerContext& ctx, const QString& queryName, MergeChoice choice);

// Writes `email` and `remark` on every row of `R_TB` (the Reservation table)
// named `nom`, case aside. Returns the rows changed.
int Customer_Merge_Update(Recordset& R_TB, const QString& nom, const QString& email, const QString& remark);

// The export file for the list in force and the language of the texts.
QString customerExportFileName(const QString& queryName, const Texts& texts);
// One line of the export file, without its record separator.
QString customerExportLine(const CustomerRow& row);
// Announces, then writes the file into the planning's folder. Returns true
// when the file was written; false when cancelled or it could not be written
// (which the user is told).
bool Customer_Export(const CustomerContext& ctx, const QString& queryName);

// The list as Customer_Print lays it out.
PrintedList customerPrintedList(const Texts& texts, const QString& queryName, const QList<CustomerRow>& rows);

}  // namespace ksv
