#include "tz_alu/engine/local_buckling.h"

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

TEST(ReducedPart, InAxialCompressionIsTheWholeSection) {
  EXPECT_EQ(ReducedPart(Forces(-1, 0, 0)), REDUCED_PART::WholeSection);
}

TEST(ReducedPart, InPositiveBendingIsTheTopFlange) {
  for (const double N : {-1.0, 0.0, 1.0}) {
    EXPECT_EQ(ReducedPart(Forces(N, 1.1e-10, 0)), REDUCED_PART::TopFlange) << N;
  }
}

TEST(ReducedPart, InNegativeBendingIsTheBottomFlange) {
  for (const double N : {-1.0, 0.0, 1.0}) {
    EXPECT_EQ(ReducedPart(Forces(N, -1, 0)), REDUCED_PART::BottomFlange) << N;
  }
}

TEST(ReducedPart, InTensionOrBendingAboutZAloneIsTheBottomFlange) {
  EXPECT_EQ(ReducedPart(Forces(1, 0, 0)), REDUCED_PART::BottomFlange);
  EXPECT_EQ(ReducedPart(Forces(0, 0, 1)), REDUCED_PART::BottomFlange);
  EXPECT_EQ(ReducedPart(Forces(-1, 0, 1)), REDUCED_PART::BottomFlange);
  EXPECT_EQ(ReducedPart(Forces(0, 0, 0)), REDUCED_PART::BottomFlange);
}

TEST(ReducedPart, ByAMomentOfExactlyTheToleranceIsTheBottomFlange) {
  EXPECT_EQ(ReducedPart(Forces(-1, 1e-10, 0)), REDUCED_PART::BottomFlange);
}

// 233x10, flanges 120x8 and 96x4, corners 3 and 4.
POINT PlatePoint(std::int32_t nShape, double N, double My) {
  POINT point{SymmetricH(), Forces(N, My, 0)};
  point.Section().nShape = nShape;
  point.SetSize({233, 10, 120, 8, 96, 4, 3, 4});
  return point;
}

GOVERNING_PLATE Compressed(std::int32_t nShape, double top, double bottom, double web) {
  POINT point = PlatePoint(nShape, -1, 0);
  return GoverningPlate(point.Input(), {top, bottom, web, 0.0});
}

GOVERNING_PLATE Bent(std::int32_t nShape, double My) {
  POINT point = PlatePoint(nShape, -1, My);
  return GoverningPlate(point.Input(), {2.0, 2.0, 5.0, 5.0});
}

void ExpectPlate(const GOVERNING_PLATE& plate, double k, double b, double t) {
  EXPECT_EQ(plate.k, k);
  EXPECT_EQ(plate.b, b);
  EXPECT_EQ(plate.t, t);
}

TEST(GoverningPlate, InAxialCompressionIsASlenderWebBeforeTheFlanges) {
  for (const auto shape : {ALU_SHAPE_H, ALU_SHAPE_B}) {
    ExpectPlate(Compressed(shape, 3, 4, 1.5), 4.0, 215.0, 10.0);  // 233-8-4-2·3
  }
}

// Kept: each flange's thickness goes with the other flange's width.
TEST(GoverningPlate, OfTwoSlenderFlangesPairsTheBottomThicknessWithTheTopWidth) {
  ExpectPlate(Compressed(ALU_SHAPE_H, 2, 3, 1), 0.431, 107.0, 4.0);  // 120-10-3
  ExpectPlate(Compressed(ALU_SHAPE_C, 2, 3, 0), 0.431, 107.0, 4.0);
  ExpectPlate(Compressed(ALU_SHAPE_B, 2, 3, 1), 4.0, 100.0, 4.0);  // 120-2·10
}

TEST(GoverningPlate, OfTwoSlenderFlangesPairsTheTopThicknessWithTheBottomWidth) {
  ExpectPlate(Compressed(ALU_SHAPE_H, 3, 2, 1), 0.431, 83.0, 8.0);  // 96-10-3
  ExpectPlate(Compressed(ALU_SHAPE_C, 3, 2, 0), 0.431, 83.0, 8.0);
  ExpectPlate(Compressed(ALU_SHAPE_B, 3, 2, 1), 4.0, 76.0, 8.0);  // 96-2·10
}

TEST(GoverningPlate, OfEquallySlenderFlangesTakesTheTopThickness) {
  EXPECT_EQ(Compressed(ALU_SHAPE_H, 2, 2, 1).t, 8.0);
  EXPECT_EQ(Compressed(ALU_SHAPE_H, 2, 2 + 9e-11, 1).t, 8.0);
  EXPECT_EQ(Compressed(ALU_SHAPE_H, 2, 2 + 2e-10, 1).t, 4.0);
}

TEST(GoverningPlate, OfASlenderBottomFlangeAloneIsThatFlange) {
  ExpectPlate(Compressed(ALU_SHAPE_H, 1, 2, 1), 0.431, 40.0, 4.0);  // (96-10-2·3)/2
  ExpectPlate(Compressed(ALU_SHAPE_C, 1, 2, 0), 0.431, 83.0, 4.0);  // 96-10-3
  ExpectPlate(Compressed(ALU_SHAPE_B, 1, 2, 1), 4.0, 76.0, 4.0);    // 96-2·10
}

