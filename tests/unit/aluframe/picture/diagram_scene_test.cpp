#include "frames.h"

namespace aluframe::picture {
namespace {

// As long as the largest ordinate is drawn on a beam of 4 m: 0.12 of its length.
constexpr double longest = 480.0;

Scene with_diagram(const model::Model& model, ForceComponent component,
                   std::vector<Ordinate> values, View view = View::xz) {
  Content content;
  content.view = view;
  content.diagram = Diagram{component, "case", {{1, std::move(values), {}}}};
  return draw(model, content);
}

/// The largest and the smallest height above the beam that the areas reach.
std::pair<double, double> heights(const Scene& scene) {
  double low = 0.0, high = 0.0;
  for (const Shape& shape : shapes_of(scene, Layer::diagram)) {
    for (const Place& place : shape.lines[0]) {
      low = std::min(low, place.at.z - 3000.0);
      high = std::max(high, place.at.z - 3000.0);
    }
  }
  return {low, high};
}

// A positive My compresses the top: tension is below.
TEST(DiagramScene, DrawsMomentsOnTheTensionSide) {
  const Scene scene = with_diagram(beam(), ForceComponent::my, {{0, 0}, {0.5, 12e6}, {1, 0}});
  const auto [low, high] = heights(scene);
  EXPECT_NEAR(low, -longest, 1e-9);
  EXPECT_NEAR(high, 0.0, 1e-9);
  const auto areas = shapes_of(scene, Layer::diagram);
  ASSERT_EQ(areas.size(), 1U);
  EXPECT_EQ(areas[0].subject.number, 1U);
  EXPECT_NEAR(areas[0].lines[0][2].at.x, 2000.0, 1e-9);
  EXPECT_EQ(areas[0].told, "element 1: My 12 kN·m");
  EXPECT_EQ(texts_of(scene, Layer::values), std::vector<std::string>{"12"});
}

TEST(DiagramScene, DrawsPositiveShearTowardsZ) {
  const auto [low, high] =
      heights(with_diagram(beam(), ForceComponent::vz, {{0, 5000}, {1, 2500}}));
  EXPECT_NEAR(high, longest, 1e-9);
  EXPECT_NEAR(low, 0.0, 1e-9);
}

// From 3 to −1 the line passes 0 after three quarters of its length.
TEST(DiagramScene, CutsAreasWhereTheSignChanges) {
  const Scene scene = with_diagram(beam(), ForceComponent::n, {{0, 3000}, {1, -1000}});
  const auto areas = shapes_of(scene, Layer::diagram);
  ASSERT_EQ(areas.size(), 2U);
  EXPECT_NEAR(areas[0].lines[0].back().at.x, 3000.0, 1e-9);
  EXPECT_NEAR(areas[1].lines[0].front().at.x, 3000.0, 1e-9);
  EXPECT_NE(areas[0].style.fill, areas[1].style.fill);
  EXPECT_EQ(texts_of(scene, Layer::values), (std::vector<std::string>{"3", "−1"}));
  EXPECT_TRUE(has_note(scene,
                       "N largest 3 kN (element 1), smallest −1 kN (element 1); blue: "
                       "tension, positive; orange: compression"));
}

// The plane of Mz of a horizontal beam is horizontal: from the side it is a line.
TEST(DiagramScene, TurnsWhatIsSeenEdgeOnAndSaysSo) {
  const std::vector<Ordinate> values{{0, 0}, {0.5, -2e6}, {1, 0}};
  const Scene side = with_diagram(beam(), ForceComponent::mz, values, View::xz);
  EXPECT_NEAR(heights(side).second, longest, 1e-9);
  EXPECT_TRUE(has_note(side,
                       "element 1: the plane of Mz is seen edge-on: the diagram is turned by "
                       "90° about the element"));
  const Scene plan = with_diagram(beam(), ForceComponent::mz, values, View::xy);
  // A negative Mz compresses the fibres at −y, so tension is at +y.
  EXPECT_NEAR(shapes_of(plan, Layer::diagram)[0].lines[0][2].at.y, longest, 1e-9);
  EXPECT_EQ(plan.notes.size(), 1U);
}

TEST(DiagramScene, LeavesElementsThatAreSeenEndOnOut) {
  model::Model model = chain({node(1, 0, 0, 0), node(2, 4000, 0, 0), node(3, 4000, 3000, 0)});
  Content content = along_y();
  content.diagram = Diagram{
      ForceComponent::my, "case", {{1, {{0, 1e6}, {1, 1e6}}, {}}, {2, {{0, 5e6}, {1, 5e6}}, {}}}};
  const Scene scene = draw(model, content);
  ASSERT_EQ(shapes_of(scene, Layer::diagram).size(), 1U);
  EXPECT_TRUE(has_note(scene, "element 2: seen end-on, without a diagram in this view"));
}

TEST(DiagramScene, DrawsBothSidesOfAnEnvelope) {
  Content content = along_y();
  content.diagram = Diagram{ForceComponent::my,
                            "envelope",
                            {{1, {{0, 0}, {0.5, 4e6}, {1, 0}}, {{0, 0}, {0.5, -2e6}, {1, 0}}}}};
  const auto [low, high] = heights(draw(beam(), content));
  EXPECT_NEAR(low, -longest, 1e-9);
  EXPECT_NEAR(high, longest / 2.0, 1e-9);
}

TEST(DiagramScene, OfZerosSaysSo) {
  const Scene scene = with_diagram(beam(), ForceComponent::t, {{0, 0}, {1, 0}});
  EXPECT_TRUE(shapes_of(scene, Layer::diagram).empty());
  EXPECT_TRUE(has_note(scene, "T is 0 everywhere; blue: positive, towards +z; orange: negative"));
}

}  // namespace
}  // namespace aluframe::picture
