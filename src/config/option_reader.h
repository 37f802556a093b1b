#pragma once
// Reading one option the way every reader of the program does: an empty value
// is a value not yet set, so its default is written back at once. After one
// run the file holds every key that run looked at.

#include <array>
#include <optional>

#include <QAnyStringView>
#include <QString>
#include <QStringList>

namespace ksv {

class IniFile;

QString readOption(IniFile& ini, QAnyStringView section, QAnyStringView key, const QString& defaultValue);

// YearKeep, the years of bookings a purge keeps: a whole number, 0 or more.
// Anything else (a negative number, a text, a fraction) is refused: a typing
// error must never decide which bookings are deleted.
std::optional<int> yearKeepYears(const QString& text);

// "O" is yes; every other value is no.
inline bool isYes(const QString& value) { return value == QLatin1String("O"); }
inline QString yesNo(bool yes) { return yes ? QStringLiteral("O") : QStringLiteral("N"); }

// Colours are decimal 24-bit values, red in the low byte. A text that is not
// a number reads as its leading number, 0 when there is none.
using Colour = quint32;
inline constexpr Colour kBlack = 0;
inline constexpr Colour kWhite = 16777215;
Colour colourValue(const QString& text);
// A text-colour letter: "N" is dark text, anything else light text.
Colour textColour(const QString& flags, int index);

// The values a reader writes back when a key has gone missing, where they
// differ from what a new installation gets.
namespace missing {
inline constexpr char kLibelle[] = "\\\\\\\\\\\\";     // six empty booking names
inline constexpr char kCategorie[] = "\\\\\\\\\\\\";   // six empty categories
inline constexpr char kColorLibelle[] = "NOOONO";
inline constexpr char kAlarmPrinting[] = "OONNN";       // when the alarm window opens
inline constexpr char kExtension[] = "0";               // in the options dialog; reads as no
// The worklist's "To look at" list: an installation that has no key is one
// upgraded from a version without it, and keeps the worklist it knew.
inline constexpr char kAlarmExceptions[] = "N";
}  // namespace missing

// `Printing` of `Alarm` as the alarm window reads it.
QString readAlarmPrinting(IniFile& ini);

}  // namespace ksv
