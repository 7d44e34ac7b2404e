#include "aluframe/services/document.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <stdexcept>

#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

/// H 310 deep, web 8, flanges 200 × 10 and 100 × 10, in units of `unit` to the millimetre.
T_SECT_DESIGN_D h_section(double unit) {
  T_SECT_DESIGN_D section;
  section.strShape = L"H";
  section.aSize = {310 * unit, 200 * unit, 8 * unit, 10 * unit, 100 * unit, 10 * unit, 0, 0};
  return section;
}

// Thin-wall theory: If1 = 10·200³/12, If2 = 10·100³/12, h = 300 between the flanges' middle lines;
// Iw = If1·If2/(If1 + If2)·h² = 6.666667e10 mm⁶.
constexpr double warping_constant = 6.6666666666666667e10;
// The shear centre lies If2/(If1 + If2) = 1/9 of h below the upper flange, 155 − 5 − 300/9 above
// mid-depth; the centroid (2000·150 − 1000·150)/(2000 + 1000 + 290·8) above mid-depth.
constexpr double shear_centre = 150.0 - 300.0 / 9.0 - 150e3 / 5320.0;

TEST(SectionDatabaseTest, TheWarpingConstantOfAnUnequalHFollowsThinWallTheory) {
  const UnitScale scale;
  SectionDatabase database(scale);
  T_WARPING_D warping;
  ASSERT_EQ(database.CalcWarpingFuncion(h_section(1.0), warping, 1, 0, 0, 0.0), 1);
  EXPECT_NEAR(warping.dIw, warping_constant, 1e-9 * warping_constant);
  EXPECT_NEAR(warping.dShearCtrZ - warping.dCentroidZ, shear_centre, 1e-9);
}

TEST(SectionDatabaseTest, TheFlagForASecondNameChangesNothing) {
  const UnitScale scale;
  SectionDatabase database(scale);
  T_WARPING_D named;
  ASSERT_EQ(database.CalcWarpingFuncion(h_section(1.0), named, 0, 0, 0, 0.0), 1);
  EXPECT_NEAR(named.dIw, warping_constant, 1e-9 * warping_constant);
}

// 1 m = 1e3 mm, 1 in = 25.4 mm; the warping constant is a length to the sixth.
TEST(SectionDatabaseTest, WarpingIsComputedInTheCurrentUnits) {
  const struct {
    T_UNIT_INDEX index;
    double millimetre;
  } rows[] = {{{1, 0}, 1e-3}, {{0, 1}, 0.1}, {{5, 4}, 1 / 25.4}};
  for (const auto& row : rows) {
    const UnitScale scale(row.index);
    SectionDatabase database(scale);
    T_WARPING_D warping;
    ASSERT_EQ(database.CalcWarpingFuncion(h_section(row.millimetre), warping, 1, 0, 0, 0.0), 1);
    const double expected = warping_constant * std::pow(row.millimetre, 6);
    EXPECT_NEAR(warping.dIw, expected, 1e-9 * expected);
    EXPECT_NEAR(warping.dShearCtrZ - warping.dCentroidZ, shear_centre * row.millimetre,
                1e-9 * row.millimetre);
  }
}

TEST(SectionDatabaseTest, ASectionWithoutWarpingStiffnessHasATinyOne) {
  const UnitScale scale;
  SectionDatabase database(scale);
  T_SECT_DESIGN_D round;
  round.strShape = L"SR";
  round.aSize[0] = 40;
  T_WARPING_D warping;
  ASSERT_EQ(database.CalcWarpingFuncion(round, warping, 1, 0, 0, 0.0), 1);
  // 1e-9·Izz·H² with Izz = π·40⁴/64 = 125663.706.
  EXPECT_NEAR(warping.dIw, 1e-9 * 125663.70614359 * 1600, 1e-12);
  EXPECT_EQ(warping.dShearCtrZ, warping.dCentroidZ);
}

TEST(SectionDatabaseTest, WhatIsNoSectionOfDimensionsHasNoWarpingProperties) {
  const UnitScale scale;
  SectionDatabase database(scale);
  T_WARPING_D warping{.dIw = 7.0};
  for (const wchar_t* shape : {L"Q", L"UP", L"h", L""}) {
    T_SECT_DESIGN_D section = h_section(1.0);
    section.strShape = shape;
    EXPECT_EQ(database.CalcWarpingFuncion(section, warping, 1, 0, 0, 0.0), 0);
  }
  T_SECT_DESIGN_D flat = h_section(1.0);
  flat.aSize[0] = 15.0;  // less deep than its two flanges are thick
  EXPECT_EQ(database.CalcWarpingFuncion(flat, warping, 1, 0, 0, 0.0), 0);
  EXPECT_EQ(warping.dIw, 7.0);
}

class LengthFactorsTest : public testing::Test {
 protected:
  /// Factors of a run over these elements.
  void compute(std::initializer_list<UINT> elems) {
    CArray<UINT> keys;
    for (const UINT elem : elems) keys.Add(elem);
    EXPECT_EQ(
        FrameLengthFactors(members::length_factors(model_)).Calc_KFactor(keys, 0, 0, 0, data_), 1);
  }

  const model::Model model_ = sample_model();
  DesignData data_;
};

