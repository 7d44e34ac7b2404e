#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

#include "aluframe/combinations/make_combinations.h"

namespace aluframe::combinations {
namespace {

// Fundamental combinations are found here by their definition alone: every choice of a leading
// action, of those that accompany it, of signs and of factors of permanent actions.

using model::ActionKind;
using model::CombinationType;
using model::Favourable;
using model::Number;

using Sum = std::map<Number, double>;
constexpr Number most_cases = 6;

struct Share {
  double gamma;
  double psi_c;
};

/// GB 50068-2018, 8.2.9; GB 50009-2012, 7.1.5, 8.1.4 and 9.1.3, offices by 5.1.1.
Share share_of(ActionKind kind) {
  switch (kind) {
    case ActionKind::wind:
      return {1.5, 0.6};
    case ActionKind::temperature:
      return {1.5, 0.6};
    default:
      return {1.5, 0.7};
  }
}

model::Action any_action() {
  model::Action action;
  action.kind = *rc::gen::element(ActionKind::permanent, ActionKind::live, ActionKind::snow,
                                  ActionKind::wind, ActionKind::temperature);
  if (action.kind == ActionKind::live) action.category = "office";
  if (action.kind == ActionKind::snow) action.category = "I";
  if (action.kind == ActionKind::permanent) {
    action.favourable = *rc::gen::element(Favourable::also, Favourable::never, Favourable::only);
    return action;
  }
  if (*rc::gen::arbitrary<bool>()) action.exclusive = "group";
  action.favourable = *rc::gen::element(Favourable::also, Favourable::also, Favourable::never);
  if (*rc::gen::inRange(0, 4) == 0) action.reversible = true;
  return action;
}

std::vector<model::LoadCase> any_cases() {
  std::vector<model::LoadCase> cases(*rc::gen::inRange<std::size_t>(1, most_cases + 1));
  std::size_t members = 0;
  for (std::size_t i = 0; i < cases.size(); ++i) {
    cases[i].number = static_cast<Number>(i + 1);
    cases[i].action = any_action();
    members += cases[i].action->exclusive.empty() ? 0 : 1;
  }
  // A group of one is refused.
  if (members == 1) {
    for (model::LoadCase& each : cases) each.action->exclusive.clear();
  }
  return cases;
}

model::Model model_of(const std::vector<model::LoadCase>& cases) {
  model::Model model;
  for (const model::LoadCase& each : cases) model.load_cases.add(each);
  return model;
}

std::vector<MadeCombination> made_of(const model::Model& model) {
  return std::get<std::vector<MadeCombination>>(
      make_combinations(model, {.rule = "GB 50068-2018", .types = {CombinationType::fundamental}}));
}

Sum sum_of(const MadeCombination& made) {
  Sum sum;
  for (const MadeTerm& term : made.terms) sum[term.load_case] = term.value();
  return sum;
}

bool are_exclusive(const model::Action& a, const model::Action& b) {
  return !a.exclusive.empty() && a.exclusive == b.exclusive;
}

/// Every set of variable actions that may act together, with every one of them leading.
class ByDefinition {
 public:
  explicit ByDefinition(const std::vector<model::LoadCase>& cases) : cases_(cases) {}

  std::vector<Sum> run() {
    add(0, {});
    return found_;
  }

 private:
  bool is_permanent(std::size_t i) const { return cases_[i].action->kind == ActionKind::permanent; }

  void add(std::size_t i, std::vector<std::size_t> acting) {
    if (i < cases_.size()) {
      add(i + 1, acting);
      if (is_permanent(i)) return;
      acting.push_back(i);
      return add(i + 1, acting);
    }
    for (const std::size_t a : acting) {
      for (const std::size_t b : acting) {
        if (a != b && are_exclusive(*cases_[a].action, *cases_[b].action)) return;
      }
    }
    if (lacks_one_that_must_act(acting)) return;
    if (acting.empty()) return add_permanent(0, {});
    for (const std::size_t leading : acting) add_signs(acting, leading, 0, {});
  }

  bool lacks_one_that_must_act(const std::vector<std::size_t>& acting) const {
    for (std::size_t i = 0; i < cases_.size(); ++i) {
      const model::Action& action = *cases_[i].action;
      if (is_permanent(i) || action.favourable != Favourable::never) continue;
      if (std::ranges::find(acting, i) != acting.end()) continue;
      const bool is_excluded = std::ranges::any_of(
          acting, [&](std::size_t other) { return are_exclusive(action, *cases_[other].action); });
      if (!is_excluded) return true;
    }
    return false;
  }

  void add_signs(const std::vector<std::size_t>& acting, std::size_t leading, std::size_t place,
                 Sum sum) {
    if (place == acting.size()) return add_permanent(0, sum);
    const model::LoadCase& load_case = cases_[acting[place]];
    const Share share = share_of(load_case.action->kind);
    const double size = acting[place] == leading ? share.gamma : share.psi_c * share.gamma;
    sum[load_case.number] = size;
    add_signs(acting, leading, place + 1, sum);
    if (!load_case.action->is_reversible()) return;
    sum[load_case.number] = -size;
    add_signs(acting, leading, place + 1, sum);
  }

