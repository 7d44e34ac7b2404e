#include "tz_alu/engine/design_strength.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/unit/tz_alu/engine/engine_inputs.h"
#include "tests/unit/tz_alu/engine/fake_host.h"

namespace {

using namespace alu_engine;
using testing::IsEmpty;
using testing::SizeIs;

ALU_DGN_DATA_CODE Material(const CString& standard, const CString& grade, double tw = 5.0) {
  ALU_DGN_DATA_CODE code;
  code.sect.nShape = ALU_SHAPE_H;
  code.sect.dSize[1] = tw;
  code.matl.strStandard = standard;
  code.matl.strGrade = grade;
  code.matl.dF02Thin = 240.0;
  code.matl.dF02Thick = 120.0;
  return code;
}

DESIGN_STRENGTH StrengthOf(const ALU_DGN_DATA_CODE& code) {
  return DesignStrength(code, ClassifyMaterial(code.matl));
}

// f0.2 = 240: f = 240/1.2 = 200, fv = 200/√3 = 115.470053837925...
void ExpectProofStrengths(const DESIGN_STRENGTH& strength) {
  EXPECT_DOUBLE_EQ(strength.dF, 200.0);
  EXPECT_DOUBLE_EQ(strength.dFv, 115.47005383792515);
}

struct GRADE_CASE {
  const char* name;
  const wchar_t* grade;
  DESIGN_STRENGTH thin;
  DESIGN_STRENGTH thick;
  double hazFactor;
  bool weak;
};

void PrintTo(const GRADE_CASE& row, std::ostream* os) {
  *os << row.name;
}

class StrengthOfGrade : public testing::TestWithParam<GRADE_CASE> {
 protected:
  static void ExpectStrength(double tw, const DESIGN_STRENGTH& expected) {
    const auto strength = StrengthOf(Material(L"GB50429-07(A)", GetParam().grade, tw));
    EXPECT_EQ(strength.dF, expected.dF);
    EXPECT_EQ(strength.dFv, expected.dFv);
  }
};

TEST_P(StrengthOfGrade, ThinRowHoldsUpToTen) {
  ExpectStrength(5.0, GetParam().thin);
  ExpectStrength(10.0, GetParam().thin);
}

TEST_P(StrengthOfGrade, ThickRowHoldsAboveTen) {
  ExpectStrength(10.5, GetParam().thick);
}

TEST_P(StrengthOfGrade, HeatLeavesItsShareOfTheThickness) {
  const auto code = Material(L"GB50429-07(A)", GetParam().grade);
  EXPECT_EQ(ClassifyMaterial(code.matl).HazFactor(), GetParam().hazFactor);
}

TEST_P(StrengthOfGrade, HeatTakesNothingUnderAnotherStandard) {
  const auto code = Material(L"EN 1999", GetParam().grade);
  EXPECT_EQ(ClassifyMaterial(code.matl).HazFactor(), 1.0);
}

TEST_P(StrengthOfGrade, HardeningClassFollowsTheGrade) {
  const auto code = Material(L"GB50429-07(A)", GetParam().grade);
  EXPECT_EQ(ClassifyMaterial(code.matl).IsWeakHardening(), GetParam().weak);
}

TEST_P(StrengthOfGrade, HardeningClassIsTheSameUnderAnotherStandard) {
  const auto code = Material(L"EN 1999", GetParam().grade);
  EXPECT_EQ(ClassifyMaterial(code.matl).IsWeakHardening(), GetParam().weak);
}

TEST_P(StrengthOfGrade, AnotherStandardNeverConsultsTheTable) {
  ExpectProofStrengths(StrengthOf(Material(L"EN 1999", GetParam().grade)));
}

// f, fv for t ≤ 10, f, fv for t > 10, ρhaz and hardening class of GB 50429-2007.
INSTANTIATE_TEST_SUITE_P(
    AllGrades, StrengthOfGrade,
    testing::Values(GRADE_CASE{"A6061T4", L"6061-T4", {90, 55}, {90, 55}, 1.0, false},
                    GRADE_CASE{"A6061T6", L"6061-T6", {200, 115}, {200, 115}, 0.5, true},
                    GRADE_CASE{"A6063T5", L"6063-T5", {90, 55}, {90, 55}, 0.5, false},
                    GRADE_CASE{"A6063T6", L"6063-T6", {150, 85}, {150, 85}, 0.5, true},
                    GRADE_CASE{"A6063AT5", L"6063A-T5", {135, 75}, {125, 70}, 0.5, false},
                    GRADE_CASE{"A6063AT6", L"6063A-T6", {160, 90}, {150, 85}, 0.5, true},
                    GRADE_CASE{"A5083OF", L"5083-O/F", {90, 55}, {90, 55}, 1.0, false},
                    GRADE_CASE{"A5083H112", L"5083-H112", {90, 55}, {90, 55}, 0.8, false},
                    GRADE_CASE{"A3003H24", L"3003-H24", {100, 60}, {100, 60}, 0.2, false},
                    GRADE_CASE{"A3004H34", L"3004-H34", {145, 85}, {145, 85}, 0.2, false},
                    GRADE_CASE{"A3004H36", L"3004-H36", {160, 95}, {160, 95}, 0.2, false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(DesignStrength, DiameterOfASolidRoundSelectsTheRow) {
  auto code = Material(L"GB50429-07(A)", L"6063A-T5");
  code.sect.nShape = ALU_SHAPE_SR;
  code.sect.dSize[0] = 12.0;
  EXPECT_EQ(StrengthOf(code).dF, 125.0);
  EXPECT_EQ(StrengthOf(code).dFv, 70.0);
}

TEST(DesignStrength, ProofStrengthOfThinPartsIsUsedForThickOnesToo) {
  ExpectProofStrengths(StrengthOf(Material(L"EN 1999", L"6061-T6", 25.0)));
}

TEST(DesignStrength, StandardIsComparedExactly) {
  ExpectProofStrengths(StrengthOf(Material(L"gb50429-07(A)", L"6061-T4")));
  ExpectProofStrengths(StrengthOf(Material(L"GB50429-07(A) ", L"6061-T4")));
}

TEST(DesignStrength, UnknownGradeRaisesTheReleaseAssertion) {
  FakeHost host;
  StrengthOf(Material(L"GB50429-07(A)", L"6061-t6"));
  ASSERT_THAT(host.assertions, SizeIs(1));
  EXPECT_EQ(host.assertions[0].first, L"src\\tz_alu\\alucode_gb50429_07");
  EXPECT_GT(host.assertions[0].second, 0);
}

TEST(DesignStrength, UnknownGradeFallsBackToTheProofStrength) {
  FakeHost host;
  ExpectProofStrengths(StrengthOf(Material(L"GB50429-07(A)", L"6061-t6")));
}

TEST(DesignStrength, UnknownGradeStaysSilentWhenAssertionsAreOff) {
  FakeHost host;
  host.assertionsOn = 0;
  ExpectProofStrengths(StrengthOf(Material(L"GB50429-07(A)", L"6061-t6")));
  EXPECT_THAT(host.assertions, IsEmpty());
}

TEST(DesignStrength, UnknownGradeOfAnotherStandardRaisesNothing) {
  FakeHost host;
  StrengthOf(Material(L"EN 1999", L"my alloy"));
  EXPECT_THAT(host.assertions, IsEmpty());
}

TEST(ClassifyMaterial, UnknownGradeIsStronglyHardeningAndLosesNothing) {
  const MATERIAL_CLASS material = ClassifyMaterial(Material(L"GB50429-07(A)", L"6061-t6").matl);
  EXPECT_FALSE(material.IsWeakHardening());
  EXPECT_EQ(material.HazFactor(), 1.0);
}

TEST(ClassifyMaterial, GradeIsNotMatchedByItsBeginning) {
  EXPECT_EQ(ClassifyMaterial(Material(L"GB50429-07(A)", L"6061-T64").matl).pGrade, nullptr);
  EXPECT_EQ(ClassifyMaterial(Material(L"GB50429-07(A)", L"6061-T").matl).pGrade, nullptr);
}

class ThicknessOfShape : public testing::TestWithParam<std::int32_t> {};

TEST_P(ThicknessOfShape, IsTheSecondDimension) {
  ALU_SECT_DATA sect;
  sect.nShape = GetParam();
  sect.dSize[0] = 100.0;
  sect.dSize[1] = 7.0;
  EXPECT_EQ(GoverningThickness(sect), 7.0);
}

INSTANTIATE_TEST_SUITE_P(PlatedShapes, ThicknessOfShape,
                         testing::Values(ALU_SHAPE_C, ALU_SHAPE_H, ALU_SHAPE_T, ALU_SHAPE_B,
                                         ALU_SHAPE_P, ALU_SHAPE_2C));

TEST(GoverningThickness, OfASolidRoundIsItsDiameter) {
  ALU_SECT_DATA sect;
  sect.nShape = ALU_SHAPE_SR;
  sect.dSize[0] = 30.0;
  EXPECT_EQ(GoverningThickness(sect), 30.0);
}

TEST(GoverningThickness, OfAnUnknownShapeIsZeroWithAnAssertion) {
  FakeHost host;
  for (const std::int32_t shape : {-1, 7}) {
    ALU_SECT_DATA sect;
    sect.nShape = shape;
    sect.dSize[0] = sect.dSize[1] = 30.0;
    EXPECT_EQ(GoverningThickness(sect), 0.0);
  }
  EXPECT_THAT(host.assertions, SizeIs(2));
}

class ProofStrengthOfShape : public testing::TestWithParam<std::int32_t> {};

// 240 for thin and 120 for thick parts; a diameter of 30 plays no part.
TEST_P(ProofStrengthOfShape, LooksAtTheSecondDimension) {
  auto code = Material(L"GB50429-07(A)", L"6061-T6", 10.0);
  code.sect.nShape = GetParam();
  code.sect.dSize[0] = 30.0;
  EXPECT_EQ(ProofStrength(code), 240.0);
  code.sect.dSize[1] = 10.01;
  EXPECT_EQ(ProofStrength(code), 120.0);
}

INSTANTIATE_TEST_SUITE_P(AllShapes, ProofStrengthOfShape,
                         testing::Range(std::int32_t{ALU_SHAPE_C}, ALU_SHAPE_SR + 1));

TEST(DesignStrength, AssertionOfACheckReachesTheBoundHost) {
  FakeHost host;
  ALU_DGN_DATA data = engine_inputs::SymmetricH();
  data.code.matl.strGrade = L"6061-t6";
  data.code.matl.dF02Thin = 240.0;
  const auto outcome = engine_inputs::Check(data, engine_inputs::Forces(1e5, 0, 0));
  EXPECT_THAT(host.assertions, Not(IsEmpty()));
  EXPECT_EQ(outcome.ret, 1);
  EXPECT_DOUBLE_EQ(outcome.Item(RALU_STRENGTH).dDemand, 100.0);  // 1e5 / 1000
  EXPECT_DOUBLE_EQ(outcome.Item(RALU_STRENGTH).dCapacity, 200.0);
}

TEST(DesignStrength, IsNotLookedUpWhenNoCheckNeedsIt) {
  FakeHost host;
  ALU_DGN_DATA data = engine_inputs::SymmetricH();
  data.code.matl.strGrade = L"6061-t6";
  engine_inputs::Check(data, engine_inputs::Forces(0, 0, 0));
  EXPECT_THAT(host.assertions, IsEmpty());
}

}  // namespace
