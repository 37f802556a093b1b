#include <gtest/gtest.h>

#include "config/ini_file.h"
#include "core/texts.h"
#include "net/comment.h"
#include "net/users_list.h"
#include "storage/creation.h"
#include "storage/roster.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;

namespace {

class UsersTest : public ::testing::Test {
 protected:
  void SetUp() override {
    planning = folders.document("Hotel.ksv");
    ASSERT_TRUE(Creation(planning, CreationContext{messages, texts, folders.paths()}));
    messages.clear();
  }
  // Shows the list and keeps what it showed.
  UsersContext context(const QString& open, const QString& current = QString(), QString chosen = QString()) {
    return UsersContext{open, current, [this, chosen] { ++asked; return chosen; },
                        [this](const UsersListPresenter& p) {
                          ++shown;
                          rows = p.rows();
                          message = p.message();
                          height = p.heightTwips();
                          headings = QStringList{p.computersHeading(), p.usersHeading()};
                        }};
  }
  test::TempFolders folders;
  test::ScriptedMessages messages;
  Texts texts{0};
  QString planning;
  int asked = 0, shown = 0, height = 0;
  QStringList rows, headings;
  QString message;
};

}  // namespace

TEST_F(UsersTest, ListsTheLiveConnectionsOfTheOpenPlanning) {
  auto anne = RosterEntry::join(planning, "RECEPTION", QString("anne") + QChar(0) + "junk");
  auto bruno = RosterEntry::join(planning, "OFFICE", "bruno");
  int msg = 0;
  M_Users(msg, context(planning), messages, texts);
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(headings, (QStringList{"Computers", "Users"}));
  EXPECT_EQ(rows, (QStringList{"RECEPTION\tanne", "OFFICE\tbruno"}));
  EXPECT_EQ(message, "");
  EXPECT_EQ(height, 5300);
  bruno.reset();
  M_Users(msg, context(planning), messages, texts);
  EXPECT_EQ(rows, QStringList{"RECEPTION\tanne"});
}

TEST_F(UsersTest, ARefusedModeShowsItsMessageAndClearsIt) {
  auto other = RosterEntry::join(planning, "OFFICE", "bruno");
  int msg = txt::RosterNormalMode;
  // No planning open yet: the list connects to the file that was asked for.
  M_Users(msg, context(QString(), planning), messages, texts);
  EXPECT_EQ(asked, 0) << "with a message the file is known";
  EXPECT_EQ(message,
            "The data base cannot be open in normal mode because somebody is already working  in this mode.");
  EXPECT_NE(height, 5300);
  EXPECT_TRUE(rows.contains("OFFICE\tbruno"));
  EXPECT_EQ(rows.size(), 2) << "the list's own connection is in the roster while it shows";
  EXPECT_EQ(msg, 0);
  EXPECT_EQ(liveConnections(planning).size(), 1) << "and is closed afterwards";
}

TEST_F(UsersTest, WithoutAPlanningTheUserChoosesOne) {
  int msg = 0;
  M_Users(msg, context(QString(), QString(), QString()), messages, texts);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(shown, 0) << "an empty choice stops";

  const QString notThere = folders.document("Gone.ksv");
  M_Users(msg, context(QString(), QString(), notThere), messages, texts);
  EXPECT_EQ(shown, 0);
  ASSERT_EQ(messages.texts().size(), 1);
  EXPECT_EQ(messages.last().icon, MsgIcon::Critical);

  M_Users(msg, context(QString(), QString(), planning), messages, texts);
  EXPECT_EQ(shown, 1);
}

TEST(Comment, EditsOneCompanyValue) {
  test::TempFolders folders;
  IniFile ini(folders.paths().iniFile());
  ini.SetValue("Company", "Comment", "Thank you");
  int refreshed = 0;
  CommentPresenter p(ini, "Comment", Texts(kFrenchOffset), [&] { ++refreshed; });
  EXPECT_EQ(p.title(), "Commentaire");
  EXPECT_EQ(p.text, "Thank you");
  p.text = "Merci de votre visite";
  p.Cancel_Click();
  EXPECT_EQ(ini.GetValue("Company", "Comment"), "Thank you");
  EXPECT_EQ(refreshed, 0);
  p.OK_Click();
  EXPECT_EQ(ini.GetValue("Company", "Comment"), "Merci de votre visite");
  EXPECT_EQ(refreshed, 1);
}
