// Members from the elements that the host groups: extent, length, releases and length factors.

#include <gmock/gmock.h>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using testing::ElementsAre;
using testing::IsEmpty;

enum AXIS { Y = 0, Z = 1 };
enum END { I = 0, J = 1 };

constexpr T_SUPPORT_D kFullyHeld{{1, 1, 1, 1, 1, 1}};

// The twelve release characters of an element.
T_FRLS_D Releases(const char (&text)[13]) {
  T_FRLS_D out;
  for (std::size_t i = 0; i < out.aRelease.size(); ++i) out.aRelease[i] = text[i];
  return out;
}
const T_FRLS_D kMyAtStart = Releases("000010000000");
const T_FRLS_D kMzAtStart = Releases("000001000000");
const T_FRLS_D kMyAtEnd = Releases("000000000010");
const T_FRLS_D kMzAtEnd = Releases("000000000001");

class MemberOfThreeElements : public ManagerTest {
 protected:
  MemberOfThreeElements() : ManagerTest(test_support::three_element_model()) {}

  const ALU_DGN_MEMB& Member(std::initializer_list<UINT> keys = {1, 2, 3}) {
    EXPECT_EQ(manager_.MakeBuffMemb(Keys(keys)), 1);
    const ALU_DGN_MEMB* memb = manager_.GetMembInfo(*keys.begin());
    EXPECT_NE(memb, nullptr);
    return *memb;
  }
  /// Draws an element the other way round.
  void Reverse(UINT elem) {
    auto& nodes = host_.model.elements[elem].aNode;
    std::swap(nodes[0], nodes[1]);
  }
  void HoldBothEnds() { host_.model.supports[1] = host_.model.supports[4] = kFullyHeld; }
};

class MemberOfOneElement : public MemberOfThreeElements {
 protected:
  MemberOfOneElement() { host_.model.members.clear(); }
};

TEST_F(MemberOfThreeElements, ItHasTheHostsKeyElementsAndLength) {
  const ALU_DGN_MEMB& memb = Member();
  EXPECT_EQ(memb.nMemb, 7U);
  const std::vector<UINT> elems(memb.aElem.begin(), memb.aElem.end());
  EXPECT_THAT(elems, ElementsAre(1U, 2U, 3U));
  EXPECT_DOUBLE_EQ(memb.dLength, 3000.0);
}

TEST_F(MemberOfThreeElements, ItRunsFromTheFirstElementsStartToTheLastOnesEnd) {
  EXPECT_EQ(Member().nNodeI, 1U);
  EXPECT_EQ(Member().nNodeJ, 4U);
}

TEST_F(MemberOfThreeElements, AllItsElementsShareOneRecord) {
  Member();
  EXPECT_EQ(manager_.GetMembInfo(1), manager_.GetMembInfo(3));
}

TEST_F(MemberOfThreeElements, OneCheckedElementBuildsTheWholeMember) {
  const ALU_DGN_MEMB& memb = Member({2});
  EXPECT_EQ(memb.aElem.GetSize(), 3);
  EXPECT_EQ(manager_.GetMembInfo(3), &memb);
}

TEST_F(MemberOfThreeElements, AReversedFirstElementStartsTheMemberAtItsEndNode) {
  Reverse(1);
  EXPECT_EQ(Member().nNodeI, 1U);
  EXPECT_EQ(Member().nNodeJ, 4U);
}

TEST_F(MemberOfThreeElements, AReversedLastElementEndsTheMemberAtItsStartNode) {
  Reverse(3);
  EXPECT_EQ(Member().nNodeI, 1U);
  EXPECT_EQ(Member().nNodeJ, 4U);
}

TEST_F(MemberOfThreeElements, ADirectionOfTheMiddleElementDoesNotMatter) {
  Reverse(2);
  EXPECT_EQ(Member().nNodeI, 1U);
  EXPECT_EQ(Member().nNodeJ, 4U);
}

TEST_F(MemberOfThreeElements, AReleaseAtItsStartTurnsAFixedEndIntoAPinnedOne) {
  HoldBothEnds();
  host_.model.releases[1] = kMyAtStart;
  const ALU_DGN_MEMB& memb = Member();
  EXPECT_EQ(memb.nEndCond[Y][I], ALU_END_PINNED);
  EXPECT_EQ(memb.nEndCond[Z][I], ALU_END_FIXED);
  EXPECT_EQ(memb.nEndCond[Y][J], ALU_END_FIXED);
}

