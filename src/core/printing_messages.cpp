#include "printing_messages.h"

namespace ksv {
namespace {

MsgAnswer firstButton(MsgButtons buttons) {
  switch (buttons) {
    case MsgButtons::Ok:
    case MsgButtons::OkCancel: return MsgAnswer::Ok;
    case MsgButtons::YesNo:
    case MsgButtons::YesNoCancel: return MsgAnswer::Yes;
    case MsgButtons::CancelTryContinue: return MsgAnswer::Cancel;
  }
  return MsgAnswer::Ok;
}

int captionOf(MsgAnswer a) {
  switch (a) {
    case MsgAnswer::Yes: return txt::ButtonYes;
    case MsgAnswer::No: return txt::ButtonNo;
    case MsgAnswer::Cancel: return txt::ButtonCancel;
    case MsgAnswer::TryAgain: return txt::ButtonTryAgain;
    case MsgAnswer::Continue: return txt::ButtonContinue;
    case MsgAnswer::Ok: break;
  }
  return txt::ButtonOk;
}

}  // namespace

MsgAnswer PrintingMessages::show(const QString& text, MsgButtons buttons, MsgIcon icon,
                                 std::optional<MsgAnswer> preselected) {
  if (icon == MsgIcon::Critical) ++criticals_;
  // Box texts break lines the Windows way; a terminal wants plain line ends,
  // and a blank line inside a message would only split it on the screen.
  QString out = text;
  out.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  out.replace(QLatin1String("\n\n"), QLatin1String("\n"));
  const MsgAnswer answer = preselected.value_or(firstButton(buttons));
  stream_ << out;
  if (buttons != MsgButtons::Ok) stream_ << QLatin1String(" ") << texts_.get(captionOf(answer)).remove(QLatin1Char('&'));
  stream_ << Qt::endl;
  return answer;
}

}  // namespace ksv
