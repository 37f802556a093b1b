// The daily worklist: which stays stand on which list, a row found again by
// its position, the remark written to the right rows, the boxes kept, the
// paper, and the stays to look at.

#include <gtest/gtest.h>

#include "support/worklist_session.h"

namespace ksv {
namespace {

class Worklist : public ::testing::Test, protected test::WorklistSession {
 protected:
  Worklist() { planning.addResource("Bed*", 0, 3); }

  // The window as it opens with these counts and the two switches.
  AlarmPresenter& open(const QString& counts, bool extension = false, bool exceptions = false) {
    ini.SetValue("Alarm", "NbDays", counts);
    ini.SetValue("Alarm", "Extension", extension ? "O" : "N");
    ini.SetValue("Alarm", "Exceptions", exceptions ? "O" : "N");
    reload();
    alarm.reset();
    alarm.emplace(context());
    alarm->M_Alarm_Click();
    return *alarm;
  }

  QString remarkOf(const QString& nom) {
    return planning.db().scalar("SELECT ifnull(Remarque, '<null>') FROM Reservation WHERE Nom = ?", {nom}).toString();
  }
  qint64 rowIdOf(const QString& nom) {
    return planning.db().scalar("SELECT rowid FROM Reservation WHERE Nom = ?", {nom}).toLongLong();
  }

