#pragma once

#include <array>
#include <vector>

#include "aluframe/analysis/bending_plane.h"
#include "aluframe/analysis/element_spans.h"
#include "aluframe/analysis/initial_slope.h"

namespace aluframe::analysis {

/// Completes a stiffness that is known for rotations: displaced without turning, a bar has no
/// forces, and in a rigid-body rotation by a slope of 1 it has the given ones. Rounding of the rest
/// would outgrow the loads in a chain of many elements, which is displaced far as a rigid body.
void complete_by_statics(const Vector4& rigid_rotation, double length, Matrix4& k);

/// A part of a segment, and what acts on it in one bending plane.
struct SegmentPiece {
  double length = 0.0;  ///< mm
  SpanAxialForce axial;
  double across_start = 0.0, across_end = 0.0;  ///< force per length along w, N/mm, linear between
  double force_at_end = 0.0, moment_at_end = 0.0;  ///< along w and along t, N and N·mm
  /// Slope before it is loaded, of the whole element, which this piece begins `from` mm along and
  /// which is `whole` mm long; null: straight.
  const InitialSlope* initial = nullptr;
  double from = 0.0, whole = 0.0;
};

/// A segment of a prismatic beam-column bent in one plane, with shear deformation and an axial
/// force that acts on the slope of its axis (Engesser):
///     θ' = M/EI + κ,   M' = -V,   V = GAs·(w' - θ),   Q = V + N·(w' + s),   Q' = -q
/// with the deflection w, the rotation θ of the section, the force Q across the straight line of
/// the model, and the slope s that the axis has before it is loaded. Solved by power series from
/// piece to piece, so that stiffness and end forces are exact (for a constant axial force they are
/// the stability functions; Livesley and Chandler, Stability Functions for Structural Frameworks,
/// 1956). End displacements and forces are those of BendingPlane.
///
/// A segment is short enough when sqrt(|N|/EI)·L is at most `longest_segment`.
class BeamColumnSegment {
 public:
  /// @param plane of the segment's length
  /// @param pieces of that length together, at least one
  /// @param curvature d²w/dx² that it would take by itself, 1/mm
  BeamColumnSegment(const BendingPlane& plane, std::vector<SegmentPiece> pieces, double curvature);

  double length() const { return plane_.length; }
  Matrix4 stiffness() const;
  /// End forces that fix both ends under the loads.
  Vector4 fixed_end() const;
  /// End forces when the ends are displaced as by a rigid-body rotation by a slope of 1.
  Vector4 rigid_rotation() const;

  /// Moment that the axial force adds between the start and a place, mm from it: the integral of
  /// N·(w' + s).
  /// @param ends displacements of the two ends
  double bowing_moment(const Vector4& ends, double place) const;
  /// Deflection w at a place, mm from the start.
  double deflection(const Vector4& ends, double place) const;

 private:
  /// What a solution begins with, and what acts along it.
  struct Start {
    double rotation = 0.0, moment = 0.0, across = 0.0;
    bool has_loads = false;
    bool has_uneven_axial_force = false;  ///< across: what the axial force differs from its mean
  };
  /// A solution at a place, without dimension; bowing: the moment by the axial force.
  struct State {
    double deflection = 0.0, rotation = 0.0, moment = 0.0, across = 0.0, bowing = 0.0;
  };
  /// A piece without dimension: polynomials of the distance from its start.
  struct Coefficients {
    double length = 0.0;
    std::array<double, 3> axial{}, load{};
    double force_at_end = 0.0, moment_at_end = 0.0;
    std::vector<double> lean;  ///< axial force times the slope before it is loaded; empty: straight

    bool is_loaded() const {
      return load[0] != 0.0 || load[1] != 0.0 || force_at_end != 0.0 || moment_at_end != 0.0 ||
             !lean.empty();
    }
  };

  Coefficients coefficients_of(const SegmentPiece& piece) const;
  State at_end(const Start& start) const { return at_place(start, 2.0); }
  State at_place(const Start& start, double place) const;
  void advance(const Coefficients& piece, const Start& start, double distance, State& state) const;
  Start start_between(const Vector4& ends) const;
  Eigen::Vector2d start_for(double deflection, double rotation) const;
  Vector4 restoring_forces(const Start& start) const;

  BendingPlane plane_;
  std::vector<Coefficients> pieces_;
  double curvature_ = 0.0;   ///< κ·L
  double shear_ = 0.0;       ///< EI/(GAs·L²)
  double mean_axial_ = 0.0;  ///< of N·L²/EI
  bool is_uneven_ = false;
  bool is_loaded_ = false;
  State by_moment_, by_across_;  ///< at the end, by a unit of either at the start
};

/// Beyond it, a segment between clamped ends comes near its own buckling (2·π) and series lose
/// digits.
inline constexpr double longest_segment = 3.0;

}  // namespace aluframe::analysis
