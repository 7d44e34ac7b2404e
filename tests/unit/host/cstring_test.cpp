#include "host/framework/cstring.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

TEST(CStringTest, ANewStringIsEmpty) {
  const CString text;
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_EQ(text.GetLength(), 0);
  EXPECT_STREQ(text.GetString(), L"");
}

TEST(CStringTest, ANullPointerGivesAnEmptyString) {
  const wchar_t* nothing = nullptr;
  EXPECT_TRUE(CString(nothing).IsEmpty());
}

TEST(CStringTest, LengthCountsCharacters) {
  EXPECT_EQ(CString(L"6061-T6").GetLength(), 7);
}

TEST(CStringTest, EqualTextsAreEqual) {
  EXPECT_TRUE(CString(L"6063A-T5") == CString(L"6063A-T5"));
  EXPECT_TRUE(CString(L"6063A-T5") == L"6063A-T5");
}

TEST(CStringTest, ComparisonTellsCaseApart) {
  EXPECT_FALSE(CString(L"up") == L"UP");
  EXPECT_NE(CString(L"up").Compare(L"UP"), 0);
}

TEST(CStringTest, CompareSortsByCodeUnit) {
  EXPECT_LT(CString(L"5083-H112").Compare(L"6061-T4"), 0);
  EXPECT_EQ(CString(L"6061-T4").Compare(L"6061-T4"), 0);
  EXPECT_GT(CString(L"6061-T6").Compare(L"6061-T4"), 0);
}

TEST(CStringTest, AStringSortsAfterItsOwnBeginning) {
  EXPECT_GT(CString(L"2C").Compare(L"2"), 0);
}

TEST(CStringTest, TextsAreJoinedFromBothKinds) {
  EXPECT_STREQ((CString(L"title") + L"\n\t" + CString(L"message")).GetString(),
               L"title\n\tmessage");
}

TEST(CStringTest, JoiningLeavesTheFirstTextAlone) {
  const CString first(L"a");
  const CString joined = first + L"b";
  EXPECT_STREQ(first.GetString(), L"a");
  EXPECT_STREQ(joined.GetString(), L"ab");
}

TEST(CStringTest, AppendingChangesTheStringItself) {
  CString text(L"GB");
  text += L" 50429";
  EXPECT_STREQ(text.GetString(), L"GB 50429");
}

TEST(CStringTest, ACopyIsIndependentOfItsOriginal) {
  CString original(L"first");
  const CString copy = original;
  original += L" changed";
  EXPECT_STREQ(copy.GetString(), L"first");
}

TEST(CStringTest, EmptyRemovesTheText) {
  CString text(L"H");
  text.Empty();
  EXPECT_TRUE(text.IsEmpty());
}

TEST(CStringTest, GetAtReadsOneCharacter) {
  EXPECT_EQ(CString(L"2C").GetAt(1), L'C');
}

TEST(CStringTest, GetAtBeyondTheTextThrows) {
  const CString text(L"2C");
  EXPECT_THROW(text.GetAt(2), std::out_of_range);
  EXPECT_THROW(text.GetAt(-1), std::out_of_range);
}

TEST(CStringTest, CharactersOutsideAsciiAreKept) {
  EXPECT_STREQ((CString(L"铝") + L"合金").GetString(), L"铝合金");
}

}  // namespace
