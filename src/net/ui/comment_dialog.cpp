#include "comment_dialog.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace ksv {

CommentDialog::CommentDialog(CommentPresenter& presenter, const Texts& texts, QWidget* parent)
    : QDialog(parent), presenter_(presenter) {
  setWindowTitle(presenter_.title());
  // One line: the option file keeps one line per value.
  text = new QLineEdit(presenter_.text, this);
  text->setMinimumWidth(420);
  OK = new QPushButton(texts.get(txt::ButtonOk), this);
  Cancel = new QPushButton(texts.get(txt::ButtonCancel), this);
  OK->setDefault(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(text);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(OK);
  buttons->addWidget(Cancel);
  layout->addLayout(buttons);

  connect(OK, &QPushButton::clicked, this, [this] {
    presenter_.text = text->text();
    presenter_.OK_Click();
    accept();
  });
  connect(Cancel, &QPushButton::clicked, this, [this] {
    presenter_.Cancel_Click();
    reject();
  });
}

}  // namespace ksv
