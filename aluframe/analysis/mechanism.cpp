#include "aluframe/analysis/mechanism.h"

#include <cmath>
#include <limits>
#include <random>

#include "aluframe/analysis/loose_node.h"
#include "aluframe/analysis/loose_part.h"
#include "aluframe/analysis/soft_motion.h"

namespace aluframe::analysis {

std::vector<double> probing_load(int size) {
  std::mt19937 random(12345);  // any, but the same on every machine
  std::vector<double> load(static_cast<std::size_t>(size));
  for (double& value : load) {
    // Away from 0, so that a motion of one direction alone is excited for certain.
    const auto bits = static_cast<std::uint32_t>(random());
    const double size_of = 0.5 + static_cast<double>(bits >> 1) / 4294967296.0;
    value = (bits & 1U) != 0 ? size_of : -size_of;
  }
  return load;
}

double softness(std::span<const double> load, std::span<const double> answer) {
  // Relative to the largest entry, because squares of a singular frame's answer may overflow.
  double largest = 0.0;
  for (const double x : answer) {
    if (!std::isfinite(x)) return std::numeric_limits<double>::quiet_NaN();
    largest = std::max(largest, std::abs(x));
  }
  double energy = 0.0, squares = 0.0;
  for (std::size_t i = 0; i < load.size(); ++i) {
    energy += load[i] * (answer[i] / largest);
    squares += (answer[i] / largest) * (answer[i] / largest);
  }
  return energy / squares / largest;
}

Problem explain_mechanism(const Frame& frame, const Equations& equations,
                          const ScaledEquations& scaled) {
  if (auto problem = find_loose_part(frame)) return *problem;
  if (auto problem = find_loose_node(frame, equations, scaled)) return *problem;
  return tell_softest_motion(frame, equations, scaled);
}

}  // namespace aluframe::analysis
