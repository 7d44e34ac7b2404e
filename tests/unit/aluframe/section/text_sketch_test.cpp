#include "aluframe/section/text_sketch.h"

#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

// 160 mm in 16 lines: 10 mm a line, 5 mm a character. The flange's halves of 55 mm take 11
// characters, the web one. The centroid lies (1150·5 + 750·85)/1900 = 36.6 mm below the top, in
// the fourth line; the shear centre 5 mm, in the first.
TEST(TextSketch, DrawsATeeToScaleWithCentroidAndShearCentre) {
  const std::string web = std::string(11, ' ') + "#\n";
  std::string expected = "###########o###########\n" + web + web + std::string(11, ' ') + "+\n";
  for (int i = 0; i < 12; ++i) expected += web;
  EXPECT_EQ(text_sketch_of(make_section(Shape::tee, {160, 115, 5, 10})), expected);
}

TEST(TextSketch, DrawsWallsThatAreThinnerThanACharacter) {
  const std::string sketch =
      text_sketch_of(make_section(Shape::box, {160, 80, 0.5, 0.5, 79.5, 0.5}));
  // 16 lines of 16 characters between the walls, and the walls.
  EXPECT_EQ(sketch.substr(0, 19), "##################\n");
  EXPECT_EQ(sketch.substr(19, 19), "#                #\n");
}

TEST(TextSketch, LeavesCornerRadiiOut) {
  EXPECT_EQ(text_sketch_of(make_section(Shape::h_section, {200, 100, 6, 10, 100, 10, 12, 4})),
            text_sketch_of(make_section(Shape::h_section, {200, 100, 6, 10, 100, 10})));
}

TEST(TextSketch, MakesRoomForAShearCentreBeyondTheWeb) {
  const std::string sketch = text_sketch_of(make_section(Shape::channel, {200, 80, 6, 10, 80, 10}));
  const std::size_t mark = sketch.find('o');
  ASSERT_NE(mark, std::string::npos);
  const std::string line = sketch.substr(mark, sketch.find('\n', mark) - mark);
  EXPECT_EQ(line.find_first_not_of("o "), line.find('#'));
  EXPECT_LT(line.find('#'), line.find('+'));
}

}  // namespace
}  // namespace aluframe::section
