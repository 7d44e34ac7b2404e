// Which loads act together when results cannot be added up.

#include "aluframe/forces/load_sets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace aluframe::forces {
namespace {

using model::Combination;
using model::CombinationKind;
using Source = model::CombinationTerm::Source;
using Term = model::CombinationTerm;
using testing::ElementsAre;
using testing::IsEmpty;

Term of_case(model::Number number, double factor) {
  return {Source::load_case, number, factor};
}

Term of_combination(model::Number number, double factor) {
  return {Source::combination, number, factor};
}

Combination linear(model::Number number, std::vector<Term> terms) {
  return {.number = number, .name = "", .terms = std::move(terms)};
}

Combination envelope(model::Number number, std::vector<Term> terms) {
  return {
      .number = number, .name = "", .kind = CombinationKind::envelope, .terms = std::move(terms)};
}

/// Load cases 1, 2 and 3 at the places 0, 1 and 2.
model::Model model_with(const std::vector<Combination>& combinations) {
  model::Model out;
  for (model::Number number = 1; number <= 3; ++number)
    out.load_cases.add({.number = number, .name = "", .loads = {}});
  for (const Combination& combination : combinations) out.combinations.add(combination);
  return out;
}

using Pairs = std::vector<std::pair<std::size_t, double>>;

/// The sets of the last combination as pairs of case and factor.
std::vector<Pairs> sets_of_last(const model::Model& model) {
  const auto plans = model::compile_combinations(model);
  const auto sets = load_sets_of(model, plans, plans.size() - 1);
  std::vector<Pairs> out;
  for (const LoadSet& set : std::get<std::vector<LoadSet>>(sets)) {
    Pairs pairs;
    for (const auto& entry : set) pairs.emplace_back(entry.load_case, entry.factor);
    out.push_back(std::move(pairs));
  }
  return out;
}

TEST(LoadSets, OfALinearCombinationAreOneWithNestedFactorsMultipliedOut) {
  const model::Model model = model_with({linear(1, {of_case(1, 1.5), of_case(2, 2)}),
                                         linear(2, {of_combination(1, 2), of_case(3, 1)})});
  EXPECT_THAT(sets_of_last(model), ElementsAre(Pairs{{0, 3.0}, {1, 4.0}, {2, 1.0}}));
}

TEST(LoadSets, OfAnEnvelopeAreOneForEachTerm) {
  const model::Model model = model_with({linear(1, {of_case(1, 1), of_case(2, 1)}),
                                         envelope(2, {of_combination(1, 2), of_case(3, -1)})});
  EXPECT_THAT(sets_of_last(model), ElementsAre(Pairs{{0, 2.0}, {1, 2.0}}, Pairs{{2, -1.0}}));
}

TEST(LoadSets, OfANestedEnvelopeTakeItsFactor) {
  const model::Model model = model_with(
      {envelope(1, {of_case(1, 1), of_case(2, 3)}), envelope(2, {of_combination(1, -2)})});
  EXPECT_THAT(sets_of_last(model), ElementsAre(Pairs{{0, -2.0}}, Pairs{{1, -6.0}}));
}

TEST(LoadSets, AreThereOnceHoweverOftenTheyAreNamed) {
  const model::Model model =
      model_with({linear(1, {of_case(1, 2)}),
                  envelope(2, {of_combination(1, 1), of_case(1, 2), of_combination(1, 1)})});
  EXPECT_THAT(sets_of_last(model), ElementsAre(Pairs{{0, 2.0}}));
}

TEST(LoadSets, OfATermWithFactorZeroIsEmptyInAnEnvelope) {
  const model::Model model = model_with({envelope(1, {of_case(1, 1), of_case(2, 0)})});
  EXPECT_THAT(sets_of_last(model), ElementsAre(Pairs{{0, 1.0}}, IsEmpty()));
}

TEST(LoadSets, LeaveOutCasesWhoseFactorsCancel) {
  const model::Model model = model_with({linear(1, {of_case(1, 1), of_case(2, 1)}),
                                         linear(2, {of_combination(1, 1), of_case(2, -1)})});
  EXPECT_THAT(sets_of_last(model), ElementsAre(Pairs{{0, 1.0}}));
}

TEST(LoadSets, OfManyEnvelopesInOneAnotherAreFoundOnce) {
  // Each level names the one below twice: 2^40 paths lead to the two cases.
  std::vector<Combination> levels{envelope(1, {of_case(1, 1), of_case(2, 1)})};
  for (model::Number number = 2; number <= 40; ++number) {
    levels.push_back(
        envelope(number, {of_combination(number - 1, 1), of_combination(number - 1, 1)}));
  }
  EXPECT_THAT(sets_of_last(model_with(levels)), ElementsAre(Pairs{{0, 1.0}}, Pairs{{1, 1.0}}));
}

TEST(LoadSets, OfALinearCombinationWithAnEnvelopeAreRefused) {
  const model::Model model = model_with({envelope(1, {of_case(1, 1), of_case(2, 1)}),
                                         linear(7, {of_combination(1, 1), of_case(3, 1)})});
  const auto plans = model::compile_combinations(model);
  EXPECT_EQ(std::get<std::string>(load_sets_of(model, plans, 1)),
            "combination 7 adds an envelope to other forces, which second order cannot analyse; "
            "check envelopes by their states");
}

}  // namespace
}  // namespace aluframe::forces
