#include "aluframe/forces/envelope_side.h"

#include <algorithm>

namespace aluframe::forces {

namespace {

using Forces = std::array<double, 6>;
using model::CombinationPlan;

struct TwoSides {
  Forces maximum{}, minimum{};
};

/// Values of combinations at one place, each after those that it contains.
class PlaceValues {
 public:
  PlaceValues(const std::vector<CombinationPlan>& plans, const std::vector<Forces>& of_case)
      : plans_(plans), of_case_(of_case), values_(plans.size()) {}

  TwoSides evaluate(const CombinationPlan& plan) {
    for (const std::size_t place : plan.needed) values_[place] = value_of(plans_[place]);
    return value_of(plan);
  }

 private:
  TwoSides value_of(const CombinationPlan& plan) const {
    if (!plan.two_sides) return sum_of_cases(plan);
    TwoSides out;
    for (std::size_t term = 0; term < plan.terms.size(); ++term) {
      const TwoSides part = value_of(plan.terms[term]);
      const bool adds = plan.kind == model::CombinationKind::linear || term == 0;
      for (std::size_t i = 0; i < part.maximum.size(); ++i) {
        double &high = out.maximum[i], &low = out.minimum[i];
        high = adds ? high + part.maximum[i] : std::max(high, part.maximum[i]);
        low = adds ? low + part.minimum[i] : std::min(low, part.minimum[i]);
      }
    }
    return out;
  }

  TwoSides sum_of_cases(const CombinationPlan& plan) const {
    TwoSides out;
    for (const auto& entry : plan.cases) {
      for (std::size_t i = 0; i < out.maximum.size(); ++i) {
        out.maximum[i] += entry.factor * of_case_[entry.load_case][i];
      }
    }
    out.minimum = out.maximum;
    return out;
  }

  /// Factor × what the term refers to; a negative factor exchanges the sides.
  TwoSides value_of(const CombinationPlan::Term& term) const {
    if (term.factor == 0.0) return {};
    const bool of_case = term.source == model::CombinationTerm::Source::load_case;
    TwoSides out =
        of_case ? TwoSides{of_case_[term.place], of_case_[term.place]} : values_[term.place];
    for (std::size_t i = 0; i < out.maximum.size(); ++i) {
      out.maximum[i] *= term.factor;
      out.minimum[i] *= term.factor;
    }
    if (term.factor < 0.0) std::swap(out.maximum, out.minimum);
    return out;
  }

  const std::vector<CombinationPlan>& plans_;
  const std::vector<Forces>& of_case_;
  std::vector<TwoSides> values_;  ///< by place; only those that are needed are filled
};

}  // namespace

Forces side_of(const CombinationPlan& plan, const std::vector<CombinationPlan>& plans,
               const std::vector<Forces>& of_case, model::Side side) {
  const TwoSides value = PlaceValues(plans, of_case).evaluate(plan);
  return side == model::Side::maximum ? value.maximum : value.minimum;
}

}  // namespace aluframe::forces
