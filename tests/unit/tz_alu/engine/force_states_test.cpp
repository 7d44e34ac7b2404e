#include <gtest/gtest.h>

#include "tests/unit/tz_alu/engine/engine_inputs.h"
#include "tz_alu/report/aluprint.h"

namespace {

using engine_inputs::Forces;
using State = CALU_GB50429_07Print;

TEST(ForceStates, TensionBeginsAboveTheTolerance) {
  EXPECT_FALSE(State::IsTension(Forces(1e-10, 0, 0)));
  EXPECT_TRUE(State::IsTension(Forces(1.0001e-10, 0, 0)));
}

TEST(ForceStates, CompressionBeginsBelowTheNegativeTolerance) {
  EXPECT_FALSE(State::IsCompression(Forces(-1e-10, 0, 0)));
  EXPECT_TRUE(State::IsCompression(Forces(-1.0001e-10, 0, 0)));
}

TEST(ForceStates, MomentOfExactlyTheToleranceIsBending) {
  EXPECT_TRUE(State::IsBending(Forces(0, 1e-10, 0)));
  EXPECT_TRUE(State::IsBending(Forces(0, 0, -1e-10)));
}

TEST(ForceStates, MomentBelowTheToleranceIsNoBending) {
  EXPECT_FALSE(State::IsBending(Forces(0, 9.999e-11, -9.999e-11)));
}

TEST(ForceStates, MomentAboutEitherAxisIsBending) {
  EXPECT_TRUE(State::IsBending(Forces(0, -5, 0)));
  EXPECT_TRUE(State::IsBending(Forces(0, 0, 5)));
}

TEST(ForceStates, ShearAndTorsionAreNoBending) {
  AluDgnSectForce force;
  force.dForce[ALU_FORCE_FY] = force.dForce[ALU_FORCE_FZ] = force.dForce[ALU_FORCE_MX] = 1e6;
  EXPECT_FALSE(State::IsBending(force));
}

TEST(ForceStates, AxialForceAloneIsPure) {
  EXPECT_TRUE(State::IsPureTension(Forces(1, 0, 0)));
  EXPECT_TRUE(State::IsPureCompression(Forces(-1, 0, 0)));
  EXPECT_FALSE(State::IsPureTension(Forces(1, 1, 0)));
  EXPECT_FALSE(State::IsPureCompression(Forces(-1, 0, 1)));
}

TEST(ForceStates, BendingIsPureUpToAnAxialForceOfTheTolerance) {
  EXPECT_TRUE(State::IsPureBending(Forces(0, 1, 0)));
  EXPECT_TRUE(State::IsPureBending(Forces(1e-10, 1, 0)));
  EXPECT_TRUE(State::IsPureBending(Forces(-1e-10, 1, 0)));
  EXPECT_FALSE(State::IsPureBending(Forces(2e-10, 1, 0)));
}

TEST(ForceStates, NoForceIsNoPureBending) {
  EXPECT_FALSE(State::IsPureBending(Forces(0, 0, 0)));
}

TEST(ForceStates, AxialForceWithBendingIsCombined) {
  EXPECT_TRUE(State::IsTensionBending(Forces(1, 0, 1)));
  EXPECT_FALSE(State::IsTensionBending(Forces(-1, 0, 1)));
  EXPECT_TRUE(State::IsCompressionBending(Forces(-1, 1, 0)));
  EXPECT_FALSE(State::IsCompressionBending(Forces(-1, 0, 0)));
}

}  // namespace
