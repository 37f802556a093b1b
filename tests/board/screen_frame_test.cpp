#include <gtest/gtest.h>

#include "board/board_frame.h"
#include "board/screen_description.h"
#include "board/screen_frame.h"

using namespace ksv;

namespace {

ScreenDescription screenOf(int width, int height, int dpi) {
  ScreenDescription s;
  readScreen(ScreenFacts{width, height, 32, 60, dpi}, s);
  return s;
}

}  // namespace

TEST(ReadScreen, ColourClassByDepthAndScaleByDpi) {
  ScreenDescription s;
  const int depths[][2] = {{4, 1}, {16, 3}, {24, 4}};
  for (const auto& [bits, colorClass] : depths) {
    readScreen(ScreenFacts{1024, 768, bits, 60, 96}, s);
    EXPECT_EQ(s.ColorClass, colorClass) << bits;
  }
  // An unknown depth keeps what the last reading gave.
  readScreen(ScreenFacts{1280, 1024, 15, 60, 96}, s);
  EXPECT_EQ(s.ColorClass, 4);
  EXPECT_EQ(s.ScreenW, 1280);
  EXPECT_EQ(s.ScreenH, 1024);

  EXPECT_EQ(screenOf(1024, 768, 96).Echelle, QLatin1Char('S'));
  EXPECT_EQ(screenOf(1024, 768, 97).Echelle, QLatin1Char('L'));
  EXPECT_EQ(screenOf(1024, 768, 72).Echelle, QLatin1Char('L'));
}

TEST(ReadScreen, DesignedScreensAreTheThreeSizes) {
  EXPECT_TRUE(isDesignedScreen(screenOf(800, 600, 96)));
  EXPECT_TRUE(isDesignedScreen(screenOf(1024, 768, 120)));
  EXPECT_TRUE(isDesignedScreen(screenOf(1280, 1024, 96)));
  EXPECT_FALSE(isDesignedScreen(screenOf(1280, 800, 96)));
  EXPECT_FALSE(isDesignedScreen(screenOf(768, 1024, 96)));
}

TEST(ScreenFrameChoice, FirstRowThatHoldsInOrder) {
  EXPECT_EQ(screenFrameRow('L', 800), txt::FrameLargeUpTo800);
  EXPECT_EQ(screenFrameRow('S', 800), txt::FrameSmallUpTo800);
  EXPECT_EQ(screenFrameRow('L', 801), txt::FrameLargeUpTo1024);
  EXPECT_EQ(screenFrameRow('S', 801), txt::FrameSmallUpTo1024);
  EXPECT_EQ(screenFrameRow('L', 1024), txt::FrameLargeUpTo1024);
  EXPECT_EQ(screenFrameRow('L', 1025), txt::FrameLargeWider);
  // The rows' numbers reach the frame: third row (1024 large) against fifth.
  EXPECT_EQ(ReadScreenFrame(screenOf(1024, 768, 120)).DayNb, 43);
  EXPECT_EQ(ReadScreenFrame(screenOf(1025, 768, 120)).DayNb, 52);
  // In the smallest row a label reaches above its row.
  const ScreenFrame l800 = ReadScreenFrame(screenOf(800, 600, 120));
  EXPECT_GT(l800.LabE, l800.PasV);
  EXPECT_EQ(screenFrameRow('S', 1025), txt::FrameSmallWider);
  EXPECT_EQ(screenFrameRow('S', 640), txt::FrameSmallUpTo800);
}

TEST(ScreenFrameChoice, TheBoardDoesNotGrowWithTheScreen) {
  const ScreenFrame f1280 = ReadScreenFrame(screenOf(1280, 1024, 96));
  const ScreenFrame f1920 = ReadScreenFrame(screenOf(1920, 1080, 96));
  EXPECT_EQ(f1280, f1920);
  EXPECT_EQ(ReadScreenFrame(screenOf(1280, 1024, 120)), ReadScreenFrame(screenOf(2560, 1440, 144)));
}

TEST(ScreenFrameRows, BothLanguagesHoldTheSameNumbers) {
  for (int row = txt::FrameLargeUpTo800; row <= txt::FrameSmallWider; ++row) {
    SCOPED_TRACE(row);
    EXPECT_EQ(Texts::entry(row), Texts::entry(row + kFrenchOffset));
    const ScreenFrame f = parseScreenFrame(Texts::entry(row));
    EXPECT_GT(f.PasH, 0);
    EXPECT_GT(f.LabFont, 0);  // all fourteen places were read
  }
}

TEST(ScreenFrameRows, PiecesAreReadAsLeadingNumbers) {
  const ScreenFrame f = parseScreenFrame("40\\0\\200x\\ 24 0\\22\\abc\\8\\260\\8\\40\\460\\8\\250\\");
  EXPECT_EQ(f.PasH, 200);
  EXPECT_EQ(f.PasV, 240);
  EXPECT_EQ(f.ResW, 0);
  EXPECT_EQ(f.LabE, 250);
  EXPECT_EQ(f.LabFont, 0);  // missing fourteenth piece
}

TEST(ScreenDrawingOverrides, NonEmptyValuesReplaceTheFrame) {
  ScreenFrame f = ReadScreenFrame(screenOf(1024, 768, 96));
  const ScreenFrame before = f;
  applyScreenDrawing(f, ScreenDrawing{});
  EXPECT_EQ(f, before);

  applyScreenDrawing(f, ScreenDrawing{"60", "", "12abc", "", "x", "200.5"});
  EXPECT_EQ(f.DayNb, 60);
  EXPECT_EQ(f.PasH, before.PasH);
  EXPECT_EQ(f.ResNb, 12);
  EXPECT_EQ(f.PasV, before.PasV);
  EXPECT_EQ(f.ResW, 0);   // not a number reads as 0
  EXPECT_EQ(f.LabE, 200);  // half to even
  // Nothing else moves.
  EXPECT_EQ(f.BoardLeft, before.BoardLeft);
  EXPECT_EQ(f.DayHeight, before.DayHeight);

  applyScreenDrawing(f, ScreenDrawing{"99999999999", "", "", "", "", ""});
  EXPECT_EQ(f.DayNb, 32767);
}

