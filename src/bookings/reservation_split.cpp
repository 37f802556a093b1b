#include "reservation_split.h"

#include "booking_detail.h"
#include "check_group_date.h"
#include "core/messages.h"
#include "core/texts.h"
#include "storage/planning_session.h"
#include "storage/recordset.h"
#include "trous_search.h"

namespace ksv {


ReservationSplitPresenter::ReservationSplitPresenter(BookingContext& ctx) : BookingEditForm(ctx) {}

void ReservationSplitPresenter::Form_Load() {
  const BookingRecords& b = ctx_.records;
  const Recordset& other = ctx_.objects.Reservation;  // R_TB, on the other part
  loadCommon();
  CalF.highest = ctx_.LastDate.addDays(-2);
  CalS.highest = ctx_.LastDate.addDays(-1);
  CalT.highest = ctx_.LastDate;

  const QString otherResource = textOf(other, "Resource");
  const QDate otherFirst = dayOf(other.field(QStringLiteral("Date_Deb")));
  const QDate otherLast = dayOf(other.field(QStringLiteral("Date_Fin")));
  const bool otherLocked = other.field(QStringLiteral("Blocage")).toBool();
  other_ = {otherResource, textOf(other, "Nom"), otherFirst, otherLast};

  clicked_ = b.Split_L == QLatin1String("2") ? 1 : 0;
  const int otherPart = 1 - clicked_;
  parts[size_t(clicked_)].load(ctx_.availability, ctx_.options, b.Res_L);
  parts[size_t(otherPart)].load(ctx_.availability, ctx_.options, otherResource);
  Bloc[size_t(clicked_)] = b.Bloc_L;
  Bloc[size_t(otherPart)] = otherLocked;
  if (clicked_ == 0) {
    CalF.value = b.DD_L;
    CalS.value = b.DF_L;
    CalT.value = otherLast;
  } else {
    CalF.value = otherFirst;
    CalS.value = b.DD_L;
    CalT.value = b.DF_L;
  }
  // A stay that began before the board's first day stays editable.
  FirstDate = ctx_.FirstDate.isValid() && ctx_.FirstDate < CalF.value ? ctx_.FirstDate : CalF.value;
  LastDate = ctx_.LastDate;
  CalF.lowest = FirstDate;
  CalS.lowest = FirstDate.addDays(1);
  CalT.lowest = FirstDate.addDays(2);
  countDays();
  changed = false;
}

void ReservationSplitPresenter::countDays() {
  NB_Jour1 = int(CalF.value.daysTo(CalS.value));
  NB_Jour2 = int(CalS.value.daysTo(CalT.value));
}

void ReservationSplitPresenter::CalF_DateClicked(QDate date) {
  CalF.value = date;
  countDays();
  changed = true;
}

void ReservationSplitPresenter::CalS_DateClicked(QDate date) {
  CalS.value = date;
  countDays();
  changed = true;
}

void ReservationSplitPresenter::CalT_DateClicked(QDate date) {
  CalT.value = date;
  countDays();
  changed = true;
}

void ReservationSplitPresenter::Category_Click(int part, int index) {
  if (part < 0 || part > 1) return;
  parts[size_t(part)].Category_Click(ctx_.availability, index);
  changed = true;
}

void ReservationSplitPresenter::Resource_Click(int part, int index) {
  if (part < 0 || part > 1) return;
  parts[size_t(part)].Resource_Click(index);
  changed = true;
}

void ReservationSplitPresenter::setBloc(int part, bool checked) {
  if (part == 0 || part == 1) Bloc[size_t(part)] = checked;
}

void ReservationSplitPresenter::partToBuffer(int part) {
  BookingRecords& b = ctx_.records;
  commonToBuffer();
  b.Split_L = part == 0 ? QStringLiteral("1") : QStringLiteral("2");
  b.Res_L = parts[size_t(part)].Resource;
  b.DD_L = part == 0 ? CalF.value : CalS.value;
  b.DF_L = part == 0 ? CalS.value : CalT.value;
  b.Bloc_L = Bloc[size_t(part)];
}

bool ReservationSplitPresenter::datesCorrect() {
  if (CheckGroupDate(ctx_, ctx_.records.GroupNb_L, CalF.value, CalT.value)) {
    changed = true;
    countDays();
    showRefresh();
  }
  // The cut lies strictly between the two ends.
  if (NB_Jour1 < 1 || NB_Jour2 < 1) {
    ctx_.messages.critical(ctx_.texts.get(txt::ModifDatesIncorrect));
    return false;
  }
  return true;
}

bool ReservationSplitPresenter::Modify_Click() {
  if (!datesCorrect() || !nameGiven()) return false;
  BookingRecords& b = ctx_.records;
  const QString wasSplit = b.Split_L;
  const bool written = write([this, &b] {
    partToBuffer(clicked_);
    b.MAJ_Reservation();
    partToBuffer(1 - clicked_);
    b.MAJ_ReservationSplit();
  });
  if (!written) {
    b.Split_L = wasSplit;
    return false;
  }
  done();
  return true;
}

bool ReservationSplitPresenter::Merge_Click() {
  if (!ctx_.messages.askYesNo(ctx_.texts.get(txt::ModifMergeQuestion), MsgAnswer::No)) return false;
  if (!datesCorrect() || !nameGiven()) return false;
  BookingRecords& b = ctx_.records;
  const QString wasSplit = b.Split_L;
  const bool written = write([this, &b] {
    // The clicked row carries the whole stay on part 1's resource; the
    // other row goes.
    commonToBuffer();
    b.Res_L = parts[0].Resource;
    b.Split_L = QStringLiteral("0");
    b.DD_L = CalF.value;
    b.DF_L = CalT.value;
    b.Bloc_L = Bloc[0];
    b.MAJ_Reservation();
    b.Delete_Split();
  });
  if (!written) {
    b.Split_L = wasSplit;
    return false;
  }
  done();
  return true;
}

bool ReservationSplitPresenter::Supprimer_Click() {
  if (!ctx_.messages.askYesNo(ctx_.texts.get(txt::ModifDeleteQuestion), MsgAnswer::No, MsgIcon::Critical))
    return false;
  const bool written = write([this] {
    deleteInvoice();
    ctx_.records.Supprimer_Reservation();
    ctx_.records.Delete_Split();
  });
  if (!written) return false;
  done();
  return true;
}

void ReservationSplitPresenter::holes(int mode) {
  if (!ctx_.windows.Trous) return;
  const BookingRecords& b = ctx_.records;
  const int part = mode == 4 ? 1 : 0;
  TrousSearch trous = holesSearch(mode, CalF.value, CalT.value, parts[size_t(part)]);
  trous.CalS = CalS.value;
  // Neither stored part blocks the stay's own resources.
  trous.editing = {{b.Res_S, b.Nom_L, b.DD_S, b.DF_S}, other_};
  const std::optional<HoleChoice> hole = ctx_.windows.Trous(trous);
  if (!hole) return;
  for (int p = 0; p < 2; ++p) {
    if (!(p == 0 ? hole->toPart1 : hole->toPart2)) continue;
    parts[size_t(p)].Category_Click(ctx_.availability, hole->category);
    parts[size_t(p)].Resource = hole->resource;
    changed = true;
  }
  showRefresh();
}

InvoiceHandOver ReservationSplitPresenter::invoiceHandOver() const {
  InvoiceHandOver h = invoiceHandOverCommon();
  h.DtFrom = CalF.value;
  h.DtTo = CalS.value;
  h.Days = NB_Jour1;
  h.Resource = invoiceResource(parts[0].Resource);
  h.DtFromS = CalS.value;
  h.DtToS = CalT.value;
  h.DaysS = NB_Jour2;
  h.ResourceS = invoiceResource(parts[1].Resource);
  return h;
}

void ReservationSplitPresenter::CdInvoice_Click() {
  if (ctx_.invoice) ctx_.invoice->show(invoiceHandOver());
}

}  // namespace ksv
