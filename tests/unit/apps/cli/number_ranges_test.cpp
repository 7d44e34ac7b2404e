#include "apps/cli/number_ranges.h"

#include <gtest/gtest.h>

namespace aluframe::cli {
namespace {

using Numbers = std::vector<model::Number>;

NumberRanges ranges(std::string_view text) {
  return std::get<NumberRanges>(parse_number_ranges(text));
}

TEST(NumberRanges, NumbersAndRangesAreRead) {
  EXPECT_EQ(ranges("1,3,10-20").ranges(), (std::vector<NumberRange>{{1, 1}, {3, 3}, {10, 20}}));
  EXPECT_EQ(ranges("134217727").ranges(), (std::vector<NumberRange>{{134217727, 134217727}}));
  EXPECT_TRUE(ranges("4-6").contains(6));
  EXPECT_FALSE(ranges("4-6").contains(7));
}

TEST(NumberRanges, AnythingElseIsRefusedWithThePartThatIsWrong) {
  for (const char* text : {"", "0", "a", "1,,2", "5-3", "1-", "-3", "134217728", " 1", "1-2-3"}) {
    EXPECT_TRUE(std::holds_alternative<std::string>(parse_number_ranges(text))) << text;
  }
  const auto parsed = parse_number_ranges("1,x7");
  ASSERT_TRUE(std::holds_alternative<std::string>(parsed));
  EXPECT_EQ(std::get<std::string>(parsed).find("found 'x7', must be numbers"), 0U);
}

TEST(NumberRanges, NeighboursAreJoined) {
  EXPECT_EQ(join_as_ranges({1, 2, 3, 7, 9, 10}), "1-3, 7, 9-10");
  EXPECT_EQ(join_as_ranges({5}), "5");
  EXPECT_EQ(join_as_ranges({}), "");
}

TEST(NumberRanges, SelectionKeepsTheExistingOrder) {
  const auto selected = select(ranges("1-5"), {9, 5, 2, 7}, "element");
  EXPECT_EQ(std::get<Numbers>(selected), (Numbers{5, 2}));
}

TEST(NumberRanges, ARangeThatNamesNothingIsRefused) {
  const auto selected = select(ranges("2,30-40"), {2, 3}, "element");
  EXPECT_EQ(std::get<std::string>(selected), "there is no element 30-40");
}

}  // namespace
}  // namespace aluframe::cli
