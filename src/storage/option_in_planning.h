#pragma once
// The whole option file kept inside a planning (table `Option`, one row), so
// that a workstation can take its options back from the file it works on.

#include <QString>

namespace ksv {

class Database;
class IniFile;
class Messages;
class Texts;

// Puts the file's text into the row of `Option`, adding the row when the table
// has none. Silent on success; any error shows "Saving unsuccessful".
bool M_SaveOption(Database& db, const IniFile& ini, Messages& messages, const Texts& texts);

// Asks first (No preselected). Overwrites the option file with the saved
// text, then puts back this station's `Version`, `LastFile` and running mode
// (`runningUpdating`, "O" or "N"), so that restored options never switch a
// running station. Returns true when the file was overwritten; nothing
// happens when the planning holds no saved text. The caller holds the
// refresh timer meanwhile and reloads the options afterwards.
bool M_RestoreOption(Database& db, IniFile& ini, const QString& runningUpdating, Messages& messages,
                     const Texts& texts);

}  // namespace ksv
