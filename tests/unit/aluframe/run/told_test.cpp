// Which elements a remark is about, and what results cover.

#include "aluframe/run/told.h"

#include <gtest/gtest.h>

#include "aluframe/run/results.h"

namespace aluframe::run {
namespace {

ConcernedElements concerned(const std::string& elements) {
  store::RemarkRow row;
  row.elements = elements;
  return ConcernedElements(row);
}

TEST(ConcernedElements, AreThoseInTheRangesAlone) {
  const ConcernedElements elements = concerned("2-4, 7, 9-10");
  for (const model::Number in : {2U, 3U, 4U, 7U, 9U, 10U}) EXPECT_TRUE(elements.contains(in)) << in;
  for (const model::Number out : {1U, 5U, 6U, 8U, 11U}) EXPECT_FALSE(elements.contains(out)) << out;
}

TEST(ConcernedElements, ARemarkThatNamesNoneIsAboutAll) {
  EXPECT_TRUE(concerned("").contains(5));
}

TEST(WithEnvelopes, NamesTheEnvelopeInThePlaceOfItsState) {
  const ModelCombination of_model = [](model::Number number) -> model::Number {
    return number > 1000 ? number / 1000 : number;
  };
  store::RemarkRow of_state, of_none;
  of_state.combination = 7002;
  const auto remarks = with_envelopes(std::vector{of_state, of_none}, of_model);
  EXPECT_EQ(remarks[0].combination, 7U);
  EXPECT_EQ(remarks[1].combination, std::nullopt);
  const store::NotChecked item{1, std::nullopt, "shear",
                               store::LargestForce{"Fy", 5.0, 0, 7002, 0}};
  const auto items = with_envelopes(std::vector{item}, of_model);
  EXPECT_EQ(items[0].largest->combination, 7U);
}

TEST(Coverage, CountsCombinationsAndTheirStatesInBrackets) {
  Coverage coverage;
  coverage.combinations = {1, 7};
  coverage.of_combinations = 3;
  coverage.states = {1, 2};
  coverage.of_states = 3;
  EXPECT_EQ(combinations_text(coverage), "2 of 3");
  coverage.by_states = true;
  EXPECT_EQ(combinations_text(coverage), "2 of 3 (as 2 of 3 states)");
  coverage.of_states = 2;
  EXPECT_EQ(combinations_text(coverage), "2 of 3 (as 2 states)");
}

}  // namespace
}  // namespace aluframe::run
