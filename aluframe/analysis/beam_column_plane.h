#pragma once

#include <array>
#include <span>
#include <vector>

#include "aluframe/analysis/beam_column_segment.h"
#include "aluframe/analysis/element_stiffness.h"

namespace aluframe::analysis {

/// Compression that the shear stiffness of a plane carries on any length, N; infinite where it is
/// rigid in shear.
double carried_compression(const BendingPlane& plane);

/// One bending plane of an element under axial force, exactly: one segment, or where the axial
/// force is so large that it might buckle by itself, a chain of them whose inner nodes are
/// eliminated. Without axial force it is the plane of the element.
class BeamColumnPlane {
 public:
  /// @param plane of the whole element
  /// @param spans of the element, with at least one
  /// @param axis of the deflection: 1 (y) or 2 (z)
  /// @param curvature d²w/dx² that the element would take by itself, 1/mm
  /// @param initial slope before it is loaded, read while this is made
  BeamColumnPlane(const BendingPlane& plane, std::span<const ElementSpan> spans, int axis,
                  double curvature, const InitialSlope& initial = {});

  const Matrix4& stiffness() const { return stiffness_; }  ///< of the two ends
  const Vector4& fixed_end() const { return fixed_end_; }  ///< end forces that fix both ends
  /// End forces when the element is rotated as a rigid body by a slope of 1.
  const Vector4& rigid_rotation() const { return rigid_rotation_; }
  /// Negative pivots of the inner nodes: so many times the element buckles between ends that stand
  /// still.
  int negative_pivots() const { return negative_pivots_; }
  /// False when a compression reaches the shear stiffness, which no length can carry.
  bool is_carried() const { return is_carried_; }

  /// Moments that the axial force adds between the start and the five positions, from the
  /// displacements of the two ends: integral of the force times the slope, the initial one too.
  std::array<double, 5> bowing_moments(const Vector4& ends) const;
  /// Deflections at places, mm from the start.
  std::vector<double> deflections(const Vector4& ends, std::span<const double> places) const;

 private:
  /// An eliminated node: its displacement is -(by_ends·(start, next node) + own).
  struct Eliminated {
    Eigen::Matrix<double, 2, 4> by_ends;
    Eigen::Vector2d own;
  };

  void cut(std::span<const ElementSpan> spans, int axis, double curvature,
           const InitialSlope& initial);
  void join(const BeamColumnSegment& segment);
  std::vector<Eigen::Vector2d> displacements(const Vector4& ends) const;

  BendingPlane plane_;
  std::vector<BeamColumnSegment> segments_;
  std::vector<Eliminated> inner_;
  Matrix4 stiffness_ = Matrix4::Zero();
  Vector4 fixed_end_ = Vector4::Zero();
  Vector4 rigid_rotation_ = Vector4::Zero();
  int negative_pivots_ = 0;
  bool is_carried_ = true;
};

}  // namespace aluframe::analysis
