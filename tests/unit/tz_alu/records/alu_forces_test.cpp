#include "tz_alu/records/alu_forces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Each;

namespace {

AluDgnSectForce FilledForce() {
  AluDgnSectForce force;
  for (double& value : force.dForce) value = 5.0;
  force.nLComb = 9;
  force.nPos = 4;
  force.bEndSect = 1;
  force.nSesiType = 1;
  force.end.dMyI = force.end.dMyJ = force.end.dMzI = force.end.dMzJ = 6.0;
  return force;
}

TEST(AluDgnEndForce, StartsWithZeros) {
  const AluDgnEndForce end;
  const double values[] = {end.dMyI, end.dMyJ, end.dMzI, end.dMzJ};
  EXPECT_THAT(values, Each(0.0));
}

TEST(AluDgnSectForce, StartsWithoutForces) {
  EXPECT_THAT(AluDgnSectForce().dForce, Each(0.0));
}

TEST(AluDgnSectForce, ResetStandsAtTheStartAndIsNoEndSection) {
  AluDgnSectForce force = FilledForce();
  force.Initial();
  EXPECT_EQ(force.nPos, 0);
  EXPECT_EQ(force.bEndSect, 0);
}

TEST(AluDgnSectForce, ResetClearsForcesAndEndMoments) {
  AluDgnSectForce force = FilledForce();
  force.Initial();
  EXPECT_THAT(force.dForce, Each(0.0));
  const double moments[] = {force.end.dMyI, force.end.dMyJ, force.end.dMzI, force.end.dMzJ};
  EXPECT_THAT(moments, Each(0.0));
}

TEST(AluDgnSectForce, ResetForgetsTheCombination) {
  AluDgnSectForce force = FilledForce();
  force.Initial();
  EXPECT_EQ(force.nLComb, 0U);
  EXPECT_EQ(force.nSesiType, 0);
}

}  // namespace
