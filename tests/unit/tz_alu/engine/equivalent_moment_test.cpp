#include "tz_alu/engine/equivalent_moment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "tests/unit/tz_alu/engine/engine_inputs.h"

namespace {

using namespace alu_engine;
using engine_inputs::Forces;
using engine_inputs::POINT;
using engine_inputs::SymmetricH;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(EndMomentRatio, IsTheSmallerOverTheLarger) {
  EXPECT_EQ(EndMomentRatio(10, 5), 0.5);
  EXPECT_EQ(EndMomentRatio(5, 10), 0.5);
  EXPECT_EQ(EndMomentRatio(0, 10), 0.0);
}

TEST(EndMomentRatio, KeepsTheSigns) {
  EXPECT_EQ(EndMomentRatio(-10, 5), -0.5);
  EXPECT_EQ(EndMomentRatio(5, -10), -0.5);
  EXPECT_EQ(EndMomentRatio(-10, -5), 0.5);
}

TEST(EndMomentRatio, OfEqualMagnitudesIsOneOrMinusOne) {
  EXPECT_EQ(EndMomentRatio(10, 10), 1.0);
  EXPECT_EQ(EndMomentRatio(10, -10), -1.0);
  EXPECT_EQ(EndMomentRatio(-10, 10), -1.0);
}

TEST(EndMomentRatio, WithoutEndMomentsIsOne) {
  EXPECT_EQ(EndMomentRatio(0, 0), 1.0);
  EXPECT_EQ(EndMomentRatio(-9e-11, 5e-11), 1.0);
}

TEST(EndMomentRatio, OfAMomentOfExactlyTheToleranceIsFormed) {
  EXPECT_EQ(EndMomentRatio(1e-10, 0), 0.0);
  EXPECT_EQ(EndMomentRatio(0, -1e-10), 0.0);
}

TEST(EndMomentRatio, OfAnUndefinedMomentIsUndefined) {
  EXPECT_TRUE(std::isnan(EndMomentRatio(kNan, 1)));
  EXPECT_TRUE(std::isnan(EndMomentRatio(1, kNan)));
}

TEST(EulerLoad, IsThatOfAPinnedStrut) {
  // π²·70,000·1e6/1000² = 70,000·π²
  const double expected = 70000.0 * std::numbers::pi * std::numbers::pi;
  EXPECT_NEAR(EulerLoad(70000.0, 1e6, 1000.0), expected, 1e-12 * expected);
}

// 4e-14 of it below that of the exact π.
TEST(EulerLoad, TakesPiAsTheRulesHoldIt) {
  const double expected = 3.1415926535897323 * 3.1415926535897323 * 70000.0;
  EXPECT_NEAR(EulerLoad(70000.0, 1e6, 1000.0), expected, 1e-14 * expected);
}

TEST(EulerLoad, OfAStrutWithoutLengthIsInfinite) {
  EXPECT_EQ(EulerLoad(70000.0, 1e6, 0.0), kInf);
}

// M2/M1 = 0.5 and |N|/N_E = 0.5.
TEST(ComputedMomentFactor, OfEndMomentsFollowsTheirRatio) {
  EXPECT_DOUBLE_EQ(ComputedMomentFactor(0, 0.5, -50, 100), 0.8);  // 0.6 + 0.2
  EXPECT_DOUBLE_EQ(ComputedMomentFactor(0, -1.0, -50, 100), 0.2);
  EXPECT_DOUBLE_EQ(ComputedMomentFactor(0, 1.0, -50, 100), 1.0);
}

TEST(ComputedMomentFactor, OfAPointLoadFollowsTheAxialForce) {
  EXPECT_DOUBLE_EQ(ComputedMomentFactor(1, 0.5, -50, 100), 0.82);  // 1 - 0.36·0.5
}

TEST(ComputedMomentFactor, OfADistributedLoadFollowsTheAxialForce) {
  EXPECT_DOUBLE_EQ(ComputedMomentFactor(2, 0.5, -50, 100), 0.91);  // 1 - 0.18·0.5
}

TEST(ComputedMomentFactor, OfMomentsAndLoadsFollowsBoth) {
  EXPECT_DOUBLE_EQ(ComputedMomentFactor(3, 0.5, -50, 100), 0.91);  // 1 - 0.36·0.5·0.5
  EXPECT_DOUBLE_EQ(ComputedMomentFactor(3, 1.0, -50, 100), 1.0);
}

TEST(ComputedMomentFactor, OfAnUnknownLoadingIsZero) {
  for (const int loading : {-1, 4, 99}) EXPECT_EQ(ComputedMomentFactor(loading, 1, -50, 100), 0.0);
}

TEST(ComputedMomentFactor, OfAnInfiniteEulerLoadIsOne) {
  for (const int loading : {1, 2, 3}) EXPECT_EQ(ComputedMomentFactor(loading, 0, -50, kInf), 1.0);
}

TEST(ComputedMomentFactor, WithoutAnEulerLoadIsNegativeInfinity) {
  EXPECT_EQ(ComputedMomentFactor(1, 0, -50, 0), -kInf);
}

// End moments of ratio 0.5 about y (β = 0.8) and -0.5 about z (β = 0.4); user's factors 0.7 and
// 0.9.
POINT MomentPoint() {
  POINT point{SymmetricH(), Forces(-1e5, 1e6, 1e6)};
  point.force.end.dMyI = 1e6;
  point.force.end.dMyJ = 5e5;
  point.force.end.dMzI = -5e5;
  point.force.end.dMzJ = 1e6;
  point.Parameters().dBetaM[0] = 0.7;
  point.Parameters().dBetaM[1] = 0.9;
  return point;
}

void ExpectFactors(POINT& point, double y, double z) {
  const MOMENT_FACTORS factors = MomentFactors(point.Input());
  EXPECT_DOUBLE_EQ(factors.dBetaY, y);
  EXPECT_DOUBLE_EQ(factors.dBetaZ, z);
}

TEST(MomentFactors, AreComputedFromTheEndMomentsOfEachAxis) {
  POINT point = MomentPoint();
  ExpectFactors(point, 0.8, 0.4);
}

TEST(MomentFactors, AreTheUsersUnlessTheOptionOfTheAxisIsOne) {
  for (const std::int32_t option : {0, 2, -1}) {
    POINT point = MomentPoint();
    point.Parameters().nBetaMOpt[0] = option;
    ExpectFactors(point, 0.7, 0.4);
    point.Parameters().nBetaMOpt[1] = option;
    ExpectFactors(point, 0.7, 0.9);
  }
}

TEST(MomentFactors, AreOneAboutAnAxisWithSway) {
  for (const std::int32_t sway : {1, 2}) {
    POINT point = MomentPoint();
    point.Parameters().bSway[0] = sway;
    ExpectFactors(point, 1.0, 0.4);
    point.Parameters().bSway[1] = sway;
    ExpectFactors(point, 1.0, 1.0);
  }
}

TEST(MomentFactors, AreComputedInSpiteOfSwayForAnElementWithItsOwn) {
  for (const std::int32_t own : {1, 2}) {
    POINT point = MomentPoint();
    point.Parameters().bUserBetaM = own;
    point.Parameters().bSway[0] = point.Parameters().bSway[1] = 1;
    ExpectFactors(point, 0.8, 0.4);
  }
}

TEST(MomentFactors, OfTheUserComeBeforeSway) {
  POINT point = MomentPoint();
  point.Parameters().bSway[0] = point.Parameters().bSway[1] = 1;
  point.Parameters().nBetaMOpt[0] = point.Parameters().nBetaMOpt[1] = 0;
  ExpectFactors(point, 0.7, 0.9);
}

TEST(MomentFactors, TakeTheLoadingOfEachAxis) {
  POINT point = MomentPoint();
  point.Parameters().nBetaMOpt2[0] = 7;
  ExpectFactors(point, 0.0, 0.4);
  point.Parameters().nBetaMOpt2[0] = 0;
  point.Parameters().nBetaMOpt2[1] = 7;
  ExpectFactors(point, 0.8, 0.0);
}

// Without end moments, as of a pinned member under load between its ends: M2/M1 = 1.
TEST(MomentFactors, WithoutEndMomentsAreOne) {
  POINT point = MomentPoint();
  point.force.end = {};
  for (const std::int32_t loading : {0, 3}) {
    point.Parameters().nBetaMOpt2[0] = point.Parameters().nBetaMOpt2[1] = loading;
    ExpectFactors(point, 1.0, 1.0);
  }
}

// N_Ey = π²·E·2e7/(0.5·4000)² = 350,000·π², N_Ez = π²·E·2e6/(0.25·4000)² = 140,000·π². Forces of
// half N_Ey are 1.25 of N_Ez.
TEST(MomentFactors, TakeInertiaAndLengthFactorOfTheirAxis) {
  POINT point = MomentPoint();
  point.Parameters().dKy = 0.5;
  point.Parameters().dKz = 0.25;
  point.Parameters().nBetaMOpt2[0] = point.Parameters().nBetaMOpt2[1] = 1;
  point.force.dForce[ALU_FORCE_N] = -175000.0 * std::numbers::pi * std::numbers::pi;
  const MOMENT_FACTORS factors = MomentFactors(point.Input());
  EXPECT_NEAR(factors.dBetaY, 0.82, 1e-12);  // 1 - 0.36·0.5
  EXPECT_NEAR(factors.dBetaZ, 0.55, 1e-12);  // 1 - 0.36·1.25
}

TEST(MomentFactors, OfAMaterialWithoutModulusAreNotFinite) {
  POINT point = MomentPoint();
  point.Material().nElast = 0;
  point.Parameters().nBetaMOpt2[0] = 1;
  EXPECT_EQ(MomentFactors(point.Input()).dBetaY, -kInf);
}

}  // namespace
