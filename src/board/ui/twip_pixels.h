#pragma once
// Twips to pixels where a widget places or paints board elements.

#include <QLine>
#include <QRect>

#include "board/twips.h"

namespace ksv {

inline QRect toPixels(const TwipRect& r, int tpp) {
  const int left = twipsToPixels(r.left, tpp), top = twipsToPixels(r.top, tpp);
  return QRect(left, top, twipsToPixels(r.right(), tpp) - left, twipsToPixels(r.bottom(), tpp) - top);
}

inline QLine toPixels(const TwipLine& l, int tpp) {
  return QLine(twipsToPixels(l.x1, tpp), twipsToPixels(l.y1, tpp), twipsToPixels(l.x2, tpp),
               twipsToPixels(l.y2, tpp));
}

}  // namespace ksv
