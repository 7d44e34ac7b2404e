#include "aluframe/analysis/local_axes.h"

#include <gtest/gtest.h>

namespace aluframe::analysis {
namespace {

Axes axes_to(double x, double y, double z, double beta = 0.0) {
  return geometry_between({1, 0, 0, 0}, {2, x, y, z}, beta).axes;
}

void expect_rows(const Axes& axes, Eigen::Vector3d y, Eigen::Vector3d z) {
  EXPECT_TRUE(axes.row(1).transpose().isApprox(y, 1e-12)) << axes;
  EXPECT_TRUE(axes.row(2).transpose().isApprox(z, 1e-12)) << axes;
}

TEST(LocalAxes, BeamAlongXHasGlobalAxes) {
  expect_rows(axes_to(5, 0, 0), {0, 1, 0}, {0, 0, 1});
}

TEST(LocalAxes, BeamAgainstXTurnsYRound) {
  expect_rows(axes_to(-5, 0, 0), {0, -1, 0}, {0, 0, 1});
}

TEST(LocalAxes, ColumnUpwardsHasYAlongYAndZAgainstX) {
  expect_rows(axes_to(0, 0, 3), {0, 1, 0}, {-1, 0, 0});
}

TEST(LocalAxes, ColumnDownwardsHasYAlongYAndZAlongX) {
  expect_rows(axes_to(0, 0, -3), {0, 1, 0}, {1, 0, 0});
}

TEST(LocalAxes, AxisOffTheVerticalByLessThanAThousandthIsVertical) {
  // y is global Y but for the lean, 0.9e-3, whose cosine is off 1 by half its square.
  EXPECT_NEAR(axes_to(0.0, 0.9e-3, 1)(1, 1), 1.0, 1e-6);
  EXPECT_NEAR(axes_to(0.9e-3, 0.0, 1)(1, 1), 1.0, 1e-12);
}

TEST(LocalAxes, AxesOfALeaningColumnAreSquare) {
  const Axes axes = axes_to(0.4e-3, 0.8e-3, 1, 30);
  EXPECT_TRUE((axes * axes.transpose()).isIdentity(1e-14)) << axes;
}

TEST(LocalAxes, AxisOffTheVerticalByMoreIsNot) {
  // Horizontal y square to the lean along Y: along -X.
  EXPECT_NEAR(axes_to(0.0, 1.1e-3, 1)(1, 0), -1.0, 1e-12);
}

TEST(LocalAxes, ReferenceDirectionHasZOnItsSide) {
  const auto z_towards = [](Vector3 reference) {
    return geometry_between({1, 0, 0, 0}, {2, 5, 0, 0}, 0.0, reference).axes.row(2).eval();
  };
  // Square to x, whatever its part along x and its length.
  EXPECT_TRUE(z_towards({0, 0, 2}).isApprox(Eigen::RowVector3d(0, 0, 1), 1e-15));
  EXPECT_TRUE(z_towards({0, 0, -2}).isApprox(Eigen::RowVector3d(0, 0, -1), 1e-15));
  EXPECT_TRUE(z_towards({7, 3e-9, 0}).isApprox(Eigen::RowVector3d(0, 1, 0), 1e-15));
}

TEST(LocalAxes, BetaTurnsOnFromTheReferenceDirection) {
  const Axes axes = geometry_between({1, 0, 0, 0}, {2, 0, 0, 3}, 90.0, Vector3{1, 0, 0}).axes;
  // z along X has y = z × x along −Y; y then goes to where z was, and z to −y.
  expect_rows(axes, {1, 0, 0}, {0, 1, 0});
}

TEST(LocalAxes, ReferenceSineIsThatOfTheAngleToTheAxis) {
  const auto sine = [](Vector3 reference) {
    return reference_sine({1, 0, 0, 0}, {2, 0, 0, 3}, reference);
  };
  EXPECT_DOUBLE_EQ(sine({3, 0, 4}), 0.6);
  EXPECT_EQ(sine({0, 0, -2}), 0.0);
  EXPECT_EQ(sine({0, 0, 0}), 0.0);
}

TEST(LocalAxes, BetaOfNinetyDegreesPutsYWhereZWas) {
  expect_rows(axes_to(5, 0, 0, 90), {0, 0, 1}, {0, -1, 0});
}

TEST(LocalAxes, InclinedBeamHasZInTheVerticalPlane) {
  const double d = std::sqrt(0.5);
  expect_rows(axes_to(1, 0, 1), {0, 1, 0}, {-d, 0, d});
}

TEST(LocalAxes, LengthIsTheDistance) {
  EXPECT_DOUBLE_EQ(geometry_between({1, 1, 2, 3}, {2, 3, 5, 9}, 0).length, 7.0);
}

}  // namespace
}  // namespace aluframe::analysis
