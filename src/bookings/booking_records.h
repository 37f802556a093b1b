#pragma once
// The operations that write booking rows. They work on two snapshots of the
// Reservation table: RS, the rows of the board view (I_L is a position in it),
// and R_TB, the whole table, which stays on the row its last walk found.
// Store faults are not caught here: they rise to the caller, with no edit
// left pending.
//
// Two bookings on one resource may overlap: nothing here refuses it; the
// availability rules are what warn about a taken resource.

#include <QString>

#include "board/gesture_records.h"

namespace ksv {

class Clock;
class Database;
class Messages;
class Recordset;
class Texts;

class BookingRecords : public GestureRecords {
 public:
  BookingRecords(Database& db, const Clock& clock, Messages& messages, const Texts& texts);

  // The board replaces RS at each redraw; the caller keeps both alive.
  void setRecordsets(Recordset* RS, Recordset* R_TB) {
    rs_ = RS;
    rtb_ = R_TB;
  }

  // Result of Found_Other_SplitPart.
  bool Flg_OkCl = false;

  // The row at I_L of RS into the buffer, Null texts as "", and the identity
  // kept in Res_S, DD_S, DF_S.
  void readClickedBooking() override;
  // Defined in booking_opening.cpp.
  bool openBooking(const BookingDialogOpeners& open) override;

  void Creer_Reservation();
  void MAJ_Reservation();
  void MAJ_ReservationSplit();
  void MAJ_Recherche() override;
  // `invNb` is the invoice window's number text: blank sets Null.
  void UpdateInvNbReservation(const QString& invNb);
  void UpdateInvNbReservationSplit(const QString& invNb);
  // Every booking of the pending invoice `WaitNb` takes the number `invNb`.
  void UpdateInvNbInReservation(qint32 WaitNb, const QString& invNb);
  void Supprimer_Reservation();
  void Delete_Split();
  void Found_Other_SplitPart();

 private:
  Recordset& rs() const;
  Recordset& rtb() const;
  void moveToCurrent() const;
  void writeBuffer(Recordset& target);

  Database& db_;
  const Clock& clock_;
  Messages& messages_;
  const Texts& texts_;
  Recordset* rs_ = nullptr;
  Recordset* rtb_ = nullptr;
};

}  // namespace ksv
