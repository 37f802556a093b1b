#pragma once
// `ReservationSplit`, the window of a booking stored as two parts, over its
// presenter.

#include <array>

#include "bookings/reservation_split.h"
#include "booking_edit_widgets.h"

class QCheckBox;

namespace ksv {

class ReservationSplitDialog : public BookingEditDialog {
  Q_OBJECT
 public:
  ReservationSplitDialog(ReservationSplitPresenter& presenter, BookingContext& ctx, QWidget* parent = nullptr);
  void showValues() override;

 private:
  ReservationSplitPresenter& p_;
  CustomerFields* fields_;
  CalendarBox* CalF_;
  CalendarBox* CalS_;
  CalendarBox* CalT_;
  QLabel* NB_Jour1_;
  QLabel* NB_Jour2_;
  QLabel* FirstDate_;
  QLabel* LastDate_;
  std::array<ResourceLists*, 2> lists_{};
  std::array<QCheckBox*, 2> Bloc_{};
};

// Shows the split booking in the buffer of ctx.records, R_TB standing on its
// other part, modally. Returns OpenGroup.
bool showReservationSplit(BookingContext& ctx, QWidget* parent);

}  // namespace ksv
