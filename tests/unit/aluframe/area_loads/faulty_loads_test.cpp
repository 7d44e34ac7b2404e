// Area loads that cannot be distributed: each with the field that is wrong and what is allowed.
#include "tests/unit/aluframe/area_loads/flat_frame.h"

namespace aluframe::area_loads {
namespace {

/// A bay of 4 m by 3 m with its four edges, a beam off its plane and one beside it.
///
///     4 ---3--- 3
///     4         2     (elements 1 to 4 round; 5 from node 5 to 6, 6 m up; 6 from node 7 to 8,
///     1 ---1--- 2      10 m away in the plane)
model::Model bay() {
  return frame_of({{0, 0, 0},
                   {4000, 0, 0},
                   {4000, 3000, 0},
                   {0, 3000, 0},
                   {0, 0, 6000},
                   {4000, 0, 6000},
                   {10000, 0, 0},
                   {10000, 3000, 0}},
                  {{1, 2}, {2, 3}, {3, 4}, {4, 1}, {5, 6}, {7, 8}});
}

model::AreaLoad on_points(std::vector<Vector> points) {
  model::AreaLoad load = load_on({});
  load.region.points = std::move(points);
  return load;
}

model::AreaLoad on_elements(std::vector<model::Number> elements, bool is_two_way = false) {
  model::AreaLoad load = load_on({}, is_two_way);
  load.elements = {.all = false, .numbers = std::move(elements)};
  return load;
}

TEST(AnAreaLoad, OnARegionWithoutElementsIsRefused) {
  EXPECT_EQ(fault_of(bay(), on_points({{50000, 0, 0}, {51000, 0, 0}, {51000, 900, 0}})),
            "/region: no element carries it: none lies in its plane and within its corners");
}

TEST(AnAreaLoad, WithACornerOutOfThePlaneNamesIt) {
  EXPECT_EQ(fault_of(bay(), on_points({{0, 0, 0}, {4000, 0, 0}, {4000, 3000, 0}, {0, 3000, 40}})),
            "/region/points/3: stands 40 mm outside of the plane of the corners before it, must be "
            "within 4 mm; divide the region");
}

TEST(AnAreaLoad, OnACrossedRegionNamesTheEdges) {
  EXPECT_EQ(fault_of(bay(), load_on({1, 2, 4, 3})),
            "/region: crosses or touches itself: its edges from corner to corner 2-3 and 4-1 meet");
}

TEST(AnAreaLoad, OnARegionThatTouchesItselfIsRefused) {
  EXPECT_EQ(fault_of(bay(), on_points({{0, 0, 0}, {4000, 0, 0}, {4000, 3000, 0}, {2000, 0, 0}})),
            "/region: crosses or touches itself: its edges from corner to corner 1-2 and 3-4 meet");
}

TEST(AnAreaLoad, OnARegionThatRunsBackIsRefused) {
  EXPECT_EQ(fault_of(bay(), on_points({{0, 0, 0}, {4000, 0, 0}, {2000, 0, 0}, {2000, 3000, 0}})),
            "/region: crosses or touches itself: its edges from corner to corner 1-2 and 2-3 meet");
}

TEST(AnAreaLoad, OnARegionWithoutAreaIsRefused) {
  EXPECT_EQ(fault_of(bay(), on_points({{0, 0, 0}, {1000, 0, 0}, {4000, 0, 0}})),
            "/region: has no area: all corners stand on one line");
}

TEST(AnAreaLoad, WithACornerTwiceNamesTheSecond) {
  EXPECT_EQ(fault_of(bay(), load_on({1, 2, 2, 3})),
            "/region/nodes/2: stands where the corner before it stands");
  EXPECT_EQ(fault_of(bay(), load_on({1, 2, 3, 1})),
            "/region/nodes/0: stands where the corner before it stands");
}

TEST(AnAreaLoad, NamesTheElementOutsideOfItsRegion) {
  model::AreaLoad load = load_on({1, 2, 3, 4});
  load.elements = {.all = false, .numbers = {1, 3, 6}};
  EXPECT_EQ(fault_of(bay(), load), "/elements/2: element 6 is outside of the region");
}

TEST(AnAreaLoad, NamesTheElementOutOfItsPlane) {
  model::AreaLoad load = load_on({1, 2, 3, 4});
  load.elements = {.all = false, .numbers = {5, 1}};
  EXPECT_EQ(
      fault_of(bay(), load),
      "/elements/0: element 5 leaves the plane of the load by 6000 mm, must stay within 4 mm");
  EXPECT_EQ(
      fault_of(bay(), on_elements({1, 2, 3, 4, 5})),
      "/elements/4: element 5 leaves the plane of the load by 6000 mm, must stay within 6 mm");
}

TEST(AnAreaLoad, WhoseStripsHaveOneElementSaysWhere) {
  model::AreaLoad load = load_on({1, 2, 3, 4});
  load.elements = {.all = false, .numbers = {1}};
  EXPECT_EQ(fault_of(bay(), load),
            ": one element alone carries the strip at X 2000, Y 1500, Z 0 mm; strips along "
            "\"span\" need at least two");
}

TEST(AnAreaLoad, WhoseElementsRunAlongItsSpanHasNothingToCarryIt) {
  model::AreaLoad load = load_on({1, 2, 3, 4});
  load.elements = {.all = false, .numbers = {2, 4}};
  EXPECT_EQ(fault_of(bay(), load),
            ": no element carries the strip at X 2000, Y 1500, Z 0 mm; strips along \"span\" "
            "need at least two");
}

TEST(AnAreaLoad, ThatSpansSquareToItsPlaneIsRefused) {
  model::AreaLoad load = load_on({1, 2, 3, 4});
  load.span = Vector{0, 0, 1};
  EXPECT_EQ(fault_of(bay(), load), "/span: is square to the surface, must run along it");
}

TEST(AnAreaLoad, OfTwoWaysNeedsElementsAlongAllEdges) {
  model::AreaLoad load = load_on({1, 2, 3, 4}, true);
  load.elements = {.all = false, .numbers = {1, 2, 3}};
  EXPECT_EQ(fault_of(bay(), load),
            "/region: two ways need elements along all edges of the region: the panels between "
            "elements are 0 % of its area");
}

TEST(AnAreaLoad, OfTwoWaysOnHalfARegionSaysHowMuchIsEnclosed) {
  model::Model model = frame_of(
      {{0, 0, 0}, {4000, 0, 0}, {4000, 3000, 0}, {0, 3000, 0}, {1000, 0, 0}, {1000, 3000, 0}},
      {{1, 5}, {5, 6}, {6, 4}, {4, 1}, {5, 2}});
  EXPECT_EQ(fault_of(model, load_on({1, 2, 3, 4}, true)),
            "/region: two ways need elements along all edges of the region: the panels between "
            "elements are 25 % of its area");
}

TEST(AnAreaLoad, OfTwoWaysOnAnAngleNamesTheElementsRoundIt) {
  model::Model model = frame_of(
      {{0, 0, 0}, {4000, 0, 0}, {4000, 1000, 0}, {1000, 1000, 0}, {1000, 3000, 0}, {0, 3000, 0}},
      {{1, 2}, {2, 3}, {3, 4}, {4, 5}, {5, 6}, {6, 1}});
  EXPECT_EQ(fault_of(model, load_on({1, 2, 3, 4, 5, 6}, true)),
            "/region: the panel between the elements 1-6 has a corner that points inwards, which "
            "two ways do not share out; divide it or name the direction in which it spans");
  EXPECT_EQ(fault_of(model, load_on({1, 2, 3, 4, 5, 6}, false)), "no fault");
}

TEST(AnAreaLoad, OnElementsThatEncloseNothingIsRefused) {
  EXPECT_EQ(fault_of(bay(), on_elements({1, 2, 3}, true)), "/elements: enclose no panel");
  EXPECT_EQ(fault_of(bay(), on_elements({1}, true)),
            "/elements: enclose no panel: they stand on one line");
}

TEST(AnAreaLoad, OnElementsThatStandAloneWithinAPanelSaysWhere) {
  model::Model model = frame_of({{0, 0, 0},
                                 {9000, 0, 0},
                                 {9000, 9000, 0},
                                 {0, 9000, 0},
                                 {3000, 3000, 0},
                                 {6000, 3000, 0},
                                 {3000, 6000, 0}},
                                {{1, 2}, {2, 3}, {3, 4}, {4, 1}, {5, 6}, {6, 7}, {7, 5}});
  EXPECT_EQ(fault_of(model, on_elements({1, 2, 3, 4, 5, 6, 7}, true)),
            "/elements: the elements at X 3000, Y 3000, Z 0 mm stand within a panel without "
            "reaching its edges");
}

TEST(AnAreaLoad, ProjectedAlongItsPlaneActsOnNothing) {
  model::AreaLoad load = load_on({1, 2, 3, 4});
  load.direction = model::LoadDirection{model::LoadAxes::projected, 0};
  EXPECT_EQ(fault_of(bay(), load),
            "/projected: acts on nothing: the surface is seen from its edge");
}

TEST(AnAreaLoad, OfSnowOnAWallActsOnNothing) {
  // The bay stands upright.
  model::Model model = bay();
  for (const model::Number number : {1U, 2U, 3U, 4U}) {
    model::Node node = *model.nodes.find(number);
    std::swap(node.y, node.z);
    model.nodes.replace(node);
  }
  model::AreaLoad load = load_on({1, 2, 3, 4});
  load.span.reset();
  load.pressure = model::SnowPressure{.s0 = 4e-4, .mu_r = 1.0};
  load.direction = model::LoadDirection{model::LoadAxes::projected, 2};
  EXPECT_EQ(fault_of(model, load), "/snow: acts on nothing: the surface is seen from its edge");
}

TEST(AnAreaLoad, OfASpacingProjectedAlongItsElementsActsOnNothing) {
  model::AreaLoad load = on_elements({1, 3});
  load.span.reset();
  load.spacing = 1000.0;
  load.direction = model::LoadDirection{model::LoadAxes::projected, 0};
  EXPECT_EQ(fault_of(bay(), load),
            "/projected: acts on nothing: all elements of the load lie along its direction");
}

}  // namespace
}  // namespace aluframe::area_loads
