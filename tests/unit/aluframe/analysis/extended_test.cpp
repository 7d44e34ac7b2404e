#include "aluframe/analysis/extended.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace aluframe::analysis {
namespace {

constexpr double epsilon = std::numeric_limits<double>::epsilon();

void expect_exactly(const Extended& found, double high, double low) {
  EXPECT_EQ(found.high, high);
  EXPECT_EQ(found.low, low);
}

TEST(Extended, SumKeepsWhatADoubleLoses) {
  expect_exactly(exact_sum(1.0, epsilon / 4), 1.0, epsilon / 4);
  expect_exactly(exact_sum(epsilon / 4, 1.0), 1.0, epsilon / 4);
}

TEST(Extended, ProductKeepsWhatADoubleLoses) {
  // (1 + e)² = 1 + 2e + e².
  expect_exactly(exact_product(1.0 + epsilon, 1.0 + epsilon), 1.0 + 2 * epsilon, epsilon * epsilon);
}

TEST(Extended, ProductIsThatOfAFusedMultiplication) {
  // The rounding of a product is fma(a, b, -a·b) by the definition of that operation.
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> any(-1e6, 1e6);
  for (int i = 0; i < 1000; ++i) {
    const double a = any(random), b = any(random);
    expect_exactly(exact_product(a, b), a * b, std::fma(a, b, -(a * b)));
  }
}

TEST(Extended, DifferenceOfNearNumbersIsExact) {
  const Extended near = Extended(1e15) + Extended(1e-10);
  EXPECT_EQ((near - Extended(1e15)).value(), 1e-10);
}

TEST(Extended, ProductOfTwoSumsHasThirtyDigits) {
  // (1 + 1e-20)·(3 − 1e-20) = 3 + 2e-20 − 1e-40.
  const Extended a = Extended(1.0) + Extended(1e-20), b = Extended(3.0) - Extended(1e-20);
  EXPECT_NEAR(((a * b) - Extended(3.0)).value(), 2e-20, 1e-31);
}

TEST(Extended, QuotientTimesItsDivisorIsTheNumber) {
  const Extended number = Extended(2.0) + Extended(3e-20);
  const Extended back = (number / 7.0) * 7.0;
  EXPECT_NEAR((back - number).value(), 0.0, 1e-31);
}

}  // namespace
}  // namespace aluframe::analysis
