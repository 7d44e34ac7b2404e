// The governing record of several combinations.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "host/tz_db/ralu.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// A record of a combination with one check: `demand` against 200 at a position.
T_RALU_D RecordOf(UINT lcomb, std::size_t pos, double demand, std::size_t item = RALU_STRENGTH) {
  T_RALU_D record;
  record.nHasResult = 1;
  record.aSect[pos].aItem[item] = {demand, 200.0, 0.0};
  record.SetLCombKey(lcomb, 0);
  record.MakeCompItem();
  return record;
}

T_RALU_D Merged(T_RALU_D first, const T_RALU_D& second) {
  first.GetMaxRlt(second);
  return first;
}

TEST(RaluMergeTest, TheLargerRatioOfAPositionIsKept) {
  const T_RALU_D up = Merged(RecordOf(1, 0, 50), RecordOf(2, 0, 60));
  EXPECT_EQ(up.aSect[0].aItem[RALU_STRENGTH].dDemand, 60.0);
  const T_RALU_D down = Merged(RecordOf(1, 0, 60), RecordOf(2, 0, 50));
  EXPECT_EQ(down.aSect[0].aItem[RALU_STRENGTH].dDemand, 60.0);
}

TEST(RaluMergeTest, PositionsAreMergedApart) {
  const T_RALU_D merged = Merged(RecordOf(1, 0, 50), RecordOf(2, 4, 60));
  EXPECT_EQ(merged.aSect[0].aItem[RALU_STRENGTH].dDemand, 50.0);
  EXPECT_EQ(merged.aSect[4].aItem[RALU_STRENGTH].dDemand, 60.0);
}

TEST(RaluMergeTest, ItemsAreMergedApart) {
  const T_RALU_D merged = Merged(RecordOf(1, 0, 50, RALU_SHEAR_Y), RecordOf(2, 0, 60));
  EXPECT_EQ(merged.aSect[0].aItem[RALU_SHEAR_Y].dDemand, 50.0);
  EXPECT_EQ(merged.aComp[RALU_SHEAR_Y].nLComb, 1U);
  EXPECT_EQ(merged.aComp[RALU_STRENGTH].nLComb, 2U);
}

TEST(RaluMergeTest, TheGoverningItemBringsPositionAndCombinationAlong) {
  const T_RALU_D merged = Merged(RecordOf(1, 0, 50), RecordOf(2, 4, 60));
  EXPECT_EQ(merged.aComp[RALU_STRENGTH].nPos, 4);
  EXPECT_EQ(merged.aComp[RALU_STRENGTH].dDemand, 60.0);
  EXPECT_EQ(merged.aComp[RALU_STRENGTH].nLComb, 2U);
}

TEST(RaluMergeTest, AmongEqualsTheEarlierCombinationStays) {
  const T_RALU_D merged = Merged(RecordOf(1, 3, 50), RecordOf(2, 0, 50));
  EXPECT_EQ(merged.aComp[RALU_STRENGTH].nLComb, 1U);
  EXPECT_EQ(merged.aComp[RALU_STRENGTH].nPos, 3);
}

TEST(RaluMergeTest, ACheckReplacesAnItemThatNoCheckFilled) {
  const T_RALU_D merged = Merged(RecordOf(1, 0, 50, RALU_SHEAR_Y), RecordOf(2, 0, -60));
  EXPECT_EQ(merged.aSect[0].aItem[RALU_STRENGTH].dDemand, -60.0);
  EXPECT_EQ(merged.aComp[RALU_STRENGTH].nLComb, 2U);
}

TEST(RaluMergeTest, AnEmptyItemHidesNoNegativeRatio) {
  const T_RALU_D merged = Merged(RecordOf(1, 0, -60), RecordOf(2, 0, 50, RALU_SHEAR_Y));
  EXPECT_EQ(merged.aSect[0].aItem[RALU_STRENGTH].dDemand, -60.0);
  EXPECT_EQ(merged.aComp[RALU_STRENGTH].nLComb, 1U);
}

TEST(RaluMergeTest, ABrokenResultSurvivesAnyLaterOne) {
  const T_RALU_D merged = Merged(RecordOf(1, 0, kNan), RecordOf(2, 0, 1e300));
  EXPECT_TRUE(std::isnan(merged.aSect[0].aItem[RALU_STRENGTH].dDemand));
  EXPECT_EQ(merged.aComp[RALU_STRENGTH].nLComb, 1U);
}

TEST(RaluMergeTest, ABrokenResultReplacesAnyEarlierOne) {
  const T_RALU_D merged = Merged(RecordOf(1, 0, 1e300), RecordOf(2, 0, kNan));
  EXPECT_TRUE(std::isnan(merged.aSect[0].aItem[RALU_STRENGTH].dDemand));
  EXPECT_EQ(merged.aComp[RALU_STRENGTH].nLComb, 2U);
}

TEST(RaluMergeTest, ASlendernessWithoutLimitStaysBehindAnyPositiveRatio) {
  T_RALU_D unlimited;
  unlimited.aSect[0].aItem[RALU_SLENDERNESS_Y] = {90.0, 0.0, 0.0};
  unlimited.SetLCombKey(1, 0);
  unlimited.MakeCompItem();
  const T_RALU_D limited = RecordOf(2, 1, 1.0, RALU_SLENDERNESS_Y);
  EXPECT_EQ(Merged(unlimited, limited).aComp[RALU_SLENDERNESS_Y].nLComb, 2U);
  EXPECT_EQ(Merged(limited, unlimited).aComp[RALU_SLENDERNESS_Y].nLComb, 2U);
}

TEST(RaluMergeTest, MergingARecordWithItselfChangesNothing) {
  const T_RALU_D record = RecordOf(1, 2, 50);
  const T_RALU_D merged = Merged(record, record);
  EXPECT_EQ(merged.aComp[RALU_STRENGTH].nPos, 2);
  EXPECT_EQ(merged.aSect[2].aItem[RALU_STRENGTH].dDemand, 50.0);
}

}  // namespace
