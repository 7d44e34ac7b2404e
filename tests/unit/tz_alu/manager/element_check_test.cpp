// One element over all combinations: what is stored and what governs.

#include <gmock/gmock.h>

#include <numbers>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr UINT kMinSideOf2 = 134217728U + 2U;  // bit 27 and combination 2

class ElementCheck : public ManagerTest {
 protected:
  ElementCheck() : ManagerTest(test_support::one_element_model()) {}

  /// Adds a combination with a constant pull along the element.
  void AddPull(T_LCOM_MAXMIN_K key, float pull) {
    host_.model.combinations.push_back(key);
    T_ALU_FORCE_D forces;
    for (auto& position : forces.aForce) position[ALU_FORCE_N] = pull;
    host_.model.add_forces(1, key, forces);
  }

  /// Checks element 1 for the host's combinations.
  int Check() {
    Build({1});
    host_.log = {};
    CArrayEx<T_LCOM_MAXMIN_K> lcombs;
    manager_.GetDgnLCombs(lcombs);
    return manager_.CheckCode(1, lcombs, governing_);
  }

  T_RALU_D governing_;
};

TEST_F(ElementCheck, EveryCombinationIsStoredAndThenTheGoverningRecord) {
  AddPull(2, 20e3F);
  EXPECT_EQ(Check(), 1);
  EXPECT_THAT(host_.log.events, ElementsAre("written 1/1/0", "written 1/2/0", "written 1/0/0"));
  for (const auto& written : host_.log.written) EXPECT_EQ(written.option, 0);
}

TEST_F(ElementCheck, TheSideOfAnEnvelopeIsStoredApartFromItsNumber) {
  AddPull(2, 20e3F);
  AddPull(kMinSideOf2, 15e3F);
  Check();
  EXPECT_THAT(host_.log.events,
              ElementsAre("written 1/1/0", "written 1/2/0", "written 1/2/1", "written 1/0/0"));
}

TEST_F(ElementCheck, TheRecordOfACombinationCarriesItsKey) {
  AddPull(kMinSideOf2, 15e3F);
  Check();
  ASSERT_EQ(host_.log.written.size(), 3U);
  EXPECT_EQ(host_.log.written[1].record.nLComb, 2U);
  EXPECT_EQ(host_.log.written[1].record.nMinSide, 1);
}

TEST_F(ElementCheck, TheGoverningRecordTakesTheWorstCombination) {
  AddPull(2, 20e3F);
  AddPull(3, 15e3F);
  Check();
  const T_RALU_ITEM& strength = governing_.aComp[RALU_STRENGTH];
  EXPECT_EQ(strength.nLComb, 2U);
  // 20 kN over 0.85·A with A = π(100² − 90²)/4: the pipe is neither welded nor slender in tension.
  const double Aen = 0.85 * std::numbers::pi * (100.0 * 100.0 - 90.0 * 90.0) / 4.0;
  EXPECT_NEAR(strength.dDemand, 20e3 / Aen, 1e-12 * 20e3 / Aen);
  EXPECT_EQ(strength.dCapacity, 200.0);  // f of 6061-T6
}

TEST_F(ElementCheck, TheStoredGoverningRecordIsTheOneHandedBack) {
  AddPull(2, 20e3F);
  Check();
  const T_RALU_D& stored = host_.log.written.back().record;
  EXPECT_EQ(stored.nHasResult, 1);
  EXPECT_EQ(stored.aComp[RALU_STRENGTH].nLComb, governing_.aComp[RALU_STRENGTH].nLComb);
  EXPECT_EQ(stored.aComp[RALU_STRENGTH].dDemand, governing_.aComp[RALU_STRENGTH].dDemand);
}

TEST_F(ElementCheck, ACombinationWithoutForcesIsSkipped) {
  host_.model.combinations = {5, 1};
  Check();
  EXPECT_THAT(host_.log.events, ElementsAre("written 1/1/0", "written 1/0/0"));
  EXPECT_EQ(governing_.nHasResult, 1);
}

TEST_F(ElementCheck, WithoutAnyForcesAGoverningRecordWithoutResultIsStored) {
  host_.model.forces.clear();
  EXPECT_EQ(Check(), 1);
  ASSERT_THAT(host_.log.events, ElementsAre("written 1/0/0"));
  EXPECT_EQ(host_.log.written[0].record.nHasResult, 0);
  EXPECT_EQ(governing_.nHasResult, 0);
}

TEST_F(ElementCheck, WithoutDesignDataNothingIsStored) {
  host_.model.elements[1].nSect = 99;
  governing_.nHasResult = 5;
  EXPECT_EQ(Check(), 0);
  EXPECT_THAT(host_.log.written, IsEmpty());
  EXPECT_EQ(governing_.nHasResult, 0);
}

}  // namespace
