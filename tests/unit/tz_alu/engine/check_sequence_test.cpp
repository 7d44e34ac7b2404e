#include <gtest/gtest.h>

#include <type_traits>

#include "tests/unit/tz_alu/engine/engine_inputs.h"

namespace {

using engine_inputs::Check;
using engine_inputs::Forces;
using engine_inputs::SymmetricH;

T_RALU_SECT Garbage() {
  T_RALU_SECT result;
  for (T_RALU_RLT& item : result.aItem) item = {-3.0, -4.0, -5.0};
  return result;
}

void ExpectReset(const T_RALU_RLT& item, int rank) {
  EXPECT_EQ(item.dDemand, 0.0) << "item " << rank;
  EXPECT_EQ(item.dCapacity, 0.0) << "item " << rank;
  EXPECT_EQ(item.dReserve, 0.0) << "item " << rank;
}

void ExpectAllReset(const T_RALU_SECT& result) {
  for (int rank = 0; rank < kResultItems; ++rank) {
    ExpectReset(result.aItem[static_cast<std::size_t>(rank)], rank);
  }
}

// A beam in compression with bending gets every check that exists.
ALU_DGN_DATA Beam() {
  ALU_DGN_DATA data = SymmetricH();
  data.nMembType = ALU_MEMBER_BEAM;
  data.code.sect.dQyb = data.code.sect.dQzb = 1000.0;
  return data;
}

AluDgnSectForce BeamForces(double N = 0.0) {
  AluDgnSectForce force = Forces(N, 1e6, 0);
  force.dForce[ALU_FORCE_FY] = force.dForce[ALU_FORCE_FZ] = 1e4;
  return force;
}

bool IsFilled(const T_RALU_RLT& item) {
  return item.dDemand != 0.0 && item.dCapacity != 0.0;
}

TEST(CheckSequence, WithAllSwitchesOffSucceedsAndLeavesTheSlotReset) {
  ALU_DGN_DATA data = Beam();
  data.SetCheckFlagAll(0);
  T_RALU_SECT result = Garbage();
  CALUCode_GB50429_07 engine;
  EXPECT_EQ(engine.CheckCode(data, BeamForces(1e4), result), 1);
  ExpectAllReset(result);
}

// `filled`: the ranks that the force state fills when they are switched on.
void ExpectSwitchesFillTheirOwnItems(const AluDgnSectForce& force, unsigned filled) {
  for (unsigned mask = 0; mask < 256; ++mask) {
    ALU_DGN_DATA data = Beam();
    for (unsigned rank = 0; rank < 8; ++rank) {
      data.nCheckFlag[rank] = static_cast<std::int32_t>(mask >> rank & 1U);
    }
    const auto outcome = Check(data, force);
    for (unsigned rank = 0; rank < 8; ++rank) {
      const bool expected = (mask & filled) >> rank & 1U;
      EXPECT_EQ(IsFilled(outcome.result.aItem[rank]), expected) << mask << " item " << rank;
      if (!expected) ExpectReset(outcome.result.aItem[rank], static_cast<int>(rank));
    }
  }
}

// Compression with bending of a beam fills every item but that of rank 5.
TEST(CheckSequence, EverySwitchFillsItsOwnItemOnly) {
  ExpectSwitchesFillTheirOwnItems(BeamForces(-1e4), 0b11011111);
}

TEST(CheckSequence, TensionWithBendingLeavesBothStabilityItemsReset) {
  ExpectSwitchesFillTheirOwnItems(BeamForces(1e4), 0b11000111);
}

TEST(CheckSequence, AnyNonzeroSwitchIsOn) {
  ALU_DGN_DATA data = Beam();
  data.SetCheckFlagAll(-7);
  EXPECT_TRUE(IsFilled(Check(data, BeamForces(1e4)).Item(RALU_STRENGTH)));
}

TEST(CheckSequence, OldResultsOfTheSlotAreForgotten) {
  T_RALU_SECT result = Garbage();
  CALUCode_GB50429_07 engine;
  engine.CheckCode(Beam(), BeamForces(1e4), result);
  ExpectReset(result.aItem[RALU_STABILITY], RALU_STABILITY);
  ExpectReset(result.aItem[RALU_UNUSED], RALU_UNUSED);
  EXPECT_EQ(result.aItem[RALU_STRENGTH].dReserve, 0.0);
}

TEST(CheckSequence, AxialForceBelowTheToleranceLeavesSlendernessOnly) {
  const auto outcome = Check(SymmetricH(), Forces(5e-11, 0, 0));
  EXPECT_EQ(outcome.ret, 1);
  ExpectReset(outcome.Item(RALU_STRENGTH), RALU_STRENGTH);
  ExpectReset(outcome.Item(RALU_COMBINED_STABILITY), RALU_COMBINED_STABILITY);
  ExpectReset(outcome.Item(RALU_STABILITY), RALU_STABILITY);
  EXPECT_GT(outcome.Item(RALU_SLENDERNESS_Y).dDemand, 0.0);
}

TEST(CheckSequence, AxialForceOfExactlyTheToleranceGetsNoStrengthCheck) {
  ExpectReset(Check(SymmetricH(), Forces(1e-10, 0, 0)).Item(RALU_STRENGTH), RALU_STRENGTH);
  ExpectReset(Check(SymmetricH(), Forces(-1e-10, 0, 0)).Item(RALU_STRENGTH), RALU_STRENGTH);
}

TEST(CheckSequence, MomentOfExactlyTheToleranceGetsABendingCheck) {
  EXPECT_EQ(Check(SymmetricH(), Forces(0, 1e-10, 0)).Item(RALU_STRENGTH).dCapacity, 200.0);
}

TEST(CheckSequence, AxialForceOfExactlyTheToleranceIsLeftOutOfBending) {
  // 1.6e7/200,000 = 80
  EXPECT_DOUBLE_EQ(Check(SymmetricH(), Forces(1e-10, 1.6e7, 0)).Item(RALU_STRENGTH).dDemand, 80.0);
}

TEST(CheckSequence, CompressedBeamInBendingGetsBothShearChecks) {
  const auto outcome = Check(Beam(), BeamForces(-1e4));
  EXPECT_TRUE(IsFilled(outcome.Item(RALU_SHEAR_Y)));
  EXPECT_TRUE(IsFilled(outcome.Item(RALU_SHEAR_Z)));
}

TEST(CheckSequence, CompressedColumnInBendingGetsNoShearCheck) {
  ALU_DGN_DATA data = Beam();
  data.nMembType = ALU_MEMBER_COLUMN;
  const auto outcome = Check(data, BeamForces(-1e4));
  ExpectReset(outcome.Item(RALU_SHEAR_Y), RALU_SHEAR_Y);
  ExpectReset(outcome.Item(RALU_SHEAR_Z), RALU_SHEAR_Z);
}

TEST(CheckSequence, SectionThatCannotBeFormedFailsWithEveryItemReset) {
  ALU_DGN_DATA data = Beam();
  data.code.sect.dPtZ[0] = 0.0;
  T_RALU_SECT result = Garbage();
  CALUCode_GB50429_07 engine;
  EXPECT_EQ(engine.CheckCode(data, BeamForces(1e4), result), 0);
  ExpectAllReset(result);
}

TEST(CheckSequence, SectionOfAnUnknownShapeFails) {
  ALU_DGN_DATA data = Beam();
  data.code.sect.nShape = ALU_SHAPE_C;
  for (double& size : data.code.sect.dSize) size = 0.0;
  const auto outcome = Check(data, BeamForces(1e4));
  EXPECT_EQ(outcome.ret, 0);
  ExpectAllReset(outcome.result);
}

// A plate ratio that is not a number: top flange of neither width nor thickness.
TEST(CheckSequence, SectionWithoutAGoverningPlateRatioFails) {
  for (const auto shape : {ALU_SHAPE_C, ALU_SHAPE_H}) {
    ALU_DGN_DATA data = Beam();
    data.code.sect.nShape = shape;
    data.code.sect.dSize[2] = data.code.sect.dSize[1];
    data.code.sect.dSize[3] = 0.0;
    const auto outcome = Check(data, BeamForces(1e4));
    EXPECT_EQ(outcome.ret, 0) << shape;
    ExpectAllReset(outcome.result);
  }
}

TEST(CheckSequence, PipeWithoutDimensionsFails) {
  ALU_DGN_DATA data = Beam();
  data.code.sect.nShape = ALU_SHAPE_P;
  data.code.sect.dSize[0] = data.code.sect.dSize[1] = 0.0;
  EXPECT_EQ(Check(data, BeamForces(1e4)).ret, 0);
}

TEST(CheckSequence, CallersBufferIsResetFirst) {
  ALU_CAL_BUFF buffer;
  buffer.sectpara.dRw = 9.0;
  buffer.report->dValue[12] = 9.0;
  T_RALU_SECT result;
  CALUCode_GB50429_07 engine;
  engine.CheckCode(Beam(), BeamForces(), result, buffer);
  EXPECT_LT(buffer.sectpara.dRw, 1.0);
  EXPECT_EQ(buffer.report->dValue[12], 0.0);
}

TEST(CheckSequence, CallersBufferReceivesTheSectionParameters) {
  const auto outcome = Check(Beam(), BeamForces());
  EXPECT_EQ(outcome.buffer.sectpara.dA, 2000.0);
  EXPECT_EQ(outcome.buffer.sectpara.dW1, 200000.0);
}

TEST(CheckSequence, BothEntriesGiveTheSameResult) {
  T_RALU_SECT result;
  CALUCode_GB50429_07 engine;
  EXPECT_EQ(engine.CheckCode(Beam(), BeamForces(1e4), result), 1);
  const auto outcome = Check(Beam(), BeamForces(1e4));
  for (std::size_t rank = 0; rank < 8; ++rank) {
    EXPECT_EQ(result.aItem[rank].dDemand, outcome.result.aItem[rank].dDemand);
    EXPECT_EQ(result.aItem[rank].dCapacity, outcome.result.aItem[rank].dCapacity);
  }
}

TEST(CheckSequence, CallsDoNotInfluenceEachOther) {
  CALUCode_GB50429_07 engine;
  T_RALU_SECT first;
  T_RALU_SECT between;
  T_RALU_SECT again;
  engine.CheckCode(Beam(), BeamForces(1e4), first);
  engine.CheckCode(engine_inputs::Tee(), Forces(-5e4, 3e6, 1e5), between);
  engine.CheckCode(Beam(), BeamForces(1e4), again);
  for (std::size_t rank = 0; rank < 8; ++rank) {
    EXPECT_EQ(first.aItem[rank].dDemand, again.aItem[rank].dDemand);
  }
}

TEST(CheckSequence, EngineIsDestroyedThroughItsBase) {
  EXPECT_TRUE(std::has_virtual_destructor_v<CALUPrint>);
  EXPECT_TRUE((std::is_base_of_v<CALUPrint, CALUCode_GB50429_07>));
}

}  // namespace
