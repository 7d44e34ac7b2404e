#include "aluframe/services/design_manager.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "tests/unit/aluframe/services/sample_model.h"
#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::services {
namespace {

namespace fs = std::filesystem;

/// Fails at every record.
class FullDisk : public store::ResultWriter {
 public:
  void write(std::uint32_t, const T_RALU_D&, std::uint32_t, int) override { fail(); }
  bool read(std::uint32_t, std::uint32_t, int, T_RALU_D&) override { fail(); }
  void end_element(const store::ElementNotes&) override {}
  void add_remark(const store::RemarkRow&) override {}
  void add_buckling(const store::BucklingRow&) override {}
  void add_displacement(const store::DisplacementRow&) override {}
  void flush() override { fail(); }
  void finish(store::RunState) override {}
  std::uint64_t record_count() const override { return 0; }
  std::uint64_t packed_bytes() const override { return 0; }

 private:
  [[noreturn]] static void fail() { throw std::runtime_error("disk full"); }
};

std::unique_ptr<store::ResultWriter> on_full_disk(const fs::path&, const store::RunInfo&) {
  return std::make_unique<FullDisk>();
}

std::string content_of(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

T_RALU_D record_of(UINT combination, double demand) {
  T_RALU_D record;
  record.nHasResult = 1;
  record.aSect[2].aItem[RALU_STRENGTH] = {demand, 100.0, 0.0};
  record.SetLCombKey(combination, 0);
  record.MakeCompItem();
  return record;
}

class DesignManagerTest : public testing::Test {
 protected:
  DesignManager manager(ResultWriterFactory create = store::ResultWriter::create) {
    return {model_, evaluator_, scale_, monitor_, file_, {}, std::move(create)};
  }

  const model::Model model_ = sample_model();
  const model::CombinationEvaluator evaluator_{model_};
  UnitScale scale_;
  RunMonitor monitor_{model_};
  const TemporaryFolder folder_;
  const fs::path file_ = folder_.path() / "sample.aluresult";
};

// Element 1, start, N and My: case 1 has 1 kN and 5 kN·m, case 2 −1 and 1. Combination 1 doubles
// case 1: 2, 10; combination 2 is case 1 + 3 · case 2: −2, 8.
TEST_F(DesignManagerTest, ForcesOfALinearCombinationAreSummedInNewtonAndMillimetre) {
  T_ALU_FORCE_D forces;
  ASSERT_EQ(manager().GetElementForce(1, 2, forces, false), 1);
  EXPECT_EQ(forces.aForce[0][0], -2e3F);
  EXPECT_EQ(forces.aForce[0][4], 8e6F);
  EXPECT_EQ(forces.aForce[4][5], 12e6F);
  EXPECT_EQ(forces.nLComb, 2U);
}

TEST_F(DesignManagerTest, AllSixForcesKeepTheirPlaces) {
  T_ALU_FORCE_D forces;
  ASSERT_EQ(manager().GetElementForce(1, 1, forces, false), 1);
  EXPECT_EQ(forces.aForce[0],
            (std::array<float, 9>{2e3F, 4e3F, 6e3F, 8e6F, 10e6F, 12e6F, 0, 0, 0}));
  EXPECT_EQ(forces.aForce[4],
            (std::array<float, 9>{14e3F, 16e3F, 18e3F, 20e6F, 22e6F, 24e6F, 0, 0, 0}));
}

TEST_F(DesignManagerTest, ForcesAtTheEndsAloneHaveNoInnerPositions) {
  T_ALU_FORCE_D forces;
  for (auto& left_over : forces.aForce) left_over.fill(5.0F);
  ASSERT_EQ(manager().GetElementForce(1, 1, forces, false), 1);
  EXPECT_EQ(forces.bInner, 0);
  EXPECT_EQ(forces.aForce[2], (std::array<float, 9>{}));
  EXPECT_EQ(forces.aForce[0][8], 0.0F);
}

TEST_F(DesignManagerTest, ForcesAtFivePositionsHaveInnerOnes) {
  const model::Model model = sample_with(
      "[1, 2, 3, 4, 5, 6],",
      "[1, 2, 3, 4, 5, 6], [0, 0, 0, 0, 20, 0], [0, 0, 0, 0, 30, 0], [0, 0, 0, 0, 40, 0],");
  const model::CombinationEvaluator evaluator(model);
  DesignManager manager(model, evaluator, scale_, monitor_, file_, {}, {});
  T_ALU_FORCE_D forces;
  ASSERT_EQ(manager.GetElementForce(1, 1, forces, false), 1);
  EXPECT_EQ(forces.bInner, 1);
  EXPECT_EQ(forces.aForce[1][4], 40e6F);
  EXPECT_EQ(forces.aForce[2][4], 60e6F);
  EXPECT_EQ(forces.aForce[3][4], 80e6F);
}

TEST_F(DesignManagerTest, AnEnvelopeHasItsExtremesOnItsTwoSides) {
  T_ALU_FORCE_D forces;
  ASSERT_EQ(manager().GetElementForce(1, 3, forces, false), 1);
  EXPECT_EQ(forces.aForce[0][0], 2e3F);
  EXPECT_EQ(forces.aForce[0][4], 10e6F);
  EXPECT_EQ(forces.nLComb, 3U);
  ASSERT_EQ(manager().GetElementForce(1, 3, forces, true), 1);
  EXPECT_EQ(forces.aForce[0][0], -2e3F);
  EXPECT_EQ(forces.aForce[0][4], 8e6F);
  EXPECT_EQ(forces.nLComb, 3U | 1U << 27);
}

TEST_F(DesignManagerTest, ForcesAreHandedOutInTheCurrentUnits) {
  scale_ = UnitScale({1, 0});  // kN, m
  T_ALU_FORCE_D forces;
  ASSERT_EQ(manager().GetElementForce(1, 1, forces, false), 1);
  const float expected[] = {2.0F, 4.0F, 6.0F, 8.0F, 10.0F, 12.0F};
  for (std::size_t i = 0; i < 6; ++i) EXPECT_FLOAT_EQ(forces.aForce[0][i], expected[i]) << i;
}

TEST_F(DesignManagerTest, UnknownKeysReturn0AndAreNoMissingForces) {
  monitor_.set_elements({1});
  T_ALU_FORCE_D forces;
  forces.nLComb = 77;
  EXPECT_EQ(manager().GetElementForce(99, 1, forces, false), 0);
  EXPECT_EQ(manager().GetElementForce(1, 99, forces, false), 0);
  EXPECT_EQ(forces.nLComb, 77U);
  monitor_.note_record(1, 0, {});
  EXPECT_EQ(monitor_.not_checked().front().reason, "no forces in any combination");
}

TEST_F(DesignManagerTest, MissingForcesReturn0AndAreNotedWithTheirCase) {
  monitor_.set_elements({2});
  T_ALU_FORCE_D forces;
  EXPECT_EQ(manager().GetElementForce(2, 1, forces, false), 0);
  monitor_.note_record(2, 0, {});
  EXPECT_EQ(monitor_.not_checked().front().reason,
            "no forces (none for load case 1) in any combination");
}

TEST_F(DesignManagerTest, RecordsAreReadBackByElementCombinationAndSide) {
  DesignManager design = manager();
  ASSERT_EQ(design.CreateDesignResultFile(), 1);
  EXPECT_EQ(design.WriteDesignResult(1, record_of(3, 30), 3, 0, 0), 1);
  EXPECT_EQ(design.WriteDesignResult(1, record_of(3, 40), 3, 1, 0), 1);
  EXPECT_EQ(design.WriteDesignResult(1, record_of(3, 40), 0, 0, 0), 1);
  EXPECT_NE(design.CheckDesignFile(), 0);
  T_RALU_D read;
  ASSERT_EQ(design.ReadDesignResult(1, read, 3, 0, 0), 1);
  EXPECT_EQ(read.aSect[2].aItem[RALU_STRENGTH].dDemand, 30.0);
  ASSERT_EQ(design.ReadDesignResult(1, read, 3, 1, 0), 1);
  EXPECT_EQ(read.aSect[2].aItem[RALU_STRENGTH].dDemand, 40.0);
  EXPECT_EQ(design.ReadDesignResult(1, read, 2, 0, 0), 0) << "no record of that combination";
  EXPECT_EQ(design.ReadDesignResult(2, read, 3, 0, 0), 0) << "no record of that element";
}

TEST_F(DesignManagerTest, WhatIsWrittenIsCountedByTheMonitor) {
  monitor_.set_elements({1});
  DesignManager design = manager();
  ASSERT_EQ(design.CreateDesignResultFile(), 1);
  design.WriteDesignResult(1, record_of(1, 30), 1, 0, 0);
  design.WriteDesignResult(1, record_of(1, 30), 0, 0, 0);
  EXPECT_EQ(monitor_.checked_positions(), 1U);
  EXPECT_EQ(monitor_.checked_elements(), 1U);
}

TEST_F(DesignManagerTest, WithoutAResultFileNothingIsStoredOrFound) {
  monitor_.set_elements({1});
  DesignManager design = manager();
  T_RALU_D record = record_of(1, 30);
  EXPECT_EQ(design.WriteDesignResult(1, record, 1, 0, 0), 0);
  EXPECT_EQ(design.ReadDesignResult(1, record, 1, 0, 0), 0);
  EXPECT_EQ(design.CheckDesignFile(), 0);
  EXPECT_EQ(design.writer(), nullptr);
  EXPECT_EQ(monitor_.checked_positions(), 0U);
}

TEST_F(DesignManagerTest, ANewRunReplacesTheRecordsOfTheOneBefore) {
  DesignManager design = manager();
  ASSERT_EQ(design.CreateDesignResultFile(), 1);
  design.WriteDesignResult(1, record_of(1, 30), 1, 0, 0);
  ASSERT_EQ(design.CreateDesignResultFile(), 1);
  T_RALU_D read;
  EXPECT_EQ(design.ReadDesignResult(1, read, 1, 0, 0), 0);
  EXPECT_EQ(design.writer()->record_count(), 0U);
}

TEST_F(DesignManagerTest, AFileThatCannotBeCreatedIsNotedAndReturns0) {
  DesignManager failing =
      manager([](const auto&, const auto&) -> std::unique_ptr<store::ResultWriter> {
        throw std::runtime_error("read-only");
      });
  EXPECT_EQ(failing.CreateDesignResultFile(), 0);
  EXPECT_EQ(monitor_.failure(), "read-only");
  EXPECT_EQ(failing.CheckDesignFile(), 0);
}

TEST_F(DesignManagerTest, WhatIsNoResultFileIsLeftAsItIs) {
  std::ofstream(file_) << "a drawing";
  EXPECT_EQ(manager().CreateDesignResultFile(), 0);
  EXPECT_NE(monitor_.failure().value_or("").find("sample.aluresult"), std::string::npos);
  EXPECT_EQ(content_of(file_), "a drawing");
}

TEST_F(DesignManagerTest, ErrorsOfTheWriterAreNotedAndThrownOn) {
  DesignManager full = manager(on_full_disk);
  ASSERT_EQ(full.CreateDesignResultFile(), 1);
  EXPECT_THROW(full.WriteDesignResult(1, {}, 1, 0, 0), std::runtime_error);
  EXPECT_EQ(monitor_.failure(), "disk full");
  T_RALU_D record;
  EXPECT_THROW(full.ReadDesignResult(1, record, 1, 0, 0), std::runtime_error);
  EXPECT_THROW(full.CheckDesignFile(), std::runtime_error);
}

TEST_F(DesignManagerTest, ARecordThatWasNotStoredDoesNotCount) {
  monitor_.set_elements({1});
  DesignManager full = manager(on_full_disk);
  ASSERT_EQ(full.CreateDesignResultFile(), 1);
  EXPECT_THROW(full.WriteDesignResult(1, record_of(1, 30), 0, 0, 0), std::runtime_error);
  EXPECT_EQ(monitor_.checked_elements(), 0U);
}

TEST_F(DesignManagerTest, ElementsAreCountedFromOneInTheOrderOfTheFile) {
  const model::Model model =
      sample_with(R"("number": 5, "nodes": [1, 4])", R"("number": 50, "nodes": [1, 4])");
  const model::CombinationEvaluator evaluator(model);
  const DesignManager manager(model, evaluator, scale_, monitor_, file_, {}, {});
  EXPECT_EQ(manager.GetOriginElem(1), 1U);
  EXPECT_EQ(manager.GetOriginElem(5), 50U);
  for (const int outside : {0, 6, -1}) EXPECT_EQ(manager.GetOriginElem(outside), 0U) << outside;
}

TEST_F(DesignManagerTest, TheDesignFlagIsKept) {
  DesignManager design = manager();
  EXPECT_EQ(design.design_flag(), 0);
  design.SetDesignFlag(1);
  EXPECT_EQ(design.design_flag(), 1);
}

}  // namespace
}  // namespace aluframe::services
