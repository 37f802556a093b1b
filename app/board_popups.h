#pragma once
// The board's presses wired to their popups: D_Day on a day cell, InfoJour
// on a left press, R_Resource on a resource cell.

namespace ksv {

class BoardWidget;
class Messages;
class PlanningSession;
class ResourceCommands;
class Texts;
struct LoadedOptions;
struct BoardDates;
class Clock;
struct ScreenDescription;

// The resource commands as a press on resource row `row` sets them; -1
// stands for a blank row. A deleted resource's bookings take their invoices
// with them.
void prepareResourceCommands(ResourceCommands& r, BoardWidget& board, PlanningSession& session, const Texts& texts,
                             int row);

void wireBoardPopups(BoardWidget& board, PlanningSession& session, const LoadedOptions& options, Messages& messages,
                     const Texts& texts);

// Mois_Click: the month strip opens the calendar on the board's range, and
// the board moves to the day picked.
void wireMonthStrip(BoardWidget& board, const BoardDates& dates, const Clock& clock, const ScreenDescription& screen,
                    const Texts& texts);

}  // namespace ksv
