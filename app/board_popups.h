#pragma once
// The board's presses wired to their popups: D_Day on a day cell, InfoJour
// on a left press, R_Resource on a resource cell.

namespace ksv {

class BoardWidget;
class Messages;
class PlanningSession;
class Texts;
struct LoadedOptions;

void wireBoardPopups(BoardWidget& board, PlanningSession& session, const LoadedOptions& options, Messages& messages,
                     const Texts& texts);

}  // namespace ksv
