#pragma once

#include <string>
#include <variant>

#include "aluframe/explain/items.h"
#include "aluframe/explain/step.h"
#include "host/tz_db/ralu.h"
#include "tz_alu/records/alu_dgn_data.h"
#include "tz_alu/records/alu_forces.h"

// How a ratio of the checks comes about, step by step down to dimensions, forces and settings. The
// values are those of the checks' own functions; the formulas are evaluated beside them.
//
//     const auto outcome = explain::explain_item(data, force, RALU_STABILITY, {});
//     if (const auto* explanation = std::get_if<explain::Explanation>(&outcome))
//       for (const auto& step : explain::steps_of(explanation->ratio)) ...

namespace aluframe::explain {

/// A ratio with its steps.
struct Explanation {
  std::string check;  ///< "axial compression"
  T_RALU_RLT result;  ///< as the checks have it
  StepPointer ratio;  ///< the last step
};

using Outcome = std::variant<Explanation, NotChecked>;

/// Explains a check item at one position.
/// @param data as for the checks; units N and mm, and a host is bound
/// @param item RALU_ITEM_TYPE
/// @throws StepMismatch when a formula does not give the value of the checks
Outcome explain_item(const ALU_DGN_DATA& data, const AluDgnSectForce& force, int item,
                     const Origins& origins);

}  // namespace aluframe::explain
