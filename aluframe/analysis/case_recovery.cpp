#include "aluframe/analysis/case_recovery.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "aluframe/analysis/equilibrium.h"

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

/// Larger of `largest` and the sizes of three values.
float largest_of(float largest, const float* three) {
  for (std::size_t i = 0; i < 3; ++i) largest = std::max(largest, std::abs(three[i]));
  return largest;
}

Norms largest_of(const ElementForces& forces) {
  float force = 0.0F, moment = 0.0F;
  for (const SectionForces& section : forces) {
    force = largest_of(force, section.data());
    moment = largest_of(moment, section.data() + 3);
  }
  return {static_cast<double>(force), static_cast<double>(moment)};
}

/// Sets three values up to `limit` to zero: forces, or moments. Without a branch, because which of
/// them are noise cannot be foreseen.
template <class Value>
void clear_below(double limit, Value* three) {
  const auto own_limit =
      static_cast<Value>(std::min(limit, double{std::numeric_limits<Value>::max()}));
  for (std::size_t i = 0; i < 3; ++i) {
    three[i] = std::abs(three[i]) <= own_limit ? Value{0} : three[i];
  }
}

Problem too_large() {
  return {Problem::Kind::equilibrium, "the forces are too large to compute with", std::nullopt,
          std::nullopt};
}

bool all_finite(const std::vector<ElementForces>& forces) {
  if (forces.empty()) return true;
  constexpr std::size_t of_element = sizeof(ElementForces) / sizeof(float);
  const Eigen::Map<const Eigen::ArrayXf> all(forces.front().front().data(),
                                             static_cast<Eigen::Index>(of_element * forces.size()));
  return std::isfinite(all.abs().maxCoeff<Eigen::PropagateNaN>());
}

std::vector<Vector6> by_node(const NodeValues& values) {
  std::vector<Vector6> result(values.size() / 6);
  for (std::size_t i = 0; i < result.size(); ++i) {
    std::copy_n(values.begin() + static_cast<std::ptrdiff_t>(6 * i), 6, result[i].begin());
  }
  return result;
}

}  // namespace

CaseRecovery::CaseRecovery(const Frame& frame, NodeValues displacements)
    : frame_(frame),
      displacements_(std::move(displacements)),
      held_(displacements_.size(), 0.0),
      forces_(frame.elements.size()) {}

void CaseRecovery::add(std::size_t element, const Axes& axes, const ElementAnswer& answer) {
  add_at_ends(frame_.elements[element], to_global(axes, answer.end_forces), held_);
  for (int position = 0; position < 5; ++position) {
    for (int i = 0; i < 6; ++i) {
      forces_[element][static_cast<std::size_t>(position)][static_cast<std::size_t>(i)] =
          static_cast<float>(answer.sections(i, position));
    }
  }
  largest_.force = std::max(largest_.force, answer.magnitude.force);
  largest_.moment = std::max(largest_.moment, answer.magnitude.moment);
}

void CaseRecovery::remove_noise(CaseResult& result) const {
  const double force = noise_in_case * largest_.force;
  const double moment = std::max(noise_in_case * largest_.moment,
                                 noise_over_extent * largest_.force * extent_of(frame_).size);
  for (ElementForces& element : result.forces) {
    const Norms own = largest_of(element);
    const double own_force = std::max(force, noise_in_element * own.force);
    const double own_moment = std::max(moment, noise_in_element * own.moment);
    for (SectionForces& section : element) {
      clear_below(own_force, section.data());
      clear_below(own_moment, section.data() + 3);
    }
  }
  for (Reaction& reaction : result.reactions) {
    clear_below(force, reaction.value.data());
    clear_below(moment, reaction.value.data() + 3);
  }
}

std::vector<Reaction> CaseRecovery::reactions(const Equations& equations,
                                              const NodeValues& nodal) const {
  NodeValues sum(held_.size(), 0.0);
  std::vector<std::size_t> nodes;
  nodes.reserve(frame_.supports.size() + frame_.springs.size());
  for (const Support& support : frame_.supports) nodes.push_back(support.node);
  for (const Spring& spring : frame_.springs) {
    nodes.push_back(spring.node);
    for (std::size_t i = 0; i < 6; ++i) {
      const std::size_t place = 6 * spring.node + i;
      if (equations.at(spring.node, i) >= 0) {
        sum[place] -= spring.stiffness[i] * displacements_[place];
      }
    }
  }
  std::sort(nodes.begin(), nodes.end());
  nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
  std::vector<Reaction> result;
  for (const std::size_t node : nodes) {
    Reaction reaction{node, {}};
    for (std::size_t i = 0; i < 6; ++i) {
      const std::size_t place = 6 * node + i;
      const bool supported = equations.at(node, i) == Equations::supported;
      reaction.value[i] = supported ? held_[place] - nodal[place] : sum[place];
    }
    result.push_back(reaction);
  }
  return result;
}

Result<CaseResult> CaseRecovery::finish(const Equations& equations, const LoadCase& load_case,
                                        const LoadsByElement& loads,
                                        std::span<const Geometry> geometry, const Norms& size,
                                        Order order) {
  if (!all_finite(forces_)) return too_large();
  const NodeValues nodal = nodal_loads(frame_, load_case);
  CaseResult result;
  result.displacements = by_node(displacements_);
  result.reactions = reactions(equations, nodal);
  result.equilibrium =
      check_equilibrium({frame_, equations, geometry, nodal, size, held_, displacements_}, loads,
                        result.reactions, order);
  // Sums of moments overflow before forces do.
  if (!std::isfinite(result.equilibrium.nodes + result.equilibrium.whole)) return too_large();
  result.forces = std::move(forces_);
  remove_noise(result);
  return result;
}

}  // namespace aluframe::analysis
