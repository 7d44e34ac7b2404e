#include "frames.h"

namespace aluframe::picture {
namespace {

TEST(FrameScene, HasALineForEveryElementBetweenItsNodes) {
  const Scene scene = draw(beam(), along_y());
  const auto elements = shapes_of(scene, Layer::frame);
  ASSERT_EQ(elements.size(), 1U);
  EXPECT_EQ(elements[0].subject.kind, Subject::Kind::element);
  EXPECT_EQ(elements[0].subject.number, 1U);
  EXPECT_EQ(elements[0].lines[0][0].at, (Point3{0, 0, 3000}));
  EXPECT_EQ(elements[0].lines[0][1].at, (Point3{4000, 0, 3000}));
  EXPECT_EQ(scene.title, "Test");
  EXPECT_EQ(scene.subtitle, "frame; view along Y (XZ)");
}

TEST(FrameScene, NumbersOnlyWhatIsAskedFor) {
  Content content = along_y();
  EXPECT_TRUE(texts_of(draw(beam(), content), Layer::numbers).empty());
  content.node_numbers = {true, model::NumberRanges({{2, 5}})};
  EXPECT_EQ(texts_of(draw(beam(), content), Layer::numbers), std::vector<std::string>{"2"});
  content.node_numbers = {true, {}};
  content.element_numbers = {true, {}};
  EXPECT_EQ(texts_of(draw(beam(), content), Layer::numbers),
            (std::vector<std::string>{"1", "2", "1"}));
}

TEST(FrameScene, HasARingNearEveryReleasedEnd) {
  model::Model model = beam();
  model::Element element = model.elements[0];
  element.released[6 + 4] = element.released[6 + 5] = true;  // My and Mz at the end
  model.elements.replace(element);
  const auto rings = markers_of(draw(model, along_y()), Layer::releases);
  ASSERT_EQ(rings.size(), 1U);
  EXPECT_EQ(rings[0].centre.at, (Point3{4000, 0, 3000}));
  EXPECT_LT(rings[0].centre.paper.x, 0.0);  // towards the element
  EXPECT_EQ(rings[0].told, "element 1, end: My Mz released");
}

// docs/sign-convention.md: a beam along X has y along Y and z along Z; seen along Y, y points away
// from the eye and is a ring with a cross.
TEST(FrameScene, ShowsLocalAxesAsTheyAreSeen) {
  Content content = along_y();
  content.local_axes = true;
  const Scene scene = draw(beam(), content);
  const auto rings = markers_of(scene, Layer::local_axes);
  ASSERT_EQ(rings.size(), 1U);  // no dot in it
  EXPECT_EQ(rings[0].told, "element 1: local y");
  EXPECT_EQ(texts_of(scene, Layer::local_axes), (std::vector<std::string>{"x", "y", "z"}));
  for (const Label& label : scene.labels) {
    EXPECT_EQ(label.at.at, (Point3{2000, 0, 3000}));
    if (label.text == "x") {
      EXPECT_GT(label.at.paper.x, 0.0);
    }
    if (label.text == "z") {
      EXPECT_GT(label.at.paper.y, 0.0);
    }
  }
}

}  // namespace
}  // namespace aluframe::picture
