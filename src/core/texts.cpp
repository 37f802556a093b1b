#include "texts.h"

#include <algorithm>
#include <vector>

#include "list_value.h"

namespace ksv {
namespace {

constexpr TextEntry kTable[] = {
#define KSV_TEXT(name, number, english, french) {number, english, french},
#include "texts/all_texts.inc"
#undef KSV_TEXT
};

const TextEntry* find(int number) {
  for (const TextEntry& e : kTable)
    if (e.number == number) return &e;
  return nullptr;
}

}  // namespace

std::span<const TextEntry> Texts::table() { return kTable; }

QString Texts::entry(int absoluteNumber) {
  const bool french = absoluteNumber >= kFrenchOffset;
  const TextEntry* e = find(french ? absoluteNumber - kFrenchOffset : absoluteNumber);
  if (!e) return QString();
  return QString::fromUtf8(french ? e->french : e->english);
}

QString Texts::get(int n) const { return entry(offset_ + n); }

QString Texts::withName(int n, const QString& name) const { return ksv::withName(get(n), name); }

QStringList Texts::list(int n, int size) const { return splitList(get(n), size); }

QString withName(const QString& text, const QString& name) {
  const qsizetype bar = text.indexOf(QLatin1Char('|'));
  if (bar < 0) return text;
  return text.left(bar) + name + text.mid(bar + 1);
}

}  // namespace ksv
