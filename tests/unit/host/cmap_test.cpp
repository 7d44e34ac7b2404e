#include <gtest/gtest.h>

#include "host/framework/collections.h"

namespace {

using Map = CMap<UINT, UINT, double, double>;

TEST(CMapTest, TheBlockSizeIsWhatTheMapWasMadeWith) {
  EXPECT_EQ(Map(25).GetBlockSize(), 25);
}

TEST(CMapTest, WithoutABlockSizeItIsTen) {
  EXPECT_EQ(Map().GetBlockSize(), 10);
}

TEST(CMapTest, LookupFindsWhatWasSet) {
  Map map;
  map.SetAt(3, 1.5);
  double value = 0.0;
  EXPECT_TRUE(map.Lookup(3, value));
  EXPECT_EQ(value, 1.5);
}

TEST(CMapTest, LookupOfAMissingKeyLeavesTheValueAlone) {
  Map map;
  double value = 42.0;
  EXPECT_FALSE(map.Lookup(3, value));
  EXPECT_EQ(value, 42.0);
}

TEST(CMapTest, SettingAKeyTwiceKeepsTheLaterValue) {
  Map map;
  map.SetAt(3, 1.5);
  map.SetAt(3, 2.5);
  EXPECT_EQ(map.GetCount(), 1);
  EXPECT_EQ(map[3], 2.5);
}

TEST(CMapTest, TheIndexOperatorAddsADefaultValue) {
  Map map;
  EXPECT_EQ(map[8], 0.0);
  EXPECT_EQ(map.GetCount(), 1);
}

TEST(CMapTest, PLookupGivesThePairOrNull) {
  Map map;
  map.SetAt(3, 1.5);
  ASSERT_NE(map.PLookup(3), nullptr);
  EXPECT_EQ(map.PLookup(3)->key, 3U);
  EXPECT_EQ(map.PLookup(3)->value, 1.5);
  EXPECT_EQ(map.PLookup(4), nullptr);
}

TEST(CMapTest, APairCanBeChangedInPlace) {
  Map map;
  map.SetAt(3, 1.5);
  map.PLookup(3)->value = 9.0;
  EXPECT_EQ(map[3], 9.0);
}

TEST(CMapTest, APairStaysInPlaceWhileTheMapGrows) {
  Map map;
  map.SetAt(1, 1.5);
  const Map::CPair* pair = map.PLookup(1);
  for (UINT key = 2; key < 1000; ++key) map.SetAt(key, 0.0);
  EXPECT_EQ(map.PLookup(1), pair);
}

TEST(CMapTest, RemoveKeyTellsWhetherTheKeyWasThere) {
  Map map;
  map.SetAt(3, 1.5);
  EXPECT_TRUE(map.RemoveKey(3));
  EXPECT_FALSE(map.RemoveKey(3));
  EXPECT_TRUE(map.IsEmpty());
}

TEST(CMapTest, RemoveAllEmptiesTheMap) {
  Map map;
  map.SetAt(3, 1.5);
  map.RemoveAll();
  EXPECT_EQ(map.GetCount(), 0);
  EXPECT_EQ(map.PLookup(3), nullptr);
}

TEST(CMapTest, SizingTheHashTableKeepsTheContent) {
  Map map;
  map.SetAt(3, 1.5);
  map.InitHashTable(500);
  EXPECT_GE(map.GetHashTableSize(), 500U);
  EXPECT_EQ(map[3], 1.5);
}

}  // namespace
