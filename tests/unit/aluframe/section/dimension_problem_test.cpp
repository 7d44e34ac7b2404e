#include <cmath>
#include <limits>
#include <string>

#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

struct Case {
  const char* name;
  Shape shape;
  std::array<double, 8> dimensions;
  std::size_t dimension;
  const char* text;
};

void PrintTo(const Case& value, std::ostream* out) {
  *out << value.name;
}

std::string name_of_case(const testing::TestParamInfo<Case>& info) {
  return info.param.name;
}

class ImpossibleDimensions : public testing::TestWithParam<Case> {};

TEST_P(ImpossibleDimensions, AreFoundWithTheValueAndWhatIsAllowed) {
  const auto problem =
      find_dimension_problem(make_section(GetParam().shape, GetParam().dimensions));
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->dimension, GetParam().dimension);
  EXPECT_EQ(problem->text, GetParam().text);
}

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Section, ImpossibleDimensions,
    testing::Values(
        Case{"NotANumber", Shape::solid_round, {nan}, 0, "D is nan mm: must be a finite number"},
        Case{"Infinite",
             Shape::tee,
             {100, infinity, 6, 8},
             1,
             "B is inf mm: must be a finite number"},
        Case{"TooLarge",
             Shape::h_section,
             {1e20, 150, 8, 12, 150, 12},
             0,
             "H is 1e+20 mm: must be between 0.001 and 100000 mm"},
        Case{"JustTooLarge",
             Shape::solid_round,
             {100000.001},
             0,
             "D is 100000.001 mm: must be between 0.001 and 100000 mm"},
        Case{"TooSmall",
             Shape::tee,
             {100, 80, 1e-308, 8},
             2,
             "tw is 1e-308 mm: must be between 0.001 and 100000 mm"},
        Case{"LargeRadius",
             Shape::h_section,
             {200, 100, 6, 10, 100, 10, 1e308},
             6,
             "r1 is 1e+308 mm: must be at most 100000 mm"},
        Case{"LargeGap",
             Shape::double_channel,
             {100, 40, 4, 6, 1e6},
             4,
             "C is 1000000 mm: must be at most 100000 mm"},
        Case{"NoDepthBetweenFlanges",
             Shape::h_section,
             {100, 60, 5, 50, 60, 49.9999},
             3,
             "tf1 is 50 mm: the two flanges are as deep as the section (H 100 mm)"},
        Case{"NoWidthBetweenWebs",
             Shape::box,
             {100, 100, 49.9999, 3, 50.0001, 3},
             4,
             "C is 50.0001 mm: the webs leave no cell between them (tw 49.9999 mm)"},
        Case{"Zero", Shape::pipe, {100, 0}, 1, "t is 0 mm: must be more than 0"},
        Case{"Negative",
             Shape::h_section,
             {200, 100, -6, 10, 100, 10},
             2,
             "tw is -6 mm: must be more than 0"},
        Case{"MissingBottomFlange",
             Shape::channel,
             {200, 100, 6, 10, 0, 10},
             4,
             "B2 is 0 mm: must be more than 0"},
        Case{"NegativeRadius",
             Shape::h_section,
             {200, 100, 6, 10, 100, 10, 0, -3},
             7,
             "r2 is -3 mm: must not be negative"},
        Case{"NegativeGap",
             Shape::double_channel,
             {100, 40, 4, 6, -1},
             4,
             "C is -1 mm: must not be negative"},
        Case{"DeepTopFlange",
             Shape::h_section,
             {200, 100, 6, 120, 100, 80},
             3,
             "tf1 is 120 mm: the two flanges are as deep as the section (H 200 mm)"},
        Case{"DeepBottomFlange",
             Shape::channel,
             {200, 100, 6, 80, 100, 120},
             5,
             "tf2 is 120 mm: the two flanges are as deep as the section (H 200 mm)"},
        Case{"DeepBoxFlanges",
             Shape::box,
             {100, 60, 3, 50, 57, 50},
             3,
             "tf1 is 50 mm: the two flanges are as deep as the section (H 100 mm)"},
        Case{"DeepChannelFlanges",
             Shape::double_channel,
             {100, 40, 4, 50, 0},
             3,
             "tf is 50 mm: the two flanges are as deep as the section (H 100 mm)"},
        Case{"DeepTeeFlange",
             Shape::tee,
             {100, 80, 6, 100},
             3,
             "tf is 100 mm: the flange is as deep as the section (H 100 mm)"},
        Case{"ThickWebOfH",
             Shape::h_section,
             {200, 100, 101, 10, 120, 10},
             2,
             "tw is 101 mm: the web is thicker than the flange is wide (B1 100 mm)"},
        Case{"WebThickerThanBottomFlange",
             Shape::channel,
             {200, 100, 60, 10, 50, 10},
             2,
             "tw is 60 mm: the web is thicker than the flange is wide (B2 50 mm)"},
        Case{"ThickWebOfTee",
             Shape::tee,
             {100, 80, 90, 10},
             2,
             "tw is 90 mm: the web is thicker than the flange is wide (B 80 mm)"},
        Case{"ThickWebOfDoubleChannel",
             Shape::double_channel,
             {100, 40, 45, 6, 10},
             2,
             "tw is 45 mm: the web is thicker than the flange is wide (B 40 mm)"},
        Case{"ThickWebsOfBox",
             Shape::box,
             {100, 60, 30, 5, 30, 5},
             2,
             "tw is 30 mm: the two webs are as wide as the section (B 60 mm)"},
        Case{"WebsOfBoxTouch",
             Shape::box,
             {100, 60, 5, 5, 5, 5},
             4,
             "C is 5 mm: the webs leave no cell between them (tw 5 mm)"},
        Case{"WebsOfBoxStandOut",
             Shape::box,
             {100, 60, 5, 5, 56, 5},
             4,
             "C is 56 mm: the webs stand out over the flanges (at most B − tw = 55 mm)"},
        Case{"ThickPipe",
             Shape::pipe,
             {100, 60},
             1,
             "t is 60 mm: the wall is thicker than the radius (D 100 mm)"}),
    name_of_case);

class PossibleDimensions : public testing::TestWithParam<Case> {};

TEST_P(PossibleDimensions, AreAccepted) {
  const auto problem =
      find_dimension_problem(make_section(GetParam().shape, GetParam().dimensions));
  EXPECT_FALSE(problem) << problem->text;
}

INSTANTIATE_TEST_SUITE_P(
    Section, PossibleDimensions,
    testing::Values(
        Case{"Channel", Shape::channel, {100, 50, 5, 8, 40, 6, 3, 3}, 0, ""},
        Case{"HSection", Shape::h_section, {200, 100, 6, 10, 100, 10}, 0, ""},
        Case{"Tee", Shape::tee, {100, 80, 6, 10}, 0, ""},
        Case{"BoxWithWebsAtTheEdges", Shape::box, {150, 60, 3, 4, 57, 4}, 0, ""},
        Case{"BoxWithRoundedDistance", Shape::box, {150, 60, 3, 4, 57 + 1e-13, 4}, 0, ""},
        Case{"Pipe", Shape::pipe, {100, 5}, 0, ""},
        Case{"PipeWithoutABore", Shape::pipe, {100, 50}, 0, ""},
        Case{"DoubleChannelWithoutAGap", Shape::double_channel, {100, 40, 4, 6, 0}, 0, ""},
        Case{"SolidRound", Shape::solid_round, {40}, 0, ""},
        Case{"Other", Shape::other, {}, 0, ""}),
    name_of_case);

}  // namespace
}  // namespace aluframe::section
