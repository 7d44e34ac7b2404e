#include "aluframe/run/buckling.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

#include "aluframe/model/number_ranges.h"
#include "aluframe/run/buckling_subjects.h"
#include "aluframe/run/chosen_numbers.h"
#include "aluframe/run/length_remarks.h"
#include "aluframe/run/limit_factors.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

/// The smallest factor of a subject when all its loads act the other way round.
BucklingFactor reversed_factor(const Input& input, forces::FrameBuckling& frame,
                               BucklingSubject subject) {
  for (forces::LoadSet& set : subject.sets) {
    for (auto& entry : set) entry.factor = -entry.factor;
  }
  const auto modes = smallest_modes(frame, subject, 1);
  BucklingFactor factor{.subject = subject.number, .factor = std::nullopt};
  if (const auto* problem = std::get_if<analysis::Problem>(&modes)) {
    factor.unknown = problem->text;
    return factor;
  }
  const auto& found = std::get<std::vector<SubjectMode>>(modes);
  return found.empty() ? factor : factor_of(input.model, subject.number, found.front().mode);
}

Result<std::vector<BucklingSubject>> subjects_of_cases(const Input& input,
                                                       const model::NumberRanges& cases) {
  const auto numbers = chosen_load_cases(input, cases);
  if (const auto* problem = std::get_if<Problem>(&numbers)) return *problem;
  const BucklingSubjects subjects(input);
  std::vector<BucklingSubject> out;
  for (const model::Number number : std::get<std::vector<model::Number>>(numbers)) {
    out.push_back(subjects.of_case(number));
  }
  return out;
}

Result<std::vector<BucklingSubject>> subjects_of_combinations(
    const Input& input, const model::NumberRanges& combinations) {
  const auto numbers =
      chosen_numbers(input, "--combinations", combinations, design_combinations(input.model),
                     texts::translated("design combination"));
  if (const auto* problem = std::get_if<Problem>(&numbers)) return *problem;
  const BucklingSubjects subjects(input);
  std::vector<BucklingSubject> out;
  for (const model::Number number : std::get<std::vector<model::Number>>(numbers)) {
    out.push_back(subjects.of_combination(number));
  }
  return out;
}

/// Combinations, or load cases, and whether they are the former.
Result<std::pair<bool, std::vector<BucklingSubject>>> chosen_subjects(
    const Input& input, const BucklingOptions& options) {
  const bool of_combinations = !options.combinations.empty() ||
                               (options.cases.empty() && !design_combinations(input.model).empty());
  auto chosen = of_combinations ? subjects_of_combinations(input, options.combinations)
                                : subjects_of_cases(input, options.cases);
  if (auto* problem = std::get_if<Problem>(&chosen)) return std::move(*problem);
  return std::pair(of_combinations, std::get<std::vector<BucklingSubject>>(std::move(chosen)));
}

/// Kind of the remarks, and among the settings of a run that leaves buckling out.
constexpr const char* remark_kind = texts::translatable("buckling");
constexpr const char* setting_key = "buckling";

template <class Wanted>
std::vector<store::BucklingRow> chosen(const std::vector<store::BucklingRow>& rows, Wanted wanted) {
  std::vector<store::BucklingRow> out;
  std::ranges::copy_if(rows, std::back_inserter(out), wanted);
  return out;
}

/// "1-4, 7"
std::string combinations_of(const std::vector<store::BucklingRow>& rows) {
  std::vector<model::Number> numbers;
  numbers.reserve(rows.size());
  for (const store::BucklingRow& row : rows) numbers.push_back(row.combination);
  std::ranges::sort(numbers);
  return model::join_as_ranges(numbers);
}

/// Infinite where none is known.
double factor_or_infinite(const store::BucklingRow& row) {
  return row.factor.value_or(std::numeric_limits<double>::infinity());
}

/// "0.834 times the loads of combination 3 (nodes 2-3 move along X)"
std::string factor_text(const store::BucklingRow& row) {
  return fmt::format(texts::translatable("{:.3g} times the loads of combination {} ({})"),
                     factor_or_infinite(row), row.combination, row.shape);
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

/// What to do about a factor that is low.
const char* remedy_of(const model::AnalysisSettings& analysis) {
  if (!analysis.second_order) {
    return texts::translatable(
        "forces of first order leave out what grows there: compute them in second order, or "
        "stiffen or brace what moves");
  }
  if (analysis.large_displacements) {
    return texts::translatable("stiffen or brace what moves, or give another limit");
  }
  if (analysis.imperfections.any()) {
    return texts::translatable(
        "what grows there is in the forces: stiffen or brace what moves, or give another limit");
  }
  return texts::translatable(
      "imperfections of sway and bow count there: give them (\"imperfections\"), or stiffen or "
      "brace what moves");
}

}  // namespace

