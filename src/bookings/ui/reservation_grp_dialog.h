#pragma once
// `ReservationGrp`: the group of the clicked booking. Binds its widgets to a
// ReservationGrpPresenter and forwards every event to it.

#include <array>
#include <memory>

#include <QDialog>

#include "bookings/booking_context.h"
#include "bookings/reservation_grp.h"
#include "board/screen_description.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace ksv {

class CalendarView;
class clsCalendar;

// Modal; the buffer holds the clicked booking and RS stands on it at I_L.
void showReservationGrp(BookingContext& ctx, QWidget* parent);

class ReservationGrpDialog final : public QDialog {
  Q_OBJECT
 public:
  ReservationGrpDialog(ReservationGrpPresenter& presenter, const BookingContext& ctx, QWidget* parent = nullptr);
  ~ReservationGrpDialog() override;

  QLineEdit* Nom = nullptr;
  QLineEdit* Email = nullptr;
  QSpinBox* HowMany = nullptr;
  QPlainTextEdit* Remarque = nullptr;
  QLineEdit* InvNb = nullptr;
  std::array<QPushButton*, 6> Def_Cl{};
  QCheckBox* Bloc = nullptr;
  QRadioButton* optCustomer = nullptr;
  QRadioButton* optAgent = nullptr;
  QLabel* NB_Jour = nullptr;
  QLabel* NbRequested = nullptr;
  QLabel* FirstDate = nullptr;
  QComboBox* Customer = nullptr;
  QLineEdit* Resource = nullptr;
  QLineEdit* DtFrom = nullptr;
  QLineEdit* DtTo = nullptr;
  QLineEdit* Days = nullptr;
  QPlainTextEdit* Remark = nullptr;
  QLineEdit* ResourceS = nullptr;
  QLineEdit* DtFromS = nullptr;
  QLineEdit* DtToS = nullptr;
  QLineEdit* DaysS = nullptr;
  QLabel* possibleLabel = nullptr;
  QComboBox* cboPossible = nullptr;
  QPushButton* cmdAdd = nullptr;
  QPushButton* cmdRemove = nullptr;
  QPushButton* ModifyGroup = nullptr;
  QPushButton* DeleteGroup = nullptr;
  QPushButton* SplitGroup = nullptr;
  QPushButton* CdInvoice = nullptr;
  QPushButton* cmdSendEmail = nullptr;
  QPushButton* CmdExit = nullptr;

  // Shows the presenter's fields again.
  void refresh();

 public slots:
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void readHeader();
  void exit();

  ReservationGrpPresenter& presenter_;
  Regional regional_;
  ScreenDescription screen_;
  std::unique_ptr<clsCalendar> calF_, calT_;
  CalendarView* CalF = nullptr;
  CalendarView* CalT = nullptr;
  bool filling_ = false;
  bool closing_ = false;
};

}  // namespace ksv
