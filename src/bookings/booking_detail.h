#pragma once
// The detail zones the worklist and the history show for the stay in hand,
// the remark written back to it (and to its other split part), and the cut of
// a remark on paper.

#include <QDate>
#include <QString>
#include <QStringList>

#include "config/option_reader.h"

namespace ksv {

class Database;
class Recordset;
struct LoadedOptions;

// A text field of the current row; Null reads as "".
QString textOf(const Recordset& rs, const char* name);

struct BookingDetail {
  QString Resource, Nom, Email, Remarque;
  QDate Dt_Deb, Dt_Fin;
  int NB_Jour = 0;  // nights: Date_fin minus Date_deb
  int HowMany = 0;
  QString Lib_Alarm;  // the name of the state `Couleur`
  Colour back = 0, fore = 0;
  bool Split = false;  // a part of a split booking: `Lib_split` and the box show
};

// The zones of the current row of `rs` (a row of Reservation); Null texts read "".
BookingDetail readBookingDetail(const Recordset& rs, const LoadedOptions& options);

// Which row of Reservation a booking is, for the record sets that cannot
// write (a union) and for opening the booking elsewhere.
struct BookingIdentity {
  QString Resource, Nom, GroupId, Split;
  QDate Date_Deb, Date_Fin;
  int Couleur = 0;
};
BookingIdentity identityOf(const Recordset& rs);
// The rowid of the first row of Reservation with that identity; -1 when none.
qint64 locateBooking(Database& db, const BookingIdentity& b);

// Writes `remark` to the current row of `rs` (through the table when `rs`
// cannot write), then to the other part of a split booking: equal Nom,
// Couleur and GroupId, and Split "2" beginning on this row's end or Split "1"
// ending on its beginning.
void saveRemark(Database& db, Recordset& rs, const QString& remark);

// A remark as printed under its row: cut at its line ends and at 50
// characters, each line beginning " > ".
QStringList printedRemark(const QString& remark);

}  // namespace ksv
