#pragma once

#include <array>
#include <cstddef>

#include "aluframe/model/section.h"

namespace aluframe::io {

/// What a dimension is when the file does not give it, in mm: B2 = B1 and tf2 = tf1 (the other
/// flange is the same), C = B − tw of a box (its webs at the edges), 0 for r1, r2 and the gap
/// between two channels. `dimension` is a place in model::dimension_names behind the required ones;
/// the places before it are filled in.
double default_dimension(model::Shape shape, std::size_t dimension,
                         const std::array<double, 8>& dimensions);

}  // namespace aluframe::io
