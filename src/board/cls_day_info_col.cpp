#include "cls_day_info_col.h"

namespace ksv {

QString FormatKey(QDate date) {
  // QDate's own formatting uses the C locale: English month abbreviations.
  return date.toString(QStringLiteral("dd MMM yyyy"));
}

clsDayInfo& clsDayInfoCol::Add(const clsDayInfo& fields, const QString& key) {
  const QString k = key.isEmpty() ? ksv::FormatKey(fields.DateTime) : key;
  auto [it, inserted] = items_.try_emplace(k, fields);
  if (!inserted) {
    clsDayInfo& kept = it->second;
    kept.Bold = fields.Bold;
    kept.RectColor = fields.RectColor;
    kept.ForeColor = fields.ForeColor;
    kept.BackColor = fields.BackColor;
  }
  return it->second;
}

const clsDayInfo* clsDayInfoCol::Item(const QString& key) const {
  const auto it = items_.find(key);
  return it == items_.end() ? nullptr : &it->second;
}

bool clsDayInfoCol::Remove(const QString& key) { return items_.erase(key) > 0; }

}  // namespace ksv
