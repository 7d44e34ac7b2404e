// Which way the frame sways, seen from an element's own axes.

#include <gmock/gmock.h>

#include <limits>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using testing::Pair;

class Sway : public ManagerTest {
 protected:
  Sway() : ManagerTest(test_support::one_element_model()) {}

  /// Sway flags y and z of element 1 turned by `beta` degrees, with the model's flags A and B.
  std::pair<int, int> Flags(double beta, int a, int b) {
    host_.model.elements[1].dBeta = beta;
    host_.model.control = T_DCTL_D{a, b, 0, 0, 0};
    int swayY = -1;
    int swayZ = -1;
    T_CMFT_D factors;
    EXPECT_EQ(manager_.GetBetaM(1, &swayY, &swayZ, factors), 0);
    return {swayY, swayZ};
  }
};

// A = 0 and B = 5 tell the three rules apart: along the axes (1, 0), turned (0, 5), skewed (1, 1).
class SwayOfAngle : public Sway, public testing::WithParamInterface<double> {
 protected:
  std::pair<int, int> FlagsOfParam() { return Flags(GetParam(), 0, 5); }
};
class AlignedAngle : public SwayOfAngle {};
class TurnedAngle : public SwayOfAngle {};
class SkewedAngle : public SwayOfAngle {};

TEST_P(AlignedAngle, TheModelsFlagsAreNegated) {
  EXPECT_THAT(FlagsOfParam(), Pair(1, 0));
}
INSTANTIATE_TEST_SUITE_P(Degrees, AlignedAngle,
                         testing::Values(0.0, 0.0099, -0.0099, 179.995, 180.005, 359.995, 360.0,
                                         720.0, -180.0, -360.0, 359.995 - 720.0));

TEST_P(TurnedAngle, TheModelsFlagsAreTakenAsTheyStand) {
  EXPECT_THAT(FlagsOfParam(), Pair(0, 5));
}
INSTANTIATE_TEST_SUITE_P(Degrees, TurnedAngle,
                         testing::Values(90.0, 90.005, 89.995, 270.0, -90.0, -89.995, -270.0,
                                         450.0));

TEST_P(SkewedAngle, OneFlagIsNotEnoughToBraceIt) {
  EXPECT_THAT(FlagsOfParam(), Pair(1, 1));
}
INSTANTIATE_TEST_SUITE_P(Degrees, SkewedAngle,
                         testing::Values(45.0, 0.02, -0.02, 89.98, 90.02, 179.98, 359.98, -45.0));

TEST_F(Sway, AnAlignedElementSwaysWhereAFlagIsZero) {
  EXPECT_THAT(Flags(0.0, 0, 0), Pair(1, 1));
  EXPECT_THAT(Flags(0.0, 1, 0), Pair(0, 1));
  EXPECT_THAT(Flags(0.0, 1, 1), Pair(0, 0));
}

TEST_F(Sway, ATurnedElementTakesAToYAndBToZ) {
  EXPECT_THAT(Flags(90.0, 1, 0), Pair(1, 0));
  EXPECT_THAT(Flags(90.0, 0, 1), Pair(0, 1));
}

TEST_F(Sway, ASkewedElementIsBracedOnlyWhenBothFlagsAreSet) {
  EXPECT_THAT(Flags(45.0, 1, 1), Pair(0, 0));
  EXPECT_THAT(Flags(45.0, 2, 3), Pair(0, 0));
  EXPECT_THAT(Flags(45.0, 1, 0), Pair(1, 1));
  EXPECT_THAT(Flags(45.0, 0, 1), Pair(1, 1));
  EXPECT_THAT(Flags(45.0, 0, 0), Pair(1, 1));
}

TEST_F(Sway, WithoutDesignControlBothFlagsAreZero) {
  int swayY = -1;
  int swayZ = -1;
  T_CMFT_D factors;
  manager_.GetBetaM(1, &swayY, &swayZ, factors);
  EXPECT_EQ(swayY, 1);
  EXPECT_EQ(swayZ, 1);
}

TEST_F(Sway, AnAngleThatIsNoNumberCountsAsSkewed) {
  EXPECT_THAT(Flags(std::numeric_limits<double>::quiet_NaN(), 0, 5), Pair(1, 1));
  EXPECT_THAT(Flags(std::numeric_limits<double>::infinity(), 0, 5), Pair(1, 1));
  EXPECT_THAT(Flags(-std::numeric_limits<double>::infinity(), 0, 5), Pair(1, 1));
}

TEST_F(Sway, AnAngleBeyondThirtyTwoBitsIsNormalisedToo) {
  // 3.6e12 is a whole number of turns; a quarter more is a turned element.
  EXPECT_THAT(Flags(3.6e12, 0, 5), Pair(1, 0));
  EXPECT_THAT(Flags(3.6e12 + 90.0, 0, 5), Pair(0, 5));
  EXPECT_THAT(Flags(-3.6e12 - 90.0, 0, 5), Pair(0, 5));
}

TEST_F(Sway, MomentFactorsOfTheElementAreHandedOut) {
  host_.model.moment_factors[1] = {{0, 1}, {0.65, 0.85}, {2, 3}};
  int swayY = -1;
  int swayZ = -1;
  T_CMFT_D factors;
  EXPECT_EQ(manager_.GetBetaM(1, &swayY, &swayZ, factors), 1);
  EXPECT_EQ(factors.aBetaM[0], 0.65);
  EXPECT_EQ(factors.aLoadType[1], 3);
}

TEST_F(Sway, WithoutElementOrNodesNothingIsSaid) {
  host_.model.moment_factors[1] = {};
  int swayY = -1;
  int swayZ = -1;
  T_CMFT_D factors;
  EXPECT_EQ(manager_.GetBetaM(8, &swayY, &swayZ, factors), 0);
  host_.model.nodes.erase(2);
  EXPECT_EQ(manager_.GetBetaM(1, &swayY, &swayZ, factors), 0);
  host_.model.nodes.erase(1);
  EXPECT_EQ(manager_.GetBetaM(1, &swayY, &swayZ, factors), 0);
  EXPECT_EQ(swayY, -1);
  EXPECT_EQ(swayZ, -1);
}

}  // namespace
