#pragma once

#include <optional>
#include <variant>
#include <vector>

#include "aluframe/combinations/fault.h"
#include "aluframe/combinations/rules.h"
#include "aluframe/model/model.h"

namespace aluframe::combinations {

/// Load cases that act together or not at all, with the same factor: one, or one with those that
/// always act with it.
struct ActingUnit {
  model::Number number = 0;  ///< of the case that the others act with
  model::Action action;      ///< of that case
  model::FactorRow factors;
  /// A case and the sign of its factor.
  struct SignedCase {
    model::Number load_case = 0;
    double sign = 1.0;
  };
  /// The choices of signs, of which one acts at a time.
  std::vector<std::vector<SignedCase>> choices;
};

/// Whether only one of two units acts at a time: they share an exclusive group, are earthquakes in
/// one direction, accidental actions, or the live load of a roof that nobody walks on and snow (GB
/// 50009-2012, 5.3.3).
bool exclude_each_other(const ActingUnit& a, const ActingUnit& b);

/// The units of a model by their numbers, whatever the order of its cases, without those that take
/// no part; or the first fault of what its cases say of their actions.
std::variant<std::vector<ActingUnit>, Fault> acting_units(const model::Model& model,
                                                          const Rule& rule,
                                                          const model::CombinationRule& wanted);

}  // namespace aluframe::combinations
