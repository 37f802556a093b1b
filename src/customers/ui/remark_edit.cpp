#include "remark_edit.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextCursor>

#include "customers/customer_ops.h"

namespace ksv {

RemarkEdit::RemarkEdit(QWidget* parent) : QPlainTextEdit(parent) {}

RemarkEdit::RemarkEdit(const QString& text, QWidget* parent) : QPlainTextEdit(text, parent) {}

int RemarkEdit::storedLength(const QString& edited) {
  int length = 0;
  for (const QChar c : edited)
    length += c == QLatin1Char('\n') || c == QChar::ParagraphSeparator || c == QChar::LineSeparator ? 2 : 1;
  return length;
}

int RemarkEdit::room() const {
  return kMaxRemark - storedLength(toPlainText()) + storedLength(textCursor().selectedText());
}

void RemarkEdit::keyPressEvent(QKeyEvent* event) {
  const bool lineEnd = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const QString text = event->text();
  const bool typesText = lineEnd || (!text.isEmpty() && text.at(0).isPrint());
  const int needed = lineEnd ? 2 : storedLength(text);
  if (typesText && !isReadOnly() && needed > room()) {
    QApplication::beep();
    event->accept();
    return;
  }
  QPlainTextEdit::keyPressEvent(event);
}

void RemarkEdit::insertFromMimeData(const QMimeData* source) {
  if (!source || !source->hasText()) return;
  // What fits of the pasted text goes in; the rest is refused.
  const QString pasted = source->text();
  const int room = this->room();
  int length = 0;
  qsizetype fits = 0;
  while (fits < pasted.size() && length + storedLength(pasted.mid(fits, 1)) <= room) {
    length += storedLength(pasted.mid(fits, 1));
    ++fits;
  }
  if (fits < pasted.size()) QApplication::beep();
  insertPlainText(pasted.left(fits));
}

}  // namespace ksv
