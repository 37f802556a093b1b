#include "screen_frame.h"

#include "core/list_value.h"
#include "core/number_text.h"

namespace ksv {
namespace {

// The numbers are 16-bit: the leading number, rounded half to even and held
// to that range, so that a wild ini value cannot overflow.
int leadingInt(const QString& text) {
  const double v = roundHalfEven(val(text), 0);
  if (!(v > -32768.0)) return v != v ? 0 : -32768;
  if (v > 32767.0) return 32767;
  return static_cast<int>(v);
}

}  // namespace

int screenFrameRow(QChar echelle, int screenW) {
  const bool large = echelle == QLatin1Char('L');
  if (screenW < 801) return large ? txt::FrameLargeUpTo800 : txt::FrameSmallUpTo800;
  if (screenW < 1025) return large ? txt::FrameLargeUpTo1024 : txt::FrameSmallUpTo1024;
  return large ? txt::FrameLargeWider : txt::FrameSmallWider;
}

ScreenFrame parseScreenFrame(const QString& row) {
  const QStringList n = splitList(row, 14);
  ScreenFrame f;
  f.BoardLeft = leadingInt(n[0]);
  f.BoardTop = leadingInt(n[1]);
  f.PasH = leadingInt(n[2]);
  f.PasV = leadingInt(n[3]);
  f.ResNb = leadingInt(n[4]);
  f.ResW = leadingInt(n[5]);
  f.ResFont = leadingInt(n[6]);
  f.MonthHeight = leadingInt(n[7]);
  f.MonthFont = leadingInt(n[8]);
  f.DayNb = leadingInt(n[9]);
  f.DayHeight = leadingInt(n[10]);
  f.DayFont = leadingInt(n[11]);
  f.LabE = leadingInt(n[12]);
  f.LabFont = leadingInt(n[13]);
  return f;
}

ScreenFrame ReadScreenFrame(const ScreenDescription& screen) {
  // The rows hold numbers only, the same in both languages.
  return parseScreenFrame(Texts::entry(screenFrameRow(screen.Echelle, screen.ScreenW)));
}

void applyScreenDrawing(ScreenFrame& frame, const ScreenDrawing& overrides) {
  const auto take = [](int& number, const QString& text) {
    if (!text.isEmpty()) number = leadingInt(text);
  };
  take(frame.DayNb, overrides.DayNb);
  take(frame.PasH, overrides.PasH);
  take(frame.ResNb, overrides.ResNb);
  take(frame.PasV, overrides.PasV);
  take(frame.ResW, overrides.ResW);
  take(frame.LabE, overrides.LabE);
}

}  // namespace ksv
