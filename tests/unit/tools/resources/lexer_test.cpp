#include "tools/resources/lexer.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tools/resources/source_error.h"

namespace resources {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

/// Spellings of all tokens but the last.
std::vector<std::string> spellings(const std::string& source) {
  std::vector<std::string> all;
  for (const Token& token : read_tokens("f", source)) all.push_back(token.spelling);
  all.pop_back();
  return all;
}

std::string refusal(const std::string& source) {
  try {
    read_tokens("f", source);
  } catch (const SourceError& error) {
    return error.what();
  }
  return "accepted";
}

std::u32string text_of(const std::string& source) {
  return read_tokens("f", source).at(0).text;
}

std::uint32_t number_of(const std::string& source) {
  return read_tokens("f", source).at(0).number;
}

TEST(Lexer, TokensNeedNoBlanksBetweenThem) {
  EXPECT_THAT(spellings("LTEXT \"a\",IDC_1,7|{x}"),
              ElementsAre("LTEXT", "\"a\"", ",", "IDC_1", ",", "7", "|", "{", "x", "}"));
}

TEST(Lexer, TheLastTokenEndsTheFile) {
  const std::vector<Token> tokens = read_tokens("f", "a\n");
  EXPECT_EQ(tokens.back().kind, TokenKind::End);
  EXPECT_EQ(tokens.back().line, 2);
}

TEST(Lexer, TokensKnowTheirLine) {
  const std::vector<Token> tokens = read_tokens("f", "a\r\nb /* c\n\n */ d\n// e\nf");
  EXPECT_EQ(tokens.at(0).line, 1);
  EXPECT_EQ(tokens.at(1).line, 2);
  EXPECT_EQ(tokens.at(2).line, 4);
  EXPECT_EQ(tokens.at(3).line, 6);
}

TEST(Lexer, CommentsAreLeftOut) {
  EXPECT_THAT(spellings("a // b \"c\n/* d // */ e /**/ f //"), ElementsAre("a", "e", "f"));
}

TEST(Lexer, AByteOrderMarkOfUtf8IsLeftOut) {
  EXPECT_THAT(spellings("\xEF\xBB\xBF"
                        "a"),
              ElementsAre("a"));
}

TEST(Lexer, NumbersAreDecimalOrHexadecimal) {
  EXPECT_EQ(number_of("7963"), 7963U);
  EXPECT_EQ(number_of("0"), 0U);
  EXPECT_EQ(number_of("0x1F1b"), 7963U);  // 1*4096 + 15*256 + 16 + 11
  EXPECT_EQ(number_of("0X00010000L"), 65536U);
  EXPECT_EQ(number_of("12L"), 12U);
  EXPECT_EQ(number_of("4294967295"), 4294967295U);
}

TEST(Lexer, DoubledQuotesInATextAreOneQuote) {
  EXPECT_EQ(text_of("\"a \"\"b\"\" c\""), U"a \"b\" c");
  EXPECT_EQ(text_of("\"\"\"\""), U"\"");
}

TEST(Lexer, ATextMayBeEmpty) {
  EXPECT_THAT(spellings("\"\",\"\""), ElementsAre("\"\"", ",", "\"\""));
  EXPECT_EQ(text_of("\"\""), U"");
}

TEST(Lexer, EscapesInATextAreReplaced) {
  EXPECT_EQ(text_of(R"("a\nb\rc\td\\e")"), U"a\nb\rc\td\\e");
}

TEST(Lexer, ATextIsUtf8) {
  EXPECT_EQ(text_of("\"\xE9\x93\x9D \xC3\xA9\""), U"\u94DD \u00E9");
}

TEST(Lexer, ATextThatIsNotUtf8IsRefused) {
  EXPECT_EQ(refusal("\n\"\xE9\""), "f:2: found a text that is not UTF-8, allowed UTF-8");
}

TEST(Lexer, ATextThatTheLineEndsIsRefused) {
  EXPECT_EQ(refusal("\"abc\n\""),
            "f:1: found the end of the line inside a text, allowed a double quote before it");
}

TEST(Lexer, ATextThatTheFileEndsIsRefused) {
  EXPECT_EQ(refusal("\n\n\"abc"),
            "f:3: found the end of the file inside a text, allowed a double quote before it");
}

TEST(Lexer, OtherEscapesAreRefused) {
  EXPECT_EQ(refusal(R"("\x41")"),
            R"(f:1: found a backslash before 'x', allowed \\, \n, \r and \t)");
}

TEST(Lexer, ACommentWithoutEndIsRefusedAtItsBeginning) {
  EXPECT_EQ(refusal("a\n/* b\n\n"), "f:2: found a comment without an end, allowed */ behind it");
}

TEST(Lexer, OtherCharactersAreRefused) {
  EXPECT_THAT(refusal("a ;"), StartsWith("f:1: found ';', allowed a word, a number, "));
  EXPECT_THAT(refusal("\xE9"), StartsWith("f:1: found byte 0xE9, allowed "));
  EXPECT_THAT(refusal(std::string("a\0b", 3)), StartsWith("f:1: found byte 0x00, allowed "));
}

class BadNumber : public testing::TestWithParam<const char*> {};

TEST_P(BadNumber, IsRefused) {
  EXPECT_EQ(refusal(GetParam()),
            std::string("f:1: found ") + GetParam() +
                ", allowed a decimal number or a hexadecimal one, up to 4294967295");
}

// An octal number elsewhere, too large, without digits, with letters.
INSTANTIATE_TEST_SUITE_P(Spellings, BadNumber,
                         testing::Values("010", "4294967296", "0x100000000", "0x", "0xG", "12a",
                                         "1L2", "0xL"));

}  // namespace
}  // namespace resources
