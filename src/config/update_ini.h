#pragma once
// Bringing the option file up to date, once at each start and before any
// reading: a new installation gets the first-run file; older files, from the
// legacy store, the old file name or older versions, are carried forward.

#include <QDate>
#include <QString>

namespace ksv {

class Messages;
class Paths;
class Texts;

struct UpdateIniResult {
  bool firstRun = false;  // the file was created by this start: no language yet
  bool ok = true;         // false after "Ini file conversion error"
};

// `runningVersion` is "major.minor" (KSV_VERSION_SHORT in the program);
// `legacyStorePath` the store of legacyRememberValues().
UpdateIniResult UpdateIni(const Paths& paths, const QString& runningVersion, const QString& legacyStorePath,
                          QDate today, Messages& messages, const Texts& texts);

}  // namespace ksv
