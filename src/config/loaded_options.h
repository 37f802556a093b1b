#pragma once
// The options as the running program keeps them: filled by Charger_Param from
// the option file, and only by it. Members carry the names the rest of the
// program knows them by (ini keys, or the drawing tables they feed).

#include <array>
#include <optional>

#include <QDate>
#include <QString>
#include <QStringList>

#include "core/texts.h"
#include "option_reader.h"

namespace ksv {

struct LoadedOptions {
  // Language and captions.
  Language language = Language::En;
  int textOffset = 0;
  QStringList monthNamesUpper;  // 12, capitals, for the month strip
  QStringList monthNames;       // 12, mixed case
  QStringList dayNames;         // 7, Sunday first
  QString dayLetters;           // "SMTWTFS" or its French row

  // The two web menu entries: visible when their section names a user.
  bool orlimbrookVisible = false;
  bool zellatideVisible = false;

  // Section Remember.
  QDate boardOrigin;  // `BoardOrigin`, the board's first date
  bool regionalSetting = true;
  std::array<Colour, 5> DayBack{};  // Day 1, Day 2, Period 1, 2, 3
  std::array<Colour, 5> DayFore{};
  QStringList SchedulePeriod;  // 6 texts, "yymmdd" or empty
  bool Border = true;
  bool BookingBorder = true;
  bool AvailableBorder = true;
  bool AvailableColor = true;
  bool Manual = false;
  // `AutoCompact`: the next compaction. When the key is empty the option is
  // off; the date is then today plus one month, so that it never comes due.
  QDate AutoCompact;
  bool autoCompactSet = false;
  bool CheckGroupDate = true;

  // Section Security.
  bool LockMode = false;
  bool LockDate = true;
  bool LockInvoice = true;
  bool LockDelete = true;

  // Section Reservation.
  bool WithFrame = false;
  std::optional<int> YearKeep = 3;  // empty: the value in the file is refused
  QStringList Libelle;  // 6 booking state names, by `Couleur`
  std::array<Colour, 6> BookingBack{};
  std::array<Colour, 6> BookingFore{};
  QString Grid;            // two letters
  bool gridSolid = true;   // first letter "L": drawn lines, else dots
  bool gridInFront = false;  // last letter "F": grid in front of the bookings
  QString Updating;        // "O" normal mode, "N" consultation
  QString RefreshScreen;   // "O" refreshes by itself; always "N" in normal mode
  int NbSecond = 30;
  int refreshInterval() const { return NbSecond * 1000; }  // timer milliseconds

  // Section Alarm.
  bool WkEnd = true;
  bool RayePast = true;
  std::array<int, 4> NbDays{};      // Leaving, Arrival, Event 1, Event 2
  std::array<QDate, 4> NbDaysDate;  // today plus each count

  // Section Resource.
  QStringList Categorie;  // 6 category names, by `Resource.Color`
  std::array<Colour, 6> CategoryBack{};
  std::array<Colour, 6> CategoryFore{};

  // Section Company.
  QDate BeginPeriod;
  bool UseGroups = true;
  bool LockGroups = false;
  bool PrintGroups = true;

  bool normalMode() const { return Updating == QLatin1String("O"); }
};

}  // namespace ksv
