// Runs whose result file fails them.

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "tests/unit/aluframe/services/columns_run.h"
#include "tests/unit/aluframe/services/stopping_listener.h"

namespace aluframe::services {
namespace {

namespace fs = std::filesystem;

/// Hands everything on to the real result file, but fails where it is told to.
class FailingWriter : public store::ResultWriter {
 public:
  enum class Fault { third_record, element_end, flush, finish };

  FailingWriter(std::unique_ptr<store::ResultWriter> inner, Fault fault)
      : inner_(std::move(inner)), fault_(fault) {}

  void write(std::uint32_t element, const T_RALU_D& record, std::uint32_t combination,
             int min_side) override {
    if (fault_ == Fault::third_record && inner_->record_count() == 2) fail();
    inner_->write(element, record, combination, min_side);
  }
  bool read(std::uint32_t element, std::uint32_t combination, int min_side,
            T_RALU_D& out) override {
    return inner_->read(element, combination, min_side, out);
  }
  void end_element(const store::ElementNotes& notes) override {
    if (fault_ == Fault::element_end) fail();
    inner_->end_element(notes);
  }
  void add_remark(const store::RemarkRow& row) override { inner_->add_remark(row); }
  void add_buckling(const store::BucklingRow& row) override { inner_->add_buckling(row); }
  void add_displacement(const store::DisplacementRow& row) override {
    inner_->add_displacement(row);
  }
  void flush() override {
    if (fault_ == Fault::flush) fail();
    inner_->flush();
  }
  void finish(store::RunState state) override {
    inner_->finish(state);
    if (fault_ == Fault::finish) fail();
  }
  std::uint64_t record_count() const override { return inner_->record_count(); }
  std::uint64_t packed_bytes() const override { return inner_->packed_bytes(); }

 private:
  [[noreturn]] static void fail() { throw std::runtime_error("disk full"); }

  std::unique_ptr<store::ResultWriter> inner_;
  Fault fault_;
};

class FailedRunTest : public ColumnsRun {
 protected:
  using Fault = FailingWriter::Fault;

  CheckSummary run_with(Fault fault) {
    SessionOptions failing = options();
    failing.create_writer = [fault](const fs::path& path, const store::RunInfo& info) {
      return std::make_unique<FailingWriter>(store::ResultWriter::create(path, info), fault);
    };
    return run_check(model_, failing);
  }
};

TEST_F(FailedRunTest, AResultFileThatCannotBeCreatedIsAFailureWithItsReason) {
  SessionOptions lost = options();
  lost.result_path = folder_.path() / "missing" / "columns.aluresult";
  const CheckSummary summary = run_check(model_, lost);
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_NE(summary.failure.find("missing/columns.aluresult"), std::string::npos)
      << summary.failure;
  EXPECT_EQ(summary.records, 0U);
  EXPECT_EQ(summary.checked_elements, 0U);
}

TEST_F(FailedRunTest, ADiskThatFillsUpIsAFailureWithItsReason) {
  const CheckSummary summary = run_with(Fault::third_record);
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_EQ(summary.failure, "disk full");
  EXPECT_EQ(summary.records, 2U);
  EXPECT_EQ(store::ResultReader::open(store::partial_path_of(options().result_path))->state(),
            store::RunState::failed);
}

TEST_F(FailedRunTest, ARunThatLosesWhatIsToBeSaidOfAnElementHasFailed) {
  const CheckSummary summary = run_with(Fault::element_end);
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_EQ(summary.failure, "disk full");
  EXPECT_EQ(store::ResultReader::open(store::partial_path_of(options().result_path))->state(),
            store::RunState::failed);
}

TEST_F(FailedRunTest, ARunThatWasCancelledIsCancelledWhateverFailsBehindThat) {
  StopAfter listener(1);
  for (const Fault fault : {Fault::flush, Fault::third_record}) {
    SessionOptions cancelled = options();
    cancelled.progress = &listener;
    cancelled.create_writer = [fault](const fs::path& path, const store::RunInfo& info) {
      return std::make_unique<FailingWriter>(store::ResultWriter::create(path, info), fault);
    };
    const CheckSummary summary = run_check(model_, cancelled);
    EXPECT_EQ(summary.outcome, fault == Fault::flush ? RunOutcome::cancelled : RunOutcome::failed);
  }
}

TEST_F(FailedRunTest, ARunWhoseFileCannotBeFinishedHasFailed) {
  const CheckSummary summary = run_with(Fault::finish);
  EXPECT_EQ(summary.outcome, RunOutcome::failed);
  EXPECT_EQ(summary.failure, "disk full");
}

}  // namespace
}  // namespace aluframe::services
