#include "aluframe/analysis/refinement.h"

#include <cmath>
#include <limits>

#include "aluframe/analysis/extended_element.h"

namespace aluframe::analysis {

namespace {

/// Forces that change by less than this share of the largest are refined: their rounding to doubles
/// is not far below.
constexpr double settled = 1e-13;
/// More than enough: a step that does not halve the change is the last.
constexpr int most_steps = 30;

class Refinement {
 public:
  Refinement(const FactorisedFrame& factorised, const CaseLoads& loads,
             const NodeValues& displacements)
      : of_(factorised),
        loads_(loads),
        displacements_(displacements.begin(), displacements.end()) {}

  RefinedCase run();

 private:
  Extended12 end_displacements(const Element& element) const;
  void update_forces();
  Extended12 update_element(std::size_t place, const ElementStiffness& stiffness);
  void correct();
  double change_since(const std::vector<Vector12>& before);

  const FactorisedFrame& of_;
  const CaseLoads& loads_;
  std::vector<Extended> displacements_;
  std::vector<Extended> residual_;  // out-of-balance force of each degree of freedom
  std::vector<Vector12> forces_;
  Norms largest_;
};

Extended12 Refinement::end_displacements(const Element& element) const {
  Extended12 ends;
  for (std::size_t i = 0; i < 6; ++i) {
    ends[i] = displacements_[6 * element.start + i];
    ends[6 + i] = displacements_[6 * element.end + i];
  }
  return ends;
}

/// @return end forces acting ON the element in global axes
Extended12 Refinement::update_element(std::size_t place, const ElementStiffness& stiffness) {
  const Geometry& geometry = of_.geometry[place];
  Extended12 forces =
      extended_end_forces(stiffness, geometry, end_displacements(of_.frame.elements[place]));
  for (std::size_t i = 0; i < 12; ++i) {
    const auto at = static_cast<int>(i);
    forces[i] += Extended(loads_.fixed_end_forces[place][at]);
    forces_[place][at] = forces[i].value();
  }
  return to_global(geometry.axes, forces);
}

void Refinement::update_forces() {
  residual_ = {loads_.nodal.begin(), loads_.nodal.end()};
  forces_.resize(of_.frame.elements.size());
  ElementStiffness stiffness;
  for (std::size_t place = 0; place < forces_.size(); ++place) {
    of_.stiffness(place, stiffness);
    const Extended12 internal = update_element(place, stiffness);
    const Element& element = of_.frame.elements[place];
    for (std::size_t i = 0; i < 6; ++i) {
      residual_[6 * element.start + i] += -internal[i];
      residual_[6 * element.end + i] += -internal[6 + i];
    }
  }
  for (const Spring& spring : of_.frame.springs) {
    for (std::size_t i = 0; i < 6; ++i) {
      const std::size_t dof = 6 * spring.node + i;
      residual_[dof] += -(displacements_[dof] * spring.stiffness[i]);
    }
  }
}

void Refinement::correct() {
  std::vector<double> column(of_.scale.size());
  const auto dof = [&](std::size_t i) { return of_.equations.dof(static_cast<int>(i)); };
  for (std::size_t i = 0; i < column.size(); ++i) {
    column[i] = residual_[dof(i)].value() * of_.scale[i];
  }
  if (!column.empty()) of_.solver.solve(column);
  for (std::size_t i = 0; i < column.size(); ++i) {
    displacements_[dof(i)] += Extended(column[i] * of_.scale[i]);
  }
}

double Refinement::change_since(const std::vector<Vector12>& before) {
  Norms change;
  largest_ = loads_.norms;
  for (std::size_t i = 0; i < forces_.size(); ++i) {
    for (int j = 0; j < 12; ++j) {
      const double difference = forces_[i][j] - before[i][j];
      if (!std::isfinite(difference)) return std::numeric_limits<double>::quiet_NaN();
      change.include(static_cast<std::size_t>(j), difference);
      largest_.include(static_cast<std::size_t>(j), forces_[i][j]);
    }
  }
  return share(change, largest_, lengths_of(of_.frame, of_.geometry));
}

RefinedCase Refinement::run() {
  update_forces();
  double change = std::numeric_limits<double>::infinity();
  for (int step = 0; step < most_steps && change > settled; ++step) {
    correct();
    const std::vector<Vector12> before = forces_;
    update_forces();
    const double last = change;
    change = change_since(before);
    if (!(change <= last / 2)) break;
  }
  RefinedCase result{{}, std::move(forces_), largest_, change};
  for (const Extended& value : displacements_) result.displacements.push_back(value.value());
  return result;
}

}  // namespace

RefinedCase refine(const FactorisedFrame& factorised, const CaseLoads& loads,
                   const NodeValues& displacements) {
  return Refinement(factorised, loads, displacements).run();
}

}  // namespace aluframe::analysis
