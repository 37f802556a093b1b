#include "reg_settings.h"

#include <QProcess>
#include <QStandardPaths>

#include "core/messages.h"

namespace ksv {

RegSettingsCheck checkRegSettings(const Regional& regional) {
  RegSettingsCheck c;
  c.shortDateFormat = regional.shortDateFormat;
  c.decimalSymbol = regional.decimalSymbol;
  c.thousandSymbol = regional.thousandSymbol;

  const QString& f = c.shortDateFormat;
  c.dateOk = !f.contains(QLatin1String("ddd"), Qt::CaseInsensitive) &&
             !f.contains(QLatin1String("MMMM"), Qt::CaseInsensitive) &&
             !f.contains(QLatin1String("yyyyy"), Qt::CaseInsensitive);

  c.decimalOk = c.decimalSymbol == QLatin1String(".") || c.decimalSymbol == QLatin1String(",");

  const QString thousand = c.thousandSymbol.left(1);
  c.thousandOk = thousand.isEmpty() || thousand == QLatin1String(",") || thousand == QLatin1String(".") ||
                 thousand == QLatin1String(" ") || thousand == QString(QChar(0xA0));

  if (c.decimalOk && c.thousandOk) c.differentOk = thousand != c.decimalSymbol;
  return c;
}

DesktopRegionPanel::DesktopRegionPanel(Messages& messages, const Texts& texts, Finder find, Starter start)
    : messages_(messages), texts_(texts), find_(std::move(find)), start_(std::move(start)) {
  if (!find_) find_ = [](const QString& name) { return QStandardPaths::findExecutable(name); };
  if (!start_) start_ = [](const QString& program, const QStringList& args) {
    return QProcess::startDetached(program, args);
  };
}

bool DesktopRegionPanel::open() {
  struct Tool {
    const char* program;
    const char* argument;
  };
  static constexpr Tool kTools[] = {
      {"gnome-control-center", "region"},
      {"systemsettings", "kcm_regionandlang"},
      {"systemsettings5", "kcm_formats"},
      {"cinnamon-settings", "region"},
  };
  for (const Tool& t : kTools) {
    const QString program = find_(QString::fromLatin1(t.program));
    if (program.isEmpty()) continue;
    if (!start_(program, {QString::fromLatin1(t.argument)})) continue;
    // The running program keeps the locale it started with.
    messages_.information(texts_.get(txt::RegPanelStarted));
    return true;
  }
  messages_.information(texts_.get(txt::RegNoPanel));
  return false;
}

RegSettingsPresenter::RegSettingsPresenter(const RegSettingsCheck& check, const Texts& texts, RegionPanel& panel)
    : texts_(texts), panel_(panel) {
  rows_[0] = {texts_.get(txt::RegDecimalSymbol), check.decimalSymbol, !check.decimalOk,
              check.decimalOk ? QString() : texts_.get(txt::RegDecimalRemark)};
  Row& thousand = rows_[1];
  thousand = {texts_.get(txt::RegThousandSymbol), check.thousandSymbol, !check.thousandOk || !check.differentOk, {}};
  if (!check.thousandOk)
    thousand.remark = texts_.get(txt::RegThousandRemark);
  else if (!check.differentOk)
    thousand.remark = texts_.get(txt::RegEqualRemark);
  rows_[2] = {texts_.get(txt::RegShortDate), check.shortDateFormat, !check.dateOk,
              check.dateOk ? QString() : texts_.get(txt::RegDateRemark)};
}

QString RegSettingsPresenter::ctlPanelCaption() const {
  return texts_.get(panelOpened_ ? txt::RegVerify : txt::RegOpenPanel);
}

void RegSettingsPresenter::CtlPanel_Click() {
  if (panelOpened_) {
    outcome_ = Outcome::VerifyAgain;
    return;
  }
  panel_.open();
  panelOpened_ = true;
}

bool VerifyRegSettings(const std::function<Regional()>& read, const Texts& texts, RegionPanel& panel,
                       const ShowRegSettings& show) {
  for (;;) {
    const RegSettingsCheck check = checkRegSettings(read());
    if (check.passes()) return true;
    RegSettingsPresenter dialog(check, texts, panel);
    show(dialog);
    if (dialog.outcome() != RegSettingsPresenter::Outcome::VerifyAgain) return false;
  }
}

}  // namespace ksv
