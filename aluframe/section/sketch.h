#pragma once

#include <string>

#include "aluframe/model/section.h"

namespace aluframe::section {

/// A drawing of the section as SVG (a whole file, sizes in mm): its material and dimensions, its
/// centroid as a cross and its shear centre as a ring, with the name below, on a white ground. The
/// section must have no dimension problem and not be of shape `other`.
std::string sketch_of(const model::Section& section);

}  // namespace aluframe::section
