// Where area loads come to elements, by hand.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

#include "tests/unit/aluframe/area_loads/flat_frame.h"

namespace aluframe::area_loads {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// "1: 0 to 1, 500 to 500" of the widths that follow from 1 N/mm² downwards.
std::vector<std::string> told(const model::Model& model, const model::AreaLoad& load) {
  std::vector<std::string> out;
  for (const model::SpanLoad& span : loads_of(model, load)) {
    const auto rounded = [](double value) {
      std::ostringstream text;
      text << std::round(value * 1e6) / 1e6 + 0.0;
      return text.str();
    };
    out.push_back(std::to_string(span.elements.numbers.at(0)) + ": " + rounded(span.from) + " to " +
                  rounded(span.to) + ", " + rounded(-span.from_value) + " to " +
                  rounded(-span.to_value));
  }
  return out;
}

/// Beams along X at Y = 0, 1 and 3 m, 4 m long, between four corners of a region of 4 m by 3 m.
model::Model three_beams() {
  return frame_of(
      {{0, 0, 0}, {4000, 0, 0}, {4000, 3000, 0}, {0, 3000, 0}, {0, 1000, 0}, {4000, 1000, 0}},
      {{1, 2}, {5, 6}, {4, 3}});
}

TEST(OneWay, GivesInnerBeamsHalfOfBothSides) {
  EXPECT_THAT(
      told(three_beams(), load_on({1, 2, 3, 4})),
      ElementsAre("1: 0 to 1, 500 to 500", "2: 0 to 1, 1500 to 1500", "3: 0 to 1, 1000 to 1000"));
}

TEST(OneWay, UsesTheNamedElementsAlone) {
  model::AreaLoad load = load_on({1, 2, 3, 4});
  load.elements = {.all = false, .numbers = {3, 1}};
  EXPECT_THAT(told(three_beams(), load),
              ElementsAre("1: 0 to 1, 1500 to 1500", "3: 0 to 1, 1500 to 1500"));
}

TEST(OneWay, LoadsOnlyThePartsWithinTheRegion) {
  model::AreaLoad load = load_on({});
  load.region.points = {{1000, 0, 0}, {3000, 0, 0}, {3000, 1000, 0}, {1000, 1000, 0}};
  EXPECT_THAT(told(three_beams(), load),
              ElementsAre("1: 0.25 to 0.75, 500 to 500", "2: 0.25 to 0.75, 500 to 500"));
}

TEST(OneWay, StripsOfARegionWithANotchEndThere) {
  // From Y = 0 to 3 m, but for X from 2 to 4 m from Y = 1 to 3 m.
  model::AreaLoad load = load_on({});
  load.region.points = {{0, 0, 0},       {2000, 0, 0},    {2000, 1000, 0},
                        {4000, 1000, 0}, {4000, 3000, 0}, {0, 3000, 0}};
  EXPECT_THAT(told(three_beams(), load),
              ElementsAre("1: 0 to 0.5, 500 to 500", "2: 0 to 0.5, 1500 to 1500",
                          "2: 0.5 to 1, 1000 to 1000", "3: 0 to 1, 1000 to 1000"));
}

TEST(OneWay, BeamsOnOneLineShare) {
  model::Model model =
      frame_of({{0, 0, 0}, {4000, 0, 0}, {4000, 3000, 0}, {0, 3000, 0}}, {{1, 2}, {2, 1}, {4, 3}});
  EXPECT_THAT(
      told(model, load_on({1, 2, 3, 4})),
      ElementsAre("1: 0 to 1, 750 to 750", "2: 0 to 1, 750 to 750", "3: 0 to 1, 1500 to 1500"));
}

TEST(OneWay, ATaperingOverhangKeepsTheMomentsOfItsStretch) {
  // Beams at Y = 1 and 3 m; the surface begins at Y = 1 m at the left and 0 at the right, so that
  // its overhang of 0 to 1 m turns ∫a²/2 dX = 4/6 m³ over the span of 2 m.
  model::Model model =
      frame_of({{0, 1000, 0}, {4000, 0, 0}, {4000, 3000, 0}, {0, 3000, 0}, {4000, 1000, 0}},
               {{1, 5}, {4, 3}});
  const auto loads = loads_of(model, load_on({1, 2, 3, 4}));
  const Sum sum = sum_of(model, loads);
  // (2 + 3)/2·4 m² of 1 N/mm²; about the beam at Y = 1 m: 8 m²·1 m less 4/6 m³.
  EXPECT_NEAR(sum.force[2], -10e6, 1e-5);
  EXPECT_NEAR(sum.moment[0] - 1000.0 * sum.force[2], -(8.0 - 4.0 / 6.0) * 1e9, 1e-2);
}

/// Resultant of the loads on one element, N.
double force_on(model::Number element, const model::Model& model,
                const std::vector<model::SpanLoad>& loads) {
  std::vector<model::SpanLoad> own;
  for (const model::SpanLoad& load : loads) {
    if (load.elements.numbers == std::vector{element}) own.push_back(load);
  }
  return sum_of(model, own).force[2];
}

// Two beams at Y = 0 and L = 1 to 3 m and a third, 6 m away, with an overhang of a = 1 m before the
// first: of every strip it takes a + L/2 + a²/(2·L), so 1·4 + 8/2 + ln 3 m² (dx = 2·dL) of 1 N/mm².
TEST(OneWay, ReliefByAnOverhangFollowsTheSpan) {
  model::Model model = frame_of({{0, -1000, 0},
                                 {4000, -1000, 0},
                                 {4000, 9000, 0},
                                 {0, 7000, 0},
                                 {0, 0, 0},
                                 {4000, 0, 0},
                                 {0, 1000, 0},
                                 {4000, 3000, 0}},
                                {{5, 6}, {7, 8}, {4, 3}});
  const auto loads = loads_of(model, load_on({1, 2, 3, 4}));
  EXPECT_NEAR(force_on(1, model, loads), -(4.0 + 4.0 + std::log(3.0)) * 1e6, 4e3);
}

// Beams from the left edge that meet, or cross, while the surface goes on beyond them.
TEST(OneWay, ElementsThatMeetBesideAnOverhangAreRefused) {
  for (const double end : {1500.01, 1400.0}) {
    const model::Model model = frame_of({{0, 0, 0},
                                         {3500, 0, 0},
                                         {3500, 3000, 0},
                                         {0, 3000, 0},
                                         {0, 1000, 0},
                                         {3500, 1500, 0},
                                         {0, 2000, 0},
                                         {3500, end, 0}},
                                        {{5, 6}, {7, 8}});
    const auto loads = line_loads(model, load_on({1, 2, 3, 4}));
    ASSERT_TRUE(std::holds_alternative<Fault>(loads)) << end;
    EXPECT_THAT(std::get<Fault>(loads).text, testing::HasSubstr("mm hang over the element at X "))
        << end;
  }
}

TEST(OneWay, ACornerNextToANodeStandsThere) {
  model::AreaLoad load = load_on({});
  load.region.points = {{0.4, 0, 0}, {4000, -0.3, 0}, {4000, 3000, 0}, {0, 3000.2, 0}};
  EXPECT_THAT(
      told(three_beams(), load),
      ElementsAre("1: 0 to 1, 500 to 500", "2: 0 to 1, 1500 to 1500", "3: 0 to 1, 1000 to 1000"));
}

TEST(OneWay, AnElementThatEndsShortOfTheEdgeCarriesThatToo) {
  model::Model model = frame_of(
      {{0, 0, 0}, {4000, 0, 0}, {4000, 3000, 0}, {0, 3000, 0}, {0.5, 1000, 0}, {4000, 1000, 0}},
      {{5, 6}, {4, 3}});
  const Sum sum = sum_of(model, loads_of(model, load_on({1, 2, 3, 4})));
  EXPECT_NEAR(sum.force[2], -12e6, 1e-5);
}

TEST(OneWay, TakesASpanOfAnyLength) {
  for (const double length : {1e-320, 1e-3, 1e30}) {
    model::AreaLoad load = load_on({1, 2, 3, 4});
    load.span = Vector{0.0, length, 0.0};
    EXPECT_EQ(told(three_beams(), load), told(three_beams(), load_on({1, 2, 3, 4}))) << length;
  }
}

TEST(TwoWays, KeepTheirForceOnSurfacesOfAnySize) {
  for (const double size : {1.0, 1e9, 1e30}) {
    const model::Model model = frame_of({{0, 0, 0}, {size, 0, 0}, {size, size, 0}, {0, size, 0}},
                                        {{1, 2}, {2, 3}, {3, 4}, {4, 1}});
    const Sum sum = sum_of(model, loads_of(model, load_on({1, 2, 3, 4}, true)));
    EXPECT_NEAR(sum.force[2] / size / size, -1.0, 1e-12) << size;
  }
}

TEST(OneWay, TheOrderOfTheCornersTurnsTheNormal) {
  model::AreaLoad load = load_on({1, 2, 3, 4});
  load.direction.reset();
  load.pressure = 1.0;
  EXPECT_NEAR(sum_of(three_beams(), loads_of(three_beams(), load)).force[2], 12e6, 1e-5);
  std::ranges::reverse(load.region.nodes);
  EXPECT_NEAR(sum_of(three_beams(), loads_of(three_beams(), load)).force[2], -12e6, 1e-5);
}

/// A bay of 4 m by 2 m.
model::Model bay() {
  return frame_of({{0, 0, 0}, {4000, 0, 0}, {4000, 2000, 0}, {0, 2000, 0}},
                  {{1, 2}, {2, 3}, {3, 4}, {4, 1}});
}

TEST(TwoWays, GiveTrianglesAndTrapezoids) {
  EXPECT_THAT(
      told(bay(), load_on({1, 2, 3, 4}, true)),
      ElementsAre("1: 0 to 0.25, 0 to 1000", "1: 0.25 to 0.75, 1000 to 1000",
                  "1: 0.75 to 1, 1000 to 0", "2: 0 to 0.5, 0 to 1000", "2: 0.5 to 1, 1000 to 0",
                  "3: 0 to 0.25, 0 to 1000", "3: 0.25 to 0.75, 1000 to 1000",
                  "3: 0.75 to 1, 1000 to 0", "4: 0 to 0.5, 0 to 1000", "4: 0.5 to 1, 1000 to 0"));
}

TEST(TwoWays, OnElementsAreThoseOnTheirRegion) {
  model::AreaLoad load = load_on({}, true);
  load.elements = {.all = true, .numbers = {}};
  EXPECT_EQ(told(bay(), load), told(bay(), load_on({1, 2, 3, 4}, true)));
}

TEST(TwoWays, ElementsOnOneLineShare) {
  model::Model model = frame_of({{0, 0, 0}, {4000, 0, 0}, {4000, 2000, 0}, {0, 2000, 0}},
                                {{1, 2}, {2, 1}, {2, 3}, {3, 4}, {4, 1}});
  const auto loads = told(model, load_on({1, 2, 3, 4}, true));
  EXPECT_THAT(loads, testing::Contains("1: 0.25 to 0.75, 500 to 500"));
  EXPECT_THAT(loads, testing::Contains("2: 0.25 to 0.75, 500 to 500"));
  EXPECT_THAT(loads, testing::Contains("4: 0.25 to 0.75, 1000 to 1000"));
}

TEST(TwoWays, OfATriangleMeetAtItsIncentre) {
  // 3-4-5: the radius of the inscribed circle is (3 + 4 - 5)/2 = 1 m.
  model::Model model = frame_of({{0, 0, 0}, {4000, 0, 0}, {0, 3000, 0}}, {{1, 2}, {2, 3}, {3, 1}});
  EXPECT_THAT(told(model, load_on({1, 2, 3}, true)),
              ElementsAre("1: 0 to 0.25, 0 to 1000", "1: 0.25 to 1, 1000 to 0",
                          "2: 0 to 0.6, 0 to 1000", "2: 0.6 to 1, 1000 to 0",
                          "3: 0 to 0.666667, 0 to 1000", "3: 0.666667 to 1, 1000 to 0"));
}

TEST(TwoWays, PassOverElementsThatEnclosesNothing) {
  model::Model model = frame_of(
      {{0, 0, 0}, {4000, 0, 0}, {4000, 2000, 0}, {0, 2000, 0}, {2000, 0, 0}, {2000, 800, 0}},
      {{1, 2}, {2, 3}, {3, 4}, {4, 1}, {5, 6}});
  EXPECT_EQ(told(model, load_on({1, 2, 3, 4}, true)), told(bay(), load_on({1, 2, 3, 4}, true)));
}

TEST(TwoWays, CutPanelsWhereElementsMeetWithoutANode) {
  // A beam across the middle, which ends on the edge beams between their nodes.
  model::Model model = frame_of(
      {{0, 0, 0}, {4000, 0, 0}, {4000, 2000, 0}, {0, 2000, 0}, {2000, 0, 0}, {2000, 2000, 0}},
      {{1, 2}, {2, 3}, {3, 4}, {4, 1}, {5, 6}});
  EXPECT_THAT(told(model, load_on({1, 2, 3, 4}, true)),
              testing::Contains("5: 0 to 0.5, 0 to 2000"));
  EXPECT_THAT(told(model, load_on({1, 2, 3, 4}, true)),
              testing::Contains("1: 0.25 to 0.5, 1000 to 0"));
}

TEST(BySpacing, AppliesThePressureTimesTheSpacing) {
  model::AreaLoad load = load_on({}, true);
  load.elements = {.all = false, .numbers = {2}};
  load.spacing = 1200.0;
  EXPECT_THAT(told(bay(), load), ElementsAre("2: 0 to 1, 1200 to 1200"));
}

TEST(BySpacing, CountsTheAreaAsItIsSeen) {
  // 4 m along X and 3 m up: 4 m of 5 are seen along Z.
  model::Model model = frame_of({{0, 0, 0}, {4000, 0, 3000}}, {{1, 2}});
  model::AreaLoad load = load_on({}, true);
  load.spacing = 2000.0;
  load.direction = model::LoadDirection{model::LoadAxes::projected, 2};
  const auto distributed = distribute(model, load);
  EXPECT_DOUBLE_EQ(std::get<Distribution>(distributed).area, 8e6);
}

TEST(WidthsAddedUp, AreOneWhereTheyContinue) {
  const auto sum = added_up({{0, 0.5, 1.0, 200, 300}, {0, 0.0, 0.5, 100, 200}});
  ASSERT_THAT(sum, SizeIs(1));
  EXPECT_EQ(sum[0].from, 0.0);
  EXPECT_EQ(sum[0].to, 1.0);
  EXPECT_EQ(sum[0].to_width, 300.0);
}

TEST(WidthsAddedUp, AreCutWhereOneBegins) {
  const auto sum = added_up({{3, 0.0, 1.0, 100, 100}, {3, 0.25, 0.75, 10, 30}});
  ASSERT_THAT(sum, SizeIs(3));
  EXPECT_EQ(sum[1].from, 0.25);
  EXPECT_EQ(sum[1].from_width, 110.0);
  EXPECT_EQ(sum[1].to_width, 130.0);
  EXPECT_EQ(sum[2].from_width, 100.0);
}

TEST(WidthsAddedUp, AreNoneWhereTheyCancel) {
  EXPECT_THAT(added_up({{0, 0.0, 1.0, 5, 5}, {0, 0.0, 1.0, -5, -5}}), IsEmpty());
}

}  // namespace
}  // namespace aluframe::area_loads
