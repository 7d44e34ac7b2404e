// Moments at the ends of a member. Under combination 1 element e has My = 10·e + p at position p
// and Mz a hundred times that.

#include <gmock/gmock.h>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using testing::Contains;

constexpr UINT kMinSide = 134217728U;  // bit 27

class EndForces : public ManagerTest {
 protected:
  EndForces() : ManagerTest(test_support::three_element_model()) {}

  void Reverse(UINT elem) {
    auto& nodes = host_.model.elements[elem].aNode;
    std::swap(nodes[0], nodes[1]);
  }
  const T_ALU_FORCE_D& ForcesOf(UINT elem) { return host_.model.forces[{elem, 1U, false}]; }

  /// End moments of the member of an element for combination 1.
  AluDgnEndForce EndsOf(UINT elem) {
    manager_.MakeBuffMemb(Keys({elem}));
    AluDgnEndForce out;
    const AluDgnEndForce& returned = manager_.GetDgnEndForce(out, elem, 1, ForcesOf(elem));
    EXPECT_EQ(&returned, &out);
    return out;
  }
  static void ExpectMoments(const AluDgnEndForce& end, double myI, double myJ) {
    EXPECT_EQ(end.dMyI, myI);
    EXPECT_EQ(end.dMyJ, myJ);
    EXPECT_EQ(end.dMzI, 100.0 * myI);
    EXPECT_EQ(end.dMzJ, 100.0 * myJ);
  }
};

TEST_F(EndForces, TheyAreThoseOfTheFirstAndTheLastElement) {
  for (const UINT elem : {1U, 2U, 3U}) ExpectMoments(EndsOf(elem), 10, 34);
}

TEST_F(EndForces, AMemberOfTwoElementsHasThoseOfBoth) {
  host_.model.members[7] = {1, 2};
  for (const UINT elem : {1U, 2U}) ExpectMoments(EndsOf(elem), 10, 24);
}

TEST_F(EndForces, AReversedFirstElementSuppliesItsEndMoments) {
  Reverse(1);
  ExpectMoments(EndsOf(2), 14, 34);
}

TEST_F(EndForces, AReversedLastElementSuppliesItsStartMoments) {
  Reverse(3);
  ExpectMoments(EndsOf(2), 10, 30);
}

TEST_F(EndForces, TheElementsOwnForcesAreNotReadAgain) {
  manager_.MakeBuffMemb(Keys({1}));
  T_ALU_FORCE_D own = ForcesOf(1);
  own.aForce[0][ALU_FORCE_MY] = 77.0F;
  AluDgnEndForce out;
  manager_.GetDgnEndForce(out, 1, 1, own);
  EXPECT_EQ(out.dMyI, 77.0);
}

TEST_F(EndForces, TheOtherElementsForcesAreThoseOfTheSameSide) {
  T_ALU_FORCE_D min;
  min.aForce[0][ALU_FORCE_MY] = -5.0F;
  host_.model.add_forces(1, kMinSide + 1U, min);
  manager_.MakeBuffMemb(Keys({2}));
  AluDgnEndForce out;
  manager_.GetDgnEndForce(out, 2, kMinSide + 1U, ForcesOf(2));
  EXPECT_EQ(out.dMyI, -5.0);
}

TEST_F(EndForces, ForcesThatTheHostHasNotCountAsZero) {
  host_.model.forces.erase({1U, 1U, false});
  ExpectMoments(EndsOf(2), 0, 34);
}

TEST_F(EndForces, AMemberOfOneElementHasItsOwnEndMoments) {
  host_.model.members.clear();
  ExpectMoments(EndsOf(2), 20, 24);
}

TEST_F(EndForces, AnElementWithoutMemberIsItsOwnAndIsReported) {
  AluDgnEndForce out;
  manager_.GetDgnEndForce(out, 2, 1, ForcesOf(2));
  ExpectMoments(out, 20, 24);
  EXPECT_THAT(host_.log.assertions, Contains(AssertionAt(836)));
}

TEST_F(EndForces, EarlierValuesAreForgotten) {
  host_.model.forces.erase({1U, 1U, false});
  manager_.MakeBuffMemb(Keys({2}));
  AluDgnEndForce out;
  out.dMyI = 99.0;
  manager_.GetDgnEndForce(out, 2, 1, ForcesOf(2));
  EXPECT_EQ(out.dMyI, 0.0);
}

}  // namespace
