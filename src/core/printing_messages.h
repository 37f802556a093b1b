#pragma once
// Messages for the command line, where nobody can click: every box becomes a
// line on a stream, and a question takes its preselected answer (the first
// button when none is preselected), which is printed after it. Questions that
// delete preselect No, so a script never destroys anything by a question.

#include <QTextStream>

#include "messages.h"
#include "texts.h"

namespace ksv {

class PrintingMessages final : public Messages {
 public:
  PrintingMessages(QTextStream& stream, const Texts& texts) : stream_(stream), texts_(texts) {}

  MsgAnswer show(const QString& text, MsgButtons buttons, MsgIcon icon,
                 std::optional<MsgAnswer> preselected = std::nullopt) override;

  int criticalCount() const { return criticals_; }

 private:
  QTextStream& stream_;
  const Texts& texts_;
  int criticals_ = 0;
};

}  // namespace ksv
