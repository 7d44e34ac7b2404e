#include "aluframe/section/plates.h"

#include <algorithm>

namespace aluframe::section {

namespace {

/// First moment about `centroid_z` of the area above the level `cut`.
double moment_above(std::span<const Slice> slices, double cut, double centroid_z) {
  double moment = 0.0;
  for (const Slice& slice : slices) {
    const double bottom = std::max(slice.bottom, cut);
    if (bottom >= slice.top) continue;
    moment += slice.width * (slice.top - bottom) * ((slice.top + bottom) / 2.0 - centroid_z);
  }
  return moment;
}

double half_difference_of_squares(double a, double c) {
  return (a - c) * (a + c) / 2.0;
}

}  // namespace

PlateSums sums_of(std::span<const Plate> plates) {
  PlateSums sums;
  double moment_y = 0.0;
  double moment_z = 0.0;
  for (const Plate& plate : plates) {
    const double area = plate.width * plate.height;
    sums.area += area;
    moment_y += area * plate.y;
    moment_z += area * plate.z;
  }
  sums.y = moment_y / sums.area;
  sums.z = moment_z / sums.area;
  for (const Plate& plate : plates) {
    const double area = plate.width * plate.height;
    const double y = plate.y - sums.y;
    const double z = plate.z - sums.z;
    sums.iyy += area * (plate.height * plate.height / 12.0 + z * z);
    sums.izz += area * (plate.width * plate.width / 12.0 + y * y);
  }
  return sums;
}

double largest_moment_over_width(std::span<const Slice> slices, double centroid_z) {
  double largest = 0.0;
  for (const Slice& slice : slices) {
    // Within one width, Q is largest at the cut nearest the centroid.
    const double cut = std::clamp(centroid_z, slice.bottom, slice.top);
    largest = std::max(largest, moment_above(slices, cut, centroid_z) / slice.width);
  }
  return largest;
}

double largest_moment_over_thickness(const FlangePair& flanges) {
  const bool top_is_wider = flanges.top_tip > flanges.bottom_tip;
  const double wide_tip = std::max(flanges.top_tip, flanges.bottom_tip);
  const double narrow_tip = std::min(flanges.top_tip, flanges.bottom_tip);
  const double wide_thick = top_is_wider ? flanges.top_thick : flanges.bottom_thick;
  const double narrow_thick = top_is_wider ? flanges.bottom_thick : flanges.top_thick;

  const double wide_alone =
      half_difference_of_squares(wide_tip, std::max(narrow_tip, flanges.inner));
  if (narrow_tip <= flanges.inner) return wide_alone;
  const double at_web = (wide_thick * half_difference_of_squares(wide_tip, flanges.inner) +
                         narrow_thick * half_difference_of_squares(narrow_tip, flanges.inner)) /
                        (wide_thick + narrow_thick);
  return std::max(at_web, wide_alone);
}

}  // namespace aluframe::section
