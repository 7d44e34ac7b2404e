#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "aluframe/section/section_properties.h"

namespace aluframe::section {

/// A section of this shape with dimensions in the host's order, mm.
inline model::Section make_section(model::Shape shape, std::array<double, 8> dimensions) {
  model::Section section;
  section.shape = shape;
  section.dimensions = dimensions;
  return section;
}

inline model::SectionProperties properties_of(model::Shape shape,
                                              std::array<double, 8> dimensions) {
  return properties_of(make_section(shape, dimensions));
}

inline double square(double x) {
  return x * x;
}

inline double cube(double x) {
  return x * x * x;
}

/// Formulas are evaluated in double precision: only the order of operations differs.
inline void expect_close(double found, double expected, double tolerance = 1e-12) {
  EXPECT_NEAR(found, expected, tolerance * std::abs(expected));
}

}  // namespace aluframe::section
