// What holds a member: at its ends and between them.

#include <gmock/gmock.h>

#include <array>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;

struct SUPPORT_CASE {
  std::array<int, 6> aRestraint;  // R1..R6
  int nCodeY;
  int nCodeZ;
};

class NodeSupport : public ManagerTest, public testing::WithParamInterface<SUPPORT_CASE> {
 protected:
  NodeSupport() : ManagerTest(test_support::one_element_model()) {}
};

TEST_P(NodeSupport, ItsRestraintsGiveTheEndConditions) {
  host_.model.supports[1] = {GetParam().aRestraint};
  int codeY = -1;
  int codeZ = -1;
  EXPECT_EQ(manager_.GetSupport(1, nullptr, &codeY, &codeZ), 1);
  EXPECT_EQ(codeY, GetParam().nCodeY);
  EXPECT_EQ(codeZ, GetParam().nCodeZ);
}

// About y: (R1 or R2) holds, R5 keeps it from turning. About z: (R1 or R3) and R6.
INSTANTIATE_TEST_SUITE_P(
    Restraints, NodeSupport,
    testing::Values(SUPPORT_CASE{{0, 0, 0, 0, 0, 0}, 2, 2}, SUPPORT_CASE{{1, 0, 0, 0, 0, 0}, 1, 1},
                    SUPPORT_CASE{{0, 1, 0, 0, 0, 0}, 1, 2}, SUPPORT_CASE{{0, 0, 1, 0, 0, 0}, 2, 1},
                    SUPPORT_CASE{{1, 0, 0, 0, 1, 0}, 0, 1}, SUPPORT_CASE{{1, 0, 0, 0, 0, 1}, 1, 0},
                    SUPPORT_CASE{{0, 1, 0, 0, 1, 1}, 0, 2}, SUPPORT_CASE{{0, 0, 1, 0, 1, 1}, 2, 0},
                    SUPPORT_CASE{{0, 0, 0, 1, 1, 1}, 2, 2}, SUPPORT_CASE{{1, 1, 1, 1, 0, 0}, 1, 1},
                    SUPPORT_CASE{{1, 1, 1, 1, 1, 1}, 0, 0}));

class MidSupport : public ManagerTest {
 protected:
  MidSupport() : ManagerTest(test_support::three_element_model()) {}

  static constexpr UINT kOther = 9;

  /// Lets an element from `node` of the member to a point meet it.
  void Connect(UINT node, double x, double y, int type) {
    host_.model.add_node(100, x, y, 0.0);
    host_.model.add_element(kOther, node, 100);
    host_.model.member_types_of_scheme_1[kOther] = type;
  }
  int IsHeld() {
    EXPECT_EQ(manager_.MakeBuffMemb(Keys({1})), 1);
    return manager_.GetMembInfo(1)->bMidSupport;
  }
};

constexpr int kBeam = 1;
constexpr int kColumn = 2;
constexpr int kBrace = 4;

TEST_F(MidSupport, AMemberThatNothingMeetsIsNotHeld) {
  EXPECT_EQ(IsHeld(), 0);
}

TEST_F(MidSupport, ABraceAtAnInnerNodeHoldsTheMember) {
  Connect(2, 1000.0, 800.0, kBrace);
  EXPECT_EQ(IsHeld(), 1);
}

TEST_F(MidSupport, ABeamAtAnInnerNodeHoldsTheMember) {
  Connect(3, 2000.0, 800.0, kBeam);
  EXPECT_EQ(IsHeld(), 1);
}

TEST_F(MidSupport, ABraceAlongTheMemberHoldsItToo) {
  Connect(2, 1500.0, 0.0, kBrace);
  EXPECT_EQ(IsHeld(), 1);
}

TEST_F(MidSupport, ABraceAtAnEndNodeDoesNotHoldTheMember) {
  Connect(1, 0.0, 800.0, kBrace);
  EXPECT_EQ(IsHeld(), 0);
}

TEST_F(MidSupport, AnyOtherFrameElementOffTheLineHoldsTheMember) {
  Connect(2, 1000.0, 800.0, kColumn);
  EXPECT_EQ(IsHeld(), 1);
}

TEST_F(MidSupport, ACollinearContinuationDoesNotHoldTheMember) {
  Connect(2, 1500.0, 0.0, kColumn);
  EXPECT_EQ(IsHeld(), 0);
}

TEST_F(MidSupport, AThousandthOffTheLineDoesNotHoldTheMember) {
  Connect(2, 1500.0, 0.001, kColumn);
  EXPECT_EQ(IsHeld(), 0);
}

TEST_F(MidSupport, MoreThanAThousandthOffTheLineHoldsTheMember) {
  Connect(2, 1500.0, 0.00101, kColumn);
  EXPECT_EQ(IsHeld(), 1);
}

TEST_F(MidSupport, AnElementThatStartsOffTheLineAndEndsAtTheMemberHoldsIt) {
  Connect(2, 1000.0, 800.0, kColumn);
  std::swap(host_.model.elements[kOther].aNode[0], host_.model.elements[kOther].aNode[1]);
  EXPECT_EQ(IsHeld(), 1);
}

TEST_F(MidSupport, AnElementThatIsNeitherBeamNorTrussDoesNotHoldTheMember) {
  Connect(2, 1000.0, 800.0, kColumn);
  host_.model.not_frame_type = {kOther};
  EXPECT_EQ(IsHeld(), 0);
}

TEST_F(MidSupport, AnElementWhoseNodeCannotBeReadDoesNotHoldTheMember) {
  Connect(2, 1000.0, 800.0, kColumn);
  host_.model.nodes.erase(100);
  EXPECT_EQ(IsHeld(), 0);
}

TEST_F(MidSupport, ElementsOfTheMemberItselfDoNotHoldIt) {
  host_.model.member_types_of_scheme_1 = {{1, kBeam}, {2, kBeam}, {3, kBeam}};
  EXPECT_EQ(IsHeld(), 0);
}

TEST_F(MidSupport, AMemberOfOneElementIsNotHeld) {
  host_.model.members.clear();
  Connect(2, 1000.0, 800.0, kBrace);
  EXPECT_EQ(IsHeld(), 0);
}

TEST_F(MidSupport, AMemberWhoseEndNodeIsMissingIsNotHeld) {
  Connect(2, 1000.0, 800.0, kBrace);
  host_.model.nodes.erase(4);
  EXPECT_EQ(IsHeld(), 0);
}

}  // namespace
