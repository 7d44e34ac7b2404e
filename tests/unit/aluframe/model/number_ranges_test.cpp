#include "aluframe/model/number_ranges.h"

#include <gtest/gtest.h>

namespace aluframe::model {
namespace {

using Numbers = std::vector<model::Number>;
using Ranges = std::vector<NumberRange>;

NumberRanges ranges(std::string_view text) {
  return std::get<NumberRanges>(parse_number_ranges(text));
}

/// What is wrong with a text, or nothing.
std::string problem_of(std::string_view text) {
  const auto parsed = parse_number_ranges(text);
  const auto* problem = std::get_if<std::string>(&parsed);
  return problem == nullptr ? "" : *problem;
}

TEST(NumberRanges, NumbersAndRangesAreReadInTheirOrder) {
  EXPECT_EQ(ranges("7").ranges(), (Ranges{{7, 7}}));
  EXPECT_EQ(ranges("1,3,10-20").ranges(), (Ranges{{1, 1}, {3, 3}, {10, 20}}));
  EXPECT_EQ(ranges("10-20,3").ranges(), (Ranges{{10, 20}, {3, 3}}));
  EXPECT_EQ(ranges("5-5,5,4-6").ranges(), (Ranges{{5, 5}, {5, 5}, {4, 6}}));
}

// Numbers of a model end at 2^27 − 1.
TEST(NumberRanges, TheLargestNumberIsRead) {
  EXPECT_EQ(ranges("134217727").ranges(), (Ranges{{134217727, 134217727}}));
  EXPECT_EQ(problem_of("134217728").find("found '134217728'"), 0U);
}

TEST(NumberRanges, BothEndsOfARangeBelongToIt) {
  const NumberRanges read = ranges("2,4-6");
  for (const model::Number in : {2U, 4U, 5U, 6U}) EXPECT_TRUE(read.contains(in)) << in;
  for (const model::Number out : {1U, 3U, 7U}) EXPECT_FALSE(read.contains(out)) << out;
}

TEST(NumberRanges, NoRangesAreEmptyAndContainNothing) {
  EXPECT_TRUE(NumberRanges().empty());
  EXPECT_FALSE(NumberRanges().contains(1));
  EXPECT_FALSE(ranges("1").empty());
}

TEST(NumberRanges, AnythingElseIsRefused) {
  for (const char* text :
       {"",           "0",   "a",    "1a", "1,,2", ",1",    "1,",
        "5-3",        "0-3", "1-",   "-3", "-",    "1-2-3", "1--2",
        " 1",         "1 ",  "1, 2", "+1", "1.5",  "0x1",   "99999999999999999999",
        "1-134217728"}) {
    EXPECT_NE(problem_of(text), "") << "'" << text << "'";
  }
}

TEST(NumberRanges, TheMessageNamesThePartThatIsWrong) {
  EXPECT_EQ(problem_of("1,x7,y"),
            "found 'x7', must be numbers from 1 to 134217727 and rising ranges of them, as in "
            "1,3,10-20");
  EXPECT_EQ(problem_of("1,,2").find("found ''"), 0U);
}

TEST(NumberRanges, NeighboursAreJoined) {
  EXPECT_EQ(join_as_ranges({1, 2, 3, 7, 9, 10}), "1-3, 7, 9-10");
  EXPECT_EQ(join_as_ranges({5}), "5");
  EXPECT_EQ(join_as_ranges({134217726, 134217727}), "134217726-134217727");
  EXPECT_EQ(join_as_ranges({}), "");
}

TEST(NumberRanges, LongListsAreCutShortAndCountWhatIsLeft) {
  EXPECT_EQ(join_as_ranges({1, 2, 5, 7, 8, 9}, 2), "1-2, 5 and 3 more");
  EXPECT_EQ(join_as_ranges({1, 2, 5}, 2), "1-2, 5");
}

TEST(NumberRanges, ASelectionKeepsTheExistingOrder) {
  const auto selected = select(ranges("7,1-5,2"), {9, 5, 2, 7}, "element");
  EXPECT_EQ(std::get<Numbers>(selected), (Numbers{5, 2, 7}));
}

TEST(NumberRanges, ARangeThatNamesNothingIsRefused) {
  EXPECT_EQ(std::get<std::string>(select(ranges("2,30-40"), {2, 3}, "element")),
            "there is no element 30-40");
  EXPECT_EQ(std::get<std::string>(select(ranges("2,4"), {2, 3}, "design combination")),
            "there is no design combination 4");
  EXPECT_TRUE(std::holds_alternative<Numbers>(select(ranges("3-99"), {2, 3}, "element")));
}

}  // namespace
}  // namespace aluframe::model
