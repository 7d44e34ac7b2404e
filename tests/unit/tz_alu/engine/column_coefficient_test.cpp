#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "tz_alu/engine/stability_coefficients.h"

namespace {

using alu_engine::ColumnCoefficient;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// With fy = 240 the table's index is the slenderness itself.
double Weak(double n) {
  return ColumnCoefficient(n, 240.0, true);
}
double Strong(double n) {
  return ColumnCoefficient(n, 240.0, false);
}

// An alloy class of the Perry formula, GB 50429-2007, appendix B: imperfection α·(λ̄ - λ̄0).
struct PERRY {
  double alpha;
  double lambda0;
};
constexpr PERRY kWeakPerry{0.2, 0.15};
constexpr PERRY kStrongPerry{0.35, 0.1};

// φ at λ·√(fy/240) = n, with λ̄ = n/π·√(240/E) and E = 70,000.
double PerryFormula(const PERRY& alloy, double n) {
  const double relative = n / std::numbers::pi * std::sqrt(240.0 / 70000.0);
  if (relative <= alloy.lambda0) return 1.0;
  const double square = relative * relative;
  const double sum = 1.0 + alloy.alpha * (relative - alloy.lambda0) + square;
  return std::fmin(1.0, (sum - std::sqrt(sum * sum - 4.0 * square)) / (2.0 * square));
}

// Half a unit of the table's third decimal.
constexpr double kThreeDecimals = 0.0005 + 1e-9;

TEST(ColumnCoefficientTable, OfWeakHardeningAlloysIsThePerryFormulaToThreeDecimals) {
  for (int n = 0; n <= 150; ++n) {
    EXPECT_NEAR(Weak(n), PerryFormula(kWeakPerry, n), kThreeDecimals) << n;
  }
}

TEST(ColumnCoefficientTable, OfStrongHardeningAlloysIsThePerryFormulaToThreeDecimals) {
  for (int n = 0; n <= 150; ++n) {
    EXPECT_NEAR(Strong(n), PerryFormula(kStrongPerry, n), kThreeDecimals) << n;
  }
}

TEST(ColumnCoefficientTable, HoldsThreeDecimals) {
  for (int n = 0; n <= 150; ++n) {
    for (const double phi : {Weak(n), Strong(n)}) {
      EXPECT_NEAR(1000.0 * phi, std::round(1000.0 * phi), 1e-9) << n;
    }
  }
}

TEST(ColumnCoefficientTable, StartsWithAPlateauOfOne) {
  for (int n = 0; n <= 8; ++n) EXPECT_EQ(Weak(n), 1.0) << n;
  for (int n = 0; n <= 5; ++n) EXPECT_EQ(Strong(n), 1.0) << n;
}

TEST(ColumnCoefficientTable, FallsWithEveryStepAfterThePlateau) {
  for (int n = 9; n <= 150; ++n) EXPECT_LT(Weak(n), Weak(n - 1)) << n;
  for (int n = 6; n <= 150; ++n) EXPECT_LT(Strong(n), Strong(n - 1)) << n;
}

TEST(ColumnCoefficientTable, OfWeakHardeningAlloysIsNeverBelowTheOther) {
  for (int n = 0; n <= 150; ++n) EXPECT_GE(Weak(n), Strong(n)) << n;
}

// Rows of the code's tables.
TEST(ColumnCoefficient, IsTheTablesRow) {
  EXPECT_EQ(Weak(10), 0.993);
  EXPECT_EQ(Weak(50), 0.71);
  EXPECT_EQ(Weak(100), 0.254);
  EXPECT_EQ(Strong(10), 0.97);
  EXPECT_EQ(Strong(50), 0.615);
  EXPECT_EQ(Strong(100), 0.234);
}

TEST(ColumnCoefficient, IsThatOfTheNearestWholeNumber) {
  EXPECT_EQ(Weak(9.6), 0.993);
  EXPECT_EQ(Weak(10.4), 0.993);
}

TEST(ColumnCoefficient, TakesHalvesToTheNextRow) {
  EXPECT_EQ(Weak(8.49), 1.0);
  EXPECT_EQ(Weak(8.5), 0.996);
  EXPECT_EQ(Weak(10.5), 0.989);
}

TEST(ColumnCoefficient, FollowsTheRootOfTheProofStrength) {
  EXPECT_EQ(ColumnCoefficient(20.0, 60.0, true), 0.993);  // 20·√(60/240) = 10
  EXPECT_EQ(ColumnCoefficient(20.0, 60.0, false), 0.97);
  EXPECT_EQ(ColumnCoefficient(100.0, 0.0, true), 1.0);
}

TEST(ColumnCoefficient, EndsWithTheLastRow) {
  EXPECT_EQ(Weak(150.4), 0.119);
  EXPECT_EQ(Strong(150.4), 0.113);
}

TEST(ColumnCoefficient, BeyondTheLastRowStaysThere) {
  for (const double n : {150.6, 151.0, 400.0, 1e300, kInf}) {
    EXPECT_EQ(Weak(n), 0.119) << n;
    EXPECT_EQ(Strong(n), 0.113) << n;
  }
}

TEST(ColumnCoefficient, BelowTheFirstRowIsOne) {
  for (const double n : {-0.4, -0.5, -30.0, -1e300, -kInf}) {
    EXPECT_EQ(Weak(n), 1.0) << n;
    EXPECT_EQ(Strong(n), 1.0) << n;
  }
}

TEST(ColumnCoefficient, OfAnUndefinedSlendernessIsUndefined) {
  EXPECT_TRUE(std::isnan(Weak(kNan)));
  EXPECT_TRUE(std::isnan(Strong(kNan)));
  EXPECT_TRUE(std::isnan(ColumnCoefficient(50.0, -240.0, true)));
  EXPECT_TRUE(std::isnan(ColumnCoefficient(kInf, 0.0, true)));
}

}  // namespace
