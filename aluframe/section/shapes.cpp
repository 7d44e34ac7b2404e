#include "aluframe/section/shapes.h"

#include <numbers>
#include <vector>

#include "aluframe/section/open_torsion.h"
#include "aluframe/section/plates.h"
#include "aluframe/section/thin_wall.h"

namespace aluframe::section {

namespace {

using model::SectionProperties;
using model::Shape;

// Levels from mid-depth, z up.

double web_height(const Dimensions& d) {
  return d.h - d.tf1 - d.tf2;
}

/// Between the middle lines of the flanges.
double middle_line_depth(const Dimensions& d) {
  return d.h - (d.tf1 + d.tf2) / 2.0;
}

double top_flange_z(const Dimensions& d) {
  return (d.h - d.tf1) / 2.0;
}

double bottom_flange_z(const Dimensions& d) {
  return (d.tf2 - d.h) / 2.0;
}

/// Middle of the web, which is not mid-depth when the flanges differ in thickness.
double web_z(const Dimensions& d) {
  return (d.tf2 - d.tf1) / 2.0;
}

/// Half-way between the middle lines of the flanges.
double middle_line_z(const Dimensions& d) {
  return (d.tf2 - d.tf1) / 4.0;
}

/// What follows from the plates alone. `point_y`: the stress points (top left, top right, bottom
/// right, bottom left) in the y of the plates.
SectionProperties from_plates(const PlateSums& sums, double h, std::array<double, 4> point_y) {
  SectionProperties out;
  out.area = sums.area;
  out.iyy = sums.iyy;
  out.izz = sums.izz;
  for (std::size_t i = 0; i < point_y.size(); ++i) out.point_y[i] = point_y[i] - sums.y;
  const double top = h / 2.0 - sums.z;
  const double bottom = -h / 2.0 - sums.z;
  out.point_z = {top, top, bottom, bottom};
  return out;
}

/// Q/b for shear along z of a bottom flange, webs of `web_width` together, and a top flange.
double shear_factor_z(const Dimensions& d, double bottom_width, double web_width, double top_width,
                      double centroid_z, std::span<const Rounding> roundings = {}) {
  const double web_bottom = -d.h / 2.0 + d.tf2;
  const double web_top = d.h / 2.0 - d.tf1;
  return largest_moment_over_width(
      std::array{Slice{bottom_width, -d.h / 2.0, web_bottom}, Slice{web_width, web_bottom, web_top},
                 Slice{top_width, web_top, d.h / 2.0}},
      centroid_z, roundings);
}

/// Fillet and rounded edge of one flange outstand. `level`: inner face of the flange; `inwards`: 1
/// or −1, from it towards the web; `side`: 1 or −1, from the web to the tip.
void add_roundings(const Dimensions& d, double web_face, double tip, double level, double inwards,
                   double side, std::vector<Rounding>& out) {
  if (d.r1 > 0.0) out.push_back({d.r1, web_face, level, side, inwards, 1.0});
  if (d.r2 > 0.0) out.push_back({d.r2, tip, level, -side, -inwards, -1.0});
}

/// A ring; inner radius 0 for a solid round. All formulas exact.
SectionProperties ring_properties(double outer, double inner) {
  const double outer_2 = outer * outer;
  const double inner_2 = inner * inner;
  SectionProperties out;
  out.area = std::numbers::pi * (outer_2 - inner_2);
  out.iyy = std::numbers::pi * (outer_2 * outer_2 - inner_2 * inner_2) / 4.0;
  out.izz = out.iyy;
  out.it = 2.0 * out.iyy;
  // Cut through the centre: Q = 2(R³ − r³)/3 over b = 2(R − r).
  out.qyb = (outer_2 + outer * inner + inner_2) / 3.0;
  out.qzb = out.qyb;
  out.point_y = {-outer, outer, outer, -outer};
  out.point_z = {outer, outer, -outer, -outer};
  return out;
}

Dimensions double_flanged(const std::array<double, 8>& d) {
  return {.h = d[0],
          .b1 = d[1],
          .b2 = d[4],
          .tw = d[2],
          .tf1 = d[3],
          .tf2 = d[5],
          .r1 = d[6],
          .r2 = d[7]};
}

BoxWalls walls_of(const Dimensions& d) {
  return {.top = {d.b1, d.tf1},
          .bottom = {d.b2, d.tf2},
          .c = d.c,
          .h = middle_line_depth(d),
          .web_thickness = d.tw};
}

}  // namespace

Dimensions dimensions_of(const model::Section& section) {
  const std::array<double, 8>& d = section.dimensions;
  switch (section.shape) {
    case Shape::channel:
    case Shape::h_section:
      return double_flanged(d);
    case Shape::tee:
      return {.h = d[0], .b1 = d[1], .tw = d[2], .tf1 = d[3]};
    case Shape::box:
      return {.h = d[0], .b1 = d[1], .b2 = d[1], .tw = d[2], .tf1 = d[3], .tf2 = d[5], .c = d[4]};
    case Shape::pipe:
      return {.h = d[0], .tw = d[1]};
    case Shape::double_channel:
      return {.h = d[0], .b1 = d[1], .b2 = d[1], .tw = d[2], .tf1 = d[3], .tf2 = d[3], .c = d[4]};
    case Shape::solid_round:
      return {.h = d[0]};
    case Shape::other:
      break;
  }
  return {};
}

SectionProperties channel_properties(const Dimensions& d) {
  std::vector<Rounding> roundings;
  add_roundings(d, d.tw, d.b1, d.h / 2.0 - d.tf1, -1.0, 1.0, roundings);
  add_roundings(d, d.tw, d.b2, d.tf2 - d.h / 2.0, 1.0, 1.0, roundings);
  const PlateSums sums = sums_of(std::array{Plate{d.b1, d.tf1, d.b1 / 2.0, top_flange_z(d)},
                                            Plate{d.tw, web_height(d), d.tw / 2.0, web_z(d)},
                                            Plate{d.b2, d.tf2, d.b2 / 2.0, bottom_flange_z(d)}},
                                 roundings);
  const Flange top{d.b1 - d.tw / 2.0, d.tf1};
  const Flange bottom{d.b2 - d.tw / 2.0, d.tf2};
  const double depth = middle_line_depth(d);
  const Warping warping = channel_warping(top, bottom, depth, d.tw);

  SectionProperties out = from_plates(sums, d.h, {0.0, d.b1, d.b2, 0.0});
  out.it = channel_torsion_constant({web_height(d), d.tw}, {d.b1, d.tf1}, {d.b2, d.tf2});
  out.iw = warping.constant;
  out.shear_centre_y = d.tw / 2.0 + warping.shear_centre_y - sums.y;
  out.shear_centre_z = middle_line_z(d) + warping.shear_centre_z - sums.z;
  out.qyb = shear_factor_z(d, d.b2, d.tw, d.b1, sums.z, roundings);
  out.qzb = largest_moment_over_thickness({.inner = 0.0,
                                           .top_tip = d.b1 - sums.y,
                                           .bottom_tip = d.b2 - sums.y,
                                           .top_thick = d.tf1,
                                           .bottom_thick = d.tf2});
  return out;
}

SectionProperties h_section_properties(const Dimensions& d) {
  std::vector<Rounding> roundings;
  for (const double side : {-1.0, 1.0}) {
    const double face = side * d.tw / 2.0;
    add_roundings(d, face, side * d.b1 / 2.0, d.h / 2.0 - d.tf1, -1.0, side, roundings);
    add_roundings(d, face, side * d.b2 / 2.0, d.tf2 - d.h / 2.0, 1.0, side, roundings);
  }
  const PlateSums sums = sums_of(std::array{Plate{d.b1, d.tf1, 0.0, top_flange_z(d)},
                                            Plate{d.tw, web_height(d), 0.0, web_z(d)},
                                            Plate{d.b2, d.tf2, 0.0, bottom_flange_z(d)}},
                                 roundings);
  const Flange top{d.b1, d.tf1};
  const Flange bottom{d.b2, d.tf2};
  const double depth = middle_line_depth(d);
  const Warping warping = i_section_warping(top, bottom, depth);

  SectionProperties out =
      from_plates(sums, d.h, {-d.b1 / 2.0, d.b1 / 2.0, d.b2 / 2.0, -d.b2 / 2.0});
  out.it = tee_torsion_constant({web_height(d), d.tw}, std::array{top, bottom}, 0);
  out.iw = warping.constant;
  out.shear_centre_z = middle_line_z(d) + warping.shear_centre_z - sums.z;
  out.qyb = shear_factor_z(d, d.b2, d.tw, d.b1, sums.z, roundings);
  out.qzb = largest_moment_over_thickness({.inner = 0.0,
                                           .top_tip = d.b1 / 2.0,
                                           .bottom_tip = d.b2 / 2.0,
                                           .top_thick = d.tf1,
                                           .bottom_thick = d.tf2});
  return out;
}

SectionProperties tee_properties(const Dimensions& d) {
  const double web_bottom = -d.h / 2.0;
  const double web_top = d.h / 2.0 - d.tf1;
  const PlateSums sums = sums_of(std::array{Plate{d.b1, d.tf1, 0.0, top_flange_z(d)},
                                            Plate{d.tw, web_height(d), 0.0, web_z(d)}});

  SectionProperties out =
      from_plates(sums, d.h, {-d.b1 / 2.0, d.b1 / 2.0, d.tw / 2.0, -d.tw / 2.0});
  out.it = tee_torsion_constant({web_height(d), d.tw}, std::array{Flange{d.b1, d.tf1}}, 1);
  out.shear_centre_z = top_flange_z(d) - sums.z;
  out.qyb = largest_moment_over_width(
      std::array{Slice{d.tw, web_bottom, web_top}, Slice{d.b1, web_top, d.h / 2.0}}, sums.z);
  out.qzb = d.b1 * d.b1 / 8.0;
  return out;
}

SectionProperties box_properties(const Dimensions& d) {
  const PlateSums sums = sums_of(std::array{Plate{d.b1, d.tf1, 0.0, top_flange_z(d)},
                                            Plate{d.tw, web_height(d), -d.c / 2.0, web_z(d)},
                                            Plate{d.tw, web_height(d), d.c / 2.0, web_z(d)},
                                            Plate{d.b2, d.tf2, 0.0, bottom_flange_z(d)}});

  SectionProperties out =
      from_plates(sums, d.h, {-d.b1 / 2.0, d.b1 / 2.0, d.b2 / 2.0, -d.b2 / 2.0});
  out.it = bredt_torsion_constant(walls_of(d));
  out.shear_centre_z = middle_line_z(d) + box_shear_centre(walls_of(d)) - sums.z;
  out.qyb = shear_factor_z(d, d.b2, 2.0 * d.tw, d.b1, sums.z);
  // Cut through both flanges on the axis: one web and half of each flange lie beyond it.
  const double flanges = d.tf1 + d.tf2;
  out.qzb = d.b1 * d.b1 / 8.0 + d.tw * web_height(d) * d.c / 2.0 / flanges;
  return out;
}

SectionProperties pipe_properties(const Dimensions& d) {
  return ring_properties(d.h / 2.0, d.h / 2.0 - d.tw);
}

SectionProperties double_channel_properties(const Dimensions& d) {
  const double web_y = (d.c + d.tw) / 2.0;
  const double flange_y = (d.c + d.b1) / 2.0;
  const double edge = d.c / 2.0 + d.b1;
  const PlateSums sums = sums_of(std::array{
      Plate{d.b1, d.tf1, -flange_y, top_flange_z(d)}, Plate{d.b1, d.tf1, flange_y, top_flange_z(d)},
      Plate{d.tw, web_height(d), -web_y, 0.0}, Plate{d.tw, web_height(d), web_y, 0.0},
      Plate{d.b1, d.tf1, -flange_y, bottom_flange_z(d)},
      Plate{d.b1, d.tf1, flange_y, bottom_flange_z(d)}});
  const Flange flange{d.b1 - d.tw / 2.0, d.tf1};
  const double depth = middle_line_depth(d);

  SectionProperties out = from_plates(sums, d.h, {-edge, edge, edge, -edge});
  const Flange whole_flange{d.b1, d.tf1};
  out.it = 2.0 * channel_torsion_constant({web_height(d), d.tw}, whole_flange, whole_flange);
  out.iw = double_channel_warping(flange, depth, d.tw, d.c + d.tw);
  out.qyb = shear_factor_z(d, 2.0 * d.b1, 2.0 * d.tw, 2.0 * d.b1, sums.z);
  out.qzb = largest_moment_over_thickness({.inner = d.c / 2.0,
                                           .top_tip = edge,
                                           .bottom_tip = edge,
                                           .top_thick = d.tf1,
                                           .bottom_thick = d.tf2});
  return out;
}

SectionProperties solid_round_properties(const Dimensions& d) {
  return ring_properties(d.h / 2.0, 0.0);
}

}  // namespace aluframe::section
