#pragma once
// The widgets the booking and split dialogs share, bound to a
// BookingEditForm: the customer fields, the state buttons, a calendar, a
// category list with its resource list. They show the presenter's values and
// forward the user's edits; they decide nothing.

#include <functional>
#include <memory>

#include <QBoxLayout>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QWidget>

#include "board/cls_calendar.h"
#include "board/screen_description.h"
#include "bookings/booking_edit_form.h"
#include "bookings/ui/booking_widgets.h"

namespace ksv {

class CalendarView;

// Nom with the six state buttons, Email, HowMany, Remarque and InvNb.
class CustomerFields : public QWidget {
  Q_OBJECT
 public:
  CustomerFields(BookingEditForm& form, const Texts& texts, QWidget* parent = nullptr);
  // Shows the form's values without counting them as edits.
  void showValues();
  void focusNom() { Nom_->setFocus(); }

 private:
  BookingEditForm& form_;
  QLineEdit* Nom_;
  QLineEdit* Email_;
  QSpinBox* HowMany_;
  QPlainTextEdit* Remarque_;
  QLineEdit* InvNb_;
};

// One calendar of the dialog, bounded by its field; a picked day is
// forwarded to `clicked`.
class CalendarBox : public QWidget {
  Q_OBJECT
 public:
  CalendarBox(const ScreenDescription& screen, const Texts& texts, const QString& name,
              std::function<void(QDate)> clicked, QWidget* parent = nullptr);
  ~CalendarBox() override;
  void show(const CalendarField& field);
  clsCalendar& calendar() { return *calendar_; }
  CalendarView* view() const { return view_; }

 private:
  std::unique_ptr<clsCalendar> calendar_;
  CalendarView* view_;
};

// A Category list with its Resource list, both in the category's colours.
class ResourceLists : public QWidget {
  Q_OBJECT
 public:
  ResourceLists(const ResourceChoice& choice, const QString& suffix, std::function<void(int)> categoryClick,
                std::function<void(int)> resourceClick, QWidget* parent = nullptr);
  void showValues();

 private:
  const ResourceChoice& choice_;
  QComboBox* Category_;
  QComboBox* Resource_;
};

// The window over a BookingEditForm. Its close and Escape are Annuler (a
// Cancel answer keeps it open); the presenter's hooks close, focus and
// refresh it; its command buttons redraw the values after each command.
class BookingEditDialog : public QDialog {
  Q_OBJECT
 public:
  BookingEditDialog(BookingEditForm& form, QWidget* parent);
  virtual void showValues() = 0;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void reject() override;
  // Binds the presenter's hooks and shows the values; the last step of a
  // subclass's constructor.
  void bindForm(CustomerFields* fields);
  QPushButton* addCommand(QBoxLayout* buttons, const QString& caption, const char* name, std::function<void()> run,
                          bool enabled = true);

 private:
  BookingEditForm& form_;
  bool leaving_ = false;
};

// A button of the dialog, named for tests and finding.
QPushButton* commandButton(const QString& caption, const QString& name, QWidget* parent);
// The caption of the cmdSendEmail buttons, ReservationCreer's.
QString sendEmailCaption(const Texts& texts);
// A date as the labels show it.
QString dateLabel(QDate date);

}  // namespace ksv
