#include "aluframe/services/attributes.h"

#include <gtest/gtest.h>

#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

std::vector<UINT> values_of(const CArray<UINT>& array) {
  return {array.begin(), array.end()};
}

class AttributesTest : public testing::Test {
 protected:
  const model::Model model_ = sample_model();
  UnitScale scale_;
  Attributes attributes_{model_, scale_};
};

TEST_F(AttributesTest, ElementsAndNodesAreReadByKey) {
  T_ELEM_D element;
  ASSERT_EQ(attributes_.GetElem(3, element), 1);
  EXPECT_EQ(element.aNode, (std::array<UINT, 2>{3, 4}));
  EXPECT_EQ(element.nSect, 2U);
  EXPECT_EQ(element.nMatl, 1U);
  EXPECT_EQ(element.dBeta, 0.0);
  ASSERT_EQ(attributes_.GetElem(2, element), 1);
  EXPECT_EQ(element.dBeta, 90.0);
  T_NODE_D node;
  ASSERT_EQ(attributes_.GetNode(4, node), 1);
  EXPECT_EQ(node.dX, 5000.0);
  EXPECT_EQ(node.dY, 0.0);
  EXPECT_EQ(node.dZ, 3000.0);
}

TEST_F(AttributesTest, EveryElementIsCountedAndIsAFrameElement) {
  EXPECT_EQ(attributes_.GetCountElem(1), 5);
  EXPECT_EQ(attributes_.IsFrameType(1), 1);
  EXPECT_EQ(attributes_.IsFrameType(5), 1) << "a truss is one as well";
}

TEST_F(AttributesTest, WhatTheModelLacksReturns0AndLeavesTheRecord) {
  T_ELEM_D element{.aNode = {7, 8}};
  EXPECT_EQ(attributes_.GetElem(99, element), 0);
  EXPECT_EQ(element.aNode, (std::array<UINT, 2>{7, 8}));
  T_NODE_D node{1.0, 2.0, 3.0};
  EXPECT_EQ(attributes_.GetNode(99, node), 0);
  EXPECT_EQ(node.dX, 1.0);
  T_FRLS_D releases;
  EXPECT_EQ(attributes_.GetFrlsElem(99, releases), 0);
  T_SUPPORT_D support;
  EXPECT_EQ(attributes_.GetSupportCondition(2, support), 0) << "a node without support";
  EXPECT_EQ(attributes_.GetSupportCondition(99, support), 0);
  T_MEMB_D member;
  EXPECT_EQ(attributes_.GetMemb(99, member), 0);
  EXPECT_EQ(attributes_.GetMemberType(99, 0), 0);
  EXPECT_EQ(attributes_.GetMemberType(99, 1), 0);
  EXPECT_EQ(attributes_.IsFrameType(99), 0);
  EXPECT_EQ(attributes_.GetMembAssigned(99), 0U);
  EXPECT_EQ(attributes_.GetMembTotalLength(99), 0.0);
}

TEST_F(AttributesTest, ElementsAtANodeComeInTheOrderOfTheFile) {
  CArray<UINT> connected;
  ASSERT_EQ(attributes_.GetConnectedElem(3, connected), 1);
  EXPECT_EQ(values_of(connected), (std::vector<UINT>{2, 3, 4}));
  ASSERT_EQ(attributes_.GetConnectedElem(4, connected), 1);
  EXPECT_EQ(values_of(connected), (std::vector<UINT>{3, 5})) << "the list starts anew";
}

TEST_F(AttributesTest, AnUnknownNodeHasNoElements) {
  CArray<UINT> connected;
  connected.Add(1);
  EXPECT_EQ(attributes_.GetConnectedElem(99, connected), 0);
  EXPECT_TRUE(connected.IsEmpty());
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

TEST_F(AttributesTest, TheUsersMemberTypeGoesBeforeTheDirection) {
  const model::Model column_as_brace =
      sample_with(R"("number": 1, "nodes")", R"("number": 1, "member_type": "brace", "nodes")");
  const Attributes attributes(column_as_brace, scale_);
  EXPECT_EQ(attributes.GetMemberType(1, 0), 3);
  EXPECT_EQ(attributes.GetMemberType(1, 1), 4);
}

TEST_F(AttributesTest, AMemberIsShownByItsFirstElementAndALoneElementByItself) {
  EXPECT_EQ(attributes_.GetShowElemByIncludeElem(2), 2U);
  EXPECT_EQ(attributes_.GetShowElemByIncludeElem(3), 2U);
  EXPECT_EQ(attributes_.GetShowElemByIncludeElem(1), 1U);
  EXPECT_EQ(attributes_.GetShowElemByIncludeElem(99), 0U);
}

TEST_F(AttributesTest, MembersListTheirElementsFromStartToEnd) {
  EXPECT_EQ(attributes_.GetMembAssigned(2), 7U);
  EXPECT_EQ(attributes_.GetMembAssigned(1), 0U);
  T_MEMB_D member;
  member.aElem.Add(1);
  ASSERT_EQ(attributes_.GetMemb(7, member), 1);
  EXPECT_EQ(values_of(member.aElem), (std::vector<UINT>{2, 3}));
}

// Elements of 2 m and 3 m.
TEST_F(AttributesTest, AMemberIsAsLongAsItsElements) {
  EXPECT_EQ(attributes_.GetMembTotalLength(7), 5000.0);
}

TEST_F(AttributesTest, ReleasesAndSupportsKeepTheHostsOrder) {
  T_FRLS_D releases;
  ASSERT_EQ(attributes_.GetFrlsElem(2, releases), 1);
  EXPECT_EQ(std::string(releases.aRelease.begin(), releases.aRelease.end()), "000010000001");
  ASSERT_EQ(attributes_.GetFrlsElem(1, releases), 1);
  EXPECT_EQ(std::string(releases.aRelease.begin(), releases.aRelease.end()), "000000000000");
  T_SUPPORT_D support;
  ASSERT_EQ(attributes_.GetSupportCondition(1, support), 1);
  EXPECT_EQ(support.aRestraint, (std::array<int, 6>{1, 0, 1, 0, 1, 0}));
}

TEST_F(AttributesTest, LengthsAreHandedOutInTheUnitsOfTheMoment) {
  scale_ = UnitScale({1, 0});  // kN, m
  T_NODE_D node;
  attributes_.GetNode(4, node);
  EXPECT_DOUBLE_EQ(node.dX, 5.0);
  EXPECT_DOUBLE_EQ(node.dZ, 3.0);
  EXPECT_DOUBLE_EQ(attributes_.GetMembTotalLength(7), 5.0);
  scale_ = UnitScale({0, 1});  // N, cm
  attributes_.GetNode(4, node);
  EXPECT_DOUBLE_EQ(node.dX, 500.0);
}

}  // namespace
}  // namespace aluframe::services
