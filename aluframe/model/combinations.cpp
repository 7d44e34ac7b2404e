#include "aluframe/model/combinations.h"

#include <algorithm>
#include <array>
#include <memory>

#include "aluframe/model/combination_plan.h"

namespace aluframe::model {

namespace {

using Source = CombinationTerm::Source;

constexpr std::size_t position_count = 5;
constexpr std::size_t component_count = 6;

/// All components at all positions, one position behind the other.
using Values = std::array<double, position_count * component_count>;

/// Both sides of a combination. No initialisers: large arrays of it are made without filling them.
struct TwoSides {
  Values maximum;
  Values minimum;
};

void add(Values& sum, double factor, const CaseForces& forces) {
  for (std::size_t position = 0; position < position_count; ++position) {
    const SectionForces& at = forces.at[position];
    for (std::size_t i = 0; i < component_count; ++i) {
      sum[position * component_count + i] += factor * static_cast<double>(at[i]);
    }
  }
}

void add(Values& sum, double factor, const Values& values) {
  for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += factor * values[i];
}

CaseForces rounded(const Values& values, bool inner) {
  CaseForces out;
  out.inner = inner;
  for (std::size_t position = 0; position < position_count; ++position) {
    const bool is_end = position == 0 || position == position_count - 1;
    if (!is_end && !inner) continue;
    for (std::size_t i = 0; i < component_count; ++i) {
      out.at[position][i] = static_cast<float>(values[position * component_count + i]);
    }
  }
  return out;
}

/// Values of the combinations of one element. All cases that take part must have forces.
class ElementValues {
 public:
  ElementValues(const ForceTable& forces, std::size_t element,
                const std::vector<CombinationPlan>& plans)
      : forces_(forces),
        element_(element),
        plans_(plans),
        values_(std::make_unique_for_overwrite<TwoSides[]>(plans.size())) {}

  /// Both sides of a combination with two sides, with everything that it needs.
  TwoSides evaluate(const CombinationPlan& plan) {
    for (const std::size_t place : plan.needed) values_[place] = value_of(plans_[place]);
    return value_of(plan);
  }

 private:
  TwoSides value_of(const CombinationPlan& plan) const {
    if (!plan.two_sides) return one_sum(plan);
    return plan.kind == CombinationKind::envelope ? extremes(plan) : two_sums(plan);
  }

  TwoSides one_sum(const CombinationPlan& plan) const {
    TwoSides sum{};
    for (const auto& entry : plan.cases) {
      add(sum.maximum, entry.factor, *forces_.find(element_, entry.load_case));
    }
    sum.minimum = sum.maximum;
    return sum;
  }

  TwoSides two_sums(const CombinationPlan& plan) const {
    TwoSides sum{};
    for (const CombinationPlan::Term& term : plan.terms) {
      const TwoSides part = term_value(term);
      add(sum.maximum, 1.0, part.maximum);
      add(sum.minimum, 1.0, part.minimum);
    }
    return sum;
  }

  TwoSides extremes(const CombinationPlan& plan) const {
    TwoSides found{};
    bool is_first = true;
    for (const CombinationPlan::Term& term : plan.terms) {
      const TwoSides part = term_value(term);
      if (is_first) {
        found = part;
        is_first = false;
      }
      for (std::size_t i = 0; i < part.maximum.size(); ++i) {
        found.maximum[i] = std::max(found.maximum[i], part.maximum[i]);
        found.minimum[i] = std::min(found.minimum[i], part.minimum[i]);
      }
    }
    return found;
  }

  /// Factor × what the term refers to; a negative factor exchanges the sides.
  TwoSides term_value(const CombinationPlan::Term& term) const {
    TwoSides value{};
    if (term.factor == 0.0) return value;
    if (term.source == Source::load_case) {
      add(value.maximum, term.factor, *forces_.find(element_, term.place));
      value.minimum = value.maximum;
      return value;
    }
    const TwoSides& inner = values_[term.place];
    add(value.maximum, term.factor, term.factor > 0.0 ? inner.maximum : inner.minimum);
    add(value.minimum, term.factor, term.factor > 0.0 ? inner.minimum : inner.maximum);
    return value;
  }

  const ForceTable& forces_;
  std::size_t element_;
  const std::vector<CombinationPlan>& plans_;
  std::unique_ptr<TwoSides[]> values_;  ///< by place; only those that are needed are filled
};

/// Whether all cases that take part have inner positions. Nothing when one has no forces.
std::optional<bool> find_inner(const ForceTable& table, std::size_t element,
                               const CombinationPlan& plan) {
  bool inner = true;
  for (const auto& entry : plan.cases) {
    const CaseForces* forces = table.find(element, entry.load_case);
    if (forces == nullptr) return std::nullopt;
    inner = inner && forces->inner;
  }
  return inner;
}

/// One position of a sum of cases. Six sums over the cases, so that they stay in registers.
/// @param of_cases forces of the element, case by case
SectionForces summed(const CaseForces* of_cases, const CombinationPlan& plan,
                     std::size_t position) {
  std::array<double, component_count> sum{};
  for (const auto& entry : plan.cases) {
    const SectionForces& at = of_cases[entry.load_case].at[position];
    for (std::size_t i = 0; i < component_count; ++i) {
      sum[i] += entry.factor * static_cast<double>(at[i]);
    }
  }
  SectionForces out;
  for (std::size_t i = 0; i < component_count; ++i) out[i] = static_cast<float>(sum[i]);
  return out;
}

CaseForces evaluate_sum(const CaseForces* of_cases, const CombinationPlan& plan, bool inner) {
  CaseForces out;
  out.inner = inner;
  const std::size_t step = inner ? 1 : position_count - 1;
  for (std::size_t position = 0; position < position_count; position += step) {
    out.at[position] = summed(of_cases, plan, position);
  }
  return out;
}

}  // namespace

CombinationEvaluator::CombinationEvaluator(const Model& model)
    : model_(model), plans_(compile_combinations(model)) {}

CombinationEvaluator::~CombinationEvaluator() = default;

const CombinationPlan& CombinationEvaluator::plan_of(Number combination) const {
  return plans_[model_.combinations.position(combination)];
}

bool CombinationEvaluator::has_two_sides(Number combination) const {
  return plan_of(combination).two_sides;
}

bool CombinationEvaluator::is_seismic(Number combination) const {
  return plan_of(combination).seismic;
}

std::optional<CaseForces> CombinationEvaluator::evaluate(std::size_t element, Number combination,
                                                         Side side) const {
  const std::size_t place = model_.combinations.position(combination);
  const CombinationPlan& plan = plans_[place];
  const std::size_t wanted = plan.two_sides && side == Side::minimum ? 1 : 0;
  const CaseForces* own = model_.combined_forces.find(element, side_place(place, wanted));
  if (own != nullptr) return *own;
  const std::optional<bool> inner = find_inner(model_.forces, element, plan);
  if (!inner) return std::nullopt;
  if (!plan.two_sides) return evaluate_sum(model_.forces.of_element(element), plan, *inner);
  const TwoSides values = ElementValues(model_.forces, element, plans_).evaluate(plan);
  return rounded(side == Side::maximum ? values.maximum : values.minimum, *inner);
}

std::optional<Number> CombinationEvaluator::missing_case(std::size_t element,
                                                         Number combination) const {
  for (const auto& entry : plan_of(combination).cases) {
    if (model_.forces.find(element, entry.load_case) == nullptr) {
      return model_.load_cases[entry.load_case].number;
    }
  }
  return std::nullopt;
}

}  // namespace aluframe::model
