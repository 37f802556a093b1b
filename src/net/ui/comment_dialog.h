#pragma once
// `Comment`: one line of section Company, edited.

#include <QDialog>

#include "net/comment.h"

class QLineEdit;
class QPushButton;

namespace ksv {

class CommentDialog final : public QDialog {
  Q_OBJECT
 public:
  CommentDialog(CommentPresenter& presenter, const Texts& texts, QWidget* parent = nullptr);
  QLineEdit* text = nullptr;
  QPushButton* OK = nullptr;
  QPushButton* Cancel = nullptr;

 private:
  CommentPresenter& presenter_;
};

}  // namespace ksv
