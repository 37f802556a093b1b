#pragma once
// The Calendrier and Calendriers dialogs: their presenters' calendars on
// surfaces, and OK and Cancel forwarded.

#include <QDialog>

#include "board/calendrier_presenter.h"

class QPushButton;

namespace ksv {

class CalendarView;

class CalendrierDialog : public QDialog {
  Q_OBJECT
 public:
  CalendrierDialog(CalendrierPresenter& presenter, const Texts& texts, QWidget* parent = nullptr);
  CalendarView* view() const { return view_; }
  QPushButton* okButton() const { return ok_; }
  QPushButton* cancelButton() const { return cancel_; }

 private:
  CalendrierPresenter& presenter_;
  CalendarView* view_;
  QPushButton* ok_;
  QPushButton* cancel_;
};

class CalendriersDialog : public QDialog {
  Q_OBJECT
 public:
  CalendriersDialog(CalendriersPresenter& presenter, const Texts& texts, QWidget* parent = nullptr);
  CalendarView* viewFrom() const { return from_; }
  CalendarView* viewTo() const { return to_; }
  QPushButton* okButton() const { return ok_; }
  QPushButton* cancelButton() const { return cancel_; }

 private:
  CalendriersPresenter& presenter_;
  CalendarView* from_;
  CalendarView* to_;
  QPushButton* ok_;
  QPushButton* cancel_;
};

}  // namespace ksv
