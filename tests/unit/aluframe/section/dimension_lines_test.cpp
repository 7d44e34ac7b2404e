#include "aluframe/section/dimension_lines.h"

#include <algorithm>

#include "aluframe/section/sketch.h"
#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;
using Kind = DimensionLine::Kind;

const DimensionLine& line_of(const std::vector<DimensionLine>& lines, const std::string& text) {
  const auto found = std::ranges::find(lines, text, &DimensionLine::text);
  EXPECT_NE(found, lines.end()) << text;
  return found == lines.end() ? lines.front() : *found;
}

void expect_line(const std::vector<DimensionLine>& lines, const std::string& text, Kind kind,
                 double from, double to, double level) {
  const DimensionLine& line = line_of(lines, text);
  EXPECT_EQ(line.kind, kind) << text;
  EXPECT_NEAR(line.from, from, 1e-9) << text;
  EXPECT_NEAR(line.to, to, 1e-9) << text;
  EXPECT_NEAR(line.level, level, 1e-9) << text;
}

// The centroid of a tee 180 x 120 x 8 x 10 lies below the top by
// (1200·5 + 1360·95)/2560 = 52.8125 mm, by hand.
TEST(DimensionLines, OfATeeStandFromItsCentroid) {
  const auto lines = dimension_lines_of(make_section(Shape::tee, {180, 120, 8, 10}));
  ASSERT_EQ(lines.size(), 4U);
  expect_line(lines, "H 180", Kind::beside, -127.1875, 52.8125, -60);
  expect_line(lines, "B 120", Kind::above, -60, 60, 52.8125);
  expect_line(lines, "tw 8", Kind::below, -4, 4, -127.1875);
  expect_line(lines, "tf 10", Kind::thickness, 42.8125, 52.8125, 60);
}

TEST(DimensionLines, OfAnUnequalHSectionHaveBothFlanges) {
  const auto lines =
      dimension_lines_of(make_section(Shape::h_section, {300, 150, 8, 12, 120, 16, 0, 0}));
  EXPECT_EQ(line_of(lines, "B1 150").kind, Kind::above);
  EXPECT_EQ(line_of(lines, "B2 120").kind, Kind::below);
  EXPECT_EQ(line_of(lines, "tf1 12").level, 75);
  EXPECT_EQ(line_of(lines, "tf2 16").level, 60);
  EXPECT_EQ(line_of(lines, "tw 8").kind, Kind::wall);
}

TEST(DimensionLines, OfTwoChannelsWithoutAGapLeaveItOut) {
  const auto texts = [](double gap) {
    std::vector<std::string> out;
    for (const auto& line :
         dimension_lines_of(make_section(Shape::double_channel, {200, 80, 6, 10, gap})))
      out.push_back(line.text);
    return out;
  };
  EXPECT_EQ(texts(12), (std::vector<std::string>{"H 200", "B 80", "C 12", "tw 6", "tf 10"}));
  EXPECT_EQ(texts(0), (std::vector<std::string>{"H 200", "B 80", "tw 6", "tf 10"}));
}

TEST(DimensionLines, OfRoundShapesAreTheDiameterAndTheWall) {
  const auto pipe = dimension_lines_of(make_section(Shape::pipe, {100, 5}));
  expect_line(pipe, "D 100", Kind::below, -50, 50, -50);
  expect_line(pipe, "t 5", Kind::wall, 45, 50, 0);
  EXPECT_EQ(dimension_lines_of(make_section(Shape::solid_round, {50})).size(), 1U);
}

TEST(Sketch, HasAWhiteGroundOfItsWholeSize) {
  const std::string svg = sketch_of(make_section(Shape::solid_round, {100}));
  // 100 mm, 26 % of it on either side; 4.8 rows of 9 % above and below.
  EXPECT_NE(svg.find("viewBox=\"-76 -66.2 152 143.2\""), std::string::npos) << svg;
  EXPECT_NE(
      svg.find("<rect x=\"-76\" y=\"-66.2\" width=\"152\" height=\"143.2\" fill=\"#ffffff\"/>"),
      std::string::npos)
      << svg;
  EXPECT_NE(svg.find(">D 100</text>"), std::string::npos);
}

TEST(Sketch, ShowsAnyNameAsText) {
  model::Section section = make_section(Shape::solid_round, {100});
  section.name = "<script>\"&\u202E";
  EXPECT_NE(sketch_of(section).find(">&lt;script&gt;&quot;&amp; </text>"), std::string::npos);
}

}  // namespace
}  // namespace aluframe::section
