// By hand: the web between the middle lines of the flanges, 5/6 of rectangles, half of a pipe and
// nine tenths of a solid round.
#include "aluframe/section/shear_areas.h"

#include <numbers>

#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

ShearAreas areas_of(Shape shape, std::array<double, 8> dimensions) {
  return shear_areas_of(make_section(shape, dimensions));
}

TEST(ShearAreas, OfAnHSectionAndAChannelAreTheWebAndTheFlanges) {
  for (const Shape shape : {Shape::h_section, Shape::channel}) {
    const ShearAreas areas = areas_of(shape, {200, 100, 8, 10, 60, 14});
    expect_close(areas.z, (200 - 12) * 8);
    expect_close(areas.y, 5.0 / 6 * (100 * 10 + 60 * 14));
  }
}

TEST(ShearAreas, OfATeeAreItsStemInFullDepthAndItsFlange) {
  const ShearAreas areas = areas_of(Shape::tee, {100, 90, 6, 8});
  expect_close(areas.z, 5.0 / 6 * 100 * 6);
  expect_close(areas.y, 5.0 / 6 * 90 * 8);
}

TEST(ShearAreas, OfABoxAreItsWebsAndItsFlangesBetweenThem) {
  const ShearAreas areas = areas_of(Shape::box, {150, 80, 4, 6, 70, 5});
  expect_close(areas.z, 2 * (150 - 5.5) * 4);
  expect_close(areas.y, 70 * (6 + 5));
}

TEST(ShearAreas, OfADoubleChannelAreTwiceThoseOfOne) {
  const ShearAreas areas = areas_of(Shape::double_channel, {120, 50, 5, 7, 10});
  expect_close(areas.z, 2 * (120 - 7) * 5);
  expect_close(areas.y, 2 * 5.0 / 6 * 2 * 50 * 7);
}

TEST(ShearAreas, OfRoundsAreSharesOfTheirArea) {
  const ShearAreas pipe = areas_of(Shape::pipe, {60, 3});
  expect_close(pipe.y, std::numbers::pi / 4 * (60 * 60 - 54 * 54) / 2);
  EXPECT_EQ(pipe.z, pipe.y);
  const ShearAreas round = areas_of(Shape::solid_round, {40});
  expect_close(round.y, 0.9 * std::numbers::pi / 4 * 40 * 40);
  EXPECT_EQ(round.z, round.y);
}

TEST(ShearAreas, OfPropertiesAloneAreRigid) {
  const ShearAreas areas = areas_of(Shape::other, {});
  EXPECT_EQ(areas.y, 0.0);
  EXPECT_EQ(areas.z, 0.0);
}

}  // namespace
}  // namespace aluframe::section
