#include "aluframe/second_opinion/mirrored.h"

#include "tests/unit/aluframe/second_opinion/elements.h"

namespace aluframe::second_opinion {
namespace {

/// Field by field what geometry says of the section drawn upside down.
void expect_section(const ALU_SECT_DATA& found, const ALU_SECT_DATA& expected) {
  EXPECT_EQ(found.nShape, expected.nShape);
  for (int i = 0; i < 8; ++i) EXPECT_EQ(found.dSize[i], expected.dSize[i]) << "dSize " << i;
  for (int i = 0; i < 4; ++i) {
    EXPECT_NEAR(found.dPtY[i], expected.dPtY[i], 1e-9) << "dPtY " << i;
    EXPECT_NEAR(found.dPtZ[i], expected.dPtZ[i], 1e-9) << "dPtZ " << i;
  }
  EXPECT_NEAR(found.dShearCtr, expected.dShearCtr, 1e-9);
  EXPECT_NEAR(found.dArea, expected.dArea, 1e-9);
  EXPECT_NEAR(found.dIyy, expected.dIyy, 1e-6);
}

ALU_SECT_DATA turned(const ALU_SECT_DATA& section) {
  const auto found = mirrored(element_of(section, ALU_MEMBER_BEAM, 4000.0));
  EXPECT_TRUE(found.has_value());
  return found->code.sect;
}

TEST(Mirrored, AnUnequalHIsTheOneDrawnUpsideDown) {
  expect_section(turned(section_of(model::Shape::h_section, {200, 120, 8, 10, 60, 14})),
                 section_of(model::Shape::h_section, {200, 60, 8, 14, 120, 10}));
}

TEST(Mirrored, AnUnequalChannelIsTheOneDrawnUpsideDown) {
  expect_section(turned(section_of(model::Shape::channel, {100, 50, 5, 6, 30, 8})),
                 section_of(model::Shape::channel, {100, 30, 5, 8, 50, 6}));
}

TEST(Mirrored, ABoxKeepsItsWidths) {
  expect_section(turned(section_of(model::Shape::box, {100, 60, 4, 8, 50, 5})),
                 section_of(model::Shape::box, {100, 60, 4, 5, 50, 8}));
}

TEST(Mirrored, TwiceIsTheSameSection) {
  const ALU_SECT_DATA section = section_of(model::Shape::h_section, {200, 120, 8, 10, 60, 14});
  expect_section(turned(turned(section)), section);
}

TEST(Mirrored, ATeeStandsOnItsFlangeAsAnH) {
  const ALU_SECT_DATA found = turned(tee().code.sect);
  EXPECT_EQ(found.nShape, ALU_SHAPE_H);
  // H, web, top flange as wide as the web, bottom flange of the tee.
  const double expected[] = {100, 6, 6, 8, 100, 8, 0, 0};
  for (int i = 0; i < 8; ++i) EXPECT_EQ(found.dSize[i], expected[i]) << "dSize " << i;
  // By hand: 24.414 from the flange's face to the centroid, 4 less to the shear centre.
  EXPECT_NEAR(found.dPtZ[0], 75.586, 1e-3);
  EXPECT_NEAR(found.dPtZ[2], -24.414, 1e-3);
  EXPECT_NEAR(found.dShearCtr, -20.414, 1e-3);
}

TEST(Mirrored, AWeldedTeeHasNoSuchForm) {
  EXPECT_FALSE(mirrored(welded(tee())).has_value());
}

}  // namespace
}  // namespace aluframe::second_opinion
