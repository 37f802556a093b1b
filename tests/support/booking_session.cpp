#include "booking_session.h"

#include "storage/schema.h"

namespace ksv::test {

BookingSession::BookingSession(QDate today, QDate first, QDate last) : plan(today), first_(first), last_(last) {
  writeDefaultIni(ini, today);
  options = Charger_Param(ini, plan.clock());
  SessionObjects& o = plan.objects();
  o.DataBaseInfo = Recordset::openTable(plan.db(), QStringLiteral("DataBaseInfo"));
  o.BlackList = QueryCatalogue(plan.db(), plan.clock()).command(QStringLiteral("BlackList")).openRecordset();
}

void BookingSession::openView() {
  QVariantList params{first_, last_};
  for (const QString& r : availability.resourcesOf(-1)) params << r;
  while (params.size() < 42) params << QString();
  plan.objects().RQ_Reservation->setParameters(params);
  view_ = plan.objects().RQ_Reservation->openRecordset();
  plan.objects().Reservation.requery();
  records.setRecordsets(&view_, &plan.objects().Reservation);
}

void BookingSession::click(qint64 rowid, bool findPartner) {
  openView();
  for (view_.moveFirst(); !view_.isEOF(); view_.moveNext()) {
    if (view_.rowId() != rowid) continue;
    records.I_L = qint16(view_.absolutePosition() - 1);
    records.readClickedBooking();
    if (findPartner && records.Split_L != "0") {
      records.Found_Other_SplitPart();
      ASSERT_TRUE(records.Flg_OkCl);
    }
    return;
  }
  FAIL() << "row " << rowid << " is not on the board";
}

BookingContext& BookingSession::ctx() {
  if (!ctx_) {
    ctx_ = std::make_unique<BookingContext>(
        BookingContext{plan.db(), plan.objects(), records, availability, options, messages, texts, plan.clock(),
                       plan.paths(), first_, last_, [this] { ++redraws; }, {}, withInvoice ? &invoice : nullptr});
    ctx_->DeleteInvoice = [this](const QString& invNb) { invoice.DeleteInvoice(invNb); };
  }
  return *ctx_;
}

QString BookingSession::row(qint64 rowid) {
  const QStringList r = plan.rows("Nom/Resource/Date_Deb/Date_Fin/Split/InvNb/Blocage/Couleur/GroupNb",
                                  QStringLiteral("rowid = %1").arg(rowid));
  return r.isEmpty() ? QStringLiteral("<gone>") : r.first();
}

QStringList BookingSession::stays() {
  return plan.rows("Nom/Resource/Date_Deb/Date_Fin/Split/InvNb/Blocage/Couleur/GroupNb", "GroupId = 'C'");
}

}  // namespace ksv::test
