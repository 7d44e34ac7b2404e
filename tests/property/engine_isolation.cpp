// A call of the engine depends on its input alone: nothing that stood in its outputs survives, no
// earlier call and no other check has a say.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstring>

#include "tests/property/engine_generators.h"
#include "tests/property/engine_outcomes.h"

namespace {

using namespace engine_generators;
using namespace engine_outcomes;

ALU_DGN_DATA WithAnySwitches(std::int32_t shape) {
  ALU_DGN_DATA data = AnyData(shape);
  for (auto& flag : data.nCheckFlag) flag = *rc::gen::element(0, 1);
  return data;
}

// The plates of a shape, or none at all: then no parameters can be formed.
ALU_DGN_DATA PerhapsWithoutPlates(std::int32_t shape) {
  ALU_DGN_DATA data = WithAnySwitches(shape);
  if (*rc::gen::element(0, 0, 1)) std::fill(data.code.sect.dSize, data.code.sect.dSize + 8, 0.0);
  return data;
}

void CheckOutputsAreReset(std::int32_t shape) {
  const ALU_DGN_DATA data = PerhapsWithoutPlates(shape);
  const AluDgnSectForce force = AnyForces();
  OUTCOME outcome;
  FillWithSentinels(outcome);
  CALUCode_GB50429_07 engine;
  outcome.ret = engine.CheckCode(data, force, outcome.result, outcome.buffer);
  RC_ASSERT(Bits(outcome) == Bits(Check(data, force)));
  RC_ASSERT(!HoldsASentinel(outcome));
}

void CheckCallsRepeat(std::int32_t shape) {
  const ALU_DGN_DATA data = WithAnySwitches(shape);
  const AluDgnSectForce force = AnyForces();
  CALUCode_GB50429_07 engine;
  OUTCOME first;
  OUTCOME between;
  OUTCOME again;
  engine.CheckCode(data, force, first.result, first.buffer);
  engine.CheckCode(AnyData(ALU_SHAPE_H), AnyForces(), between.result, between.buffer);
  engine.CheckCode(data, force, again.result, again.buffer);
  RC_ASSERT(Bits(first) == Bits(again));
}

bool SameBits(const T_RALU_RLT& a, const T_RALU_RLT& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

void CheckSwitchesAreIndependent(std::int32_t shape) {
  ALU_DGN_DATA data = AnyData(shape);
  const AluDgnSectForce force = AnyForces();
  const OUTCOME all = Check(data, force);
  for (std::size_t rank = 0; rank < 8; ++rank) {
    data.SetCheckFlagAll(0);
    data.nCheckFlag[rank] = 1;
    const OUTCOME alone = Check(data, force);
    for (std::size_t other = 0; other < 8; ++other) {
      const T_RALU_RLT expected = other == rank ? all.result.aItem[rank] : T_RALU_RLT{};
      RC_ASSERT(SameBits(alone.result.aItem[other], expected));
    }
  }
}

RC_GTEST_PROP(EngineIsolation, NothingThatStoodInTheOutputsSurvives, ()) {
  ForEveryShape(CheckOutputsAreReset);
}
RC_GTEST_PROP(EngineIsolation, RepeatedCallsGiveIdenticalBits, ()) {
  ForEveryShape(CheckCallsRepeat);
}
RC_GTEST_PROP(EngineIsolation, EachItemAloneEqualsThatItemWithAllSwitchesOn, ()) {
  ForEveryShape(CheckSwitchesAreIndependent);
}

}  // namespace
