#include "host/tz_db/mathfunc.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// Pythagorean triples and quadruples, so that every distance is a whole number.

TEST(MathFuncTest, LengthIsTheDistanceInSpace) {
  EXPECT_DOUBLE_EQ(CMathFunc::mathLength({1, 1, 1}, {3, 4, 7}), 7.0);  // 2² + 3² + 6² = 7²
}

TEST(MathFuncTest, LengthDoesNotDependOnTheDirection) {
  const T_NODE_D a{1, 1, 1};
  const T_NODE_D b{3, 4, 7};
  EXPECT_EQ(CMathFunc::mathLength(a, b), CMathFunc::mathLength(b, a));
}

TEST(MathFuncTest, LengthBetweenEqualPointsIsZero) {
  EXPECT_EQ(CMathFunc::mathLength({5, 5, 5}, {5, 5, 5}), 0.0);
}

TEST(MathFuncTest, APointOnTheLineHasNoDistanceFromIt) {
  EXPECT_EQ(CMathFunc::mathDistanceToLine({4, 0, 0}, {0, 0, 0}, {10, 0, 0}), 0.0);
}

TEST(MathFuncTest, TheLineGoesOnBeyondItsPoints) {
  EXPECT_DOUBLE_EQ(CMathFunc::mathDistanceToLine({100, 3, 4}, {0, 0, 0}, {10, 0, 0}), 5.0);
}

TEST(MathFuncTest, DistanceFromASlopingLineIsMeasuredAcrossIt) {
  // The line x = y and the point (2, 0): half the diagonal of a square of side 2.
  EXPECT_DOUBLE_EQ(CMathFunc::mathDistanceToLine({2, 0, 0}, {0, 0, 0}, {7, 7, 0}), std::sqrt(2.0));
}

TEST(MathFuncTest, DistanceFromALineWithoutLengthIsThatFromItsPoint) {
  EXPECT_DOUBLE_EQ(CMathFunc::mathDistanceToLine({3, 4, 0}, {0, 0, 0}, {0, 0, 0}), 5.0);
}

}  // namespace
