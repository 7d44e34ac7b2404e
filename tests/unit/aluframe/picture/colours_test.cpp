#include "aluframe/picture/colours.h"

#include <limits>
#include <set>
#include <string>

#include "frames.h"

namespace aluframe::picture {
namespace {

TEST(RatioClasses, EndWithTheirLimit) {
  EXPECT_EQ(class_of(0.0).text, "up to 0.25");
  EXPECT_EQ(class_of(0.25).text, "up to 0.25");
  EXPECT_EQ(class_of(0.2500001).text, "0.25 to 0.50");
  EXPECT_EQ(class_of(1.0).text, "0.90 to 1");
  EXPECT_EQ(class_of(1.0000001).text, "over 1");
}

TEST(RatioClasses, TakeWhatIsNoNumberForOverOne) {
  EXPECT_EQ(class_of(std::numeric_limits<double>::quiet_NaN()).text, "over 1");
  EXPECT_EQ(class_of(std::numeric_limits<double>::infinity()).text, "over 1");
}

/// Relative luminance of "#rrggbb" (sRGB), 0 black to 1 white.
double luminance(std::string_view colour) {
  const auto part = [&](std::size_t place) {
    const double value = std::stoi(std::string(colour.substr(place, 2)), nullptr, 16) / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(1) + 0.7152 * part(3) + 0.0722 * part(5);
}

// Without colour vision classes are told apart by how dark they are, and over 1 by its width.
TEST(RatioClasses, GetDarkerUpToOneAndThickBeyond) {
  double before = 1.0;
  for (const RatioClass& one : ratio_classes) {
    EXPECT_LT(luminance(one.colour), 0.75 * before) << one.text;
    before = luminance(one.colour);
    EXPECT_LT(1.5 * one.width, over_one.width);
  }
  EXPECT_GT(luminance(over_one.colour), 5.0 * luminance(ratio_classes.back().colour));
}

TEST(KindStyles, RepeatAfterTwentyFour) {
  std::set<std::pair<std::string_view, std::string_view>> all;
  for (std::size_t i = 0; i < 24; ++i) all.insert({kind_style(i).colour, kind_style(i).dash});
  EXPECT_EQ(all.size(), 24U);
  EXPECT_EQ(kind_style(24).colour, kind_style(0).colour);
}

TEST(RatioColours, HaveALegendWithCountsAndElementsWithoutResult) {
  const model::Model model =
      chain({node(1, 0, 0, 0), node(2, 1000, 0, 0), node(3, 2000, 0, 0), node(4, 3000, 0, 0)});
  Content content = along_y();
  content.colour = ColourBy::ratio;
  content.ratios = {{1, 0.3}, {3, 1.5}};
  const Scene scene = draw(model, content);
  std::vector<std::string> legend;
  for (const LegendEntry& entry : scene.legend) legend.push_back(entry.text);
  EXPECT_EQ(legend, (std::vector<std::string>{
                        "ratio up to 0.25: 0 elements", "ratio 0.25 to 0.50: 1 element",
                        "ratio 0.50 to 0.75: 0 elements", "ratio 0.75 to 0.90: 0 elements",
                        "ratio 0.90 to 1: 0 elements", "ratio over 1: 1 element",
                        "without a result: 1 element"}));
  const auto elements = shapes_of(scene, Layer::frame);
  EXPECT_EQ(elements[0].style.stroke, class_of(0.3).colour);
  EXPECT_FALSE(elements[1].style.dash.empty());
  EXPECT_EQ(elements[2].style.stroke, over_one.colour);
  EXPECT_EQ(texts_of(scene, Layer::values), std::vector<std::string>{"1.50"});
}

TEST(RatioColours, CountEveryElementInOneClass) {
  std::vector<model::Node> nodes;
  for (model::Number i = 1; i <= 12; ++i) nodes.push_back(node(i, 1000.0 * i, 0, 0));
  Content content = along_y();
  content.colour = ColourBy::ratio;
  // Of 11 elements 10 and 11 have no ratio; limits belong to the class below them.
  content.ratios = {{1, 0.0},  {2, 0.25}, {3, 0.26},  {4, 0.50},        {5, 0.51},
                    {6, 0.76}, {7, 1.0},  {8, 1.001}, {9, std::nan("")}};
  const ElementStyles styles = element_styles(chain(nodes), content);
  EXPECT_EQ(styles.styles.size(), 11U);
  std::vector<std::string> legend;
  for (const LegendEntry& entry : styles.legend) legend.push_back(entry.text);
  EXPECT_EQ(legend, (std::vector<std::string>{
                        "ratio up to 0.25: 2 elements", "ratio 0.25 to 0.50: 2 elements",
                        "ratio 0.50 to 0.75: 1 element", "ratio 0.75 to 0.90: 1 element",
                        "ratio 0.90 to 1: 1 element", "ratio over 1: 2 elements",
                        "without a result: 2 elements"}));
}

TEST(RatioColours, LeaveOutOfTheCountRatiosOfElementsThatAreGone) {
  Content content = along_y();
  content.colour = ColourBy::ratio;
  content.ratios = {{1, 0.3}, {99, 0.3}};
  const auto legend = element_styles(beam(), content).legend;
  EXPECT_EQ(legend.at(1).text, "ratio 0.25 to 0.50: 1 element");
}

}  // namespace
}  // namespace aluframe::picture
