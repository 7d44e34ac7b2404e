#include "aluframe/forces/weights.h"

#include <algorithm>
#include <cmath>

namespace aluframe::forces {

namespace {

/// A little above what is worth a ratio, so that rounding loses no place that is found.
constexpr double least_rise = worth_of_torsion * (1.0 + 1e-6);

}  // namespace

double torsion_stress(const Weights& w, const std::array<double, 6>& forces) {
  const double torsion = w.mx * std::abs(forces[3]);
  if (torsion == 0.0) return 0.0;
  const double sigma =
      w.n * std::abs(forces[0]) + w.my * std::abs(forces[4]) + w.mz * std::abs(forces[5]);
  const double shear = std::max(w.fy * std::abs(forces[1]), w.fz * std::abs(forces[2]));
  const double with = sigma * sigma + 3.0 * (torsion + shear) * (torsion + shear);
  const double without = sigma * sigma + 3.0 * shear * shear;
  return with > least_rise * least_rise * without ? std::sqrt(with) : 0.0;
}

}  // namespace aluframe::forces
