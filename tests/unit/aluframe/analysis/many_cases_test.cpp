// Many cases on a chain of many elements: forces are recovered for several cases and elements at a
// time, and none may reach another.
#include <gtest/gtest.h>

#include "frames.h"

namespace aluframe::analysis {
namespace {

constexpr std::size_t elements = 70, cases = 11;
constexpr double length = 100.0, along = 10.0;

/// A bar along X in elements of 100 mm, clamped at its start.
Frame bar() {
  Frame frame;
  add_node(frame, 0, 0, 0);
  for (std::size_t i = 0; i < elements; ++i) {
    add_node(frame, length * static_cast<double>(i + 1), 0, 0);
    add_element(frame, i, i + 1);
  }
  frame.supports.push_back({0, clamped});
  return frame;
}

double pull(std::size_t load_case) {
  return 1000.0 * static_cast<double>(load_case + 1);
}

/// The element that has a load of its own in an odd case.
std::size_t loaded_element(std::size_t load_case) {
  return 6 * load_case;
}

/// Every case pulls at the end, each with its own force; odd ones also pull along one element.
std::vector<LoadCase> pulls() {
  std::vector<LoadCase> all(cases);
  for (std::size_t c = 0; c < cases; ++c) {
    all[c].nodal.push_back({elements, {pull(c), 0, 0, 0, 0, 0}});
    if (c % 2 == 0) continue;
    const Vector3 q{along, 0, 0};
    all[c].distributed.push_back({.element = loaded_element(c), .from_value = q, .to_value = q});
  }
  return all;
}

/// By statics: what pulls beyond the place.
double axial_force(std::size_t load_case, std::size_t element, std::size_t position) {
  if (load_case % 2 == 0 || element > loaded_element(load_case)) return pull(load_case);
  const double before = element < loaded_element(load_case) ? 0.0 : static_cast<double>(position);
  return pull(load_case) + along * length * (1.0 - before / 4.0);
}

TEST(ManyCases, EachElementHasTheForcesOfItsOwnCase) {
  const std::vector<LoadCase> all = pulls();
  const auto result = analyse(bar(), all);
  ASSERT_TRUE(std::holds_alternative<Solution>(result));
  const Solution& solution = std::get<Solution>(result);
  ASSERT_EQ(solution.cases.size(), cases);
  for (std::size_t c = 0; c < cases; ++c) {
    for (std::size_t i = 0; i < elements; ++i) {
      for (std::size_t p = 0; p < 5; ++p) {
        const double expected = axial_force(c, i, p);
        EXPECT_THAT(solution.cases[c].forces[i][p][n], float_near(expected, expected))
            << "case " << c << ", element " << i << ", position " << p;
      }
    }
  }
}

TEST(ManyCases, EachSupportHasTheReactionOfItsOwnCase) {
  const std::vector<LoadCase> all = pulls();
  const auto result = analyse(bar(), all);
  ASSERT_TRUE(std::holds_alternative<Solution>(result));
  for (std::size_t c = 0; c < cases; ++c) {
    EXPECT_THAT(std::get<Solution>(result).cases[c].reactions[0].value[dx],
                close_to(-axial_force(c, 0, 0)))
        << "case " << c;
  }
}

}  // namespace
}  // namespace aluframe::analysis
