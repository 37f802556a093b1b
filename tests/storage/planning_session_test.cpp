#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include "config/ini_file.h"
#include "core/clock.h"
#include "core/day_date.h"
#include "core/menu_model.h"
#include "core/regional.h"
#include "core/texts.h"
#include "storage/creation.h"
#include "storage/lock_file.h"
#include "storage/planning_session.h"
#include "storage/roster.h"
#include "storage/schema.h"
#include "support/other_process.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;

namespace {

// Records what the session asks of the window.
class FakeView : public SessionView {
 public:
  void setCaption(const QString& c) override { caption = c; }
  void applyMenus() override { ++menuUpdates; }
  void setHourglass(bool on) override { hourglass = on; }
  void Dessiner_Ecran() override { ++draws; }
  void eraseBoard() override { ++erases; }
  void RestoreDayColor() override {}
  void scrollTo(int v, int h) override { scrolled = {v, h}; }
  int todayOffset() const override { return 42; }
  QString askOpenFileName(const QString&) override { return openAnswer; }
  QString askSaveFileName(const QString&, const QString& suggested) override {
    lastSuggested = suggested;
    return saveAnswer;
  }
  void showUsers(int message) override { usersShown << message; }
  bool passWord(const QString&) override { return passWordAnswer; }
  void stopRefreshTimer() override {}
  void startRefreshTimer(int) override {}
  void closeWindow() override { closed = true; }

  QString caption, openAnswer, saveAnswer, lastSuggested;
  int menuUpdates = 0, draws = 0, erases = 0;
  bool hourglass = false, closed = false, passWordAnswer = true;
  std::pair<int, int> scrolled{-1, -1};
  QList<int> usersShown;
};

class Session : public ::testing::Test {
 protected:
  Session() : ini(folders.paths().iniFile()) {}

  QString makePlanning(const QString& name) {
    const QString path = folders.document(name);
    test::ScriptedMessages quiet;
    EXPECT_TRUE(Creation(path, {quiet, texts, folders.paths(), nullptr, false}));
    return path;
  }
  std::unique_ptr<PlanningSession> session() {
    return std::make_unique<PlanningSession>(
        SessionContext{messages, texts, clock, folders.paths(), ini, menus, regional}, view);
  }
  // A session started with `path` as its last planning.
  std::unique_ptr<PlanningSession> startedOn(const QString& path) {
    ini.SetValue("Remember", "LastFile", path);
    auto s = session();
    s->firstFocus(false);
    return s;
  }
  bool menuEnabled(const char* name) const { return menus.find(name)->enabled; }
  bool menuVisible(const char* name) const { return menus.find(name)->visible; }

  test::TempFolders folders;
  IniFile ini;
  test::ScriptedMessages messages;
  Texts texts{0};
  FixedClock clock{QDate(2026, 11, 22)};
  MenuModel menus = MenuModel::standard();
  Regional regional = Regional::englishUS();
  FakeView view;
};

}  // namespace

TEST_F(Session, OpensTheLastPlanningInNormalMode) {
  const QString path = makePlanning("Hotel.ksv");
  auto s = startedOn(path);
  ASSERT_TRUE(s->IsOpen);
  EXPECT_EQ(s->connection()->mode(), 'U');
  EXPECT_EQ(view.caption, "Kestrovane [" + path + "]");
  EXPECT_EQ(view.scrolled, std::make_pair(0, 42));
  EXPECT_EQ(view.draws, 1);
  EXPECT_EQ(readLockFile(lockPathOf(path))->normalMode, -1);
  EXPECT_TRUE(menuVisible("M_Booking"));
  EXPECT_TRUE(menuEnabled("M_Close"));
  EXPECT_EQ(s->objects().DataBaseInfo.recordCount(), 1);
  EXPECT_TRUE(messages.shown().empty());

  s->M_Close();
  EXPECT_FALSE(s->IsOpen);
  EXPECT_FALSE(QFile::exists(lockPathOf(path)));
  EXPECT_FALSE(QFile::exists(rosterPathOf(path)));
  EXPECT_EQ(view.caption, "Kestrovane");
  EXPECT_FALSE(menuEnabled("M_Close"));
  EXPECT_EQ(ini.GetValue("Remember", "LastFile"), "");
}

