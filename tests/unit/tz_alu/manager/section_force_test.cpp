// Forces of a check position, end sections and seismic types.

#include <gmock/gmock.h>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr UINT kMinSide = 134217728U;  // bit 27

class SectionForces : public ManagerTest {
 protected:
  SectionForces() : ManagerTest(test_support::three_element_model()) {}

  void BuildCombinations(std::initializer_list<UINT> keys) {
    EXPECT_EQ(manager_.MakeBuffLcomb(Keys(keys)), 1);
    host_.log.events.clear();
  }
  void BuildMembers() { EXPECT_EQ(manager_.MakeBuffMemb(Keys({1, 2, 3})), 1); }
  void Reverse(UINT elem) {
    auto& nodes = host_.model.elements[elem].aNode;
    std::swap(nodes[0], nodes[1]);
  }
  /// End-section flags of positions 0 to 4.
  std::vector<int> EndSections(UINT elem) {
    std::vector<int> flags;
    for (int pos = 0; pos < kCheckPositions; ++pos) {
      flags.push_back(manager_.IsEndSectCal(elem, pos));
    }
    return flags;
  }
};

TEST_F(SectionForces, ThePositionsSixForcesAreTaken) {
  T_ALU_FORCE_D forces;
  forces.aForce[3] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  AluDgnSectForce out;
  EXPECT_EQ(manager_.GetDgnSectForce({}, forces, 3, out), 1);
  EXPECT_EQ(out.nPos, 3);
  EXPECT_THAT(out.dForce, ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(SectionForces, SinglePrecisionIsWidenedWithoutRounding) {
  T_ALU_FORCE_D forces;
  forces.aForce[0][ALU_FORCE_N] = 0.1F;
  AluDgnSectForce out;
  manager_.GetDgnSectForce({}, forces, 0, out);
  // 0.1 in single precision is 13421773 · 2⁻²⁷.
  EXPECT_EQ(out.dForce[ALU_FORCE_N], 13421773.0 / 134217728.0);
}

TEST_F(SectionForces, EndMomentsAndCombinationComeAlong) {
  host_.model.seismic_types[4] = 2;
  BuildCombinations({4});
  AluDgnEndForce end;
  end.dMzJ = 9.0;
  T_ALU_FORCE_D forces;
  forces.nLComb = 4;
  AluDgnSectForce out;
  manager_.GetDgnSectForce(end, forces, 0, out);
  EXPECT_EQ(out.end.dMzJ, 9.0);
  EXPECT_EQ(out.nLComb, 4U);
  EXPECT_EQ(out.nSesiType, 2);
}

TEST_F(SectionForces, TheEndSectionFlagIsLeftToTheCaller) {
  AluDgnSectForce out;
  out.bEndSect = 1;
  manager_.GetDgnSectForce({}, {}, 0, out);
  EXPECT_EQ(out.bEndSect, 0);
}

TEST_F(SectionForces, APositionOutsideTheFiveYieldsNoForces) {
  T_ALU_FORCE_D forces;
  for (auto& position : forces.aForce) position[ALU_FORCE_N] = 5.0F;
  forces.nLComb = 4;
  for (const int pos : {5, 6, -1}) {
    AluDgnSectForce out;
    out.dForce[ALU_FORCE_N] = 9.0;
    EXPECT_EQ(manager_.GetDgnSectForce({}, forces, pos, out), 0) << pos;
    EXPECT_EQ(out.dForce[ALU_FORCE_N], 0.0) << pos;
    EXPECT_EQ(out.nLComb, 0U) << pos;
  }
}

TEST_F(SectionForces, ForcesAreAskedForByNumberAndSide) {
  T_ALU_FORCE_D max;
  max.aForce[0][0] = 1.0F;
  T_ALU_FORCE_D min;
  min.aForce[0][0] = -1.0F;
  host_.model.add_forces(1, 5, max);
  host_.model.add_forces(1, kMinSide + 5U, min);
  T_ALU_FORCE_D out;
  EXPECT_EQ(manager_.GetDgnForce(1, 5, out), 1);
  EXPECT_EQ(out.aForce[0][0], 1.0F);
  EXPECT_EQ(manager_.GetDgnForce(1, kMinSide + 5U, out), 1);
  EXPECT_EQ(out.aForce[0][0], -1.0F);
}

TEST_F(SectionForces, WithoutForcesInTheHostTheAnswerIsZero) {
  T_ALU_FORCE_D out;
  EXPECT_EQ(manager_.GetDgnForce(1, 99, out), 0);
  EXPECT_EQ(manager_.GetDgnForce(8, 1, out), 0);
}

TEST_F(SectionForces, BothEndsOfAMemberOfOneElementAreEndSections) {
  host_.model.members.clear();
  BuildMembers();
  EXPECT_THAT(EndSections(2), ElementsAre(1, 0, 0, 0, 1));
}

TEST_F(SectionForces, TheFirstElementsBothEndsCountAsEndSections) {
  BuildMembers();
  EXPECT_THAT(EndSections(1), ElementsAre(1, 0, 0, 0, 1));
}

TEST_F(SectionForces, TheMiddleElementHasNoEndSection) {
  BuildMembers();
  EXPECT_THAT(EndSections(2), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(SectionForces, TheLastElementHasNoEndSectionBecauseItsStartIsInside) {
  BuildMembers();
  EXPECT_THAT(EndSections(3), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(SectionForces, AReversedLastElementHasTwoEndSections) {
  Reverse(3);
  BuildMembers();
  EXPECT_THAT(EndSections(3), ElementsAre(1, 0, 0, 0, 1));
}

TEST_F(SectionForces, AReversedFirstElementHasNoEndSection) {
  Reverse(1);
  BuildMembers();
  EXPECT_THAT(EndSections(1), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(SectionForces, AnElementWithoutMemberHasTwoEndSections) {
  EXPECT_THAT(EndSections(1), ElementsAre(1, 0, 0, 0, 1));
}

TEST_F(SectionForces, TheSeismicTypeOfEveryCombinationIsReadByItsNumber) {
  manager_.MakeBuffLcomb(Keys({3, kMinSide + 5U}));
  EXPECT_THAT(host_.log.events, ElementsAre("seismic type of 3 read", "seismic type of 5 read"));
}

TEST_F(SectionForces, BothSidesOfAnEnvelopeHaveItsSeismicType) {
  host_.model.seismic_types[5] = 1;
  BuildCombinations({5, kMinSide + 5U});
  EXPECT_EQ(manager_.GetSesiType(5), 1);
  EXPECT_EQ(manager_.GetSesiType(kMinSide + 5U), 1);
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(SectionForces, TheMinimumSideAloneHasItsSeismicTypeToo) {
  host_.model.seismic_types[5] = 1;
  BuildCombinations({kMinSide + 5U});
  EXPECT_EQ(manager_.GetSesiType(kMinSide + 5U), 1);
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(SectionForces, AKnownSeismicTypeIsNotAskedForAgain) {
  BuildCombinations({5});
  manager_.GetSesiType(5);
  EXPECT_THAT(host_.log.events, IsEmpty());
}

TEST_F(SectionForces, AnUnknownCombinationIsReportedAndAskedForInTheHost) {
  host_.model.seismic_types[6] = 1;
  BuildCombinations({5});
  EXPECT_EQ(manager_.GetSesiType(6), 1);
  EXPECT_THAT(host_.log.assertions, ElementsAre(AssertionAt(644)));
}

TEST_F(SectionForces, BuildingAgainForgetsTheCombinationsBefore) {
  BuildCombinations({5});
  BuildCombinations({6});
  manager_.GetSesiType(5);
  EXPECT_THAT(host_.log.assertions, ElementsAre(AssertionAt(644)));
}

}  // namespace
