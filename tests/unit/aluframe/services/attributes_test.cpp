#include "aluframe/services/attributes.h"

#include <gtest/gtest.h>

#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

class AttributesTest : public testing::Test {
 protected:
  const model::Model model_ = sample_model();
  UnitScale scale_;
  Attributes attributes_{model_, scale_};
};

TEST_F(AttributesTest, ElementsAndNodesAreReadByKey) {
  T_ELEM_D element;
  ASSERT_EQ(attributes_.GetElem(2, element), 1);
  EXPECT_EQ(element.aNode, (std::array<UINT, 2>{2, 3}));
  EXPECT_EQ(element.dBeta, 90.0);
  T_NODE_D node;
  ASSERT_EQ(attributes_.GetNode(4, node), 1);
  EXPECT_EQ(node.dX, 5000.0);
  EXPECT_EQ(node.dZ, 3000.0);
}

TEST_F(AttributesTest, WhatTheModelLacksReturns0) {
  T_ELEM_D element;
  T_NODE_D node;
  T_SUPPORT_D support;
  T_MEMB_D member;
  T_SECT_DESIGN_D section;
  T_MATD_D material;
  T_APHI_D phi;
  CArray<UINT> connected;
  EXPECT_EQ(attributes_.GetElem(99, element), 0);
  EXPECT_EQ(attributes_.GetNode(99, node), 0);
  EXPECT_EQ(attributes_.GetSupportCondition(2, support), 0);
  EXPECT_EQ(attributes_.GetMemb(99, member), 0);
  EXPECT_EQ(attributes_.GetSectDesign(99, section), 0);
  EXPECT_EQ(attributes_.GetMatlDesign(99, material), 0);
  EXPECT_EQ(attributes_.GetAphi(2, phi), 0);
  EXPECT_EQ(attributes_.GetConnectedElem(99, connected), 0);
  EXPECT_EQ(attributes_.GetMemberType(99, 0), 0);
  EXPECT_EQ(attributes_.IsFrameType(99), 0);
  EXPECT_EQ(attributes_.GetMembTotalLength(99), 0.0);
}

// Column, beam, brace, truss: 1, 2, 3, 5 in the first scheme and 2, 1, 4, 5 in the second.
TEST_F(AttributesTest, MemberTypesFollowTheDirectionInBothSchemes) {
  const struct {
    UINT elem;
    int first;
    int second;
  } rows[] = {{1, 1, 2}, {2, 2, 1}, {4, 3, 4}, {5, 5, 5}};
  for (const auto& row : rows) {
    EXPECT_EQ(attributes_.GetMemberType(row.elem, 0), row.first) << row.elem;
    EXPECT_EQ(attributes_.GetMemberType(row.elem, 1), row.second) << row.elem;
  }
}

TEST_F(AttributesTest, AMemberIsShownByItsFirstElementAndALoneElementByItself) {
  EXPECT_EQ(attributes_.GetShowElemByIncludeElem(3), 2U);
  EXPECT_EQ(attributes_.GetShowElemByIncludeElem(1), 1U);
  EXPECT_EQ(attributes_.GetShowElemByIncludeElem(99), 0U);
  EXPECT_EQ(attributes_.GetMembAssigned(2), 7U);
  EXPECT_EQ(attributes_.GetMembAssigned(1), 0U);
  EXPECT_EQ(attributes_.GetMembTotalLength(7), 5000.0);
}

TEST_F(AttributesTest, ReleasesAndSupportsKeepTheHostsOrder) {
  T_FRLS_D releases;
  ASSERT_EQ(attributes_.GetFrlsElem(2, releases), 1);
  EXPECT_EQ(std::string(releases.aRelease.begin(), releases.aRelease.end()), "000010000001");
  T_SUPPORT_D support;
  ASSERT_EQ(attributes_.GetSupportCondition(1, support), 1);
  EXPECT_EQ(support.aRestraint, (std::array<int, 6>{1, 0, 1, 0, 1, 0}));
}

TEST_F(AttributesTest, SettingsReachTheirRecords) {
  T_DALU_D settings;
  ASSERT_EQ(attributes_.GetDalu(settings), 1);
  EXPECT_TRUE(settings.strCode == L"GB50429-07(A)");
  EXPECT_EQ(settings.nSafetyClass, 0);
  EXPECT_EQ(settings.bRib, 0);
  EXPECT_EQ(settings.dRibRatio, 1.1);
  EXPECT_EQ(settings.dStrengthRatio, 0.9);
  EXPECT_EQ(settings.bSeismic, 1);
  EXPECT_EQ(settings.dGammaREStrength, 0.7);
  EXPECT_EQ(settings.dGammaREStability, 0.82);
  T_DCTL_D control;
  ASSERT_EQ(attributes_.GetDctl(control), 1);
  EXPECT_EQ(control.nSwayA, 1);
  EXPECT_EQ(control.nSwayB, 0);
}

