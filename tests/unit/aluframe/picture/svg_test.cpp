#include "aluframe/picture/svg.h"

#include "aluframe/picture/sheet.h"
#include "frames.h"

namespace aluframe::picture {
namespace {

std::size_t count(const std::string& text, const std::string& part) {
  std::size_t found = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++found;
  }
  return found;
}

TEST(Sheet, PutsTheFrameInItsMiddleAsLargeAsItFits) {
  const Scene scene = draw(beam(), along_y());
  const Sheet sheet(scene, 20.0);
  // 12 mm of margin on either side of 270 mm.
  const Point2 start = sheet.on_paper({{0, 0, 3000}, {}}),
               end = sheet.on_paper({{4000, 0, 3000}, {}});
  EXPECT_NEAR(start.x, 12.0, 1e-6);
  EXPECT_NEAR(end.x, 258.0, 1e-6);
  EXPECT_NEAR(start.y, 32.0, 1e-6);
  EXPECT_NEAR(sheet.bottom(), 44.0, 1e-6);
  EXPECT_NEAR(sheet.scale(), 246.0 / 4000.0, 1e-9);
  // What stands beside a point on paper is higher up, which is less in SVG.
  EXPECT_NEAR(sheet.on_paper({{0, 0, 3000}, {1.0, 2.0}}).y, 30.0, 1e-6);
}

TEST(Sheet, MakesRoomForSymbolsOfFixedSize) {
  Scene scene = draw(beam(), along_y());
  scene.markers.push_back({.layer = Layer::loads, .centre = {{4000, 0, 3000}, {46.0, 0.0}}});
  const Sheet sheet(scene, 20.0);
  EXPECT_NEAR(sheet.scale(), 200.0 / 4000.0, 1e-6);
  EXPECT_NEAR(sheet.on_paper({{4000, 0, 3000}, {46.0, 0.0}}).x, 258.0, 1e-4);
}

TEST(Labels, StandClearOfEachOther) {
  Scene scene = draw(beam(), along_y());
  for (int i = 0; i < 6; ++i) {
    scene.labels.push_back({.text = "12345", .at = {{2000, 0, 3000}, {}}, .towards = {0, 1}});
  }
  const auto placed = place_labels(scene, Sheet(scene, 20.0));
  ASSERT_EQ(placed.size(), 6U);
  for (std::size_t i = 0; i < placed.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      const Box &a = placed[i].box, &b = placed[j].box;
      EXPECT_TRUE(a.right <= b.left || b.right <= a.left || a.bottom <= b.top || b.bottom <= a.top);
    }
  }
}

TEST(Labels, AreLeftOutWhereThereIsNoRoomUnlessTheyMustStand) {
  const auto shown = [](bool is_always_shown) {
    Scene scene = draw(beam(), along_y());
    for (int i = 0; i < 60; ++i) {
      scene.labels.push_back({.text = std::to_string(i),
                              .at = {{2000, 0, 3000}, {}},
                              .towards = {0, 1},
                              .is_always_shown = is_always_shown});
    }
    return place_labels(scene, Sheet(scene, 20.0)).size();
  };
  EXPECT_EQ(shown(true), 60U);
  EXPECT_LT(shown(false), 40U);
}

TEST(Labels, OfTheSameValueAtOnePointStandOnce) {
  Scene scene = draw(beam(), along_y());
  for (int i = 0; i < 2; ++i) {
    scene.labels.push_back(
        {.text = "3.72", .at = {{2000, 0, 3000}, {}}, .towards = {0, 1}, .is_always_shown = false});
  }
  EXPECT_EQ(place_labels(scene, Sheet(scene, 20.0)).size(), 1U);
}

TEST(Svg, HasAWhiteGroundAndNamesItselfForThoseWhoDoNotSee) {
  const std::string svg = svg_of(draw(beam(), along_y()));
  EXPECT_TRUE(svg.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg "));
  EXPECT_NE(svg.find("role=\"img\" aria-labelledby=\"picture-title picture-shown\""),
            std::string::npos);
  EXPECT_NE(svg.find("<title id=\"picture-title\">Test</title>"), std::string::npos);
  EXPECT_NE(svg.find("<rect width=\"270\" height="), std::string::npos);
  for (const char* style : {"style", "class", "<script", "href"}) EXPECT_EQ(count(svg, style), 0U);
}

TEST(Svg, InAPageHasNoPrologueAndIdsOfItsOwn) {
  const std::string svg = svg_of(draw(beam(), along_y()), {.is_file = false, .prefix = "loads-2"});
  EXPECT_TRUE(svg.starts_with("<svg "));
  EXPECT_NE(svg.find("width=\"100%\""), std::string::npos);
  EXPECT_EQ(count(svg, " id=\""), count(svg, " id=\"loads-2-"));
  EXPECT_GE(count(svg, " id=\"loads-2-"), 3U);
}

TEST(Svg, InAPageLeavesItsTitleToTheCaptionAndToWhoCannotSeeIt) {
  EXPECT_EQ(count(svg_of(draw(beam(), along_y())), ">Test</"), 2U);
  const std::string svg = svg_of(draw(beam(), along_y()), {.is_file = false});
  EXPECT_EQ(count(svg, ">Test</"), 1U);
  EXPECT_NE(svg.find("<title id=\"picture-title\">Test</title>"), std::string::npos);
}

TEST(Svg, MarksWhatStandsForAnElement) {
  EXPECT_NE(svg_of(draw(beam(), along_y())).find("stroke-width=\"0.5\" data-element=\"1\">"),
            std::string::npos);
}

TEST(Svg, ShowsAnyTextAsText) {
  model::Model model = beam();
  model.title = "</title><script>alert(1)</script>\u202E";
  model::Element element = model.elements[0];
  element.name = "\"/><image href='x'/>";
  model.elements.replace(element);
  const std::string svg = svg_of(draw(model, along_y()));
  EXPECT_EQ(count(svg, "<script"), 0U);
  EXPECT_EQ(count(svg, "<image"), 0U);
  EXPECT_EQ(count(svg, "\u202E"), 0U);
  EXPECT_NE(svg.find("&lt;script&gt;"), std::string::npos);
}

TEST(Svg, IsTheSameForTheSameScene) {
  Content content = along_y();
  content.node_numbers.are_shown = true;
  EXPECT_EQ(svg_of(draw(beam(), content)), svg_of(draw(beam(), content)));
}

TEST(Svg, DrawsAFrameThatIsSeenAsAPoint) {
  Content content;
  content.view = View::yz;
  const std::string svg = svg_of(draw(beam(), content));
  EXPECT_EQ(svg.find("nan"), std::string::npos);
  EXPECT_EQ(svg.find("inf"), std::string::npos);
}

}  // namespace
}  // namespace aluframe::picture
