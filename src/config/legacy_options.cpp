#include "legacy_options.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace ksv {

QString defaultLegacyOptionsPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Kestrovane/Kestrovane.conf");
}

QList<QPair<QString, QString>> legacyRememberValues(const QString& storePath) {
  QList<QPair<QString, QString>> out;
  if (storePath.isEmpty() || !QFileInfo::exists(storePath)) return out;
  QSettings store(storePath, QSettings::IniFormat);
  for (const QString& group : store.childGroups()) {
    if (group.compare(QLatin1String("Remember"), Qt::CaseInsensitive) != 0) continue;
    store.beginGroup(group);
    for (const QString& key : store.childKeys()) {
      const QVariant v = store.value(key);
      // A value with a comma comes back as a list; it was one text.
      const QString text = v.typeId() == QMetaType::QStringList ? v.toStringList().join(QLatin1Char(','))
                                                                : v.toString();
      out.append({key, text});
    }
    store.endGroup();
    break;
  }
  return out;
}

}  // namespace ksv
