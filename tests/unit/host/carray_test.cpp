#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>
#include <vector>

#include "host/framework/collections.h"

namespace {

using testing::ElementsAre;

template <class T>
std::vector<T> Values(const CArray<T>& array) {
  return {array.begin(), array.end()};
}

TEST(CArrayTest, ANewArrayIsEmpty) {
  const CArray<UINT> keys;
  EXPECT_TRUE(keys.IsEmpty());
  EXPECT_EQ(keys.GetSize(), 0);
  EXPECT_EQ(keys.GetCount(), 0);
}

TEST(CArrayTest, AddAppendsAndReturnsTheIndex) {
  CArray<UINT> keys;
  EXPECT_EQ(keys.Add(7), 0);
  EXPECT_EQ(keys.Add(3), 1);
  EXPECT_THAT(Values(keys), ElementsAre(7U, 3U));
}

TEST(CArrayTest, SetAtReplacesAnElement) {
  CArray<UINT> keys;
  keys.Add(7);
  keys.SetAt(0, 9);
  EXPECT_EQ(keys.GetAt(0), 9U);
}

TEST(CArrayTest, GrowingFillsWithDefaultValues) {
  CArray<int> values;
  values.Add(5);
  values.SetSize(3);
  EXPECT_THAT(Values(values), ElementsAre(5, 0, 0));
}

TEST(CArrayTest, ShrinkingKeepsTheFirstElements) {
  CArray<int> values;
  values.Add(5);
  values.Add(6);
  values.SetSize(1);
  EXPECT_THAT(Values(values), ElementsAre(5));
}

TEST(CArrayTest, RemoveAllEmptiesTheArray) {
  CArray<int> values;
  values.Add(5);
  values.RemoveAll();
  EXPECT_TRUE(values.IsEmpty());
}

TEST(CArrayTest, AnIndexOutsideTheArrayThrows) {
  CArray<int> values;
  values.Add(5);
  EXPECT_THROW(values[1], std::out_of_range);
  EXPECT_THROW(values[-1], std::out_of_range);
  EXPECT_THROW(values.SetAt(1, 0), std::out_of_range);
}

TEST(CArrayTest, CopyTakesTheElementsOfAnotherArray) {
  CArray<int> source;
  source.Add(1);
  source.Add(2);
  CArray<int> target;
  target.Add(9);
  target.Copy(source);
  source.SetAt(0, 5);
  EXPECT_THAT(Values(target), ElementsAre(1, 2));
}

TEST(CArrayTest, AnArrayIsNotCopiedByAssignment) {
  EXPECT_FALSE(std::is_copy_constructible_v<CArray<int>>);
  EXPECT_FALSE(std::is_copy_assignable_v<CArray<int>>);
}

TEST(CArrayExTest, ACopyHasItsOwnElements) {
  CArrayEx<UINT> original;
  original.Add(1);
  const CArrayEx<UINT> copy(original);
  original.SetAt(0, 2);
  EXPECT_THAT(Values(copy), ElementsAre(1U));
}

TEST(CArrayExTest, AssignmentReplacesTheElements) {
  CArrayEx<UINT> source;
  source.Add(1);
  CArrayEx<UINT> target;
  target.Add(8);
  target.Add(9);
  target = source;
  EXPECT_THAT(Values(target), ElementsAre(1U));
}

TEST(CArrayExTest, SelfAssignmentChangesNothing) {
  CArrayEx<UINT> keys;
  keys.Add(4);
  const CArrayEx<UINT>& same = keys;
  keys = same;
  EXPECT_THAT(Values(keys), ElementsAre(4U));
}

}  // namespace
