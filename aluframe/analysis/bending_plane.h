#pragma once

#include "aluframe/analysis/small_matrices.h"

namespace aluframe::analysis {

/// A prismatic piece bent in one plane, with shear deformation: deflection w and slope t, the
/// rotation of the section, positive as dw/dx. Twelve-entry vectors of an element hold two such
/// planes. The shapes below are those of a piece without load between its ends (Timoshenko beam;
/// for example Przemieniecki, Theory of Matrix Structural Analysis, chapter 5), so stiffness and
/// end forces that come from them are exact.
struct BendingPlane {
  double length = 0.0;  ///< mm, positive
  double ei = 0.0;      ///< bending stiffness, N·mm², positive
  double shear = 0.0;   ///< 12·EI/(G·As·L²): share of shear in the flexibility; 0: rigid in shear

  /// Plane of a piece of this length; a shear stiffness G·As of 0 stands for rigid in shear.
  static BendingPlane of(double ei, double gas, double length);
};

/// A load on a part of the piece: force per length, N/mm, linear from `from` to `to`, mm.
struct PlaneLoad {
  double from = 0.0, to = 0.0;
  double from_value = 0.0, to_value = 0.0;

  double value_at(double x) const;
};

/// Deflection and rotation at x, mm from the start, for a unit of each of the four end
/// displacements.
Vector4 deflections_at(const BendingPlane& plane, double x);
Vector4 rotations_at(const BendingPlane& plane, double x);

/// End forces per unit of the end displacements.
Matrix4 bending_stiffness(const BendingPlane& plane);

/// Fixed-end forces of the piece under a load along w, and under a force along w or a moment along
/// t at x.
Vector4 fixed_end_forces_of_load(const BendingPlane& plane, const PlaneLoad& load);
Vector4 fixed_end_forces_of_force(const BendingPlane& plane, double x, double force);
Vector4 fixed_end_forces_of_moment(const BendingPlane& plane, double x, double moment);

/// Fixed-end forces of a piece that would bend by itself to the curvature d²w/dx², 1/mm.
Vector4 fixed_end_forces_of_curvature(const BendingPlane& plane, double curvature);

/// Three-point Gauss rule over [from, to]: exact for polynomials up to the fifth degree.
/// `function` takes x and returns a vector or a number.
template <class Value, class Function>
Value integrate(double from, double to, const Function& function) {
  constexpr double edge = 0.77459666924148337704;  // sqrt(3/5)
  const double middle = (from + to) / 2, half = (to - from) / 2;
  const Value outer = function(middle - edge * half) + function(middle + edge * half);
  return half * (5.0 / 9.0 * outer + 8.0 / 9.0 * function(middle));
}

}  // namespace aluframe::analysis
