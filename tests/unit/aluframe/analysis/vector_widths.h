#pragma once

#include <algorithm>
#include <iterator>
#include <vector>

#include "aluframe/analysis/dense_tiles.h"

namespace aluframe::analysis {

/// Vectors of so many doubles that the processor at hand has: two at least.
inline std::vector<int> vector_widths() {
  std::vector<int> widths;
  std::ranges::copy_if(std::vector{2, 4, 8}, std::back_inserter(widths), has_vectors_of);
  return widths;
}

}  // namespace aluframe::analysis
