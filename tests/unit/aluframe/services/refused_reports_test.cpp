// Reports that cannot be made leave everything as it was.

#include <gmock/gmock.h>

#include <fstream>

#include "aluframe/services/report_run.h"
#include "tests/unit/aluframe/services/reported_columns.h"

namespace aluframe::services {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

using RefusedReports = ReportedColumns;

TEST_F(RefusedReports, APathThatCannotBeWrittenFailsWithItsReason) {
  run({1});
  const std::string before = results();
  const fs::path lost = folder_.path() / "missing" / "columns.alu";
  const ReportSummary summary = run_report(model_, options(), lost);
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_EQ(summary.failure, lost.string() + ": cannot be written: No such file or directory");
  EXPECT_EQ(results(), before);
}

TEST_F(RefusedReports, APathThatCannotBeWrittenChecksNothing) {
  run_report(model_, options(), folder_.path());
  EXPECT_FALSE(fs::exists(result_path_));
}

TEST_F(RefusedReports, APathThatIsNotUtf8FailsAndLeavesNoFile) {
  const ReportSummary summary = run_report(model_, options(), folder_.path() / "M\xFCller.alu");
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_THAT(summary.failure,
              testing::EndsWith(": is not UTF-8, as the names of reports must be"));
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(RefusedReports, ThePathOfTheResultsFailsAndLeavesThem) {
  run({1});
  const std::string before = results();
  fs::create_symlink(result_path_, folder_.path() / "link");
  for (const fs::path& path : {result_path_, folder_.path() / "link"}) {
    const ReportSummary summary = run_report(model_, options(), path);
    EXPECT_EQ(summary.outcome, RunOutcome::failed);
    EXPECT_EQ(summary.failure,
              path.string() + ": holds the results, which the report would overwrite");
    EXPECT_EQ(results(), before);
  }
}

TEST_F(RefusedReports, ResultsThatCannotBeReadFailWithTheirFileAndAreLeft) {
  std::ofstream(result_path_) << "no results";
  const ReportSummary summary = report();
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_EQ(summary.failure, result_path_.string() + ": is not a result file");
  EXPECT_EQ(results(), "no results");
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(RefusedReports, ResultsOfAnotherModelFailAndAreLeft) {
  run({});
  const std::string before = results();
  model::Model other = model_;
  other.title = "Beams";
  const ReportSummary summary = run_report(other, options(), path_);
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_EQ(summary.failure,
            result_path_.string() + ": holds results of the model \"Columns\", not of \"Beams\"");
  EXPECT_EQ(results(), before);
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(RefusedReports, ResultsOfACombinationThatHasChangedFailAndAreLeft) {
  run({});
  const std::string before = results();
  std::string text = columns;
  const std::string changed = R"("number": 2, "terms")";
  text.replace(text.find(changed), changed.size(), R"("number": 2, "name": "ULS", "terms")");
  const ReportSummary summary = run_report(parsed(text), options(), path_);
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_EQ(summary.failure, result_path_.string() +
                                 ": holds results of another combination 2; check the model again");
  EXPECT_EQ(results(), before);
}

TEST_F(RefusedReports, ResultsOfOtherCombinationsAreNotAddedTo) {
  SessionOptions partial = options();
  partial.selected = {1};
  partial.combinations = {1};
  run_check(model_, partial);
  const std::string before = results();
  const ReportSummary summary = report();
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_EQ(summary.failure, result_path_.string() +
                                 ": holds results of combination 1, which are not mixed with those "
                                 "of combination 1-3; check the model again");
  EXPECT_EQ(results(), before);
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(RefusedReports, ElementsAreAddedToResultsOfSomeCombinationsByTheSameOnes) {
  SessionOptions partial = options();
  partial.selected = {1};
  partial.combinations = {1};
  run_check(model_, partial);
  partial.selected = {1, 2};
  const ReportSummary summary = run_report(model_, partial, path_);
  EXPECT_EQ(summary.outcome, RunOutcome::complete) << summary.failure;
  EXPECT_THAT(summary.checked_now, ElementsAre(2));
  for (const std::uint32_t element : {1U, 2U}) {
    const auto stored = records(element);
    ASSERT_EQ(stored.size(), 2U) << element;  // the governing one and that of combination 1
    EXPECT_EQ(stored[0].combination + stored[1].combination, 1U) << element;
  }
}

/// Has the governing demand of element 2 stored as that of half the force.
void halve_stored_demand(const fs::path& results) {
  T_RALU_D governing;
  const auto info = store::ResultReader::open(results)->info();
  const auto stored = store::ResultReader::open(results)->read(2, 0, 0);
  ASSERT_TRUE(stored);
  governing = *stored;
  governing.aComp[RALU_STRENGTH].dDemand /= 2;
  const auto writer = store::ResultWriter::reopen(results, info);
  writer->write(2, governing, 0, 0);
  writer->end_element({.element = 2});
  writer->finish(store::RunState::complete);
}

// Element 2 under 120 kN, at its ends alone: 120000 / (0.85·π·20²) = 112.34 N/mm², half of
// it 56.17.
TEST_F(RefusedReports, AStoredDemandThatIsNotTheCheckEndsTheReport) {
  run({});
  report();
  const std::string earlier = text();
  halve_stored_demand(result_path_);
  const std::string stored = results();
  const ReportSummary summary = report();
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_EQ(summary.failure,
            path_.string() +
                ": the report is incomplete: element 2, strength, combination 1, position I: "
                "demand 112.345 when made again, 56.1723 as stored in " +
                result_path_.string() +
                "; check the model again; what was written is in columns.alu.partial");
  EXPECT_EQ(text(), earlier);
  EXPECT_EQ(results(), stored);
  EXPECT_THAT(bytes_of(folder_.path() / "columns.alu.partial"), HasSubstr("MEMBER NO = 1,"));
}

TEST_F(RefusedReports, AStoredDemandOfAnElementThatIsNotReportedIsNotLookedAt) {
  run({});
  halve_stored_demand(result_path_);
  EXPECT_EQ(report({1}).outcome, RunOutcome::complete);
}

TEST_F(RefusedReports, WithoutCombinationsThereIsNothingToReportAndTheUserIsTold) {
  model::Model bare = model_;
  bare.combinations = {};
  std::ofstream(path_) << "an earlier report\n";
  const ReportSummary summary = run_report(bare, options(), path_);
  EXPECT_EQ(summary.outcome, RunOutcome::nothing_to_check);
  EXPECT_NE(messages_, "");
  EXPECT_EQ(text(), "an earlier report\n");
  EXPECT_FALSE(fs::exists(result_path_));
}

}  // namespace
}  // namespace aluframe::services
