#include "printing_messages.h"

namespace ksv {

MsgAnswer PrintingMessages::show(const QString& text, MsgButtons buttons, MsgIcon icon,
                                 std::optional<MsgAnswer> preselected) {
  if (icon == MsgIcon::Critical) ++criticals_;
  // Box texts break lines the Windows way; a terminal wants plain line ends,
  // and a blank line inside a message would only split it on the screen.
  QString out = text;
  out.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  out.replace(QLatin1String("\n\n"), QLatin1String("\n"));
  const MsgAnswer answer = preselected.value_or(answersOf(buttons).front());
  stream_ << out;
  if (buttons != MsgButtons::Ok) stream_ << QLatin1String(" ") << texts_.get(buttonCaption(answer)).remove(QLatin1Char('&'));
  stream_ << Qt::endl;
  return answer;
}

}  // namespace ksv
