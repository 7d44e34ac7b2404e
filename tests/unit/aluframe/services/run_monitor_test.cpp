// Why elements, combinations and positions were not checked.

#include "aluframe/services/run_monitor.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

#include "aluframe/model/envelopes.h"
#include "aluframe/services/plain_capacity.h"
#include "tests/unit/aluframe/services/monitor_records.h"
#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

class RunMonitorTest : public testing::Test {
 protected:
  RunMonitorTest() { monitor_.set_elements({4, 1}); }

  std::string only_reason() const {
    EXPECT_EQ(monitor_.not_checked().size(), 1U);
    return monitor_.not_checked().empty() ? "" : monitor_.not_checked().front().reason;
  }

  const model::Model model_ = sample_model();
  RunMonitor monitor_{model_};
};

TEST_F(RunMonitorTest, AnElementWithoutAnyForcesIsNotChecked) {
  monitor_.note_missing_forces(4, 1, 2);
  monitor_.note_record(4, 0, {});
  monitor_.set_done(1);
  EXPECT_EQ(only_reason(), "no forces (none for load case 2) in any combination");
  EXPECT_FALSE(monitor_.not_checked().front().combination.has_value());
  EXPECT_EQ(monitor_.checked_elements(), 0U);
}

TEST_F(RunMonitorTest, ForcesMissingInOneCombinationAreListedWithIt) {
  monitor_.note_forces(4, forces_with(1.0F));
  monitor_.note_record(4, 1, record_with(50, 100));
  monitor_.note_missing_forces(4, 2, 3);
  monitor_.note_record(4, 0, record_with(50, 100));
  monitor_.set_done(1);
  EXPECT_EQ(only_reason(), "no forces (none for load case 3)");
  EXPECT_EQ(monitor_.not_checked().front().combination, 2U);
  EXPECT_EQ(monitor_.checked_elements(), 1U);
}

TEST_F(RunMonitorTest, MissingForcesAtTheEndOfTheMemberAreListedWithTheElementBeingChecked) {
  monitor_.note_forces(4, forces_with(1.0F));
  monitor_.note_missing_forces(3, 1, 1);
  monitor_.note_record(4, 0, record_with(50, 100));
  EXPECT_EQ(monitor_.not_checked().front().element, 4U);
  EXPECT_NE(only_reason().find("element 3"), std::string::npos);
}

TEST_F(RunMonitorTest, AnElementThatNoCombinationAsksForHasNoForces) {
  monitor_.note_record(4, 0, {});
  EXPECT_EQ(only_reason(), "no forces in any combination");
}

TEST_F(RunMonitorTest, ForcesMissingForAnUnnamedReasonNameNoCase) {
  monitor_.note_missing_forces(4, 1, std::nullopt);
  monitor_.note_record(4, 0, {});
  EXPECT_EQ(only_reason(), "no forces in any combination");
}

TEST_F(RunMonitorTest, WhatIsMissingForOneElementIsNotToldOfTheNext) {
  monitor_.note_missing_forces(4, 1, 2);
  monitor_.note_record(4, 0, {});
  monitor_.set_done(1);
  monitor_.note_forces(1, forces_with(1.0F));
  monitor_.note_record(1, 1, record_with(50, 100));
  monitor_.note_record(1, 0, record_with(50, 100));
  monitor_.set_done(2);
  ASSERT_EQ(monitor_.not_checked().size(), 1U);
  EXPECT_EQ(monitor_.not_checked()[0].element, 4U);
}

TEST_F(RunMonitorTest, ForcesAskedForAfterTheLastElementAreNobodys) {
  monitor_.note_record(4, 0, record_with(50, 100));
  monitor_.set_done(1);
  monitor_.note_record(1, 0, record_with(50, 100));
  monitor_.set_done(2);
  monitor_.note_missing_forces(4, 1, 2);
  monitor_.note_forces(4, forces_with(1.0F));
  EXPECT_TRUE(monitor_.not_checked().empty());
}

// The forces of the member's other end are no forces of the element being checked.
TEST_F(RunMonitorTest, ForcesOfAnotherElementDoNotCountAsItsOwn) {
  monitor_.note_forces(3, forces_with(1.0F));
  monitor_.note_record(4, 0, {});
  EXPECT_EQ(only_reason(), "no forces in any combination");
}

TEST_F(RunMonitorTest, AShapeThatTheChecksDoNotCoverIsNamedWithItsSection) {
  monitor_.note_forces(4, forces_with(1.0F));
  monitor_.note_record(4, 0, {});
  EXPECT_EQ(only_reason(),
            "the checks do not cover the shape of section 3: no check was made, judge it by hand");
}

TEST_F(RunMonitorTest, AKnownShapeWithoutResultHasNoSectionParameters) {
  monitor_.set_elements({1});
  monitor_.note_forces(1, forces_with(1.0F));
  monitor_.note_record(1, 0, {});
  EXPECT_EQ(only_reason().find("no section parameters could be formed"), 0U);
}

