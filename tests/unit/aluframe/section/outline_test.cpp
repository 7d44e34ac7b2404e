#include "aluframe/section/outline.h"

#include <cmath>

#include "aluframe/section/sketch.h"
#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

/// Area inside an outline by the shoelace formula; a rounded corner takes away (1 − π/4)·r² of a
/// convex one and adds it at a concave one. Holes run clockwise and count negative.
double area_of(const Outline& outline) {
  double area = 0.0;
  for (const auto& line : outline) {
    const std::size_t n = line.size();
    for (std::size_t i = 0; i < n; ++i) {
      const OutlineCorner& a = line[(i + n - 1) % n];
      const OutlineCorner& b = line[i];
      const OutlineCorner& c = line[(i + 1) % n];
      area += (b.y * c.z - c.y * b.z) / 2.0;
      const double turn = (b.y - a.y) * (c.z - b.z) - (b.z - a.z) * (c.y - b.y);
      area -= std::copysign((1.0 - M_PI / 4.0) * square(b.radius), turn);
    }
  }
  return area;
}

/// First moments by the same formula, of sharp corners.
std::pair<double, double> first_moments(const Outline& outline) {
  double y = 0.0;
  double z = 0.0;
  for (const auto& line : outline) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      const OutlineCorner& b = line[i];
      const OutlineCorner& c = line[(i + 1) % line.size()];
      const double cross = b.y * c.z - c.y * b.z;
      y += (b.y + c.y) * cross / 6.0;
      z += (b.z + c.z) * cross / 6.0;
    }
  }
  return {y, z};
}

const struct {
  Shape shape;
  std::array<double, 8> dimensions;
} all_shapes[] = {
    {Shape::channel, {100, 60, 5, 8, 40, 6}}, {Shape::h_section, {240, 130, 6, 10, 160, 12}},
    {Shape::tee, {180, 120, 8, 10}},          {Shape::box, {200, 100, 5, 8, 80, 6}},
    {Shape::box, {200, 100, 5, 8, 95, 6}},    {Shape::double_channel, {120, 50, 5, 8, 10}},
};

TEST(Outline, EnclosesTheAreaOfTheSection) {
  for (const auto& [shape, dimensions] : all_shapes) {
    expect_close(area_of(outline_of(make_section(shape, dimensions))),
                 properties_of(shape, dimensions).area);
  }
}

TEST(Outline, WithRadiiEnclosesTheAreaOfTheSection) {
  for (const Shape shape : {Shape::channel, Shape::h_section}) {
    const std::array<double, 8> dimensions{200, 100, 6, 10, 80, 8, 9, 4};
    expect_close(area_of(outline_of(make_section(shape, dimensions))),
                 properties_of(shape, dimensions).area);
  }
}

TEST(Outline, OfRoundsIsTheirCircles) {
  expect_close(area_of(outline_of(make_section(Shape::pipe, {100, 5}))),
               M_PI / 4.0 * (square(100.0) - square(90.0)));
  expect_close(area_of(outline_of(make_section(Shape::solid_round, {30}))), M_PI / 4.0 * 900.0);
}

TEST(Outline, HasItsOriginAtTheCentroid) {
  for (const auto& [shape, dimensions] : all_shapes) {
    const auto [y, z] = first_moments(outline_of(make_section(shape, dimensions)));
    const double area = properties_of(shape, dimensions).area;
    EXPECT_NEAR(y / area, 0.0, 1e-10);
    EXPECT_NEAR(z / area, 0.0, 1e-10);
  }
}

TEST(Sketch, IsADrawingWithMaterialCentroidShearCentreAndName) {
  model::Section section = make_section(Shape::channel, {100, 60, 5, 8, 40, 6});
  section.name = "C <100> & more";
  const std::string svg = sketch_of(section);
  for (const char* part :
       {"<svg ", "fill-rule=\"evenodd\"", "<title>centroid</title>", "<title>shear centre</title>",
        ">C &lt;100&gt; &amp; more</text>", "</svg>\n"}) {
    EXPECT_NE(svg.find(part), std::string::npos) << part;
  }
}

}  // namespace
}  // namespace aluframe::section
