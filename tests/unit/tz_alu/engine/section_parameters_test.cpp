#include "tz_alu/engine/section_parameters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/unit/tz_alu/engine/engine_inputs.h"
#include "tz_alu/engine/section_geometry.h"

namespace {

using namespace alu_engine;
using engine_inputs::SymmetricH;
using engine_inputs::Tee;

ALU_CAL_SECTPARA ParametersOf(const ALU_DGN_DATA_CODE& code) {
  ALU_DGN_DATA data;
  data.code = code;
  return SectionParameters({data, AluDgnSectForce{}, ClassifyMaterial(code.matl)});
}

void ExpectParameters(const ALU_CAL_SECTPARA& para, double A, double W1, double W2, double Wz) {
  EXPECT_DOUBLE_EQ(para.dA, A);
  EXPECT_DOUBLE_EQ(para.dW1, W1);
  EXPECT_DOUBLE_EQ(para.dW2, W2);
  EXPECT_DOUBLE_EQ(para.dWz, Wz);
}

ALU_SECT_DATA HOf(double B1, double tf1, double B2, double tf2) {
  ALU_SECT_DATA sect = SymmetricH().code.sect;
  sect.dSize[2] = B1;
  sect.dSize[3] = tf1;
  sect.dSize[4] = B2;
  sect.dSize[5] = tf2;
  return sect;
}

/// A section of properties A = 1500, Iyy = 6e6, Izz = 8e5; z from 60 to -40, y from -20 to 32.
ALU_DGN_DATA_CODE Unwelded(std::int32_t nShape) {
  ALU_DGN_DATA_CODE code = SymmetricH().code;
  code.sect.nShape = nShape;
  code.sect.dArea = 1500.0;
  code.sect.dIyy = 6.0e6;
  code.sect.dIzz = 8.0e5;
  code.sect.dPtY[0] = code.sect.dPtY[3] = -20.0;
  code.sect.dPtY[1] = code.sect.dPtY[2] = 32.0;
  code.sect.dPtZ[0] = code.sect.dPtZ[1] = 60.0;
  code.sect.dPtZ[2] = code.sect.dPtZ[3] = -40.0;
  return code;
}

class UnsymmetricShape : public testing::TestWithParam<std::int32_t> {};

TEST_P(UnsymmetricShape, HasGrossModuliForTopAndBottom) {
  // 6e6/60, 6e6/40, 8e5/32
  ExpectParameters(ParametersOf(Unwelded(GetParam())), 1500.0, 100000.0, 150000.0, 25000.0);
}

INSTANTIATE_TEST_SUITE_P(Shapes, UnsymmetricShape, testing::Values(ALU_SHAPE_C, ALU_SHAPE_T));

class SymmetricShape : public testing::TestWithParam<std::int32_t> {};

TEST_P(SymmetricShape, HasOneGrossModulusFromTheFarthestFibre) {
  ExpectParameters(ParametersOf(Unwelded(GetParam())), 1500.0, 100000.0, 100000.0, 25000.0);
}

INSTANTIATE_TEST_SUITE_P(Shapes, SymmetricShape,
                         testing::Values(ALU_SHAPE_H, ALU_SHAPE_B, ALU_SHAPE_P, ALU_SHAPE_2C,
                                         ALU_SHAPE_SR));

TEST(GrossSection, SymmetricModulusLooksAtAllFourPoints) {
  ALU_DGN_DATA_CODE code = Unwelded(ALU_SHAPE_H);
  code.sect.dPtZ[3] = -75.0;  // farther than points 1 and 3
  ExpectParameters(ParametersOf(code), 1500.0, 80000.0, 80000.0, 25000.0);
}

TEST(GrossSection, HWithUnequalFlangesHasModuliForTopAndBottom) {
  ALU_DGN_DATA_CODE code = Unwelded(ALU_SHAPE_H);
  code.sect.dSize[4] = 80.0;
  ExpectParameters(ParametersOf(code), 1500.0, 100000.0, 150000.0, 25000.0);
}

TEST(GrossSection, TakesFibresByMagnitude) {
  ALU_DGN_DATA_CODE code = Unwelded(ALU_SHAPE_T);
  code.sect.dPtZ[0] = -60.0;
  code.sect.dPtZ[2] = 40.0;
  ExpectParameters(ParametersOf(code), 1500.0, 100000.0, 150000.0, 25000.0);
}

TEST(IsUnsymmetric, HWithEqualFlangesIsNot) {
  EXPECT_FALSE(IsUnsymmetric(HOf(100, 10, 100, 10)));
}

TEST(IsUnsymmetric, HWithFlangesOfDifferentWidthIs) {
  EXPECT_TRUE(IsUnsymmetric(HOf(100, 10, 80, 10)));
}

TEST(IsUnsymmetric, HWithFlangesOfDifferentThicknessIs) {
  EXPECT_TRUE(IsUnsymmetric(HOf(100, 10, 100, 8)));
}

TEST(IsUnsymmetric, DifferenceBelowTheToleranceDoesNotCount) {
  EXPECT_FALSE(IsUnsymmetric(HOf(1.0, 1.0, 1.0 + 5e-11, 1.0 - 5e-11)));
  EXPECT_TRUE(IsUnsymmetric(HOf(1.0, 1.0, 1.0 + 2e-10, 1.0)));
}

TEST(IsUnsymmetric, BoxWithUnequalFlangesIsNot) {
  ALU_SECT_DATA sect = HOf(100, 10, 80, 8);
  sect.nShape = ALU_SHAPE_B;
  EXPECT_FALSE(IsUnsymmetric(sect));
}

TEST(SectionParameters, WeldedSectionOfAReducedAlloyLosesArea) {
  ALU_DGN_DATA_CODE code = SymmetricH().code;
  code.sect.bWelded = 1;
  code.para.dHazWidth = 20.0;
  // 50·30 + 50·60·0.5 + 50·30 + 2·20·10·0.5 + 20·10 = 1500+1500+1500+200+200
  EXPECT_DOUBLE_EQ(ParametersOf(code).dA, 4900.0);
}

TEST(SectionParameters, ReductionFollowsTheGrade) {
  ALU_DGN_DATA_CODE code = SymmetricH().code;
  code.sect.bWelded = 1;
  code.para.dHazWidth = 20.0;
  code.matl.strGrade = L"5083-H112";
  // ρ = 0.8: 1500 + 50·60·0.8 + 1500 + 2·20·10·0.8 + 200 = 1500+2400+1500+320+200
  EXPECT_DOUBLE_EQ(ParametersOf(code).dA, 5920.0);
}

TEST(SectionParameters, OnlyTheFlagValueOneMeansWelded) {
  ALU_DGN_DATA_CODE code = SymmetricH().code;
  code.sect.bWelded = 2;
  EXPECT_EQ(ParametersOf(code).dA, 2000.0);
}

TEST(SectionParameters, WeldedPipeAndSolidRoundStayGross) {
  for (const std::int32_t shape : {ALU_SHAPE_P, ALU_SHAPE_SR}) {
    ALU_DGN_DATA_CODE code = Unwelded(shape);
    code.sect.bWelded = 1;
    ExpectParameters(ParametersOf(code), 1500.0, 100000.0, 100000.0, 25000.0);
  }
}

TEST(SectionParameters, SlenderPipeSolidRoundTeeAndDoubleChannelStayGross) {
  for (const std::int32_t shape : {ALU_SHAPE_P, ALU_SHAPE_SR, ALU_SHAPE_T, ALU_SHAPE_2C}) {
    ALU_DGN_DATA_CODE code = Unwelded(shape);
    code.sect.dSize[0] = 2000.0;
    code.sect.dSize[1] = 0.5;
    EXPECT_EQ(ParametersOf(code).dA, 1500.0) << shape;
  }
}

// Flange (B - tw)/tf against 6, web 60/10 against 21.5.
TEST(SectionParameters, CarryThePlateRatios) {
  ALU_DGN_DATA_CODE code = SymmetricH().code;
  code.sect.dSize[4] = 130.0;
  const ALU_CAL_SECTPARA para = ParametersOf(code);
  EXPECT_DOUBLE_EQ(para.dR1, 3.0 / 6.0);
  EXPECT_DOUBLE_EQ(para.dR2, 4.0 / 6.0);
  EXPECT_DOUBLE_EQ(para.dRw, 6.0 / 21.5);
}

TEST(SectionParameters, ThatCannotBeFormedStillCarryThePlateRatios) {
  ALU_DGN_DATA_CODE code = SymmetricH().code;
  code.sect.dPtZ[0] = 0.0;
  EXPECT_DOUBLE_EQ(ParametersOf(code).dR1, 0.5);
}

void ExpectUnusable(const ALU_DGN_DATA_CODE& code) {
  EXPECT_FALSE(AreUsable(ParametersOf(code)));
}

TEST(SectionParameters, FailWithoutADistanceToTheTopFibre) {
  ALU_DGN_DATA_CODE code = Tee().code;
  code.sect.dPtZ[0] = 9e-11;
  ExpectUnusable(code);
  ExpectParameters(ParametersOf(code), 0.0, 0.0, 0.0, 0.0);
}

TEST(SectionParameters, FailWithoutADistanceToTheBottomFibre) {
  ALU_DGN_DATA_CODE code = Tee().code;
  code.sect.dPtZ[2] = -9e-11;
  ExpectUnusable(code);
}

TEST(SectionParameters, FibreDistanceOfExactlyTheToleranceIsEnough) {
  ALU_DGN_DATA_CODE code = Tee().code;
  code.sect.dPtZ[0] = 1e-10;
  EXPECT_TRUE(AreUsable(ParametersOf(code)));
}

TEST(SectionParameters, FailForAnUnknownShape) {
  for (const std::int32_t shape : {-1, 7}) {
    ALU_DGN_DATA_CODE code = Unwelded(ALU_SHAPE_H);
    code.sect.nShape = shape;
    ExpectUnusable(code);
  }
}

TEST(SectionParameters, FailForAChannelWithoutDimensions) {
  ALU_DGN_DATA_CODE code = Unwelded(ALU_SHAPE_C);
  for (double& size : code.sect.dSize) size = 0.0;
  ExpectUnusable(code);
}

TEST(SectionParameters, FailForATopFlangeOfNeitherWidthNorThickness) {
  for (const auto shape : {ALU_SHAPE_C, ALU_SHAPE_H}) {
    ALU_DGN_DATA_CODE code = Unwelded(shape);
    code.sect.dSize[2] = code.sect.dSize[1];  // clear width B1 - tw of 0
    code.sect.dSize[3] = 0.0;
    ExpectUnusable(code);
  }
}

// The governing ratio is the top flange's when the other one is not a number.
TEST(SectionParameters, ToleratesABottomFlangeOfNeitherWidthNorThickness) {
  ALU_DGN_DATA_CODE code = Unwelded(ALU_SHAPE_C);
  code.sect.dSize[4] = code.sect.dSize[1];
  code.sect.dSize[5] = 0.0;
  EXPECT_TRUE(AreUsable(ParametersOf(code)));
  EXPECT_TRUE(std::isnan(ParametersOf(code).dR2));
}

TEST(SectionParameters, FailForAPipeWithoutDimensions) {
  ALU_DGN_DATA_CODE code = Unwelded(ALU_SHAPE_P);
  code.sect.dSize[0] = code.sect.dSize[1] = 0.0;
  ExpectUnusable(code);
}

TEST(SectionParameters, TeeDoubleChannelAndSolidRoundNeedNoDimensions) {
  for (const std::int32_t shape : {ALU_SHAPE_T, ALU_SHAPE_2C, ALU_SHAPE_SR}) {
    ALU_DGN_DATA_CODE code = Unwelded(shape);
    for (double& size : code.sect.dSize) size = 0.0;
    EXPECT_TRUE(AreUsable(ParametersOf(code))) << shape;
  }
}

TEST(AreUsable, EachOfAreaAndModuliMustDifferFromZero) {
  ALU_CAL_SECTPARA para;
  para.dA = para.dW1 = para.dW2 = para.dWz = 1.0;
  EXPECT_TRUE(AreUsable(para));
  for (double ALU_CAL_SECTPARA::* value : {&ALU_CAL_SECTPARA::dA, &ALU_CAL_SECTPARA::dW1,
                                           &ALU_CAL_SECTPARA::dW2, &ALU_CAL_SECTPARA::dWz}) {
    ALU_CAL_SECTPARA lacking = para;
    lacking.*value = 5e-11;
    EXPECT_FALSE(AreUsable(lacking));
  }
}

}  // namespace
