#pragma once
// Opening a booking read from the board: a split booking opens its split
// dialog once its other part is found, a whole one the booking dialog, and
// either may ask for the group dialog next.

#include <functional>

namespace ksv {

class BookingRecords;

struct BookingDialogOpeners {
  std::function<bool()> Reservation;       // modal; returns OpenGroup
  std::function<bool()> ReservationSplit;  // modal, R_TB on the other part; returns OpenGroup
  std::function<void()> ReservationGrp;    // modal
};

// The buffer holds the clicked booking. Returns false when nothing opened
// because the other split part is lost (the remaining part is whole now).
bool openBooking(BookingRecords& records, const BookingDialogOpeners& open);

}  // namespace ksv
