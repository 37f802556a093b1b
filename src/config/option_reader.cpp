#include "option_reader.h"

#include "core/list_value.h"
#include "core/number_text.h"
#include "ini_file.h"

namespace ksv {

QString readOption(IniFile& ini, QAnyStringView section, QAnyStringView key, const QString& defaultValue) {
  const QString value = ini.GetValue(section, key);
  if (!value.isEmpty()) return value;
  // An empty default need not be written again once the key is there.
  if (defaultValue.isEmpty() && ini.hasKey(section, key)) return value;
  ini.SetValue(section, key, defaultValue);
  return defaultValue;
}

Colour colourValue(const QString& text) {
  const double v = val(text);
  if (v <= 0) return 0;
  if (v >= 4294967295.0) return 0xFFFFFFFFu;
  return static_cast<Colour>(v);
}

Colour textColour(const QString& flags, int index) { return flagIs(flags, index, QLatin1Char('N')) ? kBlack : kWhite; }

QString readAlarmPrinting(IniFile& ini) {
  return readOption(ini, "Alarm", "Printing", QString::fromLatin1(missing::kAlarmPrinting));
}

std::optional<int> yearKeepYears(const QString& text) {
  bool ok = false;
  const int years = text.trimmed().toInt(&ok);
  // Beyond a few centuries the limit leaves the calendar.
  if (!ok || years < 0 || years > 200) return std::nullopt;
  return years;
}

}  // namespace ksv
