#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "tests/unit/tz_alu/engine/engine_inputs.h"
#include "tz_alu/engine/plate_slenderness.h"

namespace {

using namespace alu_engine;
using engine_inputs::Forces;
using engine_inputs::POINT;
using engine_inputs::SymmetricH;

// f0.2 = 60 makes √(240/f0.2) = 2.
POINT LimitPoint(std::int32_t nShape, const wchar_t* grade, std::int32_t bWelded) {
  POINT point{SymmetricH(), AluDgnSectForce{}};
  point.Section().nShape = nShape;
  point.Section().bWelded = bWelded;
  point.Material().strGrade = grade;
  point.Material().dF02Thin = point.Material().dF02Thick = 60.0;
  return point;
}

// Limits at f0.2 = 240 by alloy class (strongly hardening first) and welds; `strongFlagTwo`: that
// of a strongly hardening alloy when the weld flag is neither 0 nor 1.
struct LIMIT_CASE {
  const char* name;
  std::int32_t nShape;
  PLATE plate;
  double strong;
  double strongWelded;
  double weak;
  double weakWelded;
  double strongFlagTwo;
};

void PrintTo(const LIMIT_CASE& row, std::ostream* os) {
  *os << row.name;
}

class LimitOfPlate : public testing::TestWithParam<LIMIT_CASE> {
 protected:
  static void ExpectLimit(const wchar_t* grade, std::int32_t bWelded, double expected) {
    POINT point = LimitPoint(GetParam().nShape, grade, bWelded);
    EXPECT_DOUBLE_EQ(PlateLimit(point.Input(), GetParam().plate), 2.0 * expected);
  }
};

TEST_P(LimitOfPlate, StrongHardeningUnwelded) {
  for (const auto* grade : {L"6061-T4", L"6063-T5", L"6063A-T5", L"5083-H112", L"no such grade"}) {
    ExpectLimit(grade, 0, GetParam().strong);
  }
}

TEST_P(LimitOfPlate, StrongHardeningWelded) {
  ExpectLimit(L"6061-T4", 1, GetParam().strongWelded);
}

TEST_P(LimitOfPlate, WeakHardeningUnwelded) {
  for (const auto* grade : {L"6061-T6", L"6063-T6", L"6063A-T6"}) {
    ExpectLimit(grade, 0, GetParam().weak);
  }
}

TEST_P(LimitOfPlate, WeakHardeningWelded) {
  ExpectLimit(L"6061-T6", 1, GetParam().weakWelded);
}

TEST_P(LimitOfPlate, AnotherWeldFlagCountsForStrongHardeningChannelsAndBoxesOnly) {
  for (const std::int32_t flag : {2, -1}) {
    ExpectLimit(L"6061-T4", flag, GetParam().strongFlagTwo);
    ExpectLimit(L"6061-T6", flag, GetParam().weak);
  }
}

// Width-to-thickness limits of GB 50429-2007, chapter 5. For pipes 8400/f0.2 and so on, which for
// f0.2 = 60 is 140 = 2·70, 100 = 2·50 and 200 = 2·100.
INSTANTIATE_TEST_SUITE_P(
    AllPlates, LimitOfPlate,
    testing::Values(LIMIT_CASE{"ChannelFlange", ALU_SHAPE_C, PLATE::Flange, 5, 4, 6, 5, 4},
                    LIMIT_CASE{"ChannelWeb", ALU_SHAPE_C, PLATE::Web, 0, 0, 0, 0, 0},
                    LIMIT_CASE{"HFlange", ALU_SHAPE_H, PLATE::Flange, 5, 4, 6, 5, 5},
                    LIMIT_CASE{"HWeb", ALU_SHAPE_H, PLATE::Web, 17, 15, 21.5, 17, 17},
                    LIMIT_CASE{"BoxFlange", ALU_SHAPE_B, PLATE::Flange, 17, 15, 21.5, 17, 15},
                    LIMIT_CASE{"BoxWeb", ALU_SHAPE_B, PLATE::Web, 17, 15, 21.5, 17, 15},
                    LIMIT_CASE{"Pipe", ALU_SHAPE_P, PLATE::Web, 70, 50, 100, 70, 70},
                    LIMIT_CASE{"PipeAsFlange", ALU_SHAPE_P, PLATE::Flange, 70, 50, 100, 70, 70},
                    LIMIT_CASE{"TeeFlange", ALU_SHAPE_T, PLATE::Flange, 0, 0, 0, 0, 0},
                    LIMIT_CASE{"TeeWeb", ALU_SHAPE_T, PLATE::Web, 0, 0, 0, 0, 0},
                    LIMIT_CASE{"DoubleChannel", ALU_SHAPE_2C, PLATE::Flange, 0, 0, 0, 0, 0},
                    LIMIT_CASE{"SolidRound", ALU_SHAPE_SR, PLATE::Web, 0, 0, 0, 0, 0},
                    LIMIT_CASE{"Unknown", 7, PLATE::Flange, 0, 0, 0, 0, 0}),
    [](const auto& row) { return std::string(row.param.name); });

double FlangeLimit(POINT point) {
  return PlateLimit(point.Input(), PLATE::Flange);
}

POINT WeakH() {
  return LimitPoint(ALU_SHAPE_H, L"6061-T6", 0);
}

TEST(PlateLimit, TakesTheThinProofStrengthUpToAWebOfTen) {
  POINT point = WeakH();
  point.Material().dF02Thick = 15.0;
  EXPECT_DOUBLE_EQ(FlangeLimit(point), 12.0);  // 6·√(240/60)
}

TEST(PlateLimit, TakesTheThickProofStrengthAboveAWebOfTen) {
  POINT point = WeakH();
  point.Material().dF02Thick = 15.0;
  point.Section().dSize[1] = 10.5;
  EXPECT_DOUBLE_EQ(FlangeLimit(point), 24.0);  // 6·√(240/15)
}

TEST(PlateLimit, GrowsWithTheRootOfTheRibFactor) {
  POINT point = WeakH();
  point.Parameters().bRib = 1;
  point.Parameters().dRibRatio = 9.0;
  EXPECT_DOUBLE_EQ(FlangeLimit(point), 36.0);  // 6·2·√9
}

TEST(PlateLimit, IgnoresTheRibFactorUnlessTheRibFlagIsOne) {
  for (const std::int32_t flag : {0, 2}) {
    POINT point = WeakH();
    point.Parameters().bRib = flag;
    point.Parameters().dRibRatio = 9.0;
    EXPECT_DOUBLE_EQ(FlangeLimit(point), 12.0) << flag;
  }
}

TEST(PlateLimit, GrowsWithTheRootOfTheGradientFactor) {
  POINT point = WeakH();
  point.force = Forces(0, 1e7, 0);
  point.Parameters().bRib = 1;
  point.Parameters().dRibRatio = 1.0;
  // ψ = -1: κ = 23.88/4
  EXPECT_DOUBLE_EQ(PlateLimit(point.Input(), PLATE::Web), 43.0 * std::sqrt(5.97));
}

TEST(PlateLimit, OfAFlangeWithoutRibsGrowsALittleInBending) {
  POINT point = WeakH();
  point.force = Forces(0, 1e7, 0);
  EXPECT_DOUBLE_EQ(FlangeLimit(point), 12.0 * std::sqrt(0.578 / 1.34 / 0.425));
}

TEST(PlateLimit, OfAPipeKnowsNeitherRibsNorGradient) {
  POINT point = LimitPoint(ALU_SHAPE_P, L"6061-T6", 0);
  point.force = Forces(0, 1e7, 0);
  point.Parameters().bRib = 1;
  point.Parameters().dRibRatio = 9.0;
  EXPECT_DOUBLE_EQ(PlateLimit(point.Input(), PLATE::Web), 200.0);
}

TEST(PlateLimit, WithoutAProofStrengthIsInfinite) {
  for (const auto shape : {ALU_SHAPE_H, ALU_SHAPE_P}) {
    POINT point = LimitPoint(shape, L"6061-T6", 0);
    point.Material().dF02Thin = 0.0;
    EXPECT_EQ(FlangeLimit(point), std::numeric_limits<double>::infinity());
  }
}

TEST(PlateLimit, OfANegativeProofStrengthOrRibFactorIsUndefined) {
  POINT point = WeakH();
  point.Material().dF02Thin = -60.0;
  EXPECT_TRUE(std::isnan(FlangeLimit(point)));
  POINT ribs = WeakH();
  ribs.Parameters().bRib = 1;
  ribs.Parameters().dRibRatio = -1.0;
  EXPECT_TRUE(std::isnan(FlangeLimit(ribs)));
}

}  // namespace
