#pragma once
// The board's presses wired to their popups: D_Day on a day cell, InfoJour
// on a left press, R_Resource on a resource cell.

#include <functional>

namespace ksv {

class BoardWidget;
class Clock;
class Database;
class Messages;
class PlanningSession;
class ResourceCommands;
class Texts;
struct LoadedOptions;
struct BoardDates;
struct ScreenDescription;
struct SessionObjects;

// The planning the resource popup works on; `open` is false when no planning
// is open in normal mode, and the popup then stays shut.
struct ResourcePlanning {
  bool open = false;
  Database* db = nullptr;
  SessionObjects* objects = nullptr;
  const Clock* clock = nullptr;
};
ResourcePlanning resourcePlanning(PlanningSession& session);

// The resource commands as a press on resource row `row` sets them; -1
// stands for a blank row. A deleted resource's bookings take their invoices
// with them.
void prepareResourceCommands(ResourceCommands& r, BoardWidget& board, const ResourcePlanning& planning,
                             const Texts& texts, int row);
void prepareResourceCommands(ResourceCommands& r, BoardWidget& board, PlanningSession& session, const Texts& texts,
                             int row);

// Res_Lib_MouseDown's right press: R_Resource over the pressed row, adding
// the only entry enabled on a blank row.
void wireResourcePopup(BoardWidget& board, std::function<ResourcePlanning()> planning, const LoadedOptions& options,
                       Messages& messages, const Texts& texts);

void wireBoardPopups(BoardWidget& board, PlanningSession& session, const LoadedOptions& options, Messages& messages,
                     const Texts& texts);

// Mois_Click: the month strip opens the calendar on the board's range, and
// the board moves to the day picked.
void wireMonthStrip(BoardWidget& board, const BoardDates& dates, const Clock& clock, const ScreenDescription& screen,
                    const Texts& texts);

}  // namespace ksv
