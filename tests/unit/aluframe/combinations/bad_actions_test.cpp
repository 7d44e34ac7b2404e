#include <gtest/gtest.h>

#include "tests/unit/aluframe/combinations/made_models.h"

namespace aluframe::combinations {
namespace {

using testing::HasSubstr;

void expect_fault(const Fault& fault, const std::string& place, const std::string& text) {
  EXPECT_EQ(fault.place, place);
  EXPECT_THAT(fault.text, HasSubstr(text));
}

TEST(BadActions, ACaseWithoutAnActionIsNamed) {
  auto model = model_of({{"G", dead}});
  model::LoadCase load_case;
  load_case.number = 7;
  model.load_cases.add(load_case);
  expect_fault(fault_of(model), "/load_cases/1", "load case 7 does not name its kind");
}

TEST(BadActions, LiveLoadsAndSnowNeedTheirCategory) {
  expect_fault(fault_of(model_of({{"S", {.kind = ActionKind::snow}}})), "/load_cases/0/action",
               "missing field \"category\": snow is one of I, II, III");
}

TEST(BadActions, AnUnknownCategoryIsNamedWithThoseThatAreKnown) {
  expect_fault(fault_of(model_of({{"S", {.kind = ActionKind::snow, .category = "IV"}}})),
               "/load_cases/0/action/category", "found \"IV\", must be one of I, II, III");
}

TEST(BadActions, AnExclusiveGroupOfOneIsRefused) {
  Action left = wind, right = wind;
  left.exclusive = "wind";
  right.exclusive = "wnid";
  expect_fault(fault_of(model_of({{"Wl", left}, {"Wr", right}})), "/load_cases/0/action/exclusive",
               "the exclusive group \"wind\" has no other case");
}

TEST(BadActions, CasesThatActTogetherInACircleAreRefused) {
  Action first = wind, second = wind;
  first.together_with = 2;
  second.together_with = 1;
  expect_fault(fault_of(model_of({{"W1", first}, {"W2", second}})),
               "/load_cases/0/action/together_with", "in a circle: 1 → 2 → 1");
}

TEST(BadActions, ACaseThatActsWithItselfIsRefused) {
  Action first = wind;
  first.together_with = 1;
  expect_fault(fault_of(model_of({{"W", first}})), "/load_cases/0/action/together_with",
               "in a circle: 1 → 1");
}

TEST(BadActions, CasesThatActTogetherAreOfOneKind) {
  Action first = wind;
  first.together_with = 2;
  expect_fault(fault_of(model_of({{"W", first}, {"G", dead}})),
               "/load_cases/0/action/together_with", "load case 2 is an action of another kind");
}

TEST(BadActions, ACaseActsWithOneThatExists) {
  Action first = wind;
  first.together_with = 9;
  expect_fault(fault_of(model_of({{"W", first}})), "/load_cases/0/action/together_with",
               "load case 9 does not exist");
}

TEST(BadActions, APermanentActionExcludesNone) {
  Action first = dead;
  first.exclusive = "a";
  expect_fault(fault_of(model_of({{"G", first}, {"H", first}})), "/load_cases/0/action/exclusive",
               "a permanent action always acts");
}

TEST(BadActions, AVariableActionIsNotOnlyFavourable) {
  Action first = wind;
  first.favourable = model::Favourable::only;
  expect_fault(fault_of(model_of({{"W", first}})), "/load_cases/0/action/favourable", "never acts");
}

TEST(BadActions, AnUnknownRuleIsNamedWithThoseThatAreKnown) {
  expect_fault(fault_of(model_of({{"G", dead}}), {.rule = "GB 50068"}), "/combinations/rule",
               "must be one of GB 50068-2018, JGJ 102-2003");
}

TEST(BadActions, ASeismicCodeIsOneOfTheRule) {
  expect_fault(fault_of(model_of({{"G", dead}}), {.rule = "GB 50068-2018", .seismic = "x"}),
               "/combinations/seismic", "must be one of GB 50011-2010, GB 55002-2021");
}

TEST(BadActions, ATypeIsOneOfTheRule) {
  expect_fault(fault_of(model_of({{"G", dead}}),
                        {.rule = "JGJ 102-2003", .types = {CombinationType::frequent}}),
               "/combinations/types/0", "must be one of fundamental, seismic, characteristic");
}

TEST(BadActions, TooManyCombinationsAreRefused) {
  std::vector<std::pair<std::string, Action>> actions{{"G", dead}};
  for (int i = 0; i < 12; ++i) actions.emplace_back("W" + std::to_string(i), wind);
  expect_fault(fault_of(model_of(actions)), "/combinations/rule",
               "makes more than 999 fundamental combinations");
}

}  // namespace
}  // namespace aluframe::combinations
