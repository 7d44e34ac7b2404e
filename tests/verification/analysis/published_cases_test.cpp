// Frames with published or closed-form solutions, one data file each. Prints a table of all
// numbers.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/second_order.h"
#include "cases.h"

namespace aluframe::analysis::verification {
namespace {

template <class Value>
Value value_of(Result<Value> result) {
  if (const auto* problem = std::get_if<Problem>(&result)) throw std::runtime_error(problem->text);
  return std::get<Value>(std::move(result));
}

std::vector<CaseResult> results_of(const Case& one) {
  if (!one.second_order) return value_of(analyse(one.frame, one.load_cases)).cases;
  std::vector<CaseResult> results;
  for (const LoadCase& loads : one.load_cases) {
    results.push_back(
        value_of(analyse_second_order(one.frame, loads, {.imperfections = one.imperfections}))
            .result);
  }
  return results;
}

double found_value(const Expected& expected, const CaseResult& result) {
  if (expected.what == "displacement")
    return result.displacements[expected.place][expected.component];
  if (expected.what == "force") {
    return static_cast<double>(
        result.forces[expected.place][expected.position][expected.component]);
  }
  for (const Reaction& reaction : result.reactions) {
    if (reaction.node == expected.place) return reaction.value[expected.component];
  }
  throw std::runtime_error("no such result: " + expected.text());
}

class PublishedCase : public testing::TestWithParam<Case> {};
INSTANTIATE_TEST_SUITE_P(Analysis, PublishedCase,
                         testing::ValuesIn(read_cases(ANALYSIS_CASES_FOLDER)),
                         [](const auto& one) { return one.param.name; });

TEST_P(PublishedCase, GivesThePublishedNumbers) {
  const Case& one = GetParam();
  std::printf("%s\n  %s; units %s\n", one.title.c_str(), one.source.c_str(), one.units.c_str());
  const std::vector<CaseResult> results = results_of(one);
  ASSERT_FALSE(one.expected.empty());
  for (const Expected& expected : one.expected) {
    const double found = found_value(expected, results.at(expected.load_case));
    std::printf("  %-34s expected %12.6g  found %12.6g  off by %8.1e of %8.1e\n",
                expected.text().c_str(), expected.value, found, std::abs(found - expected.value),
                expected.tolerance);
    EXPECT_NEAR(found, expected.value, expected.tolerance) << expected.text() << ": " << one.reason;
  }
}

}  // namespace
}  // namespace aluframe::analysis::verification
