#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/model.h"

namespace aluframe::model {

/// Combinations may contain combinations, at most this many levels deep. A combination of load
/// cases alone is one level.
inline constexpr int max_combination_depth = 64;

/// Why the combinations cannot be evaluated.
struct CombinationProblem {
  std::size_t combination = 0;  ///< place in the table
  std::size_t term = 0;         ///< place of the offending term
  std::string text;             ///< what is wrong, such as "contains itself: 3 → 5 → 3"
};

/// Looks for combinations that contain themselves or nest deeper than `max_combination_depth`. All
/// numbers in the terms must exist. Never recurses, so any depth is handled.
std::optional<CombinationProblem> find_combination_problem(const Table<Combination>& combinations);

/// What evaluating one combination takes; internal to the evaluator.
struct CombinationPlan;

/// Which extreme of an envelope; a combination with one side ignores it.
enum class Side { maximum, minimum };

/// Evaluates combinations of element forces.
///
/// A linear combination sums factor × forces of its terms. An envelope takes, component by
/// component and position by position, the largest (maximum side) or smallest (minimum side) of
/// factor × forces over its terms and both their sides. A linear combination with an envelope among
/// its terms has two sides as well: its maximum takes the envelope's maximum for a positive factor
/// and its minimum for a negative one. Sums are formed in double precision and rounded once.
///
/// Forces that the model has for the combination itself go before what its terms give.
///
/// A load case takes part when the factors on the way to it are all other than 0. A term with
/// factor 0 needs no forces and adds nothing to a sum; in an envelope it is the value 0.
///
/// Built once for a model, which must outlive it; combinations must have no problem. Evaluation is
/// const, may run in several threads at once, and visits every needed combination once, however
/// often it is shared.
///
///     const CombinationEvaluator evaluator(model);
///     const auto forces = evaluator.evaluate(place_of_element, 7, Side::maximum);
class CombinationEvaluator {
 public:
  explicit CombinationEvaluator(const Model& model);
  CombinationEvaluator(const CombinationEvaluator&) = delete;
  CombinationEvaluator& operator=(const CombinationEvaluator&) = delete;
  ~CombinationEvaluator();

  /// True for an envelope and for a linear combination that contains one.
  bool has_two_sides(Number combination) const;
  /// True when the combination is marked seismic, or any case that takes part, through nested
  /// combinations, is a response-spectrum or a seismic static case. The mark of a nested
  /// combination says nothing about the one that contains it.
  bool is_seismic(Number combination) const;
  /// Forces of the element at `element` (place in the table). Inner positions are there only when
  /// all cases that take part have them.
  /// @return nothing when a case that takes part (factor not 0) has no forces for the element
  std::optional<CaseForces> evaluate(std::size_t element, Number combination, Side side) const;
  /// The first case that takes part in the combination and has no forces for the element.
  std::optional<Number> missing_case(std::size_t element, Number combination) const;

 private:
  const CombinationPlan& plan_of(Number combination) const;

  const Model& model_;
  std::vector<CombinationPlan> plans_;  ///< by place of the combination
};

}  // namespace aluframe::model