TEST_F(Session, ADeletedLastFileOpensNothingAndIsForgotten) {
  ini.SetValue("Remember", "LastFile", folders.document("Gone.ksv"));
  auto s = session();
  s->firstFocus(false);
  EXPECT_FALSE(s->IsOpen);
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(ini.GetValue("Remember", "LastFile"), "");
  EXPECT_EQ(view.caption, "Kestrovane");
  EXPECT_FALSE(menuEnabled("M_Booking"));
  EXPECT_TRUE(menuEnabled("M_CompactRepair"));
}

TEST_F(Session, CapsLockQuestion) {
  const QString path = makePlanning("Hotel.ksv");
  ini.SetValue("Remember", "LastFile", path);
  {
    auto s = session();
    messages.answer(MsgAnswer::Yes);  // yes, prevent the loading
    s->firstFocus(true);
    EXPECT_FALSE(s->IsOpen);
    EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
    s->firstFocus(false);  // the first focus runs once only
    EXPECT_FALSE(s->IsOpen);
  }
  auto s = session();
  messages.answer(MsgAnswer::No);
  s->firstFocus(true);
  EXPECT_TRUE(s->IsOpen);
}

TEST_F(Session, NormalModeTakenElsewhereFallsBackToConsultation) {
  const QString path = makePlanning("Hotel.ksv");
  test::OtherProcess other = test::workstation(path, 'U');
  ASSERT_TRUE(other.ready());
  ini.SetValue("Reservation", "Updating", "O");
  auto s = startedOn(path);
  ASSERT_TRUE(s->IsOpen);
  EXPECT_EQ(s->connection()->mode(), 'C');
  EXPECT_EQ(ini.GetValue("Reservation", "Updating"), "N");
  EXPECT_EQ(view.usersShown, QList<int>{txt::RosterNormalMode});
  EXPECT_TRUE(menuVisible("M_Consulting"));
  EXPECT_FALSE(menuVisible("M_Booking"));
  EXPECT_EQ(readLockFile(lockPathOf(path))->consultations, 1);
  EXPECT_EQ(liveConnections(path).size(), 2);
  s.reset();
  other.stop();
}

TEST_F(Session, AutoCompactWaitsWhenExclusiveIsRefused) {
  const QString path = makePlanning("Hotel.ksv");
  test::OtherProcess other = test::workstation(path, 'C');
  ASSERT_TRUE(other.ready());
  ini.SetValue("Remember", "AutoCompact", "261101");  // three weeks ago
  auto s = startedOn(path);
  EXPECT_TRUE(s->IsOpen);
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(ini.GetValue("Remember", "AutoCompact"), "261122");
  EXPECT_FALSE(QFile::exists(folders.document("Hotel~BeforeCompact.ksv")));
  s.reset();
  other.stop();
}

TEST_F(Session, AutoCompactRunsSilentlyAndRemovesItsSafetyCopy) {
  const QString path = makePlanning("Hotel.ksv");
  ini.SetValue("Remember", "AutoCompact", "261115");  // seven days ago
  auto s = startedOn(path);
  EXPECT_TRUE(s->IsOpen);
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(ini.GetValue("Remember", "AutoCompact"), "261122");
  EXPECT_FALSE(QFile::exists(folders.document("Hotel~BeforeCompact.ksv")));
  EXPECT_FALSE(QFile::exists(folders.document("Hotel~Compact.ksv")));
}

TEST_F(Session, SwitchingModesReopens) {
  const QString path = makePlanning("Hotel.ksv");
  auto s = startedOn(path);
  s->M_UpdateToConsult();
  ASSERT_TRUE(s->IsOpen);
  EXPECT_EQ(s->connection()->mode(), 'C');
  EXPECT_EQ(ini.GetValue("Reservation", "Updating"), "N");
  EXPECT_FALSE(menuEnabled("M_Example"));
  s->M_ConsultToUpdate();
  EXPECT_EQ(s->connection()->mode(), 'U');
  EXPECT_EQ(readLockFile(lockPathOf(path))->consultations, 0);
  EXPECT_EQ(readLockFile(lockPathOf(path))->normalMode, -1);
}

