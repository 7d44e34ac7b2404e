#pragma once

#include <span>

namespace aluframe::section {

// Sections are sharp-cornered sets of rectangles. y points to the right, z up; the origin is the
// caller's, here mid-depth for z so that symmetric sections come out exactly symmetric. All in mm.

/// A rectangle of a section: its size along y and z, and its centre.
struct Plate {
  double width;
  double height;
  double y;
  double z;
};

/// What rounding a corner by a quarter circle adds (the fillet between two plates) or takes away
/// (an edge), the piece between the circle and the two straight sides.
struct Rounding {
  double radius;
  double y;  ///< the corner
  double z;
  double toward_y;  ///< 1 or −1: from the corner into the piece, along y and z
  double toward_z;
  double sign;  ///< 1 adds the piece, −1 takes it away

  double area() const;      ///< (1 − π/4)·r², with the sign
  double centre_y() const;  ///< its centroid, 0.2234·r from either side
  double centre_z() const;
  double inertia() const;  ///< about its own centroid, 0.00755·r⁴, with the sign
};

/// Area, centroid, and second moments about the centroid's axes (parallel-axis theorem). The
/// product of inertia is left out: y and z are the axes of the checks, principal or not.
struct PlateSums {
  double area = 0.0;  ///< mm²
  double y = 0.0;     ///< centroid, mm
  double z = 0.0;
  double iyy = 0.0;  ///< mm⁴
  double izz = 0.0;
};

/// At least one plate; sizes positive.
PlateSums sums_of(std::span<const Plate> plates, std::span<const Rounding> roundings = {});

/// A slice of a section over its full width, between two levels z.
struct Slice {
  double width;
  double bottom;
  double top;
};

/// Largest Q/b for shear along z, mm²: over all horizontal cuts, the first moment of the area above
/// the cut about the centroid (at `centroid_z`), over the width cut through. V·(Q/b)/Iyy is then
/// the largest shear stress of elementary beam theory (Zhuravskii). Slices have positive widths and
/// stand from bottom to top without gaps. A rounding counts where its centroid is above the cut.
double largest_moment_over_width(std::span<const Slice> slices, double centroid_z,
                                 std::span<const Rounding> roundings = {});

/// Two flanges that carry the shear along y, both from the web outwards. Distances from the z axis.
struct FlangePair {
  double inner;         ///< where the flanges begin; 0 when they run through the axis
  double top_tip;       ///< outer end of the top flange
  double bottom_tip;    ///< outer end of the bottom flange
  double top_thick;     ///< top flange thickness
  double bottom_thick;  ///< bottom flange thickness; 0 when there is none
};

/// Largest Q/b for shear along y, mm²: the flanges bend about z side by side, so the width at the
/// web is the sum of their thicknesses, never the depth of the web. With one tip a beyond the fibre
/// at c: Q/b = Σ t·(a² − c²)/2 / Σ t, at the web and, for unequal flanges, where only the wider one
/// is left.
double largest_moment_over_thickness(const FlangePair& flanges);

}  // namespace aluframe::section
