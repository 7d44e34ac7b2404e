#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

// B 150x60x3x4, webs at the edges. Hand calculation: outer less inner rectangle.
const model::SectionProperties box = properties_of(Shape::box, {150, 60, 3, 4, 57, 4});

// B 100 deep, flanges 80x10 (top) and 80x6 standing out over webs of 4 that are 50 apart.
const model::SectionProperties girder = properties_of(Shape::box, {100, 80, 4, 10, 50, 6});
constexpr double girder_area = 800 + 2 * 336 + 480;
/// Above the bottom edge: 480, 672, 800 mm² at 3, 48, 95.
constexpr double girder_centroid = (480 * 3 + 672 * 48 + 800 * 95) / girder_area;

TEST(Box, HasTheAreaAndInertiaOfOuterLessInnerRectangle) {
  expect_close(box.area, 60 * 150 - 54 * 142);
  expect_close(box.iyy, (60 * cube(150) - 54 * cube(142)) / 12);
  expect_close(box.izz, (150 * cube(60) - 142 * cube(54)) / 12);
}

TEST(Box, TakesTorsionByBredt) {
  // 4·A0²/∮ds/t: middle lines 57 x 146, flanges 4, webs 3.
  expect_close(box.it, 4 * square(57 * 146) / (2 * 57 / 4.0 + 2 * 146 / 3.0));
}

TEST(Box, OfUniformWallTwistsLikeASquareTube) {
  // Bredt for a square of side a on the middle line: a³t.
  const auto tube = properties_of(Shape::box, {102, 102, 2, 2, 100, 2});
  expect_close(tube.it, cube(100) * 2);
}

TEST(Box, HasItsShearCentreInTheCentroidWhenFlangesAreEqual) {
  EXPECT_EQ(box.shear_centre_z, 0.0);
}

TEST(Box, GetsATinyWarpingConstant) {
  expect_close(box.iw, 1e-9 * box.izz * square(150));
}

TEST(Box, ShearsMostInBothWebsAtTheCentroid) {
  // Flange 240 mm² at 73, webs 2·3·71 mm² at 35.5, over 6.
  expect_close(box.qyb, (240 * 73 + 426 * 35.5) / 6);
}

TEST(Box, ShearsAlongYMostInBothFlangesOnTheAxis) {
  // Half flanges 2·4·30 mm² at 15, one web 3·142 mm² at 28.5, over 8.
  expect_close(box.qzb, (240 * 15 + 426 * 28.5) / 8);
}

TEST(Box, WithFlangesThatStandOutHasTheInertiaOfItsPlates) {
  const double about_bottom = 800 * (square(10) / 12 + square(95)) +
                              672 * (square(84) / 12 + square(48)) +
                              480 * (square(6) / 12 + square(3));
  expect_close(girder.area, girder_area);
  expect_close(girder.iyy, about_bottom - girder_area * square(girder_centroid));
  expect_close(girder.izz, 16 * cube(80) / 12 + 672 * (square(4) / 12 + square(25)));
}

TEST(Box, WithFlangesThatStandOutTwistsLikeItsCell) {
  // Cell 50 x 92.
  expect_close(girder.it, 4 * square(50 * 92) / (50 / 10.0 + 50 / 6.0 + 2 * 92 / 4.0));
}

TEST(Box, HasStressPointsAtTheFlangeCorners) {
  EXPECT_EQ(girder.point_y, (std::array{-40.0, 40.0, 40.0, -40.0}));
  expect_close(girder.point_z[1], 100 - girder_centroid);
  expect_close(girder.point_z[2], -girder_centroid);
}

}  // namespace
}  // namespace aluframe::section
