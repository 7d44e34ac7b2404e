#include "aluframe/services/design_tool.h"

#include <gtest/gtest.h>

#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

constexpr UINT minimum_side = 134217728;  // bit 27

std::vector<UINT> values_of(const CArray<UINT>& array) {
  return {array.begin(), array.end()};
}

/// Design keys of a model; `wanted`: what the run is limited to.
std::vector<UINT> keys_of(const model::Model& model, std::set<model::Number> wanted = {}) {
  const model::CombinationEvaluator evaluator(model);
  RunMonitor monitor(model);
  CArrayEx<T_LCOM_MAXMIN_K> keys;
  keys.Add(77);
  const DesignTool tool(model, evaluator, monitor, {}, std::move(wanted));
  const int count = tool.GetAluDgnLCombs(keys, kAluDesignKind, 0);
  EXPECT_EQ(count, keys.GetSize());
  return values_of(keys);
}

class DesignToolTest : public testing::Test {
 protected:
  DesignTool tool(std::vector<model::Number> selected = {}) {
    return {model_, evaluator_, monitor_, std::move(selected), {}};
  }

  const model::Model model_ = sample_model();
  const model::CombinationEvaluator evaluator_{model_};
  RunMonitor monitor_{model_};
};

TEST_F(DesignToolTest, AluminiumDesignIsAlwaysOn) {
  EXPECT_NE(tool().IsUseAluDgn(), 0);
}

// Combination 3 is an envelope; 4 is not for design.
TEST_F(DesignToolTest, AnEnvelopeGivesTwoKeysAndALinearCombinationOne) {
  EXPECT_EQ(keys_of(model_), (std::vector<UINT>{1, 2, 3, 3 + minimum_side, 5}));
}

TEST_F(DesignToolTest, ALinearCombinationWithAnEnvelopeGivesTwoKeys) {
  const model::Model model = sample_with(R"({ "combination": 4 })", R"({ "combination": 3 })");
  EXPECT_EQ(keys_of(model), (std::vector<UINT>{1, 2, 3, 3 + minimum_side, 5, 5 + minimum_side}));
}

TEST_F(DesignToolTest, AnEnvelopeThatIsNotForDesignGivesNoKey) {
  const model::Model model =
      sample_with(R"("kind": "envelope")", R"("kind": "envelope", "design": false)");
  EXPECT_EQ(keys_of(model), (std::vector<UINT>{1, 2, 5}));
}

TEST_F(DesignToolTest, ARunCanBeLimitedToCombinationsWithBothTheirSides) {
  EXPECT_EQ(keys_of(model_, {2}), std::vector<UINT>{2});
  EXPECT_EQ(keys_of(model_, {3, 1}), (std::vector<UINT>{1, 3, 3 + minimum_side}));
  EXPECT_EQ(keys_of(model_, {2, 4}), std::vector<UINT>{2}) << "4 is not for design";
  EXPECT_EQ(keys_of(model_, {99}), std::vector<UINT>{});
}

// 5 contains 4, which consists of a seismic static case.
TEST_F(DesignToolTest, ACombinationIsSeismicThroughWhatItContains) {
  EXPECT_EQ(tool().Get_SesiType(4, nullptr, kAluDesignKind), 1);
  EXPECT_EQ(tool().Get_SesiType(5, nullptr, kAluDesignKind), 1);
  EXPECT_EQ(tool().Get_SesiType(3, nullptr, kAluDesignKind), 0);
}

TEST_F(DesignToolTest, ACombinationThatTheUserMarkedIsSeismic) {
  const model::Model model =
      sample_with(R"("kind": "envelope")", R"("kind": "envelope", "seismic": true)");
  const model::CombinationEvaluator evaluator(model);
  const DesignTool marked(model, evaluator, monitor_, {}, {});
  EXPECT_EQ(marked.Get_SesiType(3, nullptr, kAluDesignKind), 1);
  EXPECT_EQ(marked.Get_SesiType(3 + minimum_side, nullptr, kAluDesignKind), 1)
      << "on its minimum side as well";
  EXPECT_EQ(marked.Get_SesiType(2, nullptr, kAluDesignKind), 0);
}

TEST_F(DesignToolTest, AnUnknownCombinationIsNotSeismic) {
  EXPECT_EQ(tool().Get_SesiType(99, nullptr, kAluDesignKind), 0);
  EXPECT_EQ(tool().Get_SesiType(0, nullptr, kAluDesignKind), 0);
}

TEST_F(DesignToolTest, TheFilterKeepsKnownElementsInTheirOrder) {
  CArray<UINT> in;
  for (const UINT elem : {3U, 99U, 1U, 5U}) in.Add(elem);
  CArray<UINT> out;
  out.Add(77);
  EXPECT_EQ(tool().FiltAluKeysByMatl(in, out, 1), 1);
  EXPECT_EQ(values_of(out), (std::vector<UINT>{3, 1, 5}));
}

TEST_F(DesignToolTest, TheFilterTellsTheMonitorWhatWillBeChecked) {
  CArray<UINT> in;
  for (const UINT elem : {3U, 99U, 1U}) in.Add(elem);
  CArray<UINT> out;
  tool().FiltAluKeysByMatl(in, out, 1);
  EXPECT_EQ(monitor_.element_count(), 2U);
  monitor_.set_done(1);
  EXPECT_EQ(monitor_.not_checked().front().element, 3U);
}

TEST_F(DesignToolTest, TheSelectionIsWhatTheRunWasLimitedTo) {
  CArray<UINT> selected;
  selected.Add(77);
  tool({4, 2}).GetAllSelectedElem(selected);
  EXPECT_EQ(values_of(selected), (std::vector<UINT>{4, 2}));
  tool().GetAllSelectedElem(selected);
  EXPECT_TRUE(selected.IsEmpty());
}

}  // namespace
}  // namespace aluframe::services