Result<BucklingAnalysis> find_buckling(const Input& input, const BucklingOptions& options) {
  const auto chosen = chosen_subjects(input, options);
  if (const auto* problem = std::get_if<Problem>(&chosen)) return *problem;
  const auto& [of_combinations, subjects] =
      std::get<std::pair<bool, std::vector<BucklingSubject>>>(chosen);
  BucklingAnalysis analysis;
  analysis.of_combinations = of_combinations;
  auto made = forces::FrameBuckling::of(input.model);
  if (const auto* problem = std::get_if<analysis::Problem>(&made)) {
    return problem_of(input.file, *problem);
  }
  auto& frame = std::get<forces::FrameBuckling>(made);
  for (const BucklingSubject& subject : subjects) {
    const auto modes = smallest_modes(frame, subject, options.modes);
    if (const auto* problem = std::get_if<analysis::Problem>(&modes)) {
      return problem_of(input.file, *problem);
    }
    const auto& found = std::get<std::vector<SubjectMode>>(modes);
    for (const SubjectMode& one : found) {
      analysis.factors.push_back(factor_of(input.model, subject.number, one.mode));
    }
    if (found.empty() || !subject.unknown.empty()) {
      analysis.factors.push_back(
          {.subject = subject.number, .factor = std::nullopt, .unknown = subject.unknown});
    }
    if (!options.reversed) continue;
    analysis.reversed.push_back(reversed_factor(input, frame, subject));
  }
  return analysis;
}

Result<LimitAnalysis> find_limit_loads(const Input& input, const BucklingOptions& options,
                                       double largest_factor) {
  if (input.model.analysis.imperfections.any()) {
    return Problem{input.file.string() + ": /analysis/imperfections: " +
                   std::string(texts::translation_of(no_large_imperfections))};
  }
  const auto chosen = chosen_subjects(input, options);
  if (const auto* problem = std::get_if<Problem>(&chosen)) return *problem;
  const auto& [of_combinations, subjects] =
      std::get<std::pair<bool, std::vector<BucklingSubject>>>(chosen);
  LimitAnalysis analysis{.of_combinations = of_combinations, .factors = {}};
  for (const BucklingSubject& subject : subjects) {
    auto found = smallest_limit(input, subject, largest_factor);
    if (const auto* problem = std::get_if<analysis::Problem>(&found)) {
      return problem_of(input.file, *problem);
    }
    analysis.factors.push_back(std::get<LimitFactor>(std::move(found)));
  }
  return analysis;
}

RunBuckling buckling_of_run(const Input& input, const GoesOn& goes_on) {
  RunBuckling buckling;
  std::vector<BucklingFactor> factors;
  if (input.modes) {
    const std::vector<model::Number> numbers = combinations_of_run(input);
    std::ranges::copy_if(input.modes->factors, std::back_inserter(factors), [&](const auto& of) {
      return std::ranges::find(numbers, of.subject) != numbers.end();
    });
  } else {
    FrameModes modes = frame_modes(input, goes_on);
    buckling.remarks = length_remarks(members::length_factors(input.model, modes.modes), &modes);
    factors = std::move(modes.factors);
  }
  take_limits(input, goes_on, factors);
  buckling.rows = buckling_rows(factors, input.model);
  std::ranges::move(buckling_remarks(buckling.rows, input.model),
                    std::back_inserter(buckling.remarks));
  return buckling;
}

std::vector<store::BucklingRow> buckling_rows(const std::vector<BucklingFactor>& factors,
                                              const model::Model& model) {
  std::vector<store::BucklingRow> rows;
  rows.reserve(factors.size());
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
      .buckling_limit.value_or(model::usual_limit(model.analysis));
}

const store::BucklingRow* smallest_factor(const std::vector<store::BucklingRow>& rows) {
  const store::BucklingRow* smallest = nullptr;
  for (const store::BucklingRow& row : rows) {
    if (!row.factor) continue;
    if (smallest == nullptr || factor_or_infinite(row) < factor_or_infinite(*smallest))
      smallest = &row;
  }
  return smallest;
}

bool buckles(const store::BucklingRow& row) {
  return factor_or_infinite(row) < 1.0;
}

bool is_about_buckling(const store::RemarkRow& remark) {
  return remark.kind == remark_kind;
}

std::vector<store::RemarkRow> buckling_remarks(const std::vector<store::BucklingRow>& rows,
                                               const model::Model& model) {
  const double limit = buckling_limit(model);
  std::vector<store::RemarkRow> remarks;
  const auto failing = chosen(rows, buckles);
  const auto low = chosen(rows, [&](const store::BucklingRow& row) {
    return !buckles(row) && factor_or_infinite(row) < limit;
  });
  if (!failing.empty()) {
    const store::BucklingRow& worst = *smallest_factor(failing);
    const char* text = failing.size() == 1
                           ? texts::translatable("combination {} buckles the frame: {}")
                           : texts::translatable("combinations {} buckle the frame: {}");
    remarks.push_back(remark_of(
        worst, fmt::format(fmt::runtime(text), combinations_of(failing), factor_text(worst))));
  }
  if (!low.empty()) {
    const store::BucklingRow& worst = *smallest_factor(low);
    const char* text =
        low.size() == 1
            ? texts::translatable(
                  "combination {} lies below the limit of {} for the buckling load factor: {}; {}")
            : texts::translatable(
                  "combinations {} lie below the limit of {} for the buckling load factor: {}; {}");
    remarks.push_back(remark_of(worst, fmt::format(fmt::runtime(text), combinations_of(low), limit,
                                                   factor_text(worst), remedy_of(model.analysis))));
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
