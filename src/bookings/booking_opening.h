#pragma once
// Opening a booking read from the board: a split booking opens its split
// dialog once its other part is found, a whole one the booking dialog, and
// either may ask for the group dialog next.

#include "board/gesture_records.h"

namespace ksv {

class BookingRecords;

// The buffer holds the clicked booking. Returns false when nothing opened
// because the other split part is lost (the remaining part is whole now).
bool openBooking(BookingRecords& records, const BookingDialogOpeners& open);

}  // namespace ksv
