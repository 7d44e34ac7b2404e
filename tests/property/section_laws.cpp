#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "section_generators.h"

namespace aluframe::section {
namespace {

using model::SectionProperties;
using model::Shape;

/// Rounding of sums that differ in order only, and of differences within them.
constexpr double rounding = 1e-9;

void assert_all_close(const SectionProperties& found, const SectionProperties& expected) {
  const auto check = [](const char* what, double a, double b) {
    assert_close(what, a, b, b, rounding);
  };
  check("area", found.area, expected.area);
  check("it", found.it, expected.it);
  check("iyy", found.iyy, expected.iyy);
  check("izz", found.izz, expected.izz);
  check("qyb", found.qyb, expected.qyb);
  check("qzb", found.qzb, expected.qzb);
  check("iw", found.iw, expected.iw);
  const double size = expected.point_z[0] - expected.point_z[2];
  assert_close("shear_centre_z", found.shear_centre_z, expected.shear_centre_z, size, rounding);
  for (std::size_t i = 0; i < 4; ++i) {
    assert_close("point_y", found.point_y[i], expected.point_y[i], size, rounding);
    assert_close("point_z", found.point_z[i], expected.point_z[i], size, rounding);
  }
}

SectionProperties scaled(SectionProperties p, double s) {
  const double s4 = std::pow(s, 4);
  p.area *= s * s;
  p.qyb *= s * s;
  p.qzb *= s * s;
  p.it *= s4;
  p.iyy *= s4;
  p.izz *= s4;
  p.iw *= s4 * s * s;
  p.shear_centre_z *= s;
  for (double& y : p.point_y) y *= s;
  for (double& z : p.point_z) z *= s;
  return p;
}

/// Properties of the section turned over top to bottom.
SectionProperties turned_over(SectionProperties p) {
  p.shear_centre_z = -p.shear_centre_z;
  p.point_y = {p.point_y[3], p.point_y[2], p.point_y[1], p.point_y[0]};
  p.point_z = {-p.point_z[3], -p.point_z[2], -p.point_z[1], -p.point_z[0]};
  return p;
}

RC_GTEST_PROP(SectionLaws, PropertiesScaleWithTheirPowerOfLength, ()) {
  const model::Section section = any_section();
  const double s = length_between(0.1, 10);
  model::Section larger = section;
  for (double& dimension : larger.dimensions) dimension *= s;
  assert_all_close(properties_of(larger), scaled(properties_of(section), s));
}

RC_GTEST_PROP(SectionLaws, TurningOverMirrorsTheProperties, ()) {
  const model::Section section = any_section(*rc::gen::element(Shape::channel, Shape::h_section));
  model::Section other = section;
  std::swap(other.dimensions[1], other.dimensions[4]);
  std::swap(other.dimensions[3], other.dimensions[5]);
  assert_all_close(properties_of(other), turned_over(properties_of(section)));
}

RC_GTEST_PROP(SectionLaws, TurningOverMirrorsTheBox, ()) {
  const model::Section section = any_section(Shape::box);
  model::Section other = section;
  std::swap(other.dimensions[3], other.dimensions[5]);
  assert_all_close(properties_of(other), turned_over(properties_of(section)));
}

RC_GTEST_PROP(SectionLaws, EqualFlangesAreTheLimitOfUnequalOnes, ()) {
  model::Section equal = any_section(*rc::gen::element(Shape::channel, Shape::h_section));
  equal.dimensions[4] = equal.dimensions[1];
  equal.dimensions[5] = equal.dimensions[3];
  model::Section unequal = equal;
  unequal.dimensions[4] *= 1 + 1e-12;
  unequal.dimensions[5] *= 1 + 1e-12;
  assert_all_close(properties_of(unequal), properties_of(equal));
}

RC_GTEST_PROP(SectionLaws, EqualFlangesPutCentroidAndShearCentreAtMidDepth, ()) {
  model::Section section = any_section(*rc::gen::element(Shape::channel, Shape::h_section));
  section.dimensions[4] = section.dimensions[1];
  section.dimensions[5] = section.dimensions[3];
  const SectionProperties found = properties_of(section);
  RC_ASSERT(found.shear_centre_z == 0.0);
  RC_ASSERT(found.point_z[0] == -found.point_z[3]);
}

RC_GTEST_PROP(SectionLaws, EqualFlangesWarpByTheClassicalFormula, ()) {
  // Iw = Izz of the flanges·h²/4 (Timoshenko and Gere), worked out here for two equal flanges.
  model::Section section = any_section(Shape::h_section);
  section.dimensions[4] = section.dimensions[1];
  section.dimensions[5] = section.dimensions[3];
  const double b = section.dimensions[1], t = section.dimensions[3];
  const double h = section.dimensions[0] - t;
  const double expected = 2 * t * b * b * b / 12 * h * h / 4;
  assert_close("iw", properties_of(section).iw, expected, expected, rounding);
}

RC_GTEST_PROP(SectionLaws, AnySectionThatCanBeBuiltHasPositiveConstants, ()) {
  const model::Section section = any_section();
  RC_PRE(!find_dimension_problem(section));
  const SectionProperties p = properties_of(section);
  RC_ASSERT(p.area > 0 && p.it > 0 && p.iyy > 0 && p.izz > 0);
  RC_ASSERT(p.qyb > 0 && p.qzb > 0 && p.iw > 0);
  RC_ASSERT(p.point_z[0] > 0 && p.point_z[2] < 0);
}

}  // namespace
}  // namespace aluframe::section
