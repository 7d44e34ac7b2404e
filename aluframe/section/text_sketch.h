#pragma once

#include <string>

#include "aluframe/model/section.h"

namespace aluframe::section {

/// A drawing of the section in about 16 lines of plain characters, for a terminal: '#' material,
/// '+' centroid, 'o' shear centre, '*' both in one place. A character is taken to be twice as high
/// as wide. Walls are drawn at least one character thick, so thin ones are out of scale; corner
/// radii are left out. The section must have no dimension problem and not be of shape `other`.
std::string text_sketch_of(const model::Section& section);

}  // namespace aluframe::section
