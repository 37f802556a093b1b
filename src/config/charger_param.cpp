#include "charger_param.h"

#include "core/clock.h"
#include "core/day_date.h"
#include "core/list_value.h"
#include "core/number_text.h"
#include "ini_defaults.h"
#include "ini_file.h"

namespace ksv {
namespace {

template <std::size_t N>
std::array<Colour, N> colourList(const QString& value) {
  std::array<Colour, N> out{};
  const QStringList items = splitList(value, int(N));  // extra items are dropped
  for (std::size_t i = 0; i < N; ++i) out[i] = colourValue(items[int(i)]);
  return out;
}

template <std::size_t N>
std::array<Colour, N> textColours(const QString& flags) {
  std::array<Colour, N> out{};
  for (std::size_t i = 0; i < N; ++i) out[i] = textColour(flags, int(i));
  return out;
}

QDate dateOr(const QString& yymmdd, QDate fallback) {
  const std::optional<QDate> d = fromYymmdd(yymmdd);
  return d ? *d : fallback;
}

QString latin(const char* s) { return QString::fromLatin1(s); }

}  // namespace

Language languageOf(const QString& value) {
  return value.compare(QLatin1String("Fr"), Qt::CaseInsensitive) == 0 ? Language::Fr : Language::En;
}

QString languageValue(Language language) {
  return language == Language::Fr ? QStringLiteral("Fr") : QStringLiteral("En");
}

void convertLockPlanning(IniFile& ini) {
  if (!ini.hasKey("Security", "LockPlanning")) return;
  const bool locked = isYes(ini.GetValue("Security", "LockPlanning"));
  ini.SetValue("Reservation", "Updating", yesNo(!locked));
  ini.SetValue("Security", "LockMode", yesNo(locked));
  ini.DeleteKey("Security", "LockMenu");
  ini.DeleteKey("Security", "LockPlanning");
}

LoadedOptions Charger_Param(IniFile& ini, const Clock& clock) {
  using namespace defaults;
  const QDate today = clock.today();
  LoadedOptions o;

  o.language = languageOf(readOption(ini, "Remember", "Language", QStringLiteral("En")));
  o.textOffset = textOffset(o.language);
  const Texts texts(o.textOffset);

  o.orlimbrookVisible = !readOption(ini, "Orlimbrook", "UserNameF", QString()).isEmpty();
  o.zellatideVisible = !readOption(ini, "Zellatide", "UserNameF", QString()).isEmpty();

  o.monthNamesUpper = texts.list(txt::MonthNamesUpper, 12);
  o.monthNames = texts.list(txt::MonthNames, 12);
  o.dayNames = texts.list(txt::DayNames, 7);
  o.dayLetters = texts.get(txt::DayLetters);

  o.boardOrigin = dateOr(readOption(ini, "Remember", "BoardOrigin", toYymmdd(today)), today);
  o.regionalSetting = isYes(readOption(ini, "Remember", "RegionalSetting", QStringLiteral("O")));

  o.DayBack = colourList<5>(readOption(ini, "Remember", "BackColor", latin(kDayBackColor)));
  o.DayFore = textColours<5>(readOption(ini, "Remember", "ForeColor", latin(kDayForeColor)));
  o.SchedulePeriod = splitList(readOption(ini, "Remember", "SchedulePeriod", latin(kSixEmpty)), 6);
  o.Border = isYes(readOption(ini, "Remember", "Border", QStringLiteral("O")));
  o.BookingBorder = isYes(readOption(ini, "Remember", "BookingBorder", QStringLiteral("O")));
  o.AvailableBorder = isYes(readOption(ini, "Remember", "AvailableBorder", QStringLiteral("O")));
  o.AvailableColor = isYes(readOption(ini, "Remember", "AvailableColor", QStringLiteral("O")));
  o.Manual = isYes(readOption(ini, "Remember", "Manual", QStringLiteral("N")));

  // An empty AutoCompact means the option is off: nothing is written.
  const std::optional<QDate> compact = fromYymmdd(ini.GetValue("Remember", "AutoCompact"));
  o.autoCompactSet = compact.has_value();
  o.AutoCompact = compact ? *compact : today.addMonths(1);

  // The group dates are checked unless the option says "N".
  o.CheckGroupDate = readOption(ini, "Remember", "CheckGroupDate", QStringLiteral("O")) != QLatin1String("N");

  convertLockPlanning(ini);
  o.LockMode = isYes(readOption(ini, "Security", "LockMode", QStringLiteral("N")));
  o.LockDate = isYes(readOption(ini, "Security", "LockDate", QStringLiteral("O")));
  o.LockInvoice = isYes(readOption(ini, "Security", "LockInvoice", QStringLiteral("O")));
  o.LockDelete = isYes(readOption(ini, "Security", "LockDelete", QStringLiteral("O")));

  o.WithFrame = isYes(readOption(ini, "Reservation", "WithFrame", QStringLiteral("N")));
  o.YearKeep = yearKeepYears(readOption(ini, "Reservation", "YearKeep", QStringLiteral("3")));
  o.Libelle = splitList(readOption(ini, "Reservation", "Libelle", latin(missing::kLibelle)), 6);
  o.BookingBack = colourList<6>(readOption(ini, "Reservation", "BackColor", latin(kBookingBackColor)));
  o.BookingFore = textColours<6>(readOption(ini, "Reservation", "ForeColor", latin(kBookingForeColor)));
  o.Grid = readOption(ini, "Reservation", "Grid", QStringLiteral("LB"));
  o.gridSolid = o.Grid.startsWith(QLatin1Char('L'));
  o.gridInFront = o.Grid.endsWith(QLatin1Char('F'));

  o.WkEnd = readOption(ini, "Alarm", "WkEnd", QStringLiteral("O")) != QLatin1String("N");
  o.RayePast = readOption(ini, "Alarm", "RayePast", QStringLiteral("O")) != QLatin1String("N");

  o.RefreshScreen = readOption(ini, "Reservation", "RefreshScreen", QStringLiteral("O"));
  o.NbSecond = int(val(readOption(ini, "Reservation", "NbSecond", QStringLiteral("30"))));
  o.Updating = readOption(ini, "Reservation", "Updating", QStringLiteral("O"));
  // A station in normal mode is the one that changes the file: it never
  // needs to refresh by itself.
  if (o.normalMode()) o.RefreshScreen = QStringLiteral("N");

  const QStringList counts = splitList(readOption(ini, "Alarm", "NbDays", latin(kAlarmNbDays)), 4);
  for (int i = 0; i < 4; ++i) {
    o.NbDays[i] = int(val(counts[i]));
    o.NbDaysDate[i] = today.addDays(o.NbDays[i]);
  }

  o.Categorie = splitList(readOption(ini, "Resource", "Categorie", latin(missing::kCategorie)), 6);
  o.CategoryBack = colourList<6>(readOption(ini, "Resource", "ColorCategorie", latin(kColorCategorie)));
  o.CategoryFore = textColours<6>(readOption(ini, "Resource", "ColorLibelle", latin(missing::kColorLibelle)));

  o.BeginPeriod = dateOr(readOption(ini, "Company", "BeginPeriod", toYymmdd(today)), today);
  o.UseGroups = isYes(readOption(ini, "Company", "UseGroups", QStringLiteral("O")));
  o.LockGroups = isYes(readOption(ini, "Company", "LockGroups", QStringLiteral("N")));
  o.PrintGroups = isYes(readOption(ini, "Company", "PrintGroups", QStringLiteral("O")));
  return o;
}

}  // namespace ksv
