#include "frames.h"

namespace aluframe::picture {
namespace {

constexpr std::array fixed{true, true, true, true, true, true};
constexpr std::array pinned{true, true, true, false, false, false};

/// What is drawn of one support of a beam's start.
Scene with_support(const std::array<bool, 6>& restrained, View view = View::xz,
                   const std::array<double, 6>& springs = {}) {
  model::Model model = beam();
  model.supports.push_back({1, restrained, springs});
  Content content;
  content.view = view;
  return draw(model, content);
}

/// Corners of the closed symbols.
std::vector<std::size_t> corners(const Scene& scene) {
  std::vector<std::size_t> out;
  for (const Shape& shape : shapes_of(scene, Layer::supports)) {
    if (shape.is_closed) out.push_back(shape.lines[0].size());
  }
  return out;
}

const Shape& symbol_of(const std::vector<Shape>& shapes) {
  return *std::ranges::find(shapes, true, &Shape::is_closed);
}

TEST(SupportScene, ShowsAPinAsATriangleOverTheGround) {
  const Scene scene = with_support(pinned);
  EXPECT_EQ(corners(scene), std::vector<std::size_t>{3});
  EXPECT_TRUE(markers_of(scene, Layer::supports).empty());
  const auto shapes = shapes_of(scene, Layer::supports);
  const Shape& triangle = symbol_of(shapes);
  EXPECT_EQ(triangle.subject.number, 1U);
  EXPECT_EQ(triangle.subject.kind, Subject::Kind::node);
  EXPECT_EQ(triangle.told, "node 1: Dx Dy Dz restrained");
  EXPECT_EQ(triangle.lines[0][0].paper, Point2{});  // the apex is at the node
  EXPECT_LT(triangle.lines[0][1].paper.y, 0.0);     // and stands on what is below
}

TEST(SupportScene, ShowsAFixedEndAsABlockBehindTheElement) {
  const Scene scene = with_support(fixed);
  EXPECT_EQ(corners(scene), std::vector<std::size_t>{4});
  const auto shapes = shapes_of(scene, Layer::supports);
  for (const Place& place : symbol_of(shapes).lines[0]) EXPECT_LE(place.paper.x, 1e-12);
}

TEST(SupportScene, ShowsARollerOnTwoWheels) {
  const Scene scene = with_support({false, true, true, false, false, false});
  EXPECT_EQ(corners(scene), std::vector<std::size_t>{3});
  EXPECT_EQ(markers_of(scene, Layer::supports).size(), 2U);
}

TEST(SupportScene, ShowsInAPlaneOnlyWhatHappensInIt) {
  // Restrained in the plane and against turning in it: fixed there, not in other views.
  const std::array<bool, 6> in_plane{true, false, true, false, true, false};
  EXPECT_EQ(corners(with_support(in_plane, View::xz)), std::vector<std::size_t>{4});
  EXPECT_EQ(corners(with_support(in_plane, View::iso)), std::vector<std::size_t>{3});
  const Scene beside = with_support({false, true, false, false, false, false}, View::xz);
  EXPECT_EQ(corners(beside), std::vector<std::size_t>{4});
  EXPECT_TRUE(has_note(beside,
                       "open squares: nodes that are restrained only in what this view does not "
                       "show"));
}

TEST(SupportScene, HangsASupportOverAnElementBelowIt) {
  model::Model model = chain({node(1, 0, 0, 0), node(2, 0, 0, 3000)});
  model.supports.push_back(support(2, pinned));
  const auto shapes = shapes_of(draw(model, along_y()), Layer::supports);
  EXPECT_GT(symbol_of(shapes).lines[0][1].paper.y, 0.0);
}

TEST(SupportScene, ShowsSpringsWithTheirValues) {
  const Scene scene = with_support({}, View::xz, {0, 0, 5000, 0, 2e6, 0});
  std::vector<std::string> told;
  for (const Shape& shape : shapes_of(scene, Layer::supports)) told.push_back(shape.told);
  // 5000 N/mm = 5000 kN/m; 2e6 N·mm/rad = 2 kN·m/rad.
  EXPECT_EQ(std::ranges::count(told, "node 1: spring Dz 5000 kN/m"), 2);
  EXPECT_EQ(std::ranges::count(told, "node 1: spring Ry 2 kN·m/rad"), 1);
}

}  // namespace
}  // namespace aluframe::picture
