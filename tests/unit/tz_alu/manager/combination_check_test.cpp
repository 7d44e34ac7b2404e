// One element and one combination: which positions are checked and what the record says.

#include <gmock/gmock.h>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using testing::ElementsAre;

class CombinationCheck : public ManagerTest {
 protected:
  CombinationCheck() : ManagerTest(test_support::one_element_model()) {}

  int Check(T_LCOM_MAXMIN_K key) {
    Build({1});
    ALU_DGN_DATA data;
    EXPECT_EQ(manager_.GetDgnData(1, data), 1);
    return manager_.CheckCode(1, key, data, result_);
  }

  /// Positions whose strength was checked.
  std::vector<int> CheckedPositions() const {
    std::vector<int> positions;
    for (int pos = 0; pos < kCheckPositions; ++pos) {
      const T_RALU_RLT& item = result_.aSect[static_cast<std::size_t>(pos)].aItem[RALU_STRENGTH];
      if (!RaluIsEmpty(item.dDemand, item.dCapacity)) positions.push_back(pos);
    }
    return positions;
  }

  T_RALU_D result_;
};

TEST_F(CombinationCheck, WithoutInnerForcesOnlyTheEndsAreChecked) {
  EXPECT_EQ(Check(1), 1);
  EXPECT_THAT(CheckedPositions(), ElementsAre(0, 4));
}

TEST_F(CombinationCheck, WithInnerForcesAllFivePositionsAreChecked) {
  host_.model.forces[{1U, 1U, false}].bInner = 8;
  EXPECT_EQ(Check(1), 1);
  EXPECT_THAT(CheckedPositions(), ElementsAre(0, 1, 2, 3, 4));
}

TEST_F(CombinationCheck, TheRecordHasAResultAndTheMemberType) {
  host_.model.member_types[1] = 5;
  Check(1);
  EXPECT_EQ(result_.nHasResult, 1);
  EXPECT_EQ(result_.nMembType, 5);
}

TEST_F(CombinationCheck, TheGoverningPositionIsFound) {
  host_.model.forces[{1U, 1U, false}].aForce[4][ALU_FORCE_N] = 30e3F;
  Check(1);
  EXPECT_EQ(result_.aComp[RALU_STRENGTH].nPos, 4);
}

TEST_F(CombinationCheck, TheGoverningItemsCarryNumberAndSideOfTheCombination) {
  const T_LCOM_MAXMIN_K key = 134217728U + 6U;  // bit 27 and combination 6
  host_.model.combinations = {key};
  host_.model.add_forces(1, key, host_.model.forces[{1U, 1U, false}]);
  EXPECT_EQ(Check(key), 1);
  EXPECT_EQ(result_.nLComb, 6U);
  EXPECT_EQ(result_.nMinSide, 1);
  EXPECT_EQ(result_.aComp[RALU_STRENGTH].nLComb, 6U);
  EXPECT_EQ(result_.aComp[RALU_STRENGTH].nMinSide, 1);
}

TEST_F(CombinationCheck, TheForcesOfTheMembersEndElementsAreReadForItsEndMoments) {
  host_.model = test_support::three_element_model();
  Build({2});
  ALU_DGN_DATA data;
  ASSERT_EQ(manager_.GetDgnData(2, data), 1);
  manager_.CheckCode(2, 1, data, result_);
  EXPECT_THAT(host_.log.force_reads,
              ElementsAre(test_support::ForceKey{2, 1, false}, test_support::ForceKey{1, 1, false},
                          test_support::ForceKey{3, 1, false}));
}

TEST_F(CombinationCheck, WithoutForcesTheRecordIsEmpty) {
  result_.nHasResult = 5;
  EXPECT_EQ(Check(77), 0);
  EXPECT_EQ(result_.nHasResult, 0);
}

TEST_F(CombinationCheck, ASeismicCombinationReachesTheEngine) {
  T_DALU_D settings;
  settings.bSeismic = 1;
  host_.model.settings = settings;
  Check(1);
  const double still = result_.aComp[RALU_STRENGTH].dDemand;
  host_.model.seismic_types[1] = 1;
  Check(1);
  // γRE = 0.75 instead of γ0 = 1.
  EXPECT_DOUBLE_EQ(result_.aComp[RALU_STRENGTH].dDemand, 0.75 * still);
}

}  // namespace
