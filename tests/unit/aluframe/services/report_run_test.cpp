// What whole reports tell, and what is beside them.

#include "aluframe/services/report_run.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>

#include "aluframe/services/readable_report.h"
#include "tests/unit/aluframe/services/reported_columns.h"
#include "tests/unit/aluframe/services/stopping_listener.h"

namespace aluframe::services {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using ReportRunTest = ReportedColumns;

// --- what the summary tells ---

TEST_F(ReportRunTest, ACheckedModelIsReportedWhole) {
  run({});
  const ReportSummary summary = report();
  EXPECT_EQ(summary.outcome, RunOutcome::complete) << summary.failure;
  EXPECT_EQ(summary.failure, "");
  EXPECT_THAT(summary.reported, ElementsAre(1, 2, 3));
  EXPECT_THAT(summary.without_checks, ElementsAre(3));
  EXPECT_THAT(summary.checked_now, IsEmpty());
}

TEST_F(ReportRunTest, AnElementWithoutResultsIsNotReported) {
  run({});
  EXPECT_THAT(report().not_reported, ElementsAre(4));
}

TEST_F(ReportRunTest, OnlySelectedElementsAreReportedInTheirOrder) {
  run({});
  const ReportSummary summary = report({2, 1});
  EXPECT_THAT(summary.reported, ElementsAre(2, 1));
  EXPECT_THAT(summary.not_reported, IsEmpty());
}

TEST_F(ReportRunTest, TheReportNamesItsElements) {
  run({});
  report({2});
  EXPECT_THAT(text(), HasSubstr("\n  MEMBER NO = 2,   ELEMENT TYPE = Column\n"));
  EXPECT_THAT(text(), Not(HasSubstr("MEMBER NO = 1,")));
}

// Element 2 under 120 kN: 120000 / (0.85·π·20²) / 90 = 1.248 of the strength of 6063-T5.
TEST_F(ReportRunTest, TheReportHasTheGoverningChecksOfTheHandCalculation) {
  run({});
  report({2});
  EXPECT_THAT(text(), HasSubstr("\n   Rmax1=N/(f*Aen)=     1.248>1.00 ----> Not Acceptable!\n"));
  EXPECT_THAT(text(), HasSubstr("\n   kl/i=   100.000<   150.000---->OK\n"));
}

TEST_F(ReportRunTest, AReportOfACheckedModelLeavesItsResultsAsTheyAre) {
  run({});
  const std::string before = results();
  report();
  EXPECT_EQ(results(), before);
}

TEST_F(ReportRunTest, NothingIsSaidToTheUserMeanwhile) {
  run({});
  messages_.clear();
  report();
  EXPECT_EQ(messages_, "");
}

TEST_F(ReportRunTest, APathMayBeInAnyScript) {
  run({1});
  const fs::path path = folder_.path() / "幕墙 Müller \xF0\x9F\x8F\x97.alu";
  const ReportSummary summary = run_report(model_, options(), path);
  EXPECT_EQ(summary.outcome, RunOutcome::complete) << summary.failure;
  EXPECT_THAT(bytes_of(path), HasSubstr("  MEMBER NO = 1,"));
}

// --- its readable text ---

// 强度验算 is how an engineer knows the check of strength.
TEST_F(ReportRunTest, TheReadableTextIsTheReportWithItsTitlesReadable) {
  run({});
  const ReportSummary summary = report();
  EXPECT_EQ(summary.readable, readable_text(text()));
  EXPECT_THAT(summary.readable, HasSubstr("  [[[*]]]   强度验算\n"));
}

TEST_F(ReportRunTest, WithoutAPathTheReadableTextIsTheSameAndNoFileIsLeft) {
  run({});
  const std::string expected = report().readable;
  fs::remove(path_);
  const ReportSummary summary = run_report(model_, options(), std::nullopt);
  EXPECT_EQ(summary.outcome, RunOutcome::complete) << summary.failure;
  EXPECT_EQ(summary.readable, expected);
  EXPECT_THAT(summary.reported, ElementsAre(1, 2, 3));
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(ReportRunTest, AReportThatCannotBeMadeHasNoReadableText) {
  std::ofstream(result_path_) << "no results";
  EXPECT_EQ(report().readable, "");
  EXPECT_EQ(run_report(model_, options(), std::nullopt).readable, "");
}

// --- elements that no run has checked ---

TEST_F(ReportRunTest, ElementsThatNoRunHasCheckedAreCheckedNow) {
  run({1});
  const ReportSummary summary = report();
  EXPECT_EQ(summary.outcome, RunOutcome::complete) << summary.failure;
  EXPECT_THAT(summary.reported, ElementsAre(1, 2, 3));
  EXPECT_THAT(summary.checked_now, ElementsAre(2, 3));
  EXPECT_THAT(summary.not_reported, ElementsAre(4));
}

TEST_F(ReportRunTest, ElementsCheckedNowAreNoInconsistency) {
  run({1});
  EXPECT_THAT(report({1, 2}).assertions, IsEmpty());
}

TEST_F(ReportRunTest, ElementsCheckedNowAreStoredAsARunWouldStoreThem) {
  run({1});
  report();
  const auto added = store::ResultReader::open(result_path_)->governing();
  run({});
  const auto expected = store::ResultReader::open(result_path_)->governing();
  ASSERT_EQ(added.size(), expected.size());
  for (std::size_t i = 0; i < added.size(); ++i) {
    EXPECT_EQ(added[i].element, expected[i].element);
    EXPECT_EQ(added[i].item, expected[i].item);
    EXPECT_EQ(added[i].governing.dDemand, expected[i].governing.dDemand);
    EXPECT_EQ(added[i].governing.dCapacity, expected[i].governing.dCapacity);
    EXPECT_EQ(added[i].governing.nLComb, expected[i].governing.nLComb);
  }
}

TEST_F(ReportRunTest, ElementsCheckedNowAreReportedAsAfterARun) {
  run({1});
  report();
  const std::string now = text();
  run({});
  report();
  EXPECT_EQ(now, text());
}

TEST_F(ReportRunTest, ElementsCheckedNowAreNotCheckedByTheNextReport) {
  run({1});
  report();
  EXPECT_THAT(report().checked_now, IsEmpty());
}

TEST_F(ReportRunTest, AModelThatWasNeverCheckedIsCheckedWhole) {
  const ReportSummary summary = report();
  EXPECT_EQ(summary.outcome, RunOutcome::complete) << summary.failure;
  EXPECT_THAT(summary.reported, ElementsAre(1, 2, 3));
  EXPECT_THAT(summary.checked_now, ElementsAre(1, 2, 3));
  EXPECT_EQ(state(), store::RunState::complete);
}

TEST_F(ReportRunTest, ElementsThatWereCheckedKeepTheirRecords) {
  run({1});
  const auto before = records(1);
  report();
  const auto after = records(1);
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    EXPECT_EQ(after[i].combination, before[i].combination);
    EXPECT_EQ(after[i].record.aComp[RALU_STRENGTH].dDemand,
              before[i].record.aComp[RALU_STRENGTH].dDemand);
  }
}

TEST_F(ReportRunTest, WhatAStoppedRunLeftStaysStoppedWhenElementsAreAdded) {
  StopAfter listener(1);
  SessionOptions stopping = options();
  stopping.progress = &listener;
  ASSERT_EQ(run_check(model_, stopping).outcome, RunOutcome::cancelled);
  SessionOptions by_partial = options();
  by_partial.result_path = store::partial_path_of(result_path_);
  EXPECT_THAT(run_report(model_, by_partial, path_).checked_now, ElementsAre(2, 3));
  EXPECT_EQ(store::ResultReader::open(by_partial.result_path)->state(), store::RunState::cancelled);
  EXPECT_FALSE(fs::exists(result_path_));
}

// The section of element 3 has a shape that the module does not know.
TEST_F(ReportRunTest, AShapeThatTheChecksDoNotCoverIsNoInconsistency) {
  run({});
  const ReportSummary summary = report();
  EXPECT_TRUE(summary.assertions.empty());
  EXPECT_TRUE(
      std::ranges::any_of(summary.not_checked, [](const auto& item) { return item.element == 3; }));
}

// --- what follows it ---

TEST_F(ReportRunTest, WhatFollowsAReportStandsBesideItBeforeAnotherRunCanWriteIt) {
  run({});
  std::string seen;
  ReportSummary meanwhile;
  run_report(model_, options(), path_, [&](const ReportSummary& summary) {
    seen = summary.readable == readable_text(text()) ? "its own report" : "another one";
    meanwhile = report();
  });
  EXPECT_EQ(seen, "its own report");
  EXPECT_EQ(meanwhile.outcome, RunOutcome::failed);
  EXPECT_THAT(meanwhile.failure, testing::EndsWith("another run is writing this file"));
  EXPECT_EQ(report().outcome, RunOutcome::complete);
}

TEST_F(ReportRunTest, NothingFollowsAReportThatCannotBeMade) {
  std::ofstream(result_path_) << "no results";
  bool is_followed = false;
  run_report(model_, options(), path_, [&](const ReportSummary&) { is_followed = true; });
  EXPECT_FALSE(is_followed);
}

}  // namespace
}  // namespace aluframe::services
