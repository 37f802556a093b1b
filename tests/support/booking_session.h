#pragma once
// An open planning as the booking dialogs meet it: the board view over the
// board's range, the booking buffer, the options of a first run, and a
// context whose window hooks tests fill. Invoices go to a fake window.

#include <memory>

#include "bookings/availability.h"
#include "bookings/booking_context.h"
#include "bookings/booking_records.h"
#include "bookings/reservation_grp.h"
#include "config/charger_param.h"
#include "config/ini_defaults.h"
#include "config/ini_file.h"
#include "config/loaded_options.h"
#include "core/regional.h"
#include "storage/query_command.h"
#include "storage/recordset.h"
#include "support/test_planning.h"

namespace ksv::test {

// What the dialogs hand to the invoice window and which invoices they remove,
// with the number of booking rows still stored at each removal.
class FakeInvoiceWindow final : public InvoiceWindow {
 public:
  explicit FakeInvoiceWindow(Database& db) : db_(db) {}
  void DeleteInvoice(const QString& invNb) {
    deleted << invNb;
    rowsAtDelete << db_.scalar("SELECT count(*) FROM Reservation").toInt();
  }
  void show(const InvoiceHandOver& handOver) override { shown.push_back(handOver); }
  QStringList deleted;
  QList<int> rowsAtDelete;
  std::vector<InvoiceHandOver> shown;

 private:
  Database& db_;
};

class BookingSession : public ::testing::Test {
 protected:
  // Today and the board's first and last day.
  BookingSession(QDate today, QDate first, QDate last);

  // The board view over the board's range and every resource, as the board
  // holds it, and the buffer reading from it.
  void openView();
  // The board's click on a stored row: the view opened, the row read into the
  // buffer and, for a split part (unless told not to), the other part found.
  void click(qint64 rowid, bool findPartner = true);
  // The context the dialogs take; made on first use, so tests may set
  // `withInvoice` first.
  BookingContext& ctx();

  // One stored row as "Nom/Resource/Date_Deb/Date_Fin/Split/InvNb/Blocage/Couleur/GroupNb", "<gone>" if none.
  QString row(qint64 rowid);
  // The stays (GroupId "C") in stored order, each as row() shows it.
  QStringList stays();
  int maxGroupNb() { return plan.db().scalar("SELECT MaxGroupNb FROM DataBaseInfo").toInt(); }

  TestPlanning plan;
  ScriptedMessages messages;
  Texts texts{0};
  IniFile ini{plan.paths().iniFile()};
  LoadedOptions options;
  BookingRecords records{plan.db(), plan.clock(), messages, texts};
  Availability availability{plan.db(), plan.clock()};
  FakeInvoiceWindow invoice{plan.db()};
  bool withInvoice = false;
  int redraws = 0;

 private:
  QDate first_, last_;
  Recordset view_;
  std::unique_ptr<BookingContext> ctx_;
};

inline QDate march(int d) { return QDate(2025, 3, d); }
inline QDate jul(int d) { return QDate(2024, 7, d); }

// Today 10 March 2025, the board over March: "Room 1", "Room 2*" (category 0), "Suite" (1).
class MarchBoard : public BookingSession {
 protected:
  MarchBoard() : BookingSession(QDate(2025, 3, 10), march(1), march(31)) {
    plan.addResource("Room 1", 0, 1);
    plan.addResource("Room 2*", 0, 2);
    plan.addResource("Suite", 1, 3);
  }
};

// Today 10 March 2025, the board from 1 March to 30 June, no resources yet.
class SpringBoard : public BookingSession {
 protected:
  SpringBoard() : BookingSession(QDate(2025, 3, 10), march(1), QDate(2025, 6, 30)) {}
};

// Today 15 June 2024, the board over July: rooms 101 and 102 (categories 1, 2), 103 (0).
class JulyBoard : public BookingSession {
 protected:
  JulyBoard() : BookingSession(QDate(2024, 6, 15), jul(1), jul(31)) {
    plan.addResource("101", 1, 1);
    plan.addResource("102", 2, 3);
    plan.addResource("103", 0, 5);
    withInvoice = true;
  }
};

// The group dialog's presenter opened over a clicked booking of the July board.
class GroupDialogTest : public JulyBoard {
 protected:
  GroupDialogTest() {
    plan.objects().DataBaseInfo = Recordset::openTable(plan.db(), "DataBaseInfo");
    options.CategoryBack = {10, 11, 12, 13, 14, 15};
    options.CategoryFore = {20, 21, 22, 23, 24, 25};
  }
  ReservationGrpPresenter& open(qint64 rowid) {
    click(rowid, false);
    grp = std::make_unique<ReservationGrpPresenter>(ctx(), Regional::englishUS());
    grp->close = [this] { ++closes; };
    grp->Form_Activate();
    return *grp;
  }
  bool exists(qint64 rowid) { return plan.count("Reservation", QStringLiteral("rowid = %1").arg(rowid)) == 1; }
  int headers() { return int(plan.count("Reservation", "GroupId <> 'C'")); }
  void setMaxGroupNb(int n) {
    plan.db().execute("UPDATE DataBaseInfo SET MaxGroupNb = ?", {n});
    plan.objects().DataBaseInfo.requery();
  }

  std::unique_ptr<ReservationGrpPresenter> grp;
  int closes = 0;
};

}  // namespace ksv::test
