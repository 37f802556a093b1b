#include "comment.h"

#include "config/ini_file.h"

namespace ksv {

CommentPresenter::CommentPresenter(IniFile& ini, QString key, const Texts& texts, std::function<void()> refresh)
    : ini_(ini), key_(std::move(key)), texts_(texts), refresh_(std::move(refresh)) {
  text = ini_.GetValue("Company", key_);
}

void CommentPresenter::OK_Click() {
  ini_.SetValue("Company", key_, text);
  if (refresh_) refresh_();
  closed_ = true;
}

}  // namespace ksv
