#include "aluframe/run/analysis.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>
#include <variant>

#include "aluframe/forces/analyse_sets.h"
#include "aluframe/run/chosen_numbers.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

/// Sets of loads to analyse, and the numbers of what they are of.
struct Subjects {
  bool of_combinations = false;
  std::vector<model::Number> numbers;
  std::vector<forces::LoadSet> sets;
  std::vector<model::Number> left_out;
};

Result<Subjects> chosen_cases(const Input& input, const AnalysisOptions& options) {
  auto numbers = chosen_load_cases(input, options.cases);
  if (auto* problem = std::get_if<Problem>(&numbers)) return std::move(*problem);
  Subjects subjects;
  subjects.numbers = std::get<std::vector<model::Number>>(std::move(numbers));
  for (const model::Number number : subjects.numbers) {
    subjects.sets.push_back({{input.model.load_cases.position(number), 1.0}});
  }
  return subjects;
}

/// Adds a combination to the subjects, or leaves it out when it is an envelope.
/// @return what is wrong with it
std::optional<Problem> add(const Input& input, const model::CombinationPlan& plan,
                           model::Number number, Subjects& subjects) {
  if (plan.two_sides) {
    subjects.left_out.push_back(number);
    return std::nullopt;
  }
  if (const auto load_case = without_loads(input.model, plan.cases)) {
    return about(
        input, texts::translated("combination {}: load case {} has no loads", number, *load_case));
  }
  subjects.numbers.push_back(number);
  subjects.sets.push_back(plan.cases);
  return std::nullopt;
}

Result<Subjects> chosen_combinations(const Input& input, const AnalysisOptions& options) {
  const model::Model& model = input.model;
  std::vector<model::Number> existing;
  for (const model::Combination& combination : model.combinations) {
    if (!combination.state_of) existing.push_back(combination.number);
  }
  const auto numbers = chosen_numbers(input, "--combinations", options.combinations,
                                      std::move(existing), texts::translated("combination"));
  if (const auto* problem = std::get_if<Problem>(&numbers)) return *problem;
  Subjects subjects;
  subjects.of_combinations = true;
  const auto plans = model::compile_combinations(model);
  for (const model::Number number : std::get<std::vector<model::Number>>(numbers)) {
    const auto problem = add(input, plans[model.combinations.position(number)], number, subjects);
    if (problem) return *problem;
  }
  std::ranges::sort(subjects.left_out);
  if (subjects.numbers.empty()) {
    return about(input,
                 subjects.left_out.empty()
                     ? texts::translated("has no combination to analyse")
                     : texts::translated("has no combination to analyse but envelopes, whose "
                                         "two sides are no state of the frame"));
  }
  return subjects;
}

Result<Subjects> chosen_subjects(const Input& input, const AnalysisOptions& options) {
  const model::Model& model = input.model;
  const bool wants_combinations =
      !options.combinations.empty() ||
      (model.analysis.second_order && options.cases.empty() && !model.combinations.empty());
  return wants_combinations ? chosen_combinations(input, options) : chosen_cases(input, options);
}

}  // namespace

Result<Analysis> analyse(const Input& input, const AnalysisOptions& options) {
  auto chosen = chosen_subjects(input, options);
  if (const auto* problem = std::get_if<Problem>(&chosen)) return *problem;
  auto& subjects = std::get<Subjects>(chosen);
  const bool second_order = input.model.analysis.second_order;
  auto solved =
      forces::analyse_sets(input.model, subjects.sets, forces::order_of(input.model.analysis));
  if (auto* problem = std::get_if<analysis::Problem>(&solved)) {
    if (problem->load_case) {
      problem->text = fmt::format(
          fmt::runtime(subjects.of_combinations ? texts::translatable("combination {}: {}")
                                                : texts::translatable("load case {}: {}")),
          subjects.numbers[*problem->load_case], problem->text);
    }
    return problem_of(input.file, *problem);
  }
  return Analysis{.of_combinations = subjects.of_combinations,
                  .second_order = second_order,
                  .subjects = std::move(subjects.numbers),
                  .answers = std::get<std::vector<analysis::SecondOrderResult>>(std::move(solved)),
                  .left_out = std::move(subjects.left_out)};
}

}  // namespace aluframe::run
