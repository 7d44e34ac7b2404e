#include "aluframe/services/run_monitor.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

T_ALU_FORCE_D forces_with(float axial) {
  T_ALU_FORCE_D forces;
  for (auto& position : forces.aForce) position[0] = axial;
  return forces;
}

T_RALU_D record_with(double demand, double capacity) {
  T_RALU_D record;
  record.nHasResult = 1;
  for (const std::size_t position : {0U, 4U}) {
    record.aSect[position].aItem[RALU_STRENGTH] = {demand, capacity, 0.0};
  }
  record.MakeCompItem();
  return record;
}

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

TEST_F(RunMonitorTest, ACheckedElementCountsWithItsPositions) {
  monitor_.note_forces(4, forces_with(1.0F));
  monitor_.note_record(4, 1, record_with(50, 100));
  monitor_.note_record(4, 0, record_with(50, 100));
  monitor_.set_done(1);
  EXPECT_EQ(monitor_.checked_elements(), 1U);
  EXPECT_EQ(monitor_.checked_positions(), 2U);
  EXPECT_EQ(monitor_.elements_over_limit(), 0U);
  EXPECT_TRUE(monitor_.not_checked().empty());
}

TEST_F(RunMonitorTest, TheWorstCheckOfAllElementsIsKept) {
  monitor_.note_record(4, 0, record_with(150, 100));
  monitor_.set_done(1);
  monitor_.note_record(1, 0, record_with(50, 100));
  monitor_.set_done(2);
  ASSERT_TRUE(monitor_.worst().has_value());
  EXPECT_EQ(monitor_.worst()->element, 4U);
  EXPECT_EQ(monitor_.worst()->check.Ratio(), 1.5);
  EXPECT_EQ(monitor_.elements_over_limit(), 1U);
}

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

TEST_F(RunMonitorTest, AShapeThatTheChecksDoNotCoverIsNamedWithItsSection) {
  monitor_.note_forces(4, forces_with(1.0F));
  monitor_.note_record(4, 0, {});
  EXPECT_EQ(only_reason(), "the checks do not cover the shape of section 3");
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

TEST_F(RunMonitorTest, BothSidesOfACombinationLackForcesOnce) {
  monitor_.note_forces(4, forces_with(1.0F));
  monitor_.note_missing_forces(4, 3, 2);
  monitor_.note_missing_forces(4, 3, 2);
  monitor_.note_record(4, 0, record_with(50, 100));
  EXPECT_EQ(monitor_.not_checked().size(), 1U);
}

TEST_F(RunMonitorTest, AnElementWithoutGoverningRecordCouldNotBeAssembled) {
  monitor_.set_done(1);
  EXPECT_EQ(only_reason(), "its design data could not be assembled");
}

TEST_F(RunMonitorTest, AssertionsAreCountedByTheirPlace) {
  monitor_.note_assertion("source", 7);
  monitor_.note_assertion("source", 7);
  EXPECT_EQ(monitor_.assertions(), (std::map<std::string, std::uint64_t>{{"source:7", 2}}));
}

TEST_F(RunMonitorTest, TheFirstFailureIsKept) {
  monitor_.note_failure("first");
  monitor_.note_failure("second");
  EXPECT_EQ(monitor_.failure(), "first");
}

// A check passes up to 1 + 1e-10 and fails from there on, and when its ratio is no number.
TEST(ExceedsLimit, StartsAtOneTenBillionthAboveOne) {
  EXPECT_FALSE(exceeds_limit(1.0));
  EXPECT_FALSE(exceeds_limit(1.0 + 0.5e-10));
  EXPECT_TRUE(exceeds_limit(1.0 + 2e-10));
  EXPECT_FALSE(exceeds_limit(-5.0));
  EXPECT_TRUE(exceeds_limit(-infinity));
  EXPECT_TRUE(exceeds_limit(infinity));
  EXPECT_TRUE(exceeds_limit(std::numeric_limits<double>::quiet_NaN()));
}

}  // namespace
}  // namespace aluframe::services
