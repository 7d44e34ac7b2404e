// Whole reports over columns 1 and 2 that the checks cover, 3 of a shape that they do not cover,
// and 4 without forces.

#include "aluframe/services/report_run.h"

#include <gmock/gmock.h>
#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>

#include "aluframe/services/readable_report.h"
#include "aluframe/services/report_file.h"
#include "tests/unit/aluframe/services/columns_run.h"
#include "tests/unit/aluframe/services/limited_process.h"
#include "tests/unit/aluframe/services/stopping_listener.h"

namespace aluframe::services {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

std::string bytes_of(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class ReportRunTest : public ColumnsRun {
 protected:
  ReportRunTest() { setenv("LC_ALL", "C.UTF-8", 1); }

  ReportSummary report() { return run_report(model_, options(), path_); }
  ReportSummary report(std::vector<model::Number> selected) {
    SessionOptions limited = options();
    limited.selected = std::move(selected);
    return run_report(model_, limited, path_);
  }
  std::string text() const { return bytes_of(path_); }
  std::string results() const { return bytes_of(result_path_); }
  /// All records of an element in the result file, packed as they are stored.
  std::vector<store::StoredRecord> records(std::uint32_t element) const {
    return store::ResultReader::open(result_path_)->read_all(element);
  }

  const fs::path path_ = folder_.path() / "columns.alu";
  const fs::path result_path_ = folder_.path() / "columns.aluresult";
};

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

// --- reports that cannot be made ---

TEST_F(ReportRunTest, APathThatCannotBeWrittenFailsWithItsReason) {
  run({1});
  const std::string before = results();
  const fs::path lost = folder_.path() / "missing" / "columns.alu";
  const ReportSummary summary = run_report(model_, options(), lost);
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_EQ(summary.failure, lost.string() + ": cannot be written: No such file or directory");
  EXPECT_EQ(results(), before);
}

TEST_F(ReportRunTest, APathThatCannotBeWrittenChecksNothing) {
  run_report(model_, options(), folder_.path());
  EXPECT_FALSE(fs::exists(result_path_));
}

TEST_F(ReportRunTest, APathThatIsNotUtf8FailsAndLeavesNoFile) {
  const ReportSummary summary = run_report(model_, options(), folder_.path() / "M\xFCller.alu");
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_THAT(summary.failure,
              testing::EndsWith(": is not UTF-8, as the names of reports must be"));
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(ReportRunTest, ThePathOfTheResultsFailsAndLeavesThem) {
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

TEST_F(ReportRunTest, ResultsThatCannotBeReadFailWithTheirFileAndAreLeft) {
  std::ofstream(result_path_) << "no results";
  const ReportSummary summary = report();
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_EQ(summary.failure, result_path_.string() + ": is not a result file");
  EXPECT_EQ(results(), "no results");
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(ReportRunTest, ResultsOfAnotherModelFailAndAreLeft) {
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

TEST_F(ReportRunTest, ResultsOfACombinationThatHasChangedFailAndAreLeft) {
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

TEST_F(ReportRunTest, ResultsOfOtherCombinationsAreNotAddedTo) {
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

TEST_F(ReportRunTest, ElementsAreAddedToResultsOfSomeCombinationsByTheSameOnes) {
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
TEST_F(ReportRunTest, AStoredDemandThatIsNotTheCheckEndsTheReport) {
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

TEST_F(ReportRunTest, AStoredDemandOfAnElementThatIsNotReportedIsNotLookedAt) {
  run({});
  halve_stored_demand(result_path_);
  EXPECT_EQ(report({1}).outcome, RunOutcome::complete);
}

TEST_F(ReportRunTest, WithoutCombinationsThereIsNothingToReportAndTheUserIsTold) {
  model::Model bare = model_;
  bare.combinations = {};
  std::ofstream(path_) << "an earlier report\n";
  const ReportSummary summary = run_report(bare, options(), path_);
  EXPECT_EQ(summary.outcome, RunOutcome::nothing_to_check);
  EXPECT_NE(messages_, "");
  EXPECT_EQ(text(), "an earlier report\n");
  EXPECT_FALSE(fs::exists(result_path_));
}

// --- a disk that fills up ---

class ReportOnFullDisk : public ReportRunTest {
 protected:
  /// What a report that is not whole leaves.
  fs::path partial() const { return fs::path(path_) += ".partial"; }
  /// A report in a process whose files may have so many bytes.
  /// @return the failure it was told, empty when there was none
  std::string failure_with(std::size_t bytes) {
    const fs::path told = folder_.path() / "told";
    EXPECT_EQ(in_child([&] {
                limit_files(bytes);
                const ReportSummary summary = report();
                const bool failed = summary.outcome == RunOutcome::failed;
                std::ofstream(told) << summary.failure;
                return failed == !summary.failure.empty() ? 0 : 1;
              }),
              0);
    return bytes_of(told);
  }
};

TEST_F(ReportOnFullDisk, ItHasFailedWithItsFileAndTheReason) {
  run({});
  report();
  const std::size_t whole = text().size();
  EXPECT_EQ(failure_with(whole / 2),
            path_.string() + ": the report is incomplete: File too large; what was written is in " +
                partial().filename().string());
}

TEST_F(ReportOnFullDisk, WhatFitsStandsBesideTheEarlierReportWhichStays) {
  run({});
  report();
  const std::string whole = text();
  for (const std::size_t bytes : {whole.size() / 3, whole.size() - 1}) {
    failure_with(bytes);
    EXPECT_EQ(bytes_of(partial()), whole.substr(0, bytes));
    EXPECT_EQ(text(), whole);
  }
}

TEST_F(ReportOnFullDisk, WhereNothingFitsNothingIsLeft) {
  run({});
  failure_with(0);
  EXPECT_FALSE(fs::exists(partial()));
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(ReportOnFullDisk, TheNextReportTakesAwayWhatTheOneBeforeLeft) {
  run({});
  failure_with(1000);
  ASSERT_TRUE(fs::exists(partial()));
  report();
  EXPECT_FALSE(fs::exists(partial()));
}

TEST_F(ReportOnFullDisk, FinishedBlocksAreIntact) {
  run({});
  report();
  const std::string whole = text();
  const std::size_t second = whole.find("  MEMBER NO = 2,");
  failure_with(second + 200);
  EXPECT_THAT(bytes_of(partial()), StartsWith(whole.substr(0, second)));
  EXPECT_THAT(reported_elements(bytes_of(partial())).numbers, ElementsAre(1, 2));
}

TEST_F(ReportOnFullDisk, ResultsAreLeftAsTheyAre) {
  run({});
  const std::string before = results();
  failure_with(1000);
  EXPECT_EQ(results(), before);
}

/// A result file on a disk that takes no record.
class FullResultFile : public store::ResultWriter {
 public:
  void write(std::uint32_t, const T_RALU_D&, std::uint32_t, int) override {
    throw std::runtime_error("disk full");
  }
  bool read(std::uint32_t, std::uint32_t, int, T_RALU_D&) override { return false; }
  void end_element(const store::ElementNotes&) override {}
  void add_remark(const store::RemarkRow&) override {}
  void add_buckling(const store::BucklingRow&) override {}
  void flush() override {}
  void finish(store::RunState) override {}
  std::uint64_t record_count() const override { return 0; }
  std::uint64_t packed_bytes() const override { return 0; }
};

TEST_F(ReportOnFullDisk, ResultsThatCannotBeStoredFailWithTheReason) {
  SessionOptions full = options();
  full.create_writer = [](const fs::path&, const store::RunInfo&) {
    return std::make_unique<FullResultFile>();
  };
  const ReportSummary summary = run_report(model_, full, path_);
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_THAT(summary.failure,
              StartsWith(path_.string() + ": the report is incomplete: disk full"));
}

TEST_F(ReportOnFullDisk, AnElementWhoseResultsCannotBeStoredLeavesTheBlocksBeforeIt) {
  run({1});
  report({1});
  const std::string first = text();
  fs::permissions(result_path_, fs::perms::owner_read | fs::perms::group_read);
  const ReportSummary summary = report({1, 2});
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_EQ(summary.failure,
            path_.string() + ": the report is incomplete: " + result_path_.string() +
                ": is write-protected; what was written is in " + partial().filename().string());
  EXPECT_EQ(bytes_of(partial()), first);
  EXPECT_EQ(text(), first);
}

}  // namespace
}  // namespace aluframe::services
