#include "aluframe/explain/explain.h"

#include <fmt/format.h>

#include <array>

#include "tz_alu/engine/alucode_gb50429_07.h"
#include "tz_alu/engine/section_parameters.h"

namespace aluframe::explain {

namespace {

using Explain = ItemOutcome (*)(Derivation&);

/// By RALU_ITEM_TYPE.
constexpr std::array<Explain, kResultItems> explained{
    explain_strength,           explain_shear_y, explain_shear_z,       explain_stability,
    explain_combined_stability, nullptr,         explain_slenderness_y, explain_slenderness_z};

T_RALU_RLT result_of_checks(const ALU_DGN_DATA& data, const AluDgnSectForce& force, int item) {
  CALUCode_GB50429_07 checks;
  T_RALU_SECT result;
  checks.CheckCode(data, force, result);
  return result.aItem.at(static_cast<std::size_t>(item));
}

bool is_same(double a, double b) {
  return a == b || (a != a && b != b);
}

/// What the steps end in must be what the checks store, to the last digit.
void compare(const Checked& checked, const T_RALU_RLT& result) {
  const double demand = checked.demand.own_value(), capacity = checked.capacity.own_value();
  if (is_same(demand, result.dDemand) && is_same(capacity, result.dCapacity)) return;
  throw StepMismatch(fmt::format("the checks have {} of {}, the steps {} of {}", result.dDemand,
                                 result.dCapacity, demand, capacity));
}

StepPointer ratio_step(Derivation& d, const Checked& checked) {
  const double demand = checked.demand.own_value(), capacity = checked.capacity.own_value();
  Info info{"ratio", "utilisation"};
  const double ratio = RaluRatio(demand, capacity);
  if (capacity == 0.0) {
    info.why = "0: without a limit nothing is judged";
    d.trace.given(info, ratio, {checked.demand.name(), checked.capacity.name()});
  } else {
    if (ratio < 0.0) info.why = "a demand below 0 passes";
    d.trace.define(info, ratio, checked.demand / checked.capacity);
  }
  return d.trace.step("ratio");
}

}  // namespace

Outcome explain_item(const ALU_DGN_DATA& data, const AluDgnSectForce& force, int item,
                     const Origins& origins) {
  const auto place = static_cast<std::size_t>(item);
  if (explained.at(place) == nullptr) return NotChecked{"there is no such check"};
  if (data.nCheckFlag[place] == 0) return NotChecked{"the check is switched off"};
  Derivation d(data, force, origins);
  if (!alu_engine::AreUsable(d.section)) {
    return NotChecked{"nothing is left of the section to be checked (B15)"};
  }
  const ItemOutcome outcome = explained.at(place)(d);
  if (const auto* none = std::get_if<NotChecked>(&outcome)) return *none;
  const auto& checked = std::get<Checked>(outcome);
  const T_RALU_RLT result = result_of_checks(data, force, item);
  compare(checked, result);
  return Explanation{checked.check, result, ratio_step(d, checked)};
}

}  // namespace aluframe::explain
