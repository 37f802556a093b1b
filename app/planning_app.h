#pragma once
// The start of the window program, in its order, and the wiring of the menus
// to the session's commands.

class QApplication;
class QString;

namespace ksv {

// Runs the Planning window; returns the process's exit code.
// With `openExample`, the window starts on the example planning instead of
// the last one; with a `planning` named, on that one.
int runPlanningWindow(QApplication& app, bool openExample, const QString& planning);

}  // namespace ksv
