#pragma once
// Message boxes titled with the product name, their buttons captioned from the
// text table in the current language.

#include "core/messages.h"
#include "core/texts.h"

class QWidget;

namespace ksv {

class QtMessages final : public Messages {
 public:
  QtMessages(QWidget* parent, const Texts& texts) : parent_(parent), texts_(texts) {}
  MsgAnswer show(const QString& text, MsgButtons buttons, MsgIcon icon,
                 std::optional<MsgAnswer> preselected = std::nullopt) override;

 private:
  QWidget* parent_;
  const Texts& texts_;
};

}  // namespace ksv
