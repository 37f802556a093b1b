// The remark boxes refuse what would pass the stored length as it is typed.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPlainTextEdit>

#include "customers/black_list.h"
#include "support/customer_planning.h"
#include "customers/customer_update.h"
#include "customers/ui/black_list_update_dialog.h"
#include "customers/ui/customer_update_dialog.h"
#include "customers/ui/remark_edit.h"
#include "customers/ui/remark_text.h"

using namespace ksv;

namespace {

class RemarkBoxes : public test::CustomerPlanning {};

void press(QWidget* box, Qt::Key key, const QString& text) {
  QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(box, &down);
}

void typeInto(QPlainTextEdit* box, const QString& text) {
  box->setFocus();
  for (const QChar c : text) press(box, Qt::Key_A, QString(c));
}

}  // namespace

TEST_F(RemarkBoxes, EveryRemarkBoxRefusesThe251stCharacter) {
  CustomerUpdatePresenter customer(messages, texts);
  customer.load("Martin", "", "");
  CustomerUpdateDialog customerDialog(customer, texts);
  BlackListUpdatePresenter listed(messages, texts, BlackListMode::Add);
  BlackListUpdateDialog listedDialog(listed, texts);
  for (QPlainTextEdit* box : {customerDialog.Remark, listedDialog.Remark}) {
    typeInto(box, QString(249, 'a'));
    // A line end takes two characters once stored: it no longer fits.
    press(box, Qt::Key_Return, "\r");
    typeInto(box, "bc");
    EXPECT_EQ(box->toPlainText(), QString(249, 'a') + "b");
    EXPECT_EQ(remarkFromEdit(box->toPlainText()).size(), 250);
    // A selection typed over frees its room.
    box->selectAll();
    typeInto(box, "x");
    EXPECT_EQ(box->toPlainText(), "x");
  }
}

TEST_F(RemarkBoxes, APasteTakesOnlyWhatFits) {
  RemarkEdit box(QString(245, 'a'));
  box.moveCursor(QTextCursor::End);
  QApplication::clipboard()->setText("12\n3456");
  box.paste();
  EXPECT_EQ(box.toPlainText(), QString(245, 'a') + "12\n3");
  EXPECT_EQ(RemarkEdit::storedLength(box.toPlainText()), 250);
}
