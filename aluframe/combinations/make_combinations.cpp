#include "aluframe/combinations/make_combinations.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <utility>

#include "aluframe/combinations/candidates.h"
#include "aluframe/combinations/extreme_points.h"
#include "aluframe/combinations/made_names.h"
#include "aluframe/model/action_names.h"
#include "aluframe/texts/text.h"

namespace aluframe::combinations {

namespace {

using model::CombinationType;
using model::Number;

/// Candidates of which many may be the same sum or a mean of others.
constexpr std::size_t most_candidates = 4 * max_combinations_of_type;
constexpr Number numbers_of_type = 1000;
constexpr Number step_of_numbers = 10'000;

constexpr std::array all_types{CombinationType::fundamental, CombinationType::seismic,
                               CombinationType::accidental,  CombinationType::characteristic,
                               CombinationType::frequent,    CombinationType::quasi_permanent};

/// What speaks for an action when a combination is to give more than others: its leading action by
/// far, then those that act, then absence of the others.
double likely_effect(Role role) {
  constexpr double leading = 100.0;
  constexpr double of_gravity = 0.01;
  switch (role) {
    case Role::leading:
      return leading;
    case Role::favourable:
      return -1.0;
    case Role::gravity:
      return of_gravity;
    default:
      return 1.0;
  }
}

/// Makes the combinations of one type after the other.
class Maker {
 public:
  Maker(const model::Model& model, const model::CombinationRule& wanted, const Rule& rule,
        std::vector<ActingUnit> units)
      : model_(model), wanted_(wanted), rule_(rule), units_(std::move(units)) {
    for (const ActingUnit& unit : units_) {
      const double absent = unit.action.is_reversible() ? 0.0 : -1.0;
      for (const auto& each : unit.choices.front()) {
        places_.try_emplace(each.load_case, places_.size());
        absent_effects_.push_back(absent);
      }
    }
  }

  /// Throws Fault.
  std::vector<MadeCombination> run() {
    std::vector<MadeCombination> all;
    for (const CombinationType type : all_types) {
      if (!is_wanted(type)) continue;
      for (MadeCombination& made : of_type(type)) take(std::move(made), all);
    }
    number(all);
    return all;
  }

 private:
  bool is_wanted(CombinationType type) const {
    const auto& types = wanted_.types.empty() ? rule_.types : wanted_.types;
    return std::ranges::find(types, type) != types.end();
  }

  std::vector<MadeCombination> of_type(CombinationType type) const {
    auto patterns = patterns_of(type, units_, rule_, wanted_, model_);
    if (const auto* fault = std::get_if<Fault>(&patterns)) throw *fault;
    std::vector<MadeCombination> different;
    std::vector<FactorPoint> points;
    std::set<std::vector<double>> known;
    for (const Pattern& pattern : std::get<std::vector<Pattern>>(patterns)) {
      const auto candidates = candidates_of(pattern, units_, most_candidates);
      if (!candidates) throw too_many(type);
      for (const Candidate& candidate : *candidates) {
        MadeCombination made{
            .number = 0, .types = {type}, .name = {}, .terms = terms_of(candidate)};
        FactorPoint point = point_of(made);
        if (made.terms.empty() || !known.insert(point.factors).second) continue;
        different.push_back(std::move(made));
        points.push_back(std::move(point));
      }
    }
    return governing(type, std::move(different), points);
  }

  std::vector<MadeCombination> governing(CombinationType type,
                                         std::vector<MadeCombination> different,
                                         const std::vector<FactorPoint>& points) const {
    if (points.size() > most_candidates) throw too_many(type);
    const std::vector<bool> extreme = are_extreme(points);
    std::vector<MadeCombination> out;
    for (std::size_t i = 0; i < different.size(); ++i) {
      if (extreme[i]) out.push_back(std::move(different[i]));
    }
    if (out.size() > max_combinations_of_type) throw too_many(type);
    return out;
  }

  Fault too_many(CombinationType type) const {
    return {"/combinations/rule",
            texts::translated("the rule makes more than {} {} combinations of these actions; put "
                              "those that exclude each other into groups, let some act together, "
                              "or say which are never favourable",
                              max_combinations_of_type, model::name_of(type))};
  }

  std::vector<MadeTerm> terms_of(const Candidate& candidate) const {
    std::vector<MadeTerm> terms;
    for (const Acting& acting : candidate) {
      if (acting.factor.value() == 0.0) continue;
      for (const auto& each : units_[acting.unit].choices[acting.choice]) {
        terms.push_back({each.load_case, each.sign, acting.factor});
      }
    }
    return terms;
  }

  FactorPoint point_of(const MadeCombination& made) const {
    FactorPoint point{std::vector<double>(places_.size(), 0.0), absent_effects_};
    for (const MadeTerm& term : made.terms) {
      const std::size_t place = places_.at(term.load_case);
      point.factors[place] = term.value();
      point.likely_effects[place] = term.sign * likely_effect(term.factor.role);
    }
    return point;
  }

