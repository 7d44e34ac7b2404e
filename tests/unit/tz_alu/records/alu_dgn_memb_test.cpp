#include "tz_alu/records/alu_dgn_memb.h"

#include <gtest/gtest.h>

namespace {

ALU_DGN_MEMB MemberOf(UINT first, UINT second) {
  ALU_DGN_MEMB member;
  member.aElem.Add(first);
  member.aElem.Add(second);
  return member;
}

TEST(AluDgnMemb, StartsWithoutElementsAndNodes) {
  const ALU_DGN_MEMB member;
  EXPECT_EQ(member.nMemb, 0U);
  EXPECT_EQ(member.aElem.GetSize(), 0);
  EXPECT_EQ(member.nNodeI, 0U);
  EXPECT_EQ(member.nNodeJ, 0U);
}

TEST(AluDgnMemb, StartsWithLengthFactorsOfOne) {
  const ALU_DGN_MEMB member;
  EXPECT_EQ(member.dLength, 0.0);
  EXPECT_EQ(member.dKy, 1.0);
  EXPECT_EQ(member.dKz, 1.0);
}

TEST(AluDgnMemb, StartsFixedAtBothEndsWithoutSupportBetween) {
  const ALU_DGN_MEMB member;
  for (const auto& axis : member.nEndCond) {
    EXPECT_EQ(axis[0], 0);
    EXPECT_EQ(axis[1], 0);
  }
  EXPECT_EQ(member.bMidSupport, 0);
}

TEST(AluDgnMemb, InitialForgetsWhatWasFilledIn) {
  ALU_DGN_MEMB member = MemberOf(4, 5);
  member.dKy = 2.0;
  member.nEndCond[1][1] = 2;
  member.Initial();
  EXPECT_EQ(member.aElem.GetSize(), 0);
  EXPECT_EQ(member.dKy, 1.0);
  EXPECT_EQ(member.nEndCond[1][1], 0);
}

TEST(AluDgnMemb, CopyHasAnElementListOfItsOwn) {
  ALU_DGN_MEMB original = MemberOf(4, 5);
  const ALU_DGN_MEMB copy = original;
  original.aElem.Add(6);
  ASSERT_EQ(copy.aElem.GetSize(), 2);
  EXPECT_EQ(copy.aElem.GetAt(0), 4U);
  EXPECT_EQ(copy.aElem.GetAt(1), 5U);
}

TEST(AluDgnMemb, AssignedMemberHasAnElementListOfItsOwn) {
  ALU_DGN_MEMB original = MemberOf(4, 5);
  ALU_DGN_MEMB assigned = MemberOf(1, 2);
  assigned = original;
  original.aElem.RemoveAll();
  ASSERT_EQ(assigned.aElem.GetSize(), 2);
  EXPECT_EQ(assigned.aElem.GetAt(1), 5U);
}

TEST(AluDgnMemb, SelfAssignmentKeepsTheElements) {
  ALU_DGN_MEMB member = MemberOf(4, 5);
  const ALU_DGN_MEMB& same = member;
  member = same;
  ASSERT_EQ(member.aElem.GetSize(), 2);
  EXPECT_EQ(member.aElem.GetAt(0), 4U);
}

}  // namespace
