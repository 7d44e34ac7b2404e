// What the monitor counts, and which check is the worst.

#include <gtest/gtest.h>

#include <limits>

#include "aluframe/services/run_monitor.h"
#include "tests/unit/aluframe/services/monitor_records.h"
#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

class RunTotalsTest : public testing::Test {
 protected:
  RunTotalsTest() { monitor_.set_elements({4, 1, 2}); }

  /// The next element of the run comes to this strength check.
  void check_next(double demand, double capacity) {
    constexpr std::uint32_t elements[] = {4, 1, 2};
    const std::uint32_t element = elements[done_];
    monitor_.note_forces(element, forces_with(1.0F));
    monitor_.note_record(element, 1, record_with(demand, capacity));
    monitor_.note_record(element, 0, record_with(demand, capacity));
    monitor_.set_done(++done_);
  }

  const model::Model model_ = sample_model();
  RunMonitor monitor_{model_};
  std::size_t done_ = 0;
};

TEST_F(RunTotalsTest, NothingIsCountedBeforeTheFirstElement) {
  EXPECT_EQ(monitor_.element_count(), 3U);
  EXPECT_EQ(monitor_.checked_elements(), 0U);
  EXPECT_EQ(monitor_.checked_positions(), 0U);
  EXPECT_EQ(monitor_.elements_over_limit(), 0U);
  EXPECT_FALSE(monitor_.worst().has_value());
}

TEST_F(RunTotalsTest, ACheckedElementCountsOnceAndItsPositionsInEveryCombination) {
  monitor_.note_forces(4, forces_with(1.0F));
  monitor_.note_record(4, 1, record_with(50, 100));
  monitor_.note_record(4, 2, record_with(50, 100));
  monitor_.note_record(4, 0, record_with(50, 100));
  monitor_.set_done(1);
  EXPECT_EQ(monitor_.checked_elements(), 1U);
  EXPECT_EQ(monitor_.checked_positions(), 4U);
  EXPECT_TRUE(monitor_.not_checked().empty());
}

TEST_F(RunTotalsTest, ElementsThatAnEarlierRunWasThroughWithCountAsIfTheyWereCheckedNow) {
  check_next(120, 100);
  monitor_.note_assertion("source", 7);
  store::FinishedElement first{monitor_.take_notes(4), record_with(120, 100).aComp};
  EXPECT_EQ(first.notes.checked_positions, 2U);
  EXPECT_EQ(first.notes.assertions, (std::vector<store::AssertionRow>{{"source:7", 1}}));
  check_next(50, 100);

  RunMonitor resumed(model_);
  resumed.take_up(first);
  resumed.set_elements({4, 1, 2});
  resumed.note_assertion("source", 7);  // of the start, which stands in the earlier results
  resumed.begin_elements();
  EXPECT_EQ(resumed.taken_up(), 1U);
  EXPECT_TRUE(resumed.was_taken_up(4));
  resumed.note_forces(1, forces_with(1.0F));
  resumed.note_record(1, 1, record_with(50, 100));
  resumed.note_record(1, 0, record_with(50, 100));
  resumed.set_done(1);

  EXPECT_EQ(resumed.element_count(), 3U);
  EXPECT_EQ(resumed.checked_elements(), monitor_.checked_elements());
  EXPECT_EQ(resumed.checked_positions(), monitor_.checked_positions());
  EXPECT_EQ(resumed.elements_over_limit(), 1U);
  EXPECT_EQ(resumed.worst()->element, 4U);
  EXPECT_EQ(resumed.assertions(), monitor_.assertions());
  EXPECT_TRUE(resumed.not_checked().empty());
}

TEST_F(RunTotalsTest, AnElementWithoutDataAfterThoseTakenUpIsNamed) {
  RunMonitor resumed(model_);
  resumed.take_up({{.element = 4}, std::nullopt});
  resumed.set_elements({4, 1, 2});
  EXPECT_EQ(resumed.set_done(1), 1U);
  EXPECT_EQ(resumed.take_notes(1).not_checked,
            (std::vector<store::NotChecked>{
                {1, std::nullopt, "its design data could not be assembled"}}));
}

TEST_F(RunTotalsTest, APositionCountsOnceHoweverManyChecksItHas) {
  T_RALU_D record;
  record.aSect[2].aItem[RALU_STRENGTH] = {50, 100, 0.0};
  record.aSect[2].aItem[RALU_SHEAR_Z] = {10, 55, 0.0};
  record.aSect[2].aItem[RALU_SLENDERNESS_Y] = {80, 150, 0.0};
  monitor_.note_forces(4, forces_with(0.0F));
  monitor_.note_record(4, 1, record);
  EXPECT_EQ(monitor_.checked_positions(), 1U);
}

