#include "aluframe/explain/explain.h"

#include <fmt/format.h>

#include <array>
#include <cmath>

#include "tz_alu/engine/alucode_gb50429_07.h"
#include "tz_alu/engine/plate_slenderness.h"
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
  return a == b || (std::isnan(a) && std::isnan(b));
}

/// What the steps end in must be what the checks store, to the last digit.
void compare(const Checked& checked, const T_RALU_RLT& result) {
  const double demand = checked.demand.own_value(), capacity = checked.capacity.own_value();
  if (is_same(demand, result.dDemand) && is_same(capacity, result.dCapacity)) return;
  throw StepMismatch(texts::translated("the checks have {} of {}, the steps {} of {}",
                                       result.dDemand, result.dCapacity, demand, capacity));
}

/// Why area and moduli cannot be formed.
const char* why_without_section(const Derivation& d) {
  const bool has_no_plates = std::isnan(alu_engine::PlateRatios(d.in).dGoverning);
  return has_no_plates ? translatable("the checks do not cover the shape of the section")
                       : translatable("nothing is left of the section to be checked (B15)");
}

StepPointer ratio_step(Derivation& d, const Checked& checked) {
  const double demand = checked.demand.own_value(), capacity = checked.capacity.own_value();
  Info info{"ratio", translatable("utilisation")};
  const double ratio = RaluRatio(demand, capacity);
  if (capacity == 0.0) {
    info.why = translatable("0: without a limit nothing is judged");
    d.trace.given(info, ratio, {checked.demand.name(), checked.capacity.name()});
  } else {
    if (ratio < 0.0) info.why = translatable("a demand below 0 passes");
    if (!std::isfinite(ratio)) info.why = translatable("what is no finite number counts as failed");
    d.trace.define(info, ratio, checked.demand / checked.capacity);
  }
  return d.trace.step("ratio");
}

}  // namespace

Outcome explain_item(const ALU_DGN_DATA& data, const AluDgnSectForce& force, int item,
                     const Origins& origins) {
  const auto place = static_cast<std::size_t>(item);
  if (explained.at(place) == nullptr) return NotChecked{translatable("there is no such check")};
  if (data.nCheckFlag[place] == 0) return NotChecked{translatable("the check is switched off")};
  Derivation d(data, force, origins);
  if (!alu_engine::AreUsable(d.section)) {
    return NotChecked{why_without_section(d)};
  }
  const ItemOutcome outcome = explained.at(place)(d);
  if (const auto* none = std::get_if<NotChecked>(&outcome)) return *none;
  const auto& checked = std::get<Checked>(outcome);
  const T_RALU_RLT result = result_of_checks(data, force, item);
  compare(checked, result);
  return Explanation{checked.check, result, ratio_step(d, checked)};
}

}  // namespace aluframe::explain
