// The board on paper: a sheet a week, each room on its line, each night under
// the day it begins, named as the board names the stay.
#include <gtest/gtest.h>

#include "board/printed_board.h"
#include "support/test_board.h"

using namespace ksv;

namespace {

class PrintedBoard : public test::TestBoard {};

TEST_F(PrintedBoard, ASheetAWeekWithEachStayUnderTheNightsItSleeps) {
  rooms(2);
  planning_.addBooking("Room 2", mar(2), mar(4), "Martin");  // nights of the 2nd and 3rd
  planning_.addBooking("Room 1", mar(8), mar(12), "Durand", {{"Split", "1"}});
  planning_.addBooking("Room 1", mar(10), mar(11), "Petit");  // overlaps Durand
  const QList<PrintedList> sheets = printedBoard(planning_.objects(), mar(3), mar(11), texts_, regional_);

  ASSERT_EQ(sheets.size(), 2);
  EXPECT_EQ(sheets[0].heading, "Board: 3/3/2025 - 3/9/2025");
  EXPECT_EQ(sheets[0].titles, (QStringList{"Resource", "Mon 3", "Tue 4", "Wed 5", "Thu 6", "Fri 7", "Sat 8", "Sun 9"}));
  EXPECT_EQ(sheets[0].rows, (QList<QStringList>{{"Room 1", "", "", "", "", "", "Durand#", "Durand#"},
                                                {"Room 2", "Martin", "", "", "", "", "", ""}}));
  EXPECT_EQ(sheets[1].titles, (QStringList{"Resource", "Mon 10", "Tue 11"}));
  EXPECT_EQ(sheets[1].rows, (QList<QStringList>{{"Room 1", "Durand#\nPetit", "Durand#"}, {"Room 2", "", ""}}));
  EXPECT_TRUE(printedBoard(planning_.objects(), mar(5), mar(4), texts_, regional_).isEmpty());
}

}  // namespace
