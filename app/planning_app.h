#pragma once
// The start of the window program, in its order, and the wiring of the menus
// to the session's commands.

class QApplication;

namespace ksv {

// Runs the Planning window; returns the process's exit code.
int runPlanningWindow(QApplication& app);

}  // namespace ksv
