#pragma once
// `Trous`, the window of free periods, over the headless TrousSearch.

#include <optional>

#include <QDialog>

#include "bookings/trous_search.h"

class QComboBox;
class QLineEdit;
class QScrollBar;
class QTableWidget;

namespace ksv {

class Availability;
class Clock;
class Messages;
class Texts;
struct DateCalendar;
struct LoadedOptions;

class TrousDialog : public QDialog {
  Q_OBJECT
 public:
  // `trous` is set up by its opener (mode, dates, category, resource).
  TrousDialog(TrousSearch& trous, const LoadedOptions& options, const Texts& texts, QWidget* parent = nullptr);

  // What Trous_OK_Click gave back, once OK closed the window.
  const std::optional<HoleChoice>& choice() const { return choice_; }

 private:
  void showSearch();
  void OK_Click();

  TrousSearch& trous_;
  std::optional<HoleChoice> choice_;
  class clsCalendar* calF_ = nullptr;
  class clsCalendar* calT_ = nullptr;
  QLineEdit* nbJour_ = nullptr;
  QComboBox* category_ = nullptr;
  QLineEdit* nbFree_ = nullptr;
  QTableWidget* lesTrous_ = nullptr;
  QScrollBar* hScroll_ = nullptr;
  bool showing_ = false;
};

// What the booking dialogs' Holes buttons call: modal, on a search set up by them.
std::optional<HoleChoice> showTrous(TrousSearch& trous, const LoadedOptions& options, const Texts& texts,
                                    QWidget* parent);

// The menu entry: the free periods from today, for any category (mode 0).
void M_Trous(Availability& availability, const Clock& clock, Messages& messages, const Texts& texts,
             const LoadedOptions& options, QDate FirstDate, QDate LastDate, QWidget* parent);

}  // namespace ksv
