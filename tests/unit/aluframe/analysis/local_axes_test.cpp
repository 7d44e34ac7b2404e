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

TEST(LocalAxes, AxisOffTheVerticalByLessThanAMillionthIsVertical) {
  EXPECT_NEAR(axes_to(0.0, 0.9e-6, 1)(1, 1), 1.0, 1e-6);
}

TEST(LocalAxes, AxisOffTheVerticalByMoreIsNot) {
  // Horizontal y square to the lean along Y: along -X.
  EXPECT_NEAR(axes_to(0.0, 1.1e-6, 1)(1, 0), -1.0, 1e-6);
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
