#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "host/zel_lib/zel_lib.h"

namespace {

using zel::lib::MMath;

constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(RoundTest, GoesToTheNearestWholeNumber) {
  EXPECT_EQ(MMath::Round(150.4, 0), 150.0);
  EXPECT_EQ(MMath::Round(150.6, 0), 151.0);
  EXPECT_EQ(MMath::Round(-2.4, 0), -2.0);
}

TEST(RoundTest, TakesHalvesAwayFromZero) {
  EXPECT_EQ(MMath::Round(0.5, 0), 1.0);
  EXPECT_EQ(MMath::Round(2.5, 0), 3.0);
  EXPECT_EQ(MMath::Round(-0.5, 0), -1.0);
  EXPECT_EQ(MMath::Round(-2.5, 0), -3.0);
}

// The largest double below a half: adding a half and cutting would give 1.
TEST(RoundTest, KeepsWhatIsJustBelowAHalf) {
  EXPECT_EQ(MMath::Round(std::nextafter(0.5, 0.0), 0), 0.0);
}

TEST(RoundTest, LeavesLargeWholeNumbersAsTheyAre) {
  EXPECT_EQ(MMath::Round(4503599627370497.0, 0), 4503599627370497.0);  // 2^52 + 1
}

// Halves that a double holds exactly.
TEST(RoundTest, CountsDecimals) {
  EXPECT_EQ(MMath::Round(1.125, 2), 1.13);
  EXPECT_EQ(MMath::Round(-1.125, 2), -1.13);
  EXPECT_EQ(MMath::Round(1.25, 1), 1.3);
  EXPECT_EQ(MMath::Round(3.14159, 3), 3.142);
}

TEST(RoundTest, LeavesNumbersTooLargeForDecimalsAsTheyAre) {
  EXPECT_EQ(MMath::Round(1e308, 3), 1e308);
  EXPECT_EQ(MMath::Round(-1e308, 3), -1e308);
}

TEST(RoundTest, LeavesWhatIsNotFiniteAsItIs) {
  for (const int decimals : {0, 3}) {
    EXPECT_EQ(MMath::Round(kInf, decimals), kInf);
    EXPECT_EQ(MMath::Round(-kInf, decimals), -kInf);
    EXPECT_TRUE(std::isnan(MMath::Round(std::numeric_limits<double>::quiet_NaN(), decimals)));
  }
}

}  // namespace
