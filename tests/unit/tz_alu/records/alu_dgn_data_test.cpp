#include "tz_alu/records/alu_dgn_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

using testing::Each;
using testing::ElementsAre;

namespace {

TEST(AluSectData, FreshSectionCountsAsWelded) {
  EXPECT_EQ(ALU_SECT_DATA().bWelded, 1);
}

TEST(AluSectData, FreshSectionIsZeroElsewhere) {
  const ALU_SECT_DATA sect;
  EXPECT_EQ(sect.nShape, 0);
  EXPECT_THAT(sect.dSize, Each(0.0));
  const double properties[] = {sect.dArea, sect.dIw,  sect.dIxx, sect.dIyy,
                               sect.dIzz,  sect.dQyb, sect.dQzb, sect.dShearCtr};
  EXPECT_THAT(properties, Each(0.0));
  EXPECT_THAT(sect.dPtY, Each(0.0));
  EXPECT_THAT(sect.dPtZ, Each(0.0));
}

TEST(AluSectData, InitializeMakesAnUnweldedSectionWeldedAgain) {
  ALU_SECT_DATA sect;
  sect.bWelded = 0;
  sect.Initialize();
  EXPECT_EQ(sect.bWelded, 1);
}

TEST(AluMatlData, FreshMaterialHasNoTextsAndNoNumbers) {
  const ALU_MATL_DATA matl;
  EXPECT_TRUE(matl.strStandard.IsEmpty());
  EXPECT_TRUE(matl.strGrade.IsEmpty());
  EXPECT_EQ(matl.nElast, 0);
  const double values[] = {matl.dPoisson, matl.dFu, matl.dF02Thin, matl.dF02Thick};
  EXPECT_THAT(values, Each(0.0));
}

TEST(AluMatlData, InitializeEmptiesTheTexts) {
  ALU_MATL_DATA matl;
  matl.strGrade = L"6061-T6";
  matl.Initialize();
  EXPECT_TRUE(matl.strGrade.IsEmpty());
}

// The defaults are the design settings of GB 50429-2007 that hold until the model says otherwise.
TEST(AluParaData, StartsWithTheUsualFactors) {
  const ALU_PARA_DATA para;
  EXPECT_EQ(para.dGamma0, 1.0);
  EXPECT_EQ(para.bSeismicGammaRE, 0);
  EXPECT_EQ(para.dGammaREStrength, 0.75);
  EXPECT_EQ(para.dGammaREStability, 0.8);
  EXPECT_EQ(para.dCoef085, 0.85);
}

TEST(AluParaData, StartsWithoutRibsAndWithAHeatAffectedZoneOfThirty) {
  const ALU_PARA_DATA para;
  EXPECT_EQ(para.bRib, 0);
  EXPECT_EQ(para.dRibRatio, 1.2);
  EXPECT_EQ(para.dHazWidth, 30.0);
  EXPECT_EQ(para.dWeldCoef, 0.5);
}

TEST(AluParaData, StartsWithoutUserStabilityCoefficients) {
  const ALU_PARA_DATA para;
  EXPECT_EQ(para.bUserPhi, 0);
  EXPECT_THAT(para.dUserPhi, ElementsAre(1.0, 1.0));
}

TEST(AluParaData, StartsWithoutLimitsAndLengthFactors) {
  const ALU_PARA_DATA para;
  const double values[] = {para.dLimitTension, para.dLimitCompr, para.dKy, para.dKz};
  EXPECT_THAT(values, Each(0.0));
  EXPECT_EQ(para.bUserLimit, 0);
  EXPECT_EQ(para.bMidSupport, 0);
}

TEST(AluParaData, StartsWithComputedMomentFactorsAndNoSway) {
  const ALU_PARA_DATA para;
  EXPECT_EQ(para.bUserBetaM, 0);
  EXPECT_THAT(para.nBetaMOpt, ElementsAre(1, 1));
  EXPECT_THAT(para.dBetaM, ElementsAre(1.0, 1.0));
  EXPECT_THAT(para.nBetaMOpt2, ElementsAre(0, 0));
  EXPECT_THAT(para.bSway, ElementsAre(0, 0));
}

TEST(AluDgnDataCode, InitializeResetsAllThreeRecords) {
  ALU_DGN_DATA_CODE code;
  code.sect.dArea = 1.0;
  code.matl.dFu = 2.0;
  code.para.dGamma0 = 3.0;
  code.Initialize();
  EXPECT_EQ(code.sect.dArea, 0.0);
  EXPECT_EQ(code.matl.dFu, 0.0);
  EXPECT_EQ(code.para.dGamma0, 1.0);
}

TEST(AluDgnData, StartsWithEveryCheckOn) {
  EXPECT_THAT(ALU_DGN_DATA().nCheckFlag, Each(1));
}

TEST(AluDgnData, StartsWritingResultsAndNoReport) {
  const ALU_DGN_DATA data;
  EXPECT_EQ(data.bWriteResult, 1);
  EXPECT_EQ(data.bReport, 0);
}

TEST(AluDgnData, StartsWithoutElementLengthAndType) {
  const ALU_DGN_DATA data;
  EXPECT_EQ(data.nElem, 0U);
  EXPECT_EQ(data.dMembLength, 0.0);
  EXPECT_EQ(data.nMembType, 0);
  for (const auto& end : data.nEndCond) EXPECT_THAT(end, Each(0));
}

TEST(AluDgnData, SwitchesAreSetAllAtOnce) {
  ALU_DGN_DATA data;
  data.SetCheckFlagAll(0);
  EXPECT_THAT(data.nCheckFlag, Each(0));
}

TEST(AluDgnData, InitialSwitchesEveryCheckOnAgain) {
  ALU_DGN_DATA data;
  data.SetCheckFlagAll(0);
  data.Initial();
  EXPECT_THAT(data.nCheckFlag, Each(1));
}

TEST(AluDgnData, InitialResetsTheRecordsInside) {
  ALU_DGN_DATA data;
  data.code.sect.bWelded = 0;
  data.code.para.dKy = 2.0;
  data.Initial();
  EXPECT_EQ(data.code.sect.bWelded, 1);
  EXPECT_EQ(data.code.para.dKy, 0.0);
}

TEST(AluDgnData, IsReportTellsTheReportFlag) {
  ALU_DGN_DATA data;
  EXPECT_EQ(data.IsReport(), 0);
  data.bReport = 1;
  EXPECT_NE(data.IsReport(), 0);
}

TEST(AluDgnData, HasAVirtualDestructor) {
  EXPECT_TRUE(std::has_virtual_destructor_v<ALU_DGN_DATA>);
}

TEST(AluDgnData, SelfAssignmentKeepsTheTexts) {
  ALU_DGN_DATA data;
  data.code.matl.strGrade = L"6061-T6";
  const ALU_DGN_DATA& same = data;
  data = same;
  EXPECT_TRUE(data.code.matl.strGrade == L"6061-T6");
}

TEST(AluDgnData, CopyKeepsItsGradeWhenTheOriginalChanges) {
  ALU_DGN_DATA data;
  data.code.matl.strGrade = L"6061-T6";
  const ALU_DGN_DATA copy = data;
  data.code.matl.strGrade = L"3003-H24";
  EXPECT_TRUE(copy.code.matl.strGrade == L"6061-T6");
}

}  // namespace
