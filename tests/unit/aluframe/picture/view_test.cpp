#include "aluframe/picture/view.h"

#include <cmath>

#include "frames.h"

namespace aluframe::picture {
namespace {

void expect_at(const Point2& found, double x, double y) {
  EXPECT_NEAR(found.x, x, 1e-12);
  EXPECT_NEAR(found.y, y, 1e-12);
}

TEST(View, AlongAnAxisKeepsTheTwoOtherCoordinates) {
  const Point3 point{1, 2, 3};
  expect_at(project(View::xy, point), 1, 2);
  expect_at(project(View::xz, point), 1, 3);
  expect_at(project(View::yz, point), 2, 3);
}

// Turned by 25° about Z, then seen from 25° above: by hand from sin 25° = 0.422618,
// cos 25° = 0.906308.
TEST(View, IsometricShortensTheThreeAxes) {
  constexpr double s = 0.42261826174069944, c = 0.9063077870366499;
  expect_at(project(View::iso, {1, 0, 0}), c, -s * s);
  expect_at(project(View::iso, {0, 1, 0}), s, c * s);
  expect_at(project(View::iso, {0, 0, 1}), 0, c);
}

TEST(View, LooksAgainstTheThirdAxis) {
  EXPECT_EQ(towards_eye(View::xy), (Point3{0, 0, 1}));
  EXPECT_EQ(towards_eye(View::xz), (Point3{0, -1, 0}));
  EXPECT_EQ(towards_eye(View::yz), (Point3{1, 0, 0}));
  // What points to the eye is seen as a point.
  for (const View view : {View::iso, View::xy, View::xz, View::yz}) {
    expect_at(project(view, towards_eye(view)), 0, 0);
    EXPECT_TRUE(is_end_on(view, towards_eye(view)));
  }
  EXPECT_LT(towards_eye(View::iso).y, 0.0);  // from the front,
  EXPECT_GT(towards_eye(View::iso).x, 0.0);  // the right
  EXPECT_GT(towards_eye(View::iso).z, 0.0);  // and above
}

TEST(View, OfAPlaneFrameIsThatOfItsPlane) {
  EXPECT_EQ(natural_view(chain({node(1, 0, 5, 0), node(2, 1, 5, 2)})), View::xz);
  EXPECT_EQ(natural_view(chain({node(1, 7, 0, 0), node(2, 7, 3, 2)})), View::yz);
  EXPECT_EQ(natural_view(chain({node(1, 0, 0, 4), node(2, 1, 3, 4)})), View::xy);
  EXPECT_EQ(natural_view(chain({node(1, 0, 0, 4), node(2, 1, 3, 5)})), View::iso);
}

TEST(View, IsNamedByItsPlane) {
  EXPECT_EQ(parse_view("yz"), View::yz);
  EXPECT_EQ(parse_view("top"), std::nullopt);
  EXPECT_EQ(name_of(View::iso), "iso");
}

}  // namespace
}  // namespace aluframe::picture
