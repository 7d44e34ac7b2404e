// What stands of a report when its disk fills up.

#include <gmock/gmock.h>

#include <fstream>
#include <memory>
#include <stdexcept>

#include "aluframe/services/report_file.h"
#include "aluframe/services/report_run.h"
#include "tests/unit/aluframe/services/limited_process.h"
#include "tests/unit/aluframe/services/reported_columns.h"

namespace aluframe::services {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

class ReportOnFullDisk : public ReportedColumns {
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
  void add_displacement(const store::DisplacementRow&) override {}
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
