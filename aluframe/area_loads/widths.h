#pragma once

#include <cstddef>
#include <vector>

namespace aluframe::area_loads {

/// Width of a surface, mm, that an element carries between two places, parts of its length;
/// linear between them. Below 0 where a cantilevering surface lifts it.
struct WidthPiece {
  std::size_t element = 0;  ///< its place in the model
  double from = 0.0, to = 1.0;
  double from_width = 0.0, to_width = 0.0;
};

/// Pieces of any order, which may lie over one another, as pieces element by element and from the
/// start to the end that add up to the same: several that continue one another are one.
std::vector<WidthPiece> added_up(std::vector<WidthPiece> pieces);

}  // namespace aluframe::area_loads
