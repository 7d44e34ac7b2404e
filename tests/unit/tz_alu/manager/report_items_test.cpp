// The checks of an element's report: which ones are printed, and with which forces.

#include <algorithm>
#include <array>
#include <limits>

#include "tests/unit/tz_alu/manager/report_test.h"

namespace {

using namespace manager_test;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// Forces with the same N, Fy, Fz, Mx, My, Mz at every position.
T_ALU_FORCE_D Everywhere(const std::array<float, 6>& values) {
  T_ALU_FORCE_D forces;
  for (auto& position : forces.aForce) std::copy(values.begin(), values.end(), position.begin());
  return forces;
}

class ReportedChecks : public ReportOfOneElement {
 protected:
  ReportedChecks() {
    // Pushed and bent: a state in which every check has something to print.
    host_.model.add_forces(1, 1, Everywhere({-10e3F, 1e3F, 2e3F, 0.0F, 1e6F, 5e5F}));
    host_.model.member_types[1] = 2;
  }
  std::vector<std::string> BlocksWith(const std::vector<GoverningCheck>& checks) {
    Store(1, checks);
    Report();
    std::vector<std::string> blocks = Blocks();
    EXPECT_GE(blocks.size(), 2U);
    return {blocks.begin() + 2, blocks.end()};
  }
};

struct ItemBlock {
  RALU_ITEM_TYPE type;
  const char* name;
  std::vector<std::string> blocks;
};

class ReportedItem : public ReportedChecks, public testing::WithParamInterface<ItemBlock> {};

TEST_P(ReportedItem, PrintsItsOwnBlockAlone) {
  EXPECT_EQ(BlocksWith({{GetParam().type}}), GetParam().blocks);
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryType, ReportedItem,
    testing::Values(ItemBlock{RALU_STRENGTH, "Strength", {"strength"}},
                    ItemBlock{RALU_SHEAR_Y, "ShearY", {"shear y"}},
                    ItemBlock{RALU_SHEAR_Z, "ShearZ", {"shear z"}},
                    ItemBlock{RALU_STABILITY, "Stability", {"stability y"}},
                    ItemBlock{RALU_COMBINED_STABILITY, "CombinedStability", {"stability z"}},
                    ItemBlock{RALU_UNUSED, "Unused", {}},
                    ItemBlock{RALU_SLENDERNESS_Y, "SlendernessY", {"slenderness"}},
                    ItemBlock{RALU_SLENDERNESS_Z, "SlendernessZ", {"slenderness"}}),
    [](const auto& item) { return std::string(item.param.name); });

TEST_F(ReportedChecks, AllItemsPrintTheirBlocksInTheOrderOfTheirTypes) {
  EXPECT_THAT(
      BlocksWith({{RALU_SLENDERNESS_Y},
                  {RALU_UNUSED},
                  {RALU_COMBINED_STABILITY},
                  {RALU_STABILITY},
                  {RALU_SHEAR_Z},
                  {RALU_SHEAR_Y},
                  {RALU_STRENGTH}}),
      ElementsAre("strength", "shear y", "shear z", "stability y", "stability z", "slenderness"));
}

// --- slenderness about y and z ---

// The block shows the larger of both axes that were checked, and each item checks its own axis, so
// the printed value tells the axis: 3000 / 33.634 = 89.195, with the pipe's radius of gyration
// √(100² + 90²) / 4, times the length factors 1 about y and 2 about z.
class ReportedSlenderness : public ReportedChecks {
 protected:
  ReportedSlenderness() { host_.model.own_length_factors[1] = {1.0, 2.0}; }
  std::vector<std::string> Printed(double ratioY, double ratioZ) {
    BlocksWith({{RALU_SLENDERNESS_Y, 0, 1, ratioY}, {RALU_SLENDERNESS_Z, 0, 1, ratioZ}});
    return LinesWith(file_.text(), "   kl/i=");
  }
};

TEST_F(ReportedSlenderness, OfTwoAxesTheYAxisIsPrintedWhenItGoverns) {
  EXPECT_THAT(Printed(0.9, 0.8), ElementsAre(HasSubstr("kl/i=    89.195")));
}

TEST_F(ReportedSlenderness, OfTwoAxesTheZAxisIsPrintedWhenItGoverns) {
  EXPECT_THAT(Printed(0.8, 0.9), ElementsAre(HasSubstr("kl/i=   178.391")));
}

TEST_F(ReportedSlenderness, OfTwoEqualAxesTheYAxisIsPrinted) {
  EXPECT_THAT(Printed(0.8, 0.8), ElementsAre(HasSubstr("kl/i=    89.195")));
}

TEST_F(ReportedSlenderness, AnAxisWithoutLimitGivesWayToTheOther) {
  // Without a limit the ratio is 0, so that the other one is larger.
  T_RALU_D record = RecordOf({{RALU_SLENDERNESS_Y}, {RALU_SLENDERNESS_Z, 0, 1, 0.1}});
  record.aComp[RALU_SLENDERNESS_Y].dCapacity = 0.0;
  ReportTest::Store(host_, 1, record);
  Report();
  EXPECT_THAT(LinesWith(file_.text(), "   kl/i="), ElementsAre(HasSubstr("178.391")));
}

TEST_F(ReportedSlenderness, AValueThatIsNoNumberIsNotHiddenByTheOtherAxis) {
  T_RALU_D record = RecordOf({{RALU_SLENDERNESS_Y, 0, 1, 5.0}, {RALU_SLENDERNESS_Z}});
  record.aComp[RALU_SLENDERNESS_Z].dDemand = std::numeric_limits<double>::quiet_NaN();
  ReportTest::Store(host_, 1, record);
  Report();
  EXPECT_THAT(LinesWith(file_.text(), "   kl/i="), ElementsAre(HasSubstr("178.391")));
}

// --- forces ---

/// Combination 2 is an envelope whose sides differ; every position has its own axial force.
class ReportedForces : public ReportOfOneElement {
 protected:
  ReportedForces() {
    host_.model.combinations = {1, MakeLcombKey(2, 0), MakeLcombKey(2, 1)};
    float newtons = 1e3F;
    for (const T_LCOM_MAXMIN_K key : host_.model.combinations) {
      T_ALU_FORCE_D forces;
      forces.bInner = 1;
      for (auto& position : forces.aForce) {
        position[ALU_FORCE_N] = newtons;
        newtons += 1e3F;
      }
      host_.model.add_forces(1, key, forces);
    }
  }
  std::vector<std::string> LinesOfStrength(int pos, T_LCOM_MAXMIN_K key) {
    Store(1, {{RALU_STRENGTH, pos, key}});
    Report();
    std::vector<std::string> lines = LinesWith(file_.text(), "   (LCB=");
    for (std::string& line : LinesWith(file_.text(), "   N=")) lines.push_back(std::move(line));
    return lines;
  }
};

TEST_F(ReportedForces, AreThoseOfTheGoverningPosition) {
  // 1 kN at the start and 1 kN more at every further position.
  EXPECT_THAT(LinesOfStrength(0, 1), ElementsAre("   (LCB=1, POS=I)", "   N=     1.000"));
  EXPECT_THAT(LinesOfStrength(2, 1), ElementsAre("   (LCB=1, POS=1/2)", "   N=     3.000"));
  EXPECT_THAT(LinesOfStrength(4, 1), ElementsAre("   (LCB=1, POS=J)", "   N=     5.000"));
}

TEST_F(ReportedForces, AreThoseOfTheGoverningCombination) {
  EXPECT_THAT(LinesOfStrength(0, 2), ElementsAre("   (LCB=2, POS=I)", "   N=     6.000"));
}

TEST_F(ReportedForces, AreThoseOfTheMinimumSideWhenItGoverns) {
  EXPECT_THAT(LinesOfStrength(0, MakeLcombKey(2, 1)),
              ElementsAre("   (LCB=2, POS=I)", "   N=    11.000"));
}

TEST_F(ReportedForces, OfEachCheckAreThoseOfItsOwnCombinationAndPosition) {
  Store(1,
        {{RALU_STRENGTH, 0, 1}, {RALU_SHEAR_Y, 3, MakeLcombKey(2, 1)}, {RALU_SLENDERNESS_Y, 4, 2}});
  host_.log.force_reads.clear();
  host_.model.member_types[1] = 2;
  Report();
  EXPECT_THAT(LinesWith(file_.text(), "   (LCB="),
              ElementsAre("   (LCB=1, POS=I)", "   (LCB=2, POS=3/4)"));
  EXPECT_THAT(host_.log.force_reads,
              ElementsAre(test_support::ForceKey{1, 1, false}, test_support::ForceKey{1, 2, true},
                          test_support::ForceKey{1, 2, false}));
}

TEST_F(ReportedForces, ThatTheHostHasNotLeaveTheirCheckOut) {
  host_.model.forces.erase({1U, 2U, true});
  Store(1, {{RALU_STRENGTH, 0, MakeLcombKey(2, 1)}, {RALU_SLENDERNESS_Y, 0, 1}});
  EXPECT_EQ(Report(), 1);
  EXPECT_THAT(Blocks(), ElementsAre("header", "member 1", "slenderness"));
}

TEST_F(ReportedForces, OfASeismicCombinationBringItsFactor) {
  // 0.75 · 6000 N over 0.85 · A, A = π(50² − 45²), over f = 200 N/mm² of 6061-T6: 0.018; without
  // seismic combination γ0 = 1 gives 0.024.
  host_.model.settings = T_DALU_D();
  host_.model.settings->bSeismic = 1;
  host_.model.seismic_types[2] = 1;
  LinesOfStrength(0, 2);
  EXPECT_THAT(LinesWith(file_.text(), "   Rmax1="), ElementsAre(HasSubstr("=     0.018<")));
  host_.model.seismic_types.clear();
  LinesOfStrength(0, 2);
  EXPECT_THAT(LinesWith(file_.text(), "   Rmax1="), ElementsAre(HasSubstr("=     0.024<")));
}

// --- the ends of the member ---

// The factor of end moments is 0.6 + 0.4·M2/M1 (GB 50429-2007, equivalent moments).
class ReportedEndMoments : public ReportedChecks {
 protected:
  std::vector<std::string> FactorsFor(float start, float end) {
    T_ALU_FORCE_D forces = Everywhere({-10e3F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F});
    for (auto& position : forces.aForce) position[ALU_FORCE_MY] = 1e6F;
    forces.aForce[0][ALU_FORCE_MY] = start;
    forces.aForce[4][ALU_FORCE_MY] = end;
    host_.model.add_forces(1, 1, forces);
    host_.model.moment_factors[1] = {};
    BlocksWith({{RALU_STABILITY, 2}});
    return LinesWith(file_.text(), "   Beta_my=");
  }
};

TEST_F(ReportedEndMoments, OfOneSizeAndSignGiveTheFactorOne) {
  EXPECT_THAT(FactorsFor(1e6F, 1e6F), ElementsAre(HasSubstr("Beta_my=     1.000")));
}

TEST_F(ReportedEndMoments, OfOppositeSignsGiveASmallFactor) {
  EXPECT_THAT(FactorsFor(1e6F, -1e6F), ElementsAre(HasSubstr("Beta_my=     0.200")));
}

// Elements 1 and 3 begin and end their member, element 2 lies between. The critical moment of a
// beam whose flanges differ depends on whether the position is an end of the member.
class ReportedEndSections : public ReportOfThreeElements {
 protected:
  ReportedEndSections() {
    T_SECT_DESIGN_D& sect = host_.model.sections[1];
    sect.strShape = L"H";
    sect.aSize = {200.0, 150.0, 8.0, 12.0, 80.0, 8.0, 0.0, 0.0};
    sect.dArea = 3880.0;
    sect.dIyy = 2.5e7;
    sect.dIzz = 3.7e6;
    sect.dIxx = 1.3e5;
    sect.aPtY = {-75.0, 75.0, 40.0, -40.0};
    sect.aPtZ = {80.0, 80.0, -120.0, -120.0};
    host_.model.warping = {1e10, 40.0, 0.0};
    for (const UINT elem : {1U, 2U, 3U}) {
      host_.model.member_types[elem] = 2;
      host_.model.add_forces(elem, 1, Everywhere({0.0F, 0.0F, 0.0F, 0.0F, 1e6F, 0.0F}));
    }
  }
  std::vector<std::string> Coefficients(int pos1, int pos2, int pos3) {
    Store(1, {{RALU_STABILITY, pos1}});
    Store(2, {{RALU_STABILITY, pos2}});
    Store(3, {{RALU_STABILITY, pos3}});
    Report();
    return LinesWith(file_.text(), "   Phi_b=");
  }
};

TEST_F(ReportedEndSections, ACheckAtAnEndOfTheMemberDiffersFromOneBetween) {
  const auto lines = Coefficients(0, 0, 2);
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_NE(lines[0], lines[1]);
  EXPECT_EQ(lines[1], lines[2]);
}

TEST_F(ReportedEndSections, AnInnerPositionOfTheFirstElementIsNoEndOfTheMember) {
  const auto lines = Coefficients(2, 0, 0);
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0], lines[1]);
}

// The start node decides at both ends, so the last element counts when it runs backwards.
TEST_F(ReportedEndSections, AnElementThatRunsBackwardsFromTheMembersEndAgreesWithTheFirst) {
  std::swap(host_.model.elements[3].aNode[0], host_.model.elements[3].aNode[1]);
  const auto lines = Coefficients(0, 2, 4);
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0], lines[2]);
  EXPECT_NE(lines[0], lines[1]);
}

}  // namespace
