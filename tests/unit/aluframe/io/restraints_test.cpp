// What holds members between their ends, in model files.
#include <gmock/gmock.h>

#include "aluframe/io/model_file.h"
#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

using testing::ElementsAre;

constexpr std::string_view h_section =
    R"("shape": "H", "dimensions": {"H": 200, "B1": 100, "tw": 6, "tf1": 10})";
constexpr std::string_view tee =
    R"("shape": "T", "dimensions": {"H": 100, "B": 80, "tw": 6, "tf": 8})";
constexpr std::string_view pipe = R"("shape": "P", "dimensions": {"D": 100, "t": 5})";

/// The small model, whose member of two elements is 6 m long, with restraints.
std::string with(std::string_view restraints, std::string_view section = h_section) {
  const std::string text =
      replaced(small_model, R"("elements": [1, 2]})",
               R"("elements": [1, 2], "restraints": )" + std::string(restraints) + "}");
  return replaced(text, R"("shape": "B", "dimensions": {"H": 150, "B": 60, "tw": 3, "tf1": 3})",
                  section);
}

std::string in_metres(std::string text) {
  text = replaced(text, R"("length": "mm")", R"("length": "m")");
  for (const auto& [from, to] : {std::pair{"3000", "3"}, {"6000", "6"}, {"9000", "9"}}) {
    text = replaced(text, from, to);
  }
  return text;
}

TEST(Restraints, AreReadInTheUnitOfTheFile) {
  const model::Model model = model_of(
      in_metres(with(R"([{"holds": "top", "at": [1.5, 3]}, {"holds": "y", "spacing": 2}])")));
  const auto& restraints = model.members[0].restraints;
  ASSERT_EQ(restraints.size(), 2U);
  EXPECT_EQ(restraints[0].held, model::Held::top_flange);
  EXPECT_THAT(restraints[0].at, ElementsAre(1500.0, 3000.0));
  EXPECT_EQ(restraints[1].held, model::Held::axis_y);
  EXPECT_EQ(restraints[1].spacing, 2000.0);
}

TEST(Restraints, AreWrittenAsTheyWereRead) {
  const std::string text = write_model(
      model_of(with(R"([{"holds":"both","at":[1500,3000]},{"holds":"twist","spacing":2500}])")));
  EXPECT_NE(text.find(R"("restraints": [{"holds": "both", "at": [1500, 3000]}, )"
                      R"({"holds": "twist", "spacing": 2500}])"),
            std::string::npos)
      << text;
}

TEST(Restraints, AreLeftOutOfAModelWithoutAny) {
  EXPECT_EQ(write_model(model_of(small_model)).find("restraints"), std::string::npos);
}

TEST(Restraints, OfASpacingLeaveBothEndsOut) {
  const model::Restraint every_2_m{.held = model::Held::both_flanges, .at = {}, .spacing = 2000.0};
  EXPECT_THAT(model::places_of(every_2_m, 6000.0), ElementsAre(2000.0, 4000.0));
  EXPECT_THAT(model::places_of(every_2_m, 6500.0), ElementsAre(2000.0, 4000.0, 6000.0));
}

TEST(Restraints, MayHoldTheEnds) {
  EXPECT_EQ(message_about(with(R"([{"holds": "z", "at": [0, 6000]}])")), "no problem");
}

TEST(Restraints, MayHoldDifferentThingsAtOnePlace) {
  EXPECT_EQ(
      message_about(with(R"([{"holds": "top", "at": [3000]}, {"holds": "bottom", "at": [3000]},
                                   {"holds": "y", "at": [3000]}])")),
      "no problem");
}

TEST(Restraints, OutsideOfTheMemberAreRefused) {
  EXPECT_EQ(
      message_about(in_metres(with(R"([{"holds": "y", "at": [1, 7.2]}])"))),
      "post.json: /members/0/restraints/0/at/1: found 7.2, must be from 0 to 6, the length of "
      "the member");
  EXPECT_EQ(
      message_about(with(R"([{"holds": "y", "at": [-10]}])")),
      "post.json: /members/0/restraints/0/at/0: found -10, must be from 0 to 6000, the length "
      "of the member");
  EXPECT_EQ(message_about(with(R"([{"holds": "y", "spacing": 6000}])")),
            "post.json: /members/0/restraints/0/spacing: found 6000, must be less than 6000, the "
            "length of the member");
}

TEST(Restraints, AtEndsMayBeRoundedByAMillimetre) {
  EXPECT_EQ(message_about(with(R"([{"holds": "y", "at": [6000.9]}])")), "no problem");
  EXPECT_NE(message_about(with(R"([{"holds": "y", "at": [6001.1]}])")), "no problem");
}

TEST(Restraints, OfTheSameAtOnePlaceAreRefused) {
  EXPECT_EQ(message_about(with(
                R"([{"holds": "both", "spacing": 1500}, {"holds": "top", "at": [100, 3000.5]}])")),
            "post.json: /members/0/restraints/1/at/1: found \"top\" at 3000.5, where "
            "/members/0/restraints/0/spacing holds \"both\" already: at one place the same is held "
            "once");
  EXPECT_EQ(message_about(with(R"([{"holds": "compressed", "at": [100, 200, 100]}])")),
            "post.json: /members/0/restraints/0/at/2: found \"compressed\" at 100, where "
            "/members/0/restraints/0/at/0 holds \"compressed\" already: at one place the same is "
            "held once");
}

TEST(Restraints, OfAnUnknownKindAreRefused) {
  EXPECT_EQ(message_about(with(R"([{"holds": "left", "at": [1000]}])")),
            "post.json: /members/0/restraints/0/holds: found \"left\", must be one of compressed, "
            "top, bottom, both, y, z, twist");
}

TEST(Restraints, OfFlangesThatASectionLacksAreRefused) {
  EXPECT_EQ(
      message_about(with(R"([{"holds": "top", "at": [1000]}])", pipe)),
      "post.json: /members/0/restraints/0/holds: found \"top\" at 1000, where element 1 has a "
      "section P without such a flange, must be one of y, z, twist");
  EXPECT_EQ(
      message_about(with(R"([{"holds": "both", "at": [4000]}])", tee)),
      "post.json: /members/0/restraints/0/holds: found \"both\" at 4000, where element 2 has a "
      "section T without such a flange, must be one of top, y, z, twist");
  EXPECT_EQ(message_about(with(R"([{"holds": "top", "at": [4000]}])", tee)), "no problem");
}

TEST(Restraints, NeedPlacesOfOneKind) {
  EXPECT_EQ(message_about(with(R"([{"holds": "y"}])")),
            "post.json: /members/0/restraints/0: one of \"at\" and \"spacing\" is needed, found "
            "neither");
  EXPECT_EQ(
      message_about(with(R"([{"holds": "y", "at": [1], "spacing": 10}])")),
      "post.json: /members/0/restraints/0: one of \"at\" and \"spacing\" is needed, found both");
  EXPECT_EQ(message_about(with(R"([{"holds": "y", "at": []}])")),
            "post.json: /members/0/restraints/0/at: found no place, must be one or more");
}

TEST(Restraints, OfASpacingInAnotherUnitAreRefused) {
  EXPECT_EQ(
      message_about(with(R"([{"holds": "y", "spacing": 1.5}])")),
      "post.json: /members/0/restraints/0/spacing: found 1.5, must be at least 6, a thousandth "
      "of the member's length and no less than 1 mm");
}

}  // namespace
}  // namespace aluframe::io
