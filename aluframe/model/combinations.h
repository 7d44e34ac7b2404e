#pragma once

#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/model.h"

namespace aluframe::model {

/// Combinations may contain combinations, at most this many levels deep.
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
/// Built once for a model, which must outlive it; combinations must have no problem. Evaluation is
/// const and visits every needed combination once, however often it is shared.
class CombinationEvaluator {
 public:
  explicit CombinationEvaluator(const Model& model);

  /// True for an envelope and for a linear combination that contains one.
  bool has_two_sides(Number combination) const;
  /// True when the combination is marked seismic, or any of its cases, through nested
  /// combinations, is a response-spectrum or a seismic static case.
  bool is_seismic(Number combination) const;
  /// Forces of the element at `element` (place in the table). Inner positions are there only when
  /// all cases that take part have them.
  /// @return nothing when a case that takes part (factor not 0) has no forces for the element
  std::optional<CaseForces> evaluate(std::size_t element, Number combination, Side side) const;
  /// The first case that takes part in the combination and has no forces for the element.
  std::optional<Number> missing_case(std::size_t element, Number combination) const;

 private:
  struct Plan;
  const Model& model_;
  std::vector<Plan> plans_;  ///< by place of the combination
};

}  // namespace aluframe::model
