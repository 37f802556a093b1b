#pragma once
// Board and calendar lengths are twips (1440 to the inch); pixels appear only
// where a widget paints or reads the mouse.

#include <QtGlobal>

namespace ksv {

inline constexpr int kTwipsPerInch = 1440;

// 15 at 96 logical dots per inch, 12 at 120; never below 1.
constexpr int twipsPerPixel(int logicalDpi) {
  if (logicalDpi <= 0) return 15;
  const int tpp = (kTwipsPerInch + logicalDpi / 2) / logicalDpi;
  return tpp < 1 ? 1 : tpp;
}

// Rounded to the nearest pixel, halves away from zero.
constexpr int twipsToPixels(int twips, int tpp) {
  return twips >= 0 ? (twips + tpp / 2) / tpp : -((-twips + tpp / 2) / tpp);
}
constexpr int pixelsToTwips(int pixels, int tpp) { return pixels * tpp; }

// A rectangle and a line on the board, in twips.
struct TwipRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  constexpr int right() const { return left + width; }
  constexpr int bottom() const { return top + height; }
  constexpr bool contains(int x, int y) const { return x >= left && x < right() && y >= top && y < bottom(); }
  friend constexpr bool operator==(const TwipRect&, const TwipRect&) = default;
};

struct TwipLine {
  int x1 = 0;
  int y1 = 0;
  int x2 = 0;
  int y2 = 0;
  friend constexpr bool operator==(const TwipLine&, const TwipLine&) = default;
};

}  // namespace ksv
