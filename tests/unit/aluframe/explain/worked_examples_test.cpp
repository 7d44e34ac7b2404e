// The steps have the values of hand calculations.

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "aluframe/explain/explain.h"
#include "aluframe/points/point_reader.h"
#include "tests/unit/aluframe/explain/worked_examples.h"

namespace aluframe::explain {
namespace {

/// The pages have twelve digits, and their intermediate values ten.
constexpr double tolerance = 1e-9;

using Values = std::map<std::string, double, std::less<>>;

/// Values of all steps of all items; those that differ from item to item also as "σ@3".
Values steps_of_point(const points::Point& point) {
  Values values;
  for (int item = 0; item < kResultItems; ++item) {
    const Outcome outcome = explain_item(point.data, point.force, item, {});
    const auto* explanation = std::get_if<Explanation>(&outcome);
    if (explanation == nullptr) continue;
    for (const StepPointer& step : steps_of(explanation->ratio)) {
      values.emplace(step->info.symbol, step->value);
      values.emplace(step->info.symbol + "@" + std::to_string(item), step->value);
    }
  }
  return values;
}

class WorkedExamples : public testing::TestWithParam<WorkedExample> {};

TEST_P(WorkedExamples, HaveTheValuesOfTheSteps) {
  const WorkedExample& example = GetParam();
  const auto read = points::read_point(example.point);
  ASSERT_TRUE(std::holds_alternative<points::Point>(read));
  const Values values = steps_of_point(std::get<points::Point>(read));
  for (const auto& [symbol, expected] : example.values) {
    const auto found = values.find(symbol);
    if (found == values.end()) {
      ADD_FAILURE() << "there is no step " << symbol;
      continue;
    }
    EXPECT_NEAR(found->second, expected, tolerance * std::max(1.0, std::abs(expected))) << symbol;
  }
}

std::string name_of(const testing::TestParamInfo<WorkedExample>& info) {
  std::string name;
  for (const char letter : info.param.page) name += letter == '-' ? '_' : letter;
  return name + "_" + std::to_string(info.param.number);
}

INSTANTIATE_TEST_SUITE_P(Pages, WorkedExamples, testing::ValuesIn(worked_examples()), name_of);

}  // namespace
}  // namespace aluframe::explain
