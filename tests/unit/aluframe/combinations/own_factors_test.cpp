#include <gtest/gtest.h>

#include "tests/unit/aluframe/combinations/made_models.h"

namespace aluframe::combinations {
namespace {

using model::FactorRow;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

const Action never{.kind = ActionKind::permanent, .favourable = model::Favourable::never};

CombinationRule with_row(FactorRow row) {
  return {.rule = "GB 50068-2018", .table = {std::move(row)}};
}

TEST(OwnFactors, ARowTakesThePlaceOfTheRulesFieldByField) {
  FactorRow row{.kind = ActionKind::wind};
  row.psi_c = 0.5;
  const auto model = model_of({{"G", never}, {"W", wind}, {"S", snow}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental, with_row(row)),
              UnorderedElementsAre("1.3G+1.5W+0.7·1.5S", "1.3G+1.5W", "1.3G+1.5S+0.5·1.5W",
                                   "1.3G+1.5S", "1.3G"));
}

TEST(OwnFactors, ACategoryOfTheModelHasTheFactorOfItsKind) {
  FactorRow crowd{.kind = ActionKind::live, .category = "crowd"};
  crowd.psi_c = 0.8;
  const auto model =
      model_of({{"G", never}, {"L", {.kind = ActionKind::live, .category = "crowd"}}, {"W", wind}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental, with_row(crowd)),
              UnorderedElementsAre("1.3G+1.5L+0.6·1.5W", "1.3G+1.5L", "1.3G+1.5W+0.8·1.5L",
                                   "1.3G+1.5W", "1.3G"));
}

TEST(OwnFactors, ASumThatLiesBetweenTwoOthersIsLeftOut) {
  // With ψc = 1 for wind, W leading beside 0.7·1.5S is the mean of some of W and of W and S in
  // full.
  FactorRow row{.kind = ActionKind::wind};
  row.psi_c = 1.0;
  const auto model = model_of({{"G", never}, {"W", wind}, {"S", snow}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental, with_row(row)),
              UnorderedElementsAre("1.3G+1.5W", "1.3G+1.5S+1.5W", "1.3G+1.5S", "1.3G"));
}

TEST(OwnFactors, ANumberThatTheTableLacksIsNamedWithItsCase) {
  FactorRow crowd{.kind = ActionKind::live, .category = "crowd"};
  crowd.psi_c = 0.8;
  const auto model =
      model_of({{"G", never}, {"L", {.kind = ActionKind::live, .category = "crowd"}}});
  const Fault fault = fault_of(model, with_row(crowd));
  EXPECT_EQ(fault.place, "/load_cases/1/action");
  EXPECT_EQ(fault.text,
            "the rule GB 50068-2018 has no psi_f for live \"crowd\"; give it in the table of the "
            "combinations");
}

}  // namespace
}  // namespace aluframe::combinations
