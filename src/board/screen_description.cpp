#include "screen_description.h"

#include "core/messages.h"

namespace ksv {

void readScreen(const ScreenFacts& facts, ScreenDescription& screen) {
  screen.ScreenW = facts.widthPx;
  screen.ScreenH = facts.heightPx;
  switch (facts.bitsPerPixel) {
    case 4: screen.ColorClass = 1; break;
    case 8: screen.ColorClass = 2; break;
    case 16: screen.ColorClass = 3; break;
    case 24:
    case 32: screen.ColorClass = 4; break;
    default: break;
  }
  screen.Echelle = facts.logicalDpi == 96 ? QLatin1Char('S') : QLatin1Char('L');
  screen.logicalDpi = facts.logicalDpi > 0 ? facts.logicalDpi : 96;
}

bool isDesignedScreen(const ScreenDescription& screen) {
  const bool knownScale = screen.Echelle == QLatin1Char('L') || screen.Echelle == QLatin1Char('S');
  const bool knownSize = (screen.ScreenW == 800 && screen.ScreenH == 600) ||
                         (screen.ScreenW == 1024 && screen.ScreenH == 768) ||
                         (screen.ScreenW == 1280 && screen.ScreenH == 1024);
  return knownScale && knownSize;
}

void firstRunScreen(ScreenDescription& screen, const std::function<void(ScreenDescription&)>& showEcran,
                    Messages& messages, const Texts& texts) {
  showEcran(screen);
  if (isDesignedScreen(screen)) return;
  messages.information(texts.get(txt::UnusualScreen));
  showEcran(screen);
}

EcranTexts ecranTexts(const ScreenDescription& screen, const Texts& texts) {
  EcranTexts t;
  t.title = texts.get(txt::ScreenDialogTitle);
  t.heading = texts.get(txt::ScreenSettingsTitle);
  t.resolution = texts.get(txt::ScreenResolution) + QString::number(screen.ScreenW) + texts.get(txt::ScreenTimes) +
                 QString::number(screen.ScreenH) + texts.get(txt::ScreenPixels);
  int colors = txt::ScreenColorsUnknown;
  switch (screen.ColorClass) {
    case 1: colors = txt::ScreenColors4; break;
    case 2: colors = txt::ScreenColors8; break;
    case 3: colors = txt::ScreenColors16; break;
    case 4: colors = txt::ScreenColors32; break;
    default: break;
  }
  t.color = texts.get(txt::ScreenColor) + texts.get(colors);
  t.font = texts.get(txt::ScreenFont) + texts.get(screen.largeFonts() ? txt::ScreenFontLarge : txt::ScreenFontSmall);
  t.designedFor = texts.get(txt::ScreenDesignedFor);
  t.designedSizes = texts.get(txt::ScreenDesignedSizes);
  t.designedColors = texts.get(txt::ScreenDesignedColors);
  t.designedFonts = texts.get(txt::ScreenDesignedFonts);
  return t;
}

}  // namespace ksv
