#pragma once

#include <array>
#include <vector>

#include "aluframe/analysis/bending_plane.h"
#include "aluframe/analysis/element_loads.h"

namespace aluframe::analysis {

/// Pieces that an element is cut into where its axial force bends it further. With eight, the
/// buckling load of an element with hinged ends is 3e-5 too high, with clamped ends 5e-4 (the error
/// grows with the fourth power of a piece's length); their ends include the quarter points.
inline constexpr std::size_t pieces = 8;

/// Axial force of every piece.
using PieceForces = std::array<AxialForce, pieces>;

/// One bending plane of an element under axial force, as a chain of pieces whose inner nodes are
/// eliminated. Deflection against the chord of the ends and its moment of the axial force are both
/// in it. Without axial force it is exactly the plane of the element.
class BeamColumnPlane {
 public:
  /// @param plane of the whole element
  /// @param axis of the deflection: 1 (y) or 2 (z)
  BeamColumnPlane(const BendingPlane& plane, const ElementLoads& loads, int axis,
                  const PieceForces& forces);

  const Matrix4& stiffness() const { return stiffness_; }  ///< of the two ends
  const Vector4& fixed_end() const { return fixed_end_; }  ///< of the two ends
  /// End forces of the element under a rigid-body rotation, a slope of 1.
  const Vector4& rigid_rotation() const { return rigid_rotation_; }
  /// Negative pivots of the inner nodes: the element buckles between ends that stand still.
  int negative_pivots() const { return negative_pivots_; }

  /// Moments that the axial force adds between the start and the five positions, from the
  /// displacements of the two ends: integral of the force times the slope.
  std::array<double, 5> bowing_moments(const Vector4& ends) const;

 private:
  /// An eliminated node: its displacement is -(by_ends·(start, next node) + own).
  struct Eliminated {
    Eigen::Matrix<double, 2, 4> by_ends;
    Eigen::Vector2d own;
  };

  void append(std::size_t piece, const Matrix4& k, const Vector4& fixed_end,
              const Vector4& rigid_rotation);
  void balance();
  std::array<Eigen::Vector2d, pieces + 1> displacements(const Vector4& ends) const;

  BendingPlane piece_;
  PieceForces forces_;
  Matrix4 stiffness_;
  Vector4 fixed_end_;
  Vector4 rigid_rotation_;
  std::array<Eliminated, pieces - 1> inner_;
  int negative_pivots_ = 0;
};

}  // namespace aluframe::analysis
