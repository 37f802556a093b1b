#include "board_gestures.h"

#include <QScrollBar>

#include "board/board_dates.h"
#include "board/board_gestures.h"
#include "board/ui/board_widget.h"
#include "bookings/availability.h"
#include "bookings/booking_context.h"
#include "bookings/booking_records.h"
#include "bookings/ui/trous_dialog.h"
#include "customers/ui/customer_menus.h"
#include "invoicing/invoice_accounts.h"
#include "net/ui/mail.h"
#include "qt_session_view.h"
#include "core/messages.h"
#include "storage/planning_session.h"
#include "storage/sqlite_db.h"

namespace ksv {
namespace {

// What the dialogs of one gesture work on; the openers that use it keep it.
struct GestureBooking {
  GestureBooking(const BoardGesturesContext& c, BookingRecords& records)
      : availability(c.session.connection()->db(), c.clock),
        context{c.session.connection()->db(),
                c.session.objects(),
                records,
                availability,
                c.options,
                c.messages,
                c.texts,
                c.clock,
                c.paths,
                c.dates.FirstDate,
                c.dates.LastDate,
                [view = &c.view] { view->Dessiner_Ecran(); },
                {},
                nullptr} {
    context.DeleteInvoice = [&db = context.db, &clock = c.clock](const QString& invNb) {
      DeleteInvoice(db, clock, invNb);
    };
    const CustomerWindowsContext customers{c.session, c.messages, c.texts, c.clock, c.paths,
                                           [view = &c.view] { view->Dessiner_Ecran(); }};
    QWidget* parent = &c.board;
    BookingWindows& w = context.windows;
    w.Customer_From_Reservation = [customers, parent](const QString& name, CustomerCopyTarget& target, bool agents) {
      showCustomerFromReservation(customers, name, target, agents, parent);
    };
    w.M_BlackList = [customers, parent] { showBlackList(customers, parent); };
    w.BlackList_Add_Commun = [customers](const QString& N_Add_BL, const QString& R_Add_BL) {
      addToBlackList(customers, N_Add_BL, R_Add_BL);
    };
    w.Trous = [&options = c.options, &texts = c.texts, parent](TrousSearch& trous) {
      return showTrous(trous, options, texts, parent);
    };
    w.sendEmail = [](const QString& email) { Mail(email); };
  }
  Availability availability;
  BookingContext context;
};

}  // namespace

void openBookingRow(const BoardGesturesContext& c, const BookingDialogs& dialogs, qint64 rowId, QWidget* parent) {
  if (!c.session.IsOpen || !c.session.normalMode()) return;
  c.view.stopRefreshTimer();
  try {
    Database& db = c.session.connection()->db();
    Recordset one = Recordset::openQuery(db, QStringLiteral("SELECT * FROM Reservation WHERE rowid = ?"), {rowId});
    if (!one.isEOF()) {
      BookingRecords records(db, c.clock, c.messages, c.texts);
      records.setRecordsets(&one, &c.session.objects().Reservation);
      records.Dessiner_Ecran = [&v = c.view] { v.Dessiner_Ecran(); };
      records.I_L = 0;
      records.readClickedBooking();
      GestureBooking booking(c, records);
      BookingDialogOpeners open;
      if (dialogs.Reservation) open.Reservation = [&] { return dialogs.Reservation(booking.context, parent); };
      if (dialogs.ReservationSplit)
        open.ReservationSplit = [&] { return dialogs.ReservationSplit(booking.context, parent); };
      if (dialogs.ReservationGrp) open.ReservationGrp = [&] { dialogs.ReservationGrp(booking.context, parent); };
      records.openBooking(open);
    }
  } catch (const StorageError& e) {
    c.messages.critical(QString::fromUtf8(e.what()));
  }
  if (c.session.refreshWanted()) c.view.startRefreshTimer(c.session.refreshInterval());
}

std::unique_ptr<BoardGestures> wireBoardGestures(const BoardGesturesContext& ctx, BookingDialogs dialogs) {
  // The context outlives every gesture: it is the window's.
  const BoardGesturesContext c = ctx;
  auto shared = std::make_shared<BookingDialogs>(std::move(dialogs));
  GestureHooks hooks;
  hooks.normalMode = [&s = c.session] { return s.IsOpen && s.normalMode(); };
  hooks.stopRefreshTimer = [&v = c.view] { v.stopRefreshTimer(); };
  hooks.startRefreshTimer = [&s = c.session, &v = c.view] {
    if (s.refreshWanted()) v.startRefreshTimer(s.refreshInterval());
  };
  hooks.Dessiner_Ecran = [&v = c.view] { v.Dessiner_Ecran(); };
  hooks.setVScroll = [&b = c.board](int value) { b.VScroll()->setValue(value); };
  hooks.newRecords = [c]() -> std::unique_ptr<BookingRecords> {
    if (!c.session.IsOpen || !c.session.connection()) return nullptr;
    auto r = std::make_unique<BookingRecords>(c.session.connection()->db(), c.clock, c.messages, c.texts);
    r->setRecordsets(&c.board.drawing().view, &c.session.objects().Reservation);
    r->Dessiner_Ecran = [&v = c.view] { v.Dessiner_Ecran(); };
    return r;
  };
  // The records a gesture hands back are those newRecords made.
  hooks.openers = [c, shared](GestureRecords& records) {
    auto booking = std::make_shared<GestureBooking>(c, static_cast<BookingRecords&>(records));
    QWidget* parent = &c.board;
    BookingDialogOpeners open;
    if (shared->Reservation)
      open.Reservation = [shared, booking, parent] { return shared->Reservation(booking->context, parent); };
    if (shared->ReservationSplit)
      open.ReservationSplit = [shared, booking, parent] { return shared->ReservationSplit(booking->context, parent); };
    if (shared->ReservationGrp)
      open.ReservationGrp = [shared, booking, parent] { shared->ReservationGrp(booking->context, parent); };
    return open;
  };
  hooks.ReservationCreer = [c, shared](GestureRecords& records) {
    if (!shared->ReservationCreer) return;
    GestureBooking booking(c, static_cast<BookingRecords&>(records));
    shared->ReservationCreer(booking.context, &c.board);
  };
  auto gestures = std::make_unique<BoardGestures>(c.board.drawing(), c.options, c.messages, c.texts, std::move(hooks));
  c.board.setGestures(gestures.get());
  return gestures;
}

}  // namespace ksv