TEST_F(LengthFactorsTest, AMembersGivenFactorsStandUnderItsDisplayKey) {
  compute({1, 3});
  T_KFAC_D found;
  ASSERT_EQ(data_.GetKFactor(2, found), 1);
  EXPECT_EQ(found.dKy, 0.8);
  EXPECT_EQ(found.dKz, 0.9);
  EXPECT_EQ(data_.GetKFactor(3, found), 0);
}

// Axial-only elements are hinged at both ends.
TEST_F(LengthFactorsTest, WhatBelongsToNoMemberHasItsOwn) {
  compute({1, 5, 99});
  T_KFAC_D found;
  ASSERT_EQ(data_.GetKFactor(1, found), 1);
  EXPECT_EQ(found.dKy, 0.5);
  EXPECT_EQ(found.dKz, 2.0);
  ASSERT_EQ(data_.GetKFactor(5, found), 1);
  EXPECT_EQ(found.dKy, 1.0);
}

TEST_F(LengthFactorsTest, WhatWasNotAskedForHasNone) {
  compute({1, 99});
  T_KFAC_D found{5.0, 6.0};
  EXPECT_EQ(data_.GetKFactor(2, found), 0);
  EXPECT_EQ(data_.GetKFactor(99, found), 0);
  EXPECT_EQ(data_.GetKFactor(0, found), 0);
  EXPECT_EQ(found.dKy, 5.0);
}

// The member of beams 2 and 3 ends at a tie, which holds no rotation. At the column it is released
// about y, and about z held by the column, which lets it turn: K of two hinges about y, and about z
// between 0.699 of a clamp and 1 of a hinge.
TEST(ComputedLengthFactors, AreThoseOfTheFrame) {
  const model::Model model = sample_with(R"(, "length_factors": { "y": 0.8, "z": 0.9 })", "");
  CArray<UINT> keys;
  keys.Add(3);
  DesignData data;
  ASSERT_EQ(FrameLengthFactors(members::length_factors(model)).Calc_KFactor(keys, 0, 0, 0, data),
            1);
  T_KFAC_D found;
  ASSERT_EQ(data.GetKFactor(2, found), 1);
  EXPECT_EQ(found.dKy, 1.0);
  EXPECT_GT(found.dKz, 0.7);
  EXPECT_LT(found.dKz, 0.99);
}

TEST_F(LengthFactorsTest, FactorsOfTheRunBeforeAreGone) {
  compute({2});
  compute({1});
  T_KFAC_D found;
  EXPECT_EQ(data_.GetKFactor(2, found), 0);
}

class DocumentTest : public testing::Test {
 protected:
  const model::Model model_ = sample_model();
  const model::CombinationEvaluator evaluator_{model_};
  UnitScale scale_;
  RunMonitor monitor_{model_};
  Attributes attributes_{model_, scale_};
  DesignTool tool_{model_, evaluator_, monitor_, {}, {}};
  DesignManager manager_{model_, evaluator_, scale_, monitor_, {}, {}, {}};
  Document document_{model_, attributes_, tool_, manager_, scale_};
};

// Brace 4 goes 2 m across and 3 m up: √13 m.
TEST_F(DocumentTest, AnElementIsAsLongAsItsNodesAreApart) {
  T_ELEM_D brace;
  document_.GetAttrCtrl().GetElem(4, brace);
  EXPECT_NEAR(document_.calcLAVElem(brace), 3605.551275463989, 1e-9);
  scale_ = UnitScale({1, 0});
  EXPECT_NEAR(document_.calcLAVElem(brace), 3.605551275463989, 1e-12);
}

TEST_F(DocumentTest, AnElementWithoutItsNodesHasNoLength) {
  EXPECT_EQ(document_.calcLAVElem({.aNode = {1, 99}}), 0.0);
  EXPECT_EQ(document_.calcLAVElem({.aNode = {99, 1}}), 0.0);
}

TEST_F(DocumentTest, TheUnitsAreThoseThatWereSet) {
  EXPECT_EQ(document_.GetUnitCtrl().GetUnitIndexCurrent(), (T_UNIT_INDEX{0, 2}));
  document_.GetUnitCtrl().SetUnitIndexCurrent({5, 4}, 0);
  EXPECT_EQ(document_.GetUnitCtrl().GetUnitIndexCurrent(), (T_UNIT_INDEX{5, 4}));
  EXPECT_EQ(scale_.index(), (T_UNIT_INDEX{5, 4}));
}

TEST_F(DocumentTest, UnitsOutsideTheTablesAreRefusedAndTheOldOnesStay) {
  EXPECT_THROW(document_.GetUnitCtrl().SetUnitIndexCurrent({0, 7}, 0), std::out_of_range);
  EXPECT_EQ(document_.GetUnitCtrl().GetUnitIndexCurrent(), (T_UNIT_INDEX{0, 2}));
}

TEST_F(DocumentTest, ItsSectionDatabaseFollowsTheUnits) {
  document_.GetUnitCtrl().SetUnitIndexCurrent({1, 0}, 0);
  T_WARPING_D warping;
  ASSERT_EQ(document_.GetSectDB().CalcWarpingFuncion(h_section(1e-3), warping, 1, 0, 0, 0.0), 1);
  EXPECT_NEAR(warping.dIw, warping_constant * 1e-18, 1e-27 * warping_constant);
}

TEST_F(DocumentTest, NobodyCanAnswerABox) {
  EXPECT_TRUE(document_.IsRegTestMode());
}

}  // namespace
}  // namespace aluframe::services
