#pragma once
// File > Print the board: the days shown or a range of days, then the printer
// or a PDF file through the print path every list of the program takes.

#include <optional>
#include <utility>

#include <QDate>
#include <QDialog>

class QDateEdit;
class QRadioButton;

namespace ksv {

class Messages;
class Texts;
struct Regional;
struct SessionObjects;

class PrintBoardDialog : public QDialog {
  Q_OBJECT
 public:
  // The days show in `dateFormat`, the workstation's short date.
  PrintBoardDialog(QDate viewFirst, QDate viewLast, const QString& dateFormat, const Texts& texts,
                   QWidget* parent = nullptr);
  // The first and last day to print.
  std::pair<QDate, QDate> days() const;

 private:
  QDate viewFirst_, viewLast_;
  QRadioButton* asShown_ = nullptr;
  QDateEdit* from_ = nullptr;
  QDateEdit* to_ = nullptr;
};

// M_Print: asks for the days, then prints their sheets.
void M_Print(SessionObjects& objects, QDate viewFirst, QDate viewLast, const Texts& texts, const Regional& regional,
             Messages& messages, QWidget* parent);

}  // namespace ksv
