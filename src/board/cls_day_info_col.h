#pragma once
// Day infos keyed by their FormatKey text.

#include <map>

#include "cls_day_info.h"

namespace ksv {

class clsDayInfoCol {
 public:
  // Creates the entry, or when the key is present overwrites its colours and
  // Bold (its date and Selected stay). An empty key stands for the date's key.
  clsDayInfo& Add(const clsDayInfo& fields, const QString& key = QString());
  // Nothing when the key is absent.
  const clsDayInfo* Item(const QString& key) const;
  const clsDayInfo* Item(QDate date) const { return Item(FormatKey(date)); }
  int Count() const { return static_cast<int>(items_.size()); }
  // False when the key was absent.
  bool Remove(const QString& key);
  void Clear() { items_.clear(); }

  static QString FormatKey(QDate date) { return ksv::FormatKey(date); }

 private:
  std::map<QString, clsDayInfo> items_;
};

}  // namespace ksv
