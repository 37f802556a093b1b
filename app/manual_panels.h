#pragma once
// The manual control menu entries (M_MnlResource, M_MnlBooking), shown only
// with the option Manual, each opening its modeless panel over the board.

#include <functional>

namespace ksv {

class BoardWidget;
class MainWindow;
class Messages;
class PlanningSession;
class Texts;
struct LoadedOptions;

// NewB: ReservationCreer on the first resource on screen; OpenB: the marked
// label opened as by a right press. An empty hook leaves its button disabled.
void wireManualControl(MainWindow& window, BoardWidget& board, PlanningSession& session, const LoadedOptions& options,
                       Messages& messages, const Texts& texts, std::function<void()> NewB = {},
                       std::function<void(int label)> OpenB = {});

}  // namespace ksv
