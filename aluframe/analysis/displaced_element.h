#pragma once

#include <array>
#include <vector>

#include "aluframe/analysis/element_loads.h"
#include "aluframe/analysis/frame.h"
#include "aluframe/analysis/small_matrices.h"

namespace aluframe::analysis {

/// Displacements of the ends of an element, mm and rad, local axes: those of its nodes, but at
/// released components its own, such that no force acts there under its loads. A truss is as
/// turned as the line between its nodes.
/// @param start, end displacements of its nodes, global axes
Vector12 end_displacements(const Element& element, const Geometry& geometry,
                           const ElementLoads& loads, const Vector6& start, const Vector6& end);

/// How an element is displaced between its ends in linear analysis. Exact for every load: forces
/// that are linear in x between the places of loads bend a beam to polynomials of the fifth degree,
///     θ' = M/EI + κ,   w' = θ - V/GAs,   u' = N/EA + ε
/// with the curvature κ and the strain ε of its temperature. A truss stays straight.
///
///     const DisplacedElement displaced(element, loads, ends);
///     const Eigen::Vector3d middle = displaced.at(length / 2);
class DisplacedElement {
 public:
  /// @param ends of end_displacements
  DisplacedElement(const Element& element, const ElementLoads& loads, const Vector12& ends);

  /// Displacement at x, mm from the start; local axes.
  Eigen::Vector3d at(double x) const;
  /// Where loads begin, end or act, and both ends, mm from the start, rising.
  const std::vector<double>& places() const { return places_; }

 private:
  /// Coefficients of powers of the distance from the start of a span, in parts of its length.
  using Polynomial = std::array<double, 6>;
  using Span = std::array<Polynomial, 3>;  ///< by axis

  void bend(const Element& element, const ElementLoads& loads, const Vector12& forces);

  std::vector<double> places_;
  std::vector<Span> spans_;
  Eigen::Vector3d at_start_, added_at_end_;  ///< to what the forces alone deform it by
};

}  // namespace aluframe::analysis