TEST_F(Session, EveryOpeningLetsTheBoardFollowThePlanningBeforeItIsDrawn) {
  const QString path = makePlanning("Hotel.ksv");
  makePlanning("KestrovaneTry.ksv");
  ini.SetValue("Remember", "LastFile", path);
  auto s = session();
  QList<int> drawsBefore;
  s->planningOpened = [&] {
    EXPECT_TRUE(s->IsOpen);
    drawsBefore << view.draws;
  };
  s->firstFocus(false);
  s->M_UpdateToConsult();
  s->Install_Example = [] { return true; };
  s->M_Example();
  EXPECT_EQ(drawsBefore, (QList<int>{0, 1, 2}));
  EXPECT_EQ(view.draws, 3);
}

TEST_F(Session, NewOffersThePrincipalQuestion) {
  auto s = session();
  view.saveAnswer = folders.document("Annexe");
  messages.answer(MsgAnswer::Yes);
  s->M_New();
  ASSERT_TRUE(s->IsOpen);
  EXPECT_EQ(s->current.full(), folders.document("Annexe.ksv"));
  EXPECT_EQ(messages.last().text, texts.get(txt::BecomePrincipal));
  EXPECT_EQ(ini.GetValue("Remember", "MyPlanning"), folders.document("Annexe.ksv"));
  EXPECT_FALSE(menuEnabled("M_Remember_Main"));
}

TEST_F(Session, SaveSuggestsANameAndNeverCopiesOntoItself) {
  const QString path = makePlanning("Hotel.ksv");
  auto s = startedOn(path);
  ASSERT_TRUE(s->IsOpen);

  view.saveAnswer = path;
  s->M_Save();
  EXPECT_EQ(view.lastSuggested, folders.document("Hotel_BackUp11222026.ksv"));
  EXPECT_EQ(messages.last().text, texts.get(txt::SaveOnItself));

  const QString target = folders.document("Copy.ksv");
  view.saveAnswer = target;
  s->M_Save();
  EXPECT_EQ(messages.last().text, "Save  successful");
  EXPECT_TRUE(QFileInfo::exists(target));

  messages.answer(MsgAnswer::No);  // do not replace the copy
  s->M_Save();
  EXPECT_EQ(messages.last().preselected, MsgAnswer::No);
}

TEST_F(Session, PurgeAsksWithNoPreselected) {
  const QString path = makePlanning("Hotel.ksv");
  {
    Database db(path, Database::OpenMode::ReadWrite);
    insertRow(db, "Reservation", {{"Resource", "1"}, {"Date_Deb", QDate(2023, 10, 1)}, {"Date_Fin", QDate(2023, 10, 31)},
                                  {"Nom", "Purged"}, {"GroupId", "C"}});
  }
  auto s = startedOn(path);
  messages.answer(MsgAnswer::Yes);
  s->M_Purge();
  EXPECT_EQ(messages.shown()[0].text, "Do you really want to purge bookings previous to the : 11/1/2023 ?");
  EXPECT_EQ(messages.shown()[0].preselected, MsgAnswer::No);
  EXPECT_EQ(messages.last().text, "Purge successful");
  EXPECT_EQ(s->objects().Reservation.recordCount(), 0);
}

TEST_F(Session, TheStartsEmptyBoardKeepsLastFileForTheFirstFocus) {
  const QString path = makePlanning("Hotel.ksv");
  ini.SetValue("Remember", "LastFile", path);
  auto s = session();
  s->Show_Title();
  s->showEmptyBoard();
  EXPECT_FALSE(menuEnabled("M_Booking"));
  EXPECT_EQ(ini.GetValue("Remember", "LastFile"), path);
  s->firstFocus(false);
  EXPECT_TRUE(s->IsOpen);
}

TEST_F(Session, CompactRepairWaitsForEveryoneElseAndReopens) {
  const QString path = makePlanning("Hotel.ksv");
  test::OtherProcess other = test::workstation(path, 'C');
  ASSERT_TRUE(other.ready());
  auto s = startedOn(path);
  ASSERT_TRUE(s->IsOpen);
  view.openAnswer = path;
  s->M_CompactRepair();
  EXPECT_EQ(view.usersShown, QList<int>{txt::RosterCompact});
  EXPECT_TRUE(s->IsOpen) << "the planning opens again in any case";
  other.stop();

  s->M_CompactRepair();  // alone now (the dead one's count is stale): compacted, announced, reopened
  ASSERT_FALSE(messages.shown().empty());
  EXPECT_EQ(messages.last().text, texts.get(txt::CompactSuccessful));
  EXPECT_TRUE(s->IsOpen);
  EXPECT_EQ(s->connection()->mode(), 'U');
}

