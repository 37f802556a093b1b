#include "booking_form.h"

#include "config/loaded_options.h"

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

}  // namespace ksv
