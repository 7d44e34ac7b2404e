#include "tz_alu/engine/stability_coefficients.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <string>

#include "tests/unit/tz_alu/engine/engine_inputs.h"

namespace {

using namespace alu_engine;
using engine_inputs::Forces;
using engine_inputs::POINT;
using engine_inputs::SymmetricH;
using engine_inputs::Tee;

constexpr double kInf = std::numeric_limits<double>::infinity();

// A calculated section of half the gross area 2000, with the given plate ratios.
ALU_CAL_SECTPARA HalfSection(double R1, double R2, double Rw) {
  ALU_CAL_SECTPARA section;
  section.dA = 1000.0;
  section.dR1 = R1;
  section.dR2 = R2;
  section.dRw = Rw;
  return section;
}

double AreaFactor(std::int32_t nShape, double R1, double R2, double Rw) {
  ALU_SECT_DATA sect = SymmetricH().code.sect;
  sect.nShape = nShape;
  return EffectiveAreaFactor(sect, HalfSection(R1, R2, Rw));
}

TEST(EffectiveAreaFactor, OfASlenderSectionIsEffectiveOverGrossArea) {
  for (const auto shape : {ALU_SHAPE_C, ALU_SHAPE_H, ALU_SHAPE_B}) {
    EXPECT_EQ(AreaFactor(shape, 1.1, 0.5, 0.5), 0.5) << shape;
  }
}

TEST(EffectiveAreaFactor, CountsAnySlenderPlate) {
  EXPECT_EQ(AreaFactor(ALU_SHAPE_H, 0.5, 1.1, 0.5), 0.5);
  EXPECT_EQ(AreaFactor(ALU_SHAPE_H, 0.5, 0.5, 1.1), 0.5);
}

TEST(EffectiveAreaFactor, IsOneUpToALargestRatioOfOneWithoutATolerance) {
  EXPECT_EQ(AreaFactor(ALU_SHAPE_H, 1.0, 1.0, 1.0), 1.0);
  EXPECT_EQ(AreaFactor(ALU_SHAPE_H, 1.0 + 1e-14, 1.0, 1.0), 0.5);
}

TEST(EffectiveAreaFactor, OfOtherShapesIsOne) {
  for (const auto shape : {ALU_SHAPE_T, ALU_SHAPE_P, ALU_SHAPE_2C, ALU_SHAPE_SR}) {
    EXPECT_EQ(AreaFactor(shape, 2.0, 2.0, 2.0), 1.0) << shape;
  }
}

double WeldFactorOf(std::int32_t bWelded, const wchar_t* standard = L"GB50429-07(A)") {
  POINT point{SymmetricH(), AluDgnSectForce{}};
  point.Section().bWelded = bWelded;
  point.Material().strStandard = standard;
  return WeldFactor(point.Input());
}

TEST(WeldFactor, OfAWeldedSectionIsThatOfTheAlloy) {
  EXPECT_EQ(WeldFactorOf(1), 0.5);  // 6061-T6
}

TEST(WeldFactor, IsOneForAnyFlagButOne) {
  for (const std::int32_t flag : {0, 2, -1}) EXPECT_EQ(WeldFactorOf(flag), 1.0) << flag;
}

TEST(WeldFactor, UnderAnotherStandardIsOne) {
  EXPECT_EQ(WeldFactorOf(1, L"EN 1999"), 1.0);
}

// A tee of depth 100 with z from 25 to -75: e = 50/100. f0.2/E = 240/24,000 = 1/100, so that
// λ = 10·π gives λ̄ = 1.
POINT EccentricTee() {
  POINT point{Tee(), AluDgnSectForce{}};
  point.Section().dSize[0] = 100.0;
  point.Material().nElast = 24000;
  return point;
}

constexpr double kLambdaOne = 10.0 * std::numbers::pi;
constexpr double kTight = 1e-13;  // a few roundings, and π of the rules within 2e-14 of π

double Eccentricity(POINT point, double lambda = kLambdaOne, double X = 1.0) {
  return EccentricityFactor(point.Input(), lambda, X);
}

TEST(EccentricityFactor, OfAWeakHardeningAlloy) {
  EXPECT_NEAR(Eccentricity(EccentricTee()), 0.925, kTight);  // 1 - 2.4·0.25/(2·2²)
}

TEST(EccentricityFactor, OfAStrongHardeningAlloy) {
  POINT point = EccentricTee();
  point.Material().strGrade = L"6061-T4";
  EXPECT_NEAR(Eccentricity(point), 0.9, kTight);  // 1 - 3.2·0.25/(2·2²)
}

TEST(EccentricityFactor, HoldsTheEffectiveAreaUnderTheRoot) {
  // λ̄ = √0.25 = 0.5: 1 - 2.4·0.25·0.25/(1.25·1.5²)
  EXPECT_NEAR(Eccentricity(EccentricTee(), kLambdaOne, 0.25), 1.0 - 0.15 / 2.8125, kTight);
}

TEST(EccentricityFactor, TakesTheSumOfTheSignedFibres) {
  POINT point = EccentricTee();
  point.Section().dPtZ[2] = 75.0;                 // e = 1
  EXPECT_NEAR(Eccentricity(point), 0.7, kTight);  // 1 - 2.4/8
}

TEST(EccentricityFactor, WithoutEccentricityOrSlendernessIsOne) {
  POINT centred = EccentricTee();
  centred.Section().dPtZ[2] = -25.0;
  EXPECT_EQ(Eccentricity(centred), 1.0);
  EXPECT_EQ(Eccentricity(EccentricTee(), 0.0), 1.0);
}

TEST(EccentricityFactor, TakesTheThickProofStrengthAboveAWebOfTen) {
  POINT point = EccentricTee();
  point.Section().dSize[1] = 10.5;
  point.Material().dF02Thick = 60.0;  // λ̄ = 0.5
  EXPECT_NEAR(Eccentricity(point), 1.0 - 0.15 / 2.8125, kTight);
}

TEST(EccentricityFactor, WithoutAModulusIsUndefined) {
  POINT point = EccentricTee();
  point.Material().nElast = 0;
  EXPECT_TRUE(std::isnan(Eccentricity(point)));
}

// At fy = 240, weakly hardening: φ(10) = 0.993, φ(20) = 0.951, φ(31) = 0.891, φ(63) = 0.546.
AXIAL_COEFFICIENTS Coefficients(POINT point, const SLENDERNESS& lambda, double R = 0.5) {
  return AxialCoefficients(point.Input(), HalfSection(R, 0.5, 0.5), lambda);
}

TEST(AxialCoefficients, OfAnUnweldedStockySymmetricSectionAreTheTables) {
  const auto phi = Coefficients({SymmetricH(), AluDgnSectForce{}}, {10.0, 20.0});
  EXPECT_EQ(phi.dPhiY, 0.993);
  EXPECT_EQ(phi.dPhiZ, 0.951);
}

TEST(AxialCoefficients, OfASlenderSymmetricSectionLoseItsArea) {
  const auto phi = Coefficients({SymmetricH(), AluDgnSectForce{}}, {10.0, 20.0}, 1.5);
  EXPECT_DOUBLE_EQ(phi.dPhiY, 0.5 * 0.993);
  EXPECT_DOUBLE_EQ(phi.dPhiZ, 0.5 * 0.951);
}

TEST(AxialCoefficients, OfAWeldedSlenderSymmetricSectionLoseBoth) {
  POINT point{SymmetricH(), AluDgnSectForce{}};
  point.Section().bWelded = 1;
  EXPECT_DOUBLE_EQ(Coefficients(point, {10.0, 20.0}, 1.5).dPhiY, 0.25 * 0.993);
  EXPECT_DOUBLE_EQ(Coefficients(point, {10.0, 20.0}, 0.5).dPhiZ, 0.5 * 0.951);
}

TEST(AxialCoefficients, OfAnUnsymmetricSectionTakeTheEccentricityOfEachSlenderness) {
  // λ̄ = 1 and 2: 0.925 and 1 - 0.6·4/(5·3²) = 1 - 2.4/45
  const auto phi = Coefficients(EccentricTee(), {kLambdaOne, 2.0 * kLambdaOne});
  EXPECT_NEAR(phi.dPhiY, 0.925 * 0.891, kTight);
  EXPECT_NEAR(phi.dPhiZ, (1.0 - 2.4 / 45.0) * 0.546, kTight);
}

TEST(AxialCoefficients, OfAnUnsymmetricSectionDoNotKnowWelds) {
  POINT point = EccentricTee();
  point.Section().bWelded = 1;
  EXPECT_NEAR(Coefficients(point, {kLambdaOne, kLambdaOne}).dPhiY, 0.925 * 0.891, kTight);
}

TEST(AxialCoefficients, OfASlenderChannelTakeTheAreaOutsideAndUnderTheRoot) {
  POINT point = EccentricTee();
  point.Section().nShape = ALU_SHAPE_C;
  // X = 0.5 and λ = √2·10·π: λ̄ = 1, index 44.4, φ(44) = 0.78
  const double lambda = std::numbers::sqrt2 * kLambdaOne;
  EXPECT_NEAR(Coefficients(point, {lambda, lambda}, 1.5).dPhiY, 0.5 * 0.925 * 0.78, kTight);
}

TEST(AxialCoefficients, TakeTheThickProofStrengthAboveASecondDimensionOfTen) {
  ALU_DGN_DATA data = SymmetricH();
  data.code.sect.dSize[1] = 10.5;
  data.code.matl.dF02Thick = 60.0;  // index 20·√(60/240) = 10
  EXPECT_EQ(Coefficients({data, AluDgnSectForce{}}, {20.0, 20.0}).dPhiY, 0.993);
}

TEST(AxialCoefficients, GoverningOneIsTheSmaller) {
  EXPECT_EQ((AXIAL_COEFFICIENTS{0.6, 0.4}.Governing()), 0.4);
  EXPECT_EQ((AXIAL_COEFFICIENTS{0.4, 0.6}.Governing()), 0.4);
  EXPECT_EQ((AXIAL_COEFFICIENTS{0.5, 0.5}.Governing()), 0.5);
}

TEST(AxialCoefficients, GoverningOneIsThatOfZUnlessTheOtherIsSmaller) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ((AXIAL_COEFFICIENTS{nan, 0.5}.Governing()), 0.5);
  EXPECT_TRUE(std::isnan(AXIAL_COEFFICIENTS{0.5, nan}.Governing()));
}

