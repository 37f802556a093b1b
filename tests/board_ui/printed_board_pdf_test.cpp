// The board's sheets reach a PDF each on its own page.
#include <gtest/gtest.h>

#include <QPdfWriter>
#include <QProcess>

#include "board/printed_board.h"
#include "customers/ui/list_printer.h"
#include "support/test_board.h"

using namespace ksv;

namespace {

class PrintedBoardPdf : public test::TestBoard {};

TEST_F(PrintedBoardPdf, EachSheetStartsAPageOfThePdf) {
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
