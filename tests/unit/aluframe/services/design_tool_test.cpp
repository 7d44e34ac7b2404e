#include "aluframe/services/design_tool.h"

#include <gtest/gtest.h>

#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

class DesignToolTest : public testing::Test {
 protected:
  DesignTool tool(std::vector<model::Number> selected = {}, std::set<model::Number> wanted = {}) {
    return {model_, evaluator_, monitor_, std::move(selected), std::move(wanted)};
  }
  static std::vector<UINT> keys_of(const DesignTool& tool) {
    CArrayEx<T_LCOM_MAXMIN_K> keys;
    const int count = tool.GetAluDgnLCombs(keys, kAluDesignKind, 0);
    EXPECT_EQ(count, keys.GetSize());
    return {keys.begin(), keys.end()};
  }

  const model::Model model_ = sample_model();
  const model::CombinationEvaluator evaluator_{model_};
  RunMonitor monitor_{model_};
};

// Bit 27 is 1 << 27 = 134217728; combination 4 is not for design.
TEST_F(DesignToolTest, AnEnvelopeGivesTwoKeysAndALinearCombinationOne) {
  EXPECT_EQ(keys_of(tool()), (std::vector<UINT>{1, 2, 3, 3 + 134217728U, 5}));
}

TEST_F(DesignToolTest, ARunCanBeLimitedToCombinations) {
  EXPECT_EQ(keys_of(tool({}, {2, 4})), std::vector<UINT>{2});
}

TEST_F(DesignToolTest, ACombinationIsSeismicThroughWhatItContains) {
  EXPECT_EQ(tool().Get_SesiType(5, nullptr, kAluDesignKind), 1);
  EXPECT_EQ(tool().Get_SesiType(3, nullptr, kAluDesignKind), 0);
  EXPECT_EQ(tool().Get_SesiType(99, nullptr, kAluDesignKind), 0);
}

TEST_F(DesignToolTest, TheFilterKeepsKnownElementsInTheirOrderAndTellsTheMonitor) {
  CArray<UINT> in;
  for (const UINT elem : {3U, 99U, 1U}) in.Add(elem);
  CArray<UINT> out;
  tool().FiltAluKeysByMatl(in, out, 1);
  EXPECT_EQ(std::vector<UINT>(out.begin(), out.end()), (std::vector<UINT>{3, 1}));
  EXPECT_EQ(monitor_.element_count(), 2U);
}

TEST_F(DesignToolTest, TheSelectionIsWhatTheRunWasLimitedTo) {
  CArray<UINT> selected;
  tool({4, 2}).GetAllSelectedElem(selected);
  EXPECT_EQ(std::vector<UINT>(selected.begin(), selected.end()), (std::vector<UINT>{4, 2}));
}

}  // namespace
}  // namespace aluframe::services