TEST_F(AttributesTest, ElementAttributesReachTheirRecords) {
  T_APHI_D phi;
  ASSERT_EQ(attributes_.GetAphi(1, phi), 1);
  EXPECT_EQ(phi.dPhiZ, 0.7);
  T_ARIB_D rib;
  ASSERT_EQ(attributes_.GetArib(1, rib), 1);
  EXPECT_EQ(rib.nOption, 0) << "stiffened is the option word 0";
  EXPECT_EQ(rib.dRatio, 1.4);
  T_AWED_D weld;
  ASSERT_EQ(attributes_.GetAwed(1, weld), 1);
  EXPECT_EQ(weld.dCoef, 0.4);
  T_AHTR_D zone;
  ASSERT_EQ(attributes_.GetAhtr(1, zone), 1);
  EXPECT_EQ(zone.dWidth, 20.0);
  T_CMFT_D factors;
  ASSERT_EQ(attributes_.GetCmft(1, factors), 1);
  EXPECT_EQ(factors.aAuto, (std::array<int, 2>{0, 1}));
  EXPECT_EQ(factors.aBetaM, (std::array<double, 2>{0.85, 1.0}));
  EXPECT_EQ(factors.aLoadType, (std::array<int, 2>{0, 2}));
  T_KFAC_D lengths;
  ASSERT_EQ(attributes_.GetKfac(1, lengths), 1);
  EXPECT_EQ(lengths.dKy, 0.5);
  T_LTSR_D limits;
  ASSERT_EQ(attributes_.GetLtsr(1, limits), 1);
  EXPECT_EQ(limits.bNoCheck, 1);
  EXPECT_EQ(limits.dLimitCompr, 120.0);
  EXPECT_EQ(limits.dLimitTension, 250.0);
}

// By hand: A = 2·200·10 + 290·8 = 6320 mm².
TEST_F(AttributesTest, ASectionComesWithItsPropertiesAndWaitsForTheWarpingComputation) {
  T_SECT_DESIGN_D section;
  ASSERT_EQ(attributes_.GetSectDesign(1, section), 1);
  EXPECT_TRUE(section.strShape == L"H");
  EXPECT_TRUE(section.strName2.IsEmpty());
  EXPECT_EQ(section.aSize, (std::array<double, 8>{310, 200, 8, 10, 200, 10, 0, 0}));
  EXPECT_DOUBLE_EQ(section.dArea, 6320.0);
  EXPECT_EQ(section.nBuildType, 1);
  EXPECT_EQ(section.bWarpingComputed, 0);
  EXPECT_EQ(section.aPtZ, (std::array<double, 4>{155, 155, -155, -155}));
}

TEST_F(AttributesTest, GivenWarpingValuesAreNotComputedOver) {
  T_SECT_DESIGN_D section;
  ASSERT_EQ(attributes_.GetSectDesign(2, section), 1);
  EXPECT_EQ(section.bWarpingComputed, 1);
  EXPECT_EQ(section.dIw, 123.0);
  EXPECT_EQ(section.dShearCtrZ - section.dCentroidZ, 4.0);
  EXPECT_EQ(section.nBuildType, 0);
}

TEST_F(AttributesTest, AnAlloyComesWithItsStandardAndStrengths) {
  T_MATD_D material;
  ASSERT_EQ(attributes_.GetMatlDesign(1, material), 1);
  EXPECT_TRUE(material.strStandard == L"GB50429-07(A)");
  EXPECT_TRUE(material.strGrade == L"6063A-T5");
  EXPECT_EQ(material.dElast, 70000.0);
  EXPECT_EQ(material.dF02Thin, 160.0);
  EXPECT_EQ(material.dF02Thick, 150.0);
  EXPECT_EQ(material.dFu, 200.0);
}

TEST_F(AttributesTest, ValuesAreHandedOutInTheCurrentUnits) {
  scale_ = UnitScale({1, 0});  // kN, m
  T_NODE_D node;
  attributes_.GetNode(4, node);
  EXPECT_DOUBLE_EQ(node.dX, 5.0);
  T_SECT_DESIGN_D section;
  attributes_.GetSectDesign(1, section);
  EXPECT_DOUBLE_EQ(section.aSize[0], 0.31);
  EXPECT_DOUBLE_EQ(section.dArea, 6320e-6);
  T_MATD_D material;
  attributes_.GetMatlDesign(1, material);
  EXPECT_DOUBLE_EQ(material.dElast, 70e6);
  T_AHTR_D zone;
  attributes_.GetAhtr(1, zone);
  EXPECT_DOUBLE_EQ(zone.dWidth, 0.02);
  EXPECT_DOUBLE_EQ(attributes_.GetMembTotalLength(7), 5.0);
}

}  // namespace
}  // namespace aluframe::services
