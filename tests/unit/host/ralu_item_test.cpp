// Which of two checks governs.

#include <gtest/gtest.h>

#include <limits>

#include "host/tz_db/ralu.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

T_RALU_ITEM Item(double demand, double capacity) {
  return {0, demand, capacity, 1, 0};
}

int Compare(const T_RALU_ITEM& a, const T_RALU_ITEM& b) {
  return a.ComPair(b);
}

TEST(RaluItemTest, TheRatioIsDemandOverCapacity) {
  EXPECT_DOUBLE_EQ(Item(50, 200).Ratio(), 0.25);
}

TEST(RaluItemTest, ADemandWithoutCapacityHasRatioZero) {
  EXPECT_EQ(Item(50, 0).Ratio(), 0.0);
}

TEST(RaluItemTest, TheRatioKeepsItsSign) {
  EXPECT_DOUBLE_EQ(Item(-50, 200).Ratio(), -0.25);
}

TEST(RaluItemTest, AResetItemIsEmptyAndHasNoPosition) {
  T_RALU_ITEM item = Item(50, 200);
  item.nPos = 3;
  item.nMinSide = 1;
  item.Initial();
  EXPECT_EQ(item.nPos, -1);
  EXPECT_TRUE(RaluIsEmpty(item.dDemand, item.dCapacity));
  EXPECT_EQ(item.nLComb, 0U);
  EXPECT_EQ(item.nMinSide, 0);
}

TEST(RaluItemTest, OnlyAnItemWithoutDemandAndCapacityIsEmpty) {
  EXPECT_TRUE(RaluIsEmpty(0, 0));
  EXPECT_FALSE(RaluIsEmpty(0, 200));
  EXPECT_FALSE(RaluIsEmpty(50, 0));
  EXPECT_FALSE(RaluIsEmpty(kNan, 0));
}

TEST(RaluItemTest, TheLargerRatioGoverns) {
  EXPECT_EQ(Compare(Item(60, 200), Item(50, 200)), 1);
  EXPECT_EQ(Compare(Item(50, 200), Item(60, 200)), 0);
}

TEST(RaluItemTest, TheRatioDecidesAndNotTheDemand) {
  EXPECT_EQ(Compare(Item(10, 20), Item(50, 200)), 1);
}

TEST(RaluItemTest, EqualRatiosDoNotGovernOverEachOther) {
  EXPECT_EQ(Compare(Item(50, 200), Item(25, 100)), 0);
  EXPECT_EQ(Compare(Item(25, 100), Item(50, 200)), 0);
}

TEST(RaluItemTest, APositiveRatioGovernsOverALargerNegativeOne) {
  EXPECT_EQ(Compare(Item(1, 200), Item(-500, 200)), 1);
  EXPECT_EQ(Compare(Item(-500, 200), Item(1, 200)), 0);
}

TEST(RaluItemTest, OfTwoNegativeRatiosTheOneNearerToZeroGoverns) {
  EXPECT_EQ(Compare(Item(-10, 200), Item(-20, 200)), 1);
}

TEST(RaluItemTest, ANegativeRatioGovernsOverAnEmptyItem) {
  EXPECT_EQ(Compare(Item(-10, 200), Item(0, 0)), 1);
  EXPECT_EQ(Compare(Item(0, 0), Item(-10, 200)), 0);
}

TEST(RaluItemTest, AnEmptyItemDoesNotGovernOverAnotherOne) {
  EXPECT_EQ(Compare(Item(0, 0), Item(0, 0)), 0);
}

TEST(RaluItemTest, ADemandWithoutLimitGovernsOverAnEmptyItemOnly) {
  EXPECT_EQ(Compare(Item(50, 0), Item(0, 0)), 1);
  EXPECT_EQ(Compare(Item(50, 0), Item(1, 200)), 0);
}

TEST(RaluItemTest, ARatioThatIsNotFiniteGovernsOverAnyFiniteOne) {
  for (const double broken : {kInf, -kInf, kNan}) {
    EXPECT_EQ(Compare(Item(broken, 200), Item(1e300, 1)), 1) << broken;
    EXPECT_EQ(Compare(Item(1e300, 1), Item(broken, 200)), 0) << broken;
  }
}

TEST(RaluItemTest, ABrokenDemandIsNotHiddenByAMissingLimit) {
  EXPECT_EQ(Compare(Item(kNan, 0), Item(1e300, 1)), 1);
  EXPECT_EQ(Compare(Item(kInf, 0), Item(1e300, 1)), 1);
}

TEST(RaluItemTest, ABrokenCapacityGovernsToo) {
  EXPECT_EQ(Compare(Item(50, kNan), Item(1e300, 1)), 1);
}

TEST(RaluItemTest, BrokenRatiosDoNotGovernOverEachOther) {
  EXPECT_EQ(Compare(Item(kInf, 200), Item(kNan, 200)), 0);
  EXPECT_EQ(Compare(Item(kNan, 200), Item(kInf, 200)), 0);
}

}  // namespace
