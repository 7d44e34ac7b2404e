#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

// C 100x50x5x8. Hand calculation: rectangle less the clear field, web's back as the reference.
const model::SectionProperties equal = properties_of(Shape::channel, {100, 50, 5, 8, 50, 8});
constexpr double area = 2 * 400 + 84 * 5;
/// Centroid from the web's back: flanges 800 mm² at 25, web 420 mm² at 2.5.
constexpr double centroid_y = (800 * 25 + 420 * 2.5) / area;

// C 100 deep, top flange 60x8, bottom flange 40x6, web 5.
const model::SectionProperties unequal = properties_of(Shape::channel, {100, 60, 5, 8, 40, 6});
constexpr double unequal_area = 480 + 430 + 240;
/// Above the bottom edge: areas 480, 430, 240 at 96, 49, 3.
constexpr double unequal_centroid_z = (480 * 96 + 430 * 49 + 240 * 3) / unequal_area;
/// From the web's back: at 30, 2.5, 20.
constexpr double unequal_centroid_y = (480 * 30 + 430 * 2.5 + 240 * 20) / unequal_area;

TEST(Channel, HasTheAreaOfItsThreePlates) {
  expect_close(equal.area, area);
}

TEST(Channel, HasTheStrongInertiaOfARectangleLessItsClearField) {
  expect_close(equal.iyy, (50 * cube(100) - 45 * cube(84)) / 12);
}

TEST(Channel, HasTheWeakInertiaMovedFromTheWebsBack) {
  const double about_back = (2 * 8 * cube(50) + 84 * cube(5)) / 3;
  expect_close(equal.izz, about_back - area * square(centroid_y));
}

TEST(Channel, TakesTorsionFromWholeFlangesAndTheWebBetweenTheirMiddleLines) {
  // Each flange has two free ends: 0.21·t⁴·(1 − t⁴/(12·b⁴)).
  const double flange = 50 * cube(8) / 3 - 0.21 * 4096 * (1 - 4096 / (12 * std::pow(50, 4)));
  expect_close(equal.it, 2 * flange + 92 * cube(5) / 3);
}

TEST(Channel, WhoseWebIsThickerTakesTorsionFromTheWholeWeb) {
  // C 100x50x8x5: the web has the free ends, the flanges one each and start at its middle line.
  const auto section = properties_of(Shape::channel, {100, 50, 8, 5, 50, 5});
  const double web = 100 * cube(8) / 3 - 0.21 * 4096 * (1 - 4096 / (12 * std::pow(100, 4)));
  const double flange = 46 * cube(5) / 3 - 0.105 * 625 * (1 - 625 / (12 * std::pow(46, 4)));
  expect_close(section.it, web + 2 * flange);
}

TEST(Channel, HasItsShearCentreAtTheCentroidsHeightWhenFlangesAreEqual) {
  EXPECT_EQ(equal.shear_centre_z, 0.0);
}

TEST(Channel, WarpsByTheTextbookFormula) {
  // t·b³h²/12·(3bt + 2h·tw)/(6bt + h·tw), b = 47.5, h = 92, t = 8, tw = 5.
  const double b = 47.5, h = 92, t = 8, tw = 5;
  const double factor = (3 * b * t + 2 * h * tw) / (6 * b * t + h * tw);
  expect_close(equal.iw, t * cube(b) * square(h) / 12 * factor);
}

TEST(Channel, ShearsMostInTheWebAtTheCentroid) {
  expect_close(equal.qyb, (400 * 46 + 5 * square(42) / 2) / 5);
}

TEST(Channel, ShearsAlongYMostWhereTheFlangesPassTheCentroid) {
  expect_close(equal.qzb, square(50 - centroid_y) / 2);
}

TEST(Channel, HasItsWebOnTheLeft) {
  expect_close(equal.point_y[0], -centroid_y);
  expect_close(equal.point_y[1], 50 - centroid_y);
  expect_close(equal.point_y[2], 50 - centroid_y);
  expect_close(equal.point_y[3], -centroid_y);
}

TEST(Channel, HasItsTorsionAndWarpingConstantsOfTheLiterature) {
  // Middle lines 8 x 18, t = 1: J by finite elements 11.289, Cw = 12567.
  const auto section = properties_of(Shape::channel, {19, 8.5, 1, 1, 8.5, 1});
  expect_close(section.it, 11.289, 5e-3);
  expect_close(section.iw, 12567, 1e-4);
}

TEST(UnequalChannel, HasTheInertiaOfItsPlatesByParallelAxes) {
  const double about_bottom = 480 * (square(8) / 12 + square(96)) +
                              430 * (square(86) / 12 + square(49)) +
                              240 * (square(6) / 12 + square(3));
  expect_close(unequal.area, unequal_area);
  expect_close(unequal.iyy, about_bottom - unequal_area * square(unequal_centroid_z));
  const double about_back = (8 * cube(60) + 6 * cube(40) + 86 * cube(5)) / 3;
  expect_close(unequal.izz, about_back - unequal_area * square(unequal_centroid_y));
}

TEST(UnequalChannel, HasStressPointsAtTheTipsOfBothFlanges) {
  expect_close(unequal.point_y[1], 60 - unequal_centroid_y);
  expect_close(unequal.point_y[2], 40 - unequal_centroid_y);
  expect_close(unequal.point_z[1], 100 - unequal_centroid_z);
  expect_close(unequal.point_z[2], -unequal_centroid_z);
}

TEST(UnequalChannel, ShearsAlongYMostWhereOnlyTheWiderFlangeIsLeft) {
  // 647 there, 620 at the centroid over both flanges.
  const double tip = 60 - unequal_centroid_y;
  const double end_of_other = 40 - unequal_centroid_y;
  expect_close(unequal.qzb, (square(tip) - square(end_of_other)) / 2);
}

}  // namespace
}  // namespace aluframe::section
