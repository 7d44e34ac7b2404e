#pragma once

#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/picture/element_axis.h"
#include "aluframe/viewport/camera.h"

namespace aluframe::viewport {

/// An element in space.
struct ElementLine : picture::ElementAxis {
  model::Number number = 0;
};

/// Of all elements, in the order of the model.
std::vector<ElementLine> element_lines(const model::Model& model);

/// Starts and ends of lines, for `Camera::fit` and `bounds_of`.
std::vector<Point3> ends_of(const std::vector<ElementLine>& lines);

}  // namespace aluframe::viewport
