#include "aluframe/model/envelope_states.h"

#include <algorithm>
#include <cmath>

#include "aluframe/model/combination_nesting.h"
#include "aluframe/model/envelopes.h"

namespace aluframe::model {

namespace {

/// The value to 40 binary digits, which are 12 decimal ones.
double rounded(double value) {
  constexpr int digits = 40;
  int exponent = 0;
  const double fraction = std::frexp(value, &exponent);
  return std::ldexp(std::round(std::ldexp(fraction, digits)), exponent - digits);
}

void add(State& sum, const State& part, double factor) {
  for (const auto& entry : part) {
    const auto same_case = [&entry](const auto& known) {
      return known.load_case == entry.load_case;
    };
    const auto found = std::ranges::find_if(sum, same_case);
    if (found == sum.end()) {
      sum.push_back({entry.load_case, factor * entry.factor});
    } else {
      found->factor += factor * entry.factor;
    }
  }
}

/// Gathers different states until there are too many.
class Gatherer {
 public:
  /// @return false when there are too many
  bool add(State state) {
    if (!keys_.insert(key_of(state)).second) return true;
    if (list_.size() == max_envelope_states) return false;
    list_.push_back(std::move(state));
    return true;
  }
  std::vector<State> take() { return std::move(list_); }

 private:
  std::set<StateKey> keys_;
  std::vector<State> list_;
};

/// Finds states in an order in which those of nested combinations are there already.
class Finder {
 public:
  explicit Finder(const Model& model) : model_(model), found_(model.combinations.size()) {}

  std::vector<States> run() {
    for (const std::size_t place : nesting_of(model_.combinations).contained_first) {
      const Combination& combination = model_.combinations[place];
      found_[place] = combination.kind == CombinationKind::envelope ? alternatives(combination)
                                                                    : sums(combination);
    }
    return std::move(found_);
  }

 private:
  /// States of what the term names, without its factor.
  States of_term(const CombinationTerm& term) const {
    if (term.source == CombinationTerm::Source::combination) {
      return found_[model_.combinations.position(term.number)];
    }
    return {.list = {{{model_.load_cases.position(term.number), 1.0}}}, .count = 1.0};
  }

  /// Each state of each term.
  States alternatives(const Combination& combination) const {
    States out;
    Gatherer gatherer;
    for (const CombinationTerm& term : combination.terms) {
      const bool acts = term.factor != 0.0;
      const States part = acts ? of_term(term) : States{.list = {State()}, .count = 1.0};
      out.count += part.count;
      out.too_many = out.too_many || part.too_many;
      for (const State& state : part.list) {
        State scaled;
        add(scaled, state, term.factor);
        out.too_many = out.too_many || !gatherer.add(std::move(scaled));
      }
    }
    out.list = gatherer.take();
    return out;
  }

  /// Every choice of one state of each term.
  States sums(const Combination& combination) const {
    States out{.list = {State()}, .count = 1.0};
    for (const CombinationTerm& term : combination.terms) {
      if (term.factor == 0.0) continue;
      const States part = of_term(term);
      out.count *= part.count;
      out.too_many = out.too_many || part.too_many;
      if (!out.too_many) add_choices(out, part, term.factor);
    }
    return out;
  }

  /// Different sums stay different when a state is added to all, so what is too many stays so.
  static void add_choices(States& sums, const States& part, double factor) {
    Gatherer gatherer;
    for (const State& sum : sums.list) {
      for (const State& state : part.list) {
        State longer = sum;
        add(longer, state, factor);
        if (gatherer.add(std::move(longer))) continue;
        sums.too_many = true;
        return;
      }
    }
    sums.list = gatherer.take();
  }

  const Model& model_;
  std::vector<States> found_;  ///< by place
};

}  // namespace

StateKey key_of(const State& state) {
  StateKey key;
  for (const auto& entry : state) {
    if (entry.factor != 0.0) key.emplace_back(entry.load_case, rounded(entry.factor));
  }
  std::ranges::sort(key);
  return key;
}

std::vector<States> states_of_combinations(const Model& model) {
  return Finder(model).run();
}

}  // namespace aluframe::model
