#include "about_box.h"

#include <QDir>
#include <QMessageBox>

#include "core/texts.h"
#include "storage/planning_session.h"

namespace ksv {

QString aboutText(const Texts& texts, const QString& version, PlanningSession& session) {
  QStringList lines{texts.withName(txt::AboutVersion, version), QString()};
  if (session.IsOpen) {
    Recordset& info = session.objects().DataBaseInfo;
    info.requery();
    info.moveFirst();
    const QString planningVersion = info.isEOF() ? QString() : info.field(QStringLiteral("Version")).toString();
    lines << texts.withName(txt::AboutPlanning, QDir::toNativeSeparators(session.openFile))
          << texts.withName(txt::AboutPlanningVersion, planningVersion);
  } else {
    lines << texts.get(txt::AboutNoPlanning);
  }
  lines << QString() << texts.get(txt::AboutLicence);
  return lines.join(QLatin1Char('\n'));
}

void M_About(QWidget* parent, const Texts& texts, const QString& version, PlanningSession& session) {
  QMessageBox::about(parent, texts.get(txt::AboutTitle), aboutText(texts, version, session));
}

}  // namespace ksv
