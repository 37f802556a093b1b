#pragma once
// What the booking dialogs show alike: the six state buttons and the
// category lists, in the colours of the options.

#include <array>
#include <vector>

#include <QString>

#include "config/option_reader.h"
#include "trous_search.h"

namespace ksv {

struct LoadedOptions;

// One state button Def_Cl(i): the state's label and colours. `Nom` takes
// the same colours when the state is chosen.
struct BookingState {
  QString caption;
  Colour back = 0;
  Colour fore = 0;
};
std::array<BookingState, 6> bookingStates(const LoadedOptions& options);

// The six categories in their colours, list index = category (no "All" entry).
std::vector<CategoryItem> sixCategories(const LoadedOptions& options);

}  // namespace ksv
