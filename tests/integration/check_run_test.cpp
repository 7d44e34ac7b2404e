// A whole run of the design module over our own host: model in, result file out.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "aluframe/io/model_file.h"
#include "aluframe/services/check_run.h"
#include "aluframe/services/session.h"
#include "tests/support/fault_host.h"
#include "tz_alu/manager/dgnaludatamgr.h"

namespace {

namespace fs = std::filesystem;
using namespace aluframe;

/// A portal of three members, the beam of two elements, with a linear, a seismic and an envelope
/// combination: every service of the contract is called at least once in its run.
constexpr const char* portal = R"json({
  "format": "aluframe-model", "version": 1, "title": "Portal",
  "units": { "force": "kN", "length": "m" },
  "settings": { "seismic": true },
  "frame": { "braced_a": true },
  "materials": [ { "number": 1, "alloy": "6061-T6" } ],
  "sections": [
    { "number": 1, "shape": "H", "welded": true,
      "dimensions": { "H": 300, "B1": 150, "tw": 8, "tf1": 12, "B2": 120 } },
    { "number": 2, "shape": "B", "dimensions": { "H": 120, "B": 80, "tw": 5, "tf1": 6 } } ],
  "nodes": [ { "number": 1, "x": 0, "y": 0, "z": 0 }, { "number": 2, "x": 0, "y": 0, "z": 4 },
             { "number": 3, "x": 3, "y": 0, "z": 4 }, { "number": 4, "x": 6, "y": 0, "z": 4 },
             { "number": 5, "x": 6, "y": 0, "z": 0 }, { "number": 6, "x": 3, "y": 3, "z": 4 } ],
  "supports": [ { "node": 1, "restrained": "all" }, { "node": 5, "restrained": ["Dx", "Dy", "Dz"] } ],
  "elements": [
    { "number": 1, "nodes": [1, 2], "section": 2, "material": 1 },
    { "number": 2, "nodes": [2, 3], "section": 1, "material": 1,
      "design": { "haz_width": 25, "length_factors": { "y": 0.9, "z": 1 } } },
    { "number": 3, "nodes": [4, 3], "section": 1, "material": 1, "releases": { "start": ["My"] } },
    { "number": 4, "nodes": [5, 4], "section": 2, "material": 1 },
    { "number": 5, "nodes": [3, 6], "section": 2, "material": 1, "kind": "truss" } ],
  "members": [ { "number": 1, "elements": [2, 3] } ],
  "load_cases": [ { "number": 1 }, { "number": 2, "kind": "response_spectrum" } ],
  "combinations": [
    { "number": 1, "terms": [ { "case": 1, "factor": 1.3 } ] },
    { "number": 2, "terms": [ { "case": 1, "factor": 1.0 }, { "case": 2, "factor": 1.4 } ] },
    { "number": 3, "kind": "envelope",
      "terms": [ { "combination": 1 }, { "combination": 2 } ] } ],
  "forces": [
    { "element": 1, "case": 1, "values": [ [-30, 0, 8, 0, 0, 0], [-28, 0, 8, 0, 12, 0] ] },
    { "element": 2, "case": 1, "values": [ [-8, 0, 28, 0, -12, 0], [-8, 0, 20, 0, 5, 1],
      [-8, 0, 10, 0, 20, 1], [-8, 0, 5, 0, 25, 1], [-8, 0, 0, 0, 30, 0] ] },
    { "element": 3, "case": 1, "values": [ [-8, 0, 28, 0, 0, 0], [-8, 0, 0, 0, 30, 0] ] },
    { "element": 4, "case": 1, "values": [ [-30, 0, -8, 0, 0, 0], [-28, 0, -8, 0, 0, 0] ] },
    { "element": 5, "case": 1, "values": [ [6, 0, 0, 0, 0, 0], [6, 0, 0, 0, 0, 0] ] },
    { "element": 1, "case": 2, "values": [ [2, 1, 3, 0, 6, 1], [2, 1, 3, 0, 6, 1] ] },
    { "element": 2, "case": 2, "values": [ [1, 1, 1, 0, 4, 1], [1, 1, 1, 0, 3, 1],
      [1, 1, 1, 0, 2, 1], [1, 1, 1, 0, 1, 1], [1, 1, 1, 0, 0, 1] ] },
    { "element": 3, "case": 2, "values": [ [1, 1, 1, 0, 0, 1], [1, 1, 1, 0, 1, 1] ] },
    { "element": 4, "case": 2, "values": [ [2, 1, 3, 0, 0, 1], [2, 1, 3, 0, 6, 1] ] },
    { "element": 5, "case": 2, "values": [ [3, 0, 0, 0, 0, 0], [3, 0, 0, 0, 0, 0] ] } ]
})json";

model::Model parsed(const std::string& text) {
  auto read = io::parse_model(text, "test.json");
  if (const auto* problem = std::get_if<io::Problem>(&read)) {
    throw std::runtime_error(problem->message());
  }
  return std::get<model::Model>(std::move(read));
}

