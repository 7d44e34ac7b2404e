#pragma once

#include <string>
#include <vector>

#include "aluframe/section/dimension_lines.h"

namespace aluframe::section {

/// The rectangle around a section and its shear centre, z up, mm.
struct DrawnFrame {
  double left, right, bottom, top;
};

/// Height of a line of dimensions beside the frame, as a part of the larger size of it.
inline constexpr double row_share = 0.09;

/// Lines, arrows and values of dimensions as parts of an SVG drawing whose y points downwards, one
/// row above and below the frame and on its left, and on its right as wide as its letters.
std::string dimensions_text(const std::vector<DimensionLine>& lines, const DrawnFrame& frame);

}  // namespace aluframe::section
