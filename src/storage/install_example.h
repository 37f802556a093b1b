#pragma once
// The example planning: KestrovaneTry.ksv beside the program, copied into the
// documents folder on demand and moved in time so that it lies around today.

#include <QString>

namespace ksv {

class Clock;
class Messages;
class Paths;
class Texts;

// Where the installed example lives: the documents folder.
QString installedExample(const Paths& paths);

// Replaces any example (and its lock file) in the documents folder by a fresh
// copy of the program's one, then shifts its dates to today. Returns Result:
// false after "The example cannot be found" or "Error while copying the data
// base", or when the dates could not be moved.
bool Install_Example(const Paths& paths, const Clock& clock, Messages& messages, const Texts& texts);

}  // namespace ksv
