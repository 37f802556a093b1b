#pragma once
// The option steps of the start, in their order: bring the option file up to
// date, settle the language (first run: the session's locale, else the
// `Langage` dialog), then the access code of the planning, repairing damaged
// options on the way. The screen-frame questions of a first run follow in the
// caller.

#include <functional>

#include "core/texts.h"
#include "config/access_check.h"

namespace ksv {

class Clock;
class Messages;
class Paths;

struct StartOptionsHooks {
  QString runningVersion;   // KSV_VERSION_SHORT
  QString legacyStorePath;  // defaultLegacyOptionsPath() in the program
  // The language of the installation; none sends the user to `askLanguage`.
  std::function<std::optional<Language>()> installerLanguage;
  std::function<Language()> askLanguage;  // the `Langage` dialog
  ShowPassWord showPassWord;
};

struct StartOptionsResult {
  bool proceed = true;  // false: the start ends (a wrong code, an options file beyond repair)
  bool firstRun = false;
  int textOffset = 0;
};

// `texts` takes the chosen language's offset.
StartOptionsResult startOptions(const Paths& paths, const Clock& clock, Messages& messages, Texts& texts,
                                const StartOptionsHooks& hooks);

}  // namespace ksv