TEST_F(Session, ExtractRefusesItselfAndReports) {
  const QString path = makePlanning("Hotel.ksv");
  auto s = startedOn(path);
  view.saveAnswer = path;
  s->M_Extract();
  EXPECT_EQ(messages.last().text, texts.get(txt::ExtractOnItself));
  view.saveAnswer = folders.document("Now.ksv");
  s->M_Extract();
  EXPECT_EQ(view.lastSuggested, folders.document("Hotel_Extraction11222026.ksv"));
  EXPECT_EQ(messages.last().text, "Extraction  successful");
  EXPECT_TRUE(QFileInfo::exists(folders.document("Now.ksv")));
  EXPECT_FALSE(QFileInfo::exists(lockPathOf(folders.document("Now.ksv"))));
}

TEST_F(Session, TheExampleOpensInNormalMode) {
  const QString example = makePlanning("KestrovaneTry.ksv");
  ini.SetValue("Reservation", "Updating", "N");
  auto s = session();
  s->firstRun = true;
  int installs = 0;
  s->Install_Example = [&] { return ++installs > 0; };
  messages.answer(MsgAnswer::Yes);
  s->firstFocus(false);
  EXPECT_EQ(installs, 1);
  ASSERT_TRUE(s->IsOpen);
  EXPECT_EQ(s->openFile, example);
  EXPECT_EQ(ini.GetValue("Reservation", "Updating"), "O");
  EXPECT_FALSE(s->firstRun);
}

// A planning named on the command line wins over LastFile and over the
// example's question; a name that is no planning is told and LastFile opens.
TEST_F(Session, APlanningGivenOnTheCommandLine) {
  const QString last = makePlanning("Last.ksv");
  const QString given = makePlanning("Given.ksv");
  QFile text(folders.document("Notes.txt"));
  ASSERT_TRUE(text.open(QIODevice::WriteOnly));
  text.close();
  const struct {
    QString argument;
    QString opened;
    QString message;
  } cases[] = {
      {given, given, ""},
      {folders.document("Gone.ksv"), last, "The Planning - " + folders.document("Gone.ksv") + " - doesn't exist"},
      {folders.document("Notes.txt"), last, "The file - " + folders.document("Notes.txt") + " - is not a Planning"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.argument.toStdString());
    ini.SetValue("Remember", "LastFile", last);
    messages.clear();
    auto s = session();
    s->firstRun = c.message.isEmpty();  // a given planning asks nothing about the example
    s->firstFocus(false, c.argument);
    ASSERT_TRUE(s->IsOpen);
    EXPECT_EQ(s->openFile, c.opened);
    EXPECT_EQ(messages.texts(), c.message.isEmpty() ? QStringList() : QStringList{c.message});
    EXPECT_EQ(ini.GetValue("Remember", "LastFile"), c.opened);
  }
}

// A file that is no planning of this version is refused with its message; the
// repair question is for damaged plannings only.
TEST_F(Session, AFileThatIsNoPlanningIsRefusedNotOfferedForRepair) {
  const QString foreign = folders.document("Foreign.ksv");
  Database(foreign, Database::OpenMode::Create).exec("CREATE TABLE Guests (Nom TEXT)");
  const QString newer = makePlanning("Newer.ksv");
  Database(newer, Database::OpenMode::ReadWrite).exec("UPDATE DataBaseInfo SET Version = '9.99'");
  for (const auto& [file, message] : {std::pair{foreign, "The file - " + foreign + " - is not a Planning"},
                                      std::pair{newer, QString("You must upgrade your Kestrovane program")}}) {
    messages.clear();
    auto s = startedOn(file);
    EXPECT_FALSE(s->IsOpen);
    EXPECT_EQ(messages.texts(), QStringList{message});
  }
}

