#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "aluframe/model/combinations.h"

namespace aluframe::model {
namespace {

// Combinations are evaluated here by their definition alone: term by term, following every
// combination again wherever it is used, one component at a time.

constexpr Number case_count = 5;
constexpr Number combination_count = 8;
constexpr std::array factors{-1.5, -1.0, 0.0, 0.25, 1.0, 2.0};

/// Combination i may contain those behind it only, so nothing contains itself.
Combination any_combination(Number number) {
  Combination combination;
  combination.number = number;
  combination.kind = *rc::gen::element(CombinationKind::linear, CombinationKind::envelope);
  const int terms = *rc::gen::inRange(1, 5);
  for (int i = 0; i < terms; ++i) {
    const bool nested = number < combination_count && *rc::gen::arbitrary<bool>();
    CombinationTerm term;
    term.factor = *rc::gen::elementOf(factors);
    term.source =
        nested ? CombinationTerm::Source::combination : CombinationTerm::Source::load_case;
    term.number = nested ? *rc::gen::inRange(number + 1, combination_count + 1)
                         : *rc::gen::inRange<Number>(1, case_count + 1);
    combination.terms.push_back(term);
  }
  return combination;
}

Model any_model() {
  Model model;
  model.forces.resize(1, case_count);
  for (Number number = 1; number <= case_count; ++number) {
    LoadCase load_case;
    load_case.number = number;
    model.load_cases.add(load_case);
    CaseForces forces{.at = {}, .inner = true};
    for (SectionForces& at : forces.at) {
      for (float& component : at) component = static_cast<float>(*rc::gen::inRange(-100, 101));
    }
    model.forces.set(0, number - 1, forces);
  }
  for (Number number = 1; number <= combination_count; ++number) {
    model.combinations.add(any_combination(number));
  }
  return model;
}

/// Maximum and minimum of one component at one position.
using Sides = std::array<double, 2>;

Sides value_by_definition(const Model& model, const Combination& combination, std::size_t position,
                          std::size_t component) {
  std::vector<Sides> parts;
  for (const CombinationTerm& term : combination.terms) {
    Sides part{};
    if (term.source == CombinationTerm::Source::load_case) {
      part.fill(model.forces.find(0, term.number - 1)->at[position][component]);
    } else {
      part = value_by_definition(model, *model.combinations.find(term.number), position, component);
    }
    const double a = term.factor * part[0], b = term.factor * part[1];
    parts.push_back({std::max(a, b), std::min(a, b)});
  }
  Sides value = parts.front();
  for (std::size_t i = 1; i < parts.size(); ++i) {
    if (combination.kind == CombinationKind::linear) {
      value = {value[0] + parts[i][0], value[1] + parts[i][1]};
    } else {
      value = {std::max(value[0], parts[i][0]), std::min(value[1], parts[i][1])};
    }
  }
  return value;
}

/// Forces and factors are small binary fractions, so sums are exact in any order.
RC_GTEST_PROP(CombinationProperties, ValuesAreThoseOfTheDefinition, ()) {
  const Model model = any_model();
  const CombinationEvaluator evaluator(model);
  for (const Combination& combination : model.combinations) {
    const auto maximum = evaluator.evaluate(0, combination.number, Side::maximum);
    const auto minimum = evaluator.evaluate(0, combination.number, Side::minimum);
    RC_ASSERT(maximum && minimum && maximum->inner);
    for (std::size_t position = 0; position < 5; ++position) {
      for (std::size_t component = 0; component < 6; ++component) {
        const Sides expected = value_by_definition(model, combination, position, component);
        RC_ASSERT(maximum->at[position][component] == static_cast<float>(expected[0]));
        RC_ASSERT(minimum->at[position][component] == static_cast<float>(expected[1]));
      }
    }
  }
}

RC_GTEST_PROP(CombinationProperties, OneSideMeansThatBothAreEqual, ()) {
  const Model model = any_model();
  const CombinationEvaluator evaluator(model);
  for (const Combination& combination : model.combinations) {
    if (evaluator.has_two_sides(combination.number)) continue;
    RC_ASSERT(evaluator.evaluate(0, combination.number, Side::maximum) ==
              evaluator.evaluate(0, combination.number, Side::minimum));
  }
}

/// Closing any path of combinations into a circle is noticed, and the text goes around it.
RC_GTEST_PROP(CombinationProperties, ACircleIsFoundWhereverItIs, ()) {
  const Number length = *rc::gen::inRange<Number>(1, 40);
  const Number lead = *rc::gen::inRange<Number>(0, 20);
  std::vector<Number> numbers;
  for (Number i = 1; i <= lead + length; ++i) numbers.push_back(i);
  const auto order =
      *rc::gen::container<std::vector<int>>(numbers.size() + 1, rc::gen::arbitrary<int>());
  std::ranges::stable_sort(numbers, {}, [&order](Number i) { return order[i]; });
  Table<Combination> table;
  for (const Number i : numbers) {
    Combination combination;
    combination.number = i;
    const Number next = i == lead + length ? lead + 1 : i + 1;
    combination.terms = {{CombinationTerm::Source::combination, next, 1.0}};
    table.add(combination);
  }
  const auto problem = find_combination_problem(table);
  RC_ASSERT(problem.has_value());
  const Number first = table[problem->combination].number;
  RC_ASSERT(first > lead);
  std::string expected = "contains itself: " + std::to_string(first);
  for (Number i = 1; i <= length; ++i) {
    expected += " → " + std::to_string(lead + 1 + (first - lead - 1 + i) % length);
  }
  RC_ASSERT(problem->text == expected);
}

}  // namespace
}  // namespace aluframe::model
