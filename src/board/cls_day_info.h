#pragma once
// A marked day of a calendar: its number bold or not, selected or not, and its
// own colours (window-system colour values, blue-green-red).

#include <QDate>
#include <QString>

namespace ksv {

struct clsDayInfo {
  QDate DateTime;
  bool Bold = false;
  bool Selected = false;
  int RectColor = 0;
  int ForeColor = 0;
  int BackColor = 0;
};

// The key of a day in a collection of day infos: "DD Mmm YYYY", English month
// abbreviations whatever the locale, so that keys never depend on the station.
QString FormatKey(QDate date);

}  // namespace ksv
