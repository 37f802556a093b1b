#pragma once
// The worklist's "To look at" list: stays that need a look before they are
// forgotten, each with the reasons in words.
//  - a stay that has left, or leaves today, with no invoice or a pending one
//    (a split booking counts once, by its second part);
//  - a guest of the black list arriving from today to the end of the arrival
//    window;
//  - a booking whose resource no longer exists.
// Names ending in "*" are left out of the invoice test, as of every alarm.

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

namespace ksv {

class Database;
class Recordset;
class Texts;

struct WorklistException {
  qint64 rowId = -1;  // the booking's row of Reservation
  QString Resource, Nom, Email;
  QDate Date_Deb, Date_Fin;
  QStringList reasons;  // in words, in the order found
};

// Every stay to look at, in this order: missing resources, black-listed
// arrivals, then invoices, latest leaving first. `blackList` is the
// `BlackList` query's rows.
QList<WorklistException> findWorklistExceptions(Database& db, Recordset& blackList, const Texts& texts, QDate today,
                                                QDate arrivalEnd);

}  // namespace ksv