std::string bytes_of(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class CheckRun : public testing::Test {
 protected:
  CheckRun() {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  ~CheckRun() override { fs::remove_all(folder_); }

  services::SessionOptions options() const {
    services::SessionOptions options;
    options.result_path = folder_ / "portal.aluresult";
    return options;
  }

  model::Model model_ = parsed(portal);
  fs::path folder_ =
      fs::path(testing::TempDir()) / testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(CheckRun, StoresOneRecordPerElementAndCombinationAndTheGoverningOne) {
  const services::CheckSummary summary = services::run_check(model_, options());
  ASSERT_EQ(summary.outcome, services::RunOutcome::complete) << summary.failure;
  EXPECT_EQ(summary.checked_elements, 5U);
  for (const store::NotChecked& item : summary.not_checked) {
    EXPECT_FALSE(item.combination.has_value()) << item.reason;
  }
  EXPECT_TRUE(summary.assertions.empty());

  // Two combinations with one side, one with two, and the governing record.
  EXPECT_EQ(summary.records, 5U * (2 + 2 + 1));
  const auto reader = store::ResultReader::open(options().result_path);
  EXPECT_EQ(reader->state(), store::RunState::complete);
  for (const std::uint32_t element : {1U, 2U, 3U, 4U, 5U}) {
    std::vector<std::pair<std::uint32_t, int>> keys;
    for (const store::StoredRecord& stored : reader->read_all(element)) {
      keys.emplace_back(stored.combination, stored.min_side);
    }
    EXPECT_EQ(keys,
              (std::vector<std::pair<std::uint32_t, int>>{{1, 0}, {2, 0}, {3, 0}, {3, 1}, {0, 0}}));
  }
}

TEST_F(CheckRun, TheGoverningRecordIsTheMergedRecordsOfAllCombinations) {
  services::run_check(model_, options());
  const auto reader = store::ResultReader::open(options().result_path);
  for (const std::uint32_t element : reader->elements()) {
    const std::vector<store::StoredRecord> records = reader->read_all(element);
    T_RALU_D merged = records.front().record;
    for (std::size_t i = 1; i + 1 < records.size(); ++i) merged.GetMaxRlt(records[i].record);
    for (std::size_t item = 0; item < kResultItems; ++item) {
      EXPECT_EQ(records.back().record.aComp[item].nPos, merged.aComp[item].nPos);
      EXPECT_EQ(records.back().record.aComp[item].dDemand, merged.aComp[item].dDemand);
      EXPECT_EQ(records.back().record.aComp[item].nLComb, merged.aComp[item].nLComb);
    }
  }
}

TEST_F(CheckRun, InnerPositionsAreCheckedOnlyWhereForcesAreGiven) {
  services::run_check(model_, options());
  const auto reader = store::ResultReader::open(options().result_path);
  const auto has_result = [&](std::uint32_t element, std::size_t position) {
    const T_RALU_D record = reader->read(element, 1, 0).value();
    const T_RALU_RLT& item = record.aSect[position].aItem[RALU_SLENDERNESS_Y];
    return !RaluIsEmpty(item.dDemand, item.dCapacity);
  };
  EXPECT_TRUE(has_result(2, 2));
  EXPECT_FALSE(has_result(3, 2));
  EXPECT_TRUE(has_result(3, 4));
}

TEST_F(CheckRun, ASecondRunLeavesTheSameBytes) {
  services::run_check(model_, options());
  const std::string first = bytes_of(options().result_path);
  services::run_check(model_, options());
  EXPECT_EQ(bytes_of(options().result_path), first);
}

TEST_F(CheckRun, AnExceptionAtAnyServiceCallEndsTheRunWithTheUnitsRestored) {
  const T_UNIT_INDEX user_units{1, 0};  // kN, m
  bool reached_end = false;
  int failed_runs = 0;
  for (int k = 1; !reached_end; ++k) {
    services::Session session(model_, options());
    test_support::FaultHost faulty(session, k);
    host::Bind(faulty);
    const int flag = IAluDgnDataMgr::Instance()->CheckCode(nullptr);
    host::Unbind();
    reached_end = !faulty.HasThrown();
    ASSERT_EQ(session.DocPoint()->GetUnitCtrl().GetUnitIndexCurrent(), user_units) << "call " << k;
    ASSERT_EQ(flag, reached_end ? 1 : 0) << "call " << k;
    if (!reached_end) ++failed_runs;
  }
  // 5 elements × 4 sides of combinations ask for forces at least once each.
  EXPECT_GT(failed_runs, 5 * 4);
}

TEST_F(CheckRun, AFailedRunLeavesTheOldResultsWhenItsFileCannotBeCreated) {
  services::run_check(model_, options());
  const std::string before = bytes_of(options().result_path);
  services::SessionOptions failing = options();
  failing.create_writer = [](const fs::path&,
                             const store::RunInfo&) -> std::unique_ptr<store::ResultWriter> {
    throw std::runtime_error("no space");
  };
  const services::CheckSummary summary = services::run_check(model_, failing);
  EXPECT_EQ(summary.outcome, services::RunOutcome::failed);
  EXPECT_EQ(summary.failure, "no space");
  EXPECT_EQ(bytes_of(options().result_path), before);
}

/// Stops after the first element.
struct StopAfterFirst : services::ProgressListener {
  void started(const std::string&) override {}
  bool advanced(int done, int) override { return done == 1; }
  void ended() override { ended_ = true; }
  bool ended_ = false;
};

TEST_F(CheckRun, CancellingKeepsTheFirstElementsRecordsAndSaysSo) {
  StopAfterFirst listener;
  services::SessionOptions cancelled = options();
  cancelled.progress = &listener;
  const services::CheckSummary summary = services::run_check(model_, cancelled);
  EXPECT_EQ(summary.outcome, services::RunOutcome::cancelled);
  EXPECT_TRUE(listener.ended_);
  const auto reader = store::ResultReader::open(store::partial_path_of(options().result_path));
  EXPECT_EQ(reader->state(), store::RunState::cancelled);
  EXPECT_EQ(reader->elements(), std::vector<std::uint32_t>{1});
  EXPECT_EQ(reader->read_all(1).size(), 5U);
}

}  // namespace
