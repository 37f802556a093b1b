#pragma once
// The six built-in screen frames: fourteen numbers each, chosen by the screen
// width and the font scale, and the per-workstation overrides of six of them.

#include <QString>

#include "screen_description.h"

namespace ksv {

struct ScreenFrame {
  int BoardLeft = 0;
  int BoardTop = 0;
  int PasH = 0;
  int PasV = 0;
  int ResNb = 0;
  int ResW = 0;
  int ResFont = 0;
  int MonthHeight = 0;
  int MonthFont = 0;
  int DayNb = 0;
  int DayHeight = 0;
  int DayFont = 0;
  int LabE = 0;
  int LabFont = 0;
  friend bool operator==(const ScreenFrame&, const ScreenFrame&) = default;
};

// The values of section ScreenDrawing of the ini file, as read; an empty text
// keeps the frame's number.
struct ScreenDrawing {
  QString DayNb;
  QString PasH;
  QString ResNb;
  QString PasV;
  QString ResW;
  QString LabE;
};

// The text-table row of the frame for a font scale and a screen width: the
// first that holds of L up to 800, S up to 800, L up to 1024, S up to 1024,
// L wider, S wider. A scale other than 'L' is taken as 'S'.
int screenFrameRow(QChar echelle, int screenW);

// The fourteen backslash-ended numbers of a row, each read as its leading number.
ScreenFrame parseScreenFrame(const QString& row);

// The built-in frame for a screen, also the defaults of the options' reset.
ScreenFrame ReadScreenFrame(const ScreenDescription& screen);

// Every non-empty override replaces its number; a text that is not a number
// reads as 0.
void applyScreenDrawing(ScreenFrame& frame, const ScreenDrawing& overrides);

}  // namespace ksv
