#include "aluframe/analysis/case_recovery.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "aluframe/analysis/equilibrium.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

/// An element's own forces span as many digits as double precision carries through it, less a few.
constexpr double noise_in_element = 1e-10;
/// Rounding of the sums that end forces are made of: 1e-16 of the largest of them, times what an
/// unbalanced rounding grows by on its way through the frame. Measured on forces that are zero by
/// statics, in frames of up to 40 elements in a chain: 1e-14.
constexpr double noise_in_case = 1e-12;
/// Moments collect the rounding of forces over the extent of the frame. Measured: 1e-15.
constexpr double noise_over_extent = 1e-13;

constexpr std::size_t of_element = sizeof(ElementForces) / sizeof(float);

Norms largest_of(const float* sections) {
  // Two sections fill whole registers; the third pair overlaps the second, which a maximum allows.
  using Pair = Eigen::Array<float, 12, 1>;
  Pair largest = Pair::Zero();
  for (const std::size_t pair : {0, 12, 18}) {
    largest = largest.max(Eigen::Map<const Pair>(sections + pair).abs());
  }
  const Eigen::Array<float, 6, 1> six = largest.head<6>().max(largest.tail<6>());
  return {static_cast<double>(six.head<3>().maxCoeff()),
          static_cast<double>(six.tail<3>().maxCoeff())};
}

/// The nearest number that a float can hold.
float limit_of(double limit) {
  return static_cast<float>(std::min(limit, double{std::numeric_limits<float>::max()}));
}

/// Sets values up to their limit to zero. In one loop without a branch, which the compiler turns
/// into operations on several values, because which of them are noise cannot be foreseen.
void clear_below(const Norms& limits, float* sections) {
  const float force = limit_of(limits.force), moment = limit_of(limits.moment);
  std::array<float, of_element> limit;
  for (std::size_t i = 0; i < of_element; i += 6) {
    for (std::size_t j = 0; j < 6; ++j) limit[i + j] = j < 3 ? force : moment;
  }
  for (std::size_t i = 0; i < of_element; ++i) {
    sections[i] = std::abs(sections[i]) <= limit[i] ? 0.0F : sections[i];
  }
}

void clear_below(const Norms& limits, Vector6& six) {
  for (std::size_t i = 0; i < 6; ++i) {
    if (std::abs(six[i]) <= (i < 3 ? limits.force : limits.moment)) six[i] = 0.0;
  }
}

/// Sets forces to zero that are noise in the case or in their element.
/// @return the largest force and moment of any element
Norms remove_noise(const Norms& of_case, std::vector<ElementForces>& forces) {
  Norms largest;
  for (ElementForces& element : forces) {
    float* const sections = element.front().data();
    const Norms own = largest_of(sections);
    largest = {std::max(largest.force, own.force), std::max(largest.moment, own.moment)};
    clear_below({std::max(of_case.force, noise_in_element * own.force),
                 std::max(of_case.moment, noise_in_element * own.moment)},
                sections);
  }
  return largest;
}

Problem too_large() {
  return {Problem::Kind::equilibrium,
          texts::translatable("the forces are too large to compute with"), std::nullopt,
          std::nullopt};
}

bool all_finite(const std::vector<ElementForces>& forces) {
  if (forces.empty()) return true;
  const Eigen::Map<const Eigen::ArrayXf> all(forces.front().front().data(),
                                             static_cast<Eigen::Index>(of_element * forces.size()));
  // Infinity times zero is not a number, and stays so in a sum.
  return (all * 0.0F).sum() == 0.0F;
}

std::vector<Vector6> by_node(const NodeValues& values) {
  std::vector<Vector6> result(values.size() / 6);
  for (std::size_t i = 0; i < result.size(); ++i) {
    std::copy_n(values.begin() + static_cast<std::ptrdiff_t>(6 * i), 6, result[i].begin());
  }
  return result;
}

}  // namespace

CaseRecovery::CaseRecovery(const Frame& frame, NodeValues displacements, double error)
    : frame_(frame),
      displacements_(std::move(displacements)),
      internal_(displacements_.size(), 0.0),
      forces_(frame.elements.size()),
      error_(error) {}

/// Forces and moments of the case up to which they may be rounding.
Norms CaseRecovery::noise() const {
  const double uncertain = std::max(noise_in_case, error_);
  return {uncertain * largest_.force,
          std::max(uncertain * largest_.moment,
                   noise_over_extent * largest_.force * extent_of(frame_).size)};
}

std::vector<Reaction> CaseRecovery::reactions(const Equations& equations,
                                              const NodeValues& nodal) const {
  NodeValues sum(internal_.size(), 0.0);
  std::vector<std::size_t> nodes;
  nodes.reserve(frame_.supports.size() + frame_.springs.size());
  for (const Support& support : frame_.supports) nodes.push_back(support.node);
  for (const Spring& spring : frame_.springs) {
    nodes.push_back(spring.node);
    for (std::size_t i = 0; i < 6; ++i) {
      const std::size_t dof = 6 * spring.node + i;
      if (equations.at(spring.node, i) >= 0) {
        sum[dof] -= spring.stiffness[i] * displacements_[dof];
      }
    }
  }
  std::sort(nodes.begin(), nodes.end());
  nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
  std::vector<Reaction> result;
  for (const std::size_t node : nodes) {
    Reaction reaction{node, {}};
    for (std::size_t i = 0; i < 6; ++i) {
      const std::size_t dof = 6 * node + i;
      const bool supported = equations.at(node, i) == Equations::supported;
      reaction.value[i] = supported ? internal_[dof] - nodal[dof] : sum[dof];
    }
    result.push_back(reaction);
  }
  return result;
}

Result<CaseResult> CaseRecovery::finish(const Equations& equations, const LoadCase& load_case,
                                        const LoadsByElement& loads,
                                        std::span<const Geometry> geometry, const Norms& load_norms,
                                        Order order) {
  if (!all_finite(forces_)) return too_large();
  const NodeValues nodal = nodal_loads(frame_, load_case);
  CaseResult result;
  result.displacements = by_node(displacements_);
  result.reactions = reactions(equations, nodal);
  result.forces = std::move(forces_);
  const Norms limit = noise(), inside = remove_noise(limit, result.forces);
  const Norms largest{std::max(load_norms.force, inside.force),
                      std::max(load_norms.moment, inside.moment)};
  Equilibrium& found = result.equilibrium;
  found =
      check_equilibrium({frame_, equations, geometry, nodal, largest, internal_, displacements_},
                        loads, result.reactions, order);
  found.force_error = std::max(error_, found.force_error);
  // Sums of moments overflow before forces do.
  if (!std::isfinite(found.nodes + found.whole + found.force_error)) return too_large();
  for (Reaction& reaction : result.reactions) clear_below(limit, reaction.value);
  return result;
}

}  // namespace aluframe::analysis
