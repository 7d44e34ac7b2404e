#pragma once

#include "aluframe/analysis/load_vector.h"
#include "aluframe/analysis/section_forces.h"

namespace aluframe::analysis {

/// Response of one element to the displacements of its nodes, local axes.
struct ElementResponse {
  Vector12 end_forces;     ///< acting ON the element
  Norms magnitude;         ///< of what the end forces are sums of
  FivePositions sections;  ///< forces at the five positions
};

/// Whether moments balance about the nodes as given, or about the displaced ones.
enum class Order { first, second };

/// Recovers the result of one load case: collects the responses of its elements.
class CaseRecovery {
 public:
  /// @param displacements of all nodes, prescribed ones included
  /// @param error of the forces, known from their refinement, as a share of the largest
  CaseRecovery(const Frame& frame, NodeValues displacements, double error = 0.0);

  Vector12 displacements_of(const Element& element) const {
    return at_ends(element, displacements_);
  }
  /// @param end_forces in global axes, twelve values that act ON the element
  /// @param sections its five positions one after the other, thirty values
  template <class EndForces, class Sections>
  void add(std::size_t element, const EndForces& end_forces, const Sections& sections,
           const Norms& magnitude);

  /// @param load_norms of the loads that the displacements were solved for
  Result<CaseResult> finish(const Equations& equations, const LoadCase& load_case,
                            const LoadsByElement& loads, std::span<const Geometry> geometry,
                            const Norms& load_norms, Order order);

 private:
  Norms noise() const;
  std::vector<Reaction> reactions(const Equations& equations, const NodeValues& nodal) const;

  const Frame& frame_;
  NodeValues displacements_;
  NodeValues internal_;  // forces that the elements take from each node
  std::vector<ElementForces> forces_;
  double error_;
  Norms largest_;  // of the sums that end forces are made of: what rounding is measured by
};

template <class EndForces, class Sections>
void CaseRecovery::add(std::size_t element, const EndForces& end_forces, const Sections& sections,
                       const Norms& magnitude) {
  add_at_ends(frame_.elements[element], end_forces, internal_);
  using Forces = Eigen::Matrix<float, 30, 1>;
  Eigen::Map<Forces>(forces_[element].front().data()) = sections.template cast<float>();
  largest_.force = std::max(largest_.force, magnitude.force);
  largest_.moment = std::max(largest_.moment, magnitude.moment);
}

}  // namespace aluframe::analysis