TEST_F(RunMonitorTest, APositionWithForcesButWithoutResultIsListedWithItsCombination) {
  monitor_.note_forces(4, forces_with(1.0F));
  T_RALU_D record = record_with(50, 100);
  record.aSect[4].Initial();
  monitor_.note_record(4, 6, record);
  monitor_.note_record(4, 0, record_with(50, 100));
  EXPECT_EQ(only_reason(), "no section parameters could be formed at position J");
  EXPECT_EQ(monitor_.not_checked().front().combination, 6U);
}

TEST_F(RunMonitorTest, AllPositionsWithoutResultAreNamed) {
  T_ALU_FORCE_D forces = forces_with(1.0F);
  forces.bInner = 1;
  monitor_.note_forces(4, forces);
  T_RALU_D record = record_with(50, 100);
  record.aSect[0].Initial();
  monitor_.note_record(4, 6, record);
  monitor_.note_record(4, 0, record_with(50, 100));
  EXPECT_EQ(only_reason(), "no section parameters could be formed at position I, 1/4, 1/2, 3/4");
}

TEST_F(RunMonitorTest, AnEndWithoutForcesNeedsNoResult) {
  T_ALU_FORCE_D forces = forces_with(1.0F);
  forces.aForce[4][0] = 0.0F;
  monitor_.note_forces(4, forces);
  T_RALU_D record = record_with(50, 100);
  record.aSect[4].Initial();
  monitor_.note_record(4, 6, record);
  monitor_.note_record(4, 0, record_with(50, 100));
  EXPECT_TRUE(monitor_.not_checked().empty());
}

TEST_F(RunMonitorTest, BendingAloneCallsForAResult) {
  for (const std::size_t moment : {4U, 5U}) {
    monitor_.set_elements({1});
    T_ALU_FORCE_D forces;
    forces.aForce[0][moment] = -1.0F;
    monitor_.note_forces(1, forces);
    monitor_.note_record(1, 0, {});
    EXPECT_EQ(monitor_.not_checked().back().reason.find("no section parameters"), 0U) << moment;
  }
}

TEST_F(RunMonitorTest, ShearInEitherDirectionIsListed) {
  for (const std::size_t shear : {1U, 2U}) {  // Fy, Fz
    RunMonitor monitor(model_);
    monitor.set_elements({4});
    T_ALU_FORCE_D forces = forces_with(1.0F);
    forces.aForce[0][shear] = 5.0F;
    monitor.note_forces(4, forces);
    monitor.note_record(4, 1, record_with(50, 100));
    monitor.note_record(4, 0, record_with(50, 100));
    ASSERT_EQ(monitor.not_checked().size(), 1U) << shear;
    EXPECT_EQ(monitor.not_checked()[0].reason.find("shear where it acts"), 0U);
  }
}

TEST_F(RunMonitorTest, ShearThatWasCheckedIsNotListed) {
  T_ALU_FORCE_D forces = forces_with(1.0F);
  forces.aForce[0][1] = 5.0F;  // Fy
  forces.aForce[0][2] = 5.0F;  // Fz
  T_RALU_D record = record_with(50, 100);
  record.aSect[0].aItem[RALU_SHEAR_Y] = {10, 55, 0.0};
  record.aSect[0].aItem[RALU_SHEAR_Z] = {10, 55, 0.0};
  monitor_.note_forces(4, forces);
  monitor_.note_record(4, 1, record);
  monitor_.note_record(4, 0, record_with(50, 100));
  EXPECT_TRUE(monitor_.not_checked().empty());
}

TEST_F(RunMonitorTest, AnElementWithoutForceStateHasNothingToCheck) {
  monitor_.set_elements({1});
  monitor_.note_forces(1, forces_with(0.0F));
  monitor_.note_record(1, 0, {});
  EXPECT_EQ(only_reason(),
            "neither axial force nor bending acts on it, and its slenderness has no limit");
}

TEST_F(RunMonitorTest, SlendernessWithoutALimitDoesNotMakeAnElementChecked) {
  monitor_.set_elements({1});
  monitor_.note_forces(1, forces_with(0.0F));
  T_RALU_D record;
  record.aSect[0].aItem[RALU_SLENDERNESS_Y] = {124.9, 0.0, 0.0};
  record.MakeCompItem();
  monitor_.note_record(1, 1, record);
  monitor_.note_record(1, 0, record);
  EXPECT_EQ(monitor_.checked_elements(), 0U);
  EXPECT_EQ(monitor_.checked_positions(), 0U);
  EXPECT_FALSE(monitor_.worst().has_value());
  EXPECT_EQ(monitor_.not_checked().size(), 1U);
}

