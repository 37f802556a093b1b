#pragma once
// The board's gestures over the open planning: each press on a label or an
// empty cell gets a booking buffer, the availability rules and a booking
// context of its own, and hands them to the booking dialogs.

#include <functional>
#include <memory>

#include <QtGlobal>

class QWidget;

namespace ksv {

class BoardGestures;
class BoardWidget;
class Clock;
class Messages;
class Paths;
class PlanningSession;
class QtSessionView;
class Texts;
struct BoardDates;
struct BookingContext;
struct LoadedOptions;

// The booking dialogs, modal, on the context of one gesture. An empty one
// opens nothing: the gesture ends there.
struct BookingDialogs {
  std::function<bool(BookingContext&, QWidget*)> Reservation;       // returns OpenGroup
  std::function<bool(BookingContext&, QWidget*)> ReservationSplit;  // R_TB on the other part; returns OpenGroup
  std::function<void(BookingContext&, QWidget*)> ReservationGrp;
  // Res_L and DD_L of the context's buffer hold the pressed resource and day.
  std::function<void(BookingContext&, QWidget*)> ReservationCreer;
};

struct BoardGesturesContext {
  BoardWidget& board;
  PlanningSession& session;
  QtSessionView& view;
  const LoadedOptions& options;
  const BoardDates& dates;
  Messages& messages;
  const Texts& texts;
  const Clock& clock;
  const Paths& paths;
};

// Gives the board its gestures; the result lives as long as the board.
std::unique_ptr<BoardGestures> wireBoardGestures(const BoardGesturesContext& ctx, BookingDialogs dialogs);

// Opens the booking of row `rowId` of Reservation as a right press on its
// label does, over `parent` (the worklist's double click). Only in normal mode.
void openBookingRow(const BoardGesturesContext& ctx, const BookingDialogs& dialogs, qint64 rowId, QWidget* parent);

}  // namespace ksv
