#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "aluframe/analysis/frame.h"

namespace aluframe::analysis {

/// Why an analysis has no result, for the user.
struct Problem {
  enum class Kind {
    input,        ///< the frame or a load cannot be meant so
    mechanism,    ///< something can move without resistance
    buckling,     ///< second order: the loads exceed what the frame can carry
    divergence,   ///< second order: no equilibrium within the iterations allowed
    equilibrium,  ///< the solution does not balance the loads
    memory,       ///< not enough of it
    solver        ///< the equations could not be solved for another reason
  };
  Kind kind = Kind::input;
  std::string text;                                   ///< "node 14 can rotate freely about X: ..."
  std::optional<std::size_t> node = std::nullopt;     ///< place in Frame::nodes
  std::optional<std::size_t> element = std::nullopt;  ///< place in Frame::elements
  std::optional<std::size_t> load_case = std::nullopt;  ///< place among those analysed
};

/// A value, or the problem that stands in its way.
template <class Value>
using Result = std::variant<Value, Problem>;

/// N, Fy, Fz, Mx, My, Mz at 0, 1/4, 1/2, 3/4 and 1 of the length, N and N·mm, local axes. At 0 and
/// 1 they are what the nodes exert, so a released force is exactly 0 there. Where a point load acts
/// at an inner position, the value is that of the side towards the start.
using SectionForces = std::array<float, 6>;
using ElementForces = std::array<SectionForces, 5>;

/// What a support and the springs of a node exert on the frame, global axes.
struct Reaction {
  std::size_t node = 0;
  Vector6 value{};
};

/// How well a solution balances the loads. Moments are compared with forces through lengths of the
/// frame.
struct Equilibrium {
  /// Largest unbalanced force of any node over the largest load or element force.
  double nodes = 0.0;
  double whole = 0.0;  ///< loads and reactions of the whole frame over the sum of their magnitudes
  /// Estimated error of the element forces over the largest of them, before their rounding to
  /// single precision: what the unbalanced forces of all nodes may do together, or the last change
  /// of forces that needed refinement.
  double force_error = 0.0;
};

/// Response of the frame to one load case.
struct CaseResult {
  std::vector<Vector6> displacements;  ///< per node: mm and rad, global axes
  std::vector<Reaction> reactions;     ///< of the nodes with supports or springs, by place
  std::vector<ElementForces> forces;   ///< per element
  Equilibrium equilibrium;
};

}  // namespace aluframe::analysis
