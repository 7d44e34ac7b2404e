// Names of files as bytes. The bytes are the borders of the UTF-8 encoding's lengths, by hand.

#include "tz_alu/report/report_path.h"

#include <gtest/gtest.h>

namespace {

std::string Bytes(const std::wstring& name) {
  return alu_report::FilePath(name).string();
}

TEST(FilePathTest, AsciiStaysAsItIs) {
  EXPECT_EQ(Bytes(L"/reports/tower 1.alu\x7F"), "/reports/tower 1.alu\x7F");
  EXPECT_EQ(Bytes(L""), "");
}

TEST(FilePathTest, CharactersBelow800HexHaveTwoBytes) {
  EXPECT_EQ(Bytes(L"\u00A0"), "\xC2\xA0");
  EXPECT_EQ(Bytes(L"\u07FF"), "\xDF\xBF");
}

TEST(FilePathTest, CharactersBelow10000HexHaveThreeBytes) {
  EXPECT_EQ(Bytes(L"\u0800"), "\xE0\xA0\x80");
  EXPECT_EQ(Bytes(L"\uFFFF"), "\xEF\xBF\xBF");
}

TEST(FilePathTest, OtherCharactersHaveFourBytes) {
  EXPECT_EQ(Bytes(L"\U00010000"), "\xF0\x90\x80\x80");
  EXPECT_EQ(Bytes(L"\U0010FFFF"), "\xF4\x8F\xBF\xBF");
}

TEST(FilePathTest, WhatIsNoCharacterIsReplaced) {
  for (const int code : {0xD800, 0xDFFF, 0x110000}) {
    EXPECT_EQ(Bytes(std::wstring(1, static_cast<wchar_t>(code))), "\xEF\xBF\xBD") << code;
  }
}

}  // namespace
