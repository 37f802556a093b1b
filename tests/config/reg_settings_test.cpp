#include <gtest/gtest.h>

#include "config/reg_settings.h"
#include "support/scripted_messages.h"

using namespace ksv;

namespace {

Regional settings(const QString& date, const QString& decimal, const QString& thousand) {
  Regional r = Regional::englishUS();
  r.shortDateFormat = date;
  r.decimalSymbol = decimal;
  r.thousandSymbol = thousand;
  return r;
}

const QString kNbsp(QChar(0xA0));

class CountingPanel final : public RegionPanel {
 public:
  bool open() override {
    ++opened;
    return true;
  }
  int opened = 0;
};

}  // namespace

TEST(RegSettingsCheck, SettingsThatPass) {
  EXPECT_TRUE(checkRegSettings(settings("dd/MM/yyyy", ",", kNbsp)).passes());
  EXPECT_TRUE(checkRegSettings(settings("M/d/yyyy", ".", ",")).passes());
  EXPECT_TRUE(checkRegSettings(settings("dd-MMM-yy", ".", "")).passes());
  EXPECT_TRUE(checkRegSettings(settings("yyyy.MM.dd", ",", " ")).passes());
  EXPECT_TRUE(checkRegSettings(settings("dd/MM/yyyy", ",", ".")).passes());
  EXPECT_TRUE(checkRegSettings(Regional::french()).passes());
}

TEST(RegSettingsCheck, EachTestFailsOnItsOwn) {
  RegSettingsCheck c = checkRegSettings(settings("dddd dd/MM/yyyy", ".", ","));
  EXPECT_FALSE(c.dateOk);
  EXPECT_TRUE(c.decimalOk && c.thousandOk && c.differentOk);
  EXPECT_FALSE(checkRegSettings(settings("d MMMM yyyy", ".", ",")).dateOk);
  EXPECT_FALSE(checkRegSettings(settings("DD/mm/YYYYY", ".", ",")).dateOk) << "letters count without regard to case";

  c = checkRegSettings(settings("dd/MM/yyyy", "'", ","));
  EXPECT_FALSE(c.decimalOk);
  EXPECT_TRUE(c.differentOk) << "the fourth test waits for both symbols to pass";

  c = checkRegSettings(settings("dd/MM/yyyy", ".", "'"));
  EXPECT_FALSE(c.thousandOk);
  EXPECT_TRUE(c.decimalOk && c.dateOk && c.differentOk);

  c = checkRegSettings(settings("dd/MM/yyyy", ",", ","));
  EXPECT_TRUE(c.dateOk && c.decimalOk && c.thousandOk);
  EXPECT_FALSE(c.differentOk);
  EXPECT_FALSE(c.passes());
}

TEST(RegSettingsCheck, ALongThousandSymbolIsJudgedByItsFirstCharacter) {
  EXPECT_TRUE(checkRegSettings(settings("dd/MM/yyyy", ",", " x")).passes());
  EXPECT_FALSE(checkRegSettings(settings("dd/MM/yyyy", ",", "x ")).thousandOk);
  EXPECT_FALSE(checkRegSettings(settings("dd/MM/yyyy", ",", ",,")).differentOk);
}

TEST(RegSettingsDialog, MarksTheFaultyRowsWithTheirRemarks) {
  CountingPanel panel;
  const Texts en(0);
  RegSettingsPresenter equal(checkRegSettings(settings("dd/MM/yyyy", ",", ",")), en, panel);
  EXPECT_FALSE(equal.rows()[0].fault);
  EXPECT_TRUE(equal.rows()[1].fault);
  EXPECT_EQ(equal.rows()[1].remark, "The symbol of the thousand must be different");
  EXPECT_FALSE(equal.rows()[2].fault);
  EXPECT_EQ(equal.rows()[2].remark, "");

  RegSettingsPresenter all(checkRegSettings(settings("dddd/MMMM/yyyyy", ";", "'")), en, panel);
  EXPECT_EQ(all.rows()[0].remark, "Must be : a point or a comma");
  EXPECT_EQ(all.rows()[1].remark, "Must be : a point, a comma,  a space or nothing");
  EXPECT_TRUE(all.rows()[2].remark.startsWith(" In the short format of the date: d..d / m..m / a..a\r\n"));
}

TEST(RegSettingsDialog, TheLoopEndsOnExitOrWhenTheSettingsPass) {
  CountingPanel panel;
  const Texts en(0);
  int reads = 0;
  auto read = [&] { return ++reads < 3 ? settings("dddd", ".", ",") : settings("dd/MM/yy", ".", ","); };

  // Open the panel, then verify: the settings are read again.
  int shown = 0;
  const bool ok = VerifyRegSettings(read, en, panel, [&](RegSettingsPresenter& d) {
    ++shown;
    d.CtlPanel_Click();
    EXPECT_EQ(d.outcome(), RegSettingsPresenter::Outcome::Open);
    d.CtlPanel_Click();
  });
  EXPECT_TRUE(ok);
  EXPECT_EQ(reads, 3);
  EXPECT_EQ(shown, 2);
  EXPECT_EQ(panel.opened, 2);

  reads = 0;
  EXPECT_FALSE(VerifyRegSettings(read, en, panel, [](RegSettingsPresenter& d) { d.OK_Click(); }));
  EXPECT_EQ(reads, 1);

  // Passing settings show nothing.
  EXPECT_TRUE(VerifyRegSettings([] { return Regional::french(); }, en, panel,
                                [](RegSettingsPresenter&) { ADD_FAILURE() << "dialog shown"; }));
}

TEST(DesktopRegionPanel, StartsTheFirstToolFoundOrSaysWhatToRun) {
  test::ScriptedMessages messages;
  QStringList started;
  auto start = [&](const QString& program, const QStringList& args) {
    started << program + " " + args.join(' ');
    return true;
  };
  DesktopRegionPanel kde(messages, Texts(0), [](const QString& name) {
    return name == "systemsettings" ? QString("/usr/bin/systemsettings") : QString();
  }, start);
  EXPECT_TRUE(kde.open());
  EXPECT_EQ(started, QStringList{"/usr/bin/systemsettings kcm_regionandlang"});
  EXPECT_EQ(messages.texts().size(), 1);

  messages.clear();
  DesktopRegionPanel none(messages, Texts(0), [](const QString&) { return QString(); }, start);
  EXPECT_FALSE(none.open());
  ASSERT_EQ(messages.texts().size(), 1);
  EXPECT_TRUE(messages.last().text.contains("sudo dpkg-reconfigure locales"));
  EXPECT_TRUE(messages.last().text.contains("LANG"));
}
