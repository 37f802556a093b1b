#include "start_options.h"

#include "charger_param.h"
#include "core/clock.h"
#include "core/paths.h"
#include "ini_file.h"
#include "langage.h"
#include "update_ini.h"

namespace ksv {

StartOptionsResult startOptions(const Paths& paths, const Clock& clock, Messages& messages, Texts& texts,
                                const StartOptionsHooks& hooks) {
  StartOptionsResult r;
  IniFile ini(paths.iniFile());
  // A failed conversion has been told; the start goes on with what the file holds.
  r.firstRun = UpdateIni(paths, hooks.runningVersion, hooks.legacyStorePath, clock.today(), messages, texts).firstRun;

  if (r.firstRun) {
    std::optional<Language> language = hooks.installerLanguage ? hooks.installerLanguage() : std::nullopt;
    if (!language) language = hooks.askLanguage ? hooks.askLanguage() : Language::En;
    r.textOffset = writeLanguage(ini, *language);
  } else {
    r.textOffset = textOffset(languageOf(ini.GetValue("Remember", "Language")));
  }
  texts.setOffset(r.textOffset);

  const QString code = accesPlanningAtStart(ini, clock.today(), messages, texts);
  if (code.isEmpty()) {
    r.proceed = false;
  } else if (codeIsSet(code)) {
    r.proceed = hooks.showPassWord && hooks.showPassWord(code);
  }
  return r;
}

}  // namespace ksv