TEST_F(RunTotalsTest, TheWorstCheckOfAllElementsIsKept) {
  check_next(50, 100);
  check_next(150, 100);
  check_next(70, 100);
  ASSERT_TRUE(monitor_.worst().has_value());
  EXPECT_EQ(monitor_.worst()->element, 1U);
  EXPECT_EQ(monitor_.worst()->item, RALU_STRENGTH);
  EXPECT_EQ(monitor_.worst()->check.Ratio(), 1.5);
}

TEST_F(RunTotalsTest, TheWorstCheckOfAnElementIsFoundAmongItsItems) {
  T_RALU_D record = record_with(50, 100);
  record.aSect[3].aItem[RALU_SLENDERNESS_Z] = {120, 150, 0.0};
  record.SetLCombKey(3, 1);
  record.MakeCompItem();
  monitor_.note_record(4, 0, record);
  ASSERT_TRUE(monitor_.worst().has_value());
  EXPECT_EQ(monitor_.worst()->item, RALU_SLENDERNESS_Z);
  EXPECT_EQ(monitor_.worst()->check.nPos, 3);
  EXPECT_EQ(monitor_.worst()->check.nLComb, 3U);
  EXPECT_EQ(monitor_.worst()->check.nMinSide, 1);
}

TEST_F(RunTotalsTest, AmongEqualRatiosTheEarlierElementStays) {
  check_next(90, 100);
  check_next(90, 100);
  EXPECT_EQ(monitor_.worst()->element, 4U);
}

TEST_F(RunTotalsTest, ARatioThatIsNoNumberIsWorseThanAnyOther) {
  check_next(500, 100);
  check_next(not_a_number, 100);
  check_next(900, 100);
  EXPECT_EQ(monitor_.worst()->element, 1U);
  EXPECT_EQ(monitor_.elements_over_limit(), 3U);
}

// Exactly 1 passes. (1 + 1e-10) − 1 is 1.00000008e-10 in double precision and fails.
TEST_F(RunTotalsTest, AnElementIsOverTheLimitFromOneTenBillionthAboveOne) {
  check_next(1.0, 1.0);
  EXPECT_EQ(monitor_.elements_over_limit(), 0U);
  check_next(1.0 + 0.99e-10, 1.0);
  EXPECT_EQ(monitor_.elements_over_limit(), 0U);
  check_next(1.0 + 1e-10, 1.0);
  EXPECT_EQ(monitor_.elements_over_limit(), 1U);
  EXPECT_EQ(monitor_.checked_elements(), 3U);
}

TEST_F(RunTotalsTest, AnElementWithSeveralFailedChecksIsOverTheLimitOnce) {
  T_RALU_D record = record_with(150, 100);
  record.aSect[0].aItem[RALU_SHEAR_Y] = {60, 55, 0.0};
  record.MakeCompItem();
  monitor_.note_record(4, 0, record);
  EXPECT_EQ(monitor_.elements_over_limit(), 1U);
}

TEST_F(RunTotalsTest, AnElementThatWasNotCheckedIsNotTheWorst) {
  check_next(0, 0);
  check_next(50, 100);
  EXPECT_EQ(monitor_.checked_elements(), 1U);
  EXPECT_EQ(monitor_.worst()->element, 1U);
  EXPECT_EQ(monitor_.not_checked().front().element, 4U);
}

TEST(WasJudged, NeedsALimitUnlessTheDemandIsNoNumber) {
  EXPECT_TRUE(was_judged(50, 100));
  EXPECT_TRUE(was_judged(0, 100));
  EXPECT_FALSE(was_judged(0, 0));
  EXPECT_FALSE(was_judged(124.9, 0)) << "slenderness without a limit";
  EXPECT_TRUE(was_judged(not_a_number, 0));
  EXPECT_TRUE(was_judged(infinity, 0));
  EXPECT_TRUE(was_judged(50, not_a_number));
}

TEST(ExceedsLimit, ACheckFailsFromOneTenBillionthAboveOne) {
  for (const double passing : {-5.0, 0.0, 1.0, 1.0 + 0.99e-10}) {
    EXPECT_FALSE(exceeds_limit(passing)) << passing;
  }
  for (const double failing : {1.0 + 1e-10, 1.001, 1e300}) {
    EXPECT_TRUE(exceeds_limit(failing)) << failing;
  }
}

TEST(ExceedsLimit, WhatIsNoNumberFails) {
  for (const double failing : {infinity, -infinity, not_a_number}) {
    EXPECT_TRUE(exceeds_limit(failing)) << failing;
  }
}

}  // namespace
}  // namespace aluframe::services
