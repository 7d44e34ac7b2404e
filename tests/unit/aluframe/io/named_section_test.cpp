#include "aluframe/io/named_section.h"

#include <gmock/gmock.h>

namespace aluframe::io {
namespace {

using model::Shape;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

const std::vector<catalogue::Profile> own{
    {"Mullion 60", Shape::box, {150, 60, 3, 3, 57, 3}, "mine.csv", "drawing 7"}};

std::string message(std::string_view name) {
  const auto found = named_section(name, own);
  const auto* text = std::get_if<std::string>(&found);
  return text != nullptr ? *text : "no problem";
}

TEST(NamedSection, IsAProfileOfTheUser) {
  const auto found = std::get<model::Section>(named_section("Mullion 60", own));
  EXPECT_EQ(found.shape, Shape::box);
  EXPECT_EQ(found.name, "Mullion 60");
  EXPECT_THAT(found.dimensions, ElementsAre(150, 60, 3, 3, 57, 3, 0, 0));
}

TEST(NamedSection, IsAStandardProfileOrADesignation) {
  EXPECT_EQ(std::get<model::Section>(named_section("NPS 2 SCH 40", own)).shape, Shape::pipe);
  EXPECT_THAT(std::get<model::Section>(named_section("P 60x5", own)).dimensions,
              ElementsAre(60, 5, 0, 0, 0, 0, 0, 0));
}

TEST(NamedSection, SuggestsTheProfileThatDiffersByALetter) {
  EXPECT_THAT(message("Mulion 60"), EndsWith("; did you mean \"Mullion 60\"?"));
  EXPECT_THAT(message("AA I 6x4.08"), EndsWith("; did you mean \"AA I 6x4.03\"?"));
}

TEST(NamedSection, SuggestsTheProfilesThatBeginLikeTheName) {
  EXPECT_THAT(message("nps2 sch"),
              EndsWith("; did you mean \"NPS 2 SCH 40\" or \"NPS 2 SCH 80\"?"));
}

TEST(NamedSection, SuggestsTheDesignationThatWasMeant) {
  EXPECT_THAT(message("H300x150x8x12"), EndsWith("; did you mean \"H 300x150x8x12\"?"));
  EXPECT_THAT(message("2c200x80x6x10"), EndsWith("; did you mean \"2C 200x80x6x10\"?"));
}

TEST(NamedSection, WithoutANearNameSaysWhatIsAllowed) {
  EXPECT_EQ(message("Zebra stripes"),
            "found 'Zebra stripes', must be a standard profile or a shape (C, H, T, B, P, 2C, SR), "
            "a blank and its dimensions in mm, such as H 300x150x8x12");
}

TEST(NamedSection, ThatCannotBeBuiltSaysWhy) {
  EXPECT_EQ(message("P 60x-5"),
            "found 'P 60x-5', which cannot be built: t is -5 mm: must be more "
            "than 0");
  EXPECT_EQ(message("H 100x50x60x8"),
            "found 'H 100x50x60x8', which cannot be built: tw is 60 mm: the web is thicker than "
            "the flange is wide (B1 50 mm)");
}

TEST(NamedSection, OfAnImpossibleSizeIsRefused) {
  EXPECT_THAT(message("SR 9" + std::string(40, '0')),
              HasSubstr("must be between 0.001 and 100000 mm"));
}

TEST(NamedSection, WithControlCharactersIsShownWithoutThem) {
  EXPECT_EQ(message("H\n300x150x8x12"),
            "found \"H 300x150x8x12\", must be the name of a profile or a designation");
}

}  // namespace
}  // namespace aluframe::io
