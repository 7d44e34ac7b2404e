#include "aluframe/section/open_torsion.h"

#include <algorithm>
#include <array>

namespace aluframe::section {

namespace {

/// What a free end takes from b·t³/3, over t⁴: 0.63/2/3.
constexpr double end_loss = 0.105;

double cube(double x) {
  return x * x * x;
}

double fourth(double x) {
  return x * x * x * x;
}

}  // namespace

double plate_torsion_constant(double length, double thickness, int free_ends) {
  const auto [t, b] = std::minmax(length, thickness);
  const double end = end_loss * fourth(t) * (1.0 - fourth(t / b) / 12.0);
  return b * cube(t) / 3.0 - free_ends * end;
}

double tee_junction(double flange_thickness, double web_thickness) {
  const double ratio = web_thickness / flange_thickness;
  const double circle = flange_thickness * (1.0 + ratio * ratio / 4.0);
  const double alpha = std::max(0.0, -0.042 + 0.2204 * ratio - 0.0725 * ratio * ratio);
  return alpha * fourth(circle);
}

double tee_torsion_constant(Strip clear_web, std::span<const Flange> flanges, int free_web_ends) {
  const double tw = clear_web.thickness;
  Strip web = clear_web;
  double sum = 0.0;
  for (const Flange& flange : flanges) {
    const double t = flange.thickness;
    sum += plate_torsion_constant(flange.length, t, 2);
    if (tw <= t) {
      sum += tee_junction(t, tw);
      continue;
    }
    // At equal thickness both ways of counting give the same.
    web.length += t;
    ++free_web_ends;
    sum += tee_junction(t, t) - (1.0 / 3.0 - end_loss) * fourth(t);
  }
  return sum + plate_torsion_constant(web.length, tw, free_web_ends);
}

double channel_torsion_constant(Strip clear_web, Flange top, Flange bottom) {
  const double tw = clear_web.thickness;
  Strip web = clear_web;
  int free_web_ends = 0;
  double sum = 0.0;
  for (const Flange& flange : {top, bottom}) {
    const double t = flange.thickness;
    if (tw <= t) {
      sum += plate_torsion_constant(flange.length, t, 2);
      web.length += t / 2.0;
    } else {
      sum += plate_torsion_constant(flange.length - tw / 2.0, t, 1);
      web.length += t;
      ++free_web_ends;
    }
  }
  return sum + plate_torsion_constant(web.length, tw, free_web_ends);
}

}  // namespace aluframe::section
