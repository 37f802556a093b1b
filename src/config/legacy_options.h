#pragma once
// The options store of the versions that kept their settings outside the ini
// file. Here it is a QSettings ini file, by default
// ~/.config/Kestrovane/Kestrovane.conf, read once by UpdateIni when the ini
// file has no language yet. Absent, it is simply skipped.

#include <QList>
#include <QPair>
#include <QString>

namespace ksv {

QString defaultLegacyOptionsPath();

// The keys and values of the legacy store's section `Remember`, in the order
// the store gives them; empty when the store or the section is absent.
QList<QPair<QString, QString>> legacyRememberValues(const QString& storePath);

}  // namespace ksv
