// What results come to, as the window says it in one line.

#include "apps/desktop/result_words.h"

#include <gtest/gtest.h>

namespace gui_test {
namespace {

using namespace aluframe;
using desktop::outcome_words;

/// Of a whole check of two elements in one combination; nothing fails.
run::ShownResults whole() {
  run::ShownResults results;
  results.coverage.elements = results.coverage.of_elements = 2;
  results.coverage.states = results.coverage.combinations = {1};
  results.coverage.of_states = results.coverage.of_combinations = 1;
  results.elements = {{1, {.element = 1, .items = {}}}, {2, {.element = 2, .items = {}}}};
  return results;
}

TEST(OutcomeWords, CountTheElementsThatFail) {
  run::ShownResults results = whole();
  EXPECT_EQ(outcome_words(results), "0 elements fail");
  results.told.over = 1;
  EXPECT_EQ(outcome_words(results), "1 element fails");
}

// A frame that buckles is lost, whatever the ratios of its elements are.
TEST(OutcomeWords, SayThatTheFrameBuckles) {
  run::ShownResults results = whole();
  results.told.buckling_factors = {{.combination = 1, .factor = 1.02}};
  EXPECT_EQ(outcome_words(results), "0 elements fail");
  results.told.buckling_factors = {{.combination = 1, .factor = 0.98}};
  EXPECT_EQ(outcome_words(results), "0 elements fail; the frame buckles");
}

TEST(OutcomeWords, SayThatTheFrameIsNearBucklingOrThatItIsUnknown) {
  run::ShownResults results = whole();
  results.told.buckling_factors = {{.combination = 1, .factor = 3.6}};
  results.told.remarks.resize(1);
  results.told.remarks[0].kind = "buckling";
  EXPECT_EQ(outcome_words(results), "0 elements fail; buckling below its limit");
  results.told.buckling_factors[0].factor = 0.9;
  EXPECT_EQ(outcome_words(results), "0 elements fail; the frame buckles");
  results.told.remarks.clear();
  results.told.buckling_factors = {{.combination = 1, .factor = {}, .unknown = "given forces"}};
  EXPECT_EQ(outcome_words(results), "0 elements fail; buckling unknown");
  results.told.buckling_factors.clear();
  results.told.buckling = run::FrameBuckling::off;
  EXPECT_EQ(outcome_words(results), "0 elements fail; buckling unknown");
}

TEST(OutcomeWords, SayThatDisplacementsPassTheirLimitsOrAreUnknown) {
  run::ShownResults results = whole();
  results.told.displacements = {{.first_node = 1, .value = -20.0, .limit = 20.0}};
  EXPECT_EQ(outcome_words(results), "0 elements fail");
  results.told.displacements[0].value = -20.1;
  EXPECT_EQ(outcome_words(results), "0 elements fail; displacements over their limits");
  results.told.displacements.clear();
  results.told.remarks.resize(1);
  results.told.remarks[0].kind = "unknown displacements";
  EXPECT_EQ(outcome_words(results), "0 elements fail; displacements unknown");
}

TEST(OutcomeWords, SayWhatOnlySafeRatiosTell) {
  run::ShownResults results = whole();
  results.told.safe = run::SafeSummary{.elements = 2, .over = 2, .unsaid = 1, .worst = {}};
  EXPECT_EQ(outcome_words(results), "0 elements fail; 1 more by its safe ratio");
}

// Where no check is made for a force, only a second opinion can find it safe.
TEST(OutcomeWords, CountTheForcesWithoutACheck) {
  run::ShownResults results = whole();
  const auto acts = [](std::uint32_t element, const char* component) {
    return store::NotChecked{.element = element,
                             .combination = 1,
                             .reason = component,
                             .largest = {{.component = component, .magnitude = 1.0}}};
  };
  results.told.not_checked = {acts(1, "Fy"), {.element = 2, .combination = 1, .reason = "other"}};
  EXPECT_EQ(outcome_words(results), "0 elements fail; 1 kind of force without a check");
  results.told.not_checked = {acts(1, "Fy"), acts(2, "Fy"), acts(2, "Mx")};
  EXPECT_EQ(outcome_words(results), "0 elements fail; 2 kinds of force without a check");
  results.told.remarks.resize(2);
  results.told.remarks[0].kind = "C5";
  results.told.remarks[0].ratio = 0.3;
  results.told.remarks[1].kind = "C6";
  results.told.remarks[1].ratio = 1.2;
  EXPECT_EQ(outcome_words(results), "0 elements fail; 1 kind of force without a check");
  results.told.remarks[1].ratio = 0.9;
  EXPECT_EQ(outcome_words(results), "0 elements fail");
}

TEST(OutcomeWords, SayThatThereIsNoSecondOpinion) {
  run::ShownResults results = whole();
  results.told.second_opinion = run::SecondOpinion::off;
  EXPECT_EQ(outcome_words(results), "0 elements fail; no second opinion");
}

TEST(OutcomeWords, SayWhatIsNotKnown) {
  run::ShownResults results = whole();
  results.elements.erase(2);
  results.coverage.of_elements = 31;
  results.coverage.of_states = results.coverage.of_combinations = 4;
  EXPECT_EQ(outcome_words(results),
            "0 elements fail; 1 element without a check; results of 2 of 31 elements; "
            "combinations 1 of 4");
}

}  // namespace
}  // namespace gui_test
