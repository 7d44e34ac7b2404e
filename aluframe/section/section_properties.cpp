#include "aluframe/section/section_properties.h"

#include <algorithm>

#include "aluframe/section/shapes.h"

namespace aluframe::section {

namespace {

using model::SectionProperties;
using model::Shape;

/// Share of Izz·H² that stands in for a warping constant of 0.
constexpr double negligible_warping = 1e-9;

SectionProperties computed(const model::Section& section) {
  const Dimensions d = dimensions_of(section);
  switch (section.shape) {
    case Shape::channel:
      return channel_properties(d);
    case Shape::h_section:
      return h_section_properties(d);
    case Shape::tee:
      return tee_properties(d);
    case Shape::box:
      return box_properties(d);
    case Shape::pipe:
      return pipe_properties(d);
    case Shape::double_channel:
      return double_channel_properties(d);
    case Shape::solid_round:
      return solid_round_properties(d);
    case Shape::other:
      break;
  }
  return {};
}

SectionProperties overridden(SectionProperties out, const model::GivenProperties& given) {
  out.area = given.area.value_or(out.area);
  out.it = given.it.value_or(out.it);
  out.iyy = given.iyy.value_or(out.iyy);
  out.izz = given.izz.value_or(out.izz);
  out.qyb = given.qyb.value_or(out.qyb);
  out.qzb = given.qzb.value_or(out.qzb);
  out.iw = given.iw.value_or(out.iw);
  out.shear_centre_z = given.shear_centre_z.value_or(out.shear_centre_z);
  out.point_y = given.point_y.value_or(out.point_y);
  out.point_z = given.point_z.value_or(out.point_z);
  return out;
}

double depth_of(const SectionProperties& properties) {
  const auto [bottom, top] =
      std::minmax_element(properties.point_z.begin(), properties.point_z.end());
  return *top - *bottom;
}

}  // namespace

SectionProperties properties_of(const model::Section& section) {
  SectionProperties out = overridden(computed(section), section.given);
  if (out.iw == 0.0) {
    const double depth = depth_of(out);
    out.iw = negligible_warping * out.izz * depth * depth;
  }
  return out;
}

}  // namespace aluframe::section
