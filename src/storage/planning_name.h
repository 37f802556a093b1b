#pragma once
// Names of plannings: splitting a path, the checks made on a name chosen in a
// file dialog, and the names suggested for copies.

#include <QDate>
#include <QString>

#include "core/messages.h"
#include "core/regional.h"
#include "core/texts.h"

namespace ksv {

struct PlanningName {
  QString dir;   // with its last separator
  QString stem;  // without the point
  QString ext;   // the last three characters
  QString full() const { return isEmpty() ? QString() : dir + stem + QLatin1Char('.') + ext; }
  bool isEmpty() const { return dir.isEmpty() && stem.isEmpty() && ext.isEmpty(); }
};

// The directory runs up to and including the last separator, the extension is
// the last three characters, the stem what lies between, less the point.
PlanningName Split_Db_Name(const QString& path);

// The checks of Demander_NomFichier once the dialog returned `chosen`: a name on
// a diskette, an extension other than ksv, a file that does not exist. The open
// planning is accepted at once. Returns the accepted name, or an empty one after
// showing the message.
QString checkChosenPlanning(const QString& chosen, const QString& openFile, Messages& messages, const Texts& texts);

// A name on a diskette is refused by both file dialogs.
bool refuseDiskette(const QString& chosen, Messages& messages, const Texts& texts);

// Stem + suffix + today's short date with its slashes removed, beside the
// planning: the name M_Save and M_Extract suggest.
QString suggestedCopyName(const PlanningName& planning, const QString& suffix, QDate today, const Regional& regional);

// Bookings that left before this day are purged: today less `yearKeep` years,
// moved back to the first of that month.
QDate purgeLimit(QDate today, int yearKeep);

// The example was made for 2006-10-21; its dates move by this many days.
inline const QDate kExampleDay{2006, 10, 21};
int exampleShiftDays(QDate today);

}  // namespace ksv
