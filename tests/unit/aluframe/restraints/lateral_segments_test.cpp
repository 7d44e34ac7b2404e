// Which places brace a bent member, combination by combination.
#include <gmock/gmock.h>

#include "aluframe/restraints/lateral_segments.h"

namespace aluframe::restraints {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double noise = 1.0;
constexpr std::array<bool, 2> both_held{true, true};

/// A member of one element of 6 m with moments at its quarters.
std::vector<ElementMoments> member(const std::array<double, 5>& my) {
  ElementMoments element{.stretch = {0, 6000}, .at = {}};
  for (std::size_t i = 0; i < my.size(); ++i) {
    element.at.push_back({1500.0 * static_cast<double>(i), my[i]});
  }
  return {element};
}

std::vector<HeldPlace> holding(unsigned parts, const std::vector<double>& at) {
  std::vector<HeldPlace> places;
  for (const double place : at) places.push_back({.at = place, .parts = parts});
  return places;
}

std::vector<Segment> pieces(const LateralLayout& layout) {
  std::vector<Segment> out;
  for (const LateralSegment& piece : layout.segments) out.push_back(piece.segment);
  return out;
}

constexpr std::array<double, 5> sagging{0, 30, 40, 30, 0};
constexpr std::array<double, 5> hogging{0, -30, -40, -30, 0};
/// Fixed at the start: the bottom flange is compressed up to 2 m.
constexpr std::array<double, 5> reversing{-80, -10, 30, 40, 0};

TEST(CompressedFlange, IsThatOfBothNeighbours) {
  EXPECT_EQ(compressed_at(member(sagging), 2000, noise), Flange::top);
  EXPECT_EQ(compressed_at(member(hogging), 2000, noise), Flange::bottom);
}

TEST(CompressedFlange, IsKnownBesideAHinge) {
  EXPECT_EQ(compressed_at(member(sagging), 700, noise), Flange::top);
  EXPECT_EQ(compressed_at(member(hogging), 5900, noise), Flange::bottom);
}

TEST(CompressedFlange, IsUnknownWhereTheMomentChangesItsSign) {
  EXPECT_EQ(compressed_at(member(reversing), 1400, noise), Flange::bottom);
  EXPECT_EQ(compressed_at(member(reversing), 1600, noise), std::nullopt);
  EXPECT_EQ(compressed_at(member(reversing), 2900, noise), std::nullopt);
  EXPECT_EQ(compressed_at(member(reversing), 3000, noise), Flange::top);
}

TEST(CompressedFlange, IsUnknownAtAHingeAndInNoise) {
  EXPECT_EQ(compressed_at(member(sagging), 0, noise), std::nullopt);
  EXPECT_EQ(compressed_at(member({0, 0.5, 0.9, 0.5, 0}), 3000, noise), std::nullopt);
}

TEST(CompressedFlange, IsThatOfBothElementsAtANode) {
  std::vector<ElementMoments> two{{.stretch = {0, 3000}, .at = {{0, 10}, {3000, 20}}},
                                  {.stretch = {3000, 6000}, .at = {{3000, 20}, {6000, 5}}}};
  EXPECT_EQ(compressed_at(two, 3000, noise), Flange::top);
  two[1].at[0][1] = -20;
  EXPECT_EQ(compressed_at(two, 3000, noise), std::nullopt);
  two[1].at.clear();
  EXPECT_EQ(compressed_at(two, 3000, noise), std::nullopt);
}

TEST(LateralLayout, IsBracedByTheCompressedFlangeOnly) {
  const auto purlins = holding(model::top_part, {2000, 4000});
  const auto down = lateral_layout(purlins, member(sagging), both_held, noise);
  EXPECT_THAT(pieces(down),
              ElementsAre(Segment{0, 2000}, Segment{2000, 4000}, Segment{4000, 6000}));
  EXPECT_THAT(down.idle, IsEmpty());
  const auto up = lateral_layout(purlins, member(hogging), both_held, noise);
  EXPECT_THAT(pieces(up), ElementsAre(Segment{0, 6000}));
  EXPECT_THAT(up.idle, ElementsAre(2000, 4000));
}

TEST(LateralLayout, ReachesOverPlacesThatHoldTheFlangeInTension) {
  // At 1.2 m the bottom is compressed, at 2 m the moment changes its sign.
  const auto layout = lateral_layout(holding(model::top_part, {1200, 2000, 4000}),
                                     member(reversing), both_held, noise);
  EXPECT_THAT(pieces(layout), ElementsAre(Segment{0, 4000}, Segment{4000, 6000}));
  EXPECT_EQ(layout.segments[0].compressed, (std::array{true, true}));
  EXPECT_EQ(layout.segments[1].compressed, (std::array{true, false}));
  EXPECT_THAT(layout.idle, ElementsAre(1200, 2000));
}

TEST(LateralLayout, IsBracedByTheTwistWhateverIsCompressed) {
  const auto layout =
      lateral_layout(holding(model::twist_part, {2000}), member(reversing), both_held, noise);
  EXPECT_THAT(pieces(layout), ElementsAre(Segment{0, 2000}, Segment{2000, 6000}));
}

TEST(LateralLayout, IsNotBracedByAnAxis) {
  const auto layout =
      lateral_layout(holding(model::part_about_z, {2000}), member(sagging), both_held, noise);
  EXPECT_THAT(pieces(layout), ElementsAre(Segment{0, 6000}));
  EXPECT_THAT(layout.idle, IsEmpty()) << "it holds no flange";
}

TEST(LateralLayout, HasFreePiecesAtEndsThatNothingHolds) {
  const auto at_2_m = holding(model::twist_part, {2000});
  const auto cantilever = lateral_layout(at_2_m, member(hogging), {true, false}, noise);
  EXPECT_FALSE(cantilever.segments[0].is_free);
  EXPECT_TRUE(cantilever.segments[1].is_free);
  const auto tip = holding(model::twist_part, {2000, 6000});
  EXPECT_FALSE(lateral_layout(tip, member(hogging), {true, false}, noise).segments[1].is_free);
}

TEST(LateralLayout, IsEmptyWithoutBending) {
  EXPECT_THAT(lateral_layout(holding(model::twist_part, {2000}), member({0, 0.5, 0.9, 0.5, 0}),
                             both_held, noise)
                  .segments,
              IsEmpty());
}

}  // namespace
}  // namespace aluframe::restraints
