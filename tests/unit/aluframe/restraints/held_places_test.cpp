// Where something holds a member, and what it holds.
#include <gmock/gmock.h>

#include "aluframe/restraints/held_places.h"

namespace aluframe::restraints {
namespace {

using model::Held;
using testing::ElementsAre;

model::Restraint at(Held held, std::vector<double> places) {
  return {.held = held, .at = std::move(places), .spacing = std::nullopt};
}

TEST(HeldPlaces, AreThoseOfAllRestraintsInOrder) {
  const auto places = held_places(
      {at(Held::axis_y, {4000, 1000}), {.held = Held::twist, .at = {}, .spacing = 2000}}, 6500);
  ASSERT_EQ(places.size(), 4U);
  std::vector<double> where;
  for (const HeldPlace& place : places) where.push_back(place.at);
  EXPECT_THAT(where, ElementsAre(1000, 2000, 4000, 6000));
}

TEST(HeldPlaces, WithBothFlangesHoldTheTwistAndTheAxis) {
  for (const auto& restraints :
       {std::vector{at(Held::both_flanges, {1000})},
        std::vector{at(Held::top_flange, {1000}), at(Held::bottom_flange, {1000})}}) {
    const auto places = held_places(restraints, 3000);
    ASSERT_EQ(places.size(), 1U);
    EXPECT_EQ(places[0].parts, unsigned{model::top_part | model::bottom_part | model::part_about_z |
                                        model::twist_part});
  }
}

TEST(HeldPlaces, WithOneFlangeHoldNoAxis) {
  EXPECT_EQ(held_places({at(Held::top_flange, {1000})}, 3000)[0].parts, unsigned{model::top_part});
}

TEST(HeldPlaces, BraceBendingThatCompressesTheirFlange) {
  const auto brace = [](Held held, std::optional<Flange> compressed) {
    return braces(held_places({at(held, {1000})}, 3000)[0], compressed);
  };
  EXPECT_TRUE(brace(Held::top_flange, Flange::top));
  EXPECT_FALSE(brace(Held::top_flange, Flange::bottom));
  EXPECT_FALSE(brace(Held::top_flange, std::nullopt));
  EXPECT_TRUE(brace(Held::bottom_flange, Flange::bottom));
  EXPECT_FALSE(brace(Held::bottom_flange, Flange::top));
  for (const auto compressed :
       {std::optional(Flange::top), std::optional(Flange::bottom), std::optional<Flange>()}) {
    EXPECT_TRUE(brace(Held::both_flanges, compressed));
    EXPECT_TRUE(brace(Held::compressed_flange, compressed));
    EXPECT_TRUE(brace(Held::twist, compressed));
    // A member whose axis stays in place may still twist about it.
    EXPECT_FALSE(brace(Held::axis_z, compressed));
    EXPECT_FALSE(brace(Held::axis_y, compressed));
  }
}

TEST(Segments, AreBetweenPlacesAndEnds) {
  EXPECT_THAT(segments_between({1000, 4000}, 6000),
              ElementsAre(Segment{0, 1000}, Segment{1000, 4000}, Segment{4000, 6000}));
  EXPECT_THAT(segments_between({}, 6000), ElementsAre(Segment{0, 6000}));
  EXPECT_THAT(segments_between({0, 6000}, 6000), ElementsAre(Segment{0, 6000}));
}

TEST(Segments, OverlapInMoreThanAPoint) {
  EXPECT_TRUE((Segment{0, 1000}.overlaps({900, 2000})));
  EXPECT_FALSE((Segment{0, 1000}.overlaps({1000, 2000})));
}

}  // namespace
}  // namespace aluframe::restraints
