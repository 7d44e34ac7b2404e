#include "aluframe/analysis/corotated_piece.h"

#include <gtest/gtest.h>

#include <Eigen/Geometry>

#include "frames.h"

namespace aluframe::analysis {
namespace {

using Wanted = CorotatedPiece::Wanted;
using Eigen::Vector3d;

constexpr double length = 500.0;

Axes oblique_axes() {
  const Eigen::Quaterniond turn(0.3, -0.7, 0.2, 0.5);
  return turn.normalized().matrix();
}

CorotatedPiece piece_of(ElementKind kind = ElementKind::beam,
                        const std::vector<std::size_t>& released = {}) {
  Element element;
  element.stiffness = shear_stiffness();
  element.kind = kind;
  for (const std::size_t dof : released) element.released[dof] = true;
  const Axes axes = oblique_axes();
  return {element, length * axes.row(0).transpose(), axes};
}

PieceLoads some_loads() {
  PieceLoads loads;
  loads.free_about_z = {3e5, -2e5};
  loads.free_about_y = {1e5, 4e5};
  loads.free_strain = 1e-4;
  return loads;
}

/// Turned by 0.1 rad against each other, and far away.
std::array<Pose, 2> some_poses() {
  std::array<Pose, 2> poses;
  poses[0].move({300, -200, 100}, {0.5, 1.2, -0.3});
  poses[1] = poses[0];
  const Vector3d chord = length * oblique_axes().row(0).transpose();
  poses[1].move(poses[0].change_of(chord), {0, 0, 0});
  poses[0].move({1, 2, -1}, {0.04, -0.03, 0.05});
  poses[1].move({2, -3, 4}, {-0.05, 0.02, 0.03});
  return poses;
}

CorotatedPiece::Response response_of(const CorotatedPiece& piece, const std::array<Pose, 2>& poses,
                                     const PieceLoads& loads) {
  return piece.response(poses[0], poses[1], loads, 1.0, Wanted::tangent).value();
}

TEST(CorotatedPiece, AMotionAsARigidBodyMakesNoForces) {
  const CorotatedPiece piece = piece_of();
  const Vector3d chord = length * oblique_axes().row(0).transpose();
  Pose start, end;
  start.move({1000, 2000, -3000}, {1.0, -2.0, 0.7});
  end = start;
  end.moved += start.change_of(chord);
  const auto forces = piece.response(start, end, {}, 1.0, Wanted::forces)->forces;
  // Rounding of positions of thousands of millimetres over EA/L = 3.5e5 N/mm.
  EXPECT_LT(forces.cwiseAbs().maxCoeff(), 1e-5);
}

TEST(CorotatedPiece, ForcesBalanceAboutTheDisplacedEnds) {
  const auto poses = some_poses();
  const Vector12 f = response_of(piece_of(), poses, some_loads()).forces;
  const Vector3d chord =
      length * oblique_axes().row(0).transpose() + poses[1].moved - poses[0].moved;
  EXPECT_LT((f.segment<3>(0) + f.segment<3>(6)).norm(), 1e-12 * f.norm());
  const Vector3d moments = f.segment<3>(3) + f.segment<3>(9) + chord.cross(f.segment<3>(6));
  EXPECT_LT(moments.norm(), 1e-12 * f.norm());
}

/// The derivative of forces by differences, its symmetric part: rotations do not commute.
Matrix12 differences(const CorotatedPiece& piece, const std::array<Pose, 2>& poses,
                     const PieceLoads& loads) {
  Matrix12 k;
  for (int dof = 0; dof < 12; ++dof) {
    const double step = dof % 6 < 3 ? 1e-4 : 1e-6;
    const auto forces = [&](double by) {
      auto at = poses;
      Vector3d moved = Vector3d::Zero(), turned = Vector3d::Zero();
      (dof % 6 < 3 ? moved : turned)[dof % 3] = by;
      at[dof < 6 ? 0 : 1].move(moved, turned);
      return response_of(piece, at, loads).forces;
    };
    k.col(dof) = (forces(step) - forces(-step)) / (2 * step);
  }
  return (k + k.transpose()) / 2;
}

TEST(CorotatedPiece, ItsTangentIsTheDerivativeOfItsForces) {
  for (const auto& released : {std::vector<std::size_t>{}, {4}, {5, 11}, {3, 4, 5, 10}}) {
    const CorotatedPiece piece = piece_of(ElementKind::beam, released);
    const Matrix12 exact = response_of(piece, some_poses(), some_loads()).tangent;
    const Matrix12 found = differences(piece, some_poses(), some_loads());
    // Central differences of such steps; entries of a moment by a rotation are the largest.
    EXPECT_LT((exact - found).cwiseAbs().maxCoeff(), 1e-6 * exact.cwiseAbs().maxCoeff());
    const Eigen::Matrix3d by_moving = exact.topLeftCorner(3, 3),
                          error = (exact - found).topLeftCorner(3, 3);
    EXPECT_LT(error.cwiseAbs().maxCoeff(), 1e-6 * by_moving.cwiseAbs().maxCoeff());
  }
}

TEST(CorotatedPiece, ATrussHasItsAxialForceAlongItsDisplacedChord) {
  const auto poses = some_poses();
  const auto r = response_of(piece_of(ElementKind::truss), poses, {});
  const Vector3d chord =
      length * oblique_axes().row(0).transpose() + poses[1].moved - poses[0].moved;
  const double expected = 70000.0 * 2500.0 * (chord.norm() - length) / length;
  EXPECT_NEAR(r.axial_force, expected, 1e-9 * std::abs(expected));
  EXPECT_LT((r.forces.segment<3>(6) - expected * chord.normalized()).norm(), 1e-6);
  EXPECT_EQ(r.forces.segment<3>(3).norm() + r.forces.segment<3>(9).norm(), 0.0);
}

TEST(CorotatedPiece, AReleasedRotationHasNoMomentAndIsFreeToTurn) {
  const CorotatedPiece piece = piece_of(ElementKind::beam, {3, 4, 5});
  auto poses = some_poses();
  const Vector12 before = response_of(piece, poses, some_loads()).forces;
  EXPECT_EQ(before.segment<3>(3).norm(), 0.0);
  poses[0].move({0, 0, 0}, {1.0, 2.0, -0.5});  // all loads turn with the other end
  const Vector12 after = response_of(piece, poses, some_loads()).forces;
  EXPECT_LT((after - before).norm(), 1e-9 * before.norm());
}

TEST(CorotatedPiece, EndsTurnedAcrossTheChordAreNoPiece) {
  Pose start, end;
  end.move({0, 0, 0}, 1.5 * oblique_axes().row(1).transpose());
  EXPECT_FALSE(piece_of().response(start, end, {}, 1.0, Wanted::forces));
}

TEST(Pose, HasTheRotationVectorThatItWasTurnedBy) {
  for (const double angle : {1e-9, 0.3, 3.0}) {
    Pose pose;
    const Vector3d turn = angle * Vector3d(2, -1, 2) / 3;
    pose.move({0, 0, 0}, turn);
    EXPECT_LT((pose.rotation_vector() - turn).norm(), 1e-14 + 1e-12 * angle) << angle;
  }
}

}  // namespace
}  // namespace aluframe::analysis