TEST_F(MemberOfThreeElements, AReleaseAtItsEndIsTheLastElementsOwn) {
  HoldBothEnds();
  host_.model.releases[3] = kMzAtEnd;
  const ALU_DGN_MEMB& memb = Member();
  EXPECT_EQ(memb.nEndCond[Z][J], ALU_END_PINNED);
  EXPECT_EQ(memb.nEndCond[Y][J], ALU_END_FIXED);
  EXPECT_EQ(memb.nEndCond[Z][I], ALU_END_FIXED);
}

TEST_F(MemberOfThreeElements, ReleasesInsideTheMemberDoNotCount) {
  HoldBothEnds();
  host_.model.releases[1] = kMyAtEnd;
  host_.model.releases[2] = Releases("000011000011");
  host_.model.releases[3] = kMyAtStart;
  const ALU_DGN_MEMB& memb = Member();
  EXPECT_THAT(memb.nEndCond[Y], ElementsAre(ALU_END_FIXED, ALU_END_FIXED));
  EXPECT_THAT(memb.nEndCond[Z], ElementsAre(ALU_END_FIXED, ALU_END_FIXED));
}

TEST_F(MemberOfThreeElements, AReversedFirstElementGivesItsEndReleasesToTheMembersStart) {
  HoldBothEnds();
  Reverse(1);
  host_.model.releases[1] = kMyAtEnd;
  EXPECT_EQ(Member().nEndCond[Y][I], ALU_END_PINNED);
  host_.model.releases[1] = kMyAtStart;
  EXPECT_EQ(Member().nEndCond[Y][I], ALU_END_FIXED);
}

TEST_F(MemberOfThreeElements, AReversedLastElementGivesItsStartReleasesToTheMembersEnd) {
  HoldBothEnds();
  Reverse(3);
  host_.model.releases[3] = kMzAtStart;
  EXPECT_EQ(Member().nEndCond[Z][J], ALU_END_PINNED);
  host_.model.releases[3] = kMzAtEnd;
  EXPECT_EQ(Member().nEndCond[Z][J], ALU_END_FIXED);
}

TEST_F(MemberOfThreeElements, ReleasesOfForcesAndTorsionDoNotCount) {
  HoldBothEnds();
  host_.model.releases[1] = Releases("111100111100");
  const ALU_DGN_MEMB& memb = Member();
  EXPECT_EQ(memb.nEndCond[Y][I], ALU_END_FIXED);
  EXPECT_EQ(memb.nEndCond[Z][I], ALU_END_FIXED);
}

TEST_F(MemberOfThreeElements, OnlyADigitOneIsARelease) {
  HoldBothEnds();
  host_.model.releases[1] = Releases("00002x000000");
  const ALU_DGN_MEMB& memb = Member();
  EXPECT_EQ(memb.nEndCond[Y][I], ALU_END_FIXED);
  EXPECT_EQ(memb.nEndCond[Z][I], ALU_END_FIXED);
}

TEST_F(MemberOfThreeElements, AReleasedFreeEndStaysFree) {
  host_.model.releases[1] = kMyAtStart;
  EXPECT_EQ(Member().nEndCond[Y][I], ALU_END_FREE);
}

TEST_F(MemberOfThreeElements, LengthFactorsOfAllElementsComeFromOnePass) {
  host_.model.control = T_DCTL_D{0, 0, 4, 5, 6};
  Member();
  ASSERT_EQ(host_.log.k_factor_passes.size(), 1U);
  EXPECT_EQ(host_.log.k_factor_passes[0].is_alu_dgn, 1);
  EXPECT_THAT(host_.log.k_factor_passes[0].elems, ElementsAre(1U, 2U, 3U));
  EXPECT_THAT(host_.log.k_factor_passes[0].options, ElementsAre(4, 5, 6));
}

TEST_F(MemberOfThreeElements, WithoutDesignControlTheLengthFactorsTakeItsDefaults) {
  Member();
  ASSERT_EQ(host_.log.k_factor_passes.size(), 1U);
  EXPECT_THAT(host_.log.k_factor_passes[0].options, ElementsAre(0, 0, 0));
}

TEST_F(MemberOfThreeElements, ItTakesTheLengthFactorsOfItsDisplayKey) {
  host_.model.length_factors = {{1, {0.7, 2.1}}, {2, {5.0, 6.0}}};
  const ALU_DGN_MEMB& memb = Member({2});
  EXPECT_EQ(memb.dKy, 0.7);
  EXPECT_EQ(memb.dKz, 2.1);
}

TEST_F(MemberOfThreeElements, WithoutComputedLengthFactorsTheyAreOne) {
  EXPECT_EQ(Member().dKy, 1.0);
  EXPECT_EQ(Member().dKz, 1.0);
}

TEST_F(MemberOfThreeElements, BuildingAgainForgetsTheMembersBefore) {
  Member();
  EXPECT_EQ(manager_.MakeBuffMemb(Keys({})), 1);
  EXPECT_EQ(manager_.GetMembInfo(1), nullptr);
}

