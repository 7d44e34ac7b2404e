#include "aluframe/run/frame_modes.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "aluframe/model/envelopes.h"
#include "aluframe/run/buckling_subjects.h"
#include "aluframe/run/input.h"

namespace aluframe::run {

namespace {

/// Modes of the combination nearest to buckling that length factors follow from, when the model
/// asks for factors of modes.
constexpr int modes_of_governing = 6;

void add(model::Number combination, analysis::BucklingResult found, bool is_near, FrameModes& out) {
  for (analysis::BucklingMode& mode : found.modes) {
    out.modes.push_back({.combination = combination,
                         .factor = mode.factor,
                         .is_near = is_near,
                         .work = std::move(mode.work),
                         .compression = found.compression});
  }
}

/// Adds the modes of all sets of a subject, and what is told of its smallest factor.
void add_modes(const Input& input, forces::FrameBuckling& frame, const BucklingSubject& subject,
               FrameModes& out) {
  BucklingFactor smallest{
      .subject = subject.number, .factor = std::nullopt, .unknown = subject.unknown};
  for (const forces::LoadSet& set : subject.sets) {
    auto found = frame.near(set);
    if (const auto* problem = std::get_if<analysis::Problem>(&found)) {
      smallest = {.subject = subject.number, .factor = std::nullopt, .unknown = problem->text};
      break;
    }
    auto& result = std::get<analysis::BucklingResult>(found);
    if (result.modes.empty()) continue;
    if (!smallest.factor || result.modes.front().factor < *smallest.factor) {
      smallest = factor_of(input.model, subject.number, result.modes.front());
      smallest.unknown = subject.unknown;
    }
    const bool is_told = !out.passed_over.empty() && out.passed_over.back() == subject.number;
    if (result.has_passed_over && !is_told) out.passed_over.push_back(subject.number);
    add(subject.number, std::move(result), true, out);
  }
  out.factors.push_back(std::move(smallest));
}

/// Adds modes further from the first of the combination with the smallest factor: others may buckle
/// in them, or the same about their other axis.
void add_modes_of_governing(forces::FrameBuckling& frame,
                            const std::vector<BucklingSubject>& subjects, FrameModes& out) {
  const auto governing = std::ranges::min_element(out.modes, {}, &members::FrameMode::factor);
  if (governing == out.modes.end()) return;
  const model::Number number = governing->combination;
  const auto subject = std::ranges::find(subjects, number, &BucklingSubject::number);
  for (const forces::LoadSet& set : subject->sets) {
    auto found = frame.under(set, modes_of_governing);
    auto* result = std::get_if<analysis::BucklingResult>(&found);
    if (result != nullptr) add(number, std::move(*result), false, out);
  }
}

FrameModes modes_of(const Input& input, const std::vector<BucklingSubject>& subjects,
                    const GoesOn& goes_on) {
  const auto has_sets = [](const BucklingSubject& subject) { return !subject.sets.empty(); };
  std::optional<analysis::Result<forces::FrameBuckling>> made;
  if (std::ranges::any_of(subjects, has_sets)) made.emplace(forces::FrameBuckling::of(input.model));
  const auto* problem = made ? std::get_if<analysis::Problem>(&*made) : nullptr;
  auto* buckling = made ? std::get_if<forces::FrameBuckling>(&*made) : nullptr;
  FrameModes out;
  for (const BucklingSubject& subject : subjects) {
    if (!goes_on(static_cast<int>(out.factors.size()), static_cast<int>(subjects.size()))) break;
    if (buckling != nullptr && has_sets(subject)) {
      add_modes(input, *buckling, subject, out);
    } else {
      const bool is_problem = problem != nullptr && has_sets(subject);
      out.factors.push_back({.subject = subject.number,
                             .factor = std::nullopt,
                             .unknown = is_problem ? problem->text : subject.unknown});
    }
  }
  const model::FrameSettings frame = input.model.frame.value_or(model::FrameSettings{});
  if (buckling != nullptr && frame.length_factors == model::LengthFactors::buckling) {
    add_modes_of_governing(*buckling, subjects, out);
  }
  return out;
}

}  // namespace

std::vector<model::Number> combinations_of_run(const Input& input) {
  std::vector<model::Number> numbers;
  for (const BucklingSubject& subject : subjects_of_run(input)) numbers.push_back(subject.number);
  return numbers;
}

FrameModes frame_modes(const Input& input, const GoesOn& goes_on) {
  return modes_of(input, subjects_of_run(input), goes_on);
}

FrameModes frame_modes_of_all(const Input& input) {
  const BucklingSubjects subjects(input);
  std::vector<BucklingSubject> all;
  for (const model::Number number : design_combinations(input.model)) {
    all.push_back(subjects.of_combination(number));
  }
  return modes_of(input, all, [](int, int) { return true; });
}

}  // namespace aluframe::run
