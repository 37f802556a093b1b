#pragma once
// The screen as the board knows it: size, colour class and font scale, read
// once at start from plain facts that the Ecran dialog gathers from the display.

#include <functional>

#include <QChar>
#include <QString>

#include "core/texts.h"

namespace ksv {

class Messages;

// What the display reports; the Ecran dialog fills it from the real screen.
struct ScreenFacts {
  int widthPx = 0;
  int heightPx = 0;
  int bitsPerPixel = 0;
  int refreshRate = 0;
  int logicalDpi = 96;
};

struct ScreenDescription {
  int ScreenW = 0;
  int ScreenH = 0;
  int ColorClass = 0;   // 1: 4 bits, 2: 8 bits, 3: 16 bits, 4: 24 or 32 bits
  QChar Echelle = QLatin1Char('S');  // font scale: 'S' at 96 dpi, 'L' otherwise
  int logicalDpi = 96;  // kept for the twips-to-pixels conversion of widgets

  bool largeFonts() const { return Echelle == QLatin1Char('L'); }
};

// The load step of the Ecran form. A depth the system doesn't know leaves
// ColorClass as it was.
void readScreen(const ScreenFacts& facts, ScreenDescription& screen);

// True for 800 x 600, 1024 x 768 and 1280 x 1024 with either font scale; any
// other screen earns the first-run warning.
bool isDesignedScreen(const ScreenDescription& screen);

// The screen step of a first run: `showEcran` reads the screen into `screen`
// and shows the Ecran dialog. Only a screen the board was not drawn for earns
// the warning and a second showing.
void firstRunScreen(ScreenDescription& screen, const std::function<void(ScreenDescription&)>& showEcran,
                    Messages& messages, const Texts& texts);

// The lines of the Ecran dialog, in the current language.
struct EcranTexts {
  QString title;
  QString heading;     // "Actual screen display settings"
  QString resolution;  // "Resolution : " and "W x H pixels"
  QString color;
  QString font;
  QString designedFor;
  QString designedSizes;
  QString designedColors;
  QString designedFonts;
};
EcranTexts ecranTexts(const ScreenDescription& screen, const Texts& texts);

}  // namespace ksv
