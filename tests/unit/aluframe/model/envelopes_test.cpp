#include "aluframe/model/envelopes.h"

#include <map>
#include <tuple>

#include "aluframe/model/combinations.h"
#include "models.h"

namespace aluframe::model {
namespace {

/// Dead load G, wind W, and an earthquake E.
Model with_cases(std::vector<Combination> combinations) {
  Model model;
  const std::vector<std::pair<const char*, LoadCaseKind>> cases{
      {"G", LoadCaseKind::static_load},
      {"W", LoadCaseKind::static_load},
      {"E", LoadCaseKind::seismic_static}};
  for (const auto& [name, kind] : cases) {
    LoadCase added = load_case(static_cast<Number>(model.load_cases.size() + 1), kind);
    added.name = name;
    model.load_cases.add(added);
  }
  for (Combination& combination : combinations) model.combinations.add(std::move(combination));
  return model;
}

Combination part(Combination combination) {
  combination.design = false;
  return combination;
}

/// Numbers and names of what is checked, in order.
using Names = std::vector<std::pair<Number, std::string>>;

Names checked(const Model& model) {
  Names names;
  for (const Combination& combination : model.combinations) {
    if (combination.design) names.emplace_back(combination.number, combination.name);
  }
  return names;
}

Names expanded(std::vector<Combination> combinations) {
  Model model = with_cases(std::move(combinations));
  EXPECT_EQ(expand_envelopes(model), std::nullopt);
  return checked(model);
}

TEST(Envelopes, AnEnvelopeIsReplacedByItsTerms) {
  Combination named = envelope(7, {of_case(1, 1.3), of_case(2, -1.5)});
  named.name = "Extremes";
  Model model = with_cases({named});
  EXPECT_EQ(expand_envelopes(model), std::nullopt);
  EXPECT_EQ(checked(model), (Names{{7001, "Extremes: 1.3G"}, {7002, "Extremes: -1.5W"}}));
  EXPECT_FALSE(model.combinations.find(7)->design);
  EXPECT_EQ(model.combinations.find(7)->states, (std::vector<Number>{7001, 7002}));
  EXPECT_EQ(label_of(*model.combinations.find(7001)), "7 Extremes: 1.3G");
  EXPECT_EQ(label_of(*model.combinations.find(7)), "7");
}

TEST(Envelopes, AStateIsASumOfLoadCases) {
  Model model = with_cases({part(linear(1, {of_case(1), of_case(2, 0.5)})),
                            envelope(7, {of_combination(1, 2.0), of_case(3)})});
  expand_envelopes(model);
  EXPECT_EQ(model.combinations.find(7001)->terms,
            (std::vector<CombinationTerm>{of_case(1, 2.0), of_case(2, 1.0)}));
  EXPECT_EQ(model.combinations.find(7001)->kind, CombinationKind::linear);
  EXPECT_EQ(model.combinations.find(7001)->state_of, Number{7});
}

TEST(Envelopes, ASumWithEnvelopesHasEveryChoice) {
  const Names names = expanded({part(envelope(1, {of_case(1), of_case(1, 1.35)})),
                                part(envelope(2, {of_case(2, 1.5), of_case(2, -1.5)})),
                                linear(3, {of_combination(1), of_combination(2, 0.6)})});
  EXPECT_EQ(
      names,
      (Names{{3001, "G+0.9W"}, {3002, "G-0.9W"}, {3003, "1.35G+0.9W"}, {3004, "1.35G-0.9W"}}));
}

TEST(Envelopes, ANegativeFactorTurnsAllStatesOfANestedEnvelope) {
  const Names names = expanded({part(envelope(1, {of_case(1, 2.0), of_case(2, -3.0)})),
                                part(envelope(2, {of_combination(1, -0.5), of_case(3, 4.0)})),
                                envelope(3, {of_combination(2, -1.0)})});
  EXPECT_EQ(names, (Names{{3001, "G"}, {3002, "-1.5W"}, {3003, "-4E"}}));
}

TEST(Envelopes, ATermWithFactorZeroIsNoLoadInAnEnvelopeAndNothingInASum) {
  EXPECT_EQ(expanded({envelope(7, {of_case(1, 0.0), of_case(2)})}),
            (Names{{7001, "no load"}, {7002, "W"}}));
  EXPECT_EQ(expanded({part(envelope(1, {of_case(1), of_case(2)})),
                      linear(7, {of_case(3), of_combination(1, 0.0)})}),
            (Names{{7, ""}}));
}

TEST(Envelopes, AnEnvelopeWithinASumIsChosenFromAsOftenAsItIsNamed) {
  const Names names = expanded({part(envelope(1, {of_case(1), of_case(2)})),
                                linear(7, {of_combination(1), of_combination(1)})});
  EXPECT_EQ(names, (Names{{7001, "2G"}, {7002, "G+W"}, {7003, "2W"}}));
}

TEST(Envelopes, AnEqualSumIsCheckedOnce) {
  // 1.5·0.7 differs from 1.05 in the last digit.
  Model model =
      with_cases({linear(1, {of_case(2, 1.05), of_case(1)}), part(linear(2, {of_case(2, 1.5)})),
                  part(linear(3, {of_case(1), of_combination(2, 0.7)})),
                  envelope(7, {of_combination(3), of_case(2), of_case(2)}),
                  envelope(8, {of_case(2), of_case(1, 3.0)})});
  expand_envelopes(model);
  EXPECT_EQ(checked(model), (Names{{1, ""}, {7002, "W"}, {8002, "3G"}}));
  EXPECT_EQ(model.combinations.find(7)->states, (std::vector<Number>{1, 7002}));
  EXPECT_EQ(model.combinations.find(8)->states, (std::vector<Number>{7002, 8002}));
}

TEST(Envelopes, ACombinationThatIsOnlyAPartOfOthersStandsForNoState) {
  EXPECT_EQ(expanded({part(linear(1, {of_case(1)})), envelope(7, {of_combination(1)})}),
            (Names{{7001, "G"}}));
}

TEST(Envelopes, AStateIsSeismicWhereItsEnvelopeIsMarkedOrItsOwnCasesAre) {
  Combination marked = envelope(8, {of_case(1), of_case(2)});
  marked.seismic = true;
  Model model =
      with_cases({linear(1, {of_case(1)}), envelope(7, {of_case(2), of_case(3)}), marked});
  expand_envelopes(model);
  const CombinationEvaluator evaluator(model);
  std::map<Number, bool> seismic;
  for (const auto& [number, name] : checked(model)) seismic[number] = evaluator.is_seismic(number);
  // The states of 8 are the sums 1 and 7001, but checked with the factors of an earthquake.
  EXPECT_EQ(seismic, (std::map<Number, bool>{
                         {1, false}, {7001, false}, {7002, true}, {8001, true}, {8002, true}}));
}

TEST(Envelopes, AStateWhoseNumberIsTakenGetsTheLargestFreeOne) {
  Model model = with_cases({linear(7001, {of_case(3)}), linear(max_number, {of_case(3, 2.0)}),
                            envelope(7, {of_case(1), of_case(2)}),
                            envelope(max_number - 2, {of_case(3, 3.0)})});
  expand_envelopes(model);
  EXPECT_EQ(model.combinations.find(7)->states, (std::vector<Number>{max_number - 1, 7002}));
  EXPECT_EQ(model.combinations.find(max_number - 2)->states, (std::vector<Number>{max_number - 3}));
}

TEST(Envelopes, NamesStandApartFromFactorsWhereTheyWouldRunIntoThem) {
  Model model = with_cases({});
  LoadCase floor = load_case(4);
  floor.name = "2nd floor";
  model.load_cases.add(floor);
  model.load_cases.add(load_case(5));
  model.combinations.add(linear(1, {of_case(4, 1.5), of_case(5, -1.0)}));
  model.combinations.add(envelope(7, {of_combination(1, 2.0)}));
  expand_envelopes(model);
  EXPECT_EQ(model.combinations.find(7001)->name, "3 2nd floor-2 case 5");
}

TEST(Envelopes, OneThatIsNotDesignedForStays) {
  Model model = with_cases({part(envelope(1, {of_case(1), of_case(2)}))});
  const Table<Combination> before = model.combinations;
  expand_envelopes(model);
  EXPECT_TRUE(std::ranges::equal(model.combinations, before));
}

TEST(Envelopes, ExtremesAreLeftToTheirTwoSides) {
  Model model = with_cases({envelope(7, {of_case(1), of_case(2)}), linear(8, {of_case(1)})});
  model.envelopes = Envelopes::extremes;
  EXPECT_EQ(expand_envelopes(model), std::nullopt);
  EXPECT_EQ(checked(model), (Names{{7, ""}, {8, ""}}));
  EXPECT_EQ(checked_by_extremes(model, {}), std::vector<Number>{7});
  EXPECT_EQ(checked_by_extremes(model, {8}), std::vector<Number>{});
}

/// An envelope of G times 1 to `count`.
Combination of_factors(Number number, std::size_t count) {
  std::vector<CombinationTerm> terms;
  for (std::size_t i = 1; i <= count; ++i) terms.push_back(of_case(1, static_cast<double>(i)));
  return envelope(number, terms);
}

TEST(Envelopes, AsManyStatesAsAreAllowedAreChecked) {
  EXPECT_EQ(expanded({of_factors(7, max_envelope_states)}).size(), max_envelope_states);
}

TEST(Envelopes, OneStateMoreIsRefusedAndLeavesTheModelAsItIs) {
  Model model = with_cases({linear(1, {of_case(1)}), of_factors(7, max_envelope_states + 1)});
  const Table<Combination> before = model.combinations;
  EXPECT_EQ(expand_envelopes(model),
            "/combinations/1: combination 7 contains up to 1000 states, more than the 999 that are "
            "checked one by one; nest fewer envelopes in it, or set \"envelopes\": \"extremes\"");
  EXPECT_TRUE(std::ranges::equal(model.combinations, before));
}

TEST(Envelopes, EqualSumsDoNotCountTowardsTheLimit) {
  // 2^40 choices of signs, which give 41 sums.
  std::vector<CombinationTerm> terms(40, of_combination(1));
  const Names names =
      expanded({part(envelope(1, {of_case(2), of_case(2, -1.0)})), linear(7, terms)});
  EXPECT_EQ(names.size(), 41U);
}

TEST(Envelopes, TooManyStatesOfAPartThatNothingUsesDoNoHarm) {
  EXPECT_EQ(expanded({part(of_factors(1, 2000)), linear(2, {of_case(1)})}).size(), 1U);
}

TEST(Envelopes, AnEnvelopeIsChosenByItsNumberOrByAStates) {
  Model model = with_cases({linear(1, {of_case(1)}), part(linear(2, {of_case(3)})),
                            envelope(7, {of_case(1), of_case(2)})});
  expand_envelopes(model);
  EXPECT_EQ(design_numbers(model), (std::vector<Number>{1, 7, 7002}));
  EXPECT_EQ(checked_combinations(model, std::vector<Number>{7}), (std::set<Number>{1, 7002}));
  EXPECT_EQ(checked_combinations(model, std::vector<Number>{7002}), (std::set<Number>{7002}));
}

}  // namespace
}  // namespace aluframe::model
