#pragma once
// The test of the workstation's regional settings: amounts and dates are kept
// as texts, so the short date format and the two number symbols must be ones
// the program reads back. `RegSettings` shows what is wrong and lets the user
// open the system's settings, then test again.

#include <array>
#include <functional>

#include <QString>

#include "core/regional.h"
#include "core/texts.h"

namespace ksv {

class Messages;

struct RegSettingsCheck {
  QString shortDateFormat;
  QString decimalSymbol;
  QString thousandSymbol;
  bool dateOk = true;       // at most dd, MMM and yyyy
  bool decimalOk = true;    // "." or ","
  bool thousandOk = true;   // first character ",", ".", blank, none or no-break space
  bool differentOk = true;  // thousand and decimal differ (judged when both passed)
  bool passes() const { return dateOk && decimalOk && thousandOk && differentOk; }
};

RegSettingsCheck checkRegSettings(const Regional& regional);

// Opens the desktop's regional settings. Returns false when none could be
// started (the user has then been told what to do instead).
class RegionPanel {
 public:
  virtual ~RegionPanel() = default;
  virtual bool open() = 0;
};

// The first region settings tool found on the PATH: GNOME, KDE Plasma 6 or 5,
// Cinnamon. `find` is QStandardPaths::findExecutable in the program.
class DesktopRegionPanel final : public RegionPanel {
 public:
  using Finder = std::function<QString(const QString& name)>;
  using Starter = std::function<bool(const QString& program, const QStringList& arguments)>;
  DesktopRegionPanel(Messages& messages, const Texts& texts, Finder find = {}, Starter start = {});
  bool open() override;

 private:
  Messages& messages_;
  Texts texts_;
  Finder find_;
  Starter start_;
};

class RegSettingsPresenter {
 public:
  struct Row {
    QString label;
    QString value;
    bool fault = false;
    QString remark;
  };
  enum class Outcome { Open, Exit, VerifyAgain };

  RegSettingsPresenter(const RegSettingsCheck& check, const Texts& texts, RegionPanel& panel);

  QString heading() const { return texts_.get(txt::RegHeading); }
  QString title() const { return texts_.get(txt::RegSettingsTitle); }
  // Rows in the order decimal, thousand, short date.
  const std::array<Row, 3>& rows() const { return rows_; }
  QString okCaption() const { return texts_.get(txt::ButtonExit); }
  QString ctlPanelCaption() const;

  void OK_Click() { outcome_ = Outcome::Exit; }
  // First press opens the system's settings; the next one asks for a new test.
  void CtlPanel_Click();
  Outcome outcome() const { return outcome_; }

 private:
  Texts texts_;
  RegionPanel& panel_;
  std::array<Row, 3> rows_;
  bool panelOpened_ = false;
  Outcome outcome_ = Outcome::Open;
};

// Tests the settings read by `read` until they pass (true) or the user leaves
// the dialog shown by `show` (false: the start ends, without a message).
using ShowRegSettings = std::function<void(RegSettingsPresenter&)>;
bool VerifyRegSettings(const std::function<Regional()>& read, const Texts& texts, RegionPanel& panel,
                       const ShowRegSettings& show);

}  // namespace ksv
