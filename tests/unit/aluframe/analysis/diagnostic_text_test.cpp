#include "aluframe/analysis/diagnostic_text.h"

#include <gtest/gtest.h>

#include "frames.h"

namespace aluframe::analysis {
namespace {

Frame nodes_numbered(std::initializer_list<Number> numbers) {
  Frame frame;
  for (const Number number : numbers) frame.nodes.push_back({number, 0, 0, 0});
  return frame;
}

std::string all_names(const Frame& frame) {
  std::vector<std::size_t> places(frame.nodes.size());
  for (std::size_t i = 0; i < places.size(); ++i) places[i] = i;
  return node_names(frame, places);
}

TEST(Words, OneNodeIsNamedAlone) {
  EXPECT_EQ(all_names(nodes_numbered({14})), "node 14");
}

TEST(Words, ConsecutiveNodesAreARun) {
  EXPECT_EQ(all_names(nodes_numbered({3, 1, 2, 7})), "nodes 1-3, 7");
}

TEST(Words, ManyRunsAreCutShort) {
  EXPECT_EQ(all_names(nodes_numbered({1, 3, 5, 7, 9, 11, 13, 15})),
            "nodes 1, 3, 5, 7, 9, 11 and 2 more");
}

TEST(Words, DirectionAlongAnAxisIsItsName) {
  EXPECT_EQ(axis_name(Eigen::Vector3d(0, -5, 0)), "Y");
}

TEST(Words, OtherDirectionsAreUnitVectorsThatBeginPositive) {
  EXPECT_EQ(axis_name(Eigen::Vector3d(-3, 0, 4)), "(0.6, 0, -0.8)");
}

TEST(Words, SmallDirectionsHaveTheirNamesAsWell) {
  EXPECT_EQ(axis_name(Eigen::Vector3d(0, 0, 1e-200)), "Z");
  EXPECT_EQ(axis_name(Eigen::Vector3d(-3e-200, 0, 4e-200)), "(0.6, 0, -0.8)");
}

TEST(Words, NoDirectionIsUncertain) {
  EXPECT_EQ(axis_name(Eigen::Vector3d(0, 0, 0)), "an uncertain direction");
}

TEST(Words, DirectionWithoutANumberIsUncertain) {
  EXPECT_EQ(axis_name(Eigen::Vector3d(1, std::nan(""), 0)), "an uncertain direction");
}

TEST(Words, ThreePartsAreListedWithAnAnd) {
  const std::array<std::string, 3> parts{"X", "Y", "Z"};
  EXPECT_EQ(listed(parts), "X, Y and Z");
}

}  // namespace
}  // namespace aluframe::analysis
