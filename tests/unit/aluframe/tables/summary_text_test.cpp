// The summary of a run for the user.

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "aluframe/tables/check_summary.h"

namespace aluframe::tables {
namespace {

run::Input sample_input() {
  run::Input input;
  model::Model& model = input.model;
  model.title = "Portal";
  model::Combination named;
  named.number = 3;
  named.name = "ULS";
  model.combinations.add(named);
  return input;
}

services::CheckSummary sample_summary() {
  services::CheckSummary summary;
  summary.outcome = services::RunOutcome::complete;
  summary.elements = 5;
  summary.checked_elements = 4;
  summary.combinations = 3;
  summary.sides = 3;
  summary.checked_positions = 40;
  summary.records = 16;
  summary.seconds = 0.5;
  return summary;
}

services::WorstCheck worst(UINT combination, int min_side) {
  return {2,
          RALU_SHEAR_Z,
          {.nPos = 4, .dDemand = 66, .dCapacity = 55, .nLComb = combination, .nMinSide = min_side}};
}

std::string text_of(const run::Input& input, const services::CheckSummary& summary) {
  run::CheckResult result;
  result.summary = summary;
  return summary_text(input, result);
}

std::string line_of(const services::CheckSummary& summary, const std::string& name) {
  const std::string text = text_of(sample_input(), summary);
  const std::size_t start = text.find("  " + name);
  return start == std::string::npos ? "" : text.substr(start, text.find('\n', start) - start);
}

// 40 positions in 0.5 s: 80/s. 66/55 = 1.2.
TEST(SummaryText, SaysWhatWasDoneAndWhatGoverns) {
  services::CheckSummary summary = sample_summary();
  summary.elements_over_limit = 1;
  summary.worst = worst(3, 0);
  EXPECT_EQ(text_of(sample_input(), summary),
            "Portal\n"
            "  elements      4 of 5 checked\n"
            "  combinations  3\n"
            "  checks        40 positions, 16 records stored\n"
            "  time          0.50 s (80 positions/s)\n"
            "  worst ratio   1.2000 (shear z), element 2, position J, combination 3 \"ULS\"\n"
            "  over 1        1 element\n"
            "  buckling      not looked at\n");
}

TEST(SummaryText, CountsBothSidesBesideTheCombinations) {
  services::CheckSummary summary = sample_summary();
  summary.sides = 4;
  EXPECT_EQ(line_of(summary, "combinations"), "  combinations  3 (4 with both sides of envelopes)");
}

TEST(SummaryText, SaysHowManyStatesAreChecked) {
  services::CheckSummary summary = sample_summary();
  summary.by_states = true;
  summary.sides = 2;  // other combinations stand for some envelopes
  EXPECT_EQ(line_of(summary, "combinations"), "  combinations  3 (as 2 states)");
}

TEST(SummaryText, NamesTheSideOfTheWorstCheck) {
  services::CheckSummary summary = sample_summary();
  summary.worst = worst(4, 1);
  EXPECT_EQ(
      line_of(summary, "worst ratio"),
      "  worst ratio   1.2000 (shear z), element 2, position J, combination 4 (minimum side)");
}

TEST(SummaryText, WithoutAnyCheckThereIsNoWorst) {
  EXPECT_EQ(line_of(sample_summary(), "worst ratio"), "  worst ratio   none");
}

TEST(SummaryText, CountsElementsOverOne) {
  services::CheckSummary summary = sample_summary();
  EXPECT_EQ(line_of(summary, "over 1"), "  over 1        0 elements");
  summary.elements_over_limit = 2;
  EXPECT_EQ(line_of(summary, "over 1"), "  over 1        2 elements");
}

TEST(SummaryText, ListsWhatWasNotChecked) {
  services::CheckSummary summary = sample_summary();
  summary.not_checked = {{5, std::nullopt, "no forces in any combination"}};
  const std::string text = text_of(sample_input(), summary);
  EXPECT_NE(text.find("  not checked\n    element 5: no forces in any combination\n"),
            std::string::npos);
}

TEST(SummaryText, AModelWithoutATitleIsUntitled) {
  EXPECT_EQ(text_of(run::Input(), sample_summary()).find("Untitled model\n"), 0U);
}

TEST(SummaryCsv, CountsTheElementsOverOneApartFromThoseThatAreChecked) {
  run::CheckResult result;
  result.summary = sample_summary();
  result.summary.elements_over_limit = 2;
  const std::string csv = summary_csv(sample_input(), result);
  std::istringstream lines(csv);
  std::string keys, values;
  std::getline(lines, keys);
  std::getline(lines, values);
  // "complete", 5 elements, 4 checked, 3 combinations, 40 positions, 16 records, 0.5 s, 2 over 1
  EXPECT_TRUE(
      keys.starts_with("outcome,elements,checked_elements,combinations,checked_positions,"
                       "records,seconds,elements_over_1,"))
      << keys;
  EXPECT_TRUE(values.starts_with("complete,5,4,3,40,16,0.5,2,")) << values;
}

}  // namespace
}  // namespace aluframe::tables
