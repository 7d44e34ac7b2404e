#include "aluframe/forces/load_sets.h"

#include <fmt/format.h>

#include "aluframe/texts/text.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace aluframe::forces {

namespace {

using model::CombinationPlan;

bool same(const LoadSet& a, const LoadSet& b) {
  return std::ranges::equal(a, b, [](const auto& left, const auto& right) {
    return left.load_case == right.load_case && left.factor == right.factor;
  });
}

/// Gathers sets through nested envelopes.
class Gatherer {
 public:
  Gatherer(const model::Model& model, std::span<const CombinationPlan> plans)
      : model_(model), plans_(plans) {}

  /// Nested at most `max_combination_depth` deep, so is the recursion.
  void gather(std::size_t place, double factor) {
    if (!met_.insert({place, factor}).second) return;
    const CombinationPlan& plan = plans_[place];
    if (!plan.two_sides) {
      add(scaled(plan.cases, factor));
    } else if (plan.kind == model::CombinationKind::linear) {
      problem_ = fmt::format(
          texts::translatable(
              "combination {} adds an envelope to other forces, which second order cannot analyse; "
              "check envelopes by their states"),
          model_.combinations[place].number);
    } else {
      for (const CombinationPlan::Term& term : plan.terms) gather_term(term, factor);
    }
  }

  std::variant<std::vector<LoadSet>, std::string> result() && {
    if (problem_) return *std::move(problem_);
    return std::move(sets_);
  }

 private:
  static LoadSet scaled(LoadSet set, double factor) {
    for (auto& entry : set) entry.factor *= factor;
    std::erase_if(set, [](const auto& entry) { return entry.factor == 0.0; });
    return set;
  }

  void gather_term(const CombinationPlan::Term& term, double factor) {
    if (term.factor == 0.0) {
      add({});
    } else if (term.source == model::CombinationTerm::Source::load_case) {
      add({{term.place, factor * term.factor}});
    } else {
      gather(term.place, factor * term.factor);
    }
  }

  void add(LoadSet set) {
    const auto is_known = [&](const LoadSet& known) { return same(known, set); };
    if (std::ranges::none_of(sets_, is_known)) sets_.push_back(std::move(set));
  }

  const model::Model& model_;
  std::span<const CombinationPlan> plans_;
  std::set<std::pair<std::size_t, double>> met_;
  std::vector<LoadSet> sets_;
  std::optional<std::string> problem_;
};

}  // namespace

std::variant<std::vector<LoadSet>, std::string> load_sets_of(const model::Model& model,
                                                             std::span<const CombinationPlan> plans,
                                                             std::size_t place) {
  Gatherer gatherer(model, plans);
  gatherer.gather(place, 1.0);
  return std::move(gatherer).result();
}

}  // namespace aluframe::forces