TEST_F(RunMonitorTest, ShearAndTorsionWithoutAResultAreListedOnceForTheElement) {
  T_ALU_FORCE_D forces = forces_with(1.0F);
  forces.aForce[0][2] = 5.0F;  // Fz
  forces.aForce[4][3] = 5.0F;  // Mx
  for (const std::uint32_t combination : {1U, 2U}) {
    monitor_.note_forces(4, forces);
    monitor_.note_record(4, combination, record_with(50, 100));
  }
  monitor_.note_record(4, 0, record_with(50, 100));
  ASSERT_EQ(monitor_.not_checked().size(), 2U);
  EXPECT_EQ(monitor_.not_checked()[0].reason.find("shear where it acts"), 0U);
  EXPECT_EQ(monitor_.not_checked()[1].reason, "torsion");
}

TEST_F(RunMonitorTest, OfForcesLeftOutTheLargestIsToldWithItsPlace) {
  for (const auto& [combination, at_start, at_end] :
       {std::tuple{1U, 2.0F, 3.0F}, {2U, 1.0F, -5.0F}, {6U, 4.0F, 4.0F}}) {
    T_ALU_FORCE_D forces = forces_with(1.0F);
    forces.aForce[0][1] = at_start;  // Fy
    forces.aForce[4][1] = at_end;
    monitor_.note_forces(4, forces);
    monitor_.note_record(4, combination, record_with(50, 100));
  }
  monitor_.note_record(4, 0, record_with(50, 100));
  ASSERT_EQ(monitor_.not_checked().size(), 1U);
  const auto& largest = monitor_.not_checked()[0].largest;
  ASSERT_TRUE(largest.has_value());
  EXPECT_EQ(largest->component, "Fy");
  EXPECT_EQ(largest->magnitude, 5.0);
  EXPECT_EQ(largest->position, 4);
  EXPECT_EQ(largest->combination, 2U);
}

TEST_F(RunMonitorTest, AMillionthOfWhatTheSectionCarriesIsNoForceLeftOut) {
  const double capacity = plain_capacity(model_, 1).shear_y;
  ASSERT_GT(capacity, 0.0);
  for (const auto& [share, is_told] : {std::pair{0.5e-6, false}, {2e-6, true}}) {
    RunMonitor monitor(model_);
    monitor.set_elements({1});
    T_ALU_FORCE_D forces = forces_with(1.0F);
    forces.aForce[0][1] = static_cast<float>(share * capacity);  // Fy
    monitor.note_forces(1, forces);
    monitor.note_record(1, 1, record_with(50, 100));
    monitor.note_record(1, 0, record_with(50, 100));
    EXPECT_EQ(monitor.not_checked().size(), is_told ? 1U : 0U) << share;
  }
}

TEST_F(RunMonitorTest, BothSidesOfACombinationLackForcesOnce) {
  monitor_.note_forces(4, forces_with(1.0F));
  monitor_.note_missing_forces(4, 3, 2);
  monitor_.note_missing_forces(4, 3, 2);
  monitor_.note_record(4, 0, record_with(50, 100));
  EXPECT_EQ(monitor_.not_checked().size(), 1U);
}

TEST_F(RunMonitorTest, StatesOfAnEnvelopeLackForcesOnceUnderTheEnvelopesNumber) {
  using Source = model::CombinationTerm::Source;
  model::Model model = model_;
  model.combinations.add({.number = 6,
                          .name = "",
                          .kind = model::CombinationKind::envelope,
                          .terms = {{Source::load_case, 2, 1.5}, {Source::load_case, 2, -1.5}}});
  ASSERT_EQ(model::expand_envelopes(model), std::nullopt);
  RunMonitor monitor(model);
  monitor.set_elements({4, 1});
  monitor.note_forces(4, forces_with(1.0F));
  for (const model::Number state : {6001U, 6002U}) monitor.note_missing_forces(4, state, 2);
  monitor.note_record(4, 0, record_with(50, 100));
  ASSERT_EQ(monitor.not_checked().size(), 1U);
  EXPECT_EQ(monitor.not_checked()[0].combination, 6U);
}

TEST_F(RunMonitorTest, AnElementWithoutGoverningRecordCouldNotBeAssembled) {
  monitor_.set_done(1);
  EXPECT_EQ(only_reason(), "its design data could not be assembled");
  EXPECT_EQ(monitor_.not_checked().front().element, 4U);
  EXPECT_EQ(monitor_.checked_elements(), 0U);
}

TEST_F(RunMonitorTest, AssertionsAreCountedByTheirPlace) {
  monitor_.note_assertion("source", 7);
  monitor_.note_assertion("source", 7);
  monitor_.note_assertion("source", 8);
  EXPECT_EQ(monitor_.assertions(),
            (std::map<std::string, std::uint64_t>{{"source:7", 2}, {"source:8", 1}}));
}

TEST_F(RunMonitorTest, TheFirstFailureIsKept) {
  EXPECT_FALSE(monitor_.failure().has_value());
  monitor_.note_failure("first");
  monitor_.note_failure("second");
  EXPECT_EQ(monitor_.failure(), "first");
}

}  // namespace
}  // namespace aluframe::services
