// Sections as the checks use them, from the host's design sections.

#include <gmock/gmock.h>

#include <array>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

// A section of the host whose dimensions d1..d8 are 1..8, so that each is recognised.
T_SECT_DESIGN_D Numbered(const wchar_t* shape) {
  T_SECT_DESIGN_D sect;
  sect.strShape = shape;
  sect.aSize = {1, 2, 3, 4, 5, 6, 7, 8};
  return sect;
}

struct SHAPE_CASE {
  const wchar_t* pszName;
  int nShape;
  std::array<double, 8> aSize;  // D1..D8
};

class SectionShape : public ManagerTest, public testing::WithParamInterface<SHAPE_CASE> {
 protected:
  SectionShape() : ManagerTest(test_support::one_element_model()) {}
};

TEST_P(SectionShape, ItsDimensionsAreReorderedForTheChecks) {
  ALU_SECT_DATA out;
  EXPECT_EQ(manager_.GetSect(Numbered(GetParam().pszName), out), 1);
  EXPECT_EQ(out.nShape, GetParam().nShape);
  EXPECT_THAT(out.dSize, ElementsAreArray(GetParam().aSize));
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

// The host gives the width (d2) before the web thickness (d3).
INSTANTIATE_TEST_SUITE_P(Shapes, SectionShape,
                         testing::Values(SHAPE_CASE{L"C", 0, {1, 3, 2, 4, 5, 6, 7, 8}},
                                         SHAPE_CASE{L"H", 1, {1, 3, 2, 4, 5, 6, 7, 8}},
                                         SHAPE_CASE{L"T", 2, {1, 3, 2, 4, 0, 0, 0, 0}},
                                         SHAPE_CASE{L"B", 3, {1, 3, 2, 4, 5, 6, 0, 0}},
                                         SHAPE_CASE{L"P", 4, {1, 2, 0, 0, 0, 0, 0, 0}},
                                         SHAPE_CASE{L"2C", 5, {1, 3, 2, 4, 5, 0, 0, 0}},
                                         SHAPE_CASE{L"SR", 6, {1, 1, 0, 0, 0, 0, 0, 0}}));

class SectionBuffer : public ManagerTest {
 protected:
  SectionBuffer() : ManagerTest(test_support::three_element_model()) {}

  ALU_SECT_DATA Converted(const T_SECT_DESIGN_D& sect) {
    ALU_SECT_DATA out;
    manager_.GetSect(sect, out);
    return out;
  }
  /// The section of an element as its check sees it.
  ALU_SECT_DATA SectionOf(UINT elem) {
    ALU_DGN_DATA data;
    EXPECT_EQ(manager_.GetDgnData(elem, data), 1);
    return data.code.sect;
  }
};

TEST_F(SectionBuffer, AMissingBottomFlangeIsLikeTheTopFlange) {
  for (const wchar_t* shape : {L"C", L"H"}) {
    T_SECT_DESIGN_D sect = Numbered(shape);
    sect.aSize[4] = sect.aSize[5] = 0.0;
    const ALU_SECT_DATA out = Converted(sect);
    EXPECT_EQ(out.dSize[4], 2.0);  // B2 = B1
    EXPECT_EQ(out.dSize[5], 4.0);  // tf2 = tf1
  }
}

TEST_F(SectionBuffer, WidthAndThicknessOfTheBottomFlangeAreCompletedApart) {
  T_SECT_DESIGN_D sect = Numbered(L"H");
  sect.aSize[4] = 9e-11;
  EXPECT_EQ(Converted(sect).dSize[4], 2.0);
  EXPECT_EQ(Converted(sect).dSize[5], 6.0);
}

TEST_F(SectionBuffer, ABottomFlangeOfTheSmallestCountedWidthIsKept) {
  T_SECT_DESIGN_D sect = Numbered(L"H");
  sect.aSize[4] = 1e-10;
  EXPECT_EQ(Converted(sect).dSize[4], 1e-10);
}

TEST_F(SectionBuffer, NoOtherShapeIsCompleted) {
  T_SECT_DESIGN_D sect = Numbered(L"B");
  sect.aSize[4] = sect.aSize[5] = 0.0;
  EXPECT_EQ(Converted(sect).dSize[4], 0.0);
  EXPECT_EQ(Converted(sect).dSize[5], 0.0);
}

TEST_F(SectionBuffer, PropertiesAreTakenAsTheHostGivesThem) {
  T_SECT_DESIGN_D sect = Numbered(L"H");
  sect.dArea = 11;
  sect.dIw = 12;
  sect.dIxx = 13;
  sect.dIyy = 14;
  sect.dIzz = 15;
  sect.dQyb = 16;
  sect.dQzb = 17;
  const ALU_SECT_DATA out = Converted(sect);
  EXPECT_THAT((std::array{out.dArea, out.dIw, out.dIxx, out.dIyy, out.dIzz, out.dQyb, out.dQzb}),
              ElementsAre(11, 12, 13, 14, 15, 16, 17));
}

TEST_F(SectionBuffer, StressPointsAreTakenInTheirOrder) {
  T_SECT_DESIGN_D sect = Numbered(L"H");
  sect.aPtY = {-1, 2, 3, -4};
  sect.aPtZ = {5, 6, -7, -8};
  const ALU_SECT_DATA out = Converted(sect);
  EXPECT_THAT(out.dPtY, ElementsAre(-1, 2, 3, -4));
  EXPECT_THAT(out.dPtZ, ElementsAre(5, 6, -7, -8));
}

TEST_F(SectionBuffer, TheShearCentreIsMeasuredFromTheCentroid) {
  T_SECT_DESIGN_D sect = Numbered(L"T");
  sect.dShearCtrZ = 90;
  sect.dCentroidZ = 62;
  EXPECT_EQ(Converted(sect).dShearCtr, 28.0);
}

TEST_F(SectionBuffer, OnlyBuildTypeOneIsWelded) {
  T_SECT_DESIGN_D sect = Numbered(L"H");
  for (const int type : {0, 1, 2}) {
    sect.nBuildType = type;
    EXPECT_EQ(Converted(sect).bWelded, type == 1 ? 1 : 0) << type;
  }
}

TEST_F(SectionBuffer, AnUnknownShapeIsReportedAndKeepsWhatEveryShapeHas) {
  T_SECT_DESIGN_D sect = Numbered(L"UP");
  sect.dArea = 11;
  ALU_SECT_DATA out;
  out.nShape = 5;
  EXPECT_EQ(manager_.GetSect(sect, out), 0);
  EXPECT_THAT(host_.log.assertions, ElementsAre(AssertionAt(548)));
  EXPECT_EQ(out.nShape, 0);
  EXPECT_EQ(out.dArea, 11.0);
  EXPECT_THAT(out.dSize, ElementsAre(1, 0, 0, 0, 0, 0, 0, 0));
}

TEST_F(SectionBuffer, ShapeNamesAreComparedWithTheirCase) {
  ALU_SECT_DATA out;
  EXPECT_EQ(manager_.GetSect(Numbered(L"h"), out), 0);
  EXPECT_EQ(manager_.GetSect(Numbered(L"2c"), out), 0);
}

TEST_F(SectionBuffer, ElementsOfOneSectionHaveItConvertedOnce) {
  manager_.MakeBuffSect(Keys({1, 2, 3}));
  EXPECT_THAT(host_.log.events, ElementsAre("section 1 read"));
  EXPECT_EQ(host_.log.warping_calls.size(), 1U);
}

TEST_F(SectionBuffer, EachElementGetsTheSectionOfItsNumber) {
  host_.model.sections[2] = Numbered(L"SR");
  host_.model.elements[2].nSect = 2;
  Build({1, 2, 3});
  EXPECT_EQ(SectionOf(1).nShape, ALU_SHAPE_P);
  EXPECT_EQ(SectionOf(2).nShape, ALU_SHAPE_SR);
}

TEST_F(SectionBuffer, ASectionOfUnknownShapeIsStoredAllTheSame) {
  host_.model.sections[1].strShape = L"UP";
  Build({1});
  EXPECT_EQ(SectionOf(1).nShape, 0);
  EXPECT_EQ(SectionOf(1).dArea, host_.model.sections[1].dArea);
}

TEST_F(SectionBuffer, UnknownElementsAndSectionsAreSkippedInSilence) {
  host_.model.elements[2].nSect = 99;
  EXPECT_EQ(manager_.MakeBuffSect(Keys({8, 2, 1})), 1);
  EXPECT_THAT(host_.log.events, ElementsAre("section 99 read", "section 1 read"));
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(SectionBuffer, TheWarpingComputationFillsConstantAndCentres) {
  host_.model.warping = {7e6, 91.0, 60.0};
  Build({1});
  EXPECT_EQ(SectionOf(1).dIw, 7e6);
  EXPECT_EQ(SectionOf(1).dShearCtr, 31.0);
}

TEST_F(SectionBuffer, AFailedWarpingComputationLeavesTheHostsOwnNumbers) {
  host_.model.sections[1].dIw = 7e6;
  host_.model.sections[1].dShearCtrZ = 91.0;
  host_.model.sections[1].dCentroidZ = 60.0;
  host_.model.warping = {1.0, 2.0, 3.0};  // of no use: the host says so
  host_.model.computes_warping = false;
  Build({1});
  EXPECT_EQ(host_.log.warping_calls.size(), 1U);
  EXPECT_EQ(SectionOf(1).dIw, 7e6);
  EXPECT_EQ(SectionOf(1).dShearCtr, 31.0);
}

TEST_F(SectionBuffer, AFailedWarpingComputationIsNotTriedAgain) {
  host_.model.computes_warping = false;
  T_SECT_DESIGN_D sect = Numbered(L"H");
  sect.dIw = 5.0;
  manager_.Calcfor7thDOF(sect);
  manager_.Calcfor7thDOF(sect);
  EXPECT_EQ(host_.log.warping_calls.size(), 1U);
  EXPECT_EQ(sect.dIw, 5.0);
}

TEST_F(SectionBuffer, TheWarpingComputationIsMarkedAsDone) {
  T_SECT_DESIGN_D sect = Numbered(L"H");
  manager_.Calcfor7thDOF(sect);
  EXPECT_NE(sect.bWarpingComputed, 0);
}

TEST_F(SectionBuffer, ASectionWithWarpingDoneIsNotComputedAgain) {
  T_SECT_DESIGN_D sect = Numbered(L"H");
  sect.bWarpingComputed = 1;
  sect.dIw = 5.0;
  manager_.Calcfor7thDOF(sect);
  EXPECT_THAT(host_.log.warping_calls, IsEmpty());
  EXPECT_EQ(sect.dIw, 5.0);
}

TEST_F(SectionBuffer, ASectionOfShapeUpGetsNoWarpingComputation) {
  T_SECT_DESIGN_D sect = Numbered(L"UP");
  sect.dIw = 5.0;
  manager_.Calcfor7thDOF(sect);
  EXPECT_THAT(host_.log.warping_calls, IsEmpty());
  EXPECT_NE(sect.bWarpingComputed, 0);
  EXPECT_EQ(sect.dIw, 5.0);
}

TEST_F(SectionBuffer, TheWarpingComputationIsToldWhetherTheSectionHasASecondName) {
  T_SECT_DESIGN_D named = Numbered(L"H");
  named.strName2 = L"catalogue";
  T_SECT_DESIGN_D unnamed = Numbered(L"H");
  manager_.Calcfor7thDOF(named);
  manager_.Calcfor7thDOF(unnamed);
  ASSERT_EQ(host_.log.warping_calls.size(), 2U);
  EXPECT_EQ(host_.log.warping_calls[0].flag, 0);
  EXPECT_EQ(host_.log.warping_calls[1].flag, 1);
  EXPECT_EQ(host_.log.warping_calls[1].option1, 0);
  EXPECT_EQ(host_.log.warping_calls[1].option2, 0);
  EXPECT_EQ(host_.log.warping_calls[1].option3, 0.0);
}

}  // namespace
