// Items without a check say why: docs/checks.md, "Which check runs where".

#include <gmock/gmock.h>

#include "aluframe/explain/explain.h"
#include "aluframe/points/point_reader.h"
#include "tests/unit/aluframe/explain/worked_examples.h"

namespace aluframe::explain {
namespace {

using testing::HasSubstr;

class ExplainNotChecked : public testing::Test {
 protected:
  ExplainNotChecked() {
    // The H column of 6061-T6.
    point_ = std::get<points::Point>(points::read_point(worked_examples().front().point));
    act(0.0, 0.0, 0.0);
  }

  void act(double N, double My, double Mz) {
    point_.force.dForce[ALU_FORCE_N] = N;
    point_.force.dForce[ALU_FORCE_MY] = My;
    point_.force.dForce[ALU_FORCE_MZ] = Mz;
  }

  /// "checked", or why it is not.
  std::string outcome(int item) const {
    const Outcome found = explain_item(point_.data, point_.force, item, {});
    const auto* none = std::get_if<NotChecked>(&found);
    return none == nullptr ? "checked" : none->why;
  }

  points::Point point_;
};

TEST_F(ExplainNotChecked, NothingActs) {
  EXPECT_THAT(outcome(RALU_STRENGTH), HasSubstr("there is no normal stress"));
  EXPECT_THAT(outcome(RALU_SHEAR_Z), HasSubstr("no axial force and no moment: shear is checked"));
  EXPECT_THAT(outcome(RALU_STABILITY), HasSubstr("there is no stability check"));
  EXPECT_THAT(outcome(RALU_COMBINED_STABILITY), HasSubstr("is of compression with bending"));
  EXPECT_EQ(outcome(RALU_SLENDERNESS_Y), "checked") << "without a limit";
}

TEST_F(ExplainNotChecked, AxialForceAlone) {
  act(1e4, 0.0, 0.0);
  EXPECT_EQ(outcome(RALU_STRENGTH), "checked");
  EXPECT_THAT(outcome(RALU_STABILITY), HasSubstr("tension alone: there is no stability check"));
  act(-1e4, 0.0, 0.0);
  EXPECT_EQ(outcome(RALU_STABILITY), "checked");
  EXPECT_THAT(outcome(RALU_SHEAR_Y), HasSubstr("compression alone: shear is checked"));
}

TEST_F(ExplainNotChecked, TensionWithBending) {
  act(1e4, 1e6, 0.0);
  EXPECT_EQ(outcome(RALU_STRENGTH), "checked");
  EXPECT_THAT(outcome(RALU_STABILITY), HasSubstr("tension with bending: there is no stability"));
  EXPECT_THAT(outcome(RALU_SHEAR_Z), HasSubstr("tension with bending: shear is checked"));
  point_.data.nMembType = ALU_MEMBER_BEAM;
  EXPECT_EQ(outcome(RALU_SHEAR_Z), "checked");
}

TEST_F(ExplainNotChecked, SwitchedOff) {
  act(-1e4, 1e6, 0.0);
  point_.data.nCheckFlag[RALU_STABILITY] = 0;
  EXPECT_EQ(outcome(RALU_STABILITY), "the check is switched off");
  EXPECT_EQ(outcome(RALU_COMBINED_STABILITY), "checked");
  point_.data.code.para.dLimitTension = -1.0;
  EXPECT_EQ(outcome(RALU_SLENDERNESS_Z), "slenderness is switched off for the element");
}

TEST_F(ExplainNotChecked, NothingIsLeftOfTheSection) {
  act(-1e4, 0.0, 0.0);
  point_.data.code.sect.dPtZ[0] = 0.0;
  EXPECT_THAT(outcome(RALU_STRENGTH), HasSubstr("nothing is left of the section"));
}

}  // namespace
}  // namespace aluframe::explain
