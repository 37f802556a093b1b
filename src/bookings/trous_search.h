#pragma once
// The holes search: the free resources of a category over a period, with the
// free days before and after it. Headless: the window shows `lines` and
// forwards its events here.
//
// Modes, by opener: 0 the menu (today to today + 7 days), 1 the creation
// dialog, 2 the modification dialog, 3 and 4 the split dialog for part 1
// (CalF to CalS) and part 2 (CalS to CalT), 5 the split dialog for the whole.

#include <optional>
#include <vector>

#include <QDate>
#include <QString>
#include <QStringList>

#include "availability.h"
#include "config/option_reader.h"

namespace ksv {

class Clock;
class Messages;
class Texts;
struct LoadedOptions;

// One entry of the Category list; list index = category + 1.
struct CategoryItem {
  QString name;
  Colour back;
  Colour fore;
};
// "All categories" in black on white, then the six categories in their colours.
std::vector<CategoryItem> trousCategories(const LoadedOptions& options, const Texts& texts);

struct HoleLine {
  QString resource;
  int before;
  int after;
};

// What the opener takes back from Trous_OK_Click.
struct HoleChoice {
  int category = -1;
  QString resource;
  bool toBooking = false;  // modes 1 and 2
  bool toPart1 = false;    // modes 3 and 5
  bool toPart2 = false;    // modes 4 and 5
};

class TrousSearch {
 public:
  TrousSearch(Availability& availability, const Clock& clock, Messages& messages, const Texts& texts);

  // Set by the opener before Form_Load.
  int Mode = 0;
  QDate CalF, CalS, CalT;        // the opener's dates
  QDate FirstDate, LastDate;     // the scroll bar's range
  int Category = -1;             // -1: all categories
  QString Resource;              // the booking's resource, read-only
  std::vector<SkippedBooking> editing;  // the booking's own rows, not counted

  // Sets the period by mode, then fills.
  void Form_Load();
  // Refills for the current period and category.
  void fill();
  void setCategory(int category);
  void setPeriod(QDate from, QDate to);
  // The scroll bar moved to `position` (days from FirstDate).
  void HScroll_Change(int position);

  // The lines as the grid shows them: resource, days before, days after,
  // tab-separated, 31 shown as "30 +".
  QStringList gridLines() const;
  const std::vector<HoleLine>& lines() const { return lines_; }
  int Nb_Free() const { return int(lines_.size()); }
  // The line of the booking's own resource, highlighted and selected; -1 when absent.
  int selected() const { return selected_; }
  int scrollPosition() const { return scroll_; }
  QDate from() const { return from_; }
  QDate to() const { return to_; }
  int NB_Jour() const { return nbJour_; }

  // The chosen line becomes the booking's resource after a question; nothing
  // when the mode, the line or the answer says no.
  std::optional<HoleChoice> Trous_OK_Click(int line);

 private:
  Availability& availability_;
  const Clock& clock_;
  Messages& messages_;
  const Texts& texts_;
  QDate from_, to_;
  int nbJour_ = 7;
  int scroll_ = 0;
  std::vector<HoleLine> lines_;
  int selected_ = -1;
};

}  // namespace ksv
