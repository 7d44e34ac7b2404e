#pragma once

#include <Eigen/Geometry>
#include <array>
#include <optional>

#include "aluframe/analysis/frame.h"
#include "aluframe/analysis/small_matrices.h"

namespace aluframe::analysis {

/// Where a node is: how far it has moved, mm, and the quaternion that has turned it, which keeps
/// the digits of small rotations.
struct Pose {
  Eigen::Vector3d moved = Eigen::Vector3d::Zero();
  /// What rounding keeps from `moved`: short pieces that move far have forces from differences of
  /// the last digits.
  Eigen::Vector3d moved_rest = Eigen::Vector3d::Zero();
  Eigen::Quaterniond turned = Eigen::Quaterniond::Identity();

  /// Moves and then turns further, by a rotation vector about the global axes, rad.
  void move(const Eigen::Vector3d& by, const Eigen::Vector3d& turn);
  /// Of `turned`, rad; its length is at most pi.
  Eigen::Vector3d rotation_vector() const;
  /// What turning adds to a direction.
  Eigen::Vector3d change_of(const Eigen::Vector3d& direction) const;
};

/// What loads do within a piece, beyond going to its two nodes: forces that act on its own
/// deformations.
struct PieceLoads {
  using ByDirection = Eigen::Matrix<double, 2, 3>;

  /// Moments that fix both ends, about z and about y, N·mm, by loads between them that keep their
  /// directions: forces are seen along the piece's y and z, and columns are their global
  /// components.
  ByDirection about_z = ByDirection::Zero(), about_y = ByDirection::Zero();
  /// The same by moments, which are seen along the axis that they turn about.
  ByDirection moments_about_z = ByDirection::Zero(), moments_about_y = ByDirection::Zero();
  Eigen::Vector3d torque = Eigen::Vector3d::Zero();  ///< on the twist, seen along the chord
  /// The same by temperature, which turns with the piece.
  Eigen::Vector2d free_about_z = Eigen::Vector2d::Zero(), free_about_y = Eigen::Vector2d::Zero();
  double free_strain = 0.0;
};

/// A short piece of an element that may move and turn by any amount while its own deformations stay
/// small: it grows longer, its two ends turn against the chord between its nodes, and it twists.
/// They follow from the directions of section axes and chord alone,
///     along z: asin(-y·x'), along y: asin(z·x'), twist: asin((z1·y2 - y1·z2)/2)
/// with x' along the chord and y, z of the end's section, so that no motion as a rigid body makes
/// forces, and the forces are the exact gradient of the energy
///     ½·EA/L·(l - L + bow)² + bending (with shear flexibility) + torsion,
/// with the shortening by bowing of a bar without loads between its ends. The tangent is the
/// symmetric second derivative. (The corotational formulation; Crisfield, Non-linear Finite Element
/// Analysis of Solids and Structures, vol. 2, chapter 17.)
///
/// Released rotations take the values with which their moments vanish.
class CorotatedPiece {
 public:
  /// @param chord from the start to the end, undisplaced, global axes, mm
  /// @param axes unit vectors of the undisplaced piece as rows
  /// @param element its stiffness and kind; of its releases those of Mx, My and Mz
  CorotatedPiece(const Element& element, const Eigen::Vector3d& chord, const Axes& axes);

  double length() const { return length_; }
  const Axes& axes() const { return axes_; }

  struct Response {
    Vector12 forces;              ///< acting ON the piece: forces and moments, global axes
    Matrix12 tangent;             ///< symmetric; of the rotations as spins about global axes
    double axial_force = 0.0;     ///< N, along the displaced chord, positive in tension
    double largest_moment = 0.0;  ///< of what the moments are sums of, N·mm
    int negative_pivots = 0;      ///< of the released rotations
  };

  enum class Wanted { forces, tangent };

  static constexpr int natural = 6;  ///< deformations: longer, z1, z2, y1, y2, twist
  using Natural = Eigen::Matrix<double, natural, 1>;
  /// Deformations as they follow from the two nodes, released rotations 0, and what small motions
  /// of the nodes add to them: displacements and spins, global axes.
  struct Deformations {
    Natural value;
    Eigen::Matrix<double, natural, 12> gradient;
  };
  /// @return nothing where the piece is no longer one
  std::optional<Deformations> deformations(const Pose& start, const Pose& end) const;
  /// Energy of deformations, N·mm, apart from what an axial force adds.
  double energy(const Natural& deformations) const;

  /// @param load_factor of the loads
  /// @return nothing where the ends have turned so far against the chord that the piece is no
  ///         longer one, or the released ends have no equilibrium
  std::optional<Response> response(const Pose& start, const Pose& end, const PieceLoads& loads,
                                   double load_factor, Wanted wanted) const;

 private:
  using NaturalMatrix = Eigen::Matrix<double, natural, natural>;
  struct Motion;
  struct Inner;

  std::optional<Motion> motion_of(const Pose& start, const Pose& end) const;
  std::optional<Inner> inner_of(const Motion& motion, const PieceLoads& loads, double factor) const;
  Inner elastic(const Natural& deformations, const Natural& loads) const;
  Matrix12 tangent_of(const Motion& motion, const Inner& inner) const;

  Eigen::Vector3d chord_;
  Axes axes_;
  double length_ = 0.0;
  bool is_truss_ = false;
  double axial_ = 0.0, torsion_ = 0.0;     // EA/L, GIt/L
  Eigen::Matrix2d bending_z_, bending_y_;  // about z and about y
  Eigen::Matrix2d bow_z_, bow_y_;          // shortening: half of a'·B·a
  std::array<bool, natural> released_{};
};

}  // namespace aluframe::analysis
