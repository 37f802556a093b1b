#pragma once
// The detail zones of the worklist and the history: the stay in hand, its
// state on its colours, and the remark, which the window writes back when
// the zone loses the focus after a change.

#include <functional>
#include <optional>

#include <QWidget>

#include "bookings/booking_detail.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace ksv {

class Texts;

class BookingDetailPanel : public QWidget {
  Q_OBJECT
 public:
  BookingDetailPanel(const Texts& texts, bool canWrite, QWidget* parent = nullptr);

  // Empty zones when there is no stay.
  void show(const std::optional<BookingDetail>& detail, const QString& dateFormat);
  QString email() const;
  // Runs with the edited remark when `Remarque` loses the focus after a change.
  std::function<void(const QString& remark)> remarkLeft;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* Resource_;
  QLineEdit* Dt_Deb_;
  QLineEdit* Dt_Fin_;
  QLineEdit* NB_Jour_;
  QLineEdit* Nom_;
  QLineEdit* HowMany_;
  QLineEdit* Email_;
  QPlainTextEdit* Remarque_;
  QLabel* Lib_Alarm_;
  QCheckBox* Split_;
  QLabel* Lib_split_;
  bool changed_ = false;
};

}  // namespace ksv
