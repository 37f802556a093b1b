#include "ini_defaults.h"

#include "core/day_date.h"
#include "ini_file.h"
#include "config/access_code.h"

namespace ksv {

QString defaultReset(QDate today) { return QStringLiteral("31") + toDdmmyy(today); }

std::vector<IniDefault> newIniDefaults(QDate today) {
  using namespace defaults;
  const QString day = toYymmdd(today);
  const QString webPin = scrambledNilPin(QString::fromLatin1(kKeyWebPassword));
  std::vector<IniDefault> d = {
      {"Remember", "LastFile", QString()},
      {"Remember", "BoardOrigin", day},
      {"Remember", "RegionalSetting", "O"},
      {"Remember", "BackColor", kDayBackColor},
      {"Remember", "ForeColor", kDayForeColor},
      {"Remember", "SchedulePeriod", kSixEmpty},
      {"Remember", "Border", "O"},
      {"Remember", "BookingBorder", "O"},
      {"Remember", "AvailableBorder", "O"},
      {"Remember", "AvailableColor", "O"},
      {"Remember", "Manual", "N"},
      {"Remember", "AutoCompact", day},
      {"Remember", "Reset", defaultReset(today)},
      {"Remember", "CheckGroupDate", "O"},

      {"Security", "AccesPlanning", scrambledNilPin(QString::fromLatin1(kKeyAccesPlanning))},
      {"Security", "AccesOptions", scrambledNilPin(QString::fromLatin1(kKeyAccesOptions))},
      {"Security", "LockMode", "N"},
      {"Security", "LockDate", "O"},
      {"Security", "LockInvoice", "O"},
      {"Security", "LockDelete", "O"},
      {"Security", "TimeoutFTP", "3"},

      {"Reservation", "WithFrame", "N"},
      {"Reservation", "YearKeep", "3"},
      {"Reservation", "Libelle", kLibelle},
      {"Reservation", "BackColor", kBookingBackColor},
      {"Reservation", "ForeColor", kBookingForeColor},
      {"Reservation", "Grid", "LB"},
      {"Reservation", "Updating", "O"},
      {"Reservation", "RefreshScreen", "O"},
      {"Reservation", "NbSecond", "30"},

      {"Alarm", "WkEnd", "O"},
      {"Alarm", "RayePast", "O"},
      {"Alarm", "NbDays", kAlarmNbDays},
      {"Alarm", "Printing", kAlarmPrintingNew},
      {"Alarm", "Extension", "N"},
      {"Alarm", "Exceptions", "O"},
      {"Alarm", "OpenAtStart", "N"},

      {"Resource", "Categorie", kCategorie},
      {"Resource", "ColorCategorie", kColorCategorie},
      {"Resource", "ColorLibelle", kColorLibelleNew},

      {"Company", "HeaderType", "I"},
      {"Company", "PrintedHeight", "1"},
      {"Company", "Id1", "Kestrovane"},
      {"Company", "Id2", QString()},
      {"Company", "Id3", QStringLiteral("Reservation software      Logiciel de réservation")},
      {"Company", "Id4", QString()},
      {"Company", "Id5", QString()},
      {"Company", "Id6", QString()},
      {"Company", "Id7", kId7},
      {"Company", "IdBold", "ONONNNN"},
      {"Company", "IdAlign", "C"},
      {"Company", "IdBord", "O"},
      {"Company", "VrfA4", "O"},
      {"Company", "Place", kPlace},
      {"Company", "Symbol", "B"},
      {"Company", "SymbolBefore", "N"},
      {"Company", "NbDecimal", "0"},
      {"Company", "OnlyIfDecExist", "N"},
      {"Company", "BeginPeriod", day},
      {"Company", "Stopgap", "N"},
      {"Company", "UseGroups", "O"},
      {"Company", "LockGroups", "N"},
      {"Company", "PrintGroups", "O"},
  };
  for (const char* service : {"Orlimbrook", "Zellatide"}) {
    d.push_back({service, "UserNameF", QString()});
    d.push_back({service, "PasswordF", webPin});
    d.push_back({service, "NbDays", QString()});
    d.push_back({service, "Server", QString()});
    d.push_back({service, "UserNameC", QString()});
    d.push_back({service, "PasswordC", webPin});
    d.push_back({service, "Verify", "N"});
    d.push_back({service, "Directory", QString()});
  }
  return d;
}

bool writeDefaultIni(IniFile& ini, QDate today) {
  QString text;
  QString section;
  for (const IniDefault& d : newIniDefaults(today)) {
    if (section != QLatin1String(d.section)) {
      section = QString::fromLatin1(d.section);
      text += QLatin1Char('[') + section + QStringLiteral("]\r\n");
    }
    text += QString::fromLatin1(d.key) + QLatin1Char('=') + d.value + QStringLiteral("\r\n");
  }
  return ini.writeText(text);
}

}  // namespace ksv
