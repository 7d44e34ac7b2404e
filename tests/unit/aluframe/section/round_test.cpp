#include <numbers>

#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;
using std::numbers::pi;

// P 100x5: radii 50 and 45. SR 40: radius 20. Closed forms of the ring and the circle.
const model::SectionProperties pipe = properties_of(Shape::pipe, {100, 5});
const model::SectionProperties bar = properties_of(Shape::solid_round, {40});

TEST(Pipe, HasTheAreaAndInertiaOfARing) {
  expect_close(pipe.area, pi * (2500 - 2025));
  expect_close(pipe.iyy, pi * (square(2500) - square(2025)) / 4);
  EXPECT_EQ(pipe.izz, pipe.iyy);
}

TEST(Pipe, HasThePolarInertiaAsTorsionConstant) {
  expect_close(pipe.it, pi * (square(2500) - square(2025)) / 2);
}

TEST(Pipe, OfThinWallTwistsByBredt) {
  // 2π·r³·t with the middle radius 49.95; Bredt leaves out (t/2r)² = 1e-6.
  const auto tube = properties_of(Shape::pipe, {100, 0.1});
  expect_close(tube.it, 2 * pi * cube(49.95) * 0.1, 2e-6);
}

TEST(Pipe, OfThinWallShearsWithTwiceTheMeanStress) {
  const auto tube = properties_of(Shape::pipe, {100, 0.1});
  expect_close(tube.qyb / tube.iyy, 2.0 / tube.area, 2e-6);
}

TEST(Pipe, ShearsMostOnTheAxis) {
  // Q = 2·(50³ − 45³)/3 over b = 2·5.
  expect_close(pipe.qyb, 2 * (cube(50) - cube(45)) / 3 / 10);
  EXPECT_EQ(pipe.qzb, pipe.qyb);
}

TEST(Pipe, HasStressPointsAtTheCornersOfTheEnclosingSquare) {
  EXPECT_EQ(pipe.point_y, (std::array{-50.0, 50.0, 50.0, -50.0}));
  EXPECT_EQ(pipe.point_z, (std::array{50.0, 50.0, -50.0, -50.0}));
}

TEST(Pipe, WithAWallOfItsRadiusIsASolidRound) {
  EXPECT_EQ(properties_of(Shape::pipe, {40, 20}), bar);
}

TEST(Pipe, WithoutWarpingStiffnessGetsATinyConstant) {
  expect_close(pipe.iw, 1e-9 * pipe.izz * square(100));
}

TEST(SolidRound, HasTheConstantsOfACircle) {
  expect_close(bar.area, pi * 400);
  expect_close(bar.iyy, pi * square(400) / 4);
  expect_close(bar.izz, pi * square(400) / 4);
  expect_close(bar.it, pi * square(400) / 2);
}

TEST(SolidRound, ShearsWithFourThirdsOfTheMeanStress) {
  expect_close(bar.qyb / bar.iyy, 4.0 / 3 / bar.area);
  expect_close(bar.qzb / bar.izz, 4.0 / 3 / bar.area);
}

TEST(SolidRound, HasItsShearCentreInTheCentre) {
  EXPECT_EQ(bar.shear_centre_z, 0.0);
}

}  // namespace
}  // namespace aluframe::section
