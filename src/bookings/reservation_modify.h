#pragma once
// `Reservation`: the dialog of a whole booking. It changes any field, deletes
// the booking, splits it in two, hands it to the invoice and leads to its
// group. The clicked booking is in the buffer of ctx.records.

#include "booking_edit_form.h"

namespace ksv {

class ReservationPresenter : public BookingEditForm {
 public:
  explicit ReservationPresenter(BookingContext& ctx);

  CalendarField CalF, CalT;
  QDate FirstDate, LastDate;  // the labels: the bounds the calendars allow
  int NB_Jour = 0;
  ResourceChoice choice;  // Category and Resource
  bool Bloc = false;

  void Form_Load();
  void Load_Combo();
  void CalF_DateClicked(QDate date);
  void CalT_DateClicked(QDate date);
  void Category_Click(int index);
  void Resource_Click(int index);
  void setBloc(bool checked) { Bloc = checked; }

  // Each returns true when the dialog closed on it.
  bool Modify_Click() override;
  bool Split_Click();
  bool Supprimer_Click();
  // Trous for the booking's period; a chosen resource becomes the booking's.
  void Holes_Click();
  void CdInvoice_Click();
  InvoiceHandOver invoiceHandOver() const;

 private:
  // The dialog into the buffer; Split_L, GroupId_L, GroupNb_L keep theirs.
  void toBuffer();
  void countDays();
};

}  // namespace ksv
