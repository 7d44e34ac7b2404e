#include "host/tz_db/keys.h"

#include <gtest/gtest.h>

namespace {

// 2^27 = 134217728: the first number that the low 27 bits do not hold, and the weight of bit 27.
constexpr UINT kBit27 = 134217728U;

TEST(LcombKeyTest, TheMinimumSideIsBit27) {
  EXPECT_EQ(MakeLcombKey(5, 1), kBit27 + 5U);
  EXPECT_EQ(MakeLcombKey(5, 0), 5U);
}

TEST(LcombKeyTest, NumberAndSideAreReadBack) {
  EXPECT_EQ(LcombNumber(kBit27 + 5U), 5U);
  EXPECT_EQ(LcombMinSide(kBit27 + 5U), 1);
  EXPECT_EQ(LcombMinSide(5U), 0);
}

TEST(LcombKeyTest, TheLargestNumberKeepsClearOfTheSide) {
  EXPECT_EQ(LcombNumber(kBit27 - 1U), kBit27 - 1U);
  EXPECT_EQ(LcombMinSide(kBit27 - 1U), 0);
}

TEST(LcombKeyTest, BitsAboveTheSideAreIgnored) {
  EXPECT_EQ(LcombNumber(0xF0000007U), 7U);
  EXPECT_EQ(LcombMinSide(0xF0000007U), 0);
}

}  // namespace
