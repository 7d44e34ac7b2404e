// One combination's record: reset, combination key and governing positions.

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <stdexcept>

#include "host/tz_db/ralu.h"

namespace {

constexpr std::size_t kItem = RALU_STRENGTH;

// A record of combination 4, minimum side, with capacity 200 and the demands given by position.
T_RALU_D RecordOf(const std::array<double, kCheckPositions>& demands) {
  T_RALU_D record;
  record.nHasResult = 1;
  for (std::size_t pos = 0; pos < demands.size(); ++pos) {
    record.aSect[pos].aItem[kItem] = {demands[pos], 200.0, 0.0};
  }
  record.SetLCombKey(4, 1);
  record.MakeCompItem();
  return record;
}

TEST(RaluRecordTest, ANewRecordHasNoResult) {
  const T_RALU_D record;
  EXPECT_EQ(record.nHasResult, 0);
  for (const T_RALU_ITEM& item : record.aComp) EXPECT_EQ(item.nPos, -1);
}

TEST(RaluRecordTest, ResettingForgetsEverything) {
  T_RALU_D record = RecordOf({1, 2, 3, 4, 5});
  record.nMembType = 2;
  record.Initial();
  EXPECT_EQ(record.nHasResult, 0);
  EXPECT_EQ(record.nMembType, 0);
  EXPECT_EQ(record.nLComb, 0U);
  EXPECT_EQ(record.nMinSide, 0);
  EXPECT_EQ(record.aComp[kItem].nPos, -1);
  EXPECT_EQ(record.aSect[4].aItem[kItem].dDemand, 0.0);
}

TEST(RaluRecordTest, ResettingAPositionEmptiesItsItems) {
  T_RALU_SECT sect;
  sect.aItem[kItem] = {1.0, 2.0, 3.0};
  sect.Initial();
  EXPECT_EQ(sect.aItem[kItem].dDemand, 0.0);
  EXPECT_EQ(sect.aItem[kItem].dCapacity, 0.0);
  EXPECT_EQ(sect.aItem[kItem].dReserve, 0.0);
}

TEST(RaluRecordTest, TheGoverningPositionIsThatOfTheLargestRatio) {
  const T_RALU_D record = RecordOf({10, 30, 90, 20, 40});
  EXPECT_EQ(record.aComp[kItem].nPos, 2);
  EXPECT_EQ(record.aComp[kItem].dDemand, 90.0);
  EXPECT_EQ(record.aComp[kItem].dCapacity, 200.0);
}

TEST(RaluRecordTest, TheGoverningItemCarriesTheCombinationAndItsSide) {
  const T_RALU_D record = RecordOf({10, 30, 90, 20, 40});
  EXPECT_EQ(record.aComp[kItem].nLComb, 4U);
  EXPECT_EQ(record.aComp[kItem].nMinSide, 1);
}

TEST(RaluRecordTest, AmongEqualRatiosTheEarliestPositionGoverns) {
  EXPECT_EQ(RecordOf({10, 90, 20, 90, 90}).aComp[kItem].nPos, 1);
}

TEST(RaluRecordTest, ANegativeRatioGovernsWhenNothingElseWasChecked) {
  T_RALU_D record;
  record.aSect[3].aItem[kItem] = {-10.0, 200.0, 0.0};
  record.MakeCompItem();
  EXPECT_EQ(record.aComp[kItem].nPos, 3);
  EXPECT_EQ(record.aComp[kItem].dDemand, -10.0);
}

TEST(RaluRecordTest, TheFirstBrokenPositionGovernsOverAllOthers) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(RecordOf({1e9, 10, nan, nan, 1e12}).aComp[kItem].nPos, 2);
}

TEST(RaluRecordTest, AnItemThatNoPositionFilledHasNoGoverningPosition) {
  EXPECT_EQ(RecordOf({1, 2, 3, 4, 5}).aComp[RALU_SHEAR_Y].nPos, -1);
}

TEST(RaluRecordTest, MakingTheGoverningItemsAgainForgetsTheOldOnes) {
  T_RALU_D record = RecordOf({10, 30, 90, 20, 40});
  for (T_RALU_SECT& sect : record.aSect) sect.Initial();
  record.MakeCompItem();
  EXPECT_EQ(record.aComp[kItem].nPos, -1);
}

TEST(RaluRecordTest, GetMaxRltByItemCopiesTheGoverningItemAndReturnsItsPosition) {
  const T_RALU_D record = RecordOf({10, 30, 90, 20, 40});
  T_RALU_ITEM item;
  EXPECT_EQ(record.GetMaxRltByItem(RALU_STRENGTH, item), 2);
  EXPECT_EQ(item.dDemand, 90.0);
  EXPECT_EQ(item.nLComb, 4U);
}

TEST(RaluRecordTest, GetMaxRltByItemIsNegativeWhenThereIsNoGoverningItem) {
  T_RALU_ITEM item;
  EXPECT_LT(RecordOf({1, 2, 3, 4, 5}).GetMaxRltByItem(RALU_UNUSED, item), 0);
}

TEST(RaluRecordTest, AnItemTypeOutsideTheEightThrows) {
  T_RALU_ITEM item;
  const T_RALU_D record;
  EXPECT_THROW(record.GetMaxRltByItem(8, item), std::out_of_range);
  EXPECT_THROW(record.GetMaxRltByItem(-1, item), std::out_of_range);
}

}  // namespace
