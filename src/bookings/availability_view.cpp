#include "availability_view.h"

#include "config/loaded_options.h"

namespace ksv {

CellColours availableCellColours(int free, int count, bool bright) {
  // A full category stays white; below that, each lower quarter darkens the
  // cell, the later test winning.
  if (free == count) return {kWhite, kBlack};
  const double q = count / 4.0;
  CellColours c{bright ? Colour(65280) : Colour(0xC0FFC0), kBlack};
  if (free <= 3 * q) c = {bright ? Colour(65535) : Colour(0xC0FFFF), kBlack};
  if (free <= 2 * q) c = {bright ? Colour(33023) : Colour(0xC0E0FF), bright ? kWhite : kBlack};
  if (free <= q) c = {bright ? Colour(255) : Colour(0xC0C0FF), bright ? kWhite : kBlack};
  if (free == 0) c = {kBlack, kWhite};
  return c;
}

std::vector<AvailabilityLine> Draw_Available(const AvailabilityTables& tables, const LoadedOptions& options) {
  std::vector<AvailabilityLine> lines;
  if (!tables.Flg_OkCl) return lines;
  for (int c = 0; c < kCategoryCount; ++c) {
    const int count = tables.count[size_t(c)];
    if (count == 0) continue;
    AvailabilityLine line{c, options.Categorie.value(c), {options.CategoryBack[size_t(c)], options.CategoryFore[size_t(c)]}, {}};
    for (const auto& day : tables.free) {
      const int free = day[size_t(c)];
      line.cells.push_back({free, availableCellColours(free, count, options.AvailableColor)});
    }
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace ksv
