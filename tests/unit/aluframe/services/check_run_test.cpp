// Whole runs over a frame whose checks are worked out by hand.

#include "aluframe/services/check_run.h"

#include <gtest/gtest.h>

#include <numbers>
#include <stdexcept>

#include "tests/unit/aluframe/services/columns_run.h"
#include "tests/unit/aluframe/services/stopping_listener.h"

namespace aluframe::services {
namespace {

using CheckRunTest = ColumnsRun;

// Axial stress γ0·N/(0.85·A) with γ0 = 1 and A = π·20²; f = 90 for 6063-T5. Forces are held in
// single precision, which these are exact in.
double strength_ratio(double newtons) {
  return newtons / (0.85 * std::numbers::pi * 400.0) / 90.0;
}

// Sides: 1, 2 and both of 3. Records: element 1 has 4 sides, element 2 combination 1 only, element
// 3 has 4, element 4 none, and each has a governing one. Positions: both ends of elements 1 and 2.
TEST_F(CheckRunTest, TheSummaryCountsWhatWasDone) {
  const CheckSummary summary = run_check(model_, options());
  ASSERT_EQ(summary.outcome, RunOutcome::complete) << summary.failure;
  EXPECT_EQ(summary.failure, "");
  EXPECT_EQ(summary.elements, 4U);
  EXPECT_EQ(summary.combinations, 3U);
  EXPECT_EQ(summary.sides, 4U);
  EXPECT_EQ(summary.records, 5U + 2U + 5U + 1U);
  EXPECT_EQ(summary.checked_elements, 2U);
  EXPECT_EQ(summary.checked_positions, 2U * (4U + 1U));
  EXPECT_GT(summary.seconds, 0.0);
  EXPECT_EQ(state(), store::RunState::complete);
}

// Element 2 in combination 1: 120 kN give 1.248 of the strength; the slenderness 1000/(40/4) = 100
// is 0.667 of a column's 150. For stability 100·√(110/240) = 67.7, where the code's table has φ =
// 0.430.
TEST_F(CheckRunTest, TheWorstCheckIsFoundWithItsPlace) {
  const CheckSummary summary = run_check(model_, options());
  ASSERT_TRUE(summary.worst.has_value());
  EXPECT_EQ(summary.worst->element, 2U);
  EXPECT_EQ(summary.worst->item, RALU_STABILITY);
  EXPECT_EQ(summary.worst->check.nPos, 0);
  EXPECT_EQ(summary.worst->check.nLComb, 1U);
  EXPECT_NEAR(summary.worst->check.Ratio(), 120e3 / (0.43 * std::numbers::pi * 400.0) / 90.0,
              1e-12);
  EXPECT_EQ(summary.elements_over_limit, 1U);
}

// 48 kN pull: 0.499 of the strength, 100/400 of the slenderness. With case 2, 24 kN push: 0.250 of
// the strength, 100/150 of the slenderness, which governs.
TEST_F(CheckRunTest, StrengthAndSlendernessOfAColumnFollowTheHandCalculation) {
  const CheckSummary summary = run({1});
  ASSERT_TRUE(summary.worst.has_value());
  EXPECT_EQ(summary.worst->item, RALU_SLENDERNESS_Y);
  EXPECT_EQ(summary.worst->check.nLComb, 2U);
  EXPECT_NEAR(summary.worst->check.dDemand, 100.0, 1e-9);
  EXPECT_EQ(summary.worst->check.dCapacity, 150.0);
  const auto reader = store::ResultReader::open(options().result_path);
  const T_RALU_D pull = reader->read(1, 1, 0).value();
  const T_RALU_RLT& strength = pull.aSect[4].aItem[RALU_STRENGTH];
  EXPECT_NEAR(strength.dDemand, 90.0 * strength_ratio(48e3), 1e-9);
  EXPECT_EQ(strength.dCapacity, 90.0);
  EXPECT_EQ(pull.aSect[4].aItem[RALU_SLENDERNESS_Z].dCapacity, 400.0);
}

TEST_F(CheckRunTest, WhatCouldNotBeCheckedIsListedInTheSummaryAndInTheFile) {
  const CheckSummary summary = run_check(model_, options());
  const std::vector<store::NotChecked> expected{
      {2, 2, "no forces (none for load case 2)"},
      {2, 3, "no forces (none for load case 2)"},
      {3, std::nullopt,
       "the checks do not cover the shape of section 2: no check was made, judge it by hand"},
      {4, std::nullopt, "no forces (none for load case 1) in any combination"}};
  EXPECT_EQ(summary.not_checked, expected);
  EXPECT_EQ(store::ResultReader::open(options().result_path)->not_checked(), expected);
}

TEST_F(CheckRunTest, ARunOverKnownShapesMeetsNoInconsistency) {
  EXPECT_TRUE(run({1, 2}).assertions.empty());
}

// The module calls it inconsistent; the user is told what it means, once.
TEST_F(CheckRunTest, AShapeThatTheChecksDoNotCoverIsToldAsNotCheckedAlone) {
  const CheckSummary summary = run({3});
  EXPECT_TRUE(summary.assertions.empty());
  EXPECT_EQ(summary.not_checked.size(), 1U);
}

TEST_F(CheckRunTest, ARunCanBeLimitedToCombinations) {
  SessionOptions limited = options();
  limited.combinations = {2};
  const CheckSummary summary = run_check(model_, limited);
  EXPECT_EQ(summary.combinations, 1U);
  EXPECT_EQ(summary.checked_elements, 1U);
  EXPECT_NEAR(summary.worst->check.Ratio(), 2.0 / 3.0, 1e-12);
}

TEST_F(CheckRunTest, ARunWithoutElementsHasNothingToCheckAndStartsNoFile) {
  const CheckSummary summary = run({99});
  EXPECT_EQ(summary.outcome, RunOutcome::nothing_to_check);
  EXPECT_EQ(messages_, "The design cannot start:\n\tthere is no aluminium element to check.\n");
  EXPECT_FALSE(std::filesystem::exists(options().result_path));
}

TEST_F(CheckRunTest, ARunWithoutCombinationsHasNothingToCheck) {
  SessionOptions limited = options();
  limited.combinations = {99};
  const CheckSummary summary = run_check(model_, limited);
  EXPECT_EQ(summary.outcome, RunOutcome::nothing_to_check);
  EXPECT_EQ(messages_,
            "The design cannot start:\n\tthe model has no load combination for design.\n");
}

TEST_F(CheckRunTest, ACancelledRunCountsWhatItDidAndSaysSoInItsFile) {
  StopAfter listener(2);
  SessionOptions cancelled = options();
  cancelled.progress = &listener;
  const CheckSummary summary = run_check(model_, cancelled);
  EXPECT_EQ(summary.outcome, RunOutcome::cancelled);
  EXPECT_EQ(summary.elements, 4U);
  EXPECT_EQ(summary.checked_elements, 2U);
  EXPECT_EQ(summary.records, 5U + 2U);
  const auto partial = store::ResultReader::open(store::partial_path_of(options().result_path));
  EXPECT_EQ(partial->state(), store::RunState::cancelled);
  EXPECT_EQ(partial->elements(), (std::vector<std::uint32_t>{1, 2}));
}

TEST_F(CheckRunTest, LeavesNoHostBound) {
  run_check(model_, options());
  EXPECT_THROW(host::Bound(), std::logic_error);
}

}  // namespace
}  // namespace aluframe::services
