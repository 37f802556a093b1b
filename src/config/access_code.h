#pragma once
// Access codes as the ini file keeps them: never in clear, but as hexadecimal
// text of the code combined by exclusive or with a key word.

#include <QString>

namespace ksv {

class IniFile;

// The plain value that stands for "no code set".
inline constexpr char kNilPin[] = "NilPin";

// Key words of the stored codes (13 and 12 letters), and the one of the web
// passwords of the publishing sections.
inline constexpr char kKeyAccesPlanning[] = "Marsouinlarge";
inline constexpr char kKeyAccesOptions[] = "Goelandbleus";
inline constexpr char kKeyWebPassword[] = "Cormoranfier";

// Each character (as its 8-bit code) is combined with the next letter of the
// key, taken cyclically, and written as two upper-case hex digits.
QString Scramble(const QString& key, const QString& text);
// The reverse. An odd last digit is left out; an empty value, or one with a
// character that is not a hex digit, is damaged and reads as "".
QString Unscramble(const QString& key, const QString& hex);

// The stored form of "no code" under a key.
QString scrambledNilPin(const QString& key);
// The stored form of what the user typed in a password zone: the marker when empty.
QString storedCode(const QString& key, const QString& plain);

// Which code to ask for.
enum class AccessCode { Planning, Options };

// The decoded code of `AccesPlanning` or `AccesOptions` in `Security`:
// kNilPin when none is set, "" when the value is damaged or missing.
QString readAccessCode(const IniFile& ini, AccessCode which);
// True when a code must be asked (the decoded value is neither the marker
// nor damaged).
bool codeIsSet(const QString& decoded);

}  // namespace ksv
