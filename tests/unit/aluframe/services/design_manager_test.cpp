#include "aluframe/services/design_manager.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

/// Fails at the first record.
class FullDisk : public store::ResultWriter {
 public:
  void write(std::uint32_t, const T_RALU_D&, std::uint32_t, int) override {
    throw std::runtime_error("disk full");
  }
  bool read(std::uint32_t, std::uint32_t, int, T_RALU_D&) override { return false; }
  void add_not_checked(const store::NotChecked&) override {}
  void flush() override { throw std::runtime_error("disk full"); }
  void finish(store::RunState) override {}
  std::uint64_t record_count() const override { return 0; }
  std::uint64_t packed_bytes() const override { return 0; }
};

class DesignManagerTest : public testing::Test {
 protected:
  DesignManager manager(ResultWriterFactory create) {
    return {model_, evaluator_, scale_, monitor_, "unused.aluresult", {}, std::move(create)};
  }

  const model::Model model_ = sample_model();
  const model::CombinationEvaluator evaluator_{model_};
  UnitScale scale_;
  RunMonitor monitor_{model_};
};

// Element 1, start, N and My: case 1 has 1 kN and 5 kN·m, case 2 −1 and 1. Combination 1 doubles
// case 1: 2, 10; combination 2 is case 1 + 3 · case 2: −2, 8.
TEST_F(DesignManagerTest, ForcesOfALinearCombinationAreSummedInNewtonAndMillimetre) {
  T_ALU_FORCE_D forces;
  ASSERT_EQ(manager({}).GetElementForce(1, 2, forces, false), 1);
  EXPECT_EQ(forces.aForce[0][0], -2e3F);
  EXPECT_EQ(forces.aForce[0][4], 8e6F);
  EXPECT_EQ(forces.aForce[4][5], 12e6F);
  EXPECT_EQ(forces.nLComb, 2U);
  EXPECT_EQ(forces.bInner, 0);
}

TEST_F(DesignManagerTest, AnEnvelopeHasItsExtremesOnItsTwoSides) {
  T_ALU_FORCE_D forces;
  ASSERT_EQ(manager({}).GetElementForce(1, 3, forces, false), 1);
  EXPECT_EQ(forces.aForce[0][0], 2e3F);
  EXPECT_EQ(forces.aForce[0][4], 10e6F);
  ASSERT_EQ(manager({}).GetElementForce(1, 3, forces, true), 1);
  EXPECT_EQ(forces.aForce[0][0], -2e3F);
  EXPECT_EQ(forces.aForce[0][4], 8e6F);
  EXPECT_EQ(forces.nLComb, 3U | 1U << 27);
}

TEST_F(DesignManagerTest, ForcesAreHandedOutInTheCurrentUnits) {
  scale_ = UnitScale({1, 0});
  T_ALU_FORCE_D forces;
  ASSERT_EQ(manager({}).GetElementForce(1, 2, forces, false), 1);
  EXPECT_FLOAT_EQ(forces.aForce[0][0], -2.0F);
  EXPECT_FLOAT_EQ(forces.aForce[0][4], 8.0F);
}

TEST_F(DesignManagerTest, UnknownKeysAndMissingForcesReturn0) {
  T_ALU_FORCE_D forces;
  EXPECT_EQ(manager({}).GetElementForce(99, 1, forces, false), 0);
  EXPECT_EQ(manager({}).GetElementForce(1, 99, forces, false), 0);
  EXPECT_EQ(manager({}).GetElementForce(2, 1, forces, false), 0);
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

TEST_F(DesignManagerTest, AnErrorOfTheWriterIsNotedAndThrownOn) {
  DesignManager full =
      manager([](const auto&, const auto&) { return std::make_unique<FullDisk>(); });
  ASSERT_EQ(full.CreateDesignResultFile(), 1);
  EXPECT_THROW(full.WriteDesignResult(1, {}, 1, 0, 0), std::runtime_error);
  EXPECT_EQ(monitor_.failure(), "disk full");
  EXPECT_THROW(full.CheckDesignFile(), std::runtime_error);
}

TEST_F(DesignManagerTest, ElementsAreCountedFromOneInTheOrderOfTheFile) {
  EXPECT_EQ(manager({}).GetOriginElem(1), 1U);
  EXPECT_EQ(manager({}).GetOriginElem(5), 5U);
  EXPECT_EQ(manager({}).GetOriginElem(0), 0U);
  EXPECT_EQ(manager({}).GetOriginElem(6), 0U);
}

}  // namespace
}  // namespace aluframe::services
