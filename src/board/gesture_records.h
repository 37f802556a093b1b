#pragma once
// What the board's gestures need of the bookings: read the pressed booking,
// move a dropped one, open a clicked one. The board knows no booking rows; the
// bookings folder fills this with its record operations.

#include <functional>

#include "booking_buffer.h"

namespace ksv {

// The dialogs a clicked booking may open, modal; the caller fills them.
struct BookingDialogOpeners {
  std::function<bool()> Reservation;       // modal; returns OpenGroup
  std::function<bool()> ReservationSplit;  // modal, R_TB on the other part; returns OpenGroup
  std::function<void()> ReservationGrp;    // modal
};

class GestureRecords : public BookingBuffer {
 public:
  virtual ~GestureRecords() = default;

  // Redraws the board after a lost split part became a whole booking.
  std::function<void()> Dessiner_Ecran;

  // The row at I_L of the board view into the buffer, its identity kept in
  // Res_S, DD_S, DF_S.
  virtual void readClickedBooking() = 0;
  // Writes the buffer's resource and dates over the booking read as Res_S,
  // DD_S, DF_S.
  virtual void MAJ_Recherche() = 0;
  // Opens the buffer's booking with `open`. False when nothing opened because
  // the other split part is lost (the remaining part is whole now).
  virtual bool openBooking(const BookingDialogOpeners& open) = 0;
};

}  // namespace ksv
