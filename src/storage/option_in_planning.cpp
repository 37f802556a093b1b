#include "option_in_planning.h"

#include "config/ini_file.h"
#include "core/messages.h"
#include "core/texts.h"
#include "recordset.h"
#include "sqlite_db.h"

namespace ksv {

bool M_SaveOption(Database& db, const IniFile& ini, Messages& messages, const Texts& texts) {
  try {
    const QString text = ini.readText();
    Recordset option = Recordset::openTable(db, QStringLiteral("Option"));
    if (option.recordCount() == 0)
      option.addNew();
    else
      option.moveFirst();
    option.setField(QStringLiteral("Option"), text);
    option.update();
    option.close();
    return true;
  } catch (const StorageError&) {
    messages.critical(texts.get(txt::SavingUnsuccessful));
    return false;
  }
}

bool M_RestoreOption(Database& db, IniFile& ini, const QString& runningUpdating, Messages& messages,
                     const Texts& texts) {
  if (!messages.askYesNo(texts.get(txt::RestoreOptionQuestion), MsgAnswer::No)) return false;
  const QString version = ini.GetValue("Remember", "Version");
  const QString lastFile = ini.GetValue("Remember", "LastFile");
  try {
    Recordset option = Recordset::openTable(db, QStringLiteral("Option"));
    if (option.recordCount() == 0) return false;
    option.moveFirst();
    const QString text = option.field(QStringLiteral("Option")).toString();
    option.close();
    if (text.isEmpty()) return false;
    const bool written = ini.writeText(text) && ini.SetValue("Remember", "Version", version) &&
                         ini.SetValue("Remember", "LastFile", lastFile) &&
                         ini.SetValue("Reservation", "Updating", runningUpdating);
    if (!written) {
      messages.critical(texts.get(txt::RestorationUnsuccessful));
      return false;
    }
  } catch (const StorageError&) {
    messages.critical(texts.get(txt::RestorationUnsuccessful));
    return false;
  }
  messages.information(texts.get(txt::RestorationSuccessful));
  return true;
}

}  // namespace ksv
