#include "aluframe/services/repeated_check.h"

#include <gtest/gtest.h>

#include <limits>

namespace aluframe::services {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

T_RALU_ITEM stored(double demand, double capacity) {
  return {.nPos = 0, .dDemand = demand, .dCapacity = capacity};
}

T_RALU_RLT again(double demand, double capacity) {
  return {.dDemand = demand, .dCapacity = capacity};
}

TEST(RepeatedCheck, TheSameCheckAgrees) {
  EXPECT_EQ(difference_of_checks(stored(119.4, 200), again(119.4, 200)), std::nullopt);
}

TEST(RepeatedCheck, AnotherDemandIsNamedWithBothValues) {
  EXPECT_EQ(difference_of_checks(stored(119.4, 200), again(79.6, 200)),
            "demand 79.6 when made again, 119.4 as stored");
}

TEST(RepeatedCheck, AnotherCapacityIsNamedWithBothValues) {
  EXPECT_EQ(difference_of_checks(stored(119.4, 200), again(119.4, 90)),
            "capacity 90 when made again, 200 as stored");
}

TEST(RepeatedCheck, ACheckWithoutResultDiffersFromOneThatHadOne) {
  EXPECT_EQ(difference_of_checks(stored(119.4, 200), again(0, 0)),
            "no result when made again, demand 119.4 as stored");
}

// The last of 24 bits: 2^-24 of the value, 6e-8.
TEST(RepeatedCheck, TheLastBitOfAForceIsNoDifference) {
  EXPECT_EQ(difference_of_checks(stored(119.4, 200), again(119.4 * (1 + 6e-8), 200)), std::nullopt);
}

TEST(RepeatedCheck, TwoMillionthsOfTheCapacityAreADifference) {
  EXPECT_NE(difference_of_checks(stored(1.0, 200), again(1.0004, 200)), std::nullopt);
}

// What is left of forces that cancel each other, far below a millionth of the capacity.
TEST(RepeatedCheck, ADemandOfRoundingAgreesWithAnother) {
  EXPECT_EQ(difference_of_checks(stored(1e-9, 200), again(3e-9, 200)), std::nullopt);
}

TEST(RepeatedCheck, NoNumberAgreesWithNoNumberAlone) {
  EXPECT_EQ(difference_of_checks(stored(nan, 200), again(nan, 200)), std::nullopt);
  EXPECT_NE(difference_of_checks(stored(nan, 200), again(119.4, 200)), std::nullopt);
  EXPECT_NE(difference_of_checks(stored(119.4, 200), again(nan, 200)), std::nullopt);
}

TEST(RepeatedCheck, InfinityAgreesWithItselfAlone) {
  EXPECT_EQ(difference_of_checks(stored(infinity, 200), again(infinity, 200)), std::nullopt);
  EXPECT_NE(difference_of_checks(stored(infinity, 200), again(-infinity, 200)), std::nullopt);
  EXPECT_NE(difference_of_checks(stored(infinity, 200), again(119.4, 200)), std::nullopt);
}

TEST(RepeatedCheck, ASlendernessThatHasALimitNowDiffers) {
  EXPECT_NE(difference_of_checks(stored(100, 0), again(100, 150)), std::nullopt);
}

}  // namespace
}  // namespace aluframe::services
