#include "manual_panels.h"

#include <QPointer>

#include "board/resource_presenter.h"
#include "board/ui/board_widget.h"
#include "board/ui/manual_control_panel.h"
#include "board_popups.h"
#include "main_window.h"
#include "storage/planning_session.h"

namespace ksv {

namespace {

// The popup's commands as a press on resource row `row` would set them; -1
// stands for a press on a blank row.
void runResourceCommand(BoardWidget& board, PlanningSession& session, const LoadedOptions& options,
                        Messages& messages, const Texts& texts, int row, void (ResourceCommands::*command)()) {
  if (!session.IsOpen || !session.normalMode()) return;
  ResourceCommands r(session.connection()->db(), session.objects(), options, messages, texts);
  prepareResourceCommands(r, board, session, texts, row);
  (r.*command)();
}

}  // namespace

void wireManualControl(MainWindow& window, BoardWidget& board, PlanningSession& session, const LoadedOptions& options,
                       Messages& messages, const Texts& texts, std::function<void()> NewB,
                       std::function<void(int label)> OpenB) {
  window.menuModel().setVisible(QStringLiteral("M_MnlResource"), options.Manual);
  window.menuModel().setVisible(QStringLiteral("M_MnlBooking"), options.Manual);
  window.applyMenus();

  auto resources = std::make_shared<QPointer<ManualControlPanel>>();
  window.setHandler(QStringLiteral("M_MnlResource"), [&, resources] {
    if (*resources) {
      (*resources)->raise();
      return;
    }
    ResourceControlHooks hooks;
    hooks.NewR = [&] { runResourceCommand(board, session, options, messages, texts, -1, &ResourceCommands::R_Add_Click); };
    hooks.Modify = [&](int row) {
      runResourceCommand(board, session, options, messages, texts, row, &ResourceCommands::R_Modify_Click);
    };
    hooks.Delete = [&](int row) {
      runResourceCommand(board, session, options, messages, texts, row, &ResourceCommands::R_Delete_Click);
    };
    *resources = ManualControlPanel::ResourceControl(board, texts, hooks, &window);
    (*resources)->show();
  });

  auto bookings = std::make_shared<QPointer<ManualControlPanel>>();
  window.setHandler(QStringLiteral("M_MnlBooking"), [&, bookings, NewB, OpenB] {
    if (*bookings) {
      (*bookings)->raise();
      return;
    }
    BookingControlHooks hooks;
    hooks.NewB = NewB;
    if (OpenB)
      hooks.OpenB = [&board, OpenB](int label) {
        if (label >= 0 && label < board.drawing().LabCount) OpenB(label);
      };
    *bookings = ManualControlPanel::BookingControl(board, texts, hooks, &window);
    (*bookings)->show();
  });
}

}  // namespace ksv
