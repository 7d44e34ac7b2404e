#include "aluframe/services/text.h"

#include <gtest/gtest.h>

// Encodings by hand from the definition of UTF-8.

namespace aluframe::services {
namespace {

TEST(Text, OneToFourByteSequencesGoBothWays) {
  const struct {
    std::wstring wide;
    std::string utf8;
  } samples[] = {
      {L"", ""},
      {L"A", "A"},
      {L"\u007F", "\x7F"},
      {L"\u0080", "\xC2\x80"},
      {L"\u00B2", "\xC2\xB2"},
      {L"\u07FF", "\xDF\xBF"},
      {L"\u0800", "\xE0\xA0\x80"},
      {L"\u94DD", "\xE9\x93\x9D"},
      {L"\uFFFF", "\xEF\xBF\xBF"},
      {L"\U00010000", "\xF0\x90\x80\x80"},
      {L"\U0001F600", "\xF0\x9F\x98\x80"},
      {L"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
      {L"f = 90 N/mm\u00B2 \u94DD", "f = 90 N/mm\xC2\xB2 \xE9\x93\x9D"},
  };
  for (const auto& sample : samples) {
    EXPECT_EQ(to_utf8(sample.wide), sample.utf8);
    EXPECT_TRUE(to_wide(sample.utf8) == CString(sample.wide)) << sample.utf8;
  }
}

TEST(Text, AZeroInsideIsATextLikeAnyOther) {
  const std::string utf8("a\0b", 3);
  EXPECT_EQ(to_wide(utf8).GetLength(), 3);
  EXPECT_EQ(to_utf8(to_wide(utf8)), utf8);
}

TEST(Text, WhatIsNoCodePointBecomesTheReplacementCharacter) {
  for (const long code : {0xD800L, 0xDBFFL, 0xDC00L, 0xDFFFL, 0x110000L, -1L}) {
    EXPECT_EQ(to_utf8(std::wstring(1, static_cast<wchar_t>(code))), "\xEF\xBF\xBD") << code;
  }
}

TEST(Text, TheNeighboursOfTheSurrogatesAreCodePoints) {
  EXPECT_EQ(to_utf8(std::wstring(1, L'\uD7FF')), "\xED\x9F\xBF");
  EXPECT_EQ(to_utf8(std::wstring(1, L'\uE000')), "\xEE\x80\x80");
}

TEST(Text, BytesThatAreNotUtf8BecomeTheReplacementCharacter) {
  EXPECT_TRUE(to_wide("a\xFFz") == CString(L"a\uFFFDz"));
  EXPECT_TRUE(to_wide("\x80") == CString(L"\uFFFD"));            // continues nothing
  EXPECT_TRUE(to_wide("\xC0\x80") == CString(L"\uFFFD\uFFFD"));  // overlong, lead never valid
  EXPECT_TRUE(to_wide("\xF5\x80\x80\x80") ==
              CString(L"\uFFFD\uFFFD\uFFFD\uFFFD"));  // lead beyond U+10FFFF
}

TEST(Text, SequencesCutShortBecomeTheReplacementCharacterAndTheRestIsKept) {
  EXPECT_TRUE(to_wide("\xC2") == CString(L"\uFFFD"));
  EXPECT_TRUE(to_wide("\xE9\x93"
                      "A") == CString(L"\uFFFDA"));
  EXPECT_TRUE(to_wide("\xF0\x9F\x98"
                      "xyz") == CString(L"\uFFFDxyz"));
  EXPECT_TRUE(to_wide("\xE9\xE9\x93\x9D") == CString(L"\uFFFD\u94DD"));
}

TEST(Text, SequencesOfWhatIsNoCodePointBecomeTheReplacementCharacter) {
  EXPECT_TRUE(to_wide("\xED\xA0\x80") == CString(L"\uFFFD"));      // U+D800
  EXPECT_TRUE(to_wide("\xE0\x80\x80") == CString(L"\uFFFD"));      // overlong U+0000
  EXPECT_TRUE(to_wide("\xF0\x80\x80\x80") == CString(L"\uFFFD"));  // overlong U+0000
  EXPECT_TRUE(to_wide("\xF4\x90\x80\x80") == CString(L"\uFFFD"));  // U+110000
}

}  // namespace
}  // namespace aluframe::services
