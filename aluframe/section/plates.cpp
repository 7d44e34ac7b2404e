#include "aluframe/section/plates.h"

#include <algorithm>
#include <numbers>

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

/// Share of r² that a quarter circle leaves of its square.
constexpr double piece_area = 1.0 - std::numbers::pi / 4.0;
/// First and second moment of the piece about a straight side, as shares of r³ and r⁴.
constexpr double piece_first = 5.0 / 6.0 - std::numbers::pi / 4.0;
constexpr double piece_second = 1.0 - 5.0 * std::numbers::pi / 16.0;
constexpr double piece_centre = piece_first / piece_area;

}  // namespace

double Rounding::area() const {
  return sign * piece_area * radius * radius;
}

double Rounding::centre_y() const {
  return y + toward_y * piece_centre * radius;
}

double Rounding::centre_z() const {
  return z + toward_z * piece_centre * radius;
}

double Rounding::inertia() const {
  const double radius_2 = radius * radius;
  return sign * (piece_second - piece_centre * piece_first) * radius_2 * radius_2;
}

PlateSums sums_of(std::span<const Plate> plates, std::span<const Rounding> roundings) {
  PlateSums sums;
  double moment_y = 0.0;
  double moment_z = 0.0;
  for (const Rounding& rounding : roundings) {
    sums.area += rounding.area();
    moment_y += rounding.area() * rounding.centre_y();
    moment_z += rounding.area() * rounding.centre_z();
  }
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
  for (const Rounding& rounding : roundings) {
    const double y = rounding.centre_y() - sums.y;
    const double z = rounding.centre_z() - sums.z;
    sums.iyy += rounding.inertia() + rounding.area() * z * z;
    sums.izz += rounding.inertia() + rounding.area() * y * y;
  }
  return sums;
}

double largest_moment_over_width(std::span<const Slice> slices, double centroid_z,
                                 std::span<const Rounding> roundings) {
  double largest = 0.0;
  for (const Slice& slice : slices) {
    // Within one width, Q is largest at the cut nearest the centroid.
    const double cut = std::clamp(centroid_z, slice.bottom, slice.top);
    double moment = moment_above(slices, cut, centroid_z);
    for (const Rounding& rounding : roundings) {
      if (rounding.centre_z() > cut) moment += rounding.area() * (rounding.centre_z() - centroid_z);
    }
    largest = std::max(largest, moment / slice.width);
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
