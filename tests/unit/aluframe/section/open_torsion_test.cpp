#include "aluframe/section/open_torsion.h"

#include "sections.h"

namespace aluframe::section {
namespace {

struct Rectangle {
  double sides;     ///< the longer over the shorter
  double constant;  ///< It/(b·t³) of the exact series
};

// Timoshenko and Goodier, Theory of Elasticity, torsion of rectangular bars, factor k1.
constexpr std::array rectangles{
    Rectangle{1.0, 0.1406}, Rectangle{1.2, 0.166}, Rectangle{1.5, 0.196}, Rectangle{2.0, 0.229},
    Rectangle{2.5, 0.249},  Rectangle{3.0, 0.263}, Rectangle{5.0, 0.291}, Rectangle{10.0, 0.312}};

TEST(PlateTorsion, WithFreeEndsIsThatOfTheRectangleEitherWayUp) {
  for (const auto& [sides, constant] : rectangles) {
    // The closed form is good to 0.5 %, the table to its third digit.
    expect_close(plate_torsion_constant(6.0 * sides, 6.0, 2), constant * sides * 1296, 0.005);
    expect_close(plate_torsion_constant(6.0, 6.0 * sides, 2), constant * sides * 1296, 0.005);
  }
}

TEST(PlateTorsion, BetweenJunctionsLosesNothing) {
  expect_close(plate_torsion_constant(90, 6, 0), 90 * 216 / 3.0);
}

TEST(PlateTorsion, OfEachFreeEndLosesTheSame) {
  const auto plate = [](int ends) { return plate_torsion_constant(90, 6, ends); };
  expect_close(plate(0) - plate(1), plate(1) - plate(2), 1e-9);
}

TEST(TeeJunction, AddsTheInscribedCircle) {
  // t = 10, w = 5: D = 10 + 25/40, α = −0.042 + 0.1102 − 0.018125.
  expect_close(tee_junction(10, 5), 0.050075 * std::pow(10.625, 4));
}

TEST(TeeJunction, OfAThinWebAddsNothing) {
  EXPECT_EQ(tee_junction(10, 1), 0.0);
}

TEST(TeeTorsion, DoesNotJumpWhereTheWebGrowsThickerThanTheFlange) {
  const std::array flange{Flange{80, 10}};
  const double below = tee_torsion_constant({60, 10}, flange, 1);
  // But for t⁴/(12·b⁴) of the ends, which then are those of another plate.
  expect_close(tee_torsion_constant({60, 10.0 * (1 + 1e-9)}, flange, 1), below, 1e-5);
}

TEST(TeeTorsion, OfAWebMuchThickerThanTheFlangeIsThatOfTwoRectangles) {
  // A web 100 deep through a flange 60x1: what else the junction adds is below (1/20)⁴.
  const double rectangles_alone =
      plate_torsion_constant(100, 20, 2) + plate_torsion_constant(60, 1, 2);
  expect_close(tee_torsion_constant({99, 20}, std::array{Flange{60, 1}}, 1), rectangles_alone,
               1e-5);
}

TEST(ChannelTorsion, DoesNotJumpWhereTheWebGrowsThickerThanTheFlanges) {
  const Flange flange{50, 8};
  expect_close(channel_torsion_constant({84, 8.0 * (1 + 1e-9)}, flange, flange),
               channel_torsion_constant({84, 8}, flange, flange), 1e-5);
}

}  // namespace
}  // namespace aluframe::section
