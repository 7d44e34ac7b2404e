#include "aluframe/model/plain_text.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace aluframe::model {
namespace {

// UTF-8 of the first and last character of every range, and of the neighbours outside.
TEST(PlainText, FindsEveryCharacterThatBreaksOrTurnsALine) {
  const auto cases = std::to_array<std::pair<std::string_view, const char*>>(
      {{std::string_view("\0", 1), "U+0000"},
       {"\t", "U+0009"},
       {"\n", "U+000A"},
       {"\r", "U+000D"},
       {"\x1B", "U+001B"},
       {"\x1F", "U+001F"},
       {"\x7F", "U+007F"},
       {"\xC2\x80", "U+0080"},
       {"\xC2\x85", "U+0085"},
       {"\xC2\x9F", "U+009F"},
       {"\xD8\x9C", "U+061C"},
       {"\xE2\x80\x8E", "U+200E"},
       {"\xE2\x80\x8F", "U+200F"},
       {"\xE2\x80\xA8", "U+2028"},
       {"\xE2\x80\xA9", "U+2029"},
       {"\xE2\x80\xAA", "U+202A"},
       {"\xE2\x80\xAE", "U+202E"},
       {"\xE2\x81\xA6", "U+2066"},
       {"\xE2\x81\xA9", "U+2069"}});
  for (const auto& [text, code] : cases) {
    EXPECT_EQ(find_control_character(text), std::string(code) + " at the beginning");
    EXPECT_EQ(find_control_character("A" + std::string(text)), std::string(code) + " behind \"A\"");
    EXPECT_EQ(without_control_characters("A" + std::string(text) + "B"), "A B");
  }
}

TEST(PlainText, TakesAllOtherText) {
  for (const std::string_view text :
       {"", "Bridge 1~", "\xC2\xA0", "\xC3\x85ngstr\xC3\xB6m", "\xE4\xB8\xBB\xE6\xA2\x81",
        "\xD8\x9B", "\xD8\x9D", "\xE2\x80\x8D", "\xE2\x80\x90", "\xE2\x80\xA7", "\xE2\x80\xAF",
        "\xE2\x81\xA5", "\xE2\x81\xAA", "\xF0\x9F\x8C\x89"}) {
    EXPECT_EQ(find_control_character(text), std::nullopt) << text;
    EXPECT_EQ(without_control_characters(text), text);
  }
}

TEST(PlainText, ShowsOnlyTheEndOfALongBeginning) {
  EXPECT_EQ(find_control_character(std::string(100, 'x') + "0123456789012345678\n"),
            "U+000A behind \"x0123456789012345678\"");
  // 20 bytes before the end lie inside of a character of three, which is left out as a whole.
  EXPECT_EQ(find_control_character("\xE4\xB8\xBB" + std::string(18, 'x') + "\n"),
            "U+000A behind \"" + std::string(18, 'x') + '"');
}

TEST(PlainText, KeepsLinesForATerminal) {
  EXPECT_EQ(for_terminal("one\ntwo\r\x1B[2J\xC2\x9B"
                         "3\n"),
            "one\ntwo  [2J 3\n");
}

TEST(PlainText, IsNoFormulaInACellOfCsv) {
  EXPECT_EQ(for_csv("=cmd|'/C calc'!A0"), "'=cmd|'/C calc'!A0");
  EXPECT_EQ(for_csv("+1"), "'+1");
  EXPECT_EQ(for_csv("-X wind"), "'-X wind");
  EXPECT_EQ(for_csv("@SUM(1,2)"), "\"'@SUM(1,2)\"");
  EXPECT_EQ(for_csv("1.2DL+1.4WX"), "1.2DL+1.4WX");
  EXPECT_EQ(for_csv("a \"b\", c"), "\"a \"\"b\"\", c\"");
  EXPECT_EQ(for_csv("two\nlines"), "two lines");
  EXPECT_EQ(for_csv("the \"wide\" one"), "\"the \"\"wide\"\" one\"");
  EXPECT_EQ(for_csv(""), "");
}

TEST(PlainText, IsTheSameDataInJson) {
  EXPECT_EQ(for_json("{\"a\": \"x\xC2\x9By\xE2\x80\xAEz\"}\n"), "{\"a\": \"x\\u009By\\u202Ez\"}\n");
}

}  // namespace
}  // namespace aluframe::model
