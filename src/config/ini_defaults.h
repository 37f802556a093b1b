#pragma once
// What a new installation writes into the option file: every section and key
// with its first-run value. Readers that repair a lost key use their own
// defaults (option_reader.h); some of those differ on purpose.

#include <vector>

#include <QDate>
#include <QString>

namespace ksv {

class IniFile;

struct IniDefault {
  const char* section;
  const char* key;
  QString value;
};

// The first-run keys in file order. `Version` and `Language` are not among
// them: the caller sets those.
std::vector<IniDefault> newIniDefaults(QDate today);

// Replaces the whole file with the first-run keys.
bool writeDefaultIni(IniFile& ini, QDate today);

// Values shared by the first-run table and the readers.
namespace defaults {
inline constexpr char kDayBackColor[] = "16761087\\16744703\\13434879\\8454143\\62708\\";
inline constexpr char kDayForeColor[] = "NNNNN";
inline constexpr char kSixEmpty[] = "\\\\\\\\\\\\";
inline constexpr char kLibelle[] = "Information\\Reservation\\Confirmation\\VIP\\In reserve\\In Use\\";
inline constexpr char kBookingBackColor[] = "65280\\16576\\16711935\\16711680\\65535\\255\\";
inline constexpr char kBookingForeColor[] = "NOOONO";
inline constexpr char kCategorie[] = "Suite\\Mini suite\\Studio luxe\\Studio\\Standard\\Simple\\";
inline constexpr char kColorCategorie[] = "32768\\128\\10420383\\10485760\\65535\\202\\";
inline constexpr char kColorLibelleNew[] = "OOOONO";
inline constexpr char kAlarmNbDays[] = "0\\0\\0\\0\\";
inline constexpr char kAlarmPrintingNew[] = "OONNO";
inline constexpr char kId7[] = "Tel.:                    E-mail:";
inline constexpr char kPlace[] = "Paris, ";
}  // namespace defaults

// The results' reset state of a first run: automatic, daily, last closed today.
QString defaultReset(QDate today);

}  // namespace ksv
