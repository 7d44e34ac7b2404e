#include "aluframe/model/envelopes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <utility>

#include "aluframe/model/envelope_states.h"
#include "aluframe/model/factored_case.h"
#include "aluframe/texts/text.h"

namespace aluframe::model {

namespace {

/// "1.3G", "-G", "1.5 2nd floor"
std::string term_text(double factor, const LoadCase& load_case) {
  const double size = std::fabs(factor);
  return (factor < 0.0 ? "-" : "") +
         factored_case(size == 1.0 ? "" : fmt::format("{:.6g}", size), load_case);
}

/// "1.3G+1.5Wp"
std::string sum_text(const Model& model, const State& state) {
  std::string text;
  for (const auto& entry : state) {
    if (entry.factor == 0.0) continue;
    if (!text.empty() && entry.factor > 0.0) text += "+";
    text += term_text(entry.factor, model.load_cases[entry.load_case]);
  }
  return text.empty() ? "no load" : text;
}

/// Terms of a state as those of a combination, which has one at least.
std::vector<CombinationTerm> terms_of(const Model& model, const State& state) {
  std::vector<CombinationTerm> terms;
  for (const auto& entry : state) {
    if (entry.factor == 0.0) continue;
    const Number number = model.load_cases[entry.load_case].number;
    terms.push_back({CombinationTerm::Source::load_case, number, entry.factor});
  }
  if (terms.empty()) {
    terms.push_back({CombinationTerm::Source::load_case, model.load_cases[0].number, 0.0});
  }
  return terms;
}

/// Builds the combinations of a model with the states of its envelopes among them.
class Expansion {
 public:
  explicit Expansion(const Model& model)
      : model_(model), plans_(compile_combinations(model)), states_(states_of_combinations(model)) {
    for (const Combination& combination : model.combinations) taken_.insert(combination.number);
    for (std::size_t place = 0; place < plans_.size(); ++place) {
      const Combination& combination = model.combinations[place];
      if (!combination.design || plans_[place].two_sides) continue;
      checked_.try_emplace({key_of(plans_[place].cases), plans_[place].seismic},
                           combination.number);
    }
  }

  bool is_expanded(std::size_t place) const {
    return model_.combinations[place].design && plans_[place].two_sides;
  }

  std::optional<std::string> problem() const {
    for (std::size_t place = 0; place < states_.size(); ++place) {
      if (!is_expanded(place) || !states_[place].too_many) continue;
      return texts::translated(
          "/combinations/{}: combination {} contains up to {:.6g} states, more than the {} that "
          "are "
          "checked one by one; nest fewer envelopes in it, or set \"envelopes\": \"extremes\"",
          place, model_.combinations[place].number, states_[place].count, max_envelope_states);
    }
    return std::nullopt;
  }

  Table<Combination> run() {
    for (std::size_t place = 0; place < plans_.size(); ++place) {
      if (is_expanded(place)) {
        expand(place);
      } else {
        out_.add(model_.combinations[place]);
      }
    }
    return std::move(out_);
  }

 private:
  void expand(std::size_t place) {
    Combination envelope = model_.combinations[place];
    envelope.design = false;
    std::vector<Combination> added;
    for (std::size_t i = 0; i < states_[place].list.size(); ++i) {
      const State& state = states_[place].list[i];
      const auto [known, is_new] =
          checked_.try_emplace({key_of(state), is_seismic(envelope, state)}, 0);
      if (is_new) {
        known->second = free_number(envelope.number, i + 1);
        added.push_back(combination_of(envelope, state, known->second));
      }
      envelope.states.push_back(known->second);
    }
    out_.add(std::move(envelope));
    for (Combination& combination : added) out_.add(std::move(combination));
  }

  bool is_seismic(const Combination& envelope, const State& state) const {
    return envelope.seismic || std::ranges::any_of(state, [this](const auto& entry) {
             return entry.factor != 0.0 && is_seismic_case(model_.load_cases[entry.load_case]);
           });
  }

  Combination combination_of(const Combination& envelope, const State& state, Number number) const {
    Combination out;
    out.number = number;
    out.name = (envelope.name.empty() ? "" : envelope.name + ": ") + sum_text(model_, state);
    out.terms = terms_of(model_, state);
    out.seismic = envelope.seismic;
    out.state_of = envelope.number;
    return out;
  }

  Number free_number(Number envelope, std::size_t state) {
    const std::size_t readable = std::size_t{envelope} * (max_envelope_states + 1) + state;
    if (readable <= max_number && taken_.insert(static_cast<Number>(readable)).second) {
      return static_cast<Number>(readable);
    }
    while (!taken_.insert(largest_free_).second) --largest_free_;
    return largest_free_;
  }

  const Model& model_;
  std::vector<CombinationPlan> plans_;
  std::vector<States> states_;
  std::map<std::pair<StateKey, bool>, Number> checked_;  ///< by sum and whether it is seismic
  std::set<Number> taken_;
  Number largest_free_ = max_number;
  Table<Combination> out_;
};

}  // namespace

std::optional<std::string> expand_envelopes(Model& model) {
  const auto is_envelope = [](const Combination& combination) {
    return combination.kind == CombinationKind::envelope;
  };
  if (std::ranges::none_of(model.combinations, is_envelope) ||
      model.envelopes == Envelopes::extremes)
    return std::nullopt;
  Expansion expansion(model);
  if (auto problem = expansion.problem()) return problem;
  model.combinations = expansion.run();
  return std::nullopt;
}

std::string label_of(const Combination& combination) {
  if (!combination.state_of) return fmt::format("{}", combination.number);
  return fmt::format("{} {}", *combination.state_of, combination.name);
}

std::vector<Number> design_numbers(const Model& model) {
  std::vector<Number> numbers;
  for (const Combination& combination : model.combinations) {
    if (combination.design || !combination.states.empty()) numbers.push_back(combination.number);
  }
  return numbers;
}

std::set<Number> checked_combinations(const Model& model, std::span<const Number> named) {
  std::set<Number> checked;
  for (const Number number : named) {
    const std::vector<Number>& states = model.combinations.find(number)->states;
    if (states.empty()) {
      checked.insert(number);
    } else {
      checked.insert(states.begin(), states.end());
    }
  }
  return checked;
}

std::vector<Number> checked_by_extremes(const Model& model, const std::set<Number>& wanted) {
  const std::vector<CombinationPlan> plans = compile_combinations(model);
  std::vector<Number> found;
  for (std::size_t place = 0; place < plans.size(); ++place) {
    const Combination& combination = model.combinations[place];
    const bool is_wanted = wanted.empty() || wanted.contains(combination.number);
    if (combination.design && plans[place].two_sides && is_wanted) {
      found.push_back(combination.number);
    }
  }
  return found;
}

}  // namespace aluframe::model
