#include "aluframe/picture/letters.h"

#include <gtest/gtest.h>

namespace aluframe::picture {
namespace {

TEST(Letters, OfIdeographsAreAsWideAsTall) {
  EXPECT_EQ(width_of("玻璃幕墙"), 4.0);
  EXPECT_LT(width_of("iiii"), width_of("nnnn"));
  EXPECT_EQ(width_of(""), 0.0);
}

TEST(Letters, AreWrappedAtBlanks) {
  EXPECT_EQ(wrapped("one two three", 5.0), (std::vector<std::string>{"one two", "three"}));
  EXPECT_EQ(wrapped("", 5.0), std::vector<std::string>{""});
}

TEST(Letters, WithoutBlanksAreCutBetweenCharacters) {
  EXPECT_EQ(wrapped("玻璃幕墙", 2.0), (std::vector<std::string>{"玻璃", "幕墙"}));
}

TEST(Letters, StandOneALineAtTheLeast) {
  EXPECT_EQ(wrapped("ab", 0.1), (std::vector<std::string>{"a", "b"}));
}

}  // namespace
}  // namespace aluframe::picture
