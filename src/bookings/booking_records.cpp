#include "booking_records.h"

#include "booking_detail.h"
#include "core/messages.h"
#include "core/number_text.h"
#include "core/texts.h"
#include "storage/query_command.h"
#include "storage/recordset.h"
#include "storage/sqlite_db.h"

namespace ksv {

namespace {

// The invoice number a text stands for: Null when blank.
QVariant invoiceNumber(const QString& text) {
  if (text.trimmed().isEmpty()) return QVariant();
  return val(text);
}

// One update of the row; a refused value leaves no edit pending behind it,
// so that the next move does not try to write it again.
template <typename Write>
void updateRow(Recordset& target, Write write) {
  try {
    write();
    target.update();
  } catch (...) {
    target.cancelUpdate();
    throw;
  }
}

}  // namespace

BookingRecords::BookingRecords(Database& db, const Clock& clock, Messages& messages, const Texts& texts)
    : db_(db), clock_(clock), messages_(messages), texts_(texts) {}

Recordset& BookingRecords::rs() const {
  if (!rs_) throw StorageError(0, QStringLiteral("No booking view is open"), QStringLiteral("Reservation"));
  return *rs_;
}

Recordset& BookingRecords::rtb() const {
  if (!rtb_) throw StorageError(0, QStringLiteral("The booking table is not open"), QStringLiteral("Reservation"));
  return *rtb_;
}

void BookingRecords::moveToCurrent() const { rs().setAbsolutePosition(I_L + 1); }

void BookingRecords::readClickedBooking() {
  moveToCurrent();
  const Recordset& r = rs();
  DD_L = dayOf(r.field("Date_Deb"));
  DF_L = dayOf(r.field("Date_Fin"));
  Nom_L = textOf(r, "Nom");
  Email_L = textOf(r, "Email");
  Rem_L = textOf(r, "Remarque");
  HowMany_L = qint16(r.field("HowMany").toInt());
  InvNb_L = textOf(r, "InvNb");
  Split_L = textOf(r, "Split");
  Res_L = textOf(r, "Resource");
  Bloc_L = r.field("Blocage").toBool();
  Color_L = qint16(r.field("Couleur").toInt());
  GroupId_L = textOf(r, "GroupId");
  GroupNb_L = qint16(r.field("GroupNb").toInt());
  Res_S = Res_L;
  DD_S = DD_L;
  DF_S = DF_L;
}

void BookingRecords::writeBuffer(Recordset& t) {
  // A group header has no resource, but the column takes no empty name. A
  // stay is never given the placeholder: it would stand on no board.
  const bool header = Split_L == QLatin1String("3");
  t.setField("Resource", header && Res_L.isEmpty() ? kHeaderResource : Res_L);
  t.setField("Nom", Nom_L);
  t.setField("Email", Email_L);
  t.setField("HowMany", HowMany_L);
  t.setField("Remarque", Rem_L);
  // A blank number never clears a link here: only the invoice operations do.
  if (!InvNb_L.isEmpty()) t.setField("InvNb", invoiceNumber(InvNb_L));
  t.setField("Blocage", Bloc_L);
  t.setField("Couleur", Color_L);
  t.setField("Split", Split_L);
  t.setField("Date_Deb", DD_L);
  t.setField("Date_Fin", DF_L);
  t.setField("GroupId", GroupId_L);
  t.setField("GroupNb", GroupNb_L);
}

void BookingRecords::Creer_Reservation() {
  Recordset& t = rs();
  t.addNew();
  updateRow(t, [&] { writeBuffer(t); });
}

void BookingRecords::MAJ_Reservation() {
  moveToCurrent();
  Recordset& t = rs();
  updateRow(t, [&] { writeBuffer(t); });
}

void BookingRecords::MAJ_ReservationSplit() {
  Recordset& t = rtb();
  updateRow(t, [&] { writeBuffer(t); });
}

void BookingRecords::MAJ_Recherche() {
  Recordset& t = rtb();
  // Read again: the row sought may have been written through RS since.
  t.requery();
  for (t.moveFirst(); !t.isEOF(); t.moveNext()) {
    if (textOf(t, "Nom") == Nom_L && textOf(t, "Resource") == Res_S &&
        textOf(t, "GroupId") == GroupId_L && dayOf(t.field("Date_Deb")) == DD_S &&
        dayOf(t.field("Date_Fin")) == DF_S) {
      MAJ_ReservationSplit();
      return;
    }
  }
  messages_.exclamation(texts_.get(txt::MovedBookingLost));
}

void BookingRecords::UpdateInvNbReservation(const QString& invNb) {
  moveToCurrent();
  Recordset& t = rs();
  updateRow(t, [&] { t.setField("InvNb", invoiceNumber(invNb)); });
}

void BookingRecords::UpdateInvNbReservationSplit(const QString& invNb) {
  UpdateInvNbReservation(invNb);
  Recordset& t = rtb();
  updateRow(t, [&] { t.setField("InvNb", invoiceNumber(invNb)); });
}

void BookingRecords::UpdateInvNbInReservation(qint32 WaitNb, const QString& invNb) {
  QueryCommand command = QueryCatalogue(db_, clock_).command(QStringLiteral("RQ_ReservationInvNb"));
  command.setParameter(0, WaitNb);
  Recordset rows = command.openRecordset();
  const QVariant number = invoiceNumber(invNb);
  // All the bookings of the invoice change together or none does; a caller
  // that saves the invoice in its own transaction keeps it.
  JoinedTransaction transaction(db_);
  for (rows.moveFirst(); !rows.isEOF(); rows.moveNext())
    updateRow(rows, [&] { rows.setField("InvNb", number); });
  transaction.commit();
}

void BookingRecords::Supprimer_Reservation() {
  moveToCurrent();
  rs().deleteRecord();
}

void BookingRecords::Delete_Split() { rtb().deleteRecord(); }

void BookingRecords::Found_Other_SplitPart() {
  Recordset& t = rtb();
  t.requery();
  for (t.moveFirst(); !t.isEOF(); t.moveNext()) {
    if (textOf(t, "Nom") != Nom_L || t.field("Couleur").toInt() != Color_L ||
        textOf(t, "GroupId") != GroupId_L)
      continue;
    const QString split = textOf(t, "Split");
    // The parts touch: the second starts on the day the first leaves.
    const bool isSecond = Split_L == QLatin1String("1") && split == QLatin1String("2") &&
                          dayOf(t.field("Date_Deb")) == DF_L;
    const bool isFirst = Split_L == QLatin1String("2") && split == QLatin1String("1") &&
                         dayOf(t.field("Date_Fin")) == DD_L;
    if (isSecond || isFirst) {
      Flg_OkCl = true;
      return;
    }
  }
  messages_.exclamation(texts_.get(txt::SplitPartLost));
  Flg_OkCl = false;
  Split_L = QStringLiteral("0");
  MAJ_Reservation();
  if (Dessiner_Ecran) Dessiner_Ecran();
}

}  // namespace ksv
