#include "reservation_modify.h"

#include "check_group_date.h"
#include "core/messages.h"
#include "core/texts.h"
#include "trous_search.h"

namespace ksv {

ReservationPresenter::ReservationPresenter(BookingContext& ctx) : BookingEditForm(ctx) {}

void ReservationPresenter::Form_Load() {
  const BookingRecords& b = ctx_.records;
  loadCommon();
  Bloc = b.Bloc_L;
  CalF.highest = ctx_.LastDate.addDays(-1);
  CalF.value = b.DD_L;
  CalT.highest = ctx_.LastDate;
  CalT.value = b.DF_L;
  // A booking that began before the board's first day stays editable.
  FirstDate = ctx_.FirstDate.isValid() && ctx_.FirstDate < b.DD_L ? ctx_.FirstDate : b.DD_L;
  LastDate = ctx_.LastDate;
  CalF.lowest = FirstDate;
  CalT.lowest = FirstDate.addDays(1);
  countDays();
  Load_Combo();
  changed = false;
}

void ReservationPresenter::Load_Combo() { choice.load(ctx_.availability, ctx_.options, ctx_.records.Res_L); }

void ReservationPresenter::countDays() { NB_Jour = int(CalF.value.daysTo(CalT.value)); }

void ReservationPresenter::CalF_DateClicked(QDate date) {
  CalF.value = date;
  countDays();
  changed = true;
}

void ReservationPresenter::CalT_DateClicked(QDate date) {
  CalT.value = date;
  countDays();
  changed = true;
}

void ReservationPresenter::Category_Click(int index) {
  choice.Category_Click(ctx_.availability, index);
  changed = true;
}

void ReservationPresenter::Resource_Click(int index) {
  choice.Resource_Click(index);
  changed = true;
}

void ReservationPresenter::toBuffer() {
  BookingRecords& b = ctx_.records;
  b.Res_L = choice.Resource;
  commonToBuffer();
  b.DD_L = CalF.value;
  b.DF_L = CalT.value;
  b.Bloc_L = Bloc;
}

bool ReservationPresenter::Modify_Click() {
  if (CheckGroupDate(ctx_, ctx_.records.GroupNb_L, CalF.value, CalT.value)) {
    changed = true;
    countDays();
    showRefresh();
  }
  if (NB_Jour <= 0) {
    ctx_.messages.information(ctx_.texts.get(txt::CalendarFromBeforeTo));
    return false;
  }
  if (!nameGiven()) return false;
  toBuffer();
  if (!write([this] { ctx_.records.MAJ_Reservation(); })) return false;
  done();
  return true;
}

bool ReservationPresenter::Split_Click() {
  if (NB_Jour < 2) {
    ctx_.messages.information(ctx_.texts.get(txt::ModifSplitOneDay));
    return false;
  }
  BookingRecords& b = ctx_.records;
  const QString wasSplit = b.Split_L;
  const bool written = write([this, &b] {
    // The booking becomes the first part, one day long; the second part is
    // a new row for the rest of the stay, on the same resource.
    b.Split_L = QStringLiteral("1");
    toBuffer();
    b.DF_L = b.DD_L.addDays(1);
    b.MAJ_Reservation();
    const QDate cut = b.DF_L;
    b.Split_L = QStringLiteral("2");
    toBuffer();
    b.DD_L = cut;
    b.DF_L = CalT.value;
    b.Creer_Reservation();
  });
  if (!written) {
    b.Split_L = wasSplit;
    return false;
  }
  done();
  return true;
}

bool ReservationPresenter::Supprimer_Click() {
  if (!ctx_.messages.askYesNo(ctx_.texts.get(txt::ModifDeleteQuestion), MsgAnswer::No, MsgIcon::Critical))
    return false;
  const bool written = write([this] {
    deleteInvoice();
    ctx_.records.Supprimer_Reservation();
  });
  if (!written) return false;
  done();
  return true;
}

void ReservationPresenter::Holes_Click() {
  if (!ctx_.windows.Trous) return;
  const BookingRecords& b = ctx_.records;
  TrousSearch trous = holesSearch(2, CalF.value, CalT.value, choice);
  // The booking as stored must not block its own resource.
  trous.editing = {{b.Res_S, b.Nom_L, b.DD_S, b.DF_S}};
  const std::optional<HoleChoice> hole = ctx_.windows.Trous(trous);
  if (!hole || !hole->toBooking) return;
  choice.Category_Click(ctx_.availability, hole->category);
  choice.Resource = hole->resource;
  changed = true;
  showRefresh();
}

InvoiceHandOver ReservationPresenter::invoiceHandOver() const {
  InvoiceHandOver h = invoiceHandOverCommon();
  h.DtFrom = CalF.value;
  h.DtTo = CalT.value;
  h.Days = NB_Jour;
  h.Resource = invoiceResource(choice.Resource);
  return h;
}

void ReservationPresenter::CdInvoice_Click() {
  if (ctx_.invoice) ctx_.invoice->show(invoiceHandOver());
}

}  // namespace ksv