  void add_permanent(std::size_t i, Sum sum) {
    if (i == cases_.size()) {
      if (!sum.empty()) found_.push_back(sum);
      return;
    }
    if (!is_permanent(i)) return add_permanent(i + 1, sum);
    const Favourable favourable = cases_[i].action->favourable;
    if (favourable != Favourable::only) {
      sum[cases_[i].number] = 1.3;
      add_permanent(i + 1, sum);
    }
    if (favourable == Favourable::never) return;
    sum[cases_[i].number] = 1.0;
    add_permanent(i + 1, sum);
  }

  const std::vector<model::LoadCase>& cases_;
  std::vector<Sum> found_;
};

double effect_of(const Sum& sum, const std::vector<double>& effects) {
  double effect = 0.0;
  for (const auto& [number, factor] : sum) effect += factor * effects[number - 1];
  return effect;
}

double most_of(const std::vector<Sum>& sums, const std::vector<double>& effects) {
  double most = -INFINITY;
  for (const Sum& sum : sums) most = std::max(most, effect_of(sum, effects));
  return most;
}

std::vector<Sum> sums_of(const std::vector<MadeCombination>& made) {
  std::vector<Sum> sums;
  for (const MadeCombination& each : made) sums.push_back(sum_of(each));
  return sums;
}

/// Effects under which a sum gives more than all others, by the perceptron: what fails is added.
/// It ends where there are any, and earlier the clearer they are.
bool governs_somewhere(const std::vector<Sum>& sums, std::size_t place, std::size_t cases) {
  std::vector<double> effects(cases, 0.0);
  constexpr int most_rounds = 20'000;
  for (int round = 0; round < most_rounds; ++round) {
    bool is_done = true;
    for (std::size_t i = 0; i < sums.size(); ++i) {
      if (i == place || effect_of(sums[place], effects) > effect_of(sums[i], effects) + 1e-9) {
        continue;
      }
      is_done = false;
      for (const auto& [number, factor] : sums[place]) effects[number - 1] += factor;
      for (const auto& [number, factor] : sums[i]) effects[number - 1] -= factor;
    }
    if (is_done) return true;
  }
  return false;
}

RC_GTEST_PROP(CombinationLaws, NothingThatCouldGovernIsMissingWhateverTheEffectsOfTheCases, ()) {
  const auto cases = any_cases();
  const std::vector<Sum> made = sums_of(made_of(model_of(cases)));
  const std::vector<Sum> defined = ByDefinition(cases).run();
  RC_PRE(!defined.empty());
  for (int trial = 0; trial < 50; ++trial) {
    std::vector<double> effects;
    for (std::size_t i = 0; i < cases.size(); ++i) {
      effects.push_back(static_cast<double>(*rc::gen::inRange(-1000, 1001)));
    }
    RC_ASSERT(std::fabs(most_of(made, effects) - most_of(defined, effects)) < 1e-6);
  }
}

RC_GTEST_PROP(CombinationLaws, EveryOneIsOneByTheDefinition, ()) {
  const auto cases = any_cases();
  const std::vector<Sum> defined = ByDefinition(cases).run();
  for (const Sum& sum : sums_of(made_of(model_of(cases)))) {
    const bool is_defined = std::ranges::any_of(defined, [&](const Sum& other) {
      return std::ranges::equal(sum, other, [](const auto& a, const auto& b) {
        return a.first == b.first && std::fabs(a.second - b.second) < 1e-9;
      });
    });
    RC_ASSERT(is_defined);
  }
}

RC_GTEST_PROP(CombinationLaws, EachGovernsUnderSomeEffects, ()) {
  const auto cases = any_cases();
  const std::vector<Sum> made = sums_of(made_of(model_of(cases)));
  RC_PRE(made.size() < 150u);
  for (std::size_t i = 0; i < made.size(); ++i) {
    RC_ASSERT(governs_somewhere(made, i, cases.size()));
  }
}

RC_GTEST_PROP(CombinationLaws, TheOrderOfTheCasesChangesNothing, ()) {
  auto cases = any_cases();
  const auto before = made_of(model_of(cases));
  for (std::size_t i = cases.size(); i > 1; --i) {
    std::swap(cases[i - 1], cases[*rc::gen::inRange<std::size_t>(0, i)]);
  }
  const auto after = made_of(model_of(cases));
  RC_ASSERT(before.size() == after.size());
  for (std::size_t i = 0; i < before.size(); ++i) {
    RC_ASSERT(combination_of(before[i]) == combination_of(after[i]));
  }
}

}  // namespace
}  // namespace aluframe::combinations
