// Whatever acts, an item is either filled with demand and capacity or reset as a whole.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/property/engine_generators.h"

namespace {

using namespace engine_generators;

bool Acts(const AluDgnSectForce& force, ALU_FORCE component) {
  return force.dForce[component] != 0.0;
}

bool Bends(const AluDgnSectForce& force) {
  return Acts(force, ALU_FORCE_MY) || Acts(force, ALU_FORCE_MZ);
}

bool IsShearChecked(const ALU_DGN_DATA& data, const AluDgnSectForce& force) {
  return Bends(force) && (!Acts(force, ALU_FORCE_N) || data.nMembType == ALU_MEMBER_BEAM);
}

ALU_DGN_DATA WithAnySwitches(std::int32_t shape) {
  ALU_DGN_DATA data = AnyData(shape);
  for (auto& flag : data.nCheckFlag) flag = *rc::gen::element(0, 1);
  return data;
}

// Filled means: a capacity above 0 and a demand beside it. Else both are 0.
void AssertFilled(const T_RALU_RLT& item, bool filled) {
  RC_ASSERT(std::isfinite(item.dDemand) && item.dDemand >= 0.0);
  RC_ASSERT(std::isfinite(item.dCapacity));
  RC_ASSERT((item.dCapacity > 0.0) == filled);
  RC_ASSERT(filled || item.dDemand == 0.0);
  RC_ASSERT(item.dReserve == 0.0);
}

// A section all of whose thickness counts as lost is not checked.
bool IsLost(const OUTCOME& outcome) {
  if (outcome.ret == 1) return false;
  RC_ASSERT(outcome.ret == 0);
  RC_ASSERT(std::fabs(outcome.buffer.sectpara.dA) < 1e-10);
  for (const T_RALU_RLT& item : outcome.result.aItem) AssertFilled(item, false);
  return true;
}

void CheckStrengthItem(std::int32_t shape) {
  const ALU_DGN_DATA data = WithAnySwitches(shape);
  const AluDgnSectForce force = AnyForces();
  const OUTCOME outcome = Check(data, force);
  if (IsLost(outcome)) return;
  const bool stressed = Acts(force, ALU_FORCE_N) || Bends(force);
  AssertFilled(outcome.result.aItem[RALU_STRENGTH],
               stressed && data.nCheckFlag[RALU_STRENGTH] != 0);
}

void CheckShearItems(std::int32_t shape) {
  const ALU_DGN_DATA data = WithAnySwitches(shape);
  const AluDgnSectForce force = AnyForces();
  const OUTCOME outcome = Check(data, force);
  if (IsLost(outcome)) return;
  for (const auto item : {RALU_SHEAR_Y, RALU_SHEAR_Z}) {
    const bool on = data.nCheckFlag[item] != 0;
    AssertFilled(outcome.result.aItem[item], on && IsShearChecked(data, force));
  }
}

// Without axial force the limit is 0 and the slenderness is still told.
void CheckSlendernessItems(std::int32_t shape) {
  const ALU_DGN_DATA data = WithAnySwitches(shape);
  const AluDgnSectForce force = AnyForces();
  const OUTCOME outcome = Check(data, force);
  if (IsLost(outcome)) return;
  for (const auto type : {RALU_SLENDERNESS_Y, RALU_SLENDERNESS_Z}) {
    const T_RALU_RLT& item = outcome.result.aItem[type];
    const bool on = data.nCheckFlag[type] != 0;
    RC_ASSERT(std::isfinite(item.dDemand));
    RC_ASSERT((item.dDemand > 0.0) == on);
    RC_ASSERT((item.dCapacity > 0.0) == (on && Acts(force, ALU_FORCE_N)));
  }
}

// φb of a member without a critical moment is undefined, and so is the demand then.
void CheckStabilityItems(std::int32_t shape) {
  const ALU_DGN_DATA data = WithAnySwitches(shape);
  const AluDgnSectForce force = AnyForces();
  const OUTCOME outcome = Check(data, force);
  if (IsLost(outcome)) return;
  const double N = force.dForce[ALU_FORCE_N];
  const bool any[] = {N < 0.0 || (N == 0.0 && Bends(force)), N < 0.0 && Bends(force)};
  for (const auto type : {RALU_STABILITY, RALU_COMBINED_STABILITY}) {
    const T_RALU_RLT& item = outcome.result.aItem[type];
    const bool filled = data.nCheckFlag[type] != 0 && any[type - RALU_STABILITY];
    RC_ASSERT((item.dCapacity > 0.0) == filled);
    RC_ASSERT(filled || item.dDemand == 0.0);
    RC_ASSERT(std::isfinite(item.dDemand) || data.nMembType == ALU_MEMBER_TRUSS);
  }
}

RC_GTEST_PROP(ResultItems, StrengthIsFilledWheneverSomethingStressesTheSection, ()) {
  ForEveryShape(CheckStrengthItem);
}
RC_GTEST_PROP(ResultItems, ShearIsFilledWheneverItsStateIsChecked, ()) {
  ForEveryShape(CheckShearItems);
}
RC_GTEST_PROP(ResultItems, StabilityIsFilledInCompressionAndPureBending, ()) {
  ForEveryShape(CheckStabilityItems);
}
RC_GTEST_PROP(ResultItems, SlendernessIsFilledWheneverItIsSwitchedOn, ()) {
  ForEveryShape(CheckSlendernessItems);
}

RC_GTEST_PROP(ResultItems, TwistNeverLowersTheSlendernessAboutZ, ()) {
  const ALU_DGN_DATA data = AnyData(ALU_SHAPE_T);
  const OUTCOME outcome = Check(data, AnyForces());
  RC_ASSERT(outcome.ret == 1);  // a tee never loses thickness
  const double iz = std::sqrt(data.code.sect.dIzz / data.code.sect.dArea);
  const double flexural = data.code.para.dKz * data.dMembLength / iz;
  // λyz and λz may coincide but for rounding
  RC_ASSERT(outcome.result.aItem[RALU_SLENDERNESS_Z].dDemand >= flexural * (1.0 - 1e-12));
}

}  // namespace
