#pragma once

#include <array>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/viewport/camera.h"

namespace aluframe::viewport {

/// The axis of an element in space.
struct ElementLine {
  model::Number number = 0;
  Point3 start, end;
  std::array<Point3, 3> axes;  ///< local x, y, z
};

/// Of all elements, in the order of the model.
std::vector<ElementLine> element_lines(const model::Model& model);

/// Starts and ends of lines, for `Camera::fit` and `bounds_of`.
std::vector<Point3> ends_of(const std::vector<ElementLine>& lines);

}  // namespace aluframe::viewport
