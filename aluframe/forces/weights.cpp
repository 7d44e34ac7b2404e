#include "aluframe/forces/weights.h"

#include <algorithm>
#include <cmath>

namespace aluframe::forces {

namespace {

/// A little above what is worth a ratio, so that rounding loses no place that is found.
constexpr double least_rise = worth_of_torsion * (1.0 + 1e-6);

/// Squares of the stress with torsion and without.
struct Stresses {
  double with = 0.0, without = 0.0;
};

Stresses stresses_of(const Weights& w, const std::array<double, 6>& forces) {
  const double torsion = w.mx * std::abs(forces[3]);
  const double sigma =
      w.n * std::abs(forces[0]) + w.my * std::abs(forces[4]) + w.mz * std::abs(forces[5]);
  const double shear = std::max(w.fy * std::abs(forces[1]), w.fz * std::abs(forces[2]));
  return {sigma * sigma + 3.0 * (torsion + shear) * (torsion + shear),
          sigma * sigma + 3.0 * shear * shear};
}

}  // namespace

double torsion_stress(const Weights& w, const std::array<double, 6>& forces) {
  if (w.mx * forces[3] == 0.0) return 0.0;
  const auto [with, without] = stresses_of(w, forces);
  return with > least_rise * least_rise * without ? std::sqrt(with) : 0.0;
}

double largest_stress(const Weights& w, const std::array<double, 6>& forces) {
  return std::sqrt(stresses_of(w, forces).with);
}

}  // namespace aluframe::forces
