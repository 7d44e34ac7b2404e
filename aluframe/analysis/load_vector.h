#pragma once

#include <algorithm>
#include <cmath>
#include <span>

#include "aluframe/analysis/assembly.h"
#include "aluframe/analysis/fixed_end_forces.h"

namespace aluframe::analysis {

/// Six values of every node, global axes.
using NodeValues = std::vector<double>;

/// The twelve values of an element's two nodes.
inline Vector12 at_ends(const Element& element, const NodeValues& values) {
  using Six = Eigen::Map<const Eigen::Matrix<double, 6, 1>>;
  Vector12 ends;
  ends << Six(&values[6 * element.start]), Six(&values[6 * element.end]);
  return ends;
}
template <class Twelve>
void add_at_ends(const Element& element, const Twelve& part, NodeValues& values) {
  double* const starts = &values[6 * element.start];
  double* const ends = &values[6 * element.end];
  for (int i = 0; i < 6; ++i) {
    starts[i] += part[i];
    ends[i] += part[6 + i];
  }
}

/// Loads that the case puts on nodes, and displacements that it prescribes to supports.
NodeValues nodal_loads(const Frame& frame, const LoadCase& load_case);
NodeValues settlements(const Frame& frame, const LoadCase& load_case);

/// Largest force and largest moment of several.
struct Norms {
  double force = 0.0, moment = 0.0;

  /// @param direction 0 to 2 of a force, 3 to 5 of a moment, and so on by sixes
  void include(std::size_t direction, double value) {
    double& norm = direction % 6 < 3 ? force : moment;
    norm = std::max(norm, std::abs(value));
  }
};

/// Equivalent nodal loads of a case, and their norms. The norms count fixed-end forces and forces
/// of prescribed displacements before releases and sums take from them: a temperature that releases
/// let go free is a load of that magnitude all the same.
class EquivalentLoads {
 public:
  /// Starts with the loads that the case puts on nodes.
  EquivalentLoads(const Frame& frame, std::span<const Geometry> geometry,
                  const LoadCase& load_case);

  /// Adds the fixed-end forces of an element with reversed sign; local axes.
  /// @param unreleased magnitudes of the same as if nothing were released
  void add_fixed_end_forces(std::size_t element, const Vector12& condensed,
                            const EndForceNorms& unreleased);

  /// Adds what the elements exert under the prescribed displacements alone.
  void add_settlements(const StiffnessSource& stiffness);

  const NodeValues& values() const { return values_; }
  const Norms& norms() const { return norms_; }

 private:
  const Frame& frame_;
  std::span<const Geometry> geometry_;
  const LoadCase& load_case_;
  NodeValues values_;
  Norms norms_;
};

}  // namespace aluframe::analysis
