#pragma once
// The `PassWord` dialog's rules: one try, compared case-sensitively, no
// message on a wrong code; `MP` masks the typed code with "$".

#include <QString>

namespace ksv {

class PassWordPresenter {
 public:
  explicit PassWordPresenter(QString expected) : expected_(std::move(expected)) {}

  QString Code;      // what the user typed
  bool MP = false;   // "Mask &PassWords"
  bool Result = false;

  // What the `Code` zone shows.
  QString displayedCode() const { return MP ? QString(Code.size(), QLatin1Char('$')) : Code; }

  void OK_Click();
  // Enter (key code 13) in `Code` acts as OK.
  void Code_KeyPress(int keyAscii);
  void Cancel_Click();
  bool closed() const { return closed_; }

 private:
  QString expected_;
  bool closed_ = false;
};

}  // namespace ksv
