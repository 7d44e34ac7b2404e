#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

// 2C 100x40x4x6, backs 10 apart: flanges from 5 to 45, webs from 5 to 9 on either side.
const model::SectionProperties pair = properties_of(Shape::double_channel, {100, 40, 4, 6, 10});

TEST(DoubleChannel, HasTwiceTheAreaAndStrongInertiaOfOne) {
  const auto one = properties_of(Shape::channel, {100, 40, 4, 6, 40, 6});
  expect_close(pair.area, 2 * (2 * 240 + 88 * 4));
  expect_close(pair.iyy, 2 * (40 * cube(100) - 36 * cube(88)) / 12);
  expect_close(pair.iyy, 2 * one.iyy);
}

TEST(DoubleChannel, HasTheWeakInertiaOfBothAboutTheCommonAxis) {
  const double flanges = 2 * 6 * (cube(45) - cube(5)) / 3;
  const double web = 88 * (cube(9) - cube(5)) / 3;
  expect_close(pair.izz, 2 * (flanges + web));
}

TEST(DoubleChannel, TwistsLikeTwoSingleChannels) {
  // Flanges of 40 with two free ends, the web between their middle lines.
  const double flange = 40 * cube(6) / 3 - 0.21 * 1296 * (1 - 1296 / (12 * std::pow(40, 4)));
  expect_close(pair.it, 2 * (2 * flange + 94 * cube(4) / 3));
}

TEST(DoubleChannel, WarpsAboutTheCommonAxis) {
  // ∫ω²t ds about the axis, webs' middle lines at 7, flanges 38 long, 94 apart. ω = 7·z in the web;
  // in a flange it runs from 7·47 to (7 − 38)·47, linearly.
  const double web = square(7) * 4 * cube(94) / 12;
  const double flange = square(47) * 6 * (cube(7) + cube(38 - 7)) / 3;
  expect_close(pair.iw, 2 * (web + 2 * flange));
}

TEST(DoubleChannel, HasItsShearCentreInTheCentroid) {
  EXPECT_EQ(pair.shear_centre_z, 0.0);
}

TEST(DoubleChannel, ShearsMostInBothWebsAtTheCentroid) {
  expect_close(pair.qyb, 2 * (240 * 47 + 4 * square(44) / 2) / 8);
}

TEST(DoubleChannel, ShearsAlongYMostWhereTheFlangesBegin) {
  // Flanges from 5 to 45: (45² − 5²)/2.
  expect_close(pair.qzb, (square(45) - square(5)) / 2);
}

TEST(DoubleChannel, HasStressPointsAtTheFlangeTips) {
  EXPECT_EQ(pair.point_y, (std::array{-45.0, 45.0, 45.0, -45.0}));
  EXPECT_EQ(pair.point_z, (std::array{50.0, 50.0, -50.0, -50.0}));
}

TEST(DoubleChannel, WithoutGapIsAnHSectionOfDoubleWebInBending) {
  const auto closed = properties_of(Shape::double_channel, {100, 40, 4, 6, 0});
  const auto h_section = properties_of(Shape::h_section, {100, 80, 8, 6, 80, 6});
  expect_close(closed.area, h_section.area);
  expect_close(closed.iyy, h_section.iyy);
  expect_close(closed.izz, h_section.izz);
  expect_close(closed.qyb, h_section.qyb);
  expect_close(closed.qzb, h_section.qzb);
}

}  // namespace
}  // namespace aluframe::section
