#pragma once
// What the booking dialogs show alike: the six state buttons and the
// category lists, in the colours of the options.

#include <array>
#include <functional>
#include <vector>

#include <QString>

#include "config/option_reader.h"
#include "trous_search.h"

namespace ksv {

class Messages;
class Texts;
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

// The name check of the booking dialogs: a name of blanks only is no name.
// False, after the error "The customer name cannot be empty" and the focus
// to `Nom`, when `nom` is blank.
bool customerNameGiven(const QString& nom, Messages& messages, const Texts& texts,
                       const std::function<void()>& focusNom);

}  // namespace ksv
