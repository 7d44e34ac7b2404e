#include "aluframe/viewport/picking.h"

#include <gmock/gmock.h>

namespace aluframe::viewport {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Size window{500.0, 400.0};

/// Seen along Y at 0.4 pixels for a mm, X = 500 and Z = 0 in the middle: elements 1 and 2 level one
/// above the other, 3 upright, 4 behind 1.
class Picking : public testing::Test {
 protected:
  Picking() {
    camera.look(View::xz);
    camera.fit({{0, 0, 0}, {1000, 0, 0}}, window);
  }
  Sight sight() {
    return {camera, window, lines, [this](model::Number element) { return element != hidden; }};
  }
  Band band(double x0, double y0, double x1, double y1) { return {{x0, y0, 0.0}, {x1, y1, 0.0}}; }

  Camera camera;
  std::vector<ElementLine> lines{{{{0, 0, 0}, {1000, 0, 0}, {}}, 1},
                                 {{{0, 0, 250}, {1000, 0, 250}, {}}, 2},
                                 {{{500, 0, 0}, {500, 0, 500}, {}}, 3},
                                 {{{0, 900, 0}, {1000, 900, 0}, {}}, 4}};
  model::Number hidden = 0;
};

// Element 1 is at y = 200, element 2 at y = 100.
TEST_F(Picking, TakesTheNearestWithinReach) {
  EXPECT_EQ(pick(sight(), {100, 204, 0}, 7), 1U);
  EXPECT_EQ(pick(sight(), {100, 97, 0}, 7), 2U);
  EXPECT_EQ(pick(sight(), {100, 150, 0}, 7), std::nullopt);
  EXPECT_EQ(pick(sight(), {44, 200, 0}, 7), 1U);
  EXPECT_EQ(pick(sight(), {40, 200, 0}, 7), std::nullopt);
}

TEST_F(Picking, TakesTheOneInFrontWhereTwoAreSeenAsOne) {
  EXPECT_EQ(pick(sight(), {100, 200, 0}, 7), 1U);
  camera.orbit(180.0, 0.0);
  EXPECT_EQ(pick(sight(), {100, 200, 0}, 7), 4U);
}

TEST_F(Picking, PassesOverWhatIsHidden) {
  hidden = 1;
  EXPECT_EQ(pick(sight(), {100, 200, 0}, 7), 4U);
}

TEST_F(Picking, AWindowTakesWhatLiesInItWhole) {
  EXPECT_THAT(pick_in(sight(), band(40, 90, 460, 210), BandKind::window), ElementsAre(1, 2, 4));
  EXPECT_THAT(pick_in(sight(), band(460, 210, 40, 90), BandKind::window), ElementsAre(1, 2, 4));
  EXPECT_THAT(pick_in(sight(), band(40, 90, 440, 210), BandKind::window), IsEmpty());
}

TEST_F(Picking, ACrossingBandTakesWhatItTouches) {
  EXPECT_THAT(pick_in(sight(), band(240, 20, 260, 60), BandKind::crossing), ElementsAre(3));
  EXPECT_THAT(pick_in(sight(), band(300, 90, 320, 110), BandKind::crossing), ElementsAre(2));
  EXPECT_THAT(pick_in(sight(), band(300, 90, 320, 210), BandKind::crossing), ElementsAre(1, 2, 4));
  EXPECT_THAT(pick_in(sight(), band(300, 110, 320, 190), BandKind::crossing), IsEmpty());
}

// A slanted line whose box meets the band, though it passes by.
TEST_F(Picking, ABandBesideASlantedLineTakesNothing) {
  lines = {{{{0, 0, 0}, {1000, 0, 500}, {}}, 1}};
  EXPECT_THAT(pick_in(sight(), band(60, 20, 120, 60), BandKind::crossing), IsEmpty());
  EXPECT_THAT(pick_in(sight(), band(200, 80, 300, 120), BandKind::crossing), ElementsAre(1));
}

}  // namespace
}  // namespace aluframe::viewport
