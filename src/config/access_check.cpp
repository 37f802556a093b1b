#include "access_check.h"

#include "config/ini_defaults.h"
#include "config/ini_file.h"
#include "core/messages.h"
#include "core/texts.h"

namespace ksv {

bool askAccessCode(const IniFile& ini, AccessCode which, const ShowPassWord& showPassWord) {
  const QString code = readAccessCode(ini, which);
  if (code == QLatin1String(kNilPin)) return true;
  return showPassWord(code);
}

bool resetDamagedOptions(IniFile& ini, QDate today) {
  const QString language = ini.GetValue("Remember", "Language");
  const QString version = ini.GetValue("Remember", "Version");
  if (!writeDefaultIni(ini, today)) return false;
  if (!language.isEmpty()) ini.SetValue("Remember", "Language", language);
  if (!version.isEmpty()) ini.SetValue("Remember", "Version", version);
  return true;
}

QString accesPlanningAtStart(IniFile& ini, QDate today, Messages& messages, const Texts& texts) {
  // A reset that does not take (a file that cannot be written) would repeat
  // for ever; a few tries tell that apart from a damaged value.
  for (int attempt = 0; attempt < 3; ++attempt) {
    const QString code = readAccessCode(ini, AccessCode::Planning);
    if (!code.isEmpty()) return code;
    messages.critical(texts.get(txt::OptionsDamaged));
    resetDamagedOptions(ini, today);
  }
  return readAccessCode(ini, AccessCode::Planning);
}

}  // namespace ksv
