#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <map>
#include <set>

#include "aluframe/model/envelopes.h"

namespace aluframe::model {
namespace {

// States are found here by their definition alone: every choice of a term wherever an envelope
// stands, followed again each time.

constexpr Number case_count = 3;
constexpr Number combination_count = 5;
constexpr std::array factors{-1.5, -1.0, 0.0, 0.25, 1.0, 2.0};

/// Factor by load case; cases of factor 0 are left out.
using Sum = std::map<Number, double>;

/// Combination i may contain those behind it only, so nothing contains itself.
Combination any_combination(Number number) {
  Combination combination;
  combination.number = number;
  combination.kind = *rc::gen::element(CombinationKind::linear, CombinationKind::envelope);
  combination.design = *rc::gen::arbitrary<bool>();
  const int terms = *rc::gen::inRange(1, 4);
  for (int i = 0; i < terms; ++i) {
    const bool nested = number < combination_count && *rc::gen::arbitrary<bool>();
    combination.terms.push_back(
        {nested ? CombinationTerm::Source::combination : CombinationTerm::Source::load_case,
         nested ? *rc::gen::inRange(number + 1, combination_count + 1)
                : *rc::gen::inRange<Number>(1, case_count + 1),
         *rc::gen::elementOf(factors)});
  }
  return combination;
}

Model any_model() {
  Model model;
  for (Number number = 1; number <= case_count; ++number) {
    LoadCase load_case;
    load_case.number = number;
    model.load_cases.add(load_case);
  }
  for (Number number = 1; number <= combination_count; ++number) {
    model.combinations.add(any_combination(number));
  }
  return model;
}

/// Small binary fractions: sums are exact in any order.
Sum added(Sum sum, const Sum& other, double factor) {
  for (const auto& [load_case, value] : other) sum[load_case] += factor * value;
  std::erase_if(sum, [](const auto& entry) { return entry.second == 0.0; });
  return sum;
}

std::set<Sum> states_by_definition(const Model& model, const Combination& combination) {
  const bool is_envelope = combination.kind == CombinationKind::envelope;
  std::set<Sum> states;
  if (!is_envelope) states.insert(Sum());
  for (const CombinationTerm& term : combination.terms) {
    std::set<Sum> part{{{term.number, 1.0}}};
    if (term.source == CombinationTerm::Source::combination) {
      part = states_by_definition(model, *model.combinations.find(term.number));
    }
    if (term.factor == 0.0) part = {Sum()};
    std::set<Sum> longer;
    for (const Sum& state : part) {
      for (const Sum& sum : is_envelope ? std::set<Sum>{Sum()} : states) {
        longer.insert(added(sum, state, term.factor));
      }
    }
    if (is_envelope) {
      states.merge(longer);
    } else {
      states = longer;
    }
  }
  return states;
}

/// Any check of a sum that tells sums apart, standing for a ratio.
double ratio_of(const Sum& sum) {
  constexpr std::array<double, case_count> stress{0.5, -0.25, 0.375};
  double normal = 0.0, relieving = 0.0;
  for (const auto& [load_case, factor] : sum) {
    normal += factor * stress[load_case - 1];
    relieving += factor * stress[case_count - load_case];
  }
  return std::abs(normal) - relieving;
}

Sum sum_of(const Combination& combination) {
  Sum sum;
  for (const CombinationTerm& term : combination.terms) {
    RC_ASSERT(term.source == CombinationTerm::Source::load_case);
    sum = added(sum, {{term.number, 1.0}}, term.factor);
  }
  return sum;
}

RC_GTEST_PROP(EnvelopeProperties, WhatStandsForAnEnvelopeAreItsStatesByDefinition, ()) {
  const Model model = any_model();
  Model expanded = model;
  if (expand_envelopes(expanded)) {
    RC_DISCARD("too many states");
  }
  for (const Combination& combination : model.combinations) {
    const std::vector<Number>& numbers = expanded.combinations.find(combination.number)->states;
    if (numbers.empty()) continue;
    RC_ASSERT(combination.design);
    const std::set<Sum> expected = states_by_definition(model, combination);
    std::set<Sum> found;
    for (const Number number : numbers) {
      const Combination& state = *expanded.combinations.find(number);
      RC_ASSERT(state.design);
      if (state.state_of) {
        found.insert(sum_of(state));
      } else {  // a combination of the model, which has one state
        found.merge(states_by_definition(model, state));
      }
    }
    RC_ASSERT(found == expected);
    RC_ASSERT(numbers.size() == expected.size());
  }
}

RC_GTEST_PROP(EnvelopeProperties, TheWorstOfAModelIsTheWorstOfAllItsStates, ()) {
  const Model model = any_model();
  Model expanded = model;
  if (expand_envelopes(expanded)) {
    RC_DISCARD("too many states");
  }
  std::set<double> by_definition, checked;
  for (const Combination& combination : model.combinations) {
    if (!combination.design) continue;
    for (const Sum& sum : states_by_definition(model, combination)) {
      by_definition.insert(ratio_of(sum));
    }
  }
  for (const Combination& combination : expanded.combinations) {
    if (!combination.design) continue;
    for (const Sum& sum : states_by_definition(expanded, combination))
      checked.insert(ratio_of(sum));
  }
  RC_ASSERT(checked == by_definition);  // so are their largest values
}

}  // namespace
}  // namespace aluframe::model
