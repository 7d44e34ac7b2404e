#include "aluframe/run/limit_factors.h"

#include <algorithm>
#include <set>
#include <utility>

#include "aluframe/forces/limit_load.h"
#include "aluframe/run/buckling.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

using Kind = analysis::LimitLoad::Kind;

/// Combinations, as the model has them, whose factor may be that of a limit load.
std::set<model::Number> followed(const Input& input) {
  std::set<model::Number> numbers;
  if (input.model.analysis.large_displacements) {
    for (const model::Number number : combinations_of_run(input)) numbers.insert(number);
  }
  for (const forces::Growing& growing : input.forces.growing) {
    const model::Combination& combination = *input.model.combinations.find(growing.combination);
    numbers.insert(combination.state_of.value_or(combination.number));
  }
  return numbers;
}

std::string text_of(const analysis::LimitLoad& limit) {
  return limit.kind == Kind::snap_through
             ? fmt::format(texts::translatable("snaps through: {}"), limit.text)
             : limit.text;
}

void take_limit(const Input& input, const BucklingSubject& subject, BucklingFactor& factor) {
  const double limit = buckling_limit(input.model);
  const auto found = smallest_limit(input, subject, std::min(factor.factor.value_or(limit), limit));
  if (const auto* problem = std::get_if<analysis::Problem>(&found)) {
    factor.unknown = problem->text;
    return;
  }
  const auto& smallest = std::get<LimitFactor>(found);
  if (!smallest.unknown.empty()) factor.unknown = smallest.unknown;
  if (!smallest.limit || smallest.limit->kind == Kind::none) return;
  if (factor.factor && *factor.factor <= smallest.limit->factor) return;
  factor.factor = smallest.limit->factor;
  factor.mode = text_of(*smallest.limit);
  factor.elements.clear();
}

}  // namespace

analysis::Result<LimitFactor> smallest_limit(const Input& input, const BucklingSubject& subject,
                                             double largest) {
  LimitFactor factor{.subject = subject.number, .limit = {}, .unknown = subject.unknown};
  for (const forces::LoadSet& set : subject.sets) {
    auto found = forces::limit_load(input.model, set, largest);
    if (auto* problem = std::get_if<analysis::Problem>(&found)) {
      if (problem->kind != analysis::Problem::Kind::divergence) return std::move(*problem);
      factor.unknown = problem->text;
      continue;
    }
    auto& limit = std::get<analysis::LimitLoad>(found);
    const bool is_smaller = !factor.limit || limit.factor < factor.limit->factor ||
                            (limit.kind != Kind::none && factor.limit->kind == Kind::none);
    if (is_smaller) factor.limit = std::move(limit);
  }
  return factor;
}

void take_limits(const Input& input, const GoesOn& goes_on, std::vector<BucklingFactor>& factors) {
  const std::set<model::Number> numbers = followed(input);
  if (numbers.empty()) return;
  const std::vector<BucklingSubject> subjects = subjects_of_run(input);
  int done = 0;
  for (BucklingFactor& factor : factors) {
    if (!numbers.contains(factor.subject)) continue;
    if (!goes_on(done++, static_cast<int>(numbers.size()))) return;
    const auto subject = std::ranges::find(subjects, factor.subject, &BucklingSubject::number);
    if (subject != subjects.end()) take_limit(input, *subject, factor);
  }
}

}  // namespace aluframe::run
