#include "aluframe/run/buckling_subjects.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <utility>

#include "aluframe/model/envelopes.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

/// Elements with less of the work of the axial forces are not named.
constexpr double least_work = 0.1;

/// By load case, whether forces of the run are given in it: they do not say how the frame carries
/// them.
std::vector<bool> cases_with_given_forces(const Input& input) {
  const model::Model& model = input.model;
  std::vector<bool> given(model.load_cases.size(), false);
  for (std::size_t element = 0; element < model.elements.size(); ++element) {
    for (std::size_t i = 0; i < given.size(); ++i) {
      given[i] = given[i] || (model.forces.find(element, i) != nullptr &&
                              !input.forces.computed.contains(element, i));
    }
  }
  return given;
}

/// What a run checks of a combination: itself, or of an envelope those of its states that the run
/// is not limited to leave out.
std::optional<BucklingSubject> subject_of_run(const Input& input, const BucklingSubjects& subjects,
                                              model::Number number) {
  if (input.combinations.empty()) return subjects.of_combination(number);
  const auto checked = model::checked_combinations(input.model, std::array{number});
  if (std::ranges::includes(input.combinations, checked)) return subjects.of_combination(number);
  BucklingSubject subject{.number = number, .sets = {}, .unknown = {}};
  bool has_any = false;
  for (const model::Number state : checked) {
    const bool is_own = input.model.combinations.find(state)->state_of == number;
    if (!is_own || !input.combinations.contains(state)) continue;
    has_any = true;
    BucklingSubject of_state = subjects.of_combination(state);
    std::ranges::move(of_state.sets, std::back_inserter(subject.sets));
    if (!of_state.unknown.empty()) subject.unknown = std::move(of_state.unknown);
  }
  if (!has_any) return std::nullopt;
  return subject;
}

}  // namespace

BucklingSubjects::BucklingSubjects(const Input& input)
    : model_(input.model),
      states_(model::states_of_combinations(input.model)),
      is_given_(cases_with_given_forces(input)) {}

BucklingSubject BucklingSubjects::of_combination(model::Number number) const {
  const model::States& states = states_[model_.combinations.position(number)];
  BucklingSubject subject{.number = number, .sets = {}, .unknown = {}};
  if (states.too_many) {
    subject.unknown =
        fmt::format(texts::translatable("it has more than {} states"), model::max_envelope_states);
    return subject;
  }
  for (const model::State& state : states.list) add(state, subject);
  return subject;
}

BucklingSubject BucklingSubjects::of_case(model::Number number) const {
  BucklingSubject subject{.number = number, .sets = {}, .unknown = {}};
  add({{model_.load_cases.position(number), 1.0}}, subject);
  return subject;
}

void BucklingSubjects::add(const forces::LoadSet& set, BucklingSubject& subject) const {
  const auto given = std::ranges::find_if(
      set, [&](const auto& entry) { return entry.factor != 0.0 && is_given_[entry.load_case]; });
  if (given == set.end()) {
    subject.sets.push_back(set);
  } else {
    subject.unknown = fmt::format(
        texts::translatable(
            "load case {} has given forces, which do not say how the frame carries them"),
        model_.load_cases[given->load_case].number);
  }
}

std::vector<model::Number> design_combinations(const model::Model& model) {
  std::vector<model::Number> numbers;
  for (const model::Combination& combination : model.combinations) {
    const bool is_checked = combination.design || !combination.states.empty();
    if (is_checked && !combination.state_of) numbers.push_back(combination.number);
  }
  return numbers;
}

std::vector<BucklingSubject> subjects_of_run(const Input& input) {
  const BucklingSubjects subjects(input);
  std::vector<BucklingSubject> all;
  for (const model::Number number : design_combinations(input.model)) {
    if (auto subject = subject_of_run(input, subjects, number)) all.push_back(std::move(*subject));
  }
  return all;
}

analysis::Result<std::vector<SubjectMode>> smallest_modes(forces::FrameBuckling& frame,
                                                          const BucklingSubject& subject,
                                                          int count) {
  const auto factor = [](const SubjectMode& of) { return of.mode.factor; };
  std::vector<SubjectMode> all;
  for (const forces::LoadSet& set : subject.sets) {
    auto found = frame.under(set, count);
    if (auto* problem = std::get_if<analysis::Problem>(&found)) return std::move(*problem);
    auto& result = std::get<analysis::BucklingResult>(found);
    for (analysis::BucklingMode& mode : result.modes) {
      const auto place = std::ranges::upper_bound(all, mode.factor, {}, factor);
      all.insert(place, {std::move(mode), result.compression});
    }
  }
  if (all.size() > static_cast<std::size_t>(count)) all.resize(static_cast<std::size_t>(count));
  return all;
}

BucklingFactor factor_of(const model::Model& model, model::Number subject,
                         const analysis::BucklingMode& mode) {
  BucklingFactor factor{.subject = subject, .factor = mode.factor, .mode = mode.text};
  for (std::size_t i = 0; i < mode.work.size(); ++i) {
    if (mode.work[i].sum() >= least_work) factor.elements.push_back(model.elements[i].number);
  }
  return factor;
}

}  // namespace aluframe::run
