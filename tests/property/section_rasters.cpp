#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "section_generators.h"
#include "section_raster.h"

namespace aluframe::section {
namespace {

using model::SectionProperties;
using model::Shape;

/// Strips of 1/4000 of the section: sums are off by the square of that, the place of the largest
/// shear stress by one strip, which a plate of 1 mm has few of.
constexpr double of_sums = 1e-4;
constexpr double of_shear = 2e-2;

constexpr std::array plated{Shape::channel, Shape::h_section, Shape::tee, Shape::box,
                            Shape::double_channel};

std::vector<Rectangle> all_plates(const Drawing& drawing) {
  std::vector<Rectangle> plates = drawing.flanges;
  plates.insert(plates.end(), drawing.webs.begin(), drawing.webs.end());
  return plates;
}

model::Section any_plated() {
  const model::Section section = any_section(*rc::gen::elementOf(plated));
  RC_PRE(!find_dimension_problem(section));
  return section;
}

constexpr double widest = 400;

RC_GTEST_PROP(SectionRasters, AcrossTheDepthGiveTheSameConstants, ()) {
  const model::Section section = any_plated();
  const SectionProperties found = properties_of(section);
  const double h = section.dimensions[0];
  const Raster strips = across_depth(all_plates(draw(section.shape, section.dimensions)), 0, h);
  const RasterSums sums = sums_of(strips);
  assert_close("area", found.area, sums.area, sums.area, of_sums);
  assert_close("iyy", found.iyy, sums.inertia, sums.inertia, of_sums);
  assert_close("top", found.point_z[0], h - sums.centre, h, of_sums);
  assert_close("bottom", found.point_z[2], -sums.centre, h, of_sums);
  const double shear = largest_moment_over_width(strips, sums.centre);
  assert_close("qyb", found.qyb, shear, shear, of_shear);
}

RC_GTEST_PROP(SectionRasters, AcrossTheWidthGiveTheSameConstants, ()) {
  const model::Section section = any_plated();
  const SectionProperties found = properties_of(section);
  const Drawing drawing = draw(section.shape, section.dimensions);
  const RasterSums sums = sums_of(across_width(all_plates(drawing), -widest, widest));
  assert_close("area", found.area, sums.area, sums.area, of_sums);
  assert_close("izz", found.izz, sums.inertia, sums.inertia, 10 * of_sums);
  // In an open section the flanges alone carry the shear; both walls of a box do, cut on the axis.
  const auto& cut = section.shape == Shape::box ? all_plates(drawing) : drawing.flanges;
  const double shear = largest_moment_over_width(across_width(cut, -widest, widest), sums.centre);
  assert_close("qzb", found.qzb, shear, shear, of_shear);
}

RC_GTEST_PROP(SectionRasters, OfRoundShapesGiveTheSameConstants, ()) {
  const model::Section section = any_section(*rc::gen::element(Shape::pipe, Shape::solid_round));
  const SectionProperties found = properties_of(section);
  const double outer = section.dimensions[0] / 2;
  const double inner = section.shape == Shape::pipe ? outer - section.dimensions[1] : 0.0;
  const auto chord = [](double radius, double z) {
    return z * z < radius * radius ? 2 * std::sqrt(radius * radius - z * z) : 0.0;
  };
  const Raster strips = raster(-outer, outer, [&](double bottom, double top) {
    const double z = (bottom + top) / 2;
    const double width = chord(outer, z) - chord(inner, z);
    return RasterStrip{z, width * (top - bottom), width};
  });
  const RasterSums sums = sums_of(strips);
  // A chord ends in a vertical tangent, which costs the sums an order.
  assert_close("area", found.area, sums.area, sums.area, 10 * of_sums);
  assert_close("iyy", found.iyy, sums.inertia, sums.inertia, 10 * of_sums);
  assert_close("izz", found.izz, sums.inertia, sums.inertia, 10 * of_sums);
  const double shear = largest_moment_over_width(strips, sums.centre);
  assert_close("qyb", found.qyb, shear, shear, of_shear);
  assert_close("qzb", found.qzb, shear, shear, of_shear);
}

}  // namespace
}  // namespace aluframe::section