  std::optional<AlarmPresenter> alarm;
};

TEST_F(Worklist, EachListTestsTheRowOnItsOwn) {
  planning.addBooking("101", day(0), day(1), "One night");      // arrives today, leaves tomorrow
  planning.addBooking("102", day(-3), day(0), "Leaves today");
  planning.addBooking("Bed*", day(-1), day(0), "Extra bed");   // never on lists 0 to 3
  planning.addBooking("102", day(3), day(5), "In three days");
  planning.addBooking("101", day(7), day(9), "In a week");

  struct Case {
    QString counts;
    QStringList leaving, arrival, event1, event2;
    QStringList texts;
  };
  const Case cases[] = {
      {"0\\0\\0\\0\\", {"102"}, {"101"}, {}, {}, {"the very day", "the very day", "Not set", "Not set"}},
      {"1\\1\\3\\0\\", {"102", "101"}, {"101"}, {"102"}, {}, {"in the 1 days", "in the 1 days", "in 3 days", "Not set"}},
      {"0\\3\\0\\7\\", {"102"}, {"101", "102"}, {}, {"101"}, {"the very day", "in the 3 days", "Not set", "in 7 days"}},
  };
  for (const Case& c : cases) {
    AlarmPresenter& a = open(c.counts);
    SCOPED_TRACE(c.counts.toStdString());
    // Rows come by arrival, then resource: "Leaves today" (102) arrived before "One night" (101).
    EXPECT_EQ(a.List_Alarm[AlarmPresenter::Leaving], c.leaving);
    EXPECT_EQ(a.List_Alarm[AlarmPresenter::Arrival], c.arrival);
    EXPECT_EQ(a.List_Alarm[AlarmPresenter::Event1], c.event1);
    EXPECT_EQ(a.List_Alarm[AlarmPresenter::Event2], c.event2);
    EXPECT_EQ((QStringList{a.countTexts[0], a.countTexts[1], a.countTexts[2], a.countTexts[3]}), c.texts);
    EXPECT_EQ(a.caption, "Kestrovane");
  }
}

TEST_F(Worklist, TwoRowsOfOneResourceAreToldApartByTheirPositionAndTheRemarkGoesToTheRightOne) {
  planning.addBooking("101", day(-4), day(0), "First");
  planning.addBooking("101", day(-2), day(0), "Second");
  AlarmPresenter& a = open("0\\0\\0\\0\\");
  ASSERT_EQ(a.List_Alarm[AlarmPresenter::Leaving], (QStringList{"101", "101"}));
  EXPECT_EQ(a.detail->Nom, "First") << "the first row of the first list is selected at opening";

  a.List_Alarm_Click(AlarmPresenter::Leaving, 1);
  ASSERT_TRUE(a.detail);
  EXPECT_EQ(a.detail->Nom, "Second");
  EXPECT_EQ(a.detail->NB_Jour, 2);
  a.Alarm_Save_Customer("Late check-out\r\nTaxi at 11");
  EXPECT_EQ(remarkOf("Second"), "Late check-out\r\nTaxi at 11");
  EXPECT_EQ(remarkOf("First"), "");

  // A consultation workstation reads only.
  a.canWrite = false;
  a.Alarm_Save_Customer("changed");
  EXPECT_EQ(remarkOf("Second"), "Late check-out\r\nTaxi at 11");
}

TEST_F(Worklist, TheRemarkOfASplitPartReachesItsOtherPartOnly) {
  planning.addBooking("101", day(0), day(2), "Split guest", {{"Couleur", 1}, {"Split", "1"}});
  planning.addBooking("102", day(2), day(4), "Split guest", {{"Couleur", 1}, {"Split", "2"}});
  // Another state: not the other part.
  planning.addBooking("102", day(4), day(6), "Split guest", {{"Couleur", 2}, {"Split", "2"}});
  AlarmPresenter& a = open("0\\0\\0\\0\\");
  ASSERT_EQ(a.List_Alarm[AlarmPresenter::Arrival], (QStringList{"101"}));
  EXPECT_TRUE(a.detail->Split);
  a.Alarm_Save_Customer("Moves on the 12th");
  EXPECT_EQ(planning.db().scalar("SELECT count(*) FROM Reservation WHERE Remarque = 'Moves on the 12th'").toInt(), 2);
  EXPECT_EQ(planning.db().scalar("SELECT Remarque FROM Reservation WHERE Couleur = 2").toString(), "");
}

TEST_F(Worklist, TheOverstayListNeedsExtensionAndLeavesStarredNamesOffPaper) {
  planning.addBooking("101", day(-5), day(-2), "Not invoiced");
  planning.addBooking("Bed*", day(-5), day(-2), "Extra bed");
  planning.addBooking("102", day(-6), day(-3), "Waiting invoice", {{"InvNb", -4}});
  addInvoiceHead(-4, QVariant());
  planning.addBooking("102", day(-9), day(-7), "Posted invoice", {{"InvNb", 12}});
  addInvoiceHead(12, day(-7));

  AlarmPresenter& off = open("0\\0\\0\\0\\", false);
  EXPECT_FALSE(off.overStayShown);
  EXPECT_TRUE(off.List_Alarm[AlarmPresenter::OverStay].isEmpty());

  AlarmPresenter& a = open("0\\0\\0\\0\\", true);
  EXPECT_TRUE(a.overStayShown);
  EXPECT_EQ(a.List_Alarm[AlarmPresenter::OverStay], (QStringList{"101", "Bed*", "102"}));
  EXPECT_EQ(a.detail->Nom, "Not invoiced") << "list 4 comes first when shown";
  a.List_Alarm_Click(AlarmPresenter::OverStay, 2);
  EXPECT_EQ(a.detail->Nom, "Waiting invoice");

  const auto paper = a.printedAlarm();
  ASSERT_TRUE(paper);
  QStringList names;
  for (const QStringList& row : paper->rows) names << row.value(1);
  EXPECT_TRUE(names.contains("Not invoiced"));
  EXPECT_FALSE(names.contains("Extra bed"));
}

TEST_F(Worklist, ToLookAtIsOnForANewInstallationAndOffWhereTheKeyIsMissing) {
  EXPECT_TRUE(AlarmOptions::read(ini).Exceptions);
  ini.DeleteKey("Alarm", "Exceptions");
  EXPECT_FALSE(AlarmOptions::read(ini).Exceptions);
  EXPECT_EQ(ini.GetValue("Alarm", "Exceptions"), "N");
}

TEST_F(Worklist, ThePrintBoxesComeFromPrintingAndOkWritesThemBack) {
  ini.DeleteKey("Alarm", "Printing");
  AlarmPresenter& a = open("0\\0\\0\\0\\");
  EXPECT_EQ(a.Ck_Alarm, (std::array<bool, 6>{true, true, false, false, false, true}));
  EXPECT_FALSE(a.openAtStart);
  a.Ck_Alarm[AlarmPresenter::Arrival] = false;
  a.Ck_Alarm[AlarmPresenter::Event2] = true;
  a.Ck_Alarm[AlarmPresenter::ToLookAt] = false;
  a.openAtStart = true;
  a.OK_Click();
  EXPECT_EQ(ini.GetValue("Alarm", "Printing"), "ONNONN");
  EXPECT_EQ(ini.GetValue("Alarm", "OpenAtStart"), "O");
  EXPECT_TRUE(AlarmOptions::read(ini).OpenAtStart);
}

TEST_F(Worklist, PrintingTellsWhenThereIsNothingElsePrintsTheTickedListsWithTheirRemarks) {
  std::optional<PrintedList> printed;
  AlarmPresenter& empty = open("0\\0\\0\\0\\");
  empty.print = [&](const PrintedList& p) { printed = p; };
  empty.Alarm_Print();
  EXPECT_FALSE(printed);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().text, "There is no Alarm");