TEST_F(MemberOfThreeElements, AChainThatCannotBeReadStopsTheBuilding) {
  host_.model.elements.erase(3);
  EXPECT_EQ(manager_.MakeBuffMemb(Keys({1})), 0);
  EXPECT_EQ(host_.log.assertions.size(), 1U);
  EXPECT_EQ(manager_.GetMembInfo(1), nullptr);
}

TEST_F(MemberOfOneElement, ItHasNoKeyAndNoElementList) {
  const ALU_DGN_MEMB& memb = Member({2});
  EXPECT_EQ(memb.nMemb, 0U);
  EXPECT_TRUE(memb.aElem.IsEmpty());
}

TEST_F(MemberOfOneElement, ItRunsAlongTheElement) {
  const ALU_DGN_MEMB& memb = Member({2});
  EXPECT_EQ(memb.nNodeI, 2U);
  EXPECT_EQ(memb.nNodeJ, 3U);
  EXPECT_DOUBLE_EQ(memb.dLength, 1000.0);
  EXPECT_EQ(memb.bMidSupport, 0);
}

TEST_F(MemberOfOneElement, AMemberOfTheHostWithOneElementIsTheSame) {
  host_.model.members[7] = {2};
  const ALU_DGN_MEMB& memb = Member({2});
  EXPECT_EQ(memb.nMemb, 7U);
  EXPECT_TRUE(memb.aElem.IsEmpty());
  EXPECT_DOUBLE_EQ(memb.dLength, 1000.0);
}

TEST_F(MemberOfOneElement, ItsEndsTakeTheElementsReleases) {
  host_.model.supports[2] = host_.model.supports[3] = kFullyHeld;
  host_.model.releases[2] = Releases("000010000001");
  const ALU_DGN_MEMB& memb = Member({2});
  EXPECT_THAT(memb.nEndCond[Y], ElementsAre(ALU_END_PINNED, ALU_END_FIXED));
  EXPECT_THAT(memb.nEndCond[Z], ElementsAre(ALU_END_FIXED, ALU_END_PINNED));
}

TEST_F(MemberOfOneElement, AnUnknownElementStopsTheBuildingWithAnAssertion) {
  EXPECT_EQ(manager_.MakeBuffMemb(Keys({1, 8, 2})), 0);
  ASSERT_EQ(host_.log.assertions.size(), 1U);
  EXPECT_EQ(host_.log.assertions[0].source, L"dgnaludatamgr");
  EXPECT_NE(manager_.GetMembInfo(1), nullptr);
  EXPECT_EQ(manager_.GetMembInfo(2), nullptr);
}

TEST_F(MemberOfOneElement, AMissingMemberIsReportedAndNull) {
  EXPECT_EQ(manager_.GetMembInfo(1), nullptr);
  EXPECT_THAT(host_.log.assertions, ElementsAre(AssertionAt(836)));
}

TEST_F(MemberOfOneElement, AMissingMemberIsNotReportedWhenTheHostWantsNoAssertions) {
  host_.model.is_release_assert = 0;
  EXPECT_EQ(manager_.GetMembInfo(1), nullptr);
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(MemberOfOneElement, TheDisplayKeyIsTheHosts) {
  EXPECT_EQ(manager_.GetElemShowKey(2), 2U);
  EXPECT_EQ(manager_.GetElemShowKey(8), 0U);
  host_.model.members[7] = {1, 2, 3};
  EXPECT_EQ(manager_.GetElemShowKey(2), 1U);
}

TEST_F(MemberOfThreeElements, AnElementDrawnAgainstTheMemberIsReversed) {
  Reverse(1);
  Reverse(3);
  Member();
  EXPECT_EQ(manager_.IsReverseToMemb(1), 1);
  EXPECT_EQ(manager_.IsReverseToMemb(2), 0);
  EXPECT_EQ(manager_.IsReverseToMemb(3), 1);
}

TEST_F(MemberOfThreeElements, AnElementWhoseNodeCannotBeReadIsNotReversed) {
  Reverse(3);
  Member();
  host_.model.nodes.erase(4);
  EXPECT_EQ(manager_.IsReverseToMemb(3), 0);
}

TEST_F(MemberOfThreeElements, AnElementThatCannotBeReadIsNotReversed) {
  Reverse(3);
  Member();
  host_.model.elements.erase(3);
  EXPECT_EQ(manager_.IsReverseToMemb(3), 0);
}

TEST_F(MemberOfOneElement, ItIsNeverReversed) {
  Reverse(2);
  Member({2});
  EXPECT_EQ(manager_.IsReverseToMemb(2), 0);
}

}  // namespace
