#pragma once
// `ReservationCreer`: the window of a new booking. It shows the presenter's
// fields and forwards every event to it; it decides nothing itself.

#include <array>

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace ksv {

class ReservationCreerPresenter;
class Texts;
class clsCalendar;
struct BookingContext;

class ReservationCreerDialog : public QDialog {
  Q_OBJECT
 public:
  // The presenter has run Form_Load.
  ReservationCreerDialog(ReservationCreerPresenter& presenter, const Texts& texts, QWidget* parent = nullptr);

  // Escape and the title bar leave as the Exit button does.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void showFields();
  void showLists();

  ReservationCreerPresenter& p_;
  bool showing_ = false;
  std::array<QPushButton*, 6> defCl_{};
  QLineEdit* nom_ = nullptr;
  clsCalendar* calF_ = nullptr;
  clsCalendar* calT_ = nullptr;
  QLineEdit* nbJour_ = nullptr;
  QComboBox* category_ = nullptr;
  QComboBox* resource_ = nullptr;
  QLineEdit* nbAvailable_ = nullptr;
  QSpinBox* nbRequested_ = nullptr;
  QRadioButton* optCustomer_ = nullptr;
  QRadioButton* optAgent_ = nullptr;
  QLineEdit* email_ = nullptr;
  QLineEdit* howMany_ = nullptr;
  QPlainTextEdit* remarque_ = nullptr;
  QCheckBox* bloc_ = nullptr;
  QPushButton* customerList_ = nullptr;
  QPushButton* agentList_ = nullptr;
  QPushButton* blackList_ = nullptr;
  QPushButton* holes_ = nullptr;
  QPushButton* sendEmail_ = nullptr;
};

// Opens the new-booking window, modal, on the proposal the booking buffer
// holds (Res_L the pressed resource, DD_L the pressed day).
void showReservationCreer(BookingContext& ctx, QWidget* parent);

}  // namespace ksv