  /// Appends a combination, or gives its type to a serviceability combination of the same sum.
  void take(MadeCombination made, std::vector<MadeCombination>& all) {
    made.name = sum_text(model_, made.terms);
    if (!made.is_ultimate()) {
      const auto [same, is_new] = serviceability_.try_emplace(point_of(made).factors, all.size());
      if (!is_new) {
        all[same->second].types.push_back(made.types.front());
        return;
      }
    }
    all.push_back(std::move(made));
  }

  void number(std::vector<MadeCombination>& all) const {
    Number largest = 0;
    for (const model::Combination& combination : model_.combinations) {
      if (!combination.by_rule) largest = std::max(largest, combination.number);
    }
    Number offset = 0;
    while (largest > offset + numbers_of_type) {
      offset += step_of_numbers;
      if (offset + step_of_numbers > model::max_number) {
        throw Fault{"/combinations", texts::translated("combination {} leaves no numbers for those "
                                                       "that the rule makes",
                                                       largest)};
      }
    }
    std::map<CombinationType, Number> last;
    for (MadeCombination& made : all) {
      const CombinationType type = made.types.front();
      made.number = offset + numbers_of_type * (static_cast<Number>(type) + 1) + ++last[type];
    }
  }

  const model::Model& model_;
  const model::CombinationRule& wanted_;
  const Rule& rule_;
  std::vector<ActingUnit> units_;
  std::map<Number, std::size_t> places_;  ///< of the cases among the factors of a point
  std::vector<double> absent_effects_;
  std::map<std::vector<double>, std::size_t> serviceability_;  ///< sums of those made
};

std::string names_of(const std::vector<CombinationType>& types) {
  std::string names;
  for (const CombinationType type : types) {
    names += (names.empty() ? "" : ", ") + std::string(model::name_of(type));
  }
  return names;
}

std::string names_of(const std::vector<SeismicCode>& codes) {
  std::string names;
  for (const SeismicCode& code : codes) {
    names += (names.empty() ? "" : ", ") + std::string(code.name);
  }
  return names;
}

/// Throws Fault where the wishes do not fit the rule.
const Rule& rule_of(const model::CombinationRule& wanted) {
  const Rule* rule = find_rule(wanted.rule);
  if (rule == nullptr) {
    throw Fault{"/combinations/rule",
                texts::translated("found \"{}\", must be one of {}", wanted.rule, rule_names())};
  }
  const auto is_named = [&](const SeismicCode& code) { return code.name == wanted.seismic; };
  if (!wanted.seismic.empty() && std::ranges::none_of(rule->seismic, is_named)) {
    throw Fault{"/combinations/seismic",
                texts::translated("found \"{}\", must be one of {}", wanted.seismic,
                                  names_of(rule->seismic))};
  }
  for (std::size_t i = 0; i < wanted.types.size(); ++i) {
    if (std::ranges::find(rule->types, wanted.types[i]) != rule->types.end()) continue;
    throw Fault{"/combinations/types/" + std::to_string(i),
                texts::translated("found \"{}\", must be one of {}",
                                  model::name_of(wanted.types[i]), names_of(rule->types))};
  }
  if (!live_factor(wanted.design_life)) {
    throw Fault{"/combinations/design_life",
                texts::translated("found {}, must be 5, 50 or 100", wanted.design_life)};
  }
  return *rule;
}

}  // namespace

std::variant<std::vector<MadeCombination>, Fault> make_combinations(
    const model::Model& model, const model::CombinationRule& wanted) {
  try {
    const Rule& rule = rule_of(wanted);
    auto units = acting_units(model, rule, wanted);
    if (const auto* fault = std::get_if<Fault>(&units)) return *fault;
    return Maker(model, wanted, rule, std::get<std::vector<ActingUnit>>(std::move(units))).run();
  } catch (const Fault& fault) {
    return fault;
  }
}

model::Combination combination_of(const MadeCombination& made) {
  model::Combination combination;
  combination.number = made.number;
  combination.name = made.name;
  combination.seismic = made.is_seismic();
  combination.design = made.is_ultimate();
  combination.serviceability = !made.is_ultimate();
  combination.by_rule = true;
  for (const MadeTerm& term : made.terms) {
    combination.terms.push_back(
        {model::CombinationTerm::Source::load_case, term.load_case, term.value()});
  }
  return combination;
}

std::optional<Fault> complete(model::Model& model) {
  if (!model.combination_rule) return std::nullopt;
  const auto made = make_combinations(model, *model.combination_rule);
  if (const auto* fault = std::get_if<Fault>(&made)) return *fault;
  for (const MadeCombination& each : std::get<std::vector<MadeCombination>>(made)) {
    model.combinations.add(combination_of(each));
  }
  return std::nullopt;
}

}  // namespace aluframe::combinations
