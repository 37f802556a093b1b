#include "trous_search.h"

#include "booking_form.h"

#include "config/loaded_options.h"
#include "core/clock.h"
#include "core/messages.h"
#include "core/texts.h"

namespace ksv {

namespace {
// One large step of the scroll bar: a month.
constexpr int kMonthStep = 30;
}  // namespace

std::vector<CategoryItem> trousCategories(const LoadedOptions& options, const Texts& texts) {
  std::vector<CategoryItem> items{{texts.get(txt::AllCategories), kWhite, kBlack}};
  const std::vector<CategoryItem> six = sixCategories(options);
  items.insert(items.end(), six.begin(), six.end());
  return items;
}

TrousSearch::TrousSearch(Availability& availability, const Clock& clock, Messages& messages, const Texts& texts)
    : availability_(availability), clock_(clock), messages_(messages), texts_(texts) {}

void TrousSearch::Form_Load() {
  switch (Mode) {
    case 0:
      from_ = clock_.today();
      to_ = from_.addDays(7);
      break;
    case 3:
      from_ = CalF;
      to_ = CalS;
      break;
    case 4:
      from_ = CalS;
      to_ = CalT;
      break;
    default:
      from_ = CalF;
      to_ = CalT;
      break;
  }
  nbJour_ = int(from_.daysTo(to_));
  scroll_ = FirstDate.isValid() ? int(FirstDate.daysTo(from_)) : 0;
  fill();
}

void TrousSearch::setCategory(int category) {
  Category = category;
  fill();
}

void TrousSearch::setPeriod(QDate from, QDate to) {
  from_ = from;
  to_ = to;
  nbJour_ = int(from_.daysTo(to_));
  fill();
}

void TrousSearch::HScroll_Change(int position) {
  const int step = position - scroll_;
  if (step == kMonthStep)
    from_ = from_.addMonths(1);
  else if (step == -kMonthStep)
    from_ = from_.addMonths(-1);
  else
    from_ = FirstDate.addDays(position);
  scroll_ = position;
  to_ = from_.addDays(nbJour_);
  fill();
}

void TrousSearch::fill() {
  lines_.clear();
  selected_ = -1;
  // An empty or reversed period has no holes to show.
  if (!(from_ < to_)) return;
  for (const ResourceRoom& room : availability_.roomAround(from_, to_, Category, editing)) {
    if (!room.isFree()) continue;
    if (room.resource == Resource && !Resource.isEmpty()) selected_ = int(lines_.size());
    lines_.push_back({room.resource, room.before, room.after});
  }
}

QStringList TrousSearch::gridLines() const {
  const auto days = [this](int n) { return n >= kFarAway ? texts_.get(txt::HolesThirtyPlus) : QString::number(n); };
  QStringList grid;
  for (const HoleLine& line : lines_)
    grid.append(line.resource + QLatin1Char('\t') + days(line.before) + QLatin1Char('\t') + days(line.after));
  return grid;
}

std::optional<HoleChoice> TrousSearch::Trous_OK_Click(int line) {
  if (Mode < 1 || Mode > 5 || line < 0 || line >= int(lines_.size())) return std::nullopt;
  const QString& resource = lines_[size_t(line)].resource;
  if (resource == Resource) return std::nullopt;
  if (!messages_.askYesNo(texts_.withName(txt::HolesResourceQuestion, resource), MsgAnswer::No)) return std::nullopt;
  HoleChoice choice;
  choice.category = availability_.GetCategory(resource);
  choice.resource = resource;
  choice.toBooking = Mode == 1 || Mode == 2;
  choice.toPart1 = Mode == 3 || Mode == 5;
  choice.toPart2 = Mode == 4 || Mode == 5;
  return choice;
}

}  // namespace ksv
