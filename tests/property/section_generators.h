#pragma once

#include <rapidcheck.h>

#include <array>
#include <cmath>

#include "aluframe/section/section_properties.h"

namespace aluframe::section {

/// A length between two bounds, mm, in steps of a hundredth.
inline double length_between(double low, double high) {
  const int steps = *rc::gen::inRange(0, 101);
  return low + (high - low) * steps / 100.0;
}

/// Dimensions of a section that can be built, of thin to thick walls, flanges alike or not.
inline std::array<double, 8> any_dimensions(model::Shape shape) {
  const double h = length_between(50, 400);
  const double b1 = length_between(30, 300);
  const double b2 = *rc::gen::arbitrary<bool>() ? b1 : length_between(30, 300);
  const double tw = length_between(1, 12);
  const double tf1 = length_between(1, 20);
  const double tf2 = *rc::gen::arbitrary<bool>() ? tf1 : length_between(1, 20);
  switch (shape) {
    case model::Shape::channel:
    case model::Shape::h_section:
      return {h, b1, tw, tf1, b2, tf2};
    case model::Shape::tee:
      return {h, b1, tw, tf1};
    case model::Shape::box:
      return {h, b1, tw, tf1, length_between(tw + 1, b1 - tw), tf2};
    case model::Shape::pipe:
      return {h, length_between(1, h / 2)};
    case model::Shape::double_channel:
      return {h, b1, tw, tf1, length_between(0, 30)};
    default:
      return {h};
  }
}

inline constexpr std::array all_shapes{model::Shape::channel,    model::Shape::h_section,
                                       model::Shape::tee,        model::Shape::box,
                                       model::Shape::pipe,       model::Shape::double_channel,
                                       model::Shape::solid_round};

inline model::Section any_section(model::Shape shape) {
  model::Section section;
  section.shape = shape;
  section.dimensions = any_dimensions(shape);
  return section;
}

inline model::Section any_section() {
  return any_section(*rc::gen::elementOf(all_shapes));
}

/// Asserts that two numbers agree to a share of `size`, the magnitude that rounding is measured by.
inline void assert_close(const char* what, double found, double expected, double size,
                         double tolerance) {
  if (std::abs(found - expected) <= tolerance * std::abs(size)) return;
  RC_LOG() << what << ": found " << found << ", expected " << expected << std::endl;
  RC_FAIL("properties differ");
}

}  // namespace aluframe::section
