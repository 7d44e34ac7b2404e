#include "tools/resources/utf8.h"

#include <gtest/gtest.h>

namespace resources {
namespace {

// Sequences and limits of the table of well-formed UTF-8 in the Unicode standard.

TEST(Utf8, FormsOfOneToFourBytesAreDecoded) {
  EXPECT_EQ(decode_utf8("A\xC3\xA9\xE9\x93\x9D\xF0\x9F\x98\x80"), U"A\u00E9\u94DD\U0001F600");
}

TEST(Utf8, FirstAndLastCodePointOfEveryFormAreDecoded) {
  EXPECT_EQ(decode_utf8("\x7F\xC2\x80\xDF\xBF"), U"\u007F\u0080\u07FF");
  EXPECT_EQ(decode_utf8("\xE0\xA0\x80\xEF\xBF\xBF"), U"\u0800\uFFFF");
  EXPECT_EQ(decode_utf8("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), U"\U00010000\U0010FFFF");
}

TEST(Utf8, AnEmptyTextHasNoCodePoints) {
  EXPECT_EQ(decode_utf8(""), U"");
}

class BadUtf8 : public testing::TestWithParam<const char*> {};

TEST_P(BadUtf8, IsRefused) {
  EXPECT_EQ(decode_utf8(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Bytes, BadUtf8,
                         testing::Values("\x80",              // continues nothing
                                         "\xC3",              // ends too early
                                         "\xE9\x93",          // ends too early
                                         "\xC3\x41",          // continued by a letter
                                         "\xC1\xBF",          // U+007F in two bytes
                                         "\xE0\x9F\xBF",      // U+07FF in three bytes
                                         "\xF0\x8F\xBF\xBF",  // U+FFFF in four bytes
                                         "\xED\xA0\x80",      // U+D800, a surrogate
                                         "\xED\xBF\xBF",      // U+DFFF, a surrogate
                                         "\xF4\x90\x80\x80",  // U+110000
                                         "\xFF\xFE"));        // a mark of UTF-16

}  // namespace
}  // namespace resources