TEST(BoardFrameGeometry, DerivedValuesAndElements) {
  BoardFrame b;
  const auto rebuild = b.Draw_Planning_Frame(screenOf(1920, 1080, 96), ScreenDrawing{});
  EXPECT_FALSE(rebuild.eraseOld);
  // S wider: 50, 0, 330, 325, 40, 1500, 11, 350, 11, 52, 600, 11, 320, 11.
  EXPECT_EQ(b.GridTop(), 0 + 350 + 600);
  EXPECT_EQ(b.GridBottom(), 950 + 325 * 40);
  EXPECT_EQ(b.GridLeft(), 50 + 1500);
  EXPECT_EQ(b.GridRight(), 1550 + 330 * 52);

  EXPECT_EQ(b.Jour(3), (TwipRect{1550 + 3 * 330, 350, 330, 600}));
  EXPECT_EQ(b.Res_Lib(2), (TwipRect{50, 950 + 2 * 325, 1500, 325}));
  EXPECT_EQ(b.Line_V(50).x1, b.GridRight() - 330);  // the last inner line
  EXPECT_EQ(b.Line_H(38).y1, b.GridBottom() - 325);
  EXPECT_EQ(b.HScroll(), (TwipRect{1550, b.GridBottom(), 330 * 52, 305}));
  EXPECT_EQ(b.labelTop(1), 950 + 325 + 325 - 320);
}

TEST(BoardFrameGeometry, SixtyDaysMoveTheGridOutOfTheWindow) {
  BoardFrame normal, wide;
  const ScreenDescription screen = screenOf(1280, 1024, 96);
  normal.Draw_Planning_Frame(screen, ScreenDrawing{});
  ScreenDrawing sixty;
  sixty.DayNb = "60";
  wide.Draw_Planning_Frame(screen, sixty);
  EXPECT_EQ(wide.DayNb(), 60);
  EXPECT_EQ(wide.GridRight(), wide.GridLeft() + 60 * wide.PasH());
  EXPECT_EQ(wide.VScroll().left, wide.GridRight());
  // Wider than the frame's own board, and wider than the 1280-pixel screen.
  EXPECT_GT(wide.extentRight(), normal.extentRight());
  EXPECT_GT(wide.GridRight(), 1280 * 15);
  // Rows are untouched.
  EXPECT_EQ(wide.GridBottom(), normal.GridBottom());
}

TEST(BoardFrameGeometry, RebuildAfterOptionsKeepsTheFrameAndErasesOldCells) {
  BoardFrame b;
  b.Draw_Planning_Frame(screenOf(1024, 768, 96), ScreenDrawing{});
  EXPECT_EQ(b.DayNb(), 55);

  // The options changed the numbers: the frame in force is kept, the new
  // overrides apply, and the old cells must go.
  b.FrameChanged = true;
  ScreenDrawing o;
  o.ResNb = "20";
  o.PasH = "300";
  const auto rebuild = b.Draw_Planning_Frame(screenOf(1920, 1080, 96), o);
  EXPECT_TRUE(rebuild.eraseOld);
  EXPECT_EQ(rebuild.oldDayNb, 55);
  EXPECT_EQ(rebuild.oldResNb, 38);
  EXPECT_FALSE(b.FrameChanged);
  EXPECT_EQ(b.ResNb(), 20);
  EXPECT_EQ(b.PasH(), 300);
  EXPECT_EQ(b.DayNb(), 55);
  EXPECT_EQ(b.GridRight(), b.GridLeft() + 300 * 55);

  // A first call of a later run reads the screen again.
  const auto fresh = b.Draw_Planning_Frame(screenOf(1920, 1080, 96), ScreenDrawing{});
  EXPECT_FALSE(fresh.eraseOld);
  EXPECT_EQ(b.DayNb(), 52);
  EXPECT_EQ(b.ResNb(), 40);
}

TEST(BoardFrameGeometry, PressesCountStrictlyInsideTheGrid) {
  BoardFrame b;
  b.Draw_Planning_Frame(screenOf(1024, 768, 96), ScreenDrawing{});
  const int l = b.GridLeft(), t = b.GridTop();
  EXPECT_FALSE(b.strictlyInsideGrid(l, t + 10));
  EXPECT_FALSE(b.strictlyInsideGrid(l + 10, t));
  EXPECT_FALSE(b.strictlyInsideGrid(b.GridRight(), t + 10));
  EXPECT_TRUE(b.strictlyInsideGrid(l + 1, t + 1));
  EXPECT_EQ(b.rowAt(t + 1), 0);
  EXPECT_EQ(b.rowAt(t + b.PasV()), 1);
  EXPECT_EQ(b.columnAt(l + b.PasH() - 1), 0);
  EXPECT_EQ(b.columnAt(l + 3 * b.PasH() + 5), 3);

  BoardFrame zero;
  ScreenDrawing o;
  o.PasH = "0";
  o.PasV = "abc";
  zero.Draw_Planning_Frame(screenOf(1024, 768, 96), o);
  EXPECT_EQ(zero.columnAt(5000), -1);
  EXPECT_EQ(zero.rowAt(5000), -1);
}
