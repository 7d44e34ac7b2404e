// Effective lengths of members between places that hold an axis.
#include <gmock/gmock.h>

#include "aluframe/restraints/axis_segments.h"

namespace aluframe::restraints {
namespace {

std::vector<HeldPlace> held_about_z(const std::vector<double>& at) {
  std::vector<HeldPlace> places;
  for (const double place : at) places.push_back({.at = place, .parts = model::part_about_z});
  return places;
}

std::vector<double> factors(const std::vector<AxisSegment>& segments) {
  std::vector<double> k;
  for (const AxisSegment& segment : segments) k.push_back(segment.k);
  return k;
}

TEST(AxisSegments, CountWithTheirOwnLength) {
  // 2 m and 4 m of 6 m.
  EXPECT_THAT(factors(axis_segments(held_about_z({2000}), Axis::z, 6000, 1.0)),
              testing::ElementsAre(testing::DoubleEq(2.0 / 6.0), testing::DoubleEq(4.0 / 6.0)));
}

TEST(AxisSegments, AreThoseOfTheAxisThatIsHeld) {
  EXPECT_THAT(factors(axis_segments(held_about_z({2000}), Axis::y, 6000, 0.9)),
              testing::ElementsAre(0.9));
}

TEST(AxisSegments, AreNoLongerThanTheMemberWithoutThem) {
  EXPECT_THAT(factors(axis_segments(held_about_z({1200}), Axis::z, 6000, 0.5)),
              testing::ElementsAre(testing::DoubleEq(0.2), 0.5));
}

TEST(AxisSegments, KeepTheMembersFactorNextToEndsThatMove) {
  // Only the piece between two restraints is known to hold at both ends.
  EXPECT_THAT(factors(axis_segments(held_about_z({1500, 3000}), Axis::z, 6000, 2.0)),
              testing::ElementsAre(2.0, 0.25, 2.0));
}

TEST(AxisSegments, EndAtAnEndThatIsHeldItself) {
  EXPECT_THAT(factors(axis_segments(held_about_z({0, 3000}), Axis::z, 6000, 2.0)),
              testing::ElementsAre(0.5, 2.0));
  EXPECT_THAT(factors(axis_segments(held_about_z({0, 6000}), Axis::z, 6000, 2.0)),
              testing::ElementsAre(1.0));
}

TEST(AxisSegments, HoldTheTipOfWhatASupportHolds) {
  // Clamped at its start: what holds the tip leaves a bar whose ends do not move.
  EXPECT_THAT(factors(axis_segments(held_about_z({6000}), Axis::z, 6000, 2.0, {true, false})),
              testing::ElementsAre(1.0));
  EXPECT_THAT(factors(axis_segments(held_about_z({3000}), Axis::z, 6000, 2.0, {true, false})),
              testing::ElementsAre(0.5, 2.0));
  EXPECT_THAT(factors(axis_segments(held_about_z({6000}), Axis::z, 6000, 2.0)),
              testing::ElementsAre(2.0));
}

TEST(AxisSegments, GiveAnElementTheWorstOfItsPieces) {
  const auto segments = axis_segments(held_about_z({2000}), Axis::z, 6000, 1.0);
  EXPECT_DOUBLE_EQ(factor_at(segments, {0, 2000}), 2.0 / 6.0);
  EXPECT_DOUBLE_EQ(factor_at(segments, {0, 3000}), 4.0 / 6.0);
  EXPECT_DOUBLE_EQ(factor_at(segments, {3000, 6000}), 4.0 / 6.0);
}

TEST(AxisSegments, GiveAnElementShorterThanAMillimetreTheLongest) {
  const auto segments = axis_segments(held_about_z({2000}), Axis::z, 6000, 1.0);
  EXPECT_DOUBLE_EQ(factor_at(segments, {100, 100.5}), 4.0 / 6.0);
}

}  // namespace
}  // namespace aluframe::restraints
