#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "aluframe/run/check_explainer.h"
#include "aluframe/run/problem.h"
#include "aluframe/store/result_file.h"

// Which checks a calculation document derives.

namespace aluframe::run {

enum class DerivationDetail {
  governing,  ///< the worst check of every element
  full        ///< of every element the worst check of every item that has a result
};

/// Hands over the explained checks one by one, in the order of `elements`, then of the items, and
/// keeps none. Elements whose derivations differ in nothing but their numbers come together, where
/// the first of them comes.
/// @param explainer of the same run as `reader`, ready for `elements`
/// @return what ended it before all were handed over; nothing when all were
std::optional<Problem> for_each_derivation(const CheckExplainer& explainer,
                                           store::ResultReader& reader,
                                           const std::vector<model::Number>& elements,
                                           DerivationDetail detail,
                                           const std::function<void(const ExplainedCheck&)>& take);

}  // namespace aluframe::run
