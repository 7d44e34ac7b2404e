#include "aluframe/members/chart_equations.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace aluframe::members {
namespace {

constexpr double hinged = std::numeric_limits<double>::infinity();
constexpr double pi = std::numbers::pi;
/// Of closed values: K is found to the precision of a double.
constexpr double exact = 1e-12;

TEST(NonSwayFactor, IsAHalfBetweenClampedEnds) {
  EXPECT_NEAR(non_sway_factor(0, 0), 0.5, exact);
}

TEST(NonSwayFactor, IsOneBetweenHinges) {
  EXPECT_NEAR(non_sway_factor(hinged, hinged), 1.0, exact);
}

// Euler: tan u = u, u = 4.493409457909064 (Abramowitz and Stegun, table 10.6).
TEST(NonSwayFactor, IsThatOfEulerBetweenAClampAndAHinge) {
  EXPECT_NEAR(non_sway_factor(0, hinged), pi / 4.493409457909064, exact);
  EXPECT_NEAR(non_sway_factor(hinged, 0), pi / 4.493409457909064, exact);
}

// A. Chajes, Principles of Structural Stability Theory (1974), chapter 4: the portal with clamped
// feet and a beam like its columns buckles without sway at 25.2·EI/L²; K = π/√25.2, to three
// digits.
TEST(NonSwayFactor, AgreesWithThePortalThatBucklesWithoutSway) {
  EXPECT_NEAR(non_sway_factor(0, 1), pi / std::sqrt(25.2), 0.001);
}

TEST(SwayFactor, IsOneBetweenClampedEnds) {
  EXPECT_NEAR(sway_factor(0, 0), 1.0, exact);
}

TEST(SwayFactor, IsTwoBetweenAClampAndAHingeOrFreeEnd) {
  EXPECT_NEAR(sway_factor(0, hinged), 2.0, exact);
  EXPECT_NEAR(sway_factor(hinged, 0), 2.0, exact);
}

TEST(SwayFactor, IsCappedWhereTheColumnWouldFallOver) {
  EXPECT_EQ(sway_factor(hinged, hinged), largest_factor);
  EXPECT_EQ(sway_factor(1e6, 1e6), largest_factor);
}

// Chajes, chapter 4; S. P. Timoshenko and J. M. Gere, Theory of Elastic Stability (1961), 2.4: with
// hinged feet and a beam like its columns the portal sways at 1.82·EI/L² (three digits: K to 0.3
// %).
TEST(SwayFactor, AgreesWithThePortalOnHinges) {
  EXPECT_NEAR(sway_factor(hinged, 1), pi / std::sqrt(1.82), 0.007);
}

// Chajes, chapter 4: the portal with clamped feet sways at 7.34·EI/L², with kL = 2.71 read to
// three digits, so K is good to 0.4 %.
TEST(SwayFactor, AgreesWithThePortalOnClamps) {
  EXPECT_NEAR(sway_factor(0, 1), pi / 2.71, 0.005);
}

constexpr double ratios[] = {0, 0.1, 0.3, 1, 2, 5, 10, 50};

// P. Dumonteil, "Simple equations for effective length factors", AISC Engineering Journal 29 (1992)
// 111-115: off by −0.5 % to +1.5 % without sway, by up to 2 % with it; 2 % and 2.2 % for rounding.
TEST(NonSwayFactor, StaysWithinTheErrorOfDumonteilsApproximation) {
  for (const double a : ratios) {
    for (const double b : ratios) {
      const double approximate =
          (3 * a * b + 1.4 * (a + b) + 0.64) / (3 * a * b + 2 * (a + b) + 1.28);
      EXPECT_NEAR(non_sway_factor(a, b) / approximate, 1, 0.02) << a << ' ' << b;
    }
  }
}

TEST(SwayFactor, StaysWithinTheErrorOfDumonteilsApproximation) {
  for (const double a : ratios) {
    for (const double b : ratios) {
      const double approximate =
          std::min(largest_factor, std::sqrt((1.6 * a * b + 4 * (a + b) + 7.5) / (a + b + 7.5)));
      EXPECT_NEAR(sway_factor(a, b) / approximate, 1, 0.022) << a << ' ' << b;
    }
  }
}

// The equations as they are printed, into which the factors go.
TEST(Factors, SolveTheirEquations) {
  for (const double a : {0.2, 1.0, 7.0}) {
    for (const double b : {0.5, 3.0}) {
      const double u = pi / non_sway_factor(a, b);
      const double v = pi / sway_factor(a, b);
      EXPECT_NEAR(a * b / 4 * u * u + (a + b) / 2 * (1 - u / std::tan(u)) + 2 * std::tan(u / 2) / u,
                  1, 1e-9);
      EXPECT_NEAR((a * b * v * v - 36) / (6 * (a + b)) - v / std::tan(v), 0, 1e-9);
    }
  }
}

TEST(Factors, GrowAsEndsBecomeSofter) {
  for (const double b : ratios) {
    for (std::size_t i = 1; i < std::size(ratios); ++i) {
      EXPECT_LT(non_sway_factor(ratios[i - 1], b), non_sway_factor(ratios[i], b));
      if (sway_factor(ratios[i], b) < largest_factor) {
        EXPECT_LT(sway_factor(ratios[i - 1], b), sway_factor(ratios[i], b));
      }
    }
  }
}

}  // namespace
}  // namespace aluframe::members
