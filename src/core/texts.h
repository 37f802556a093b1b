#pragma once
// The numbered text table: every caption and message the user sees. Entry n is
// English, entry n + 1000 its French. A text that takes a name has a '|' where
// the name goes. Entries are declared in texts/*.inc, one file per subsystem:
//
//   1-49 common, 50-199 menus, 200-299 session and files, 300-399 board,
//   400-499 bookings, 500-549 customers, 550-699 invoicing, 700-799 options and
//   access, 800-899 results, 900-999 publishing, mail and card check.

#include <span>

#include <QString>
#include <QStringList>

namespace ksv {

struct TextEntry {
  int number;
  const char* english;  // UTF-8
  const char* french;   // UTF-8
};

// Named entry numbers, so that code says which text it shows.
namespace txt {
#define KSV_TEXT(name, number, english, french) inline constexpr int name = number;
#include "texts/all_texts.inc"
#undef KSV_TEXT
}  // namespace txt

enum class Language { En, Fr };
inline constexpr int kFrenchOffset = 1000;
constexpr int textOffset(Language language) { return language == Language::Fr ? kFrenchOffset : 0; }

class Texts {
 public:
  explicit Texts(int offset = 0) : offset_(offset) {}
  void setOffset(int offset) { offset_ = offset; }
  int offset() const { return offset_; }
  Language language() const { return offset_ >= kFrenchOffset ? Language::Fr : Language::En; }

  // Entry offset + n; an unknown entry reads as an empty text.
  QString get(int n) const;
  // The entry with the name put in at its bar.
  QString withName(int n, const QString& name) const;
  // A '\'-terminated list entry cut into exactly `size` items.
  QStringList list(int n, int size) const;

  // Entry by absolute number (n or n + 1000).
  static QString entry(int absoluteNumber);
  static std::span<const TextEntry> table();

 private:
  int offset_;
};

// Puts a name in place of the bar of a text: the text before the bar, the name,
// then the text after it. A text without a bar is returned as it is.
QString withName(const QString& text, const QString& name);

}  // namespace ksv
