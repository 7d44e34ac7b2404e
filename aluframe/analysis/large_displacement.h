#pragma once

#include "aluframe/analysis/second_order.h"

namespace aluframe::analysis {

/// Analysis of one combination with displacements and rotations of any size: equilibrium of the
/// displaced frame, followed from no load on, so that a frame that snaps through is told from one
/// that stands. Deformations stay small and elastic. Beams are cut into eight corotated pieces each
/// (CorotatedPiece), into more where a large axial force bends them within a short way; loads keep
/// their directions, releases turn with their elements, twisting by axial force is left out as in
/// second order.
///
/// Forces are those at the displaced sections, along the axis between the displaced ends of their
/// element and across it; displacements have rotation vectors.
///
/// Loads that the frame cannot carry are a problem that names their factor and what moves. Releases
/// of N, Fy or Fz, whose ends slide, are a problem as well.
Result<SecondOrderResult> analyse_large_displacements(const Frame& frame, const LoadCase& loads,
                                                      const Options& limits = {});

/// The largest factor of loads that a frame carries as they grow from nothing.
struct LimitLoad {
  enum class Kind {
    none,              ///< it carries the largest factor that was looked at
    snap_through,      ///< the loads have a maximum
    buckling,          ///< another equilibrium branches off
    element_buckling,  ///< an element that is hinged at its ends buckles between its nodes
  };
  Kind kind = Kind::none;
  double factor = 0.0;                ///< certain to 1e-4 of itself; of none: the largest looked at
  std::string text;                   ///< "node 5 moves along Z"; of none: empty
  double largest_displacement = 0.0;  ///< of a node just before, mm
  std::optional<std::size_t> node;    ///< place of that node
};

/// Follows the equilibrium of the frame up to its limit, as analyse_large_displacements does.
/// @param largest_factor of the loads to look at, positive
Result<LimitLoad> find_limit_load(const Frame& frame, const LoadCase& loads, double largest_factor);

}  // namespace aluframe::analysis
