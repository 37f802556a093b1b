#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>

#include "config/ini_file.h"
#include "config/ui/langage_dialog.h"
#include "config/ui/reg_settings_dialog.h"
#include "net/ui/comment_dialog.h"
#include "net/ui/pass_word_dialog.h"
#include "net/ui/users_list_dialog.h"
#include "support/temp_folders.h"

using namespace ksv;

TEST(LangageDialog, TheChoiceTurnsTheCaptionsAndOkWritesIt) {
  test::TempFolders folders;
  IniFile ini(folders.paths().iniFile());
  LangagePresenter presenter(ini);
  LangageDialog dialog(presenter);
  const QString english = dialog.windowTitle();
  dialog.Francais->click();
  EXPECT_NE(dialog.windowTitle(), english);
  dialog.OK->click();
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.offset(), 1000);
  EXPECT_EQ(ini.GetValue("Remember", "Language"), "Fr");
}

namespace {
class NoPanel final : public RegionPanel {
 public:
  bool open() override { return ++opened, false; }
  int opened = 0;
};
}  // namespace

TEST(RegSettingsDialog, OpenThenVerifyClosesForANewTest) {
  Regional bad = Regional::englishUS();
  bad.thousandSymbol = ".";
  bad.decimalSymbol = ".";
  NoPanel panel;
  RegSettingsPresenter presenter(checkRegSettings(bad), Texts(0), panel);
  RegSettingsDialog dialog(presenter);
  EXPECT_EQ(dialog.remark(1)->text(), "The symbol of the thousand must be different");
  EXPECT_TRUE(dialog.mark(2)->text().isEmpty());
  dialog.CtlPanel->click();
  EXPECT_EQ(panel.opened, 1);
  EXPECT_EQ(dialog.CtlPanel->text(), "&Verify the new settings");
  dialog.CtlPanel->click();
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(presenter.outcome(), RegSettingsPresenter::Outcome::VerifyAgain);

  RegSettingsPresenter second(checkRegSettings(bad), Texts(0), panel);
  RegSettingsDialog exitDialog(second);
  EXPECT_EQ(exitDialog.OK->text(), "&Exit");
  exitDialog.OK->click();
  EXPECT_EQ(second.outcome(), RegSettingsPresenter::Outcome::Exit);
}

TEST(PassWordDialog, MaskShowsDollarsAndOkTellsTheResult) {
  PassWordPresenter presenter("Open Sesame");
  PassWordDialog dialog(presenter, Texts(0));
  dialog.Code->setText("open");
  dialog.MP->click();
  EXPECT_EQ(dialog.Code->displayText(), "$$$$");
  EXPECT_EQ(dialog.Code->text(), "open");
  dialog.OK->click();
  EXPECT_FALSE(presenter.Result);
  EXPECT_EQ(dialog.result(), QDialog::Rejected);

  PassWordPresenter right("Open Sesame");
  PassWordDialog again(right, Texts(0));
  again.Code->setText("Open Sesame");
  again.OK->click();
  EXPECT_TRUE(right.Result);
  EXPECT_EQ(again.result(), QDialog::Accepted);
}

TEST(UsersListDialog, ShowsTheRowsAndTheMessage) {
  UsersListPresenter presenter(Texts(0), {"RECEPTION\tanne", "OFFICE\tbruno"}, txt::RosterCompact);
  UsersListDialog dialog(presenter);
  ASSERT_EQ(dialog.grid->rowCount(), 2);
  EXPECT_EQ(dialog.grid->item(1, 0)->text(), "OFFICE");
  EXPECT_EQ(dialog.grid->item(1, 1)->text(), "bruno");
  EXPECT_EQ(dialog.message->text(), Texts(0).get(txt::RosterCompact));
  dialog.exitButton->click();
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST(CommentDialog, OkWritesTheLineCancelDoesNot) {
  test::TempFolders folders;
  IniFile ini(folders.paths().iniFile());
  ini.SetValue("Company", "Comment", "Old");
  CommentPresenter presenter(ini, "Comment", Texts(0));
  CommentDialog dialog(presenter, Texts(0));
  EXPECT_EQ(dialog.windowTitle(), "Comment");
  EXPECT_EQ(dialog.text->text(), "Old");
  dialog.text->setText("New");
  dialog.Cancel->click();
  EXPECT_EQ(ini.GetValue("Company", "Comment"), "Old");
  CommentDialog second(presenter, Texts(0));
  second.text->setText("Thank you for your stay");
  second.OK->click();
  EXPECT_EQ(ini.GetValue("Company", "Comment"), "Thank you for your stay");
}
