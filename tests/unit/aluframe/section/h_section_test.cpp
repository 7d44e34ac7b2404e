#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

// H 200x100x6x10. Hand calculation with the enclosing rectangle less the two clear fields.
const model::SectionProperties equal = properties_of(Shape::h_section, {200, 100, 6, 10, 100, 10});

// Flanges 200x10 (top) and 100x10, web 8, 290 between the middle lines of the flanges.
const model::SectionProperties unequal =
    properties_of(Shape::h_section, {300, 200, 8, 10, 100, 10});

/// Centroid above the bottom edge: areas 1000, 2240 and 2000 at 5, 150 and 295.
constexpr double unequal_centroid = (1000 * 5.0 + 2240 * 150.0 + 2000 * 295.0) / 5240;

TEST(HSection, HasTheAreaOfItsThreePlates) {
  expect_close(equal.area, 100 * 200 - 94 * 180);
}

TEST(HSection, HasTheStrongInertiaOfARectangleLessItsClearFields) {
  expect_close(equal.iyy, (100 * cube(200) - 94 * cube(180)) / 12);
}

TEST(HSection, HasTheWeakInertiaOfItsPlates) {
  expect_close(equal.izz, (2 * 10 * cube(100) + 180 * cube(6)) / 12);
}

TEST(HSection, TakesTorsionFromItsPlatesTheirEndsAndJunctions) {
  // Flanges b·t³/3 − 0.21·t⁴·(1 − t⁴/(12·b⁴)), the clear web, and two junctions: w/t = 0.6 gives
  // α = −0.042 + 0.13224 − 0.0261 = 0.06414 and D = 10 + 36/40 = 10.9.
  const double flange = 100e3 / 3 - 2100 * (1 - 1e-4 / 12);
  expect_close(equal.it, 2 * flange + 180 * 216 / 3.0 + 2 * 0.06414 * std::pow(10.9, 4));
}

TEST(HSection, WithAStockyFlangeHasTheTorsionOfFiniteElements) {
  // H 400x100x3x3x40x12: b·t³/3 alone is 18 % above the 23322 mm⁴ of the section's mesh.
  const auto section = properties_of(Shape::h_section, {400, 100, 3, 3, 40, 12});
  expect_close(section.it, 23322, 0.005);
}

TEST(HSection, WarpsLikeTwoEqualFlangesOnALever) {
  // Iw = If·h²/2 with If = 10·100³/12, h = 190.
  expect_close(equal.iw, 10 * cube(100) / 12 * square(190) / 2);
}

TEST(HSection, HasItsShearCentreInTheCentroidWhenFlangesAreEqual) {
  EXPECT_EQ(equal.shear_centre_z, 0.0);
}

TEST(HSection, ShearsMostInTheWebAtTheCentroid) {
  // Flange 1000 mm² at 95, half the web 540 mm² at 45, over the web.
  expect_close(equal.qyb, (1000 * 95 + 540 * 45) / 6.0);
}

TEST(HSection, ShearsAlongYLikeTwoRectangles) {
  // Each flange bends about z by itself: 1.5·V/A of the flanges, Q/b = B²/8.
  expect_close(equal.qzb, square(100) / 8);
}

TEST(HSection, HasStressPointsAtTheFlangeTips) {
  EXPECT_EQ(equal.point_y, (std::array{-50.0, 50.0, 50.0, -50.0}));
  EXPECT_EQ(equal.point_z, (std::array{100.0, 100.0, -100.0, -100.0}));
}

TEST(UnequalHSection, HasTheInertiaOfItsPlatesByParallelAxes) {
  const double about_bottom = 1000 * (square(10) / 12 + square(5)) +
                              2240 * (square(280) / 12 + square(150)) +
                              2000 * (square(10) / 12 + square(295));
  expect_close(unequal.iyy, about_bottom - 5240 * square(unequal_centroid));
  expect_close(unequal.izz, (10 * cube(200) + 10 * cube(100) + 280 * cube(8)) / 12);
}

TEST(UnequalHSection, HasStressPointsFromItsCentroid) {
  expect_close(unequal.point_z[0], 300 - unequal_centroid);
  expect_close(unequal.point_z[2], -unequal_centroid);
  EXPECT_EQ(unequal.point_y, (std::array{-100.0, 100.0, 50.0, -50.0}));
}

TEST(UnequalHSection, HasTheWarpingConstantOfTheLiterature) {
  // I1·I2/(I1 + I2)·h² with I1 = 6.6667e6, I2 = 8.3333e5 (Timoshenko and Gere): 6.2296e10.
  expect_close(unequal.iw, 6.2296e10, 1e-4);
}

TEST(UnequalHSection, HasItsShearCentreNearTheLargerFlange) {
  // 290·I2/(I1 + I2) = 290/9 = 32.222 below the middle line of the top flange, 295 above the
  // bottom.
  const double above_bottom = 295 - 290 / 9.0;
  expect_close(unequal.shear_centre_z, above_bottom - unequal_centroid);
}

TEST(UnequalHSection, ShearsMostAtTheCentroidThoughItIsOffMidDepth) {
  // Area below the centroid: flange 1000 mm² and the web from 10 up.
  const double web = unequal_centroid - 10;
  expect_close(unequal.qyb, (1000 * (unequal_centroid - 5) + 8 * square(web) / 2) / 8);
}

TEST(UnequalHSection, ShearsAlongYOverTheSumOfFlangeThicknesses) {
  // Flanges 100x20 (top) and 80x10 cut at the web: (20·50²/2 + 10·40²/2)/30.
  const auto section = properties_of(Shape::h_section, {200, 100, 6, 20, 80, 10});
  expect_close(section.qzb, (20 * square(50) / 2 + 10 * square(40) / 2) / 30);
}

TEST(UnequalHSection, ShearsAlongYMostWhereOnlyTheWiderFlangeIsLeft) {
  // Flanges 200x5 and 20x20: 1040 at the web, but (100² − 10²)/2 at the tip of the narrow flange.
  const auto section = properties_of(Shape::h_section, {300, 200, 4, 5, 20, 20});
  expect_close(section.qzb, (square(100) - square(10)) / 2);
}

TEST(HSection, WithoutOutstandsIsARectangle) {
  // 30 wide, 100 deep: 1.5·V/A is Q/b = h²/8.
  const auto rectangle = properties_of(Shape::h_section, {100, 30, 30, 10, 30, 10});
  expect_close(rectangle.area, 3000);
  expect_close(rectangle.iyy, 30 * cube(100) / 12);
  expect_close(rectangle.izz, 100 * cube(30) / 12);
  expect_close(rectangle.qyb / rectangle.iyy, 1.5 / rectangle.area);
}

}  // namespace
}  // namespace aluframe::section
