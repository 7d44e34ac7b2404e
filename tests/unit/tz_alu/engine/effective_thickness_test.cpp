#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/unit/tz_alu/engine/engine_inputs.h"
#include "tz_alu/engine/local_buckling.h"

namespace {

using namespace alu_engine;
using engine_inputs::Forces;
using engine_inputs::POINT;
using engine_inputs::SymmetricH;

constexpr double kTight = 1e-12;  // some ten roundings of values near 1

// A bent section of `nShape` whose compressed flange has the slenderness λ = √(f0.2/σcr): the
// plate's critical stress k·π²·E/(12·(1 - ν²)·(b/t)²) is found here and f0.2 set to λ²·σcr.
// Flange 110x5, web 10: an H has k = 0.431 and b/t = 50/5, a channel 0.431 and 100/5, a box 4 and
// 90/5.
POINT FlangeOf(double lambda, std::int32_t nShape = ALU_SHAPE_H) {
  POINT point{SymmetricH(), Forces(0, 1e6, 0)};
  point.Section().nShape = nShape;
  point.SetSize({200, 10, 110, 5, 110, 5});
  const double k = nShape == ALU_SHAPE_B ? 4.0 : 0.431;
  const double slender = nShape == ALU_SHAPE_H ? 10.0 : nShape == ALU_SHAPE_C ? 20.0 : 18.0;
  const double critical =
      k * std::numbers::pi * std::numbers::pi * 70000.0 / (12.0 * 0.91) / (slender * slender);
  point.Material().dF02Thin = lambda * lambda * critical;
  return point;
}

POINT WithRibs(POINT point) {
  point.Parameters().bRib = 1;
  return point;
}

double Rho(POINT point) {
  return EffectiveThicknessFactor(point.Input(), {2.0, 2.0, 1.0, 2.0});
}

TEST(EffectiveThickness, OfAWeakHardeningFlangeAtLambdaOne) {
  EXPECT_NEAR(Rho(FlangeOf(1.0)), 0.74, kTight);            // 0.96 - 0.22
  EXPECT_NEAR(Rho(WithRibs(FlangeOf(1.0))), 0.78, kTight);  // 1.0 - 0.22
}

TEST(EffectiveThickness, OfAWeldedWeakHardeningFlangeAtLambdaOne) {
  POINT point = FlangeOf(1.0);
  point.Section().bWelded = 1;
  EXPECT_NEAR(Rho(point), 0.702, kTight);  // 0.9 - 0.198
}

TEST(EffectiveThickness, OfAStrongHardeningFlangeAtLambdaOne) {
  POINT point = FlangeOf(1.0);
  point.Material().strGrade = L"6061-T4";
  EXPECT_NEAR(Rho(point), 0.702, kTight);  // 0.9 - 0.198
}

TEST(EffectiveThickness, OfAWeldedStrongHardeningFlangeAtLambdaOne) {
  POINT point = FlangeOf(1.0);
  point.Material().strGrade = L"6061-T4";
  point.Section().bWelded = 1;
  EXPECT_NEAR(Rho(point), 0.6204, kTight);           // 0.77 - 0.1496
  EXPECT_NEAR(Rho(WithRibs(point)), 0.646, kTight);  // 0.8 - 0.154
}

TEST(EffectiveThickness, CountsOnlyTheFlagsOneAsRibsAndWelds) {
  POINT point = FlangeOf(1.0);
  point.Parameters().bRib = 2;
  point.Section().bWelded = 2;
  EXPECT_NEAR(Rho(point), 0.74, kTight);
}

TEST(EffectiveThickness, TakesTheCoefficientOfTheShape) {
  EXPECT_NEAR(Rho(FlangeOf(1.0, ALU_SHAPE_B)), 0.74, kTight);
  EXPECT_NEAR(Rho(FlangeOf(1.0, ALU_SHAPE_C)), 0.74, kTight);
}

// 0.96/2 - 0.22/4 = 0.425 without the cap 1/λ² = 0.25.
TEST(EffectiveThickness, WithoutRibsIsCappedByTheElasticCurve) {
  EXPECT_NEAR(Rho(FlangeOf(2.0)), 0.25, kTight);
  EXPECT_NEAR(Rho(FlangeOf(2.0, ALU_SHAPE_B)), 0.25, kTight);
}

TEST(EffectiveThickness, WithRibsIsCappedForUnsymmetricSections) {
  EXPECT_NEAR(Rho(WithRibs(FlangeOf(2.0, ALU_SHAPE_C))), 0.25, kTight);
}

TEST(EffectiveThickness, WithRibsIsNotCappedForSymmetricSections) {
  EXPECT_NEAR(Rho(WithRibs(FlangeOf(2.0))), 0.445, kTight);  // 1/2 - 0.22/4
  EXPECT_NEAR(Rho(WithRibs(FlangeOf(2.0, ALU_SHAPE_B))), 0.445, kTight);
}

TEST(EffectiveThickness, OfAStockyFlangeFallsToZero) {
  EXPECT_EQ(Rho(FlangeOf(0.2)), 0.0);  // 4.8 - 5.5
}

TEST(EffectiveThickness, IsNeverAboveOne) {
  EXPECT_EQ(Rho(FlangeOf(0.5)), 1.0);  // 1.92 - 0.88 = 1.04
}

// λ at which 0.96·x - 0.22·x², x = 1/λ, gives `rho`; the roots of the quadratic.
double LambdaOf(double rho, double sign) {
  return 0.44 / (0.96 + sign * std::sqrt(0.9216 - 0.88 * rho));
}

TEST(EffectiveThickness, AboveOneByLessThanTheToleranceStaysAsComputed) {
  const double rho = Rho(FlangeOf(LambdaOf(1.0 + 1e-11, -1.0)));
  EXPECT_NEAR(rho, 1.0 + 1e-11, kTight);
  EXPECT_GT(rho, 1.0);
}

TEST(EffectiveThickness, AboveOneByMoreThanTheToleranceIsOne) {
  EXPECT_EQ(Rho(FlangeOf(LambdaOf(1.0 + 2e-10, -1.0))), 1.0);
}

TEST(EffectiveThickness, BelowTheToleranceIsZero) {
  EXPECT_EQ(Rho(FlangeOf(LambdaOf(5e-11, 1.0))), 0.0);
  EXPECT_NEAR(Rho(FlangeOf(LambdaOf(2e-10, 1.0))), 2e-10, kTight);
}

TEST(EffectiveThickness, TakesTheThickProofStrengthAboveAWebOfTen) {
  POINT point = FlangeOf(1.0);
  point.SetSize({200, 12, 112, 5, 112, 5});  // the same b = 50
  point.Material().dF02Thick = point.Material().dF02Thin;
  point.Material().dF02Thin = 1.0;
  EXPECT_NEAR(Rho(point), 0.74, kTight);
}

TEST(EffectiveThickness, WhenNoPlateGovernsIsOne) {
  POINT point = FlangeOf(2.0);
  point.force = Forces(-1e5, 0, 0);
  EXPECT_EQ(EffectiveThicknessFactor(point.Input(), {2.0, 1.0, 1.0, 2.0}), 1.0);
}

TEST(EffectiveThickness, OfAFlangeWithoutWidthIsOneWhereTheCapApplies) {
  POINT point = FlangeOf(1.0);
  point.Section().dSize[2] = 10.0;  // b = 0, σcr infinite, λ = 0
  EXPECT_EQ(Rho(point), 1.0);
}

TEST(EffectiveThickness, OfAFlangeWithoutWidthIsUndefinedWithoutTheCap) {
  POINT point = WithRibs(FlangeOf(1.0));
  point.Section().dSize[2] = point.Section().dSize[4] = 10.0;
  EXPECT_TRUE(std::isnan(Rho(point)));
}

TEST(EffectiveThickness, WithoutAModulusIsZero) {
  POINT point = FlangeOf(1.0);
  point.Material().nElast = 0;  // λ infinite
  EXPECT_EQ(Rho(point), 0.0);
}

TEST(EffectiveThickness, OfANegativeModulusIsUndefined) {
  POINT point = FlangeOf(1.0);
  point.Material().nElast = -70000;
  EXPECT_TRUE(std::isnan(Rho(point)));
}

}  // namespace
