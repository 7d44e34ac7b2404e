#include "aluframe/section/thin_wall.h"

#include "sections.h"

namespace aluframe::section {
namespace {

TEST(ChannelWarping, HasTheShearCentreOfTheLiterature) {
  // Middle lines 8 x 18, t = 1: Ixx = 1782, e = b²h²t/(4·Ixx) = 2.909 behind the web, Cw = 12567.
  const Warping warping = channel_warping({8, 1}, {8, 1}, 18, 1);
  expect_close(warping.shear_centre_y, -2.909, 1e-4);
  EXPECT_EQ(warping.shear_centre_z, 0.0);
  expect_close(warping.constant, 12567, 1e-4);
}

TEST(ChannelWarping, OfAnAngleHasItsShearCentreInTheCorner) {
  // A bottom flange of next to nothing leaves an angle: its plates meet in one point, half of h up.
  const Warping warping = channel_warping({40, 4}, {1e-9, 1e-9}, 60, 4);
  EXPECT_NEAR(warping.shear_centre_y, 0.0, 1e-9);
  expect_close(warping.shear_centre_z, 30, 1e-9);
}

TEST(ISectionWarping, HasTheShearCentreAndConstantOfTheLiterature) {
  // Flanges 200x10 and 100x10, h = 290: 32.222 below the large flange, Cw = 6.2296e10.
  const Warping warping = i_section_warping({200, 10}, {100, 10}, 290);
  expect_close(145 - warping.shear_centre_z, 32.222, 1e-4);
  expect_close(warping.constant, 6.2296e10, 1e-4);
}

TEST(DoubleChannelWarping, WithWebsInOneLineIsThatOfAnISection) {
  // Iw = If·h²/2 with the flange 2·30 wide.
  expect_close(double_channel_warping({30, 5}, 80, 4, 0), 5 * cube(60) / 12 * square(80) / 2);
}

TEST(DoubleChannelWarping, OfChannelsFarApartIsTheirStrongBending) {
  // Two of Iyy on a lever of 1e6: 2·Iyy·a², all else is smaller by more than 1e4.
  const double strong = 4 * cube(80) / 12 + 2 * 30 * 5 * square(40);
  expect_close(double_channel_warping({30, 5}, 80, 4, 2e6), 2 * strong * 1e12, 1e-4);
}

TEST(BredtTorsion, IsThatOfATubeForAnyCell) {
  // Cell 60 x 90, walls 3, 5 and 2: 4·A0²/∮ds/t = 4·5400²/(20 + 12 + 90).
  expect_close(bredt_torsion_constant(
                   {.top = {60, 3}, .bottom = {60, 5}, .c = 60, .h = 90, .web_thickness = 2}),
               4 * square(5400) / (20 + 12 + 90));
}

TEST(BoxShearCentre, LiesMidwayBetweenEqualFlanges) {
  EXPECT_EQ(
      box_shear_centre({.top = {80, 5}, .bottom = {80, 5}, .c = 60, .h = 90, .web_thickness = 2}),
      0.0);
}

TEST(BoxShearCentre, OfABoxThatIsAlmostOpenIsThatOfAChannel) {
  // No bottom wall: a channel with web 60x5 on top and flanges 90x2, e = b²h²t/(4·I) beyond the
  // web, I = 5·60³/12 + 2·90·2·30².
  const double inertia = 5 * cube(60) / 12 + 2 * 90 * 2 * square(30);
  const double e = square(90) * square(60) * 2 / (4 * inertia);
  expect_close(box_shear_centre(
                   {.top = {60, 5}, .bottom = {60, 1e-9}, .c = 60, .h = 90, .web_thickness = 2}),
               45 + e, 1e-8);
}

TEST(BoxShearCentre, TurnsOverWithTheBox) {
  const double centre =
      box_shear_centre({.top = {80, 9}, .bottom = {80, 5}, .c = 60, .h = 90, .web_thickness = 2});
  const double turned =
      box_shear_centre({.top = {80, 5}, .bottom = {80, 9}, .c = 60, .h = 90, .web_thickness = 2});
  EXPECT_GT(centre, 0.0);
  expect_close(turned, -centre);
}

}  // namespace
}  // namespace aluframe::section
