#include <gtest/gtest.h>

#include "tests/unit/aluframe/combinations/made_models.h"

namespace aluframe::combinations {
namespace {

using model::Favourable;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

const Action never{.kind = ActionKind::permanent, .favourable = Favourable::never};

Action wind_from(const std::string& group) {
  return {.kind = ActionKind::wind, .category = {}, .exclusive = group};
}

TEST(GroupedActions, OneOfAnExclusiveGroupActsAtATime) {
  const auto model = model_of({{"G", never}, {"Wl", wind_from("w")}, {"Wr", wind_from("w")}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental),
              UnorderedElementsAre("1.3G+1.5Wl", "1.3G+1.5Wr", "1.3G"));
}

TEST(GroupedActions, CasesThatActTogetherHaveTheSameFactor) {
  Action inner = wind;
  inner.together_with = 2;
  const auto model = model_of({{"G", never}, {"W", wind}, {"Wi", inner}, {"S", snow}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental),
              UnorderedElementsAre("1.3G+1.5W+1.5Wi+0.7·1.5S", "1.3G+1.5W+1.5Wi",
                                   "1.3G+1.5S+0.6·1.5W+0.6·1.5Wi", "1.3G+1.5S", "1.3G"));
}

TEST(GroupedActions, ACaseMayActWithOneThatActsWithAnother) {
  Action second = dead;
  second.together_with = 3;
  Action third = dead;
  third.together_with = 1;
  const auto model = model_of({{"G1", dead}, {"G2", second}, {"G3", third}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental),
              ElementsAre("1.3G1+1.3G2+1.3G3", "G1+G2+G3"));
}

TEST(GroupedActions, AReversibleActionIsNeverAbsentWhereItCouldAct) {
  // 1.3G is the mean of the two.
  Action either_way = wind;
  either_way.reversible = true;
  const auto model = model_of({{"G", never}, {"W", either_way}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental), ElementsAre("1.3G+1.5W", "1.3G-1.5W"));
}

TEST(GroupedActions, AReversibleCaseThatActsWithAnotherHasBothSignsBesideIt) {
  const Action crane{.kind = ActionKind::live, .category = "crane A1-A3"};
  Action brake = crane;
  brake.together_with = 2;
  brake.reversible = true;
  const auto model = model_of({{"G", never}, {"C", crane}, {"B", brake}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental),
              UnorderedElementsAre("1.3G+1.5C+1.5B", "1.3G+1.5C-1.5B", "1.3G"));
}

TEST(GroupedActions, AVariableActionThatIsNeverFavourableAlwaysActs) {
  Action always = snow;
  always.favourable = Favourable::never;
  const auto model = model_of({{"G", never}, {"S", always}, {"W", wind}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental),
              UnorderedElementsAre("1.3G+1.5S", "1.3G+1.5S+0.6·1.5W", "1.3G+1.5W+0.7·1.5S"));
}

TEST(GroupedActions, APermanentActionThatIsOnlyFavourableHasTheLowerFactor) {
  const Action ballast{.kind = ActionKind::permanent, .favourable = Favourable::only};
  const auto model = model_of({{"G", never}, {"B", ballast}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental), ElementsAre("1.3G+B"));
}

TEST(GroupedActions, ASettlementActsOrHasNotComeAbout) {
  const Action sinks{.kind = ActionKind::settlement, .category = {}, .exclusive = "support"};
  const auto model = model_of({{"G", never}, {"D1", sinks}, {"D2", sinks}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental),
              UnorderedElementsAre("1.3G+1.3D1", "1.3G+1.3D2", "1.3G"));
}

TEST(GroupedActions, CasesOfNoKindTakeNoPart) {
  const Action none{.kind = ActionKind::none};
  const auto model = model_of({{"G", dead}, {"unit load", none}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental), ElementsAre("1.3G", "G"));
}

TEST(GroupedActions, NumbersStandBehindThoseOfOtherCombinations) {
  auto model = model_of({{"G", dead}});
  EXPECT_EQ(made_of(model, {.rule = "GB 50068-2018"}).front().number, 1001u);
  model::Combination own;
  own.number = 1000;
  model.combinations.add(own);
  EXPECT_EQ(made_of(model, {.rule = "GB 50068-2018"}).front().number, 1001u);
  own.number = 1001;
  model.combinations.add(own);
  EXPECT_EQ(made_of(model, {.rule = "GB 50068-2018"}).front().number, 11001u);
}

TEST(GroupedActions, CasesWithoutALatinNameStandApartFromTheirFactor) {
  const auto model = model_of({{"恒载", never}, {"", wind}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental),
              UnorderedElementsAre("1.3 恒载+1.5 case 2", "1.3 恒载"));
}

}  // namespace
}  // namespace aluframe::combinations
