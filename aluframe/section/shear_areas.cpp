#include "aluframe/section/shear_areas.h"

#include <numbers>

#include "aluframe/section/shapes.h"

namespace aluframe::section {

namespace {

using model::Shape;

/// Shear coefficient of a rectangle.
constexpr double rectangle = 5.0 / 6.0;

double ring_area(double outer, double inner) {
  return std::numbers::pi / 4.0 * (outer * outer - inner * inner);
}

}  // namespace

ShearAreas shear_areas_of(const model::Section& section) {
  const Dimensions d = dimensions_of(section);
  const double depth = d.h - (d.tf1 + d.tf2) / 2.0;
  const double flanges = rectangle * (d.b1 * d.tf1 + d.b2 * d.tf2);
  switch (section.shape) {
    case Shape::channel:
    case Shape::h_section:
      return {.y = flanges, .z = depth * d.tw};
    case Shape::tee:
      return {.y = flanges, .z = rectangle * d.h * d.tw};
    case Shape::box:
      return {.y = d.c * (d.tf1 + d.tf2), .z = 2.0 * depth * d.tw};
    case Shape::double_channel:
      return {.y = 2.0 * flanges, .z = 2.0 * depth * d.tw};
    case Shape::pipe: {
      const double area = ring_area(d.h, d.h - 2.0 * d.tw);
      return {.y = area / 2.0, .z = area / 2.0};
    }
    case Shape::solid_round: {
      const double area = 0.9 * ring_area(d.h, 0.0);
      return {.y = area, .z = area};
    }
    case Shape::other:
      break;
  }
  return {};
}

}  // namespace aluframe::section
