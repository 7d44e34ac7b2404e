#include "aluframe/run/buckling.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "aluframe/model/envelope_states.h"
#include "aluframe/model/envelopes.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/run/chosen_numbers.h"

namespace aluframe::run {

namespace {

using Modes = std::vector<analysis::BucklingMode>;

/// Sets of loads whose smallest factors are those of a combination or a load case.
struct Subject {
  model::Number number = 0;
  std::vector<forces::LoadSet> sets;  ///< whose axial forces are those of the frame's analysis
  std::string unknown;                ///< why others have no factor; empty: there are none
};

/// Elements with less of the work of the axial forces are not named.
constexpr double least_work = 0.1;

BucklingFactor factor_of(const model::Model& model, model::Number subject,
                         const analysis::BucklingMode& mode) {
  BucklingFactor factor{.subject = subject, .factor = mode.factor, .mode = mode.text};
  for (std::size_t i = 0; i < mode.work.size(); ++i) {
    if (mode.work[i] >= least_work) factor.elements.push_back(model.elements[i].number);
  }
  return factor;
}

/// Design combinations as the model has them: envelopes, not their states.
std::vector<model::Number> design_combinations(const model::Model& model) {
  std::vector<model::Number> numbers;
  for (const model::Combination& combination : model.combinations) {
    const bool is_checked = combination.design || !combination.states.empty();
    if (is_checked && !combination.state_of) numbers.push_back(combination.number);
  }
  return numbers;
}

/// The smallest modes of several sets of loads together.
analysis::Result<Modes> smallest_modes(forces::FrameBuckling& frame,
                                       const std::vector<forces::LoadSet>& sets, int count) {
  Modes all;
  for (const forces::LoadSet& set : sets) {
    auto found = frame.under(set, count);
    if (auto* problem = std::get_if<analysis::Problem>(&found)) return std::move(*problem);
    std::ranges::move(std::get<analysis::BucklingResult>(found).modes, std::back_inserter(all));
  }
  std::ranges::stable_sort(all, {}, &analysis::BucklingMode::factor);
  if (all.size() > static_cast<std::size_t>(count)) all.resize(static_cast<std::size_t>(count));
  return all;
}

std::vector<forces::LoadSet> reversed(std::vector<forces::LoadSet> sets) {
  for (forces::LoadSet& set : sets) {
    for (auto& entry : set) entry.factor = -entry.factor;
  }
  return sets;
}

/// By load case, whether forces of the run are given in it: they do not say how the frame carries
/// them.
std::vector<bool> cases_with_given_forces(const Input& input) {
  const model::Model& model = input.model;
  std::vector<bool> given(model.load_cases.size(), false);
  if (model.analysis.second_order) return given;  // which refuses given forces
  for (std::size_t element = 0; element < model.elements.size(); ++element) {
    for (std::size_t i = 0; i < given.size(); ++i) {
      given[i] = given[i] || (model.forces.find(element, i) != nullptr &&
                              !input.forces.computed.contains(element, i));
    }
  }
  return given;
}

/// Combinations with the states of their envelopes.
class Subjects {
 public:
  explicit Subjects(const Input& input)
      : model_(input.model),
        states_(model::states_of_combinations(input.model)),
        is_given_(cases_with_given_forces(input)) {}

  Subject of_combination(model::Number number) const {
    const model::States& states = states_[model_.combinations.position(number)];
    Subject subject{.number = number, .sets = {}, .unknown = {}};
    if (states.too_many) {
      subject.unknown = fmt::format("it has more than {} states", model::max_envelope_states);
      return subject;
    }
    for (const model::State& state : states.list) add(state, subject);
    return subject;
  }

  Subject of_case(model::Number number) const {
    Subject subject{.number = number, .sets = {}, .unknown = {}};
    add({{model_.load_cases.position(number), 1.0}}, subject);
    return subject;
  }

 private:
  void add(const forces::LoadSet& set, Subject& subject) const {
    const auto given = std::ranges::find_if(
        set, [&](const auto& entry) { return entry.factor != 0.0 && is_given_[entry.load_case]; });
    if (given == set.end()) {
      subject.sets.push_back(set);
    } else {
      subject.unknown =
          fmt::format("load case {} has given forces, which do not say how the frame carries them",
                      model_.load_cases[given->load_case].number);
    }
  }

