#pragma once

#include <array>

#include "aluframe/model/section.h"

namespace aluframe::section {

/// Dimensions of a section by name, mm, taken from the host's order. A shape leaves what it does
/// not have at 0.
struct Dimensions {
  double h = 0.0;   ///< depth; outer diameter of a round shape
  double b1 = 0.0;  ///< top flange width (T, B, 2C: B)
  double b2 = 0.0;  ///< bottom flange width
  double tw = 0.0;  ///< web thickness; wall of a pipe
  double tf1 = 0.0;
  double tf2 = 0.0;
  double c = 0.0;   ///< box: distance of the web centres; 2C: gap between the backs
  double r1 = 0.0;  ///< C and H: fillets between web and flanges
  double r2 = 0.0;  ///< C and H: rounding of the flanges' inner edges
};
Dimensions dimensions_of(const model::Section& section);

// Properties of each shape, by closed formulas. Area, Iyy, Izz exact, with the corner radii of C
// and H; Iw and the shear centre by thin-wall theory on the middle lines (web lengths run between
// the middle lines of the flanges), It of open sections with ends and junctions (open_torsion.h),
// all without the radii, which add to It. Iw is 0 where a shape has no warping stiffness.
// Dimensions must describe a shape that can be built.

/// Web on the left, flanges to the right; B1, B2 from the web's back. The shear centre lies left of
/// the web; with equal flanges at the height of the centroid.
model::SectionProperties channel_properties(const Dimensions& d);
/// Flanges centred on the web.
model::SectionProperties h_section_properties(const Dimensions& d);
/// Flange on top of the web. Its middle lines meet in one point, the shear centre, so Iw is 0.
model::SectionProperties tee_properties(const Dimensions& d);
/// Closed cell of two webs and two flanges. It by Bredt. Iw is 0: what a closed cell resists by
/// warping is small beside its torsion, and leaving it out lowers the critical moment.
model::SectionProperties box_properties(const Dimensions& d);
model::SectionProperties pipe_properties(const Dimensions& d);
/// Two equal channels back to back, bending as one; in torsion each for itself (twice It of one).
model::SectionProperties double_channel_properties(const Dimensions& d);
model::SectionProperties solid_round_properties(const Dimensions& d);

}  // namespace aluframe::section
