#pragma once
// Help > About: the program's version, the open planning's path and version,
// and the licence.

#include <QString>

class QWidget;

namespace ksv {

class PlanningSession;
class Texts;

// The box's lines for the program `version` and the session's planning.
QString aboutText(const Texts& texts, const QString& version, PlanningSession& session);
void M_About(QWidget* parent, const Texts& texts, const QString& version, PlanningSession& session);

}  // namespace ksv