  planning.addBooking("101", day(0), day(2), "Arriving");
  planning.db().execute("UPDATE Reservation SET Remarque = ? WHERE Nom = 'Arriving'",
                        {QString(60, 'x') + "\r\nSecond line"});
  planning.addBooking("102", day(-2), day(0), "Leaving");
  AlarmPresenter& a = open("0\\0\\0\\0\\");
  a.print = [&](const PrintedList& p) { printed = p; };
  a.Alarm_Print();
  ASSERT_TRUE(printed);
  EXPECT_EQ(printed->heading, "Kestrovane  ALARMS : 10/03/2025");
  QStringList lines;
  for (const QStringList& row : printed->rows) lines << row.join("|");
  EXPECT_EQ(lines, (QStringList{"LEAVING : the very day", "102|Leaving|08/03/2025 - 10/03/2025|",
                                "ARRIVAL : the very day", "101|Arriving|10/03/2025 - 12/03/2025|",
                                "||" " > " + QString(50, 'x') + "\n > " + QString(10, 'x') + "\n > Second line|"}));
  EXPECT_EQ(printed->headingRows, (QList<int>{0, 2}));
}

TEST_F(Worklist, StaysToLookAtSayWhyAndOpenFromTheList) {
  planning.addBooking("101", day(-6), day(-3), "Never invoiced");
  planning.addBooking("102", day(-5), day(-2), "Pending", {{"InvNb", -3}});
  addInvoiceHead(-3, QVariant());
  planning.addBooking("102", day(-9), day(-6), "Posted", {{"InvNb", 7}});
  addInvoiceHead(7, day(-6));
  planning.addBooking("101", day(-2), day(0), "Leaves today");
  planning.addBooking("101", day(-4), day(-1), "Moved", {{"Split", "1"}});  // its stay goes on in part 2
  planning.addBooking("102", day(-1), day(3), "Moved", {{"Split", "2"}});
  planning.addBooking("Bed*", day(-4), day(-1), "Extra bed");
  planning.addBooking("Gone", day(5), day(7), "Lost room");
  planning.addBlackList("Mr Bad", "Left without paying");
  planning.addBooking("101", day(1), day(2), "MR BAD");  // within the arrival window of 1 day
  planning.addBooking("102", day(4), day(6), "Mr Bad");  // beyond it

  AlarmPresenter& off = open("0\\1\\0\\0\\", false, false);
  EXPECT_FALSE(off.exceptionsShown());

  AlarmPresenter& a = open("0\\1\\0\\0\\", false, true);
  ASSERT_TRUE(a.exceptionsShown());
  QStringList found;
  for (const WorklistException& e : a.exceptions()) found << e.Nom + ": " + e.reasons.join(" ; ");
  EXPECT_EQ(found, (QStringList{"Lost room: Its resource no longer exists",
                                "MR BAD: On the black list : Left without paying",
                                "Leaves today: Leaves today without an invoice",
                                "Pending: Has left, its invoice is pending",
                                "Never invoiced: Has left without an invoice"}));
  EXPECT_EQ(a.selList, int(AlarmPresenter::ToLookAt)) << "the list to look at comes first";
  EXPECT_EQ(a.detail->Nom, "Lost room");
  EXPECT_TRUE(a.List_Alarm[AlarmPresenter::ToLookAt][0].endsWith(": Its resource no longer exists"));

  // A double click opens the booking; once it is closed the list is read again.
  qint64 opened = -1;
  a.openBooking = [&](qint64 rowId) {
    opened = rowId;
    planning.db().execute("UPDATE Reservation SET Resource = '102' WHERE rowid = ?", {rowId});
  };
  a.List_Alarm_DblClick(AlarmPresenter::ToLookAt, 0);
  EXPECT_EQ(opened, rowIdOf("Lost room"));
  EXPECT_EQ(a.exceptions().size(), 4);
  EXPECT_EQ(a.exceptions().front().Nom, "MR BAD");
  EXPECT_EQ(a.selList, int(AlarmPresenter::ToLookAt));
  EXPECT_EQ(a.detail->Nom, "MR BAD") << "the selection stays at its place";
}

TEST_F(Worklist, ABookingOpenedFromADayListAndDeletedLeavesTheList) {
  planning.addBooking("101", day(-2), day(0), "Deleted from the worklist");
  planning.addBooking("102", day(-2), day(0), "Stays");
  AlarmPresenter& a = open("0\\0\\0\\0\\");
  a.openBooking = [&](qint64 rowId) { planning.db().execute("DELETE FROM Reservation WHERE rowid = ?", {rowId}); };
  a.List_Alarm_DblClick(AlarmPresenter::Leaving, 0);
  EXPECT_EQ(a.List_Alarm[AlarmPresenter::Leaving], (QStringList{"102"}));
  EXPECT_EQ(a.detail->Nom, "Stays");
}

TEST(PrintedRemark, CutAtLineEndsAndFiftyCharacters) {
  EXPECT_TRUE(printedRemark("").isEmpty());
  EXPECT_EQ(printedRemark("Short\r\nTwo"), (QStringList{" > Short", " > Two"}));
  EXPECT_EQ(printedRemark(QString(50, 'a') + QString(51, 'b')),
            (QStringList{" > " + QString(50, 'a'), " > " + QString(50, 'b'), " > b"}));
}

}  // namespace
}  // namespace ksv
