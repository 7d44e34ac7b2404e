#include "aluframe/analysis/case_recovery.h"

#include <algorithm>
#include <cmath>

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

Norms largest_of(const ElementForces& forces) {
  Norms largest;
  for (const SectionForces& section : forces) {
    for (std::size_t i = 0; i < 6; ++i) largest.include(i, static_cast<double>(section[i]));
  }
  return largest;
}

/// Sets values up to `limit` to zero: forces from `first` = 0, moments from 3.
template <class Values>
void clear_below(double limit, std::size_t first, Values& values) {
  for (std::size_t i = first; i < first + 3; ++i) {
    if (std::abs(static_cast<double>(values[i])) <= limit) values[i] = 0;
  }
}

Problem too_large() {
  return {Problem::Kind::equilibrium, "the forces are too large to compute with", std::nullopt,
          std::nullopt};
}

bool all_finite(const std::vector<ElementForces>& forces) {
  for (const ElementForces& element : forces) {
    for (const SectionForces& section : element) {
      for (const float force : section) {
        if (!std::isfinite(force)) return false;
      }
    }
  }
  return true;
}

std::vector<Vector6> by_node(const NodeValues& values) {
  std::vector<Vector6> result(values.size() / 6);
  for (std::size_t i = 0; i < values.size(); ++i) result[i / 6][i % 6] = values[i];
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
      clear_below(own_force, 0, section);
      clear_below(own_moment, 3, section);
    }
  }
  for (Reaction& reaction : result.reactions) {
    clear_below(force, 0, reaction.value);
    clear_below(moment, 3, reaction.value);
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
