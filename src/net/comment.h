#pragma once
// The `Comment` dialog: one value of section `Company`, named by the caller,
// edited in a text field.

#include <functional>

#include <QString>

#include "core/texts.h"

namespace ksv {

class IniFile;

class CommentPresenter {
 public:
  CommentPresenter(IniFile& ini, QString key, const Texts& texts, std::function<void()> refresh = {});

  QString title() const { return texts_.get(txt::CommentTitle); }
  QString text;  // the field

  // Writes the field back and lets the caller refresh.
  void OK_Click();
  void Cancel_Click() { closed_ = true; }
  bool closed() const { return closed_; }

 private:
  IniFile& ini_;
  QString key_;
  Texts texts_;
  std::function<void()> refresh_;
  bool closed_ = false;
};

}  // namespace ksv
