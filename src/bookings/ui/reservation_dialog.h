#pragma once
// `Reservation`, the window of a whole booking, over its presenter.

#include "bookings/reservation_modify.h"
#include "booking_edit_widgets.h"

class QCheckBox;

namespace ksv {

class ReservationDialog : public BookingEditDialog {
  Q_OBJECT
 public:
  ReservationDialog(ReservationPresenter& presenter, BookingContext& ctx, QWidget* parent = nullptr);
  void showValues() override;

 private:
  ReservationPresenter& p_;
  CustomerFields* fields_;
  CalendarBox* CalF_;
  CalendarBox* CalT_;
  QLabel* NB_Jour_;
  QLabel* FirstDate_;
  QLabel* LastDate_;
  ResourceLists* lists_;
  QCheckBox* Bloc_;
};

// Shows the booking in the buffer of ctx.records, modally. Returns OpenGroup:
// true when the group dialog is to open next.
bool showReservation(BookingContext& ctx, QWidget* parent);

}  // namespace ksv
