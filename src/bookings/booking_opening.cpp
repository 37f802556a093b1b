#include "booking_opening.h"

#include "booking_records.h"
#include "core/number_text.h"

namespace ksv {

bool openBooking(BookingRecords& records, const BookingDialogOpeners& open) {
  bool OpenGroup = false;
  if (val(records.Split_L) != 0) {
    records.Found_Other_SplitPart();
    if (!records.Flg_OkCl) return false;
    OpenGroup = open.ReservationSplit && open.ReservationSplit();
  } else {
    OpenGroup = open.Reservation && open.Reservation();
  }
  if (OpenGroup && open.ReservationGrp) open.ReservationGrp();
  return true;
}

bool BookingRecords::openBooking(const BookingDialogOpeners& open) { return ksv::openBooking(*this, open); }

}  // namespace ksv
