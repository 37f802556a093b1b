#pragma once
// The `Alarm` window over the headless AlarmPresenter: six lists with their
// titles, texts and print boxes, the detail zones, Print, e-mail and OK.

#include <array>

#include <QDialog>

#include "bookings/alarm.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QListWidget;

namespace ksv {

class BookingDetailPanel;

class AlarmDialog : public QDialog {
  Q_OBJECT
 public:
  AlarmDialog(AlarmPresenter& presenter, const Texts& texts, const QString& dateFormat, QWidget* parent = nullptr);

  QListWidget* list(int index) const { return lists_[std::size_t(index)]; }
  QGroupBox* frame(int index) const { return frames_[std::size_t(index)]; }

  // Shows the presenter's lists and selection again.
  void showLists();

 private:
  void showSelection();
  void OK_Click();

  AlarmPresenter& p_;
  QString dateFormat_;
  std::array<QGroupBox*, AlarmPresenter::kLists> frames_{};
  std::array<QLabel*, AlarmPresenter::kLists> countTexts_{};
  std::array<QCheckBox*, AlarmPresenter::kLists> checks_{};
  std::array<QListWidget*, AlarmPresenter::kLists> lists_{};
  BookingDetailPanel* detail_ = nullptr;
  QCheckBox* openAtStart_ = nullptr;
  bool showing_ = false;
};

}  // namespace ksv
