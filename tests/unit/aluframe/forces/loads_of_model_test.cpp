#include <gtest/gtest.h>

#include "aluframe/forces/frame_of_model.h"
#include "tests/unit/aluframe/forces/models.h"

namespace aluframe::forces {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

/// Three beams in a row, elements 7, 8, 9 at places 0, 1, 2; nodes 4, 3, 2, 1 at places 0 to 3.
model::Model three_beams() {
  model::Model model = bare_model();
  for (const model::Number node : {4U, 3U, 2U, 1U}) add_node(model, node, 4000.0 - node, 0, 0);
  for (const model::Number i : {7U, 8U, 9U}) model.elements.add(beam(i, 11 - i, 10 - i));
  return model;
}

analysis::LoadCase loads_on(const model::Model& model, const model::CaseLoads& loads) {
  model::LoadCase load_case;
  load_case.loads = loads;
  return loads_of(model, load_case);
}

template <class Load>
std::vector<std::size_t> elements_of(const std::vector<Load>& loads) {
  std::vector<std::size_t> places;
  for (const Load& load : loads) places.push_back(load.element);
  return places;
}

TEST(LoadsOfModel, SelfWeightKeepsItsFactorsAlongAllAxes) {
  model::CaseLoads loads;
  loads.self_weight = {0.1, 0.2, -1};
  EXPECT_THAT(loads_on(three_beams(), loads).self_weight, ElementsAre(0.1, 0.2, -1));
}

TEST(LoadsOfModel, NodalLoadActsOnEveryListedNode) {
  model::CaseLoads loads;
  loads.nodal.push_back({{false, {1, 4}}, {1, 2, 3, 4, 5, 6}});
  const auto nodal = loads_on(three_beams(), loads).nodal;
  ASSERT_THAT(nodal, SizeIs(2));
  EXPECT_EQ(nodal[0].node, 3U);
  EXPECT_EQ(nodal[1].node, 0U);
  EXPECT_THAT(nodal[1].value, ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST(LoadsOfModel, NodalLoadOnAllActsOnEveryNode) {
  model::CaseLoads loads;
  loads.nodal.push_back({{true, {}}, {0, 0, -5}});
  EXPECT_THAT(loads_on(three_beams(), loads).nodal, SizeIs(4));
}

TEST(LoadsOfModel, SpanLoadKeepsItsPlacesAndValuesAlongItsAxis) {
  model::CaseLoads loads;
  model::SpanLoad load = uniform({model::LoadAxes::local, 1}, 2.0, {8});
  load.to_value = 6.0;
  load.from = 0.2;
  load.to = 0.7;
  loads.span.push_back(load);
  const auto found = loads_on(three_beams(), loads).distributed;
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found[0].element, 1U);
  EXPECT_EQ(found[0].axes, analysis::LoadAxes::local);
  EXPECT_THAT(found[0].from_value, ElementsAre(0, 2, 0));
  EXPECT_THAT(found[0].to_value, ElementsAre(0, 6, 0));
  EXPECT_EQ(found[0].from, 0.2);
  EXPECT_EQ(found[0].to, 0.7);
}

TEST(LoadsOfModel, SpanLoadOnAllActsOnEveryElement) {
  model::CaseLoads loads;
  loads.span.push_back(uniform(downwards, -1));
  EXPECT_THAT(elements_of(loads_on(three_beams(), loads).distributed), ElementsAre(0, 1, 2));
}

TEST(LoadsOfModel, GlobalAndProjectedSpanLoadsAreToldApart) {
  model::CaseLoads loads;
  loads.span.push_back(uniform(downwards, -1, {7}));
  loads.span.push_back(uniform({model::LoadAxes::projected, 2}, -1, {7}));
  const auto found = loads_on(three_beams(), loads).distributed;
  ASSERT_THAT(found, SizeIs(2));
  EXPECT_EQ(found[0].axes, analysis::LoadAxes::global);
  EXPECT_EQ(found[1].axes, analysis::LoadAxes::projected);
}

TEST(LoadsOfModel, PointLoadIsAForceOrAMoment) {
  model::CaseLoads loads;
  using Kind = model::PointLoad::Kind;
  loads.points.push_back({{false, {9}}, {model::LoadAxes::global, 0}, Kind::force, 500, 0.3});
  loads.points.push_back({{false, {9}}, {model::LoadAxes::local, 2}, Kind::moment, 700, 1.0});
  const auto found = loads_on(three_beams(), loads).points;
  EXPECT_THAT(elements_of(found), ElementsAre(2, 2));
  EXPECT_EQ(found[0].axes, analysis::LoadAxes::global);
  EXPECT_THAT(found[0].force, ElementsAre(500, 0, 0));
  EXPECT_THAT(found[0].moment, ElementsAre(0, 0, 0));
  EXPECT_EQ(found[0].at, 0.3);
  EXPECT_EQ(found[1].axes, analysis::LoadAxes::local);
  EXPECT_THAT(found[1].force, ElementsAre(0, 0, 0));
  EXPECT_THAT(found[1].moment, ElementsAre(0, 0, 700));
  EXPECT_EQ(found[1].at, 1.0);
}

TEST(LoadsOfModel, TemperatureDifferencesActOverTheSizeOfTheSection) {
  // 100 mm between the stress points along y, 240 mm along z.
  model::CaseLoads loads;
  loads.temperature.push_back({{false, {8}}, 30, 10, -20});
  const auto found = loads_on(three_beams(), loads).temperatures;
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found[0].element, 1U);
  EXPECT_EQ(found[0].change, 30.0);
  EXPECT_EQ(found[0].difference_y, 10.0);
  EXPECT_EQ(found[0].depth_y, 100.0);
  EXPECT_EQ(found[0].difference_z, -20.0);
  EXPECT_EQ(found[0].depth_z, 240.0);
}

TEST(LoadsOfModel, SettlementGoesToTheDirectionsThatMove) {
  model::CaseLoads loads;
  loads.settlements.push_back({2, {0, 0, -10, 0.004, 0, 0}});
  const auto found = loads_on(three_beams(), loads).settlements;
  ASSERT_THAT(found, SizeIs(2));
  EXPECT_EQ(found[0].node, 2U);
  EXPECT_EQ(found[0].direction, 2U);
  EXPECT_EQ(found[0].value, -10.0);
  EXPECT_EQ(found[1].direction, 3U);
  EXPECT_EQ(found[1].value, 0.004);
}

TEST(LoadsOfModel, CaseWithoutLoadsHasNone) {
  const analysis::LoadCase found = loads_on(three_beams(), {});
  EXPECT_THAT(found.nodal, SizeIs(0));
  EXPECT_THAT(found.distributed, SizeIs(0));
  EXPECT_THAT(found.points, SizeIs(0));
  EXPECT_THAT(found.temperatures, SizeIs(0));
  EXPECT_THAT(found.settlements, SizeIs(0));
  EXPECT_THAT(found.self_weight, ElementsAre(0, 0, 0));
}

}  // namespace
}  // namespace aluframe::forces
