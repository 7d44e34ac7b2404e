// Sections with published or closed-form constants, one data file each. Prints a table of all
// numbers.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

#include "section_cases.h"

namespace aluframe::section::verification {
namespace {

class PublishedSection : public testing::TestWithParam<Case> {};
INSTANTIATE_TEST_SUITE_P(Sections, PublishedSection,
                         testing::ValuesIn(read_cases(SECTION_CASES_FOLDER)),
                         [](const auto& one) { return one.param.name; });

TEST_P(PublishedSection, HasThePublishedConstants) {
  const Case& one = GetParam();
  std::printf("%s\n  %s; units %s\n", one.title.c_str(), one.source.c_str(), one.units.c_str());
  ASSERT_FALSE(one.expected.empty());
  for (const Expected& expected : one.expected) {
    const double found = found_value(one, expected);
    std::printf("  %-26s %-8s expected %12.7g  found %12.7g  off by %8.1e of %8.1e\n",
                expected.what.c_str(), expected.by.c_str(), expected.value, found,
                std::abs(found - expected.value), expected.tolerance);
    EXPECT_NEAR(found, expected.value, expected.tolerance)
        << expected.what << " by " << expected.by << ": " << one.reason;
  }
}

}  // namespace
}  // namespace aluframe::section::verification
