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
      {L"A", "A"},
      {L"\u00B2", "\xC2\xB2"},
      {L"\u94DD", "\xE9\x93\x9D"},
      {L"\U0001F600", "\xF0\x9F\x98\x80"},
  };
  for (const auto& sample : samples) {
    EXPECT_EQ(to_utf8(sample.wide), sample.utf8);
    EXPECT_TRUE(to_wide(sample.utf8) == CString(sample.wide)) << sample.utf8;
  }
}

TEST(Text, WhatIsNoCodePointBecomesTheReplacementCharacter) {
  EXPECT_EQ(to_utf8(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD");
}

TEST(Text, BytesThatAreNotUtf8BecomeTheReplacementCharacter) {
  EXPECT_TRUE(to_wide("a\xFFz") == CString(L"a\uFFFDz"));
  EXPECT_TRUE(to_wide("\xC2") == CString(L"\uFFFD"));            // cut short
  EXPECT_TRUE(to_wide("\xC0\x80") == CString(L"\uFFFD\uFFFD"));  // overlong
  EXPECT_TRUE(to_wide("\xE9\x93"
                      "A") == CString(L"\uFFFDA"));  // broken off by a letter
}

}  // namespace
}  // namespace aluframe::services
