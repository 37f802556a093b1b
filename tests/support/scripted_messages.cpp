#include "scripted_messages.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace ksv::test {

MsgAnswer ScriptedMessages::show(const QString& text, MsgButtons buttons, MsgIcon icon,
                                 std::optional<MsgAnswer> preselected) {
  shown_.push_back({text, buttons, icon, preselected});
  if (onShow) onShow(shown_.back());
  if (buttons == MsgButtons::Ok) return MsgAnswer::Ok;
  if (answers_.empty()) {
    ADD_FAILURE() << "Unscripted question: " << text.toStdString();
    if (preselected) return *preselected;
    return buttons == MsgButtons::CancelTryContinue ? MsgAnswer::Cancel
           : buttons == MsgButtons::OkCancel        ? MsgAnswer::Ok
                                                    : MsgAnswer::Yes;
  }
  const MsgAnswer a = answers_.front();
  answers_.pop_front();
  return a;
}

QStringList ScriptedMessages::texts() const {
  QStringList out;
  for (const ShownMessage& m : shown_) out << m.text;
  return out;
}

}  // namespace ksv::test