  const model::Model& model_;
  std::vector<model::States> states_;
  std::vector<bool> is_given_;
};

Result<std::vector<Subject>> subjects_of_cases(const Input& input,
                                               const model::NumberRanges& cases) {
  const auto numbers = chosen_load_cases(input, cases);
  if (const auto* problem = std::get_if<Problem>(&numbers)) return *problem;
  const Subjects subjects(input);
  std::vector<Subject> out;
  for (const model::Number number : std::get<std::vector<model::Number>>(numbers)) {
    out.push_back(subjects.of_case(number));
  }
  return out;
}

Result<std::vector<Subject>> subjects_of_combinations(const Input& input,
                                                      const model::NumberRanges& combinations) {
  const auto numbers = chosen_numbers(input, "--combinations", combinations,
                                      design_combinations(input.model), "design combination");
  if (const auto* problem = std::get_if<Problem>(&numbers)) return *problem;
  const Subjects subjects(input);
  std::vector<Subject> out;
  for (const model::Number number : std::get<std::vector<model::Number>>(numbers)) {
    out.push_back(subjects.of_combination(number));
  }
  return out;
}

/// Design combinations of the run by their numbers in the model.
std::vector<model::Number> combinations_of_run(const Input& input) {
  std::vector<model::Number> numbers = design_combinations(input.model);
  if (input.combinations.empty()) return numbers;
  std::erase_if(numbers, [&](model::Number number) {
    const auto checked = model::checked_combinations(input.model, std::array{number});
    return !std::ranges::includes(input.combinations, checked);
  });
  return numbers;
}

BucklingFactor smallest_of(const Input& input, forces::FrameBuckling& frame,
                           const Subject& subject) {
  const auto modes = smallest_modes(frame, subject.sets, 1);
  BucklingFactor factor{.subject = subject.number, .factor = std::nullopt};
  if (const auto* problem = std::get_if<analysis::Problem>(&modes)) {
    factor.unknown = problem->text;
    return factor;
  }
  const Modes& found = std::get<Modes>(modes);
  if (!found.empty()) factor = factor_of(input.model, subject.number, found.front());
  factor.unknown = subject.unknown;
  return factor;
}

/// Kind of the remarks, and among the settings of a run that leaves buckling out.
constexpr const char* remark_kind = "buckling";
constexpr const char* setting_key = "buckling";

template <class Wanted>
std::vector<store::BucklingRow> chosen(const std::vector<store::BucklingRow>& rows, Wanted wanted) {
  std::vector<store::BucklingRow> out;
  std::ranges::copy_if(rows, std::back_inserter(out), wanted);
  return out;
}

/// "combination 3 buckles", "combinations 1-4, 7 buckle".
std::string subject_verb(const std::vector<store::BucklingRow>& rows, const std::string& verb) {
  std::vector<model::Number> numbers;
  for (const store::BucklingRow& row : rows) numbers.push_back(row.combination);
  std::ranges::sort(numbers);
  const std::string list = model::join_as_ranges(numbers);
  if (numbers.size() > 1) return fmt::format("combinations {} {}", list, verb);
  return fmt::format("combination {} {}s", list, verb);
}

/// "0.834 times the loads of combination 3 (nodes 2-3 move along X)"
std::string factor_text(const store::BucklingRow& row) {
  return fmt::format("{:.3g} times the loads of combination {} ({})", *row.factor, row.combination,
                     row.shape);
}

/// A remark with the elements that buckle.
store::RemarkRow remark_of(const store::BucklingRow& row, std::string text) {
  store::RemarkRow remark;
  remark.kind = remark_kind;
  remark.elements = row.elements;
  remark.text = std::move(text);
  remark.combination = row.combination;
  return remark;
}

}  // namespace

Result<BucklingAnalysis> find_buckling(const Input& input, const BucklingOptions& options) {
  BucklingAnalysis analysis;
  analysis.of_combinations = !options.combinations.empty() ||
                             (options.cases.empty() && !design_combinations(input.model).empty());
  const auto chosen = analysis.of_combinations
                          ? subjects_of_combinations(input, options.combinations)
                          : subjects_of_cases(input, options.cases);
  if (const auto* problem = std::get_if<Problem>(&chosen)) return *problem;
  auto made = forces::FrameBuckling::of(input.model);
  if (const auto* problem = std::get_if<analysis::Problem>(&made)) {
    return problem_of(input.file, *problem);
  }
  auto& frame = std::get<forces::FrameBuckling>(made);
  for (const Subject& subject : std::get<std::vector<Subject>>(chosen)) {
    const auto modes = smallest_modes(frame, subject.sets, options.modes);
    if (const auto* problem = std::get_if<analysis::Problem>(&modes)) {
      return problem_of(input.file, *problem);
    }
    for (const analysis::BucklingMode& mode : std::get<Modes>(modes)) {
      analysis.factors.push_back(factor_of(input.model, subject.number, mode));
    }
    if (std::get<Modes>(modes).empty() || !subject.unknown.empty()) {
      analysis.factors.push_back(
          {.subject = subject.number, .factor = std::nullopt, .unknown = subject.unknown});
    }
    if (!options.reversed) continue;
    analysis.reversed.push_back(
        smallest_of(input, frame, {subject.number, reversed(subject.sets), {}}));
  }
  return analysis;
}

std::vector<BucklingFactor> buckling_of_combinations(const Input& input,
                                                     const std::function<bool(int, int)>& goes_on) {
  const Subjects subjects(input);
  std::vector<Subject> all;
  for (const model::Number number : combinations_of_run(input)) {
    all.push_back(subjects.of_combination(number));
  }
  const bool is_any_known =
      std::ranges::any_of(all, [](const Subject& subject) { return !subject.sets.empty(); });
  std::optional<analysis::Result<forces::FrameBuckling>> made;
  if (is_any_known) made.emplace(forces::FrameBuckling::of(input.model));
  const auto* problem = made ? std::get_if<analysis::Problem>(&*made) : nullptr;
  std::vector<BucklingFactor> factors;
  for (const Subject& subject : all) {
    if (!goes_on(static_cast<int>(factors.size()), static_cast<int>(all.size()))) break;
    if (subject.sets.empty() || problem != nullptr) {
      factors.push_back({.subject = subject.number,
                         .factor = std::nullopt,
                         .unknown = subject.sets.empty() ? subject.unknown : problem->text});
    } else {
      factors.push_back(smallest_of(input, std::get<forces::FrameBuckling>(*made), subject));
    }
  }
  return factors;
}

std::vector<store::BucklingRow> buckling_rows(const std::vector<BucklingFactor>& factors,
                                              const model::Model& model) {
  std::vector<store::BucklingRow> rows;
  for (const BucklingFactor& factor : factors) {
    rows.push_back({.combination = factor.subject,
                    .name = model.combinations.find(factor.subject)->name,
                    .factor = factor.factor,
                    .shape = factor.mode,
                    .elements = model::join_as_ranges(factor.elements),
                    .unknown = factor.unknown});
  }
  return rows;
}

double buckling_limit(const model::Model& model) {
  return model.frame.value_or(model::FrameSettings())
      .buckling_limit.value_or(model::usual_buckling_limit);
}

const store::BucklingRow* smallest_factor(const std::vector<store::BucklingRow>& rows) {
  const store::BucklingRow* smallest = nullptr;
  for (const store::BucklingRow& row : rows) {
    if (row.factor && (smallest == nullptr || *row.factor < *smallest->factor)) smallest = &row;
  }
  return smallest;
}

bool buckles(const store::BucklingRow& row) {
  return row.factor && *row.factor < 1.0;
}

std::vector<store::RemarkRow> buckling_remarks(const std::vector<store::BucklingRow>& rows,
                                               const model::Model& model) {
  const double limit = buckling_limit(model);
  std::vector<store::RemarkRow> remarks;
  const auto failing = chosen(rows, buckles);
  const auto low = chosen(rows, [&](const store::BucklingRow& row) {
    return row.factor && !buckles(row) && *row.factor < limit;
  });
  if (!failing.empty()) {
    const store::BucklingRow& worst = *smallest_factor(failing);
    remarks.push_back(remark_of(
        worst,
        fmt::format("{} the frame: {}", subject_verb(failing, "buckle"), factor_text(worst))));
  }
  if (!low.empty()) {
    const char* remedy =
        model.analysis.second_order
            ? "imperfections of sway and bow count there: give them as loads, or stiffen or brace "
              "what moves"
            : "forces of first order leave out what grows there: compute them in second order, or "
              "stiffen or brace what moves";
    const store::BucklingRow& worst = *smallest_factor(low);
    remarks.push_back(remark_of(
        worst, fmt::format("{} below the limit of {} for the buckling load factor: {}; {}",
                           subject_verb(low, "lie"), limit, factor_text(worst), remedy)));
  }
  return remarks;
}

void leave_out_buckling(store::RunSetup& setup) {
  setup.settings.push_back({setting_key, "off", "--no-buckling"});
}

FrameBuckling buckling_of(const store::RunSetup& setup) {
  const bool is_off = std::ranges::find(setup.settings, setting_key, &store::SettingRow::key) !=
                      setup.settings.end();
  return is_off ? FrameBuckling::off : FrameBuckling::on;
}

}  // namespace aluframe::run
