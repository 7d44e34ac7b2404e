#pragma once

#include <string>
#include <vector>

#include "aluframe/model/section.h"

namespace aluframe::section {

/// A dimension as a drawing shows it, from the centroid, y to the right, z up, mm.
struct DimensionLine {
  enum class Kind {
    above,      ///< along y, above the section
    below,      ///< along y, below the section
    beside,     ///< along z, to the left of the section
    thickness,  ///< along z, of a flange, to the right of the section
    wall        ///< along y, of a web, in the section
  };
  Kind kind = Kind::above;
  double from = 0.0, to = 0.0;  ///< rising
  double level = 0.0;           ///< across: where what is measured ends or is
  std::string text;             ///< "tf1 12"
};

/// The dimensions of a section that its outline shows; radii have none. The section must have no
/// dimension problem and not be of shape `other`.
std::vector<DimensionLine> dimension_lines_of(const model::Section& section);

}  // namespace aluframe::section
