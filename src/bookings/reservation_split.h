#pragma once
// `ReservationSplit`: the dialog of a booking stored as two touching parts.
// A click on either part opens it: the clicked part is in the buffer (row
// I_L of RS), the other is the current row of R_TB, where
// Found_Other_SplitPart left it. It edits both parts, merges them back into
// one booking, or deletes both.

#include <array>

#include "booking_edit_form.h"

namespace ksv {

class ReservationSplitPresenter : public BookingEditForm {
 public:
  explicit ReservationSplitPresenter(BookingContext& ctx);

  // Start of part 1, the cut, end of part 2.
  CalendarField CalF, CalS, CalT;
  QDate FirstDate, LastDate;  // the labels: the bounds the calendars allow
  int NB_Jour1 = 0, NB_Jour2 = 0;
  std::array<ResourceChoice, 2> parts;  // Category(i), Resource(i)
  std::array<bool, 2> Bloc{};

  void Form_Load();
  void CalF_DateClicked(QDate date);
  void CalS_DateClicked(QDate date);
  void CalT_DateClicked(QDate date);
  void Category_Click(int part, int index);
  void Resource_Click(int part, int index);
  void setBloc(int part, bool checked);

  // Each returns true when the dialog closed on it.
  bool Modify_Click() override;
  bool Merge_Click();
  bool Supprimer_Click();
  // Trous for part 1 (CalF to CalS), part 2 (CalS to CalT), or the whole stay.
  void Holes1_Click() { holes(3); }
  void Holes2_Click() { holes(4); }
  void Holes_Click() { holes(5); }
  void CdInvoice_Click();
  InvoiceHandOver invoiceHandOver() const;

  // The part the user clicked on the board: 0 or 1.
  int clickedPart() const { return clicked_; }

 private:
  void countDays();
  // One part's values into the buffer, with its Split.
  void partToBuffer(int part);
  bool datesCorrect();
  void holes(int mode);

  int clicked_ = 0;
  SkippedBooking other_;  // the R_TB row as it was read
};

}  // namespace ksv
