#pragma once
// A planning with three rooms and the session's recordsets, on which a test
// clicks a booking and opens the group dialog's presenter over it.

#include <gtest/gtest.h>

#include <memory>

#include "bookings/availability.h"
#include "bookings/reservation_grp.h"
#include "config/loaded_options.h"
#include "storage/query_command.h"
#include "storage/schema.h"
#include "support/test_planning.h"

namespace ksv::test {

inline QDate jul(int d) { return QDate(2024, 7, d); }

class FakeInvoice final : public InvoiceWindow {
 public:
  void DeleteInvoice(const QString& invNb) { deleted << invNb; }
  void show(const InvoiceHandOver& h) override { shown.push_back(h); }
  QStringList deleted;
  std::vector<InvoiceHandOver> shown;
};

class ReservationGrpTest : public ::testing::Test {
 protected:
  void SetUp() override {
    plan.addResource("101", 1, 1);
    plan.addResource("102", 2, 3);
    plan.addResource("103", 0, 5);
    plan.objects().DataBaseInfo = Recordset::openTable(plan.db(), "DataBaseInfo");
    options.CategoryBack = {10, 11, 12, 13, 14, 15};
    options.CategoryFore = {20, 21, 22, 23, 24, 25};
  }

  qint64 booking(const QString& resource, QDate first, QDate last, const QString& nom, QVariantMap more = {}) {
    more.insert("Resource", resource);
    more.insert("Date_Deb", first);
    more.insert("Date_Fin", last);
    more.insert("Nom", nom);
    if (!more.contains("GroupId")) more.insert("GroupId", "C");
    if (!more.contains("GroupNb")) more.insert("GroupNb", 0);
    return insertRow(plan.db(), "Reservation", more);
  }
  qint64 header(int groupNb, QDate first, QDate last, const QString& nom, QVariantMap more = {}) {
    more.insert("Split", "3");
    if (!more.contains("GroupId")) more.insert("GroupId", "L");
    more.insert("GroupNb", groupNb);
    return booking(" ", first, last, nom, more);
  }
  QString stored(qint64 rowid, const QString& column) {
    const QVariant v =
        plan.db().scalar(QStringLiteral("SELECT \"%1\" FROM Reservation WHERE rowid = ?").arg(column), {rowid});
    return v.isNull() ? QStringLiteral("<null>") : v.toString();
  }
  bool exists(qint64 rowid) { return plan.db().scalar("SELECT count(*) FROM Reservation WHERE rowid = ?", {rowid}).toInt() == 1; }
  int headers() { return plan.db().scalar("SELECT count(*) FROM Reservation WHERE GroupId <> 'C'").toInt(); }
  int maxGroupNb() { return plan.db().scalar("SELECT MaxGroupNb FROM DataBaseInfo").toInt(); }
  void setMaxGroupNb(int n) { plan.db().execute("UPDATE DataBaseInfo SET MaxGroupNb = ?", {n}); plan.objects().DataBaseInfo.requery(); }

  // A right press on a drawn booking, then the group dialog opens on it.
  ReservationGrpPresenter& open(qint64 rowid) {
    QVariantList params{jul(1), jul(31), QString("101"), QString("102"), QString("103")};
    while (params.size() < 42) params << QString("");
    QueryCommand board = QueryCatalogue(plan.db(), plan.clock()).command("RQ_Reservation");
    board.setParameters(params);
    rs = board.openRecordset();
    plan.objects().Reservation.requery();
    records.setRecordsets(&rs, &plan.objects().Reservation);
    int position = -1;
    for (rs.moveFirst(); !rs.isEOF(); rs.moveNext())
      if (rs.rowId() == rowid) position = rs.absolutePosition() - 1;
    EXPECT_GE(position, 0) << "booking not on the board";
    records.I_L = qint16(position);
    records.readClickedBooking();
    ctx = std::make_unique<BookingContext>(BookingContext{plan.db(), plan.objects(), records, availability, options,
                                                          messages, texts, plan.clock(), plan.paths(), jul(1), jul(31),
                                                          [this] { ++redraws; }, {}, withInvoice ? &invoice : nullptr});
    if (withInvoice) ctx->DeleteInvoice = [this](const QString& invNb) { invoice.DeleteInvoice(invNb); };
    grp = std::make_unique<ReservationGrpPresenter>(*ctx, Regional::englishUS());
    grp->close = [this] { ++closes; };
    grp->Form_Activate();
    return *grp;
  }

  TestPlanning plan{QDate(2024, 6, 15)};
  ScriptedMessages messages;
  Texts texts;
  LoadedOptions options;
  Availability availability{plan.db(), plan.clock()};
  BookingRecords records{plan.db(), plan.clock(), messages, texts};
  Recordset rs;
  FakeInvoice invoice;
  bool withInvoice = true;
  int redraws = 0;
  int closes = 0;
  std::unique_ptr<BookingContext> ctx;
  std::unique_ptr<ReservationGrpPresenter> grp;
};

}  // namespace ksv::test
