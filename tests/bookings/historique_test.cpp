// The booking history: the time filters at their boundaries, the two sorts,
// the search by name without accents, the row found again, the remark, the paper.

#include <gtest/gtest.h>

#include "bookings/historique.h"
#include "support/worklist_session.h"

namespace ksv {
namespace {

class History : public ::testing::Test, protected test::WorklistSession {
 protected:
  History() {
    planning.addBooking("101", day(-5), day(-1), "Zoé Past");      // left yesterday
    planning.addBooking("102", day(-3), day(0), "Ann Ends today");  // still in use today
    planning.addBooking("101", day(0), day(2), "Hélène Today");     // in use from today
    planning.addBooking("102", day(1), day(4), "Bob Tomorrow");
    history.emplace(context());
    history->M_BookingHistory_Click();
  }

  QStringList names() const {
    QStringList out;
    for (const auto& line : history->lines()) out << line.Nom;
    return out;
  }

  std::optional<HistoriquePresenter> history;
};

TEST_F(History, TheFiltersMeetAtToday) {
  struct Case {
    HistoriquePresenter::Filter filter;
    QStringList byName, byDate;
  };
  const Case cases[] = {
      {HistoriquePresenter::optAll,
       {"Ann Ends today", "Bob Tomorrow", "Hélène Today", "Zoé Past"},
       {"Zoé Past", "Ann Ends today", "Hélène Today", "Bob Tomorrow"}},
      {HistoriquePresenter::optPast, {"Zoé Past"}, {"Zoé Past"}},
      {HistoriquePresenter::optIn, {"Ann Ends today", "Hélène Today"}, {"Ann Ends today", "Hélène Today"}},
      {HistoriquePresenter::optFutur, {"Bob Tomorrow"}, {"Bob Tomorrow"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(int(c.filter));
    history->setFilter(c.filter);
    history->sortByColumn(0);
    EXPECT_EQ(names(), c.byName);
    history->sortByColumn(1);
    EXPECT_EQ(names(), c.byDate);
    history->sortByColumn(0);
  }
  history->setFilter(HistoriquePresenter::optAll);
  EXPECT_EQ(history->lines().front().dateText, "07/03/2025");
}

TEST_F(History, TwoStaysOfOneNameOnOneDayShowTwiceAndTheSearchFindsTheFirst) {
  planning.addBooking("102", day(-5), day(-4), "Zoé Past");
  history->Dessin_Historique();
  ASSERT_EQ(names().count("Zoé Past"), 2);
  history->selectRow(3);
  ASSERT_TRUE(history->detail);
  EXPECT_EQ(history->detail->Resource, "101") << "the first row of that name and day";
  EXPECT_EQ(history->detail->NB_Jour, 4);

  // A row gone since the list was drawn: the zones stay as they were.
  planning.db().execute("DELETE FROM Reservation WHERE Nom = 'Bob Tomorrow'");
  history->selectRow(1);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.last().text, "The booking cannot be found");
  EXPECT_EQ(history->detail->Resource, "101");
}

TEST_F(History, TheSearchIgnoresCaseAndAccentsAndAnEmptyViewSelectsNothing) {
  history->setSearchText("HELENE");
  EXPECT_EQ(names(), (QStringList{"Hélène Today"}));
  EXPECT_EQ(history->selectedRow, 0);
  EXPECT_EQ(history->detail->Nom, "Hélène Today");

  history->setSearchText("nobody");
  EXPECT_TRUE(names().isEmpty());
  EXPECT_EQ(history->selectedRow, -1);
  EXPECT_FALSE(history->detail);
}

TEST_F(History, TheRemarkGoesToTheStayInHandAndPrintsUnderIt) {
  history->setFilter(HistoriquePresenter::optIn);
  history->selectRow(1);
  history->saveRemark("Needs a cot");
  EXPECT_EQ(planning.db().scalar("SELECT Remarque FROM Reservation WHERE Nom = 'Hélène Today'").toString(), "Needs a cot");
  EXPECT_EQ(planning.db().scalar("SELECT count(*) FROM Reservation WHERE Remarque = 'Needs a cot'").toInt(), 1);

  const PrintedList p = history->printedHistorique();
  EXPECT_EQ(p.heading, "HISTORIC : 10/03/2025  In use");
  QStringList rows;
  for (const QStringList& row : p.rows) rows << row.join("|");
  EXPECT_EQ(rows, (QStringList{"Ann Ends today|102|07/03/2025|10/03/2025|", "Hélène Today|101|10/03/2025|12/03/2025|",
                               "|| > Needs a cot||"}));
}

}  // namespace
}  // namespace ksv
