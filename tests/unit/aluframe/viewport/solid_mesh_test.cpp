#include "aluframe/viewport/solid_mesh.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace aluframe::viewport {
namespace {

using model::Shape;

model::Section section(Shape shape, std::array<double, 8> dimensions) {
  model::Section out;
  out.number = 1;
  out.shape = shape;
  out.dimensions = dimensions;
  return out;
}

double area_of(const SectionMesh& mesh) {
  double area = 0.0;
  for (const auto& [a, b, c] : mesh.triangles) {
    const double twice = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
    EXPECT_GE(twice, 0.0) << "not counter-clockwise";
    area += 0.5 * twice;
  }
  return area;
}

// Of sharp plates, by hand.
TEST(SectionMesh, FillsTheMaterial) {
  // H 300x150x8x12: two flanges and the web between them.
  EXPECT_NEAR(area_of(section_mesh(section(Shape::h_section, {300, 150, 8, 12, 150, 12, 0, 0}))),
              2 * 150 * 12 + 276 * 8, 1e-9);
  // T 100x80x6x8.
  EXPECT_NEAR(area_of(section_mesh(section(Shape::tee, {100, 80, 6, 8}))), 80 * 8 + 92 * 6, 1e-9);
  // B 150x65x3x4, webs at the edges: 150·65 − 142·59.
  EXPECT_NEAR(area_of(section_mesh(section(Shape::box, {150, 65, 3, 4, 62, 4}))),
              150 * 65 - 142 * 59, 1e-9);
  // The same with webs 40 apart: flanges 65·4 each, webs 142·3.
  EXPECT_NEAR(area_of(section_mesh(section(Shape::box, {150, 65, 3, 4, 40, 4}))),
              2 * 65 * 4 + 2 * 142 * 3, 1e-9);
  // 2C 100x80x5x6 with a gap of 10: two channels, each a web 88·5 and two flanges 80·6.
  EXPECT_NEAR(area_of(section_mesh(section(Shape::double_channel, {100, 80, 5, 6, 10}))),
              2 * (2 * 80 * 6 + 88 * 5), 1e-9);
}

// A regular polygon of n corners in a circle has n/2·sin(2π/n)·r²: 32 corners here.
TEST(SectionMesh, TakesCirclesAsPolygons) {
  const double share = 16.0 * std::sin(2.0 * std::numbers::pi / 32.0);
  EXPECT_NEAR(area_of(section_mesh(section(Shape::solid_round, {60}))), share * 30.0 * 30.0, 1e-6);
  EXPECT_NEAR(area_of(section_mesh(section(Shape::pipe, {100, 5}))),
              share * (50.0 * 50.0 - 45.0 * 45.0), 1e-6);
}

// A fillet adds the square of its radius less the quarter of a polygon of 16 corners in a circle,
// 2·sin(π/8)·r².
TEST(SectionMesh, RoundsCornersUnlessTheyAreWantedSharp) {
  const model::Section rolled = section(Shape::h_section, {300, 150, 8, 12, 150, 12, 10, 0});
  const double sharp = 2 * 150 * 12 + 276 * 8;
  const double fillets = 4.0 * (1.0 - 2.0 * std::sin(std::numbers::pi / 8.0)) * 100.0;
  EXPECT_NEAR(area_of(section_mesh(rolled)), sharp + fillets, 1e-6);
  EXPECT_NEAR(area_of(section_mesh(rolled, Rounding::sharp)), sharp, 1e-9);
}

TEST(SectionMesh, DrawsASectionWithoutShapeAsTheRectangleOfItsStressPoints) {
  model::Section other = section(Shape::other, {});
  other.given.point_y = {-30, 30, 30, -30};
  other.given.point_z = {50, 50, -40, -40};
  EXPECT_NEAR(area_of(section_mesh(other)), 60 * 90, 1e-9);
}

/// A frame of one element from (0, 0, 0) to a node.
model::Model one_element(const model::Section& its, double x, double y, double z) {
  model::Model model;
  model.sections.add(its);
  model.nodes.add({.number = 1, .name = {}, .x = 0, .y = 0, .z = 0});
  model.nodes.add({.number = 2, .name = {}, .x = x, .y = y, .z = z});
  model::Element element;
  element.number = 7;
  element.nodes = {1, 2};
  element.section = 1;
  model.elements.add(element);
  return model;
}

/// By the divergence theorem: a closed surface whose normals point outwards.
double volume_of(const SolidMesh& mesh) {
  double volume = 0.0;
  for (std::size_t i = 0; i + 2 < mesh.vertices.size(); i += 3) {
    const auto at = [&](std::size_t k) {
      const auto& [x, y, z] = mesh.vertices[i + k].at;
      return Point3{x, y, z};
    };
    const Point3 twice = cross(at(1) - at(0), at(2) - at(0));
    const auto& [nx, ny, nz] = mesh.vertices[i].normal;
    const Point3 normal{nx, ny, nz};
    EXPECT_NEAR(length_of(normal), 1.0, 1e-5);
    volume += dot(at(0), normal) * 0.5 * length_of(twice) / 3.0;
  }
  return volume;
}

// The area of a section along its element, whatever way it points: H 300x150x8x12 over 5 m.
TEST(SolidMesh, EnclosesTheVolumeOfItsElements) {
  const auto h = section(Shape::h_section, {300, 150, 8, 12, 150, 12, 0, 0});
  const double volume = (2 * 150 * 12 + 276 * 8) * 5000.0;
  for (const Point3& end : {Point3{5000, 0, 0}, Point3{0, 0, 5000}, Point3{0, 3000, -4000}}) {
    const model::Model model = one_element(h, end.x, end.y, end.z);
    const SolidMesh mesh = solid_mesh(model, element_lines(model), {100, 200, 300});
    EXPECT_NEAR(volume_of(mesh), volume, 1e-3 * volume);
    EXPECT_EQ(mesh.first.size(), 2U);
    EXPECT_EQ(mesh.first.back(), mesh.vertices.size());
  }
}

// A tube, whose inner faces look to its middle.
TEST(SolidMesh, LeavesHolesEmpty) {
  const model::Model model = one_element(section(Shape::box, {150, 65, 3, 4, 62, 4}), 1000, 0, 0);
  const double volume = (150.0 * 65.0 - 142.0 * 59.0) * 1000.0;
  EXPECT_NEAR(volume_of(solid_mesh(model, element_lines(model), {})), volume, 1e-3 * volume);
}

// The web stands upright in a level beam: its highest corner is half the depth above the axis.
TEST(SolidMesh, StandsAsTheSectionDoes) {
  const auto h = section(Shape::h_section, {300, 150, 8, 12, 150, 12, 0, 0});
  const model::Model model = one_element(h, 4000, 0, 0);
  float highest = 0.0F, widest = 0.0F;
  for (const SolidVertex& vertex : solid_mesh(model, element_lines(model), {}).vertices) {
    highest = std::max(highest, vertex.at[2]);
    widest = std::max(widest, vertex.at[1]);
  }
  EXPECT_NEAR(highest, 150.0, 1e-3);
  EXPECT_NEAR(widest, 75.0, 1e-3);
}

}  // namespace
}  // namespace aluframe::viewport
