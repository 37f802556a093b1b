#include "booking_form.h"

#include "config/loaded_options.h"
#include "core/messages.h"
#include "core/texts.h"

namespace ksv {

std::array<BookingState, 6> bookingStates(const LoadedOptions& options) {
  std::array<BookingState, 6> states;
  for (size_t i = 0; i < states.size(); ++i)
    states[i] = {options.Libelle.value(int(i)), options.BookingBack[i], options.BookingFore[i]};
  return states;
}

std::vector<CategoryItem> sixCategories(const LoadedOptions& options) {
  std::vector<CategoryItem> items;
  for (int c = 0; c < kCategoryCount; ++c)
    items.push_back({options.Categorie.value(c), options.CategoryBack[size_t(c)], options.CategoryFore[size_t(c)]});
  return items;
}

bool customerNameGiven(const QString& nom, Messages& messages, const Texts& texts,
                       const std::function<void()>& focusNom) {
  if (!nom.trimmed().isEmpty()) return true;
  messages.critical(texts.get(txt::CustomerNameEmpty));
  if (focusNom) focusNom();
  return false;
}

}  // namespace ksv
