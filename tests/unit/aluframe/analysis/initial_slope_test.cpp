#include "aluframe/analysis/initial_slope.h"

#include <gtest/gtest.h>

namespace aluframe::analysis {
namespace {

constexpr std::array powers{1.0, -2.0, 3.0, 0.5};

double plain(double t) {
  return 1.0 - 2.0 * t + 3.0 * t * t + 0.5 * t * t * t;
}

TEST(InitialSlope, IsThePolynomialOfItsPowers) {
  EXPECT_DOUBLE_EQ(InitialSlope(powers).at(0.7), plain(0.7));
}

TEST(InitialSlope, OfTheChordIsTheMean) {
  // The integral from -1 to 1 over 2: 1 + 3/3.
  EXPECT_DOUBLE_EQ(InitialSlope(powers).mean(), 2.0);
}

TEST(InitialSlope, AroundAnotherPlaceIsTheSame) {
  const auto around = InitialSlope(powers).around(-0.4, 0.6);
  for (const double s : {0.0, 0.5, 1.0}) {
    double sum = 0.0, power = 1.0;
    for (const double coefficient : around) {
      sum += coefficient * power;
      power *= s;
    }
    EXPECT_NEAR(sum, plain(-0.4 + 0.6 * s), 1e-14);
  }
}

TEST(InitialSlope, AddsAnotherTimesAFactor) {
  const std::array<double, 1> lean{0.25};
  EXPECT_DOUBLE_EQ(InitialSlope(lean).add(InitialSlope(powers), -2.0).at(0.3),
                   0.25 - 2.0 * plain(0.3));
}

TEST(InitialSlope, WithoutPowersIsZero) {
  EXPECT_TRUE(InitialSlope().is_zero());
  EXPECT_TRUE(InitialSlope(std::array{0.0, 0.0}).is_zero());
  EXPECT_FALSE(InitialSlope(powers).is_zero());
}

}  // namespace
}  // namespace aluframe::analysis
