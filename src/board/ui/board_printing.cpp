#include "board_printing.h"

#include <QDateEdit>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "board/printed_board.h"
#include "core/regional.h"
#include "core/texts.h"
#include "customers/ui/list_printer.h"

namespace ksv {

PrintBoardDialog::PrintBoardDialog(QDate viewFirst, QDate viewLast, const QString& dateFormat, const Texts& texts,
                                   QWidget* parent)
    : QDialog(parent), viewFirst_(viewFirst), viewLast_(viewLast) {
  setObjectName(QStringLiteral("PrintBoard"));
  setWindowTitle(texts.get(txt::PrintBoardTitle));
  asShown_ = new QRadioButton(texts.get(txt::PrintBoardAsShown), this);
  asShown_->setObjectName(QStringLiteral("AsShown"));
  asShown_->setChecked(true);
  auto* range = new QRadioButton(texts.get(txt::PrintBoardFrom), this);
  range->setObjectName(QStringLiteral("Range"));
  from_ = new QDateEdit(viewFirst, this);
  from_->setObjectName(QStringLiteral("From"));
  to_ = new QDateEdit(viewLast, this);
  to_->setObjectName(QStringLiteral("To"));
  for (QDateEdit* e : {from_, to_}) {
    e->setDisplayFormat(dateFormat);
    e->setCalendarPopup(true);
    e->setEnabled(false);
  }
  // The range never runs backwards.
  to_->setMinimumDate(viewFirst);
  connect(from_, &QDateEdit::dateChanged, to_, &QDateEdit::setMinimumDate);
  connect(range, &QRadioButton::toggled, this, [this](bool on) {
    from_->setEnabled(on);
    to_->setEnabled(on);
  });

  auto* grid = new QGridLayout;
  grid->addWidget(asShown_, 0, 0, 1, 4);
  grid->addWidget(range, 1, 0);
  grid->addWidget(from_, 1, 1);
  grid->addWidget(new QLabel(texts.get(txt::PrintBoardTo), this), 1, 2);
  grid->addWidget(to_, 1, 3);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(texts.get(txt::ButtonOk), QDialogButtonBox::AcceptRole)->setObjectName(QStringLiteral("OK"));
  buttons->addButton(texts.get(txt::ButtonCancel), QDialogButtonBox::RejectRole)
      ->setObjectName(QStringLiteral("Cancel"));
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addWidget(buttons);
}

std::pair<QDate, QDate> PrintBoardDialog::days() const {
  if (asShown_->isChecked()) return {viewFirst_, viewLast_};
  return {from_->date(), to_->date()};
}

void M_Print(SessionObjects& objects, QDate viewFirst, QDate viewLast, const Texts& texts, const Regional& regional,
             Messages& messages, QWidget* parent) {
  PrintBoardDialog dialog(viewFirst, viewLast, regional.shortDateFormat, texts, parent);
  if (dialog.exec() != QDialog::Accepted) return;
  const auto [from, to] = dialog.days();
  printLists(printedBoard(objects, from, to, texts, regional), parent, messages, texts, txt::PrintBoardFailed);
}

}  // namespace ksv
