#pragma once
// What the availability view paints: per category that has resources, a
// heading in the category's colours, then one cell per day with the number
// free, coloured by how much of the category is left.

#include <vector>

#include <QString>

#include "availability.h"
#include "config/option_reader.h"

namespace ksv {

struct LoadedOptions;

struct CellColours {
  Colour back;
  Colour fore;
  bool operator==(const CellColours&) const = default;
};

// The colours of a cell with `free` resources left of `count`. `bright` is
// the `AvailableColor` option.
CellColours availableCellColours(int free, int count, bool bright);

struct AvailabilityCell {
  int free;
  CellColours colours;
};

struct AvailabilityLine {
  int category;
  QString name;
  CellColours heading;
  std::vector<AvailabilityCell> cells;  // one per day
};

// The lines of Draw_Available, in category order; none when the tables are
// empty.
std::vector<AvailabilityLine> Draw_Available(const AvailabilityTables& tables, const LoadedOptions& options);

}  // namespace ksv
