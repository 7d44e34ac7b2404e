#include "aluframe/viewport/camera.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace aluframe::viewport {
namespace {

constexpr Size window{500.0, 400.0};

void expect_at(const std::optional<Pixel>& pixel, double x, double y) {
  ASSERT_TRUE(pixel.has_value());
  EXPECT_NEAR(pixel->x, x, 1e-6);
  EXPECT_NEAR(pixel->y, y, 1e-6);
}

Camera camera_on_metre(const View& view) {
  Camera camera;
  camera.look(view);
  camera.fit({{0, 0, 0}, {1000, 0, 0}}, window);
  return camera;
}

// A metre across four fifths of 500 pixels: 0.4 pixels for a mm, from 50 to 450.
TEST(Camera, FitsPointsIntoFourFifthsOfTheWindow) {
  const Camera camera = camera_on_metre(View::xz);
  expect_at(camera.pixel_of({0, 0, 0}, window), 50, 200);
  expect_at(camera.pixel_of({1000, 0, 0}, window), 450, 200);
  expect_at(camera.pixel_of({500, 0, 250}, window), 250, 100);
  EXPECT_NEAR(camera.pixels_per_mm({0, 700, 0}, window), 0.4, 1e-12);
}

TEST(Camera, SeesFromTheFourViewsByName) {
  for (const View& view : {View::iso, View::xy, View::xz, View::yz}) {
    Camera camera;
    camera.look(view);
    EXPECT_NEAR(length_of(camera.view().right - view.right), 0.0, 1e-12);
    EXPECT_NEAR(length_of(camera.view().up - view.up), 0.0, 1e-12);
  }
}

TEST(Camera, GoesAroundZAndNoFartherThanStraightAbove) {
  Camera camera;
  camera.look(View::xz);
  camera.orbit(90.0, 0.0);
  EXPECT_NEAR(length_of(camera.view().right - Point3{0, 1, 0}), 0.0, 1e-12);
  camera.orbit(0.0, 1000.0);
  EXPECT_NEAR(length_of(picture::towards_eye(camera.view()) - Point3{0, 0, 1}), 0.0, 1e-12);
  camera.orbit(0.0, -1000.0);
  EXPECT_NEAR(length_of(picture::towards_eye(camera.view()) - Point3{0, 0, -1}), 0.0, 1e-12);
}

TEST(Camera, PansByPixels) {
  Camera camera = camera_on_metre(View::xz);
  camera.pan(30.0, -20.0, window);
  expect_at(camera.pixel_of({500, 0, 0}, window), 280, 180);
}

TEST(Camera, ZoomsAroundThePointer) {
  Camera camera = camera_on_metre(View::xz);
  camera.zoom(2.0, {450.0, 200.0}, window);
  expect_at(camera.pixel_of({1000, 0, 0}, window), 450, 200);
  expect_at(camera.pixel_of({500, 0, 0}, window), 50, 200);
}

// The eye stands (h/2)/tan(15°) before the middle, where the window is h = 1000 mm high: what is
// z nearer is seen d/(d - z) as large.
TEST(Camera, SeesWhatIsNearerLargerInPerspective) {
  Camera camera = camera_on_metre(View::xz);
  camera.set_projection(Projection::perspective);
  const double d = 500.0 / std::tan(15.0 * std::numbers::pi / 180.0);
  const double nearer = d / (d - 600.0);
  expect_at(camera.pixel_of({500, 0, 0}, window), 250, 200);
  expect_at(camera.pixel_of({600, -600, 0}, window), 250.0 + 40.0 * nearer, 200);
  EXPECT_NEAR(camera.pixels_per_mm({600, -600, 0}, window), 0.4 * nearer, 1e-9);
}

TEST(Camera, SeesNothingBehindTheEyeAndCutsLinesThere) {
  Camera camera = camera_on_metre(View::xz);
  camera.set_projection(Projection::perspective);
  EXPECT_FALSE(camera.pixel_of({500, -5000, 0}, window).has_value());
  EXPECT_FALSE(camera.pixels_of({500, -5000, 0}, {600, -6000, 0}, window).has_value());
  // From before the eye in the middle to behind it, both off the line of sight.
  const auto cut = camera.pixels_of({600, 0, 0}, {600, -9000, 0}, window);
  ASSERT_TRUE(cut.has_value());
  EXPECT_NEAR((*cut)[0].x, 290.0, 1e-6);
  EXPECT_GT((*cut)[1].x, 1000.0);
}

TEST(Camera, FitsInPerspectiveToo) {
  Camera camera;
  camera.set_projection(Projection::perspective);
  std::vector<Point3> points;
  for (const double x : {0.0, 3000.0}) {
    for (const double y : {0.0, 9000.0}) {
      for (const double z : {0.0, 2000.0}) points.push_back({x, y, z});
    }
  }
  camera.look(View::iso);
  camera.fit(points, window);
  for (const Point3& point : points) {
    const auto pixel = camera.pixel_of(point, window);
    ASSERT_TRUE(pixel.has_value());
    EXPECT_TRUE(pixel->x > 0 && pixel->x < window.width);
    EXPECT_TRUE(pixel->y > 0 && pixel->y < window.height);
  }
}

// What a graphics card makes of a point: clip space by w, from -1 to 1 across the window.
TEST(Camera, ItsMatrixPutsPointsWhereTheirPixelsAre) {
  const Bounds bounds{{1500.0, 900.0, -400.0}, 3000.0};
  for (const Projection projection : {Projection::parallel, Projection::perspective}) {
    Camera camera = camera_on_metre(View::iso);
    camera.set_projection(projection);
    camera.orbit(33.0, 11.0);
    camera.zoom(0.15, {10.0, 20.0}, window);
    const auto m = camera.matrix(window, bounds);
    for (const Point3& point :
         {Point3{0, 0, 0}, Point3{2000, 100, 500}, Point3{1500, 3000, -2000}}) {
      const Point3 at = point - bounds.centre;
      std::array<double, 4> clip{};
      for (std::size_t row = 0; row < 4; ++row) {
        clip[row] = static_cast<double>(m[row]) * at.x + static_cast<double>(m[4 + row]) * at.y +
                    static_cast<double>(m[8 + row]) * at.z + static_cast<double>(m[12 + row]);
      }
      const auto pixel = camera.pixel_of(point, window);
      ASSERT_TRUE(pixel.has_value());
      EXPECT_NEAR(window.width * 0.5 * (1.0 + clip[0] / clip[3]), pixel->x, 1e-2);
      EXPECT_NEAR(window.height * 0.5 * (1.0 - clip[1] / clip[3]), pixel->y, 1e-2);
      EXPECT_LE(std::abs(clip[2] / clip[3]), 1.0);
    }
  }
}

TEST(Bounds, AreASphereAroundAllPoints) {
  const Bounds bounds = bounds_of({{0, 0, 0}, {300, 400, 0}, {0, 0, 1200}});
  EXPECT_EQ(bounds.centre, (Point3{150, 200, 600}));
  EXPECT_DOUBLE_EQ(bounds.radius, 650.0);
  EXPECT_DOUBLE_EQ(bounds_of({{5, 5, 5}}).radius, 1.0);
}

}  // namespace
}  // namespace aluframe::viewport