// Kept: none, so that the section stays as it is.
TEST(GoverningPlate, OfASlenderTopFlangeAloneIsNone) {
  for (const auto shape : {ALU_SHAPE_H, ALU_SHAPE_C, ALU_SHAPE_B}) {
    ExpectPlate(Compressed(shape, 2, 1, 1), 0.0, 0.0, 0.0);
  }
}

TEST(GoverningPlate, InAxialCompressionIsSlenderAboveTheToleranceOnly) {
  ExpectPlate(Compressed(ALU_SHAPE_H, 1, 1 + 9e-11, 1 + 9e-11), 0.0, 0.0, 0.0);
  EXPECT_EQ(Compressed(ALU_SHAPE_H, 1, 1, 1 + 2e-10).t, 10.0);
  EXPECT_EQ(Compressed(ALU_SHAPE_H, 1, 1 + 2e-10, 1).t, 4.0);
}

TEST(GoverningPlate, InPositiveBendingIsTheTopFlangeHoweverSlenderTheWeb) {
  ExpectPlate(Bent(ALU_SHAPE_H, 1.0), 0.431, 52.0, 8.0);   // (120-10-2·3)/2
  ExpectPlate(Bent(ALU_SHAPE_C, 1.0), 0.431, 107.0, 8.0);  // 120-10-3
  ExpectPlate(Bent(ALU_SHAPE_B, 1.0), 4.0, 100.0, 8.0);    // 120-2·10
}

TEST(GoverningPlate, InNegativeBendingIsTheBottomFlangeHoweverSlenderTheWeb) {
  ExpectPlate(Bent(ALU_SHAPE_H, -1.0), 0.431, 40.0, 4.0);
  ExpectPlate(Bent(ALU_SHAPE_C, -1.0), 0.431, 83.0, 4.0);
  ExpectPlate(Bent(ALU_SHAPE_B, -1.0), 4.0, 76.0, 4.0);
}

TEST(GoverningPlate, InBendingNeedNotBeSlender) {
  POINT point = PlatePoint(ALU_SHAPE_H, 0, 1);
  ExpectPlate(GoverningPlate(point.Input(), {0.1, 2.0, 0.1, 2.0}), 0.431, 52.0, 8.0);
}

TEST(GoverningPlate, InTensionIsTheBottomFlange) {
  POINT point = PlatePoint(ALU_SHAPE_H, 1, 0);
  ExpectPlate(GoverningPlate(point.Input(), {2.0, 1.0, 2.0, 2.0}), 0.431, 40.0, 4.0);
}

// Euler stress of a strip, π²·E/(12·(1 - ν²)) = 63,266.69 for aluminium (literature), times
// k/(b/t)²: 4·63,266.69/20².
TEST(CriticalStress, OfAnAluminiumWebIsThatOfPlateTheory) {
  const double expected =
      4.0 * std::numbers::pi * std::numbers::pi * 70000.0 / (12.0 * 0.91) / 400.0;
  EXPECT_NEAR(expected, 632.6669, 1e-4);
  EXPECT_NEAR(CriticalStress({4.0, 200.0, 10.0}, 70000.0, 0.3), expected, 1e-12 * expected);
}

// The product of the constant with itself lies 3.8e-13 below the exact π².
TEST(CriticalStress, TakesPiAsTheRulesHoldIt) {
  constexpr double kRulesPi = 3.1415926535897323;
  EXPECT_NEAR(CriticalStress({12.0, 1.0, 1.0}, 1.0, 0.0), kRulesPi * kRulesPi, 4e-15);
}

TEST(CriticalStress, OfAPlateWithoutWidthIsInfinite) {
  EXPECT_EQ(CriticalStress({4.0, 0.0, 10.0}, 70000.0, 0.3),
            std::numeric_limits<double>::infinity());
}

TEST(CriticalStress, OfAMaterialWithoutModulusIsZero) {
  EXPECT_EQ(CriticalStress({4.0, 200.0, 10.0}, 0.0, 0.3), 0.0);
}

struct COEFFICIENT_CASE {
  bool weak;
  bool welded;
  bool ribs;
  double c1;
  double c2;
};

class ReductionRow : public testing::TestWithParam<COEFFICIENT_CASE> {};

TEST_P(ReductionRow, HoldsItsCoefficients) {
  const auto& [weak, welded, ribs, c1, c2] = GetParam();
  EXPECT_EQ(ReductionCoefficients(weak, welded, ribs).c1, c1);
  EXPECT_EQ(ReductionCoefficients(weak, welded, ribs).c2, c2);
}

// Effective thickness of GB 50429-2007, chapter 5.
INSTANTIATE_TEST_SUITE_P(AllRows, ReductionRow,
                         testing::Values(COEFFICIENT_CASE{true, false, true, 1.0, 1.0},
                                         COEFFICIENT_CASE{true, true, true, 0.9, 0.9},
                                         COEFFICIENT_CASE{true, false, false, 0.96, 1.0},
                                         COEFFICIENT_CASE{true, true, false, 0.9, 0.9},
                                         COEFFICIENT_CASE{false, false, true, 0.9, 0.9},
                                         COEFFICIENT_CASE{false, true, true, 0.8, 0.7},
                                         COEFFICIENT_CASE{false, false, false, 0.9, 0.9},
                                         COEFFICIENT_CASE{false, true, false, 0.77, 0.68}));

}  // namespace
