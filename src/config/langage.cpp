#include "langage.h"

#include "charger_param.h"
#include "ini_file.h"

namespace ksv {

std::optional<Language> languageFromLocaleName(const QString& localeName) {
  const QString name = localeName.trimmed().toLower();
  if (name.startsWith(QLatin1String("fr"))) return Language::Fr;
  if (name.startsWith(QLatin1String("en"))) return Language::En;
  return std::nullopt;
}

std::optional<Language> sessionLanguage() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const QString value = qEnvironmentVariable(variable);
    if (!value.isEmpty()) return languageFromLocaleName(value);
  }
  return std::nullopt;
}

int writeLanguage(IniFile& ini, Language language) {
  ini.SetValue("Remember", "Language", languageValue(language));
  return textOffset(language);
}

}  // namespace ksv
