// Loads of a load case: every field, what is assumed without it, and its units. Expected values are
// converted by hand.
#include "tests/unit/aluframe/io/case_loads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace aluframe::io {
namespace {

using model::LoadAxes;
using testing::ElementsAre;
using testing::IsEmpty;

/// Roundings of the conversion factor, here and in the code: two each, of half a unit.
constexpr double relative = 4.5e-16;

model::NodalLoad nodal_load(const std::string& json) {
  const auto loads = loads_of(with_loads_in_kilonewtons("\"nodal\": [" + json + ']')).nodal;
  return loads.size() == 1 ? loads[0] : model::NodalLoad{};
}

model::SpanLoad span_load(const std::string& json) {
  const auto loads = loads_of(with_loads_in_kilonewtons("\"span\": [" + json + ']')).span;
  return loads.size() == 1 ? loads[0] : model::SpanLoad{};
}

model::PointLoad point_load(const std::string& json) {
  const auto loads = loads_of(with_loads_in_kilonewtons("\"points\": [" + json + ']')).points;
  return loads.size() == 1 ? loads[0] : model::PointLoad{};
}

model::TemperatureLoad temperature_load(const std::string& json) {
  const auto loads = loads_of(with_loads("\"temperature\": [" + json + ']')).temperature;
  return loads.size() == 1 ? loads[0] : model::TemperatureLoad{};
}

TEST(CaseLoads, AreNoneWhenTheFileHasNone) {
  EXPECT_EQ(model_of(small_model).load_cases[1].loads, model::CaseLoads{});
}

TEST(CaseLoads, MayBeEmptyLists) {
  EXPECT_EQ(loads_of(with_loads(R"("nodal": [], "span": [], "points": [], "temperature": [],
                                   "settlements": [])")),
            model::CaseLoads{});
}

TEST(CaseLoads, StayWithTheirCase) {
  const model::Model model = model_of(with_loads(R"("self_weight": 1)"));
  EXPECT_THAT(model.load_cases[0].loads.self_weight, ElementsAre(0, 0, 0));
  EXPECT_THAT(model.load_cases[1].loads.self_weight, ElementsAre(0, 0, -1));
}

TEST(CaseLoads, StandBesideGivenForces) {
  const model::Model model = model_of(replaced(small_model, R"({"number": 1, "name": "DL"})",
                                               R"({"number": 1, "name": "DL", "self_weight": 1})"));
  EXPECT_THAT(model.load_cases[0].loads.self_weight, ElementsAre(0, 0, -1));
  EXPECT_NE(model.forces.find(0, 0), nullptr);
}

TEST(CaseLoads, AreKeptInTheOrderOfTheFile) {
  const auto loads = loads_of(with_loads(R"("nodal": [{"nodes": [3], "Fx": 1},
                                            {"nodes": [2], "Fx": 2}])"));
  ASSERT_EQ(loads.nodal.size(), 2U);
  EXPECT_THAT(loads.nodal[0].nodes.numbers, ElementsAre(3));
  EXPECT_THAT(loads.nodal[1].nodes.numbers, ElementsAre(2));
}

TEST(SelfWeight, FactorActsDownwards) {
  EXPECT_THAT(loads_of(with_loads(R"("self_weight": 1.35)")).self_weight, ElementsAre(0, 0, -1.35));
}

TEST(SelfWeight, NegativeFactorActsUpwards) {
  EXPECT_THAT(loads_of(with_loads(R"("self_weight": -0.1)")).self_weight, ElementsAre(0, 0, 0.1));
}

TEST(SelfWeight, FactorsActAlongTheGlobalAxes) {
  EXPECT_THAT(loads_of(with_loads(R"("self_weight": {"X": 0.1, "Y": -0.2, "Z": -1})")).self_weight,
              ElementsAre(0.1, -0.2, -1));
}

TEST(SelfWeight, AxisWithoutFactorHasNone) {
  EXPECT_THAT(loads_of(with_loads(R"("self_weight": {"Y": 0.1})")).self_weight,
              ElementsAre(0, 0.1, 0));
}

TEST(SelfWeight, FactorHasNoUnit) {
  EXPECT_THAT(loads_of(with_loads_in_kilonewtons(R"("self_weight": 2)")).self_weight,
              ElementsAre(0, 0, -2));
}

TEST(NodalLoads, HaveForcesInNewtonsAndMomentsInNewtonMillimetres) {
  const auto load =
      nodal_load(R"({"nodes": [3, 4], "Fx": 1, "Fy": -2, "Fz": 3, "Mx": 4, "My": -5, "Mz": 6})");
  EXPECT_THAT(load.nodes.numbers, ElementsAre(3, 4));
  EXPECT_THAT(load.components, ElementsAre(1e3, -2e3, 3e3, 4e6, -5e6, 6e6));
}

TEST(NodalLoads, AreZeroInComponentsThatAreNotGiven) {
  EXPECT_THAT(nodal_load(R"({"nodes": [2], "Fz": -1})").components,
              ElementsAre(0, 0, -1e3, 0, 0, 0));
}

TEST(NodalLoads, MayActOnAllNodes) {
  const auto load = nodal_load(R"({"nodes": "all", "Fz": -1})");
  EXPECT_TRUE(load.nodes.all);
  EXPECT_THAT(load.nodes.numbers, IsEmpty());
}

TEST(SpanLoads, AreUniformOverTheWholeLengthByDefault) {
  const auto load = span_load(R"({"elements": [1, 2], "direction": "Z", "value": -1.2})");
  EXPECT_FALSE(load.elements.all);
  EXPECT_THAT(load.elements.numbers, ElementsAre(1, 2));
  EXPECT_EQ(load.from_value, -1.2);  // 1 kN/m = 1 N/mm
  EXPECT_EQ(load.to_value, -1.2);
  EXPECT_EQ(load.from, 0.0);
  EXPECT_EQ(load.to, 1.0);
}

TEST(SpanLoads, MayVaryBetweenTwoPlaces) {
  const auto load = span_load(
      R"({"elements": [3], "direction": "y", "values": [0, 2.5], "from": 0.25, "to": 0.75})");
  EXPECT_EQ(load.from_value, 0.0);
  EXPECT_EQ(load.to_value, 2.5);
  EXPECT_EQ(load.from, 0.25);
  EXPECT_EQ(load.to, 0.75);
}

TEST(SpanLoads, MayBeUniformOverAPartOfTheLength) {
  const auto load = span_load(R"({"elements": [3], "direction": "y", "value": 2, "from": 0.5})");
  EXPECT_EQ(load.from_value, 2.0);
  EXPECT_EQ(load.to_value, 2.0);
  EXPECT_EQ(load.from, 0.5);
  EXPECT_EQ(load.to, 1.0);
}

TEST(SpanLoads, MayActOnAllElements) {
  const auto load = span_load(R"({"elements": "all", "direction": "z", "value": 1})");
  EXPECT_TRUE(load.elements.all);
  EXPECT_THAT(load.elements.numbers, IsEmpty());
}

TEST(SpanLoads, AreProjectedWhenTheFileSaysSo) {
  const auto load =
      span_load(R"({"elements": [1], "direction": "X", "value": 1, "projected": true})");
  EXPECT_EQ(load.direction, (model::LoadDirection{LoadAxes::projected, 0}));
}

TEST(SpanLoads, MayBeProjectedOntoAllWhenOneElementAtLeastIsSeen) {
  // Elements 2 and 3 stay upright: snow falls past them.
  const std::string text = with_loads(
      R"("span": [{"elements": "all", "direction": "Z", "projected": true, "value": 1}])");
  const model::CaseLoads loads =
      loads_of(replaced(text, R"("number": 1, "x": 0)", R"("number": 1, "x": 9)"));
  ASSERT_EQ(loads.span.size(), 1U);
  EXPECT_TRUE(loads.span[0].elements.all);
}

TEST(SpanLoads, AreNotProjectedWhenTheFileSaysSo) {
  const auto load =
      span_load(R"({"elements": [1], "direction": "x", "value": 1, "projected": false})");
  EXPECT_EQ(load.direction, (model::LoadDirection{LoadAxes::local, 0}));
}

TEST(SpanLoads, MayActAcrossATruss) {
  const auto loads =
      loads_of(replaced(with_loads(R"("span": [{"elements": [1], "direction": "z", "value": 1}])"),
                        R"("nodes": [1, 2])", R"("nodes": [1, 2], "kind": "truss")"));
  EXPECT_EQ(loads.span.size(), 1U);
}

struct NamedDirection {
  const char* name;
  model::LoadDirection direction;
};

class DirectionOfALoad : public testing::TestWithParam<NamedDirection> {};

TEST_P(DirectionOfALoad, IsReadByName) {
  const auto& [name, direction] = GetParam();
  const std::string field = std::string(R"("direction": ")") + name + '"';
  EXPECT_EQ(span_load(R"({"elements": [1], "value": 1, )" + field + '}').direction, direction);
  EXPECT_EQ(point_load(R"({"elements": [1], "at": 1, "force": 1, )" + field + '}').direction,
            direction);
}

INSTANTIATE_TEST_SUITE_P(All, DirectionOfALoad,
                         testing::Values(NamedDirection{"x", {LoadAxes::local, 0}},
                                         NamedDirection{"y", {LoadAxes::local, 1}},
                                         NamedDirection{"z", {LoadAxes::local, 2}},
                                         NamedDirection{"X", {LoadAxes::global, 0}},
                                         NamedDirection{"Y", {LoadAxes::global, 1}},
                                         NamedDirection{"Z", {LoadAxes::global, 2}}),
                         [](const auto& test) {
                           const bool local = test.param.direction.axes == LoadAxes::local;
                           return (local ? "local_" : "global_") + std::string(test.param.name);
                         });

TEST(PointLoads, MayBeForces) {
  const auto load =
      point_load(R"({"elements": [1, 3], "direction": "Z", "at": 0.5, "force": -10})");
  EXPECT_THAT(load.elements.numbers, ElementsAre(1, 3));
  EXPECT_EQ(load.kind, model::PointLoad::Kind::force);
  EXPECT_EQ(load.at, 0.5);
  EXPECT_EQ(load.value, -10e3);
}

TEST(PointLoads, MayBeMoments) {
  const auto load = point_load(R"({"elements": "all", "direction": "y", "at": 0, "moment": 3})");
  EXPECT_TRUE(load.elements.all);
  EXPECT_EQ(load.kind, model::PointLoad::Kind::moment);
  EXPECT_EQ(load.at, 0.0);
  EXPECT_EQ(load.value, 3e6);
}

TEST(PointLoads, OfForceMayActOnATruss) {
  const auto loads = loads_of(replaced(
      with_loads(R"("points": [{"elements": [1], "direction": "z", "at": 0.5, "force": 1}])"),
      R"("nodes": [1, 2])", R"("nodes": [1, 2], "kind": "truss")"));
  EXPECT_EQ(loads.points.size(), 1U);
}

TEST(TemperatureLoads, HaveAChangeAndDifferencesInKelvin) {
  const auto load = temperature_load(
      R"({"elements": [2, 1], "change": 30, "difference_y": -5, "difference_z": 12.5})");
  EXPECT_THAT(load.elements.numbers, ElementsAre(2, 1));
  EXPECT_EQ(load.change, 30.0);
  EXPECT_EQ(load.difference_y, -5.0);
  EXPECT_EQ(load.difference_z, 12.5);
}

TEST(TemperatureLoads, AreZeroInValuesThatAreNotGiven) {
  const auto load = temperature_load(R"({"elements": "all", "difference_z": 10})");
  EXPECT_TRUE(load.elements.all);
  EXPECT_EQ(load.change, 0.0);
  EXPECT_EQ(load.difference_y, 0.0);
  EXPECT_EQ(load.difference_z, 10.0);
}

TEST(TemperatureLoads, OfAChangeMayActOnATruss) {
  const auto loads = loads_of(
      replaced(with_loads(R"("temperature": [{"elements": [1], "change": 30, "difference_y": 0}])"),
               R"("nodes": [1, 2])", R"("nodes": [1, 2], "kind": "truss")"));
  EXPECT_EQ(loads.temperature.size(), 1U);
}

TEST(Settlements, AreInMillimetresAndRadians) {
  const auto loads = loads_of(with_loads_in_kilonewtons(
      R"("settlements": [{"node": 1, "Dx": 0.5, "Dy": 0.25, "Dz": -2, "Rx": 0.125, "Ry": -0.5,
                          "Rz": 0.0625}])"));
  ASSERT_EQ(loads.settlements.size(), 1U);
  EXPECT_EQ(loads.settlements[0].node, 1U);
  EXPECT_THAT(loads.settlements[0].displacements,
              ElementsAre(500, 250, -2000, 0.125, -0.5, 0.0625));
}

TEST(Settlements, AreZeroInDirectionsThatAreNotGiven) {
  const auto loads = loads_of(with_loads(R"("settlements": [{"node": 1, "Dz": -2}])"));
  ASSERT_EQ(loads.settlements.size(), 1U);
  EXPECT_THAT(loads.settlements[0].displacements, ElementsAre(0, 0, -2, 0, 0, 0));
}

TEST(Settlements, NeedTheirOwnDirectionRestrainedOnly) {
  const auto loads = loads_of(replaced(with_loads(R"("settlements": [{"node": 1, "Ry": 0.001}])"),
                                       R"("restrained": "all")", R"("restrained": ["Ry"])"));
  EXPECT_EQ(loads.settlements.size(), 1U);
}

TEST(Loads, OnALengthAreConvertedFromPoundsPerInch) {
  const auto loads =
      loads_of(replaced(with_loads(R"("span": [{"elements": [1], "direction": "Z", "value": 1}])"),
                        R"("force": "N", "length": "mm")", R"("force": "lbf", "length": "in")"));
  ASSERT_EQ(loads.span.size(), 1U);
  // 0.45359237 kg × 9.80665 m/s² / 25.4 mm
  constexpr double expected = 4.4482216152605 / 25.4;
  EXPECT_NEAR(loads.span[0].from_value, expected, relative * expected);
}

}  // namespace
}  // namespace aluframe::io
