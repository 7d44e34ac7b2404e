#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "aluframe/model/section.h"

namespace aluframe::model {
namespace {

/// Shapes as model files and the host write them, with dimensions in the host's order.
struct Row {
  Shape shape;
  const char* name;
  std::size_t required;
  std::vector<std::string_view> dimensions;
};

void PrintTo(const Row& row, std::ostream* out) {
  *out << row.name;
}

class Shapes : public testing::TestWithParam<Row> {};

TEST_P(Shapes, HaveANameThatIsReadBack) {
  EXPECT_EQ(name_of(GetParam().shape), GetParam().name);
  EXPECT_EQ(parse_shape(GetParam().name), GetParam().shape);
}

TEST_P(Shapes, HaveDimensionsInTheHostsOrder) {
  EXPECT_TRUE(std::ranges::equal(dimension_names(GetParam().shape), GetParam().dimensions));
  EXPECT_EQ(required_dimensions(GetParam().shape), GetParam().required);
}

INSTANTIATE_TEST_SUITE_P(
    All, Shapes,
    testing::Values(
        Row{Shape::channel, "C", 4, {"H", "B1", "tw", "tf1", "B2", "tf2", "r1", "r2"}},
        Row{Shape::h_section, "H", 4, {"H", "B1", "tw", "tf1", "B2", "tf2", "r1", "r2"}},
        Row{Shape::tee, "T", 4, {"H", "B", "tw", "tf"}},
        Row{Shape::box, "B", 4, {"H", "B", "tw", "tf1", "C", "tf2"}},
        Row{Shape::pipe, "P", 2, {"D", "t"}},
        Row{Shape::double_channel, "2C", 4, {"H", "B", "tw", "tf", "C"}},
        Row{Shape::solid_round, "SR", 1, {"D"}}, Row{Shape::other, "UP", 0, {}}));

TEST(ShapeNames, AreCaseSensitive) {
  EXPECT_EQ(parse_shape("h"), std::nullopt);
  EXPECT_EQ(parse_shape(""), std::nullopt);
}

TEST(ShapeNames, AreListedForMessages) {
  EXPECT_EQ(shape_names(), "C, H, T, B, P, 2C, SR, UP");
}

}  // namespace
}  // namespace aluframe::model
