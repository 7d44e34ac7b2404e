// The forces of a frame that is large enough for every kind of dense product and for a second
// thread: not a bit of them may depend on the width of the processor's vectors or on threads.

#include <gtest/gtest.h>
#include <sched.h>

#include <cstring>
#include <utility>

#include "aluframe/analysis/dense_tiles.h"
#include "frames.h"
#include "vector_widths.h"

namespace aluframe::analysis {
namespace {

constexpr std::size_t lines = 11;

std::size_t node_at(std::size_t x, std::size_t y, std::size_t z) {
  return (z * lines + y) * lines + x;
}

/// Bars between all neighbours of a lattice with a metre between its nodes, clamped at the bottom.
Frame lattice() {
  Frame frame;
  for (std::size_t z = 0; z < lines; ++z) {
    for (std::size_t y = 0; y < lines; ++y) {
      for (std::size_t x = 0; x < lines; ++x) {
        add_node(frame, 1000.0 * static_cast<double>(x), 1000.0 * static_cast<double>(y),
                 1000.0 * static_cast<double>(z));
        const std::size_t here = node_at(x, y, z);
        if (x > 0) add_element(frame, node_at(x - 1, y, z), here);
        if (y > 0) add_element(frame, node_at(x, y - 1, z), here);
        if (z > 0) add_element(frame, node_at(x, y, z - 1), here);
        if (z == 0) frame.supports.push_back({here, clamped});
      }
    }
  }
  return frame;
}

Solution solution_of_lattice() {
  LoadCase load_case;
  load_case.self_weight = {0.0, 0.0, -1.0};
  load_case.nodal.push_back({node_at(0, lines - 1, lines - 1), {1e3, -2e3, 0, 0, 0, 3e5}});
  auto result = analyse(lattice(), {&load_case, 1});
  if (const auto* problem = std::get_if<Problem>(&result)) {
    ADD_FAILURE() << problem->text;
    return {};
  }
  return std::get<Solution>(std::move(result));
}

template <class Value>
bool same_bits(const std::vector<Value>& a, const std::vector<Value>& b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(Value)) == 0;
}

void expect_same(const Solution& found, const Solution& expected) {
  ASSERT_EQ(found.cases.size(), expected.cases.size());
  ASSERT_FALSE(expected.cases.empty());
  const CaseResult &a = found.cases[0], &b = expected.cases[0];
  EXPECT_TRUE(same_bits(a.forces, b.forces));
  EXPECT_TRUE(same_bits(a.displacements, b.displacements));
}

class FrameUnderVectorWidth : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Doubles, FrameUnderVectorWidth, testing::ValuesIn(vector_widths()),
                         testing::PrintToStringParamName());

TEST_P(FrameUnderVectorWidth, HasTheDigitsOfVectorsOfTwo) {
  const int before = use_vectors_of(2);
  const Solution expected = solution_of_lattice();
  use_vectors_of(GetParam());
  expect_same(solution_of_lattice(), expected);
  use_vectors_of(before);
}

// Where there is but one, dense_width_test.cpp compares numbers of threads all the same.
TEST(FrameOnOneProcessor, HasTheDigitsOfTwo) {
  cpu_set_t all, one;
  ASSERT_EQ(sched_getaffinity(0, sizeof all, &all), 0);
  CPU_ZERO(&one);
  for (int i = 0; i < CPU_SETSIZE && CPU_COUNT(&one) == 0; ++i) {
    if (CPU_ISSET(i, &all)) CPU_SET(i, &one);
  }
  const Solution by_two = solution_of_lattice();
  ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
  const Solution by_one = solution_of_lattice();
  ASSERT_EQ(sched_setaffinity(0, sizeof all, &all), 0);
  expect_same(by_one, by_two);
}

}  // namespace
}  // namespace aluframe::analysis
