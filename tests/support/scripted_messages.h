#pragma once
// A Messages that records every box shown and answers questions from a queue.
// A question with no scripted answer fails the test and takes the preselected
// button, so an unexpected question never passes unnoticed.

#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "core/messages.h"

namespace ksv::test {

struct ShownMessage {
  QString text;
  MsgButtons buttons;
  MsgIcon icon;
  std::optional<MsgAnswer> preselected;
};

class ScriptedMessages final : public Messages {
 public:
  MsgAnswer show(const QString& text, MsgButtons buttons, MsgIcon icon,
                 std::optional<MsgAnswer> preselected = std::nullopt) override;

  void answer(MsgAnswer a) { answers_.push_back(a); }
  const std::vector<ShownMessage>& shown() const { return shown_; }
  QStringList texts() const;
  const ShownMessage& last() const { return shown_.back(); }
  bool allAnswersUsed() const { return answers_.empty(); }
  void clear() { shown_.clear(); }
  // Runs as each box comes up, while the code that shows it waits.
  std::function<void(const ShownMessage&)> onShow;

 private:
  std::deque<MsgAnswer> answers_;
  std::vector<ShownMessage> shown_;
};

}  // namespace ksv::test
