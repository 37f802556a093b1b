#include "qt_messages.h"

#include <map>
#include <vector>

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>

namespace ksv {
namespace {

QMessageBox::ButtonRole roleOf(MsgAnswer a) {
  switch (a) {
    case MsgAnswer::Yes: return QMessageBox::YesRole;
    case MsgAnswer::No: return QMessageBox::NoRole;
    case MsgAnswer::Cancel: return QMessageBox::RejectRole;
    default: return QMessageBox::AcceptRole;
  }
}

QMessageBox::Icon iconOf(MsgIcon icon) {
  switch (icon) {
    case MsgIcon::Critical: return QMessageBox::Critical;
    case MsgIcon::Question: return QMessageBox::Question;
    case MsgIcon::Exclamation: return QMessageBox::Warning;
    case MsgIcon::Information: return QMessageBox::Information;
    case MsgIcon::None: break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

MsgAnswer QtMessages::show(const QString& text, MsgButtons buttons, MsgIcon icon, std::optional<MsgAnswer> preselected) {
  QMessageBox box(parent_);
  box.setWindowTitle(texts_.get(txt::Product));
  box.setIcon(iconOf(icon));
  // Texts keep the CR LF pairs of the table; the box wants plain line feeds.
  QString shown = text;
  shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  box.setText(shown);

  const std::vector<MsgAnswer> answers = answersOf(buttons);
  std::map<QAbstractButton*, MsgAnswer> byButton;
  for (MsgAnswer a : answers) {
    QPushButton* b = box.addButton(texts_.get(buttonCaption(a)), roleOf(a));
    byButton[b] = a;
    if (a == preselected.value_or(answers.front())) box.setDefaultButton(b);
    if (a == MsgAnswer::Cancel || (answers.size() == 1)) box.setEscapeButton(b);
  }
  box.exec();
  const auto it = byButton.find(box.clickedButton());
  if (it != byButton.end()) return it->second;
  // Closed by the window manager: the box's escape answer, as a dialog would.
  return buttons == MsgButtons::YesNo ? MsgAnswer::No : answers.back();
}

}  // namespace ksv
