#pragma once
// `CustomerUpdate`: the small dialog that corrects one line of the customer
// list. OK refuses an empty name and stays open.

#include <QString>

namespace ksv {

class Messages;
class Texts;

class CustomerUpdatePresenter {
 public:
  CustomerUpdatePresenter(Messages& messages, const Texts& texts) : messages_(messages), texts_(texts) {}

  // Fills the zones from the line worked on.
  void load(const QString& nom, const QString& email, const QString& remark);

  QString Nom, Email, Remark;
  bool changed = false;  // true once OK closed with values other than the loaded ones
  bool closed = false;   // the dialog may close

  QString okCaption() const;
  void OK_Click();
  void Cancel_Click();

 private:
  Messages& messages_;
  const Texts& texts_;
  QString oldNom_, oldEmail_, oldRemark_;
};

}  // namespace ksv
