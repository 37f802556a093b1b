#include <gtest/gtest.h>

#include "window_placement.h"

using namespace ksv;

TEST(WindowPlacement, KeptInTwipsHeightWidthTopLeft) {
  EXPECT_EQ(windowSizeValue(QRect(10, 20, 800, 600), false), "9000\\12000\\300\\150\\");
  EXPECT_EQ(windowSizeValue(QRect(10, 20, 800, 600), true), "");
  EXPECT_EQ(windowSizeRect("9000\\12000\\300\\150\\"), QRect(10, 20, 800, 600));
  EXPECT_FALSE(windowSizeRect(""));            // maximised
  EXPECT_FALSE(windowSizeRect("9000\\abc\\"));  // damaged: maximised too
}
