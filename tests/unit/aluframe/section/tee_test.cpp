#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

// T 100x80x6x10. Hand calculation from the bottom of the web: web 540 mm² at 45, flange 800 mm²
// at 95.
const model::SectionProperties tee = properties_of(Shape::tee, {100, 80, 6, 10});
constexpr double area = 540 + 800;
constexpr double centroid = (540 * 45 + 800 * 95) / area;

TEST(Tee, HasTheAreaAndInertiaOfItsPlates) {
  const double about_bottom =
      540 * (square(90) / 12 + square(45)) + 800 * (square(10) / 12 + square(95));
  expect_close(tee.area, area);
  expect_close(tee.iyy, about_bottom - area * square(centroid));
  expect_close(tee.izz, (10 * cube(80) + 90 * cube(6)) / 12);
}

TEST(Tee, TakesTorsionFromItsPlatesTheirEndsAndTheJunction) {
  // As the H section's, and a web of 90 with one free end: 0.105·w⁴·(1 − w⁴/(12·b⁴)).
  const double flange = 80e3 / 3 - 2100 * (1 - 1e4 / (12 * std::pow(80, 4)));
  const double web = 90 * 216 / 3.0 - 0.105 * 1296 * (1 - 1296 / (12 * std::pow(90, 4)));
  expect_close(tee.it, flange + web + 0.06414 * std::pow(10.9, 4));
}

TEST(Tee, HasItsShearCentreWhereTheMiddleLinesMeet) {
  expect_close(tee.shear_centre_z, 95 - centroid);
}

TEST(Tee, WithoutWarpingStiffnessGetsATinyConstant) {
  expect_close(tee.iw, 1e-9 * tee.izz * square(100));
}

TEST(Tee, ShearsMostInTheWebAtTheCentroid) {
  expect_close(tee.qyb, square(centroid) / 2);
}

TEST(Tee, ShearsMostAtTheTopOfTheWebWhenTheCentroidIsInTheFlange) {
  // T 30x100x4x20: centroid 40200/2040 above the bottom, the web ends at 10. Q of the web is
  // 40·(centroid − 5), over 4; at the centroid the flange is 100 wide.
  const auto stub = properties_of(Shape::tee, {30, 100, 4, 20});
  expect_close(stub.qyb, 40 * (40200.0 / 2040 - 5) / 4);
}

TEST(Tee, ShearsAlongYLikeItsFlange) {
  expect_close(tee.qzb, square(80) / 8);
}

TEST(Tee, HasStressPointsAtTheFlangeTipsAndTheWebsFoot) {
  EXPECT_EQ(tee.point_y, (std::array{-40.0, 40.0, 3.0, -3.0}));
  expect_close(tee.point_z[0], 100 - centroid);
  expect_close(tee.point_z[3], -centroid);
}

TEST(Tee, WithoutOutstandsIsARectangle) {
  const auto rectangle = properties_of(Shape::tee, {100, 30, 30, 10});
  expect_close(rectangle.iyy, 30 * cube(100) / 12);
  expect_close(rectangle.qyb / rectangle.iyy, 1.5 / rectangle.area);
}

}  // namespace
}  // namespace aluframe::section
