// Remarks on welded sections and on plates that stand by their ribs alone.

#include "remark_frames.h"

namespace aluframe::remarks {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

Frame with_strips(Frame frame, double width) {
  return frame.welded().with(
      1, [width](model::Element& element) { element.design.haz_width = width; });
}

// By hand: flange strips 2·(2·30 + 2·2)·2·0.5 = 128, web strips 4·30·2·0.5 = 120, together 248;
// gross 20² − 16² = 144. Clear 16 mm between the webs, two strips: 8 mm each.
TEST(WideStrips, OfASmallBoxCountMoreThanTheWholeBox) {
  const auto remarks = simple_beam(Shape::box, box_20).welded().remarks("W1");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_THAT(remarks[0].text, HasSubstr("strips of 30 mm where 8 mm fit"));
  EXPECT_THAT(remarks[0].text, HasSubstr("count 248 mm² of 144 mm² gross"));
  EXPECT_NEAR(remarks[0].value.value(), 248.0 / 144.0, 1e-12);  // rounding of the sums
  EXPECT_THAT(remarks[0].elements, ElementsAre(1));
  EXPECT_EQ(remarks[0].section, 1U);
}

TEST(WideStrips, AreNoneOfAnExtrudedSection) {
  EXPECT_THAT(simple_beam(Shape::box, box_20).remarks("W1"), IsEmpty());
}

// Clear widths by hand: box 16 between its webs; H 100 − 8 = 92 of the flange; tee 100 − 6 = 94 of
// the flange; channel 50 − 4 = 46 of an outstand with one strip; double channel 50 − 4 = 46
// likewise.
struct Room {
  Shape shape;
  std::array<double, 8> dimensions;
  double widest;
};

class StripRoom : public testing::TestWithParam<Room> {};

TEST_P(StripRoom, EndsWhereTheStripsMeet) {
  const auto& [shape, dimensions, widest] = GetParam();
  EXPECT_THAT(with_strips(simple_beam(shape, dimensions), widest).remarks("W1"), IsEmpty());
  EXPECT_THAT(with_strips(simple_beam(shape, dimensions), widest + 0.01).remarks("W1"), SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, StripRoom,
    testing::Values(Room{Shape::box, box_20, 8.0}, Room{Shape::h_section, h_200, 46.0},
                    Room{Shape::tee, {100, 100, 6, 8, 0, 0, 0, 0}, 47.0},
                    Room{Shape::channel, {160, 50, 4, 6, 50, 6, 0, 0}, 46.0},
                    Room{Shape::double_channel, {160, 50, 4, 6, 10, 0, 0, 0}, 46.0}));

// Tee 100x100, web 6, flange 8, zone 30, ρhaz 0.5. By hand: the flange counts as 2·(100 − 30 − 6)·8
// + (2·30 + 6)·8·0.5 = 1288, the web as (100 − 8 − 60)·6 + 30·6·0.5 = 282; gross 800 + 552 = 1352.
TEST(AreaAboveGross, IsSaidOfATeeWhoseStripsFit) {
  const auto remarks = simple_beam(Shape::tee, {100, 100, 6, 8, 0, 0, 0, 0}).welded().remarks("W5");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_THAT(remarks[0].text, HasSubstr("1570 mm² of 1352 mm²"));
  EXPECT_NEAR(remarks[0].value.value(), 1570.0 / 1352.0, 1e-12);  // rounding of the sums
}

TEST(AreaAboveGross, IsNotSaidOfAnHWithRoomForItsStrips) {
  EXPECT_THAT(simple_beam().welded().remarks("W5"), IsEmpty());
  EXPECT_THAT(simple_beam().welded().remarks("W1"), IsEmpty());
}

// 6061-T4 loses nothing beside a weld in the table of GB 50429-2007: strips count as they are
// drawn.
TEST(AreaAboveGross, IsNotSaidWhereTheAlloyLosesNothing) {
  EXPECT_THAT(simple_beam(Shape::h_section, h_200, "6061-T4").welded().remarks("W5"), IsEmpty());
}

TEST(WeldsWithoutLoss, AreThoseOfAnotherStandard) {
  Frame frame = simple_beam();
  frame.with_material([](model::Material& material) { material.standard = "EN 1999"; });
  EXPECT_THAT(frame.remarks("F8"), IsEmpty());
  const auto remarks = frame.welded().remarks("F8");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_THAT(remarks[0].text, HasSubstr("\"EN 1999\""));
}

TEST(WeldsWithoutLoss, AreNoneOfTheCodesOwnAlloys) {
  EXPECT_THAT(simple_beam().welded().remarks("F8"), IsEmpty());
}

// Box of 6061-T6, f0.2 = 240: limit of an inner plate 21.5, with ribs 21.5·√1.2 = 23.55. Clear 88
// by 4: 22, between the two; by hand 22/21.5 = 1.023.
TEST(AssumedRibs, AreNamedWhereAPlateStandsByThemAlone) {
  const auto remarks = simple_beam(Shape::box, {96, 96, 4, 4, 92, 4, 0, 0}).remarks("B11");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_NEAR(remarks[0].value.value(), 22.0 / 21.5, 1e-9);  // rounding of the limit
}

// Clear 84 by 4 is 21, below both limits; clear 96 by 4 is 24, above both.
TEST(AssumedRibs, AreNotNamedWhereTheyDecideNothing) {
  EXPECT_THAT(simple_beam(Shape::box, {92, 92, 4, 4, 88, 4, 0, 0}).remarks("B11"), IsEmpty());
  EXPECT_THAT(simple_beam(Shape::box, {104, 104, 4, 4, 100, 4, 0, 0}).remarks("B11"), IsEmpty());
}

TEST(AssumedRibs, AreNotNamedWhereTheModelSaysSoItself) {
  Frame frame = simple_beam(Shape::box, {96, 96, 4, 4, 92, 4, 0, 0});
  Frame with_ribs = frame;
  with_ribs.with(1, [](model::Element& element) {
    element.design.rib = model::ElementDesign::Rib{.stiffened = true, .ratio = 1.2};
  });
  EXPECT_THAT(with_ribs.remarks("B11"), IsEmpty());
  frame.model().design = model::DesignSettings{};
  frame.model().design->rib = false;
  EXPECT_THAT(frame.remarks("B11"), IsEmpty());
}

}  // namespace
}  // namespace aluframe::remarks
