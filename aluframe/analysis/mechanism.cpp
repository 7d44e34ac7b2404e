#include "aluframe/analysis/mechanism.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <utility>

#include "aluframe/analysis/diagnostic_text.h"
#include "aluframe/analysis/softest_mode.h"
#include "aluframe/analysis/unrestrained_node.h"
#include "aluframe/analysis/unrestrained_part.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

std::vector<double> probing_load(int size) {
  std::mt19937 random(12345);  // any, but the same on every machine
  std::vector<double> load(static_cast<std::size_t>(size));
  for (double& value : load) {
    // Away from 0, so that a mode of one direction alone is excited for certain.
    const auto bits = static_cast<std::uint32_t>(random());
    const double magnitude = 0.5 + static_cast<double>(bits >> 1) / 4294967296.0;
    value = (bits & 1U) != 0 ? magnitude : -magnitude;
  }
  return load;
}

double softness(std::span<const double> load, std::span<const double> solution) {
  // Relative to the largest entry, because squares of a singular frame's solution may overflow.
  double largest = 0.0;
  for (const double x : solution) {
    if (!std::isfinite(x)) return std::numeric_limits<double>::quiet_NaN();
    largest = std::max(largest, std::abs(x));
  }
  double energy = 0.0, squares = 0.0;
  for (std::size_t i = 0; i < load.size(); ++i) {
    energy += load[i] * (solution[i] / largest);
    squares += (solution[i] / largest) * (solution[i] / largest);
  }
  return energy / squares / largest;
}

namespace {

/// A stiffness against moving one end of an element, N/mm, and the element's place.
struct EndStiffness {
  double value = 0.0;
  std::size_t element = 0;
};

/// E·A/L and, of a beam, 12·E·I/L³ about both axes and G·It/L³, which resists twisting by
/// forces a length L apart. Finite and positive in a frame whose input has no problem.
std::vector<EndStiffness> end_stiffnesses(const Frame& frame) {
  std::vector<EndStiffness> all;
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    const Element& element = frame.elements[i];
    const Node &a = frame.nodes[element.start], &b = frame.nodes[element.end];
    const double length = std::hypot(b.x - a.x, b.y - a.y, b.z - a.z);
    const auto& [e, g, area, ay, az, it, iyy, izz] = element.stiffness;
    all.push_back({e * area / length, i});
    if (element.kind == ElementKind::truss) continue;
    for (const double rigidity : {12 * e * iyy, 12 * e * izz, g * it}) {
      all.push_back({rigidity / (length * length * length), i});
    }
  }
  return all;
}

/// Stiffnesses so far apart that the soft ones may drown in the rounding of the stiff ones, as
/// after a wrong power of ten; empty when they are not.
std::string unlike_stiffnesses(const Frame& frame) {
  const auto all = end_stiffnesses(frame);
  const auto [least, most] = std::ranges::minmax(all, {}, &EndStiffness::value);
  if (!(least.value < least_softness * most.value)) return "";
  return fmt::format(texts::translatable("; or stiffnesses are too far apart to compute with: "
                                         "{:.1e} N/mm of {}, {:.1e} N/mm of {}"),
                     least.value, element_name(frame, least.element), most.value,
                     element_name(frame, most.element));
}

}  // namespace

Problem explain_mechanism(const Frame& frame, const Equations& equations,
                          const ScaledEquations& scaled) {
  if (auto problem = find_unrestrained_part(frame)) return *problem;
  auto found = find_unrestrained_node(frame, equations, scaled);
  Problem problem = found ? std::move(*found) : describe_softest_mode(frame, equations, scaled);
  problem.text += unlike_stiffnesses(frame);
  return problem;
}

}  // namespace aluframe::analysis
