#pragma once
// Loading the option file into the running program, at start and each time
// the options dialog closes. Every key it reads that has gone missing is
// written back with its default on the way.

#include "loaded_options.h"

namespace ksv {

class Clock;
class IniFile;

LoadedOptions Charger_Param(IniFile& ini, const Clock& clock);

// An old `LockPlanning` key becomes `Updating` and `LockMode`; `LockMenu`
// and `LockPlanning` are then removed. Nothing happens when it is absent.
void convertLockPlanning(IniFile& ini);

// The language kept in the file: "Fr" is French, anything else English.
Language languageOf(const QString& value);
QString languageValue(Language language);  // "En" or "Fr"

}  // namespace ksv
