#include "tz_alu/engine/plate_slenderness.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "tests/unit/tz_alu/engine/engine_inputs.h"

namespace {

using namespace alu_engine;
using engine_inputs::Forces;
using engine_inputs::POINT;
using engine_inputs::SymmetricH;

constexpr double kInf = std::numeric_limits<double>::infinity();

// An H with tf = 20: An = 1000, so N = -1e5 compresses by 100; the web's edges lie 80 from the
// axis, so My = 1.25e7 stresses them by 1.25e7·80/2e7 = 50.
POINT WebPoint(double N, double My) {
  POINT point{SymmetricH(), Forces(N, My, 0)};
  point.SetSize({200, 10, 100, 20, 100, 20});
  return point;
}

double WebRatio(double N, double My) {
  POINT point = WebPoint(N, My);
  return StressRatio(point.Input(), PLATE::Web);
}

TEST(StressRatio, OfAFlangeIsOne) {
  POINT point = WebPoint(-1e5, 1.25e7);
  EXPECT_EQ(StressRatio(point.Input(), PLATE::Flange), 1.0);
}

TEST(StressRatio, OfAWebInAxialCompressionIsOne) {
  EXPECT_DOUBLE_EQ(WebRatio(-1e5, 0), 1.0);
}

TEST(StressRatio, OfAWebInBendingIsMinusOne) {
  EXPECT_DOUBLE_EQ(WebRatio(0, 1.25e7), -1.0);
}

TEST(StressRatio, OfAPositiveMomentIsBottomOverTop) {
  EXPECT_DOUBLE_EQ(WebRatio(-1e5, 1.25e7), 50.0 / 150.0);
}

TEST(StressRatio, OfANegativeMomentIsTopOverBottom) {
  EXPECT_DOUBLE_EQ(WebRatio(-1e5, -1.25e7), 50.0 / 150.0);
}

// σ0 = 1.6e-6 and, with Iyy = 0.01, edge stresses of ±8e-7.
TEST(StressRatio, OfAMomentOfExactlyTheToleranceIsTopOverBottom) {
  POINT point = WebPoint(-1.6e-3, 1e-10);
  point.Section().dIyy = 0.01;
  EXPECT_NEAR(StressRatio(point.Input(), PLATE::Web), 3.0, 1e-12);
  point.force.dForce[ALU_FORCE_MY] = 1.1e-10;
  EXPECT_LT(StressRatio(point.Input(), PLATE::Web), 1.0);
}

TEST(StressRatio, InTensionExceedsOne) {
  EXPECT_DOUBLE_EQ(WebRatio(1e5, 1.25e7), -150.0 / -50.0);
}

TEST(StressRatio, TakesTheNetArea) {
  POINT point = WebPoint(-1e5, 1.25e7);
  point.Parameters().dCoef085 = 1.0;  // compression of 50 instead of 100: 0/100
  EXPECT_NEAR(StressRatio(point.Input(), PLATE::Web), 0.0, 1e-15);
}

TEST(StressRatio, TakesTheTopEdgeWithTheSignOfItsFibre) {
  POINT point = WebPoint(-1e5, 1.25e7);
  point.Section().dPtZ[0] = -100.0;  // top 100 - 1.25e7·120/2e7 = 25, bottom 50
  EXPECT_DOUBLE_EQ(StressRatio(point.Input(), PLATE::Web), 2.0);
}

TEST(StressRatio, TakesTheBottomEdgeByMagnitude) {
  POINT point = WebPoint(-1e5, 1.25e7);
  point.Section().dPtZ[2] = 100.0;
  EXPECT_DOUBLE_EQ(StressRatio(point.Input(), PLATE::Web), 50.0 / 150.0);
}

TEST(StressRatio, TakesTheThicknessOfEachFlange) {
  POINT point = WebPoint(0, 1.25e7);
  point.SetSize({200, 10, 100, 20, 100, 60});  // edges at 80 and 40
  EXPECT_DOUBLE_EQ(StressRatio(point.Input(), PLATE::Web), -0.5);
}

TEST(StressRatio, IsZeroWithoutStressToDivideBy) {
  EXPECT_EQ(WebRatio(0, 0), 0.0);
  EXPECT_EQ(WebRatio(1e5, 2.5e7), 0.0);   // top -100 + 100
  EXPECT_EQ(WebRatio(1e5, -2.5e7), 0.0);  // bottom -100 + 100
}

TEST(StressRatio, IsZeroWithoutFibresInertiaOrArea) {
  for (const int lacking : {0, 1, 2, 3}) {
    POINT point = WebPoint(-1e5, 1.25e7);
    if (lacking == 0) point.Section().dPtZ[0] = 9e-11;
    if (lacking == 1) point.Section().dPtZ[2] = 9e-11;
    if (lacking == 2) point.Section().dIyy = 9e-11;
    if (lacking == 3) point.Parameters().dCoef085 = 0.0;
    EXPECT_EQ(StressRatio(point.Input(), PLATE::Web), 0.0) << lacking;
  }
}

TEST(GradientCoefficient, OfAnOutstandPlateFallsWithTheStressRatio) {
  EXPECT_DOUBLE_EQ(GradientCoefficient(1.0, false), 0.578 / 1.34);
  EXPECT_DOUBLE_EQ(GradientCoefficient(0.66, false), 0.578);
  EXPECT_NEAR(GradientCoefficient(2e-10, false), 0.578 / 0.34, 2e-9);
}

TEST(GradientCoefficient, OfAnOutstandPlateIsAPolynomialUpToTheTolerance) {
  EXPECT_NEAR(GradientCoefficient(1e-10, false), 1.7 - 5e-10, 1e-15);
  EXPECT_DOUBLE_EQ(GradientCoefficient(0.0, false), 1.7);
  EXPECT_DOUBLE_EQ(GradientCoefficient(-1.0, false), 23.8);  // 1.7 + 5 + 17.1
  EXPECT_DOUBLE_EQ(GradientCoefficient(-2.0, false), 80.1);  // 1.7 + 10 + 68.4
}

TEST(GradientCoefficient, OfAnInternalPlateFallsWithTheStressRatio) {
  EXPECT_DOUBLE_EQ(GradientCoefficient(1.0, true), 4.0);  // 8.2/2.05
  EXPECT_DOUBLE_EQ(GradientCoefficient(0.0, true), 8.2 / 1.05);
  EXPECT_NEAR(GradientCoefficient(-1e-10, true), 8.2 / 1.05, 1e-8);  // not yet 7.81
}

TEST(GradientCoefficient, OfAnInternalPlateIsAPolynomialBelowTheTolerance) {
  EXPECT_NEAR(GradientCoefficient(-2e-10, true), 7.81, 1e-8);
  EXPECT_DOUBLE_EQ(GradientCoefficient(-0.5, true), 13.4);   // 7.81 + 3.145 + 2.445
  EXPECT_DOUBLE_EQ(GradientCoefficient(-1.0, true), 23.88);  // 7.81 + 6.29 + 9.78
}

TEST(GradientCoefficient, OfAnInternalPlateIsASquareBelowMinusOneWithoutATolerance) {
  EXPECT_NEAR(GradientCoefficient(-1.0 - 1e-12, true), 23.92, 1e-10);  // 5.98·2²
  EXPECT_DOUBLE_EQ(GradientCoefficient(-1.5, true), 37.375);           // 5.98·2.5²
}

double FlangeFactor(double My, std::int32_t bRib = 0) {
  POINT point = WebPoint(0, My);
  point.Parameters().bRib = bRib;
  return GradientFactor(point.Input(), PLATE::Flange);
}

TEST(GradientFactor, IsOneUnlessMyReachesTheTolerance) {
  EXPECT_EQ(FlangeFactor(9.9e-11), 1.0);
  EXPECT_EQ(FlangeFactor(0.0), 1.0);
  EXPECT_EQ(FlangeFactor(-1e7), 1.0);
}

TEST(GradientFactor, OfAFlangeWithoutRibsIsThatOfUniformStress) {
  EXPECT_DOUBLE_EQ(FlangeFactor(1e-10), 0.578 / 1.34 / 0.425);
  EXPECT_DOUBLE_EQ(FlangeFactor(1e7), 0.578 / 1.34 / 0.425);
}

TEST(GradientFactor, OfAFlangeWithRibsIsOne) {
  EXPECT_DOUBLE_EQ(FlangeFactor(1e7, 1), 1.0);  // 4/4
}

TEST(GradientFactor, OfAWebFollowsItsStressRatio) {
  POINT point = WebPoint(0, 1.25e7);  // ψ = -1
  EXPECT_DOUBLE_EQ(GradientFactor(point.Input(), PLATE::Web), 23.8 / 0.425);
  point.Parameters().bRib = 1;
  EXPECT_DOUBLE_EQ(GradientFactor(point.Input(), PLATE::Web), 5.97);  // 23.88/4
}

TEST(GradientFactor, CountsOnlyTheRibFlagOne) {
  EXPECT_DOUBLE_EQ(FlangeFactor(1e7, 2), 0.578 / 1.34 / 0.425);
}

POINT PlatePoint(std::int32_t nShape, const std::array<double, 8>& size) {
  POINT point{SymmetricH(), AluDgnSectForce{}};
  point.Section().nShape = nShape;
  point.SetSize(size);
  return point;
}

PLATE_RATIOS RatiosOf(std::int32_t nShape, const std::array<double, 8>& size) {
  POINT point = PlatePoint(nShape, size);
  return PlateRatios(point.Input());
}

void ExpectRatios(const PLATE_RATIOS& ratios, double top, double bottom, double web, double all) {
  EXPECT_DOUBLE_EQ(ratios.dTop, top);
  EXPECT_DOUBLE_EQ(ratios.dBottom, bottom);
  EXPECT_DOUBLE_EQ(ratios.dWeb, web);
  EXPECT_DOUBLE_EQ(ratios.dGoverning, all);
}

// Limits of 6061-T6 with f0.2 = 240 unwelded: outstand 6, internal 21.5, pipe 50. r1 = 3, r2 = 4.
TEST(PlateRatios, OfAnHDeductBothCornersTwiceFromTheFlanges) {
  // (120-10-6-8)/8 = 12, (96-10-6-8)/4 = 18, (448-8-4-6)/10 = 43
  ExpectRatios(RatiosOf(ALU_SHAPE_H, {448, 10, 120, 8, 96, 4, 3, 4}), 2.0, 3.0, 2.0, 3.0);
}

TEST(PlateRatios, OfAChannelDeductBothCornersOnceAndLeaveTheWebOut) {
  // (113-10-3-4)/8 = 12, (89-10-3-4)/4 = 18
  ExpectRatios(RatiosOf(ALU_SHAPE_C, {9000, 10, 113, 8, 89, 4, 3, 4}), 2.0, 3.0, 0.0, 3.0);
}

TEST(PlateRatios, OfABoxAreThoseBetweenItsWebs) {
  // (106-20)/4 = 21.5, (149-20)/3 = 43, (652-4-3)/10 = 64.5; corners play no part
  ExpectRatios(RatiosOf(ALU_SHAPE_B, {652, 10, 106, 4, 149, 3, 5, 5}), 1.0, 2.0, 3.0, 3.0);
}

TEST(PlateRatios, OfAPipeIsDiameterOverWallAndStandsInNoPlate) {
  ExpectRatios(RatiosOf(ALU_SHAPE_P, {200, 2}), 0.0, 0.0, 0.0, 2.0);  // 100/50
}

TEST(PlateRatios, OfOtherShapesAreZero) {
  for (const int shape : {int{ALU_SHAPE_T}, int{ALU_SHAPE_2C}, int{ALU_SHAPE_SR}, -1, 7}) {
    ExpectRatios(RatiosOf(shape, {900, 1, 900, 1, 900, 1}), 0.0, 0.0, 0.0, 0.0);
    ExpectRatios(RatiosOf(shape, {}), 0.0, 0.0, 0.0, 0.0);
  }
}

TEST(PlateRatios, EachPlateCanGovern) {
  EXPECT_EQ(RatiosOf(ALU_SHAPE_H, {34, 10, 130, 10, 70, 10}).dGoverning, 2.0);  // 12/6
  EXPECT_EQ(RatiosOf(ALU_SHAPE_H, {34, 10, 70, 10, 130, 10}).dGoverning, 2.0);
  EXPECT_EQ(RatiosOf(ALU_SHAPE_H, {450, 10, 70, 10, 70, 10}).dGoverning, 2.0);  // 43/21.5
}

TEST(PlateRatios, OfAPlateWithoutThicknessAreInfinite) {
  EXPECT_EQ(RatiosOf(ALU_SHAPE_C, {100, 5, 60, 0, 60, 8}).dGoverning, kInf);
  EXPECT_EQ(RatiosOf(ALU_SHAPE_P, {100, 0}).dGoverning, kInf);
}

TEST(PlateRatios, OfASectionWithoutDimensionsAreUndefined) {
  for (const auto shape : {ALU_SHAPE_C, ALU_SHAPE_H, ALU_SHAPE_B, ALU_SHAPE_P}) {
    EXPECT_TRUE(std::isnan(RatiosOf(shape, {}).dGoverning)) << shape;
  }
}

PLATE_RATIOS RatiosWithRibRatioZero(std::int32_t nShape, const std::array<double, 8>& size,
                                    double My) {
  POINT point = PlatePoint(nShape, size);
  point.force = Forces(0, My, 0);
  point.Parameters().bRib = 1;
  point.Parameters().dRibRatio = 0.0;
  return PlateRatios(point.Input());
}

// A rib ratio of 0 makes every limit of C, H and B 0, with and without a stress gradient. A pipe's
// limit has no rib ratio: 100 over 12000/240.
TEST(PlateRatios, AreNotFormedForALimitOfZero) {
  for (const double My : {1e7, 0.0, -1e7}) {
    for (const std::int32_t shape : {ALU_SHAPE_H, ALU_SHAPE_C, ALU_SHAPE_B}) {
      ExpectRatios(RatiosWithRibRatioZero(shape, {900, 5, 400, 4, 300, 3, 2, 1}, My), 0, 0, 0, 0);
    }
    ExpectRatios(RatiosWithRibRatioZero(ALU_SHAPE_P, {200, 2}, My), 0.0, 0.0, 0.0, 2.0);
  }
}

// Neither the infinite ratio of a plate without thickness nor the undefined one of a plate without
// dimensions comes back.
TEST(PlateRatios, AreNotFormedForALimitOfZeroWhateverThePlates) {
  for (const double My : {1e7, 0.0, -1e7}) {
    ExpectRatios(RatiosWithRibRatioZero(ALU_SHAPE_H, {100, 0, 60, 0, 60, 8}, My), 0, 0, 0, 0);
    ExpectRatios(RatiosWithRibRatioZero(ALU_SHAPE_C, {}, My), 0, 0, 0, 0);
  }
}

// f0.2 stands under the root of every limit and under a pipe's.
TEST(PlateRatios, AreNotFormedForAnInfiniteProofStrength) {
  POINT point = PlatePoint(ALU_SHAPE_P, {200, 2});
  point.Material().dF02Thin = kInf;
  ExpectRatios(PlateRatios(point.Input()), 0, 0, 0, 0);
}

// One plate of neither width nor thickness, the others sound. Clear widths of 0: channel flange
// B - tw - r1 - r2, H flange B - tw - 2·r1 - 2·r2, H web H - tf1 - tf2 - 2·r1, box flange
// B - 2·tw, box web H - tf1 - tf2.
TEST(PlateRatios, GoverningOneIsUndefinedForAnEmptyTopFlange) {
  EXPECT_TRUE(std::isnan(RatiosOf(ALU_SHAPE_C, {100, 5, 12, 0, 60, 8, 3, 4}).dGoverning));
  EXPECT_TRUE(std::isnan(RatiosOf(ALU_SHAPE_H, {100, 5, 19, 0, 60, 8, 3, 4}).dGoverning));
  EXPECT_TRUE(std::isnan(RatiosOf(ALU_SHAPE_B, {100, 5, 10, 0, 60, 8}).dGoverning));
}

TEST(PlateRatios, GoverningOnePassesOverAnEmptyBottomFlange) {
  // The top ones: (60-5-3-4)/8 = 6, (67-5-6-8)/8 = 6, (182-10)/8 = 21.5.
  EXPECT_EQ(RatiosOf(ALU_SHAPE_C, {100, 5, 60, 8, 12, 0, 3, 4}).dGoverning, 1.0);
  EXPECT_EQ(RatiosOf(ALU_SHAPE_H, {50, 5, 67, 8, 19, 0, 3, 4}).dGoverning, 1.0);
  EXPECT_EQ(RatiosOf(ALU_SHAPE_B, {50, 5, 182, 8, 10, 0}).dGoverning, 1.0);
}

TEST(PlateRatios, GoverningOnePassesOverAnEmptyWeb) {
  // The top ones: (62-6-8)/8 = 6 and 172/8 = 21.5.
  EXPECT_EQ(RatiosOf(ALU_SHAPE_H, {21, 0, 62, 8, 56, 7, 3, 4}).dGoverning, 1.0);
  EXPECT_EQ(RatiosOf(ALU_SHAPE_B, {15, 0, 172, 8, 60, 7}).dGoverning, 1.0);
}

}  // namespace
