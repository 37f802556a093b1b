#include "customer_update.h"

#include "core/messages.h"
#include "core/texts.h"

namespace ksv {

void CustomerUpdatePresenter::load(const QString& nom, const QString& email, const QString& remark) {
  Nom = oldNom_ = nom;
  Email = oldEmail_ = email;
  Remark = oldRemark_ = remark;
  changed = closed = false;
}

QString CustomerUpdatePresenter::okCaption() const { return texts_.get(txt::CustomerModify); }

void CustomerUpdatePresenter::OK_Click() {
  Nom = Nom.trimmed();
  if (Nom.isEmpty()) {
    messages_.exclamation(texts_.get(txt::CustomerNameEmpty));
    closed = false;
    return;
  }
  changed = Nom != oldNom_ || Email != oldEmail_ || Remark != oldRemark_;
  closed = true;
}

void CustomerUpdatePresenter::Cancel_Click() {
  Nom = oldNom_;
  Email = oldEmail_;
  Remark = oldRemark_;
  changed = false;
  closed = true;
}

}  // namespace ksv
