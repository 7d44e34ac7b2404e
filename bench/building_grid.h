#pragma once

#include <vector>

#include "aluframe/analysis/load_case.h"

namespace building_grid {

/// A building of square bays: columns and beams in both directions, held at the foot, with floors
/// enough for about so many elements. Bays of 6 m, storeys of 3.5 m, two sections.
aluframe::analysis::Frame frame_of_about(std::size_t elements);

/// Load cases of the kinds that a building has, one after the other: weight with a load on every
/// beam, a load on every other beam, wind along X, wind along Y, warmth.
std::vector<aluframe::analysis::LoadCase> load_cases(const aluframe::analysis::Frame& frame,
                                                     std::size_t count);

}  // namespace building_grid
