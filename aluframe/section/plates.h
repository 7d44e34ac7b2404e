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
PlateSums sums_of(std::span<const Plate> plates);

/// A slice of a section over its full width, between two levels z.
struct Slice {
  double width;
  double bottom;
  double top;
};

/// Largest Q/b for shear along z, mm²: over all horizontal cuts, the first moment of the area above
/// the cut about the centroid (at `centroid_z`), over the width cut through. V·(Q/b)/Iyy is then
/// the largest shear stress of elementary beam theory (Zhuravskii). Slices have positive widths and
/// stand from bottom to top without gaps.
double largest_moment_over_width(std::span<const Slice> slices, double centroid_z);

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
