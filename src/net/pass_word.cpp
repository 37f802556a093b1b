#include "pass_word.h"

namespace ksv {

void PassWordPresenter::OK_Click() {
  Result = Code == expected_;
  closed_ = true;
}

void PassWordPresenter::Code_KeyPress(int keyAscii) {
  if (keyAscii == 13) OK_Click();
}

void PassWordPresenter::Cancel_Click() {
  Result = false;
  closed_ = true;
}

}  // namespace ksv
