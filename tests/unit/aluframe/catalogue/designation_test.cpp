#include "aluframe/catalogue/designation.h"

#include <gmock/gmock.h>

#include "aluframe/catalogue/profiles.h"

namespace aluframe::catalogue {
namespace {

using model::Shape;
using testing::ElementsAre;
using testing::HasSubstr;

model::Section section(std::string_view name) {
  auto found = section_named(name);
  if (auto* text = std::get_if<std::string>(&found)) {
    ADD_FAILURE() << *text;
    return {};
  }
  return std::get<model::Section>(found);
}

std::string problem(std::string_view name) {
  const auto found = section_named(name);
  const auto* text = std::get_if<std::string>(&found);
  return text != nullptr ? *text : "no problem";
}

TEST(Designation, NamesAShapeAndItsDimensions) {
  const model::Section h = section("H 300x150x8x12");
  EXPECT_EQ(h.shape, Shape::h_section);
  EXPECT_EQ(h.name, "H 300x150x8x12");
  EXPECT_THAT(h.dimensions, ElementsAre(300, 150, 8, 12, 150, 12, 0, 0));
}

TEST(Designation, TakesFurtherDimensionsInTheirOrder) {
  EXPECT_THAT(section("C 200x80x6x10x60x8x5x2").dimensions,
              ElementsAre(200, 80, 6, 10, 60, 8, 5, 2));
  EXPECT_THAT(section("C 200x80x6x10x60").dimensions, ElementsAre(200, 80, 6, 10, 60, 10, 0, 0));
}

TEST(Designation, FillsInTheDefaultsOfABox) {
  EXPECT_THAT(section("B 200x100x5x8").dimensions, ElementsAre(200, 100, 5, 8, 95, 8, 0, 0));
}

TEST(Designation, ReadsEverySignOfMultiplicationAndBlanks) {
  EXPECT_EQ(section("H 300 x 150X8 \u00D7 12").dimensions, section("H 300x150x8x12").dimensions);
}

TEST(Designation, ReadsDecimals) {
  EXPECT_THAT(section("P 60.3x3.6").dimensions, ElementsAre(60.3, 3.6, 0, 0, 0, 0, 0, 0));
}

TEST(Designation, IsAlsoTheNameOfAStandardProfile) {
  EXPECT_EQ(section("AA I 3x1.64").dimensions, find_profile("AA I 3x1.64")->dimensions);
}

TEST(Designation, OfNoShapeSaysWhatIsAllowed) {
  for (const char* name : {"", "H", "Z 100x50x5", "UP 1", "h 300x150x8x12", "H300x150x8x12"}) {
    EXPECT_THAT(problem(name), HasSubstr("must be a standard profile or a shape")) << name;
  }
}

TEST(Designation, WithWrongDimensionsSaysWhichItNeeds) {
  for (const char* name : {"H 300x150x8", "H 300x150x8x12x1x2x3x4x5"}) {
    EXPECT_EQ(problem(name), "found '" + std::string(name) +
                                 "', must be H HxB1xtwxtf1[xB2xtf2xr1xr2] with numbers in mm");
  }
  EXPECT_EQ(problem("P 60"), "found 'P 60', must be P Dxt with numbers in mm");
}

TEST(Designation, WithSomethingElseThanPlainDecimalsSaysSo) {
  for (const char* name :
       {"H 300x150xax12", "H 300x150x8x", "H 300,150,8,12", "H 3e2x150x8x12", "H 300x150x8x1e1"}) {
    EXPECT_EQ(problem(name), "found '" + std::string(name) +
                                 "', must be H HxB1xtwxtf1[xB2xtf2xr1xr2] with plain decimals in "
                                 "mm (12.5, no exponent)");
  }
}

}  // namespace
}  // namespace aluframe::catalogue
