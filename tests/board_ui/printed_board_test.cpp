// The board on paper: a sheet a week, each room on its line, each night under
// its day; and the sheets reach a PDF each on its own page.
#include <gtest/gtest.h>

#include <QPdfWriter>
#include <QProcess>

#include "board/printed_board.h"
#include "customers/ui/list_printer.h"
#include "support/test_board.h"

using namespace ksv;

namespace {

class PrintedBoard : public test::TestBoard {};

TEST_F(PrintedBoard, ASheetAWeekWithEachStayUnderTheNightsItSleeps) {
  rooms(2);
  planning_.addBooking("Room 2", mar(2), mar(4), "Martin");  // nights of the 2nd and 3rd
  planning_.addBooking("Room 1", mar(8), mar(12), "Durand", {{"Split", "1"}});
  planning_.addBooking("Room 1", mar(10), mar(11), "Petit");  // overlaps Durand
  planning_.addGroupHeader(4, mar(3), mar(5), "Group");        // no stay of its own
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

TEST_F(PrintedBoard, EachSheetStartsAPageOfThePdf) {
  rooms(1);
  planning_.addBooking("Room 1", mar(3), mar(5), "Martin");
  const QString pdf = planning_.paths().documentsDir() + "/board.pdf";
  {
    QPdfWriter writer(pdf);
    ASSERT_TRUE(paintLists(printedBoard(planning_.objects(), mar(1), mar(14), texts_, regional_), writer));
  }
  QProcess text;
  text.start("pdftotext", {"-layout", pdf, "-"});
  ASSERT_TRUE(text.waitForFinished());
  const QStringList pages = QString::fromUtf8(text.readAllStandardOutput()).split('\f', Qt::SkipEmptyParts);
  ASSERT_EQ(pages.size(), 2);
  EXPECT_TRUE(pages[0].contains("Board: 3/1/2025 - 3/7/2025"));
  EXPECT_TRUE(pages[0].contains("Martin"));
  EXPECT_TRUE(pages[1].contains("Board: 3/8/2025 - 3/14/2025"));
  EXPECT_FALSE(pages[1].contains("Martin"));
}

}  // namespace
