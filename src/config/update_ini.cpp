#include "update_ini.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/list_value.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/texts.h"
#include "ini_defaults.h"
#include "ini_file.h"
#include "legacy_options.h"
#include "option_reader.h"
#include "config/access_code.h"

namespace ksv {
namespace {

// The old file as it stands in the program's folder, whatever the case of its
// name (it was written on a system that ignores case).
QString findOldIni(const Paths& paths) {
  const QString exact = paths.oldIniFile();
  if (QFileInfo::exists(exact)) return exact;
  const QString name = QFileInfo(exact).fileName();
  const QDir dir(paths.programDir());
  for (const QString& entry : dir.entryList(QDir::Files))
    if (entry.compare(name, Qt::CaseInsensitive) == 0) return dir.filePath(entry);
  return QString();
}

// Moves a key when the old place holds it; an absent key leaves the new
// place as it is.
void moveKey(IniFile& ini, const char* fromSection, const char* fromKey, const char* toSection, const char* toKey) {
  if (!ini.hasKey(fromSection, fromKey)) return;
  ini.SetValue(toSection, toKey, ini.GetValue(fromSection, fromKey));
  ini.DeleteKey(fromSection, fromKey);
}

// Five-colour scale: older files had four.
void upgradeFromUnversioned(IniFile& ini) {
  const QString back = ini.GetValue("Remember", "BackColor");
  if (back.count(QLatin1Char('\\')) == 4) {
    ini.SetValue("Remember", "BackColor", back + QStringLiteral("62708\\"));
    ini.SetValue("Remember", "ForeColor", ini.GetValue("Remember", "ForeColor") + QLatin1Char('N'));
  }
}

void moveAccessCode(IniFile& ini, const char* key, const char* keyWord) {
  const QString old = ini.GetValue("Remember", key);
  ini.DeleteKey("Remember", key);
  if (old.isEmpty()) {
    // No code kept in the old place: the marker, unless the new place already
    // holds a code, which must not be lost.
    if (ini.GetValue("Security", key).isEmpty()) ini.SetValue("Security", key, scrambledNilPin(QString::fromLatin1(keyWord)));
    return;
  }
  ini.SetValue("Security", key, old);
}

void upgradeFrom35(IniFile& ini) {
  ini.SetValue("Alarm", "Extension", QStringLiteral("N"));
  moveKey(ini, "Reservation", "LockDate", "Security", "LockDate");
  ini.SetValue("Security", "LockInvoice", QStringLiteral("O"));
  ini.SetValue("Security", "LockDelete", QStringLiteral("O"));
  moveAccessCode(ini, "AccesPlanning", kKeyAccesPlanning);
  moveAccessCode(ini, "AccesOptions", kKeyAccesOptions);
}

// The invoice counters live in the planning now.
void upgradeFrom40(IniFile& ini) { ini.DeleteKey("Company", "InvoiceNb"); }

void moveOldWebKeys(IniFile& ini) {
  moveKey(ini, "Security", "WebPassword", "Orlimbrook", "PasswordF");
  moveKey(ini, "Security", "WebUserId", "Orlimbrook", "UserNameF");
  moveKey(ini, "Security", "NbDays", "Orlimbrook", "NbDays");
  ini.DeleteKey("Security", "CodeNeeded");
}

}  // namespace

UpdateIniResult UpdateIni(const Paths& paths, const QString& runningVersion, const QString& legacyStorePath,
                          QDate today, Messages& messages, const Texts& texts) {
  UpdateIniResult result;
  IniFile ini(paths.iniFile());

  if (ini.GetValue("Remember", "Language").isEmpty()) {
    const auto legacy = legacyRememberValues(legacyStorePath);
    bool legacyLanguage = false;
    for (const auto& [key, value] : legacy)
      if (key.compare(QLatin1String("Language"), Qt::CaseInsensitive) == 0 && !value.isEmpty()) legacyLanguage = true;

    if (legacyLanguage) {
      writeDefaultIni(ini, today);
      for (const auto& [key, value] : legacy) ini.SetValue("Remember", key, value);
      // Upgraded, not new: the worklist stays as the older version showed it.
      ini.SetValue("Alarm", "Exceptions", QString::fromLatin1(missing::kAlarmExceptions));
    } else if (const QString old = findOldIni(paths); !old.isEmpty()) {
      QFile::remove(paths.iniFile());
      if (!QFile::copy(old, paths.iniFile())) {
        messages.critical(texts.get(txt::IniConversionError));
        result.ok = false;
        return result;
      }
      QFile::remove(old);
    } else {
      writeDefaultIni(ini, today);
      ini.SetValue("Remember", "Version", runningVersion);
      result.firstRun = true;
      return result;
    }
  }

  const QString version = ini.GetValue("Remember", "Version");
  if (version == runningVersion) return result;
  if (version.isEmpty()) upgradeFromUnversioned(ini);
  if (version.isEmpty() || version == QLatin1String("3.5")) upgradeFrom35(ini);
  if (version.isEmpty() || version == QLatin1String("3.5") || version == QLatin1String("4.0")) upgradeFrom40(ini);
  if (version < QLatin1String("5.0")) moveOldWebKeys(ini);
  // Without this the steps above would run again at every start.
  ini.SetValue("Remember", "Version", runningVersion);
  return result;
}

}  // namespace ksv
