#include "aluframe/model/combinations.h"

#include "models.h"

namespace aluframe::model {
namespace {

/// Element at place 0 with load cases 1, 2, 3 of N = 100, 20 and -3; case 3 has the ends only; case
/// 4 has no forces. All expected sums are done by hand.
class Combinations : public testing::Test {
 protected:
  Combinations() {
    for (Number number = 1; number <= 4; ++number) model_.load_cases.add(load_case(number));
    model_.forces.resize(1, 4);
    model_.forces.set(0, 0, axial(100));
    model_.forces.set(0, 1, axial(20));
    model_.forces.set(0, 2, axial(-3, false));
  }

  std::optional<CaseForces> evaluate(Number combination, Side side = Side::maximum) const {
    return CombinationEvaluator(model_).evaluate(0, combination, side);
  }
  /// N at the start on both sides: maximum, minimum.
  std::array<float, 2> sides(Number combination) const {
    return {evaluate(combination, Side::maximum).value().at[0][0],
            evaluate(combination, Side::minimum).value().at[0][0]};
  }

  Model model_;
};

using Sides = std::array<float, 2>;

TEST_F(Combinations, SumFactorTimesForces) {
  model_.combinations.add(linear(1, {of_case(1, 1.5), of_case(2, -2)}));
  EXPECT_EQ(evaluate(1), axial(110));
}

TEST_F(Combinations, SumEveryComponentAtEveryPosition) {
  model_.load_cases.add(load_case(5));
  model_.load_cases.add(load_case(6));
  model_.forces.resize(1, 6);
  CaseForces first{.at = {}, .inner = true};
  CaseForces second = first;
  CaseForces expected = first;
  for (std::size_t position = 0; position < 5; ++position) {
    for (std::size_t i = 0; i < 6; ++i) {
      const float value = static_cast<float>(position * 10 + i);
      first.at[position][i] = value;
      second.at[position][i] = 64 - value;
      expected.at[position][i] = 2 * value + 0.5F * (64 - value);
    }
  }
  model_.forces.set(0, 4, first);
  model_.forces.set(0, 5, second);
  model_.combinations.add(linear(1, {of_case(5, 2), of_case(6, 0.5)}));
  EXPECT_EQ(evaluate(1), expected);
}

TEST_F(Combinations, MultiplyFactorsThroughNesting) {
  model_.combinations.add(linear(1, {of_combination(2, 2), of_case(2)}));
  model_.combinations.add(linear(2, {of_combination(3, 3), of_case(1)}));
  model_.combinations.add(linear(3, {of_case(1, 5)}));
  EXPECT_EQ(evaluate(1), axial(2 * (3 * 500 + 100) + 20));
}

TEST_F(Combinations, CountASharedCombinationAsOftenAsItIsUsed) {
  model_.combinations.add(linear(1, {of_combination(2), of_combination(3), of_combination(4)}));
  model_.combinations.add(linear(2, {of_combination(4, 2)}));
  model_.combinations.add(linear(3, {of_combination(4, 3)}));
  model_.combinations.add(linear(4, {of_case(1)}));
  EXPECT_EQ(evaluate(1), axial(600));
}

TEST_F(Combinations, RoundOnce) {
  // 2²⁴ + 1 + 1: single precision would lose each 1.
  model_.forces.resize(1, 4);
  model_.forces.set(0, 0, axial(16777216));
  model_.forces.set(0, 1, axial(1));
  model_.combinations.add(linear(1, {of_case(1), of_case(2), of_combination(2)}));
  model_.combinations.add(linear(2, {of_case(2)}));
  EXPECT_EQ(evaluate(1), axial(16777218));
}

TEST_F(Combinations, HaveOneSideWithoutAnEnvelope) {
  model_.combinations.add(linear(1, {of_combination(2), of_case(1)}));
  model_.combinations.add(linear(2, {of_case(1)}));
  EXPECT_FALSE(CombinationEvaluator(model_).has_two_sides(1));
  EXPECT_EQ(sides(1), (Sides{200, 200}));
}

TEST_F(Combinations, OfCasesWithEndsAloneHaveEndsAlone) {
  model_.combinations.add(linear(1, {of_case(1), of_case(3)}));
  EXPECT_EQ(evaluate(1), axial(97, false));
}

TEST_F(Combinations, AreNotThereWithoutTheForcesOfACase) {
  model_.combinations.add(linear(1, {of_case(1), of_combination(2)}));
  model_.combinations.add(linear(2, {of_case(4)}));
  EXPECT_EQ(evaluate(1), std::nullopt);
  EXPECT_EQ(CombinationEvaluator(model_).missing_case(0, 1), 4U);
}

TEST_F(Combinations, NameTheFirstMissingCaseInTheOrderOfUse) {
  model_.load_cases.add(load_case(9));
  model_.load_cases.add(load_case(8));
  model_.forces.resize(1, 6);
  model_.combinations.add(linear(1, {of_combination(2), of_case(9)}));
  model_.combinations.add(linear(2, {of_case(8)}));
  EXPECT_EQ(CombinationEvaluator(model_).missing_case(0, 1), 8U);
}

TEST_F(Combinations, MissNothingWhenAllCasesHaveForces) {
  model_.combinations.add(linear(1, {of_case(1), of_case(2)}));
  EXPECT_EQ(CombinationEvaluator(model_).missing_case(0, 1), std::nullopt);
}

TEST_F(Combinations, DoNotNeedCasesWithFactorZero) {
  model_.combinations.add(linear(1, {of_case(1), of_case(3, 0), of_case(4, 0)}));
  model_.combinations.add(linear(2, {of_case(1), of_combination(3, 0)}));
  model_.combinations.add(linear(3, {of_case(4)}));
  EXPECT_EQ(evaluate(1), axial(100));
  EXPECT_EQ(evaluate(2), axial(100));
}

TEST_F(Combinations, NeedCasesWhoseFactorsCancel) {
  model_.combinations.add(linear(1, {of_case(4), of_combination(2, -1)}));
  model_.combinations.add(linear(2, {of_case(4)}));
  EXPECT_EQ(evaluate(1), std::nullopt);
}

TEST_F(Combinations, OfNothingAreZero) {
  model_.combinations.add(linear(1, {of_case(1, 0)}));
  EXPECT_EQ(evaluate(1), axial(0));
}

TEST_F(Combinations, BelongToTheElementAskedFor) {
  model_.forces.resize(2, 4);
  model_.forces.set(0, 0, axial(1));
  model_.forces.set(1, 0, axial(2));
  model_.combinations.add(linear(1, {of_case(1, 10)}));
  const CombinationEvaluator evaluator(model_);
  EXPECT_EQ(evaluator.evaluate(0, 1, Side::maximum), axial(10));
  EXPECT_EQ(evaluator.evaluate(1, 1, Side::maximum), axial(20));
}

TEST_F(Combinations, TakeTheExtremesInAnEnvelope) {
  model_.combinations.add(envelope(1, {of_case(1, -1), of_case(2, 3), of_case(1, 0.1)}));
  EXPECT_TRUE(CombinationEvaluator(model_).has_two_sides(1));
  EXPECT_EQ(sides(1), (Sides{60, -100}));
}

TEST_F(Combinations, TakeExtremesComponentByComponent) {
  model_.forces.resize(1, 4);
  CaseForces first = axial(0);
  CaseForces second = axial(0);
  first.at[1] = {1, -2, 3, -4, 5, -6};
  second.at[1] = {-6, 5, -4, 3, -2, 1};
  model_.forces.set(0, 0, first);
  model_.forces.set(0, 1, second);
  model_.combinations.add(envelope(1, {of_case(1), of_case(2)}));
  EXPECT_EQ(evaluate(1, Side::maximum)->at[1], (SectionForces{1, 5, 3, 3, 5, 1}));
  EXPECT_EQ(evaluate(1, Side::minimum)->at[1], (SectionForces{-6, -2, -4, -4, -2, -6}));
}

TEST_F(Combinations, OfOneTermEnvelopeItAlone) {
  // Neither side may be widened to 0.
  model_.combinations.add(envelope(1, {of_case(1)}));
  model_.combinations.add(envelope(2, {of_case(1, -1)}));
  EXPECT_EQ(sides(1), (Sides{100, 100}));
  EXPECT_EQ(sides(2), (Sides{-100, -100}));
}

TEST_F(Combinations, TakeZeroForATermOfFactorZeroInAnEnvelope) {
  model_.combinations.add(envelope(1, {of_case(1), of_case(4, 0)}));
  EXPECT_EQ(sides(1), (Sides{100, 0}));
}

TEST_F(Combinations, TakeBothSidesOfAnEnvelopeInAnEnvelope) {
  model_.combinations.add(envelope(1, {of_combination(2, -2), of_case(3)}));
  model_.combinations.add(envelope(2, {of_case(1), of_case(2)}));
  EXPECT_EQ(sides(1), (Sides{-3, -200}));
}

TEST_F(Combinations, EnvelopeSums) {
  model_.combinations.add(envelope(1, {of_combination(2), of_combination(3)}));
  model_.combinations.add(linear(2, {of_case(1), of_case(2)}));
  model_.combinations.add(linear(3, {of_case(1), of_case(2, -1)}));
  EXPECT_EQ(sides(1), (Sides{120, 80}));
}

TEST_F(Combinations, AddTheSideOfAnEnvelopeThatTheSignCallsFor) {
  model_.combinations.add(linear(1, {of_case(1), of_combination(3)}));
  model_.combinations.add(linear(2, {of_case(1), of_combination(3, -2)}));
  model_.combinations.add(envelope(3, {of_case(2), of_case(3)}));
  EXPECT_TRUE(CombinationEvaluator(model_).has_two_sides(1));
  EXPECT_EQ(sides(1), (Sides{120, 97}));
  EXPECT_EQ(sides(2), (Sides{106, 60}));
}

TEST_F(Combinations, HaveTwoSidesThroughAnyNesting) {
  model_.combinations.add(linear(1, {of_combination(2, -1)}));
  model_.combinations.add(linear(2, {of_combination(3, -1), of_case(1)}));
  model_.combinations.add(envelope(3, {of_case(1), of_case(2)}));
  EXPECT_EQ(sides(1), (Sides{0, -80}));
}

TEST_F(Combinations, HaveOneSideWhenAnEnvelopeTakesNoPart) {
  model_.combinations.add(linear(1, {of_case(1), of_combination(2, 0)}));
  model_.combinations.add(envelope(2, {of_case(1), of_case(2)}));
  EXPECT_FALSE(CombinationEvaluator(model_).has_two_sides(1));
}

TEST_F(Combinations, OfEnvelopesHaveInnerPositionsOnlyWhenAllCasesDo) {
  model_.combinations.add(envelope(1, {of_case(1), of_case(3)}));
  EXPECT_EQ(evaluate(1, Side::maximum), axial(100, false));
  EXPECT_EQ(evaluate(1, Side::minimum), axial(-3, false));
}

TEST_F(Combinations, OfEnvelopesAreNotThereWithoutTheForcesOfACase) {
  model_.combinations.add(envelope(1, {of_case(1), of_combination(2)}));
  model_.combinations.add(linear(2, {of_case(2), of_case(4)}));
  EXPECT_EQ(evaluate(1, Side::minimum), std::nullopt);
  EXPECT_EQ(CombinationEvaluator(model_).missing_case(0, 1), 4U);
}

TEST_F(Combinations, SharedTwiceAtEveryLevelAreEvaluatedOnceEach) {
  // 2⁶³ ways lead from the first to the last: following each would never end.
  for (Number number = 1; number < 64; ++number) {
    model_.combinations.add(
        linear(number, {of_combination(number + 1, 0.5), of_combination(number + 1, 0.5)}));
  }
  model_.combinations.add(envelope(64, {of_case(1), of_case(2)}));
  EXPECT_EQ(sides(1), (Sides{100, 20}));
}

TEST_F(Combinations, SharedTwiceAtEveryLevelAreMultipliedOutOnce) {
  for (Number number = 1; number < 64; ++number) {
    model_.combinations.add(
        linear(number, {of_combination(number + 1, 0.5), of_combination(number + 1, 0.5)}));
  }
  model_.combinations.add(linear(64, {of_case(2)}));
  EXPECT_EQ(sides(1), (Sides{20, 20}));
}

}  // namespace
}  // namespace aluframe::model