// π²·70,000·1200/(1.2·100²) = 7000·π².
TEST(EulerTypeForce, IsTheEulerForceOverAFactor) {
  const double expected = 7000.0 * std::numbers::pi * std::numbers::pi;
  EXPECT_NEAR(EulerTypeForce(70000.0, 1200.0, 100.0), expected, 1e-12 * expected);
}

// The exact π² lies 3.8e-13 above.
TEST(EulerTypeForce, TakesThePiSquaredOfTheRules) {
  EXPECT_NEAR(EulerTypeForce(1.2, 1.0, 1.0), 9.869604401088976, 4e-15);
}

TEST(EulerTypeForce, WithoutSlendernessIsInfinite) {
  EXPECT_EQ(EulerTypeForce(70000.0, 1200.0, 0.0), kInf);
}

TEST(EulerTypeForce, WithoutAModulusIsZero) {
  EXPECT_EQ(EulerTypeForce(0.0, 1200.0, 100.0), 0.0);
}

struct SHAPE_CASE {
  const char* name;
  std::int32_t nShape;
  double eta;
};

void PrintTo(const SHAPE_CASE& row, std::ostream* os) {
  *os << row.name;
}

class InteractionOfShape : public testing::TestWithParam<SHAPE_CASE> {
 protected:
  static void ExpectFactors(bool weak, double eta1, double eta2) {
    const auto factors = InteractionFactors(GetParam().nShape, weak);
    EXPECT_EQ(factors.dEta, GetParam().eta);
    EXPECT_EQ(factors.dEta1, eta1);
    EXPECT_EQ(factors.dEta2, eta2);
  }
};

TEST_P(InteractionOfShape, WeakHardening) {
  ExpectFactors(true, 0.75, 1.15);
}

TEST_P(InteractionOfShape, StrongHardening) {
  ExpectFactors(false, 0.9, 1.25);
}

// η, η1 and η2 of GB 50429-2007, chapter 8.
INSTANTIATE_TEST_SUITE_P(
    AllShapes, InteractionOfShape,
    testing::Values(SHAPE_CASE{"C", ALU_SHAPE_C, 1.0}, SHAPE_CASE{"H", ALU_SHAPE_H, 1.0},
                    SHAPE_CASE{"T", ALU_SHAPE_T, 1.0}, SHAPE_CASE{"B", ALU_SHAPE_B, 0.7},
                    SHAPE_CASE{"P", ALU_SHAPE_P, 0.7}, SHAPE_CASE{"DoubleC", ALU_SHAPE_2C, 1.0},
                    SHAPE_CASE{"SR", ALU_SHAPE_SR, 1.0}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
