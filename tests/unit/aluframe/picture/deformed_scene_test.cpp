#include "frames.h"

namespace aluframe::picture {
namespace {

Scene with_sag(double sag) {
  Content content = along_y();
  content.deformed = Deformed{"case", {{1, {{0, {}}, {0.5, {0, 0, -sag}}, {1, {}}}}}};
  return draw(beam(), content);
}

// 8 % of 4000 mm are 320 mm, 22.9 times 14 mm: 20 is the round factor below.
TEST(DeformedScene, EnlargesDisplacementsByARoundFactorAndNamesIt) {
  const Scene scene = with_sag(14);
  const auto lines = shapes_of(scene, Layer::deformed);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].lines[0][1].at, (Point3{2000, 0, 3000 - 20 * 14}));
  EXPECT_TRUE(has_note(scene,
                       "displacements 20 times as large; largest 14 mm in element 1, at 0.5 "
                       "of its length"));
  // The frame itself stands behind, thinner.
  EXPECT_LT(shapes_of(scene, Layer::frame)[0].style.width, lines[0].style.width);
}

TEST(DeformedScene, MakesLargeDisplacementsSmaller) {
  EXPECT_EQ(shapes_of(with_sag(1000), Layer::deformed)[0].lines[0][1].at,
            (Point3{2000, 0, 3000 - 0.2 * 1000}));
}

TEST(DeformedScene, WithoutDisplacementsSaysSo) {
  const Scene scene = with_sag(0);
  EXPECT_TRUE(shapes_of(scene, Layer::deformed).empty());
  EXPECT_TRUE(has_note(scene, "no displacements"));
}

TEST(DeformedScene, NamesTheNodeThatMovesMost) {
  Content content = along_y();
  content.deformed = Deformed{"case", {{1, {{0, {}}, {1, {0.5, 0, 0}}}}}};
  // 320 / 0.5 = 640.
  EXPECT_TRUE(has_note(draw(beam(), content),
                       "displacements 500 times as large; largest 0.5 mm at node 2"));
}

}  // namespace
}  // namespace aluframe::picture
