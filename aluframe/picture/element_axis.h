#pragma once

#include <array>

#include "aluframe/model/model.h"
#include "aluframe/picture/point.h"

namespace aluframe::picture {

Point3 point_of(const model::Model& model, model::Number node);

/// An element in the model: its ends, and its local x, y, z as directions of length 1.
struct ElementAxis {
  Point3 start, end;
  std::array<Point3, 3> axes;
};
ElementAxis axis_of(const model::Model& model, const model::Element& element);

}  // namespace aluframe::picture
